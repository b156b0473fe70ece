#include "LosslessNumber.h"

#include <QLocale>

namespace KELMORA {
namespace LosslessNumber {

QString Format(double value) {
    return QString::number(value, 'g', QLocale::FloatingPointShortest);
}

double Parse(const QString& text) { return text.toDouble(); }

} // namespace LosslessNumber
} // namespace KELMORA
