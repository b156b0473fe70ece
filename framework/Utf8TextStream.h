// SPDX-License-Identifier: MIT
#ifndef KELMORA_UTF8TEXTSTREAM_H
#define KELMORA_UTF8TEXTSTREAM_H

#include <QTextStream>
#include <QtGlobal>

namespace KELMORA {

// Makes the stream write UTF-8, whatever the locale: Qt 5 and Qt 6 have no
// common call for it. For the programs of this tree (tool, benchmarks); not
// installed.
inline void SetUtf8(QTextStream& stream) {
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    stream.setEncoding(QStringConverter::Utf8);
#else
    stream.setCodec("UTF-8");
#endif
}

} // namespace KELMORA

#endif
