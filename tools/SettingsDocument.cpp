// SPDX-License-Identifier: MIT
#include "SettingsDocument.h"

#include "Commands.h"
#include "TreePrinter.h"

#include <KMException.h>
#include <ReadObserver.h>
#include <RecordKinds.h>
#include <SettingsPath.h>

#include <QHash>
#include <QJsonArray>
#include <QJsonObject>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <algorithm>
#include <cmath>
#include <optional>

namespace tool {

namespace {

using KELMORA::KMException;
using KELMORA::SettingsPath;

const QLatin1Char kAttributeMark('@');
const QString kValueKey = QStringLiteral("Value");

// Notes the element names of the records that a read enters. A wrapper that
// a record reads as its own enters the same record again and is left out.
class RecordNameCollector : public KELMORA::ReadObserver {
public:
    void RecordEntered(const KELMORA::IKMObject& record, const QXmlStreamReader& reader) override {
        if (!m_entered.contains(&record)) {
            m_entered.insert(&record);
            names.insert(reader.name().toString());
        }
    }
    void ChildStarted(const KELMORA::IKMObject& /*record*/, const QXmlStreamReader& /*reader*/,
                      qint64 /*line*/, qint64 /*column*/) override {}
    void ChildEnded(const KELMORA::IKMObject& /*record*/, const QXmlStreamReader& /*reader*/,
                    bool /*passedOver*/) override {}
    void ValueRead(const QString& /*text*/) override {}

    QSet<QString> names;

private:
    QSet<const KELMORA::IKMObject*> m_entered;
};

std::optional<double> Number(const QString& text) {
    bool ok = false;
    const double value = text.toDouble(&ok);
    if (!ok || !std::isfinite(value))
        return std::nullopt;
    return value;
}

std::unique_ptr<SettingsNode> Parse(const QString& xml) {
    QXmlStreamReader reader(xml);
    std::unique_ptr<SettingsNode> root;
    SettingsNode* current = nullptr;
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement: {
            auto node = std::make_unique<SettingsNode>();
            node->name = reader.name().toString();
            for (const QXmlStreamAttribute& attribute : reader.attributes())
                node->attributes.append(
                    {attribute.qualifiedName().toString(), attribute.value().toString()});
            if (current) {
                current = &current->Append(std::move(node));
            } else {
                root = std::move(node);
                current = root.get();
            }
            break;
        }
        case QXmlStreamReader::Characters:
            if (current && current->children.empty())
                current->text += reader.text();
            break;
        case QXmlStreamReader::EndElement:
            if (!current->children.empty())
                current->text.clear();
            current = current->parent;
            break;
        default:
            break;
        }
    }
    if (reader.hasError())
        throw KMException(
            QStringLiteral("The written document cannot be read: %1").arg(reader.errorString()));
    if (!root)
        throw KMException(QStringLiteral("The record writes no document"));
    return root;
}

void Write(QXmlStreamWriter& writer, const SettingsNode& node) {
    writer.writeStartElement(node.name);
    for (const auto& attribute : node.attributes)
        writer.writeAttribute(attribute.first, attribute.second);
    if (node.children.empty())
        writer.writeCharacters(node.text);
    for (const auto& child : node.children)
        Write(writer, *child);
    writer.writeEndElement();
}

QJsonValue Scalar(const QString& text) {
    if (text == QLatin1String("true") || text == QLatin1String("false"))
        return text == QLatin1String("true");
    if (const auto number = Number(text))
        return *number;
    return text;
}

// An attribute as JSON: a number where it is one and reads back as the same
// text (an item's Index, a range's Minimum); the version and an item's name
// are labels and stay texts.
QJsonValue AttributeToJson(const std::pair<QString, QString>& attribute) {
    if (attribute.first != QLatin1String("Version") && attribute.first != QLatin1String("Name")) {
        if (const auto number = Number(attribute.second);
            number && TreePrinter::NumberText(*number) == attribute.second)
            return *number;
    }
    return attribute.second;
}

