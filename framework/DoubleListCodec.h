// SPDX-License-Identifier: MIT
#ifndef KELMORA_DOUBLELISTCODEC_H
#define KELMORA_DOUBLELISTCODEC_H

#include <QString>
#include <QVector>

namespace KELMORA {

// A list of doubles as one Base64 text: each value as its 8 IEEE 754 bytes,
// least significant byte first, concatenated without count or separator, then
// encoded with the standard alphabet and '=' padding. The byte order is fixed
// so that files move between hosts of either endianness.
namespace DoubleListCodec {

// The empty list gives the empty text.
QString Encode(const QVector<double>& values);
// Decodes as QByteArray::fromBase64 allows; bytes after the last whole group
// of eight are dropped.
QVector<double> Decode(const QString& text);
QVector<double> Decode(const QChar* text, int size);

} // namespace DoubleListCodec
} // namespace KELMORA

#endif
