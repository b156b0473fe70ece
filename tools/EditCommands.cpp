// SPDX-License-Identifier: MIT
// get, set, diff and show --json: commands on the settings as the records
// write them (see SettingsDocument).
#include "Commands.h"
#include "RecordRegistry.h"
#include "SettingsDocument.h"
#include "TreePrinter.h"

#include <KMException.h>
#include <ReadObserver.h>
#include <RecordKinds.h>
#include <SettingsLint.h>
#include <SettingsPath.h>

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <optional>

namespace tool {

namespace {

using KELMORA::KMException;
using KELMORA::SettingsPath;

const QString kAdd = QStringLiteral("+");
const QString kRemove = QStringLiteral("-");
const QString kNone = QStringLiteral("(none)");

// A path that names nothing: wrong usage, with the names there are.
class PathError : public KMException {
public:
    using KMException::KMException;
};

QString LevelName(const QStringList& segments, int depth, const QString& rootName) {
    return depth == 0 ? rootName : SettingsPath::Print(segments.mid(0, depth));
}

[[noreturn]] void ThrowNoSuchName(const QStringList& segments, int depth, const QString& rootName,
                                  QStringList names) {
    names.removeDuplicates();
    throw PathError(
        QStringLiteral("No '%1' in '%2'; names there: %3")
            .arg(segments.at(depth), LevelName(segments, depth, rootName),
                 names.isEmpty() ? QStringLiteral("nothing") : names.join(QStringLiteral(", "))));
}

// The names at a level: the written children and attributes, and what show
// prints there (values that are unset are not written).
QStringList NamesAt(const SettingsNode* written, const ShowNode* shown) {
    QStringList names;
    if (shown)
        names = shown->Segments();
    if (written) {
        names += written->Segments();
        for (const auto& attribute : written->attributes)
            names.append(attribute.first);
    }
    names.removeDuplicates();
    return names;
}

// The show node for a path that the show tree may lack.
const ShowNode* ShownAt(const ShowTree& shown, const QStringList& segments) {
    return shown.Find(segments);
}

// A written value as show prints it: "unset" where show says so.
QString ValueText(const SettingsNode& node, const QStringList& path, const ShowTree& shown) {
    const ShowNode* show = ShownAt(shown, path);
    if (show && show->value.isNull())
        show = show->Child(QStringLiteral("Value"));
    if ((show && show->value == TreePrinter::UnsetText()) || node.text.isEmpty())
        return TreePrinter::UnsetText();
    return DisplayValue(node.text);
}

// Loads a record, reporting on err; status 0 or 2.
int Load(const QString& file, std::unique_ptr<KELMORA::IKMObject>& record, QTextStream& err) {
    if (const auto failure = Failure([&] { record = LoadRecord(file); })) {
        Report(err, file, *failure);
        return ExitUnreadable;
    }
    return ExitSuccess;
}

// The text a file was read from, for a record that writes nothing.
std::function<QString()> SourceOf(const QString& file) {
    return [file] { return DocumentText(file); };
}

// A value held as one text of numbers (a raster detector's frequencies) and
// the position of one of its numbers, as diff names it ("Frequency/1").
struct NumberInList {
    SettingsNode* value = nullptr;
    QVector<double> numbers;
    int position = -1;
};
NumberInList FindNumberInList(const SettingsDocument& document, const QStringList& segments) {
    NumberInList found;
    if (segments.size() < 2)
        return found;
    SettingsNode* node = document.Find(segments.mid(0, segments.size() - 1));
    if (!node || !node->IsValue() || !node->parent)
        return found;
    const auto numbers =
        KELMORA::RecordKinds::NumberList(node->parent->name, node->name, node->text);
    const int position = SettingsPath::ItemPosition(segments.last());
    if (!numbers || position < 0 || position >= numbers->size())
        return found;
    return {node, *numbers, position};
}

std::optional<double> NumberAt(const SettingsDocument& document, const QStringList& segments) {
    const NumberInList found = FindNumberInList(document, segments);
    if (!found.value)
        return std::nullopt;
    return found.numbers.at(found.position);
}

QString GetOne(const KELMORA::IKMObject& record, const QString& file, const ShowTree& shown,
               const QString& path) {
    const QStringList segments = SettingsPath::Parse(path);
    if (const ShowNode* node = shown.Find(segments))
        return node->children.empty() ? node->value + QLatin1Char('\n') : shown.Text(*node);
    const SettingsDocument document(record, SourceOf(file));
    // What show prints on one line, such as a list of numbers, the written
    // tree names item by item.
    if (const SettingsNode* node = document.Find(segments); node && node->IsValue())
        return ValueText(*node, segments, shown) + QLatin1Char('\n');
    if (const auto number = NumberAt(document, segments))
        return TreePrinter::NumberText(*number) + QLatin1Char('\n');
    const ShowNode* level = &shown.Root();
    int depth = 0;
    while (depth < segments.size() && level->Child(segments.at(depth)))
        level = level->Child(segments.at(depth++));
    // What is written at that level; nothing for a list that is empty.
    const SettingsNode* written = depth > 0 ? document.Find(segments.mid(0, depth)) : nullptr;
    ThrowNoSuchName(segments, depth, record.GetObjectName(), NamesAt(written, level));
}

// The element of the items of a record's list, of records or of plain
// values; an empty text when `listName` is no list.
QString ListItemName(const SettingsNode& record, const QString& listName) {
    const QString records = KELMORA::RecordKinds::ItemName(record.name, listName);
    return records.isEmpty() ? KELMORA::RecordKinds::ValueItemName(record.name, listName) : records;
}

// The item element that a list gets added: a fresh record of the items'
// kind as it writes itself, else an empty element like the first item.
std::unique_ptr<SettingsNode> NewItem(const SettingsNode& list, const SettingsDocument& document) {
    const SettingsNode* model = list.children.empty() ? nullptr : list.children.front().get();
    const QString itemName = model ? model->name : ListItemName(*list.parent, list.name);
    std::unique_ptr<SettingsNode> item;
    if (!model || !model->IsValue()) {
        if (const auto fresh = KELMORA::RecordKinds::Create(itemName)) {
            const QString xml = fresh->GetXmlString();
            if (!xml.isEmpty())
                item = SettingsDocument(xml, document.RecordNames()).Root().Copy();
        }
    }
    if (!item) {
        item = std::make_unique<SettingsNode>();
        item->name = itemName;
        for (const auto& attribute : model ? model->attributes : item->attributes) {
            if (attribute.first != QLatin1String("Name"))
                item->attributes.append(attribute);
        }
    }
    if (!(model ? *model : *item).Attribute(QStringLiteral("Index")).isNull())
        item->SetAttribute(QStringLiteral("Index"), QString::number(list.children.size()));
    return item;
}

// Counts the elements that the records pass over while reading.
class PassedOverCounter : public KELMORA::ReadObserver {
public:
    void RecordEntered(const KELMORA::IKMObject& /*record*/,
                       const QXmlStreamReader& /*reader*/) override {}
    void ChildStarted(const KELMORA::IKMObject& /*record*/, const QXmlStreamReader& /*reader*/,
                      qint64 /*line*/, qint64 /*column*/) override {}
    void ChildEnded(const KELMORA::IKMObject& /*record*/, const QXmlStreamReader& /*reader*/,
                    bool passedOver) override {
        count += passedOver ? 1 : 0;
    }
    void ValueRead(const QString& /*text*/) override {}

