// SPDX-License-Identifier: MIT
#ifndef KELMORA_ITEMATTRIBUTES_H
#define KELMORA_ITEMATTRIBUTES_H

#include <IKMObject.h>

#include <QString>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace KELMORA {

// The attributes of a record's start element: "Version" for every record but
// the attenuator path, and "Index" and "Name" for the list items.
namespace ItemAttributes {

// The "Version" attribute; an absent attribute gives the empty text.
QString ReadVersion(const QXmlStreamReader& reader);
void WriteVersion(QXmlStreamWriter& writer, const QString& version);

// "Version" always; "Index" (base 10, a non-number gives 0) and "Name" only
// when present, so an absent attribute keeps the stored value. An "Index" that
// converts to what the record's IsValid(int) rejects is passed over like an
// absent one: stored, it would make the item write no index at all.
void ReadItem(const IKMObject& record, const QXmlStreamReader& reader, QString& version, int& index,
              QString& itemName);
// "Version" always, "Index" when the record's IsValid(int) accepts it, "Name"
// when not empty.
void WriteItem(const IKMObject& record, QXmlStreamWriter& writer, const QString& version, int index,
               const QString& itemName);

} // namespace ItemAttributes
} // namespace KELMORA

#endif
