// SPDX-License-Identifier: MIT
#include "SettingsLint.h"

#include "ReadTrace.h"
#include "RecordKinds.h"
#include "ValueChange.h"
#include "WrittenTree.h"

#include <Exciter_Settings.h>
#include <WDE.h>

#include <QFile>
#include <QRegularExpression>

#include <algorithm>
#include <functional>

namespace KELMORA {

namespace {

using Kind = ReadTrace::Kind;
using Given = ReadTrace::Element;

QString JoinPath(const QString& parent, const QString& child) {
    if (parent.isEmpty() || child.isEmpty())
        return parent + child;
    return parent + QLatin1Char('/') + child;
}

// The path of a given element as the document has it: names from the root,
// the children of a list wrapper by their position.
QString GivenPath(const std::deque<Given>& elements, int index) {
    QStringList segments;
    for (int at = index; at > 0; at = elements[static_cast<size_t>(at)].parent) {
        const Given& element = elements[static_cast<size_t>(at)];
        const bool inList = elements[static_cast<size_t>(element.parent)].kind == Kind::Wrapper;
        segments.prepend(inList ? QString::number(element.position) : element.name);
    }
    return segments.join(QLatin1Char('/'));
}

// Compares what a document gives with what its records write back, record
// by record, and words every difference.
class Comparison {
public:
    Comparison(const std::deque<Given>& given, const QSet<QString>& recordNames,
               QVector<LintFinding>& findings)
        : m_given(given), m_recordNames(recordNames), m_findings(findings) {}

    // `written`: the root's document. When it is the very text that was
    // read, every value reads back as written and only what a written
    // document cannot show is left to check.
    void CompareDocument(const IKMObject& root, const QString& written, bool sameAsGiven) {
        m_root = &root;
        if (sameAsGiven)
            CheckKeptValues();
        else
            CompareWrittenBy(0, root, QString(), &written);
        ReportElementsInValues();
        std::stable_sort(m_findings.begin(), m_findings.end(),
                         [](const LintFinding& a, const LintFinding& b) {
                             return a.line != b.line ? a.line < b.line : a.column < b.column;
                         });
    }

private:
    const Given& At(int index) const { return m_given[static_cast<size_t>(index)]; }
    const WrittenTree& Written() const { return *m_written; }
    QString WrittenPath(int element) const { return JoinPath(m_prefix, Written().PathOf(element)); }

    void Add(const Given& at, const QString& path, const QString& message) {
        LintFinding finding;
        finding.line = at.line;
        finding.column = at.column;
        finding.path = path;
        finding.message = message;
        m_findings.append(finding);
    }

    // Compares a record element with what its record writes of itself. A
    // record that its parent did not write (the parent is incomplete) may
    // still write itself; records are asked so only below the document's
    // root and never inside lists, where they are members that live on.
    void CompareWrittenBy(int element, const IKMObject& record, const QString& path,
                          const QString* document = nullptr) {
        const WrittenTree written(document ? *document : record.GetXmlString(), m_recordNames);
        if (element == 0)
            m_documentWritten = !written.IsEmpty();
        if (written.IsEmpty()) {
            ReportUnwritten(element, path);
            return;
        }
        const WrittenTree* outer = m_written;
        const QString outerPrefix = m_prefix;
        m_written = &written;
        m_prefix = path;
        CompareRecord({element}, 0);
        m_written = outer;
        m_prefix = outerPrefix;
    }

    // A value keeps only its text; elements inside it are lost.
    void ReportElementsInValues() {
        for (int index = 0; index < static_cast<int>(m_given.size()); ++index) {
            const Given& element = At(index);
            if (element.kind == Kind::PassedOver && element.parent >= 0 &&
                At(element.parent).kind == Kind::Value)
                Add(element, GivenPath(m_given, index),
                    QStringLiteral("element '%1' inside the value '%2' is passed over and lost "
                                   "on save: a value keeps only its text")
                        .arg(element.name, At(element.parent).name));
        }
    }

