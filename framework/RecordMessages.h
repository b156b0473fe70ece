// SPDX-License-Identifier: MIT
#ifndef KELMORA_RECORDMESSAGES_H
#define KELMORA_RECORDMESSAGES_H

#include <KMException.h>

#include <QString>

namespace KELMORA {

// The failure texts of the records, each built by successive QString::arg
// calls. Each function returns the exception for the caller to throw.
namespace RecordMessages {

// "<object>: Please set <field>!"
KMException PleaseSet(const QString& object, const QString& field);
// "<object>: Please set <field>" (no exclamation mark)
KMException PleaseSetWithoutMark(const QString& object, const QString& field);
// The object name followed at once by a fixed text, e.g. "WDE" + ":Please set Mode!"
KMException ObjectText(const QString& object, const QString& fixedText);
// "Unknown Tag '<child>' in '<object>'"
KMException UnknownTag(const QString& child, const QString& object);
// "<object>: Unknown <field> '<value>'"
KMException UnknownChoice(const QString& object, const QString& field, const QString& value);
// "Unknown <what> '<value>'"
KMException UnknownNamed(const QString& what, const QString& value);
// "<object>: Invalid TaskType '<value>'"
KMException InvalidTaskType(const QString& object, qint32 value);
// "<object>: Invalid ValueType '<value>'"
KMException InvalidValueType(const QString& object, const QString& value);

} // namespace RecordMessages
} // namespace KELMORA

#endif
