#ifndef EXCITERSETTINGS_TOOLS_RECORDREGISTRY_H
#define EXCITERSETTINGS_TOOLS_RECORDREGISTRY_H

#include "TreePrinter.h"

#include <IKMObject.h>

#include <QString>
#include <QStringList>

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
class RecordRegistry {
public:
    static RecordRegistry& Instance();

    // Throws std::logic_error for a root name that is already taken.
    void Add(RecordType type);
    const RecordType* Find(const QString& rootName) const;
    // Sorted.
    QStringList RootNames() const;

private:
    RecordRegistry() = default;

    std::vector<RecordType> m_types;
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
            {Record().GetObjectName(),
             [] { return std::unique_ptr<KELMORA::IKMObject>(std::make_unique<Record>()); },
             [printer](const KELMORA::IKMObject& record, TreePrinter& out) {
                 const auto* typed = dynamic_cast<const Record*>(&record);
                 if (!typed)
                     throw std::logic_error("record handed to the printer of another type");
                 printer(*typed, out);
             }});
    }
};

} // namespace tool

#endif