// Whether records of the kind read `name` as an attribute of their own
// element: a fresh one given the attribute writes it back. Asked of the
// records once per kind and name, for values that are not written while
// unset (an item's Name).
bool ReadsAsAttribute(const QString& recordName, const QString& name) {
    static QHash<QString, bool> known;
    const QString key = recordName + QLatin1Char('/') + name;
    const auto found = known.constFind(key);
    if (found != known.constEnd())
        return *found;
    bool attribute = false;
    if (const auto record = KELMORA::RecordKinds::Create(recordName)) {
        const QString probe = QStringLiteral(" %1=\"probe\"").arg(name);
        QString xml = record->GetXmlString();
        const int tag = xml.indexOf(QLatin1Char('<') + recordName);
        if (tag >= 0) {
            xml.insert(tag + 1 + recordName.size(), probe);
            record->SetValidate(false);
            attribute = !Failure([&] { record->SetXmlString(xml); }) &&
                        record->GetXmlString().contains(probe);
        }
    }
    known.insert(key, attribute);
    return attribute;
}

bool ShownUnset(const ShowNode* show) {
    return show && show->value == TreePrinter::UnsetText();
}

// A value that its record holds as one Base64 text of numbers (the raster
// detector's frequencies) is an array of numbers in JSON, as show prints it.
QJsonValue ValueToJson(const QString& parent, const SettingsNode& node) {
    const auto numbers = KELMORA::RecordKinds::NumberList(parent, node.name, node.text);
    if (!numbers)
        return Scalar(node.text);
    QJsonArray array;
    for (const double number : *numbers)
        array.append(number);
    return array;
}

QJsonValue NodeToJson(const QString& parent, const SettingsNode& node, QStringList& path,
                      const ShowTree& shown) {
    if (node.wrapper) {
        QJsonArray items;
        for (const auto& child : node.children) {
            path.append(SettingsPath::ItemSegment(static_cast<int>(items.size())));
            items.append(QJsonObject{{child->name, NodeToJson(node.name, *child, path, shown)}});
            path.removeLast();
        }
        return items;
    }
    const ShowNode* show = shown.Find(path);
    if (node.children.empty()) {
        // A value: null where show prints it as unset.
        const ShowNode* value = show && show->value.isNull() ? show->Child(kValueKey) : show;
        QJsonValue scalar = ShownUnset(value) ? QJsonValue() : ValueToJson(parent, node);
        if (node.attributes.isEmpty() && (!show || !show->value.isNull()))
            return scalar;
        QJsonObject object;
        for (const auto& attribute : node.attributes)
            object.insert(kAttributeMark + attribute.first, AttributeToJson(attribute));
        object.insert(kValueKey, scalar);
        return object;
    }
    QJsonObject object;
    for (const auto& attribute : node.attributes)
        object.insert(kAttributeMark + attribute.first, AttributeToJson(attribute));
    for (const auto& child : node.children) {
        path.append(child->name);
        object.insert(child->name, NodeToJson(node.name, *child, path, shown));
        path.removeLast();
    }
    // What the record does not write because it is unset or empty.
    if (show) {
        for (const ShowNode& shownChild : show->children) {
            if (node.Child(shownChild.name) || !node.Attribute(shownChild.name).isNull())
                continue;
            if (!KELMORA::RecordKinds::ItemName(node.name, shownChild.name).isEmpty())
                object.insert(shownChild.name, QJsonArray()); // an empty list
            else if (ShownUnset(&shownChild) && ReadsAsAttribute(node.name, shownChild.name))
                object.insert(kAttributeMark + shownChild.name, QJsonValue());
            else if (ShownUnset(&shownChild) || shownChild.value.isNull())
                object.insert(shownChild.name, QJsonValue()); // also a record left out
        }
    }
    return object;
}

// An array of numbers for such a value: the text the record writes for it.
std::optional<QString> NumberListFromJson(const QString& parent, const QString& name,
                                          const QJsonArray& array) {
    QVector<double> numbers;
    for (const auto& item : array) {
        if (!item.isDouble())
            return std::nullopt;
        numbers.append(item.toDouble());
    }
    return KELMORA::RecordKinds::NumberListText(parent, name, numbers);
}

