// SPDX-License-Identifier: MIT
#include "RecordFormat.h"

#include "NumberText.h"

namespace KELMORA {
namespace RecordFormat {

namespace {
const QString kTrue = QStringLiteral("true");
const QString kFalse = QStringLiteral("false");

QString TwoDecimals(double value) {
    QString text = QStringLiteral("%1").arg(value, 0, 'f', 2);
    // Qt writes negative zero as "0.00" but a negative value that rounds to
    // zero as "-0.00", which reads back as negative zero: both are "0.00".
    if (text == QLatin1String("-0.00"))
        return QStringLiteral("0.00");
    return text;
}

const QString kUnsetTwoDecimals = TwoDecimals(Unset::Double);
} // namespace

QString FixedTwo(double value) {
    QString text = TwoDecimals(value);
    // A set value whose hundredths round to those of the unset marker would
    // read back as unset: it is written as the next hundredth on its side.
    if (text == kUnsetTwoDecimals && value != Unset::Double)
        return TwoDecimals(value < Unset::Double ? Unset::Double - 0.01 : Unset::Double + 0.01);
    return text;
}

QString GeneralSix(double value) {
    return NumberText::GeneralSix(value);
}

QString Integer(int value) {
    return QStringLiteral("%1").arg(value, 0, 10);
}

QString Unsigned(unsigned int value) {
    return QString::number(value, 10);
}

QString Flag(bool value) {
    return value ? kTrue : kFalse;
}

double ToDouble(const QString& text) {
    return NumberText::ToDouble(text);
}

int ToInt(const QString& text) {
    return NumberText::ToInt(text);
}

unsigned int ToUnsigned(const QString& text) {
    return NumberText::ToUnsigned(text);
}

bool IsTrue(const QString& text) {
    return text == kTrue;
}

} // namespace RecordFormat
} // namespace KELMORA
