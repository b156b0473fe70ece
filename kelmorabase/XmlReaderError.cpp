// SPDX-License-Identifier: MIT
#include "XmlReaderError.h"

namespace KELMORA {

KMException XmlReaderError(const QXmlStreamReader& reader) {
    return KMException(QStringLiteral("XML error: %1 (line %2, column %3)")
                           .arg(reader.errorString(), QString::number(reader.lineNumber()),
                                QString::number(reader.columnNumber())));
}

} // namespace KELMORA
