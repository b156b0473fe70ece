// SPDX-License-Identifier: MIT
#ifndef EXCITERSETTINGS_TOOLS_SETTINGSDOCUMENT_H
#define EXCITERSETTINGS_TOOLS_SETTINGSDOCUMENT_H

#include <IKMObject.h>

#include <QJsonValue>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace tool {

// The tree that `show` prints, read back from its lines: sections and
// "Name: value" lines, list items "[position] <element>" named by position.
struct ShowNode {
    QString name;
    QString value; // null for a section without a value
    int firstLine = 0;
    int endLine = 0; // past the last line of the subtree
    std::vector<ShowNode> children;

    const ShowNode* Child(const QString& segment) const;
    QStringList Segments() const;
};

class ShowTree {
public:
    // The record as `show` prints it.
    explicit ShowTree(const KELMORA::IKMObject& record);
    const ShowNode& Root() const { return m_root; }
    const ShowNode* Find(const QStringList& segments) const;
    // The lines of the node's subtree, indented from column 0.
    QString Text(const ShowNode& node) const;

private:
    QStringList m_lines;
    ShowNode m_root;
};

// One element of a settings document: a record, a value or a list wrapper,
// whose children are items named by their position.
struct SettingsNode {
    QString name;
    QVector<std::pair<QString, QString>> attributes;
    QString text;
    std::vector<std::unique_ptr<SettingsNode>> children;
    SettingsNode* parent = nullptr;
    bool wrapper = false;
    // Made from JSON: a value given (text may be empty), or null (to remove).
    bool hasText = false;
    bool null = false;

    bool IsValue() const { return children.empty() && !wrapper; }
    // The attribute's value, or a null text.
    QString Attribute(const QString& attributeName) const;
    void SetAttribute(const QString& attributeName, const QString& value);
    void RemoveAttribute(const QString& attributeName);
    // The child a path segment names: by element name, or by position in a
    // wrapper. Null when there is none.
    SettingsNode* Child(const QString& segment) const;
    // The segments of the children, in document order.
    QStringList Segments() const;
    SettingsNode& Append(std::unique_ptr<SettingsNode> child);
    std::unique_ptr<SettingsNode> Copy() const;
};

// A record's settings as the record itself writes them (GetXmlString()), as
// a tree that commands can read and change and write back as a document.
// Which elements are records rather than wrappers is learned by reading the
// document into a fresh record of the same kind.
class SettingsDocument {
public:
    // A record that writes nothing while incomplete is taken as the text it
    // was read from, `sourceText()`, when that is given; otherwise throws
    // KMException.
    explicit SettingsDocument(const KELMORA::IKMObject& record,
                              const std::function<QString()>& sourceText = nullptr);
    // A document given as text; `recordNames` as learned from another.
    SettingsDocument(const QString& xml, const QSet<QString>& recordNames);

    SettingsNode& Root() { return *m_root; }
    const SettingsNode& Root() const { return *m_root; }
    const QSet<QString>& RecordNames() const { return m_recordNames; }
    // The node at the path, or null; `reached` is set to the deepest node
    // found on the way and `missing` to the first segment not found.
    SettingsNode* Find(const QStringList& segments, SettingsNode** reached = nullptr,
                       QString* missing = nullptr) const;
    QString Xml() const;

    // The document as JSON: records as objects keyed by element name,
    // attributes as "@name" keys, a value with attributes as an object with
    // "Value", lists as arrays of one-key objects {item element: item},
    // numbers as numbers, "true"/"false" as booleans. Wrapped in {root element: ...}.
    // Values that `show` prints as unset are null, also those that are not
    // written at all; a list of records that is empty (not written) is [].
    QJsonValue ToJson(const ShowTree& shown) const;
    // A document of the JSON form above; throws KMException when it is not.
    static std::unique_ptr<SettingsNode> FromJson(const QJsonValue& json);
    // Applies a tree made by FromJson to this document: attributes and values
    // it gives replace, nulls remove, lists replace the whole list, the rest
    // stays.
    // Returns the values it added as elements that the document lacked
    // (also those in the records and lists it added or replaced).
    std::vector<SettingsNode*> Apply(const SettingsNode& changes);

private:
    void MarkWrappers(SettingsNode& node) const;

    QSet<QString> m_recordNames;
    std::unique_ptr<SettingsNode> m_root;
};

// A number text in the form `show` prints numbers; other texts as they are.
QString DisplayValue(const QString& text);
// Whether the texts give the same value: numbers by value ("1e6" equals
// "1000000.00"), other texts exactly.
bool SameValue(const QString& a, const QString& b);

} // namespace tool

#endif
