// SPDX-License-Identifier: MIT
#include "DoubleListCodec.h"

#include <QByteArray>
#include <QtEndian>

#include <cstring>

namespace KELMORA {
namespace DoubleListCodec {

namespace {
constexpr int kBytesPerValue = 8;
static_assert(sizeof(double) == kBytesPerValue && sizeof(quint64) == kBytesPerValue,
              "doubles travel as 8-byte IEEE 754 values");

constexpr char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

// The value of each character of the standard alphabet, -1 for all others.
struct DecodeTable {
    int value[128] = {};
    constexpr DecodeTable() {
        for (int& v : value)
            v = -1;
        for (int i = 0; i < 64; ++i)
            value[static_cast<unsigned char>(kAlphabet[i])] = i;
    }
};
constexpr DecodeTable kDecode;

// The two characters of each 12-bit half of a 3-byte group.
struct CharacterPair {
    char16_t first;
    char16_t second;
};
struct EncodeTable {
    CharacterPair pair[4096];
    constexpr EncodeTable() : pair() {
        for (int i = 0; i < 4096; ++i)
            pair[i] = {static_cast<char16_t>(kAlphabet[i >> 6]),
                       static_cast<char16_t>(kAlphabet[i & 63])};
    }
};
constexpr EncodeTable kEncode;

int DigitOf(QChar c) {
    const ushort u = c.unicode();
    return u < 128 ? kDecode.value[u] : -1;
}

// Encodes the bytes as QByteArray::toBase64() does, straight into a QString.
QString EncodeBytes(const unsigned char* bytes, int size) {
    QString text((size + 2) / 3 * 4, Qt::Uninitialized);
    static_assert(sizeof(QChar) == sizeof(char16_t), "QChar is one UTF-16 unit");
    auto* out = reinterpret_cast<char16_t*>(text.data());
    int i = 0;
    for (; i + 3 <= size; i += 3) {
        const quint32 group = quint32(bytes[i]) << 16 | quint32(bytes[i + 1]) << 8 | bytes[i + 2];
        std::memcpy(out, &kEncode.pair[group >> 12], sizeof(CharacterPair));
        std::memcpy(out + 2, &kEncode.pair[group & 0xFFF], sizeof(CharacterPair));
        out += 4;
    }
    if (i < size) {
        const bool two = i + 1 < size;
        const quint32 group = quint32(bytes[i]) << 16 | (two ? quint32(bytes[i + 1]) << 8 : 0);
        out[0] = static_cast<char16_t>(kAlphabet[group >> 18]);
        out[1] = static_cast<char16_t>(kAlphabet[(group >> 12) & 63]);
        out[2] = two ? static_cast<char16_t>(kAlphabet[(group >> 6) & 63]) : u'=';
        out[3] = u'=';
    }
    return text;
}

} // namespace

QString Encode(const QVector<double>& values) {
#if Q_BYTE_ORDER == Q_LITTLE_ENDIAN
    // The doubles' own bytes are already in the order the text carries.
    return EncodeBytes(reinterpret_cast<const unsigned char*>(values.constData()),
                       values.size() * kBytesPerValue);
#else
    QByteArray bytes(values.size() * kBytesPerValue, Qt::Uninitialized);
    char* target = bytes.data();
    for (const double value : values) {
        quint64 bits = 0;
        std::memcpy(&bits, &value, sizeof bits);
        qToLittleEndian<quint64>(bits, target);
        target += kBytesPerValue;
    }
    return EncodeBytes(reinterpret_cast<const unsigned char*>(bytes.constData()), bytes.size());
#endif
}

QVector<double> Decode(const QString& text) {
    return Decode(text.constData(), text.size());
}

QVector<double> Decode(const QChar* in, int size) {
    // As QByteArray::fromBase64(text.toUtf8()): every character outside the
    // alphabet is passed over ('=', blanks, and anything beyond ASCII, whose
    // UTF-8 bytes are all outside it too); each character adds six bits.
    int digitsAtMost = size; // trailing padding decodes to nothing
    while (digitsAtMost > 0 && in[digitsAtMost - 1] == QLatin1Char('='))
        --digitsAtMost;
    QVector<double> values((digitsAtMost * 3 / 4 + kBytesPerValue - 1) / kBytesPerValue);
    auto* out = reinterpret_cast<unsigned char*>(values.data());
    int written = 0;
    quint32 bits = 0;
    int bitCount = 0;
    int i = 0;
    while (i < size) {
        // Whole groups of four alphabet characters, the bulk of any text.
        for (; bitCount == 0 && i + 4 <= size; i += 4) {
            const ushort c0 = in[i].unicode(), c1 = in[i + 1].unicode(), c2 = in[i + 2].unicode(),
                         c3 = in[i + 3].unicode();
            if ((c0 | c1 | c2 | c3) >= 128)
                break;
            const int a = kDecode.value[c0], b = kDecode.value[c1], c = kDecode.value[c2],
                      d = kDecode.value[c3];
            if ((a | b | c | d) < 0)
                break;
            const quint32 group =
                quint32(a) << 18 | quint32(b) << 12 | quint32(c) << 6 | quint32(d);
            out[written] = static_cast<unsigned char>(group >> 16);
            out[written + 1] = static_cast<unsigned char>(group >> 8);
            out[written + 2] = static_cast<unsigned char>(group);
            written += 3;
        }
        if (i >= size)
            break;
        const int digit = DigitOf(in[i++]);
        if (digit < 0)
            continue;
        bits = bits << 6 | quint32(digit);
        bitCount += 6;
        if (bitCount >= 8) {
            bitCount -= 8;
            out[written++] = static_cast<unsigned char>(bits >> bitCount);
            bits &= (1u << bitCount) - 1;
        }
    }
    values.resize(written / kBytesPerValue);
#if Q_BYTE_ORDER != Q_LITTLE_ENDIAN
    for (double& value : values) {
        const quint64 bits64 = qFromLittleEndian<quint64>(&value);
        std::memcpy(&value, &bits64, sizeof value);
    }
#endif
    return values;
}

} // namespace DoubleListCodec
} // namespace KELMORA