    // Values that read back as they stand: their range, and flags held as
    // text.
    void CheckKeptValues() {
        for (int index = 0; index < static_cast<int>(m_given.size()); ++index) {
            const Given& element = At(index);
            if (element.kind != Kind::Value)
                continue;
            int record = element.parent;
            while (At(record).kind == Kind::Wrapper)
                record = At(record).parent;
            QString message =
                ValueChange::Describe(At(record).name, element.name, element.text, element.text);
            if (message.isEmpty() && !element.attributes.isEmpty())
                message = ValueChange::OutOfRange(
                    element.name, element.text, GivenAttribute(element, QStringLiteral("Minimum")),
                    GivenAttribute(element, QStringLiteral("Maximum")));
            if (!message.isEmpty())
                Add(element, GivenPath(m_given, index), message);
        }
    }

    static QString GivenAttribute(const Given& element, const QString& name) {
        for (const auto& attribute : element.attributes) {
            if (attribute.first == name)
                return attribute.second;
        }
        return QString();
    }

    // A record that writes nothing: what it holds is looked at in the
    // records below it that write themselves; when nothing there explains
    // it, the record's own Check() does.
    void ReportUnwritten(int element, const QString& path) {
        const int before = m_findings.size();
        std::vector<int> children;
        CollectGiven(element, path, children);
        std::vector<const IKMObject*> compared;
        for (int child : children) {
            const Given& given = At(child);
            if (given.kind == Kind::PassedOver) {
                ReportPassedOver(child, children, path);
            } else if (given.kind == Kind::Record && std::find(compared.begin(), compared.end(),
                                                               given.record) == compared.end()) {
                compared.push_back(given.record);
                CompareWrittenBy(child, *given.record, JoinPath(path, given.name));
            }
        }
        if (m_findings.size() > before)
            return;
        const Given& record = At(element);
        Add(record, path,
            QStringLiteral("'%1' is incomplete (%2): %3")
                .arg(record.name, record.incomplete,
                     m_documentWritten ? QStringLiteral("it is left out on save with all it holds")
                                       : QStringLiteral("nothing is saved")));
    }

    // The children a record was handed, wrappers opened (their children
    // are the record's own).
    void CollectGiven(int element, const QString& path, std::vector<int>& children) {
        for (int child : At(element).children) {
            const Given& given = At(child);
            if (given.kind != Kind::Wrapper) {
                children.push_back(child);
                continue;
            }
            for (const auto& attribute : given.attributes)
                Add(given, JoinPath(path, given.name),
                    QStringLiteral("attribute '%1' of '%2' is passed over and lost on save")
                        .arg(attribute.first, given.name));
            CollectGiven(child, path, children);
        }
    }

    // The elements a record wrote, by name, list wrappers opened.
    void CollectWritten(int element, QHash<QString, std::vector<int>>& byName) const {
        for (int child : Written().At(element).children) {
            if (Written().IsWrapper(child))
                CollectWritten(child, byName);
            else
                byName[Written().At(child).name].push_back(child);
        }
    }

    // `given`: the elements read into one record (more than one when the
    // document repeats it); `written`: the element it wrote.
    void CompareRecord(const std::vector<int>& given, int written) {
        const QString path = WrittenPath(written);
        const QString recordName = Written().At(written).name;
        std::vector<int> children;
        for (int element : given) {
            CompareAttributes(At(element), Written().At(written), path);
            CollectGiven(element, path, children);
        }
        QHash<QString, std::vector<int>> writtenByName;
        CollectWritten(written, writtenByName);
        QStringList names;
        QHash<QString, std::vector<int>> givenByName;
        for (int child : children) {
            const Given& element = At(child);
            if (element.kind == Kind::PassedOver) {
                ReportPassedOver(child, children, path);
                continue;
            }
            std::vector<int>& sameName = givenByName[element.name];
            if (sameName.empty())
                names.append(element.name);
            sameName.push_back(child);
        }
        for (const QString& name : names)
            Pair(givenByName.value(name), writtenByName.value(name), recordName, path);
    }

