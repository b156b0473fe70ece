// SPDX-License-Identifier: MIT
#ifndef KELMORA_VALUECHANGE_H
#define KELMORA_VALUECHANGE_H

#include <QString>

namespace KELMORA {

// What reading and writing do to one value, put in words: the text a
// document gives (`given`) against the text the record writes back for it
// (`written`, null when the record writes nothing). Empty when nothing is
// lost. `record` and `name` name the element, for the value's notes (enumeration
// choices, flags held as text, Base64 lists) and for the message.
namespace ValueChange {

QString Describe(const QString& record, const QString& name, const QString& given,
                 const QString& written);
// A value given twice: the earlier one, `given`, is overwritten by the one
// on `laterLine`.
QString Overwritten(const QString& name, const QString& given, qint64 laterLine);
// Checks of a value as written that the comparison cannot see: a value
// outside its Minimum/Maximum; empty when it lies inside or has no range.
QString OutOfRange(const QString& name, const QString& value, const QString& minimum,
                   const QString& maximum);
// Whether a number text is one of the unset markers.
bool IsUnsetMarker(const QString& text);
// The text in quotes, shortened when long, line breaks and other control
// characters escaped so that a message stays on one line.
QString Quoted(const QString& text);
// Control characters as escapes: "\n", "\r", "\t", "\x01".
QString Escaped(const QString& text);

} // namespace ValueChange
} // namespace KELMORA

#endif
