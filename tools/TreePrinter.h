// SPDX-License-Identifier: MIT
#ifndef EXCITERSETTINGS_TOOLS_TREEPRINTER_H
#define EXCITERSETTINGS_TOOLS_TREEPRINTER_H

#include <IKMObject.h>

#include <QString>
#include <QTextStream>
#include <QVector>

#include <functional>

namespace tool {

// Writes settings as an indented tree: one "Name: value" line per value, a
// line with the name alone opening a nested section, two blanks per level.
// Values that hold their unset marker are written as "unset".
class TreePrinter {
public:
    explicit TreePrinter(QTextStream& out);

    static QString UnsetText();
    // Shortest text that reads back to the same double, in plain decimals
    // for everyday magnitudes.
    static QString NumberText(double value);

    void Line(const QString& name, const QString& value);
    void Unset(const QString& name);
    // Empty text is unset.
    void Text(const QString& name, const QString& text);
    void Flag(const QString& name, bool on);
    // -111111.11 is unset.
    void Double(const QString& name, double value);
    // 4294967295 is unset.
    void Unsigned(const QString& name, unsigned int value);
    void Integer(const QString& name, int value, bool isSet);
    // -1 is unset; a value without a display text is shown as its number.
    void Enum(const QString& name, int value, const QString& displayText);
    // A value with its range, as a section of its own.
    void Range(const QString& name, double value, double minimum, double maximum);
    // A list of numbers on one line, or "empty".
    void Numbers(const QString& name, const QVector<double>& values);
    // The record's "Version" attribute.
    void Version(const KELMORA::IKMObject& record);
    // The attributes of a list item: "Version", "Index" (unset where the
    // item's IsValid(int) rejects it) and "Name". The items' index and name
    // getters are not const, hence the copy.
    template <class Item> void ItemAttributes(const Item& item) {
        Item copy = item;
        ItemAttributes(item, copy.GetIndex(), copy.GetItemName());
    }

    // A section headed by the title; body writes its content one level deeper.
    void Section(const QString& title, const std::function<void()>& body);
    // A nested record as a section named by its object name, written by the
    // printer registered for it.
    void Record(const KELMORA::IKMObject& record);
    // A record list: a header with the item count (or "empty"), then each
    // item as a section "[position] <object name>".
    template <class Item> void List(const QString& name, const QVector<Item>& items) {
        ListHeader(name, items.size());
        ++m_depth;
        for (int position = 0; position < items.size(); ++position)
            ListItem(position, items.at(position));
        --m_depth;
    }

private:
    void ItemAttributes(const KELMORA::IKMObject& item, int index, const QString& itemName);
    void ListHeader(const QString& name, int count);
    void ListItem(int position, const KELMORA::IKMObject& item);
    void Body(const KELMORA::IKMObject& record);
    void Write(const QString& text);

    QTextStream& m_out;
    int m_depth = 0;
};

} // namespace tool

#endif