std::unique_ptr<SettingsNode> NodeFromJson(const QString& parent, const QString& name,
                                           const QJsonValue& json) {
    auto node = std::make_unique<SettingsNode>();
    node->name = name;
    switch (json.type()) {
    case QJsonValue::Null:
        node->null = true;
        break;
    case QJsonValue::Bool:
        node->hasText = true;
        node->text = json.toBool() ? QStringLiteral("true") : QStringLiteral("false");
        break;
    case QJsonValue::Double:
        node->hasText = true;
        node->text = TreePrinter::NumberText(json.toDouble());
        break;
    case QJsonValue::String:
        node->hasText = true;
        node->text = json.toString();
        break;
    case QJsonValue::Array: {
        if (const auto text = NumberListFromJson(parent, name, json.toArray())) {
            node->hasText = true;
            node->text = *text;
            break;
        }
        node->wrapper = true;
        for (const auto& item : json.toArray()) {
            const QJsonObject object = item.toObject();
            if (!item.isObject() || object.size() != 1)
                throw KMException(QStringLiteral("JSON: the items of '%1' must be objects of one "
                                                 "key, the item's element name")
                                      .arg(name));
            node->Append(NodeFromJson(name, object.begin().key(), object.begin().value()));
        }
        break;
    }
    case QJsonValue::Object: {
        const QJsonObject object = json.toObject();
        for (auto at = object.begin(); at != object.end(); ++at) {
            if (at.key().startsWith(kAttributeMark)) {
                // A null attribute text: the attribute is removed.
                const QJsonValue value = at.value();
                QString text;
                if (value.isDouble())
                    text = TreePrinter::NumberText(value.toDouble());
                else if (!value.isNull())
                    text = value.toString().isNull() ? QStringLiteral("") : value.toString();
                node->attributes.append({at.key().mid(1), text});
            }
        }
        QStringList others;
        for (auto at = object.begin(); at != object.end(); ++at) {
            if (!at.key().startsWith(kAttributeMark))
                others.append(at.key());
        }
        if (others == QStringList{kValueKey} && !object.value(kValueKey).isObject() &&
            !object.value(kValueKey).isArray()) {
            // A value with attributes; null leaves it as it is.
            const auto value = NodeFromJson(parent, name, object.value(kValueKey));
            node->hasText = value->hasText;
            node->text = value->text;
            break;
        }
        for (const QString& key : others)
            node->Append(NodeFromJson(name, key, object.value(key)));
        break;
    }
    case QJsonValue::Undefined:
        break;
    }
    return node;
}

void ApplyTo(SettingsNode& target, const SettingsNode& change, std::vector<SettingsNode*>& added) {
    for (const auto& attribute : change.attributes) {
        if (attribute.second.isNull())
            target.RemoveAttribute(attribute.first);
        else
            target.SetAttribute(attribute.first, attribute.second);
    }
    if (change.hasText) {
        target.children.clear();
        target.text = change.text;
        return;
    }
    if (change.wrapper) {
        target.children.clear();
        target.wrapper = true;
        for (const auto& item : change.children)
            added.push_back(&target.Append(item->Copy()));
        return;
    }
    for (const auto& child : change.children) {
        SettingsNode* existing = target.Child(child->name);
        if (child->null) {
            if (existing) {
                auto& siblings = target.children;
                siblings.erase(std::find_if(siblings.begin(), siblings.end(),
                                            [&](const auto& c) { return c.get() == existing; }));
            }
        } else if (existing) {
            ApplyTo(*existing, *child, added);
        } else {
            added.push_back(&target.Append(child->Copy()));
        }
    }
}

// Drops what a JSON null stands for from a tree about to be written.
void DropNulls(SettingsNode& node) {
    node.attributes.erase(
        std::remove_if(node.attributes.begin(), node.attributes.end(),
                       [](const auto& attribute) { return attribute.second.isNull(); }),
        node.attributes.end());
    auto& children = node.children;
    children.erase(std::remove_if(children.begin(), children.end(),
                                  [](const auto& child) { return child->null; }),
                   children.end());
    for (auto& child : children)
        DropNulls(*child);
}

// The show line "  Name: value" split into depth, name and value.
struct ShowLine {
    int depth = 0;
    QString name;
    QString value;
};

