// SPDX-License-Identifier: MIT
#ifndef KELMORA_WRITTENTREE_H
#define KELMORA_WRITTENTREE_H

#include "NameTable.h"

#include <QHash>
#include <QSet>
#include <QString>
#include <QStringView>
#include <QVector>

#include <deque>
#include <utility>
#include <vector>

namespace KELMORA {

// A document as the library wrote it, as a tree of elements. Elements whose
// children are items of a list (a wrapper: neither a record nor a value)
// name their children by position.
class WrittenTree {
public:
    struct Element {
        QString name;
        int parent = -1;
        int position = 0; // among the parent's children
        QVector<std::pair<QString, QString>> attributes;
        QString text;
        std::vector<int> children;
    };

    // `recordNames`: the element names that are records, not wrappers.
    WrittenTree(const QString& document, const QSet<QString>& recordNames);

    bool IsEmpty() const { return m_elements.empty(); }
    const Element& At(int index) const { return m_elements[static_cast<size_t>(index)]; }
    // Whether the element is a list wrapper, whose children are items.
    bool IsWrapper(int index) const;
    // The element's path from the root: "WDE/ExciterList/2/Level".
    QString PathOf(int index) const;
    // The value of an attribute, or a null text.
    static QString Attribute(const Element& element, const QString& name);

private:
    std::deque<Element> m_elements;
    const QSet<QString>& m_recordNames;
    NameTable m_names;
};

} // namespace KELMORA

#endif
