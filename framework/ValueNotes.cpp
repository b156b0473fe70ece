#include "ValueNotes.h"

#include "EnumTable.h"

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

const Note* Find(const QString& record, const QString& element) {
    for (const Entry& entry : Entries()) {
        if (*entry.element == element && *entry.record == record)
            return &entry.note;
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