    int count = 0;
};

// How many elements the record passes over when reading the document; 0
// for a document that it rejects (reported when it is saved).
int PassedOver(const SettingsDocument& document) {
    const auto record = KELMORA::RecordKinds::Create(document.Root().name);
    if (!record)
        return 0;
    PassedOverCounter counter;
    const KELMORA::ReadObserver::Scope watching(counter);
    record->SetValidate(false);
    if (Failure([&] { record->SetXmlString(document.Xml()); }))
        return 0;
    return counter.count;
}

void Remove(SettingsNode& node) {
    auto& siblings = node.parent->children;
    siblings.erase(std::find_if(siblings.begin(), siblings.end(),
                                [&](const auto& child) { return child.get() == &node; }));
}

// Values added as elements that the record passes over become attributes
// of their records: a setting that show prints but that is not written may
// be one (an item's Name), and only the record's reading tells. A value
// stays an element unless the attribute is read where the element was not.
void KeepWhereRead(SettingsDocument& document, const std::vector<SettingsNode*>& values) {
    int passedOver = PassedOver(document);
    for (SettingsNode* value : values) {
        if (passedOver == 0)
            return;
        SettingsNode& parent = *value->parent;
        std::unique_ptr<SettingsNode> element = value->Copy();
        Remove(*value);
        parent.SetAttribute(element->name, element->text);
        const int after = PassedOver(document);
        if (after < passedOver) {
            passedOver = after;
        } else {
            parent.RemoveAttribute(element->name);
            parent.Append(std::move(element));
        }
    }
}

// The record's message for a refused document, with the choices of each
// value that lies outside its record's own choice list. The values that
// the file held were read by the record, so only those given can.
void AddChoices(QString& message, const SettingsNode& node) {
    const RecordType* type = RecordRegistry::Instance().Find(node.name);
    std::unique_ptr<KELMORA::IKMObject> record;
    for (const auto& child : node.children) {
        if (!child->IsValue()) {
            AddChoices(message, *child);
            continue;
        }
        if (!type || !type->choices || child->text.isEmpty())
            continue;
        if (!record)
            record = type->create();
        const QStringList choices = type->choices(*record, child->name);
        if (!choices.isEmpty() && !choices.contains(child->text))
            message += QStringLiteral(" (%1 choices: %2)")
                           .arg(child->name, choices.join(QStringLiteral(", ")));
    }
}

// A value that its record keeps as one Base64 text of numbers (a raster
// detector's frequencies) is given as get prints it: numbers separated by
// commas ("433050000, 433925000"). Anything else is taken as it stands.
QString GivenText(const SettingsNode& parent, const QString& name, const QString& value) {
    QVector<double> numbers;
    for (const QString& part : value.split(QLatin1Char(','))) {
        bool ok = false;
        numbers.append(part.trimmed().toDouble(&ok));
        if (!ok)
            return value;
    }
    return KELMORA::RecordKinds::NumberListText(parent.name, name, numbers).value_or(value);
}

// Applies one "PATH=VALUE" to the document.
void Assign(SettingsDocument& document, const ShowTree& shown, const QString& assignment) {
    const int equals = assignment.indexOf(QLatin1Char('='));
    const QString path = equals < 0 ? assignment : assignment.left(equals);
    const QString value = equals < 0 ? QString() : assignment.mid(equals + 1);
    QStringList segments = SettingsPath::Parse(path);
    const QString rootName = document.Root().name;
    if (segments.isEmpty())
        throw PathError(QStringLiteral("'%1' names no setting").arg(assignment));
    const bool adding = segments.last() == kAdd;
    if (equals < 0 && !adding)
        throw PathError(QStringLiteral("'%1' gives no value: PATH=VALUE").arg(assignment));
    if (adding)
        segments.removeLast();

    // One number of a value held as a list of numbers: changed or removed.
    if (NumberInList found = FindNumberInList(document, segments); found.value && !adding) {
        bool ok = false;
        const double number = value.toDouble(&ok);
        if (value == kRemove)
            found.numbers.remove(found.position);
        else if (ok)
            found.numbers[found.position] = number;
        else
            throw PathError(QStringLiteral("'%1' is not a number").arg(value));
        found.value->text = *KELMORA::RecordKinds::NumberListText(found.value->parent->name,
                                                                  found.value->name, found.numbers);
        return;
    }

    // Walk the written tree; records that are not written yet but that show
    // prints are created on the way.
    SettingsNode* node = &document.Root();
    for (int depth = 0; depth < segments.size(); ++depth) {
        const QString& segment = segments.at(depth);
        if (SettingsNode* child = node->Child(segment)) {
            node = child;
            continue;
        }
        const ShowNode* show = ShownAt(shown, segments.mid(0, depth));
        // An item added by this command is shown as a fresh record of its kind.
        std::unique_ptr<ShowTree> freshShown;
        const auto fresh = show || !node->parent || !node->parent->wrapper
                               ? nullptr
                               : KELMORA::RecordKinds::Create(node->name);
        if (fresh) {
            freshShown = std::make_unique<ShowTree>(*fresh);
            show = &freshShown->Root();
        }
        const bool last = depth + 1 == segments.size();
        if (last && !adding && !node->Attribute(segment).isNull()) {
            node->SetAttribute(segment, value);
            return;
        }
        if (last && !adding && node->IsValue() && segment == QLatin1String("Value") &&
            !node->attributes.isEmpty()) {
            node->text = value;
            return;
        }
        const ShowNode* known = show ? show->Child(segment) : nullptr;
        // A list of records that is empty is not written.
        const bool list = !ListItemName(*node, segment).isEmpty();
        if (!known || node->wrapper || (!last && !list && known->children.empty()))
            ThrowNoSuchName(segments, depth, rootName, NamesAt(node, show));
        // A record as a fresh one of its kind writes itself (its version).
        std::unique_ptr<SettingsNode> created;
        if (const auto record = !last && !list ? KELMORA::RecordKinds::Create(segment) : nullptr) {
            const QString xml = record->GetXmlString();
            if (!KELMORA::RecordKinds::RootNameOfXmlString(xml).isEmpty())
                created = SettingsDocument(xml, document.RecordNames()).Root().Copy();
        }
        if (!created) {
            created = std::make_unique<SettingsNode>();
            created->name = segment;
            created->text = list ? QString() : GivenText(*node, segment, value);
            created->wrapper = list;
        }
        node = &node->Append(std::move(created));
        if (last && !adding && !list) {
            KeepWhereRead(document, {node});
            return;
        }
        if (last && !adding && list && value == kRemove)
            return; // an empty list stays unwritten
    }

    if (adding) {
        if (!node->wrapper ||
            (node->children.empty() && ListItemName(*node->parent, node->name).isEmpty()))
            throw PathError(QStringLiteral("'%1' is not a list that holds items; '+' adds items "
                                           "only to such a list")
                                .arg(SettingsPath::Print(segments)));
        std::unique_ptr<SettingsNode> item = NewItem(*node, document);
        if (equals >= 0) {
            if (!item->IsValue())
                throw PathError(QStringLiteral("'%1': the items are records; add one with "
                                               "'%2/+', then set its values by position")
                                    .arg(assignment, path.left(path.size() - 2)));
            item->text = value;
        }
        node->Append(std::move(item));
        return;
    }
    if (node == &document.Root())
        throw PathError(QStringLiteral("'%1' names no setting").arg(assignment));
    if (value == kRemove) {
        Remove(*node);
        return;
    }
    const QString valueItem = KELMORA::RecordKinds::ValueItemName(node->parent->name, node->name);
    if (node->wrapper && !valueItem.isEmpty()) {
        // A list of plain values, given whole as get prints it.
        node->children.clear();
        for (const QString& part : value.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
            auto item = std::make_unique<SettingsNode>();
            item->name = valueItem;
            item->text = part.trimmed();
            node->Append(std::move(item));
        }
        return;
    }
    if (!node->IsValue())
        throw PathError(QStringLiteral("'%1' is a record or a list, not a value").arg(path));
    node->text = GivenText(*node->parent, node->name, value);
}

// Reads the changed document into a fresh record, refuses what the lint
// finds or Check() rejects unless forced, and saves.
int Save(const SetRequest& request, const SettingsDocument& document, QTextStream& err) {
    const QString xml = document.Xml();
    std::unique_ptr<KELMORA::IKMObject> record =
        KELMORA::RecordKinds::Create(KELMORA::RecordKinds::RootNameOfXmlString(xml));
    if (!record)
        throw KMException(QStringLiteral("The changed document names no record"));
    if (const auto failure = Failure([&] { record->SetXmlString(xml); })) {
        QString message = *failure;
        AddChoices(message, document.Root());
        Report(err, request.file, message);
        return ExitFailed;
    }
    bool refused = false;
    if (!request.force) {
        for (const KELMORA::LintFinding& finding : KELMORA::SettingsLint::LintXmlString(xml)) {
            Report(err, request.file,
                   finding.path.isEmpty() ? finding.message
                                          : finding.path + QStringLiteral(": ") + finding.message);
            refused = true;
        }
        if (const auto failure = Failure([&] { record->Check(); })) {
            Report(err, request.file, *failure);
            refused = true;
        }
    }
    // Records that write nothing while incomplete cannot be forced.
    const bool writesNothing =
        KELMORA::RecordKinds::RootNameOfXmlString(record->GetXmlString()).isEmpty();
    if (refused || writesNothing) {
        if (writesNothing && request.force)
            Report(err, request.file, Failure([&] { record->Check(); }).value_or(QString()));
        Report(err, request.file,
               writesNothing ? QStringLiteral("not saved: %1 writes no settings while incomplete")
                                   .arg(record->GetObjectName())
                             : QStringLiteral("not saved (--force saves it anyway)"));
        return ExitFailed;
    }
    if (const auto failure = Failure([&] { SaveRecord(*record, request.target); })) {
        Report(err, request.file, *failure);
        return ExitFailed;
    }
    return ExitSuccess;
}

QJsonValue ReadJson(const QString& file) {
    QFile input(file == StandardStream() ? StandardInputFile() : file);
    if (!input.open(QIODevice::ReadOnly))
        throw KMException(
            QStringLiteral("Cannot open '%1' for reading: %2").arg(file, input.errorString()));
    const QByteArray data = input.readAll();
    QJsonParseError error{};
    const QJsonDocument json = QJsonDocument::fromJson(data, &error);
    if (error.error != QJsonParseError::NoError)
        throw KMException(QStringLiteral("'%1' is not JSON: %2 at offset %3")
                              .arg(file, error.errorString())
                              .arg(error.offset));
    return json.object();
}

class Differences {
public:
    Differences(const ShowTree& firstShown, const ShowTree& secondShown, QTextStream& out)
        : m_shown{&firstShown, &secondShown}, m_out(out) {}

