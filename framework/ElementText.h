// SPDX-License-Identifier: MIT
#ifndef KELMORA_ELEMENTTEXT_H
#define KELMORA_ELEMENTTEXT_H

#include <QVector>
#include <QXmlStreamReader>

namespace KELMORA {

// The text of the element at the reader, converted as the records convert
// what IKMObject::GetTextValue returns, and read the same way: the pieces of
// text are joined, comments and processing instructions passed over, child
// elements skipped, and the reader is left on the element's end element.
// The usual text in one piece is converted where the reader holds it, so no
// string is made for it.
namespace ElementText {

// RecordFormat::ToDouble of the text.
double ToDouble(QXmlStreamReader& reader);
// RecordFormat::ToUnsigned of the text.
unsigned int ToUnsigned(QXmlStreamReader& reader);
// RecordFormat::IsTrue of the text.
bool IsTrue(QXmlStreamReader& reader);
// DoubleListCodec::Decode of the text.
QVector<double> ToDoubleList(QXmlStreamReader& reader);

} // namespace ElementText
} // namespace KELMORA

#endif
