// SPDX-License-Identifier: MIT
#include "TextElement.h"

#include <QStringList>

namespace KELMORA {
namespace TextElement {

void Write(QXmlStreamWriter& writer, const QString& name, const QString& text) {
    writer.writeStartElement(name);
    const QChar carriageReturn(QLatin1Char('\r'));
    if (!text.contains(carriageReturn)) {
        writer.writeCharacters(text);
    } else {
        const QStringList parts = text.split(carriageReturn);
        for (int i = 0; i < parts.size(); ++i) {
            if (i > 0)
                writer.writeEntityReference(QStringLiteral("#13"));
            writer.writeCharacters(parts[i]);
        }
    }
    writer.writeEndElement();
}

} // namespace TextElement
} // namespace KELMORA