ShowLine SplitShowLine(const QString& line) {
    ShowLine split;
    int spaces = 0;
    while (spaces < line.size() && line.at(spaces) == QLatin1Char(' '))
        ++spaces;
    split.depth = spaces / 2;
    const QString content = line.mid(spaces);
    const int colon = content.indexOf(QLatin1String(": "));
    split.name = colon < 0 ? content : content.left(colon);
    if (colon >= 0)
        split.value = content.mid(colon + 2);
    // A list item "[2] WDE_Exciter" is named by its position.
    if (split.name.startsWith(QLatin1Char('[')) && split.name.contains(QLatin1String("] ")))
        split.name = split.name.mid(1, split.name.indexOf(QLatin1Char(']')) - 1);
    return split;
}

int BuildShow(const QStringList& lines, int at, ShowNode& node) {
    const ShowLine own = SplitShowLine(lines.at(at));
    node.name = own.name;
    node.value = own.value;
    node.firstLine = at;
    int next = at + 1;
    while (next < lines.size() && SplitShowLine(lines.at(next)).depth > own.depth) {
        node.children.emplace_back();
        next = BuildShow(lines, next, node.children.back());
    }
    node.endLine = next;
    return next;
}

} // namespace

const ShowNode* ShowNode::Child(const QString& segment) const {
    for (const ShowNode& child : children) {
        if (child.name == segment)
            return &child;
    }
    return nullptr;
}

QStringList ShowNode::Segments() const {
    QStringList segments;
    for (const ShowNode& child : children)
        segments.append(child.name);
    return segments;
}

ShowTree::ShowTree(const KELMORA::IKMObject& record) {
    QString text;
    {
        QTextStream stream(&text);
        TreePrinter printer(stream);
        printer.Record(record);
    }
    m_lines = text.split(QLatin1Char('\n'));
    if (!m_lines.isEmpty() && m_lines.last().isEmpty())
        m_lines.removeLast();
    if (!m_lines.isEmpty())
        BuildShow(m_lines, 0, m_root);
}

const ShowNode* ShowTree::Find(const QStringList& segments) const {
    const ShowNode* node = &m_root;
    for (const QString& segment : segments) {
        node = node->Child(segment);
        if (!node)
            return nullptr;
    }
    return node;
}

QString ShowTree::Text(const ShowNode& node) const {
    QString text;
    const int indent = SplitShowLine(m_lines.at(node.firstLine)).depth * 2;
    for (int line = node.firstLine; line < node.endLine; ++line)
        text += m_lines.at(line).mid(indent) + QLatin1Char('\n');
    return text;
}

QString SettingsNode::Attribute(const QString& attributeName) const {
    for (const auto& attribute : attributes) {
        if (attribute.first == attributeName)
            return attribute.second;
    }
    return QString();
}

void SettingsNode::RemoveAttribute(const QString& attributeName) {
    attributes.erase(
        std::remove_if(attributes.begin(), attributes.end(),
                       [&](const auto& attribute) { return attribute.first == attributeName; }),
        attributes.end());
}

void SettingsNode::SetAttribute(const QString& attributeName, const QString& value) {
    for (auto& attribute : attributes) {
        if (attribute.first == attributeName) {
            attribute.second = value;
            return;
        }
    }
    attributes.append({attributeName, value});
}

SettingsNode* SettingsNode::Child(const QString& segment) const {
    if (wrapper) {
        const int position = SettingsPath::ItemPosition(segment);
        return position >= 0 && position < static_cast<int>(children.size())
                   ? children[static_cast<size_t>(position)].get()
                   : nullptr;
    }
    for (const auto& child : children) {
        if (child->name == segment)
            return child.get();
    }
    return nullptr;
}

QStringList SettingsNode::Segments() const {
    QStringList segments;
    for (size_t position = 0; position < children.size(); ++position)
        segments.append(wrapper ? SettingsPath::ItemSegment(static_cast<int>(position))
                                : children[position]->name);
    return segments;
}

SettingsNode& SettingsNode::Append(std::unique_ptr<SettingsNode> child) {
    child->parent = this;
    children.push_back(std::move(child));
    return *children.back();
}

std::unique_ptr<SettingsNode> SettingsNode::Copy() const {
    auto copy = std::make_unique<SettingsNode>();
    copy->name = name;
    copy->attributes = attributes;
    copy->text = text;
    copy->wrapper = wrapper;
    copy->hasText = hasText;
    copy->null = null;
    for (const auto& child : children)
        copy->Append(child->Copy());
    return copy;
}

