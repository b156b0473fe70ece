// SPDX-License-Identifier: MIT
#include "RecordMessages.h"

namespace KELMORA {
namespace RecordMessages {

KMException PleaseSet(const QString& object, const QString& field) {
    return KMException(QStringLiteral("%1: Please set %2!").arg(object).arg(field));
}

KMException PleaseSetWithoutMark(const QString& object, const QString& field) {
    return KMException(QStringLiteral("%1: Please set %2").arg(object).arg(field));
}

KMException ObjectText(const QString& object, const QString& fixedText) {
    return KMException(object + fixedText);
}

KMException UnknownTag(const QString& child, const QString& object) {
    return KMException(QStringLiteral("Unknown Tag '%1' in '%2'").arg(child).arg(object));
}

KMException UnknownChoice(const QString& object, const QString& field, const QString& value) {
    return KMException(QStringLiteral("%1: Unknown %2 '%3'").arg(object).arg(field).arg(value));
}

KMException UnknownNamed(const QString& what, const QString& value) {
    return KMException(QStringLiteral("Unknown %1 '%2'").arg(what).arg(value));
}

KMException InvalidTaskType(const QString& object, qint32 value) {
    return KMException(QStringLiteral("%1: Invalid TaskType '%2'").arg(object).arg(value));
}

KMException InvalidValueType(const QString& object, const QString& value) {
    return KMException(QStringLiteral("%1: Invalid ValueType '%2'").arg(object).arg(value));
}

} // namespace RecordMessages
} // namespace KELMORA
