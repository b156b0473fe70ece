// SPDX-License-Identifier: MIT
#ifndef EXCITERSETTINGS_TOOLS_RECORDREGISTRY_H
#define EXCITERSETTINGS_TOOLS_RECORDREGISTRY_H

#include "TreePrinter.h"

#include <IKMObject.h>

#include <QString>
#include <QStringList>

#include <deque>
#include <functional>
#include <memory>
#include <stdexcept>
#include <vector>

namespace tool {

// What the tool knows of one record: the root element name of its files, how
// to create an empty one and how to write it as a tree; for a record that
// refuses texts outside a choice list of its own, the list of a value's
// element (empty for elements without one).
struct RecordType {
    QString rootName;
    std::function<std::unique_ptr<KELMORA::IKMObject>()> create;
    std::function<void(const KELMORA::IKMObject&, TreePrinter&)> print;
    std::function<QStringList(const KELMORA::IKMObject&, const QString&)> choices;
};

// The records the tool handles, keyed by root element name. Records join it
// through a RegisterRecord object in their show_<record>.cpp, so a record is
// plugged in by adding that one file.
//
// Registrations run during static initialisation, in an unspecified order
// across translation units, so adding a type touches nothing but this
// registry: no record is created then. Root names are asked of the records
// on the first lookup, once main() runs and every registration is in; nested
// records find their printers at show time the same way.
class RecordRegistry {
public:
    using Factory = std::function<std::unique_ptr<KELMORA::IKMObject>()>;
    using Printer = std::function<void(const KELMORA::IKMObject&, TreePrinter&)>;
    using Choices = std::function<QStringList(const KELMORA::IKMObject&, const QString&)>;

    static RecordRegistry& Instance();

    // Throws std::logic_error, at the latest on the first lookup, for a
    // record whose root name is empty or already taken.
    void Add(Factory create, Printer print, Choices choices = nullptr);
    const RecordType* Find(const QString& rootName) const;
    // Sorted.
    QStringList RootNames() const;

private:
    RecordRegistry() = default;
    // Names the pending types and moves them to m_types.
    void Resolve() const;

    // Lookups are const to their callers; naming the pending types on the
    // way is not a visible change. A deque, so that the pointers Find hands
    // out survive later additions.
    mutable std::deque<RecordType> m_types;
    mutable std::vector<RecordType> m_pending;
    mutable bool m_lookedUp = false;
};

// Registers Record under its own object name, with the function that writes
// its content (the section heading is written by the caller):
//
//   void PrintSCU(const KELMORA::SCU& scu, tool::TreePrinter& out) { ... }
//   const tool::RegisterRecord<KELMORA::SCU> kRegisterSCU(&PrintSCU);
//
// A record whose reader refuses texts outside choice lists of its own passes
// the function that gives the list of an element as well:
//
//   QStringList TGNChoices(const KELMORA::TGN& tgn, const QString& element);
template <class Record> class RegisterRecord {
public:
    using Printer = void (*)(const Record&, TreePrinter&);
    using Choices = QStringList (*)(const Record&, const QString&);

    explicit RegisterRecord(Printer printer, Choices choices = nullptr) {
        RecordRegistry::Choices typedChoices;
        if (choices)
            typedChoices = [choices](const KELMORA::IKMObject& record, const QString& element) {
                return choices(Typed(record), element);
            };
        RecordRegistry::Instance().Add(
            [] { return std::unique_ptr<KELMORA::IKMObject>(std::make_unique<Record>()); },
            [printer](const KELMORA::IKMObject& record, TreePrinter& out) {
                printer(Typed(record), out);
            },
            std::move(typedChoices));
    }

private:
    static const Record& Typed(const KELMORA::IKMObject& record) {
        const auto* typed = dynamic_cast<const Record*>(&record);
        if (!typed)
            throw std::logic_error("record handed to a function of another type");
        return *typed;
    }
};

} // namespace tool

#endif