SettingsDocument::SettingsDocument(const KELMORA::IKMObject& record,
                                   const std::function<QString()>& sourceText) {
    QString xml = record.GetXmlString();
    // An incomplete record (one value missing) still holds everything else
    // that the file gave; its file is the tree to read and change.
    if (sourceText && KELMORA::RecordKinds::RootNameOfXmlString(xml).isEmpty())
        xml = sourceText();
    if (KELMORA::RecordKinds::RootNameOfXmlString(xml).isEmpty()) {
        QString reason;
        try {
            record.Check();
        } catch (const KELMORA::KelmoraException& failure) {
            reason = QStringLiteral(" (%1)").arg(failure.GetMessage());
        }
        throw KMException(QStringLiteral("%1 writes no settings while incomplete%2")
                              .arg(record.GetObjectName(), reason));
    }
    std::unique_ptr<KELMORA::IKMObject> fresh =
        KELMORA::RecordKinds::Create(record.GetObjectName());
    if (fresh) {
        RecordNameCollector collector;
        const KELMORA::ReadObserver::Scope watching(collector);
        fresh->SetValidate(false);
        fresh->SetXmlString(xml);
        m_recordNames = collector.names;
    }
    m_recordNames.insert(record.GetObjectName());
    m_root = Parse(xml);
    MarkWrappers(*m_root);
}

SettingsDocument::SettingsDocument(const QString& xml, const QSet<QString>& recordNames)
    : m_recordNames(recordNames), m_root(Parse(xml)) {
    MarkWrappers(*m_root);
}

void SettingsDocument::MarkWrappers(SettingsNode& node) const {
    node.wrapper = node.parent && !node.children.empty() && !m_recordNames.contains(node.name);
    for (auto& child : node.children)
        MarkWrappers(*child);
}

SettingsNode* SettingsDocument::Find(const QStringList& segments, SettingsNode** reached,
                                     QString* missing) const {
    SettingsNode* node = m_root.get();
    for (const QString& segment : segments) {
        if (reached)
            *reached = node;
        node = node->Child(segment);
        if (!node) {
            if (missing)
                *missing = segment;
            return nullptr;
        }
    }
    if (reached)
        *reached = node;
    return node;
}

QString SettingsDocument::Xml() const {
    QString xml;
    QXmlStreamWriter writer(&xml);
    writer.setAutoFormatting(true);
    writer.setAutoFormattingIndent(4);
    writer.writeStartDocument();
    Write(writer, *m_root);
    writer.writeEndDocument();
    return xml;
}

QJsonValue SettingsDocument::ToJson(const ShowTree& shown) const {
    QStringList path;
    return QJsonObject{{m_root->name, NodeToJson(QString(), *m_root, path, shown)}};
}

std::unique_ptr<SettingsNode> SettingsDocument::FromJson(const QJsonValue& json) {
    const QJsonObject object = json.toObject();
    if (!json.isObject() || object.size() != 1 || !object.begin().value().isObject())
        throw KMException(QStringLiteral(
            "JSON: expected one object keyed by the root element, as show --json writes it"));
    return NodeFromJson(QString(), object.begin().key(), object.begin().value());
}

std::vector<SettingsNode*> SettingsDocument::Apply(const SettingsNode& changes) {
    if (changes.name != m_root->name)
        throw KMException(QStringLiteral("JSON: the root element is '%1', the file holds '%2'")
                              .arg(changes.name, m_root->name));
    std::vector<SettingsNode*> added;
    ApplyTo(*m_root, changes, added);
    DropNulls(*m_root);
    // The values in the added subtrees, the nulls gone.
    std::vector<SettingsNode*> values;
    const std::function<void(SettingsNode&)> collect = [&](SettingsNode& node) {
        if (node.IsValue() && node.parent && !node.parent->wrapper)
            values.push_back(&node);
        for (auto& child : node.children)
            collect(*child);
    };
    for (SettingsNode* node : added)
        collect(*node);
    return values;
}

QString DisplayValue(const QString& text) {
    if (const auto number = Number(text))
        return TreePrinter::NumberText(*number);
    return text;
}

bool SameValue(const QString& a, const QString& b) {
    const auto first = Number(a);
    const auto second = Number(b);
    if (first && second)
        return *first == *second;
    return a == b;
}

} // namespace tool
