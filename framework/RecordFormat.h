// SPDX-License-Identifier: MIT
#ifndef KELMORA_RECORDFORMAT_H
#define KELMORA_RECORDFORMAT_H

#include <QString>
#include <QtGlobal>

namespace KELMORA {

// Unset markers shared by all records: a value equal to its marker is unset.
namespace Unset {
constexpr double Double = -111111.11;
constexpr int Int = -111111;
constexpr unsigned int UnsignedInt = 4294967295u;
constexpr qint32 Enum = -1;
} // namespace Unset

// The text forms of values in the settings XML, written and read the same way
// by every record.
namespace RecordFormat {

// Fixed-point with exactly two decimals: 12.5 -> "12.50". A set value is never
// written as the unset marker's text: -111111.111 -> "-111111.12"; a value
// that rounds to zero is "0.00", without a sign.
QString FixedTwo(double value);
// General form with six significant digits: 1234567 -> "1.23457e+06".
QString GeneralSix(double value);
QString Integer(int value);
QString Unsigned(unsigned int value);
QString Flag(bool value);

// Conversions of element texts; a text that does not convert gives 0.
double ToDouble(const QString& text);
int ToInt(const QString& text);
unsigned int ToUnsigned(const QString& text);
// Only the exact text "true" is true.
bool IsTrue(const QString& text);

} // namespace RecordFormat
} // namespace KELMORA

#endif
