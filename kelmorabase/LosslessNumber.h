// SPDX-License-Identifier: MIT
#ifndef KELMORA_LOSSLESSNUMBER_H
#define KELMORA_LOSSLESSNUMBER_H

#include <QString>

namespace KELMORA {
namespace LosslessNumber {

// The shortest text that reads back to exactly the same double.
QString Format(double value);
// The text as a double; a text that is not a number gives 0.
double Parse(const QString& text);

} // namespace LosslessNumber
} // namespace KELMORA

#endif
