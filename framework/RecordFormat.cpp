#include "RecordFormat.h"

#include "NumberText.h"

namespace KELMORA {
namespace RecordFormat {

namespace {
const QString kTrue = QStringLiteral("true");
const QString kFalse = QStringLiteral("false");
} // namespace

QString FixedTwo(double value) {
    return QStringLiteral("%1").arg(value, 0, 'f', 2);
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