    int count = 0;

    void Compare(const SettingsNode& first, const SettingsNode& second, QStringList& path) {
        QStringList attributes;
        for (const auto& attribute : first.attributes)
            attributes.append(attribute.first);
        for (const auto& attribute : second.attributes)
            attributes.append(attribute.first);
        attributes.removeDuplicates();
        for (const QString& name : attributes) {
            const QString a = first.Attribute(name);
            const QString b = second.Attribute(name);
            if (a.isNull() != b.isNull() || !SameValue(a, b))
                Line(path + QStringList{name},
                     a.isNull() ? TreePrinter::UnsetText() : DisplayValue(a),
                     b.isNull() ? TreePrinter::UnsetText() : DisplayValue(b));
        }
        if (first.IsValue() && second.IsValue()) {
            const auto firstNumbers = Numbers(first);
            const auto secondNumbers = Numbers(second);
            if (firstNumbers && secondNumbers) {
                CompareNumbers(*firstNumbers, *secondNumbers, path);
                return;
            }
            const QString a = ValueText(first, path, *m_shown[0]);
            const QString b = ValueText(second, path, *m_shown[1]);
            if (!SameValue(a, b))
                Line(path, a, b);
            return;
        }
        QStringList segments = first.Segments();
        segments += second.Segments();
        segments.removeDuplicates();
        for (const QString& segment : segments) {
            path.append(segment);
            const SettingsNode* a = first.Child(segment);
            const SettingsNode* b = second.Child(segment);
            if (a && b)
                Compare(*a, *b, path);
            else
                OneSided(a ? *a : *b, path, a != nullptr);
            path.removeLast();
        }
    }

private:
    // A value that its record holds as one text of many numbers, decoded.
    static std::optional<QVector<double>> Numbers(const SettingsNode& node) {
        if (!node.parent)
            return std::nullopt;
        return KELMORA::RecordKinds::NumberList(node.parent->name, node.name, node.text);
    }

