// SPDX-License-Identifier: MIT
#include "LosslessNumber.h"

#include <QLocale>

#include <cmath>

namespace KELMORA {
namespace LosslessNumber {

QString Format(double value) {
    // Plain decimals read best for the magnitudes settings have (frequencies
    // in Hz, times in s); the exponent form keeps extreme values short.
    const double magnitude = std::fabs(value);
    const bool plain = magnitude == 0.0 || (magnitude >= 1e-6 && magnitude < 1e16);
    return QString::number(value, plain ? 'f' : 'g', QLocale::FloatingPointShortest);
}

double Parse(const QString& text) {
    return text.toDouble();
}

} // namespace LosslessNumber
} // namespace KELMORA