    // Pairs the elements of one name that a record was given with those it
    // wrote: one for one in order (list items, values), or all given onto
    // the one written (a value given twice, a record repeated).
    void Pair(const std::vector<int>& given, const std::vector<int>& written,
              const QString& recordName, const QString& path) {
        const bool isRecord = At(given.front()).kind == Kind::Record;
        if (written.empty()) {
            std::vector<const IKMObject*> reported;
            for (int element : given) {
                if (!isRecord) {
                    CompareValue(element, -1, recordName, JoinPath(path, At(element).name));
                } else if (std::find(reported.begin(), reported.end(), At(element).record) ==
                           reported.end()) {
                    reported.push_back(At(element).record);
                    ReportUnwritten(element, JoinPath(path, At(element).name));
                }
            }
            return;
        }
        if (written.size() == 1 && given.size() > 1) {
            if (isRecord) {
                CompareRecord(given, written.front());
                return;
            }
            const Given& last = At(given.back());
            for (size_t i = 0; i + 1 < given.size(); ++i)
                Add(At(given[i]), WrittenPath(written.front()),
                    ValueChange::Overwritten(last.name, At(given[i]).text, last.line));
            CompareValue(given.back(), written.front(), recordName, QString());
            return;
        }
        const size_t paired = std::min(given.size(), written.size());
        for (size_t i = 0; i < paired; ++i) {
            if (isRecord) {
                ReportMoved(given[i], written[i]);
                CompareRecord({given[i]}, written[i]);
            } else
                CompareValue(given[i], written[i], recordName, QString());
        }
        for (size_t i = paired; i < given.size(); ++i)
            Add(At(given[i]), JoinPath(path, At(given[i]).name),
                QStringLiteral("'%1' is left out on save").arg(At(given[i]).name));
    }

    // An item read from one list wrapper that its record keeps in another
    // (the records go by the item's element, not by the wrapper).
    void ReportMoved(int given, int written) {
        const Given& item = At(given);
        const int writtenParent = Written().At(written).parent;
        if (item.parent < 0 || At(item.parent).kind != Kind::Wrapper || writtenParent < 0 ||
            !Written().IsWrapper(writtenParent))
            return;
        const QString& from = At(item.parent).name;
        const QString& to = Written().At(writtenParent).name;
        if (from != to)
            Add(item, WrittenPath(written),
                QStringLiteral("'%1' in '%2' is saved in '%3': the item's element decides its list")
                    .arg(item.name, from, to));
    }

    // `written` is -1 when the record wrote nothing for the value; `path` is
    // then its path, else taken from the written element.
    void CompareValue(int given, int written, const QString& recordName, QString path) {
        const Given& element = At(given);
        if (written < 0) {
            const QString message =
                ValueChange::Describe(recordName, element.name, element.text, QString());
            if (!message.isEmpty())
                Add(element, path, message);
            return;
        }
        const WrittenTree::Element& value = Written().At(written);
        QString message = ValueChange::Describe(recordName, element.name, element.text, value.text);
        if (message.isEmpty() && !value.attributes.isEmpty())
            message = ValueChange::OutOfRange(
                element.name, value.text, WrittenTree::Attribute(value, QStringLiteral("Minimum")),
                WrittenTree::Attribute(value, QStringLiteral("Maximum")));
        if (message.isEmpty() && element.attributes.isEmpty() && value.attributes.isEmpty())
            return; // the usual case, decided without a path
        path = WrittenPath(written);
        CompareAttributes(element, value, path);
        if (!message.isEmpty())
            Add(element, path, message);
    }

    void CompareAttributes(const Given& given, const WrittenTree::Element& written,
                           const QString& path) {
        for (const auto& attribute : given.attributes) {
            const QString& name = attribute.first;
            const QString kept = WrittenTree::Attribute(written, name);
            QString message;
            if (kept.isNull() && !attribute.second.trimmed().isEmpty() &&
                !ValueChange::IsUnsetMarker(attribute.second))
                message = QStringLiteral("unknown attribute '%1' of '%2' is passed over and lost "
                                         "on save")
                              .arg(name, given.name);
            else
                message = ValueChange::Describe(written.name, name, attribute.second, kept);
            if (!message.isEmpty())
                Add(given, JoinPath(path, name), message);
        }
        for (const auto& attribute : written.attributes) {
            const auto sameName = [&](const auto& other) { return other.first == attribute.first; };
            if (attribute.second.isEmpty() &&
                std::none_of(given.attributes.begin(), given.attributes.end(), sameName))
                Add(given, JoinPath(path, attribute.first),
                    QStringLiteral("no '%1' attribute: it reads as empty and is saved as %1=\"\"")
                        .arg(attribute.first));
        }
    }

