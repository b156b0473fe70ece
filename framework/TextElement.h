// SPDX-License-Identifier: MIT
#ifndef KELMORA_TEXTELEMENT_H
#define KELMORA_TEXTELEMENT_H

#include <QString>
#include <QXmlStreamWriter>

namespace KELMORA {
namespace TextElement {

// Writes <name>text</name> so that reading it gives the very text back. XML
// readers turn a literal carriage return into a line feed, so carriage returns
// go out as the character reference "&#13;"; any other text is written exactly
// as QXmlStreamWriter::writeTextElement writes it.
void Write(QXmlStreamWriter& writer, const QString& name, const QString& text);

} // namespace TextElement
} // namespace KELMORA

#endif
