// SPDX-License-Identifier: MIT
#ifndef KELMORA_READTRACE_H
#define KELMORA_READTRACE_H

#include "NameTable.h"

#include <IKMObject.h>
#include <ReadObserver.h>

#include <QHash>
#include <QString>
#include <QStringView>
#include <QVector>

#include <deque>
#include <utility>
#include <vector>

namespace KELMORA {

// The elements of a document as a record read them, recorded by watching
// the reading: every element handed to a record, what the record did with
// it, where it stands and what it said.
class ReadTrace : public ReadObserver {
public:
    enum class Kind {
        Value,      // the record took its text
        Record,     // read by a nested record (or the root record itself)
        Wrapper,    // read by the same record, its children as the record's own
        PassedOver, // left untouched: the element loop skips it
    };
    using Attributes = QVector<std::pair<QString, QString>>;

    struct Element {
        Kind kind = Kind::PassedOver;
        QString name;
        qint64 line = 0;
        qint64 column = 0;
        int parent = -1;
        int position = 0; // among the parent's children
        Attributes attributes;
        QString text;                      // Value: the text the record took
        const IKMObject* record = nullptr; // Record, Wrapper: the record reading it
        const IKMObject* owner = nullptr;  // the record that was handed the element
        // Record: the failure of its Check() when it was incomplete once read
        // (an incomplete record of some kinds writes nothing).
        QString incomplete;
        std::vector<int> children;
    };

    // In document order; the root element first.
    const std::deque<Element>& Elements() const { return m_elements; }
    // The element being read when the reading stopped, innermost first; empty
    // after a complete read.
    std::vector<int> OpenElements() const { return m_open; }

    void RecordEntered(const IKMObject& record, const QXmlStreamReader& reader) override;
    void ChildStarted(const IKMObject& record, const QXmlStreamReader& reader, qint64 line,
                      qint64 column) override;
    void ChildEnded(const IKMObject& record, const QXmlStreamReader& reader,
                    bool passedOver) override;
    void ValueRead(const QString& text) override;
    void ElementInValue(const QXmlStreamReader& reader) override;

    // The root record is read completely: its own reason to write nothing.
    void RootRead(const IKMObject& root);

    // Why the record writes nothing: the message of its Check(), or an empty
    // text when it is complete.
    static QString IncompleteReason(const IKMObject& record);

private:
    static Attributes CopyAttributes(const QXmlStreamReader& reader);

    std::deque<Element> m_elements;
    std::vector<int> m_open;
    NameTable m_names;
};

} // namespace KELMORA

#endif
