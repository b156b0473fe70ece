// SPDX-License-Identifier: MIT
#ifndef KELMORA_CHILDNAME_H
#define KELMORA_CHILDNAME_H

#include <QString>
#include <QStringView>

#include <cstring>

namespace KELMORA {

// The name of the child element at the reader (or of an attribute), as the
// readers compare it with their names one after the other. Equal means the
// same UTF-16 code units, as QString's own case-sensitive ==; but a name of
// another length, by far the most common case in those chains, is told apart
// inline without a call into Qt. A view into the reader: valid until it
// reads on.
class ChildName {
public:
    explicit ChildName(QStringView name) : m_name(name) {}

    bool operator==(const QString& other) const {
        return m_name.size() == other.size() &&
               std::memcmp(m_name.data(), other.unicode(),
                           static_cast<size_t>(other.size()) * sizeof(QChar)) == 0;
    }
    bool operator!=(const QString& other) const { return !(*this == other); }

    QString toString() const { return m_name.toString(); }

private:
    QStringView m_name;
};

} // namespace KELMORA

#endif