    void ReportPassedOver(int element, const std::vector<int>& siblings, const QString& path) {
        const Given& given = At(element);
        // Only the root is sure to outlive the read: a list item's record is
        // gone once the list took it, so other owners are not looked into.
        const auto* settings =
            given.owner == m_root ? dynamic_cast<const Exciter_Settings*>(m_root) : nullptr;
        QString message;
        if (settings && given.name == WDE::GetName())
            message = QStringLiteral("'%1' is passed over and lost on save: %2")
                          .arg(given.name, WhyWDEIsPassedOver(*settings, element, siblings));
        else
            message = QStringLiteral("unknown element '%1' is passed over and lost on save")
                          .arg(given.name);
        // Inside list wrappers, which the record reads as its own.
        QString where = given.name;
        for (int at = given.parent; at >= 0 && At(at).kind == Kind::Wrapper; at = At(at).parent)
            where = JoinPath(At(at).name, where);
        Add(given, JoinPath(path, where), message);
    }

    QString WhyWDEIsPassedOver(const Exciter_Settings& settings, int element,
                               const std::vector<int>& siblings) const {
        const Exciter_Settings::ExciterModeType mode = settings.GetExciterMode();
        const QString modeName = Exciter_Settings::GetExciterModeName();
        if (mode < 0 || mode >= settings.GetExciterModes().size())
            return QStringLiteral("%1 is not set, and WDE is read only in the modes that use it")
                .arg(modeName);
        if (!Exciter_Settings::IsValidWDE(mode))
            return QStringLiteral("%1 '%2' does not use WDE")
                .arg(modeName, settings.GetExciterModes().at(mode));
        const bool modeBefore = std::any_of(siblings.begin(), siblings.end(), [&](int sibling) {
            return sibling < element && At(sibling).name == modeName;
        });
        if (!modeBefore)
            return QStringLiteral("it comes before %1, which decides whether WDE is read")
                .arg(modeName);
        return QStringLiteral("the %1 before it does not use WDE").arg(modeName);
    }

