#include "WrittenTree.h"

#include <QXmlStreamReader>

namespace KELMORA {

WrittenTree::WrittenTree(const QString& document, const QSet<QString>& recordNames)
    : m_recordNames(recordNames) {
    QXmlStreamReader reader(document);
    int current = -1;
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement: {
            Element element;
            element.name = Intern(reader.name());
            element.parent = current;
            for (const QXmlStreamAttribute& attribute : reader.attributes())
                element.attributes.append(
                    {attribute.qualifiedName().toString(), attribute.value().toString()});
            const int index = static_cast<int>(m_elements.size());
            if (current >= 0)
                m_elements[static_cast<size_t>(current)].children.push_back(index);
            m_elements.push_back(std::move(element));
            current = index;
            break;
        }
        case QXmlStreamReader::Characters:
            if (!reader.isWhitespace() || m_elements[static_cast<size_t>(current)].children.empty())
                m_elements[static_cast<size_t>(current)].text += reader.text();
            break;
        case QXmlStreamReader::EndElement: {
            Element& element = m_elements[static_cast<size_t>(current)];
            if (!element.children.empty())
                element.text.clear(); // indentation
            current = element.parent;
            break;
        }
        default:
            break;
        }
    }
}

QString WrittenTree::Intern(const QStringRef& name) {
    const QStringView view(name);
    const auto found = m_names.constFind(view);
    if (found != m_names.constEnd())
        return found.value();
    const QString text = name.toString();
    m_names.insert(QStringView(text), text);
    return text;
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
            const std::vector<int>& siblings = At(parent).children;
            const auto position = std::find(siblings.begin(), siblings.end(), at) - siblings.begin();
            segments.prepend(QString::number(position));
        } else {
            segments.prepend(At(at).name);
        }
    }
    return segments.join(QLatin1Char('/'));
}

QString WrittenTree::Attribute(const Element& element, const QString& name) {
    for (const auto& attribute : element.attributes) {
        if (attribute.first == name)
            return attribute.second;
    }
    return QString();
}

} // namespace KELMORA
