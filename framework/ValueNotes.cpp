// SPDX-License-Identifier: MIT
#include "ValueNotes.h"

#include "EnumTable.h"

#include <QHash>

#include <vector>

namespace KELMORA {
namespace ValueNotes {

namespace {

struct Entry {
    const QString* record;
    const QString* element;
    Note note;
};

std::vector<Entry>& Entries() {
    static std::vector<Entry> entries;
    return entries;
}

} // namespace

Registration::Registration(const QString& record, const QString& element, Kind kind,
                           const EnumTable* table) {
    Entries().push_back({&record, &element, {kind, table}});
}

Registration::Registration(const QString& record, const QString& list, const QString& item) {
    Entries().push_back({&record, &list, {Kind::ValueList, nullptr, &item}});
}

const Note* Find(const QString& record, const QString& element) {
    // By element name first: built on the first lookup, once every
    // registration is in and every name constructed.
    static const QHash<QString, std::vector<const Entry*>> byElement = [] {
        QHash<QString, std::vector<const Entry*>> entries;
        for (const Entry& entry : Entries())
            entries[*entry.element].push_back(&entry);
        return entries;
    }();
    const auto found = byElement.constFind(element);
    if (found == byElement.constEnd())
        return nullptr;
    for (const Entry* entry : found.value()) {
        if (*entry->record == record)
            return &entry->note;
    }
    return nullptr;
}

QStringList Choices(const Note& note) {
    QStringList choices;
    if (note.table) {
        for (const QString& text : note.table->DisplayTexts())
            choices.append(text);
    }
    return choices;
}

} // namespace ValueNotes
} // namespace KELMORA
