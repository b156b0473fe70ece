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
} // namespace

QString Encode(const QVector<double>& values) {
    QByteArray bytes(values.size() * kBytesPerValue, Qt::Uninitialized);
    char* target = bytes.data();
    for (const double value : values) {
        quint64 bits = 0;
        std::memcpy(&bits, &value, sizeof bits);
        qToLittleEndian<quint64>(bits, target);
        target += kBytesPerValue;
    }
    return QString::fromLatin1(bytes.toBase64());
}

QVector<double> Decode(const QString& text) {
    const QByteArray bytes = QByteArray::fromBase64(text.toUtf8());
    QVector<double> values(bytes.size() / kBytesPerValue);
    const char* source = bytes.constData();
    for (double& value : values) {
        const quint64 bits = qFromLittleEndian<quint64>(source);
        std::memcpy(&value, &bits, sizeof value);
        source += kBytesPerValue;
    }
    return values;
}

} // namespace DoubleListCodec
} // namespace KELMORA
