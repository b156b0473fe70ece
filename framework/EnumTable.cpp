// SPDX-License-Identifier: MIT
#include "EnumTable.h"

#include "RecordFormat.h"

namespace KELMORA {

EnumTable::EnumTable(std::initializer_list<Row> rows) {
    m_entries.reserve(static_cast<int>(rows.size()));
    for (const Row& row : rows) {
        const QString display = QString::fromUtf8(row.display);
        m_entries.append({row.value, display, row.skpi ? QString::fromUtf8(row.skpi) : display});
    }
}

QString EnumTable::DisplayText(qint32 value) const {
    for (const Entry& entry : m_entries) {
        if (entry.value == value)
            return entry.display;
    }
    return QString();
}

qint32 EnumTable::ValueOfDisplay(const QString& text) const {
    for (const Entry& entry : m_entries) {
        if (entry.display == text)
            return entry.value;
    }
    return Unset::Enum;
}

QString EnumTable::SkpiText(qint32 value) const {
    for (const Entry& entry : m_entries) {
        if (entry.value == value)
            return entry.skpi;
    }
    return QString();
}

qint32 EnumTable::ValueOfSkpi(const QString& text) const {
    for (const Entry& entry : m_entries) {
        if (entry.skpi == text)
            return entry.value;
    }
    return Unset::Enum;
}

QVector<QString> EnumTable::DisplayTexts() const {
    QVector<QString> texts;
    for (const Entry& entry : m_entries)
        texts.append(entry.display);
    return texts;
}

} // namespace KELMORA