    const std::deque<Given>& m_given;
    const QSet<QString>& m_recordNames;
    QVector<LintFinding>& m_findings;
    const WrittenTree* m_written = nullptr;
    const IKMObject* m_root = nullptr;
    QString m_prefix;
    bool m_documentWritten = true;
};

// An XML error or a limit tells where the reader stopped.
void TakePositionOfMessage(LintFinding& finding) {
    static const QRegularExpression position(QStringLiteral("\\(line (\\d+), column (\\d+)\\)$"));
    const QRegularExpressionMatch match = position.match(finding.message);
    if (match.hasMatch()) {
        finding.line = match.captured(1).toLongLong();
        finding.column = match.captured(2).toLongLong();
    }
}

LintFinding ErrorFinding(const KMException& failure, const ReadTrace& trace,
                         const IKMObject& record) {
    LintFinding finding;
    finding.severity = LintFinding::Error;
    finding.message = failure.GetMessage();
    finding.line = record.GetFailureLine();
    const std::vector<int> open = trace.OpenElements();
    if (!open.empty()) {
        const Given& innermost = trace.Elements()[static_cast<size_t>(open.back())];
        finding.line = innermost.line;
        finding.column = innermost.column;
        finding.path = GivenPath(trace.Elements(), open.back());
    }
    TakePositionOfMessage(finding);
    return finding;
}

LintFinding OnlyError(const QString& message) {
    LintFinding finding;
    finding.severity = LintFinding::Error;
    finding.message = message;
    TakePositionOfMessage(finding);
    return finding;
}

// `load` reads the document into the record; `isGiven` tells whether a
// text is the very document that was read.
QVector<LintFinding> Lint(IKMObject& record, const std::function<void()>& load,
                          const std::function<bool(const QString&)>& isGiven) {
    const bool validate = record.GetValidate();
    record.SetValidate(false); // the lint reports what Check() would not
    record.Reset();
    ReadTrace trace;
    try {
        const ReadObserver::Scope watching(trace);
        load();
    } catch (const KMException& failure) {
        record.SetValidate(validate);
        return {ErrorFinding(failure, trace, record)};
    }
    record.SetValidate(validate);
    if (trace.Elements().empty())
        return {OnlyError(QStringLiteral("%1 read nothing").arg(record.GetObjectName()))};
    trace.RootRead(record);

    QSet<QString> recordNames;
    for (const QString& name : RecordKinds::RootNames())
        recordNames.insert(name);
    for (const Given& element : trace.Elements()) {
        if (element.kind == Kind::Record)
            recordNames.insert(element.name);
    }
    QVector<LintFinding> findings;
    const QString written = record.GetXmlString();
    Comparison(trace.Elements(), recordNames, findings)
        .CompareDocument(record, written, isGiven(written));
    return findings;
}

// Whether the file holds exactly the UTF-8 form of the text, compared a
// piece at a time.
bool IsFileText(const QString& fileName, const QString& text) {
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    constexpr int kPiece = 1 << 20;
    for (int from = 0; from < text.size();) {
        int length = static_cast<int>(std::min<qsizetype>(kPiece, text.size() - from));
        if (from + length < text.size() && text.at(from + length - 1).isHighSurrogate())
            --length; // a pair is not split
        const QByteArray piece = QStringView(text).mid(from, length).toUtf8();
        if (file.read(piece.size()) != piece)
            return false;
        from += length;
    }
    return file.atEnd();
}

// The finding on a root element that names no record, where its start tag
// begins in `text` (the document, or its beginning).
QVector<LintFinding> UnknownRoot(const QString& rootName, const QString& text) {
    LintFinding finding =
        OnlyError(QStringLiteral("Unknown root element '%1' (known: %2)")
                      .arg(rootName, RecordKinds::RootNames().join(QStringLiteral(", "))));
    QXmlStreamReader reader(text);
    if (reader.readNextStartElement()) {
        const auto tag =
            text.lastIndexOf(QLatin1Char('<'), static_cast<int>(reader.characterOffset() - 1));
        finding.line = text.left(tag).count(QLatin1Char('\n')) + 1;
        finding.column = tag - text.lastIndexOf(QLatin1Char('\n'), tag);
    }
    return {finding};
}

} // namespace

QString LintFinding::SeverityText() const {
    return severity == Error ? QStringLiteral("error") : QStringLiteral("warning");
}

QVector<LintFinding> SettingsLint::LintXmlString(const QString& xml) {
    const QString rootName = RecordKinds::RootNameOfXmlString(xml);
    // Without a root element the root record's own load tells what is wrong.
    const std::unique_ptr<IKMObject> record =
        RecordKinds::Create(rootName.isEmpty() ? Exciter_Settings().GetObjectName() : rootName);
    if (!record)
        return UnknownRoot(rootName, xml);
    return LintXmlString(xml, *record);
}

QVector<LintFinding> SettingsLint::LintXmlFile(const QString& fileName) {
    QString rootName;
    try {
        rootName = RecordKinds::RootNameOfXmlFile(fileName);
    } catch (const KMException& failure) {
        return {OnlyError(failure.GetMessage())};
    }
    const std::unique_ptr<IKMObject> record =
        RecordKinds::Create(rootName.isEmpty() ? Exciter_Settings().GetObjectName() : rootName);
    if (!record) {
        // The root's start tag is within the first kilobytes of any real file.
        QFile file(fileName);
        file.open(QIODevice::ReadOnly); // opened just before, to find the root's name
        return UnknownRoot(rootName, QString::fromUtf8(file.read(1 << 20)));
    }
    return LintXmlFile(fileName, *record);
}

QVector<LintFinding> SettingsLint::LintXmlString(const QString& xml, IKMObject& record) {
    return Lint(
        record, [&] { record.SetXmlString(xml); },
        [&](const QString& written) { return written == xml; });
}

QVector<LintFinding> SettingsLint::LintXmlFile(const QString& fileName, IKMObject& record) {
    return Lint(
        record, [&] { record.LoadXml(fileName); },
        [&](const QString& written) { return IsFileText(fileName, written); });
}

} // namespace KELMORA
