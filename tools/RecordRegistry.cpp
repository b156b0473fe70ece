#include "RecordRegistry.h"

#include <algorithm>

namespace tool {

RecordRegistry& RecordRegistry::Instance() {
    // Built on first use, so registrations from other units' static objects
    // find it constructed whatever the initialisation order.
    static RecordRegistry registry;
    return registry;
}

void RecordRegistry::Add(RecordType type) {
    if (type.rootName.isEmpty() || Find(type.rootName))
        throw std::logic_error("record registered without a name or twice");
    m_types.push_back(std::move(type));
}

const RecordType* RecordRegistry::Find(const QString& rootName) const {
    const auto found = std::find_if(m_types.begin(), m_types.end(), [&](const RecordType& type) {
        return type.rootName == rootName;
    });
    return found == m_types.end() ? nullptr : &*found;
}

QStringList RecordRegistry::RootNames() const {
    QStringList names;
    for (const RecordType& type : m_types)
        names.append(type.rootName);
    names.sort();
    return names;
}

} // namespace tool
