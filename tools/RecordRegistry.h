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
// to create an empty one and how to write it as a tree.
struct RecordType {
    QString rootName;
    std::function<std::unique_ptr<KELMORA::IKMObject>()> create;
    std::function<void(const KELMORA::IKMObject&, TreePrinter&)> print;
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

    static RecordRegistry& Instance();

    // Throws std::logic_error, at the latest on the first lookup, for a
    // record whose root name is empty or already taken.
    void Add(Factory create, Printer print);
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
template <class Record> class RegisterRecord {
public:
    using Printer = void (*)(const Record&, TreePrinter&);

    explicit RegisterRecord(Printer printer) {
        RecordRegistry::Instance().Add(
            [] { return std::unique_ptr<KELMORA::IKMObject>(std::make_unique<Record>()); },
            [printer](const KELMORA::IKMObject& record, TreePrinter& out) {
                const auto* typed = dynamic_cast<const Record*>(&record);
                if (!typed)
                    throw std::logic_error("record handed to the printer of another type");
                printer(*typed, out);
            });
    }
};

} // namespace tool

#endif
