// SPDX-License-Identifier: MIT
#include "ItemAttributes.h"

#include "ChildName.h"
#include "ElementNames.h"
#include "NumberText.h"

namespace KELMORA {
namespace ItemAttributes {

QString ReadVersion(const QXmlStreamReader& reader) {
    return reader.attributes().value(ElementNames::Version).toString();
}

void WriteVersion(QXmlStreamWriter& writer, const QString& version) {
    writer.writeAttribute(ElementNames::Version, version);
}

void ReadItem(const IKMObject& record, const QXmlStreamReader& reader, QString& version, int& index,
              QString& itemName) {
    // One pass over the attributes; of an attribute given twice the first
    // counts, as with QXmlStreamAttributes::value.
    QStringView readVersion;
    bool versionSeen = false, indexSeen = false, nameSeen = false;
    const QXmlStreamAttributes attributes = reader.attributes();
    for (const QXmlStreamAttribute& attribute : attributes) {
        const ChildName name(attribute.qualifiedName());
        if (!versionSeen && name == ElementNames::Version) {
            versionSeen = true;
            readVersion = attribute.value();
        } else if (!indexSeen && name == ElementNames::Index) {
            indexSeen = true;
            // An index that is no number leaves the item's own.
            const int read = NumberText::ToInt(attribute.value());
            if (record.IsValid(read))
                index = read;
        } else if (!nameSeen && name == ElementNames::Name) {
            nameSeen = true;
            itemName = attribute.value().toString();
        }
    }
    // Items mostly carry the version they were made with: keeping the text
    // they hold saves a string per item. An absent attribute gives the empty
    // text.
    if (version.isEmpty() || readVersion != version)
        version = readVersion.toString();
}

void WriteItem(const IKMObject& record, QXmlStreamWriter& writer, const QString& version, int index,
               const QString& itemName) {
    WriteVersion(writer, version);
    if (record.IsValid(index))
        writer.writeAttribute(ElementNames::Index, QString::number(index, 10));
    if (!itemName.isEmpty())
        writer.writeAttribute(ElementNames::Name, itemName);
}

} // namespace ItemAttributes
} // namespace KELMORA
