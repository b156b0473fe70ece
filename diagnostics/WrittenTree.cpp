// SPDX-License-Identifier: MIT
#include "WrittenTree.h"

#include "SettingsPath.h"

#include <QXmlStreamReader>

#include <algorithm>

namespace KELMORA {

WrittenTree::WrittenTree(const QString& document, const QSet<QString>& recordNames)
    : m_recordNames(recordNames) {
    // Fed in UTF-8 pieces: given the whole text, the reader would first
    // convert all of it into one more copy.
    constexpr int kPiece = 1 << 16;
    QXmlStreamReader reader;
    int fed = 0;
    int current = -1;
    for (;;) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        if (token == QXmlStreamReader::Invalid) {
            if (reader.error() != QXmlStreamReader::PrematureEndOfDocumentError ||
                fed >= document.size())
                break;
            int length = static_cast<int>(std::min<qsizetype>(kPiece, document.size() - fed));
            if (fed + length < document.size() && document.at(fed + length - 1).isHighSurrogate())
                --length; // a pair is not split
            reader.addData(QStringView(document).mid(fed, length).toUtf8());
            fed += length;
            continue;
        }
        if (token == QXmlStreamReader::EndDocument)
            break;
        switch (token) {
        case QXmlStreamReader::StartElement: {
            Element element;
            element.name = m_names.Intern(reader.name());
            element.parent = current;
            const QXmlStreamAttributes attributes = reader.attributes();
            for (const QXmlStreamAttribute& attribute : attributes)
                element.attributes.append(
                    {attribute.qualifiedName().toString(), attribute.value().toString()});
            const int index = static_cast<int>(m_elements.size());
            if (current >= 0) {
                std::vector<int>& siblings = m_elements[static_cast<size_t>(current)].children;
                element.position = static_cast<int>(siblings.size());
                siblings.push_back(index);
            }
            m_elements.push_back(std::move(element));
            current = index;
            break;
        }
        case QXmlStreamReader::Characters: {
            // The text of a value; the indentation between elements is
            // dropped when the element turns out to have children.
            Element& element = m_elements[static_cast<size_t>(current)];
            if (element.children.empty()) {
                const QStringView text = reader.text();
                if (element.text.isEmpty())
                    element.text = text.toString();
                else
                    element.text += text;
            }
            break;
        }
        case QXmlStreamReader::EndElement: {
            Element& element = m_elements[static_cast<size_t>(current)];
            if (!element.children.empty())
                element.text = QString();
            current = element.parent;
            break;
        }
        default:
            break;
        }
    }
}

bool WrittenTree::IsWrapper(int index) const {
    const Element& element = At(index);
    return element.parent >= 0 && !element.children.empty() &&
           !m_recordNames.contains(element.name);
}

QString WrittenTree::PathOf(int index) const {
    QStringList segments;
    for (int at = index; At(at).parent >= 0; at = At(at).parent) {
        const int parent = At(at).parent;
        if (IsWrapper(parent)) {
            segments.prepend(SettingsPath::ItemSegment(At(at).position));
        } else {
            segments.prepend(At(at).name);
        }
    }
    return SettingsPath::Print(segments);
}

QString WrittenTree::Attribute(const Element& element, const QString& name) {
    for (const auto& attribute : element.attributes) {
        if (attribute.first == name)
            return attribute.second;
    }
    return QString();
}

} // namespace KELMORA
