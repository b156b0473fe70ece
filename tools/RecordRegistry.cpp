// SPDX-License-Identifier: MIT
#include "RecordRegistry.h"

#include <algorithm>

namespace tool {

RecordRegistry& RecordRegistry::Instance() {
    // Built on first use, so registrations from other units' static objects
    // find it constructed whatever the initialisation order.
    static RecordRegistry registry;
    return registry;
}

void RecordRegistry::Add(Factory create, Printer print, Choices choices) {
    m_pending.push_back({QString(), std::move(create), std::move(print), std::move(choices)});
    // Past the first lookup, static initialisation is over: name it now so a
    // clash shows where it is made.
    if (m_lookedUp)
        Resolve();
}

void RecordRegistry::Resolve() const {
    m_lookedUp = true;
    while (!m_pending.empty()) {
        RecordType type = std::move(m_pending.front());
        m_pending.erase(m_pending.begin());
        type.rootName = type.create()->GetObjectName();
        const bool taken =
            std::any_of(m_types.begin(), m_types.end(),
                        [&](const RecordType& known) { return known.rootName == type.rootName; });
        if (type.rootName.isEmpty() || taken)
            throw std::logic_error("record registered without a name or twice: " +
                                   type.rootName.toStdString());
        m_types.push_back(std::move(type));
    }
}

const RecordType* RecordRegistry::Find(const QString& rootName) const {
    Resolve();
    const auto found = std::find_if(m_types.begin(), m_types.end(), [&](const RecordType& type) {
        return type.rootName == rootName;
    });
    return found == m_types.end() ? nullptr : &*found;
}

QStringList RecordRegistry::RootNames() const {
    Resolve();
    QStringList names;
    for (const RecordType& type : m_types)
        names.append(type.rootName);
    names.sort();
    return names;
}

} // namespace tool
