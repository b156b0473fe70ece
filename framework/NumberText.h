// SPDX-License-Identifier: MIT
#ifndef KELMORA_NUMBERTEXT_H
#define KELMORA_NUMBERTEXT_H

#include <QString>
#include <QStringView>

namespace KELMORA {

// Number texts of the settings XML, converted without a detour: the results
// are exactly those of QString::number(value, 'g', 6) and QString::toDouble,
// which remain the answer wherever a short cut could differ from them.
namespace NumberText {

// QString::number(value, 'g', 6): six significant digits, exponent form
// below 1e-4 and from 1e6 on, no trailing zeros.
QString GeneralSix(double value);

// QString::toDouble of the text (0 when it does not convert).
double ToDouble(const QString& text);
double ToDouble(QStringView text);

// QString::toInt and QString::toUInt in base 10 (0 when the text does not
// convert).
int ToInt(const QString& text);
int ToInt(QStringView text);
unsigned int ToUnsigned(const QString& text);
unsigned int ToUnsigned(QStringView text);

} // namespace NumberText
} // namespace KELMORA

#endif
