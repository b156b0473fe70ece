#ifndef KELMORA_NUMBERTEXT_H
#define KELMORA_NUMBERTEXT_H

#include <QString>
#include <QStringRef>

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
double ToDouble(const QStringRef& text);

// QString::toInt and QString::toUInt in base 10 (0 when the text does not
// convert).
int ToInt(const QString& text);
int ToInt(const QStringRef& text);
unsigned int ToUnsigned(const QString& text);
unsigned int ToUnsigned(const QStringRef& text);

} // namespace NumberText
} // namespace KELMORA

#endif