    // Lists of numbers, number by number as the items of a list.
    void CompareNumbers(const QVector<double>& first, const QVector<double>& second,
                        QStringList& path) {
        for (int position = 0; position < std::max(first.size(), second.size()); ++position) {
            const QString a =
                position < first.size() ? TreePrinter::NumberText(first.at(position)) : kNone;
            const QString b =
                position < second.size() ? TreePrinter::NumberText(second.at(position)) : kNone;
            if (a != b)
                Line(path + QStringList{SettingsPath::ItemSegment(position)}, a, b);
        }
    }

    // A node that only one document has; `within` one that only one has.
    // A record or item is named, then each of its settings that is set.
    void OneSided(const SettingsNode& node, QStringList& path, bool inFirst, bool within = false) {
        if (node.wrapper) {
            for (int position = 0; position < static_cast<int>(node.children.size()); ++position) {
                path.append(SettingsPath::ItemSegment(position));
                OneSided(*node.children[static_cast<size_t>(position)], path, inFirst, within);
                path.removeLast();
            }
            return;
        }
        if (const auto numbers = Numbers(node)) {
            CompareNumbers(inFirst ? *numbers : QVector<double>(),
                           inFirst ? QVector<double>() : *numbers, path);
            return;
        }
        const QString text =
            node.IsValue() ? ValueText(node, path, *m_shown[inFirst ? 0 : 1]) : node.name;
        // A value that is not written is unset; an item or record is absent,
        // and so is all that it holds.
        const bool item = node.parent && node.parent->wrapper;
        const QString absent =
            node.IsValue() && !item && !within ? TreePrinter::UnsetText() : kNone;
        if (text != absent && !(within && text == TreePrinter::UnsetText()))
            Line(path, inFirst ? text : absent, inFirst ? absent : text);
        if (node.IsValue() && !within)
            return;
        for (const auto& attribute : node.attributes) {
            const QString value = DisplayValue(attribute.second);
            Line(path + QStringList{attribute.first}, inFirst ? value : kNone,
                 inFirst ? kNone : value);
        }
        for (const QString& segment : node.Segments()) {
            path.append(segment);
            OneSided(*node.Child(segment), path, inFirst, true);
            path.removeLast();
        }
    }

