// SPDX-License-Identifier: MIT
#ifndef KELMORA_READOBSERVER_H
#define KELMORA_READOBSERVER_H

#include <KelmoraBaseExport.h>

#include <QString>
#include <QXmlStreamReader>

namespace KELMORA {

class IKMObject;

// Watches the records read a document, without changing what they do: which
// child elements a record took, which it passed over, which it handed to a
// nested record or read as a wrapper of its own, and the text of every value
// it took. Diagnostics build on it, so that they see a document exactly as
// the records read it.
//
// An observer is installed for the current thread with Scope; records read on
// other threads are not seen. Every call comes with the reader positioned as
// described; the observer must not move the reader.
class KELMORABASE_EXPORT ReadObserver {
public:
    // An observer; install it with Scope.
    ReadObserver() = default;
    ReadObserver(const ReadObserver&) = delete;
    ReadObserver& operator=(const ReadObserver&) = delete;
    // The observer must be uninstalled (its Scope ended) before it is destroyed.
    virtual ~ReadObserver();

    // IKMObject::ProcessXml of `record` begins, the reader on the start
    // element it reads: the document's root, a child that the parent handed
    // to a nested record, or a wrapper that a record reads as its own (the
    // same record as the one reading the enclosing element).
    virtual void RecordEntered(const IKMObject& record, const QXmlStreamReader& reader) = 0;
    // The element loop of `record` found a child start element (the reader is
    // on it) and hands it to the record. `line` and `column` (both from 1)
    // tell where its start tag begins; the reader's own position is after it.
    virtual void ChildStarted(const IKMObject& record, const QXmlStreamReader& reader, qint64 line,
                              qint64 column) = 0;
    // The record is done with the child: it read it (the reader on its end
    // element), or left it untouched and the loop passes over it.
    virtual void ChildEnded(const IKMObject& record, const QXmlStreamReader& reader,
                            bool passedOver) = 0;
    // A record took the text of the current child element as a value.
    virtual void ValueRead(const QString& text) = 0;
    // An element inside the element whose text a record is taking as a
    // value (the reader after its start tag): the value keeps only its
    // text, so the element is passed over. Does nothing unless overridden.
    virtual void ElementInValue(const QXmlStreamReader& reader);

    // The observer of this thread, or null.
    static ReadObserver* Current();

    // Installs an observer for this thread while the scope lasts.
    class KELMORABASE_EXPORT Scope {
    public:
        // Makes the observer the current one of this thread, remembering the previous one.
        explicit Scope(ReadObserver& observer);
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;
        // Restores the previous observer of this thread.
        ~Scope();

    private:
        ReadObserver* m_previous;
    };
};

} // namespace KELMORA

#endif
