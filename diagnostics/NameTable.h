// SPDX-License-Identifier: MIT
#ifndef KELMORA_NAMETABLE_H
#define KELMORA_NAMETABLE_H

#include <QHash>
#include <QString>
#include <QStringView>

namespace KELMORA {

// Element names, one string each however often they occur in a document:
// a few dozen names stand for millions of elements.
class NameTable {
public:
    QString Intern(QStringView name) {
        const auto found = m_names.constFind(name);
        if (found != m_names.constEnd())
            return found.value();
        QString text = name.toString();
        m_names.insert(QStringView(text), text); // the key views the stored value
        return text;
    }

private:
    QHash<QStringView, QString> m_names;
};

} // namespace KELMORA

#endif