    void Line(const QStringList& path, const QString& a, const QString& b) {
        m_out << SettingsPath::Print(path) << ": " << a << " -> " << b << '\n';
        ++count;
    }

    const ShowTree* m_shown[2];
    QTextStream& m_out;
};

} // namespace

int RunGet(const QString& file, const QStringList& paths, QTextStream& out, QTextStream& err) {
    std::unique_ptr<KELMORA::IKMObject> record;
    if (const int status = Load(file, record, err))
        return status;
    const ShowTree shown(*record);
    for (const QString& path : paths) {
        try {
            out << GetOne(*record, file, shown, path);
        } catch (const KMException& failure) {
            out.flush();
            Report(err, file, failure.GetMessage());
            return ExitUsage;
        }
    }
    out.flush();
    return ExitSuccess;
}

int RunShowJson(const QString& file, QTextStream& out, QTextStream& err) {
    std::unique_ptr<KELMORA::IKMObject> record;
    if (const int status = Load(file, record, err))
        return status;
    const ShowTree shown(*record);
    QByteArray json;
    if (const auto failure = Failure([&] {
            json = QJsonDocument(SettingsDocument(*record, SourceOf(file)).ToJson(shown).toObject())
                       .toJson(QJsonDocument::Indented);
        })) {
        Report(err, file, *failure);
        return ExitUnreadable;
    }
    out << QString::fromUtf8(json);
    out.flush();
    return ExitSuccess;
}

int RunSet(const SetRequest& request, QTextStream& /*out*/, QTextStream& err) {
    std::unique_ptr<KELMORA::IKMObject> record;
    if (const int status = Load(request.file, record, err))
        return status;
    auto shown = std::make_unique<ShowTree>(*record);
    std::unique_ptr<SettingsDocument> written;
    if (const auto failure = Failure([&] {
            written = std::make_unique<SettingsDocument>(*record, SourceOf(request.file));
        })) {
        Report(err, request.file, *failure);
        return ExitFailed;
    }
    SettingsDocument& document = *written;
    if (!request.json.isEmpty()) {
        std::unique_ptr<SettingsNode> changes;
        if (const auto failure =
                Failure([&] { changes = SettingsDocument::FromJson(ReadJson(request.json)); })) {
            Report(err, request.json, *failure);
            return ExitUnreadable;
        }
        std::vector<SettingsNode*> added;
        if (const auto failure = Failure([&] { added = document.Apply(*changes); })) {
            Report(err, request.json, *failure);
            return ExitFailed;
        }
        // An unset attribute (an item's Name) comes as a plain key; the
        // record's reading tells.
        KeepWhereRead(document, added);
    }
    for (const QString& assignment : request.assignments) {
        try {
            Assign(document, *shown, assignment);
        } catch (const KMException& failure) {
            Report(err, request.file, failure.GetMessage());
            return ExitUsage;
        }
        // The settings as changed so far name what the next change may
        // reach: a mode that uses WDE brings in WDE.
        const auto changed = KELMORA::RecordKinds::Create(document.Root().name);
        if (changed && &assignment != &request.assignments.last()) {
            changed->SetValidate(false);
            if (!Failure([&] { changed->SetXmlString(document.Xml()); }))
                shown = std::make_unique<ShowTree>(*changed);
        }
    }
    return Save(request, document, err);
}

int RunDiff(const QString& first, const QString& second, QTextStream& out, QTextStream& err) {
    std::unique_ptr<KELMORA::IKMObject> records[2];
    const int a = Load(first, records[0], err);
    const int b = Load(second, records[1], err);
    if (a || b)
        return ExitUnreadable;
    const ShowTree firstShown(*records[0]);
    const ShowTree secondShown(*records[1]);
    std::unique_ptr<SettingsDocument> documents[2];
    for (int side = 0; side < 2; ++side) {
        if (const auto failure = Failure([&] {
                documents[side] = std::make_unique<SettingsDocument>(
                    *records[side], SourceOf(side == 0 ? first : second));
            })) {
            Report(err, side == 0 ? first : second, *failure);
            return ExitUnreadable;
        }
    }
    const SettingsDocument& firstDocument = *documents[0];
    const SettingsDocument& secondDocument = *documents[1];
    Differences differences(firstShown, secondShown, out);
    QStringList path;
    if (firstDocument.Root().name != secondDocument.Root().name) {
        out << ": " << firstDocument.Root().name << " -> " << secondDocument.Root().name << '\n';
        out.flush();
        return ExitFailed;
    }
    differences.Compare(firstDocument.Root(), secondDocument.Root(), path);
    out.flush();
    return differences.count == 0 ? ExitSuccess : ExitFailed;
}

} // namespace tool
