// SPDX-License-Identifier: MIT
#include "ReadTrace.h"

#include <KMException.h>

namespace KELMORA {

namespace {

// Where a start tag begins, the reader after it (the root's, or one inside a
// value), where no token of the element loop measures it. The tag is taken as
// written without extra spaces, which is how settings files are written.
qint64 StartColumnOfTag(const QXmlStreamReader& reader) {
    qint64 length = 2 + reader.name().size(); // "<name" and ">"
    for (const QXmlStreamAttribute& attribute : reader.attributes())
        length += 4 + attribute.qualifiedName().size() + attribute.value().size(); // ' a=""'
    return qMax<qint64>(1, reader.columnNumber() - length + 1);
}

} // namespace

ReadTrace::Attributes ReadTrace::CopyAttributes(const QXmlStreamReader& reader) {
    Attributes copied;
    const QXmlStreamAttributes attributes = reader.attributes();
    for (const QXmlStreamAttribute& attribute : attributes)
        copied.append({attribute.qualifiedName().toString(), attribute.value().toString()});
    return copied;
}

void ReadTrace::RecordEntered(const IKMObject& record, const QXmlStreamReader& reader) {
    if (m_open.empty()) { // the root
        Element root;
        root.kind = Kind::Record;
        root.name = reader.name().toString();
        root.line = reader.lineNumber();
        root.column = StartColumnOfTag(reader);
        root.attributes = CopyAttributes(reader);
        root.record = &record;
        m_elements.push_back(std::move(root));
        m_open.push_back(0);
        return;
    }
    Element& element = m_elements[static_cast<size_t>(m_open.back())];
    element.kind = &record == element.owner ? Kind::Wrapper : Kind::Record;
    element.record = &record;
}

void ReadTrace::ChildStarted(const IKMObject& record, const QXmlStreamReader& reader, qint64 line,
                             qint64 column) {
    Element element;
    element.name = m_names.Intern(reader.name());
    element.line = line;
    element.column = column;
    element.owner = &record;
    if (!reader.attributes().isEmpty())
        element.attributes = CopyAttributes(reader);
    element.parent = m_open.empty() ? -1 : m_open.back();
    const int index = static_cast<int>(m_elements.size());
    if (element.parent >= 0) {
        std::vector<int>& siblings = m_elements[static_cast<size_t>(element.parent)].children;
        element.position = static_cast<int>(siblings.size());
        siblings.push_back(index);
    }
    m_elements.push_back(std::move(element));
    m_open.push_back(index);
}

void ReadTrace::ElementInValue(const QXmlStreamReader& reader) {
    if (m_open.empty())
        return;
    const IKMObject* owner = m_elements[static_cast<size_t>(m_open.back())].owner;
    if (!owner)
        return;
    ChildStarted(*owner, reader, reader.lineNumber(), StartColumnOfTag(reader));
    m_elements.back().kind = Kind::PassedOver;
    m_open.pop_back();
}

void ReadTrace::ChildEnded(const IKMObject&, const QXmlStreamReader&, bool passedOver) {
    Element& element = m_elements[static_cast<size_t>(m_open.back())];
    if (passedOver)
        element.kind = Kind::PassedOver;
    else if (element.record == nullptr)
        element.kind = Kind::Value;
    else if (element.kind == Kind::Record)
        element.incomplete = IncompleteReason(*element.record);
    m_open.pop_back();
}

void ReadTrace::RootRead(const IKMObject& root) {
    if (!m_elements.empty())
        m_elements.front().incomplete = IncompleteReason(root);
}

QString ReadTrace::IncompleteReason(const IKMObject& record) {
    // Asked now, while the record surely lives: list items move later on.
    if (record.HasData())
        return QString();
    try {
        record.Check();
    } catch (const KMException& failure) {
        return failure.GetMessage();
    }
    return QStringLiteral("incomplete");
}

void ReadTrace::ValueRead(const QString& text) {
    if (!m_open.empty())
        m_elements[static_cast<size_t>(m_open.back())].text = text;
}

} // namespace KELMORA
