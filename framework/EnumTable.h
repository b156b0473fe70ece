// SPDX-License-Identifier: MIT
#ifndef KELMORA_ENUMTABLE_H
#define KELMORA_ENUMTABLE_H

#include <QString>
#include <QVector>
#include <QtGlobal>

#include <initializer_list>

namespace KELMORA {

// An enumeration's texts as data: each row holds a value, its display text
// (the XML form) and, where the instrument has a word of its own, its SKPI
// text. Lookups are exact and case-sensitive and take the first matching row;
// a text that matches no row gives -1 and a value without a row gives a null
// QString. Nothing throws.
class EnumTable {
public:
    struct Row {
        qint32 value;
        const char* display;
        const char* skpi = nullptr;
    };

    EnumTable(std::initializer_list<Row> rows);

    QString DisplayText(qint32 value) const;
    qint32 ValueOfDisplay(const QString& text) const;
    QString SkpiText(qint32 value) const;
    qint32 ValueOfSkpi(const QString& text) const;

    // Every display text in table order.
    QVector<QString> DisplayTexts() const;

private:
    struct Entry {
        qint32 value;
        QString display;
        QString skpi;
    };

    QVector<Entry> m_entries;
};

} // namespace KELMORA

#endif
