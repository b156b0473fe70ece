// SPDX-License-Identifier: MIT
#ifndef KELMORA_VALUENOTES_H
#define KELMORA_VALUENOTES_H

#include <QString>
#include <QStringList>

namespace KELMORA {

class EnumTable;

// What a value's text alone does not tell: that it is an enumeration (and of
// which table), a flag held as text, or a list of doubles in Base64; and
// which element names the values of a list of plain values, which a record
// does not write while the list is empty. Records
// note it beside the very table or name they read the value with, so the
// note cannot drift from the reading; the diagnostics look it up to explain
// what happened to a value.
namespace ValueNotes {

enum class Kind { Enumeration, TextFlag, DoubleList, ValueList };

struct Note {
    Kind kind;
    const EnumTable* table;        // Enumeration only
    const QString* item = nullptr; // ValueList only: the element of each value
};

// Registers a note while the library loads. The names are kept by address
// and read only on lookup, so they may be constants of other source files
// that are not constructed yet.
class Registration {
public:
    Registration(const QString& record, const QString& element, Kind kind,
                 const EnumTable* table = nullptr);
    // The list element `list` holds values, each an element `item`.
    Registration(const QString& record, const QString& list, const QString& item);
};

// The note of element `element` of the record named `record`, or null.
const Note* Find(const QString& record, const QString& element);
// The display texts of an enumeration's table, in table order.
QStringList Choices(const Note& note);

} // namespace ValueNotes
} // namespace KELMORA

#endif
