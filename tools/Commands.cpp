// SPDX-License-Identifier: MIT
#include "Commands.h"

#include "RecordRegistry.h"
#include "TreePrinter.h"

#include <InputLimits.h>
#include <KMException.h>
#include <ReadObserver.h>
#include <RecordKinds.h>
#include <SettingsLint.h>
#include <SettingsPath.h>
#include <XmlReaderError.h>

#include <QFile>
#include <QTemporaryFile>
#include <QXmlStreamReader>

#include <algorithm>
#include <exception>
#include <functional>
#include <memory>
#include <optional>

namespace tool {

namespace {

using KELMORA::KMException;

// Read within the input limits of a load: a start tag of a million
// attributes would otherwise hold the reader for minutes.
QString RootElementName(QFile& file) {
    KELMORA::LimitedDevice limited(file, KELMORA::InputLimits());
    QXmlStreamReader reader(&limited);
    const bool found = reader.readNextStartElement();
    if (limited.Failed())
        throw KMException(
            QStringLiteral("Input limit exceeded: %1").arg(limited.Scanner().Failure()));
    if (found)
        return reader.name().toString();
    throw KELMORA::XmlReaderError(reader);
}

} // namespace

QString ChoicesNote(const QString& record, const QString& element, const QString& text,
                    const QString& message) {
    const RecordType* type = RecordRegistry::Instance().Find(record);
    if (!type || !type->choices)
        return QString();
    const QStringList choices = type->choices(*type->create(), element);
    if (choices.isEmpty())
        return QString();
    const QString quoted = QStringLiteral("'%1'").arg(text);
    return text.isNull() || message.contains(quoted)
               ? QStringLiteral(" (%1 choices: %2)")
                     .arg(element, choices.join(QStringLiteral(", ")))
               : QStringLiteral(" (%1 %2; choices: %3)")
                     .arg(element, quoted, choices.join(QStringLiteral(", ")));
}

namespace {

// Follows a load to name the value a record refused: the innermost child
// element open when the record threw, and the text it took of it.
class RefusedValue : public KELMORA::ReadObserver {
public:
    void RecordEntered(const KELMORA::IKMObject& /*record*/,
                       const QXmlStreamReader& /*reader*/) override {}
    void ChildStarted(const KELMORA::IKMObject& record, const QXmlStreamReader& reader,
                      qint64 /*line*/, qint64 /*column*/) override {
        m_open.push_back({record.GetObjectName(), reader.name().toString(), QString()});
    }
    void ChildEnded(const KELMORA::IKMObject& /*record*/, const QXmlStreamReader& /*reader*/,
                    bool /*passedOver*/) override {
        m_open.pop_back();
    }
    void ValueRead(const QString& text) override {
        if (!m_open.empty())
            m_open.back().text = text;
    }

    // The choices of the value open when the record threw (see ChoicesNote).
    QString ChoicesNote(const QString& message) const {
        if (m_open.empty())
            return QString();
        const Value& value = m_open.back();
        return tool::ChoicesNote(value.record, value.element, value.text, message);
    }

private:
    struct Value {
        QString record, element, text;
    };
    std::vector<Value> m_open;
};

// Loads the record with `load`; a failure is rethrown with the line where
// the reader stopped and the choices of a value the record refused.
void LoadNamingFailures(KELMORA::IKMObject& record, const std::function<void()>& load) {
    RefusedValue refused;
    try {
        const KELMORA::ReadObserver::Scope watching(refused);
        load();
    } catch (const KELMORA::KelmoraException& failure) {
        QString message = failure.GetMessage();
        if (record.GetFailureLine() > 0 && !message.contains(QLatin1String("(line ")))
            message += QStringLiteral(" (line %1)").arg(record.GetFailureLine());
        throw KMException(message + refused.ChoicesNote(failure.GetMessage()));
    }
}

} // namespace

void Report(QTextStream& stream, const QString& file, const QString& text) {
    stream << file << ": " << text << '\n';
    stream.flush();
}

// Standard input is copied to a temporary file as it comes, so that it is
// read as files are: within the input limits, never whole into memory.
QString StandardInputFile() {
    static const std::unique_ptr<QTemporaryFile> copy = [] {
        auto file = std::make_unique<QTemporaryFile>();
        QFile input;
        if (!input.open(stdin, QIODevice::ReadOnly) || !file->open())
            throw KMException(
                QStringLiteral("Cannot read standard input: %1").arg(input.errorString()));
        constexpr qint64 kPiece = 1 << 20;
        for (QByteArray piece = input.read(kPiece); !piece.isEmpty(); piece = input.read(kPiece)) {
            if (file->write(piece) != piece.size())
                throw KMException(
                    QStringLiteral("Cannot keep standard input: %1").arg(file->errorString()));
        }
        if (!file->flush())
            throw KMException(
                QStringLiteral("Cannot keep standard input: %1").arg(file->errorString()));
        return file;
    }();
    return copy->fileName();
}

namespace {

std::unique_ptr<KELMORA::IKMObject> CreateRecord(const QString& rootName) {
    const RecordType* type = RecordRegistry::Instance().Find(rootName);
    if (!type)
        throw KMException(QStringLiteral("Unknown root element '%1'").arg(rootName));
    return type->create();
}

} // namespace

void SaveRecord(const KELMORA::IKMObject& record, const QString& target) {
    if (target != StandardStream()) {
        record.SaveXml(target);
        return;
    }
    const QString xml = record.GetXmlString();
    if (KELMORA::RecordKinds::RootNameOfXmlString(xml).isEmpty())
        throw KMException(QStringLiteral("Cannot write to standard output: %1 holds no complete "
                                         "settings")
                              .arg(record.GetObjectName()));
    QFile output;
    if (!output.open(stdout, QIODevice::WriteOnly) || output.write(xml.toUtf8()) < 0 ||
        !output.flush())
        throw KMException(
            QStringLiteral("Cannot write to standard output: %1").arg(output.errorString()));
}

std::unique_ptr<KELMORA::IKMObject> LoadRecord(const QString& fileName) {
    QFile file(fileName == StandardStream() ? StandardInputFile() : fileName);
    if (!file.open(QIODevice::ReadOnly))
        throw KMException(QStringLiteral("Cannot open for reading: %1").arg(file.errorString()));
    const QString rootName = RootElementName(file);
    std::unique_ptr<KELMORA::IKMObject> record = CreateRecord(rootName);
    if (!file.seek(0))
        throw KMException(
            QStringLiteral("Cannot read the file a second time: %1").arg(file.errorString()));
    LoadNamingFailures(*record, [&] { record->LoadXml(file); });
    return record;
}

QString DocumentText(const QString& fileName) {
    QFile file(fileName == StandardStream() ? StandardInputFile() : fileName);
    if (!file.open(QIODevice::ReadOnly))
        throw KMException(QStringLiteral("Cannot open for reading: %1").arg(file.errorString()));
    return QString::fromUtf8(file.readAll());
}

int RunCheck(const QStringList& files, QTextStream& out, QTextStream& err) {
    int status = ExitSuccess;
    for (const QString& file : files) {
        std::unique_ptr<KELMORA::IKMObject> record;
        if (const auto failure = Failure([&] { record = LoadRecord(file); })) {
            Report(err, file, *failure);
            status = ExitUnreadable;
            continue;
        }
        if (const auto failure = Failure([&] { record->Check(); })) {
            Report(out, file, *failure);
            if (status == ExitSuccess)
                status = ExitFailed;
        } else {
            Report(out, file, QStringLiteral("OK"));
        }
    }
    return status;
}

int RunShow(const QString& file, QTextStream& out, QTextStream& err) {
    std::unique_ptr<KELMORA::IKMObject> record;
    const auto failure = Failure([&] {
        record = LoadRecord(file);
        TreePrinter printer(out);
        printer.Record(*record);
        out.flush();
    });
    if (failure) {
        Report(err, file, *failure);
        return ExitUnreadable;
    }
    return ExitSuccess;
}

namespace {

// The choices of the value at an error's path: the record that holds it is
// named by the path's segment before it, or is the root.
QString ChoicesOfRefused(const QString& file, const KELMORA::LintFinding& finding) {
    const QStringList segments = KELMORA::SettingsPath::Parse(finding.path);
    QString record;
    if (segments.size() > 1)
        record = segments.at(segments.size() - 2);
    else if (Failure([&] {
                 record = KELMORA::RecordKinds::RootNameOfXmlFile(
                     file == StandardStream() ? StandardInputFile() : file);
             }))
        return QString();
    return ChoicesNote(record, segments.last(), QString(), finding.message);
}

} // namespace

int RunLint(const QStringList& files, QTextStream& out) {
    int status = ExitSuccess;
    for (const QString& file : files) {
        const QVector<KELMORA::LintFinding> findings = KELMORA::SettingsLint::LintXmlFile(
            file == StandardStream() ? StandardInputFile() : file);
        for (const KELMORA::LintFinding& finding : findings) {
            // One line each, whatever a record's message quotes.
            QString message = finding.message;
            message.replace(QLatin1Char('\n'), QLatin1String("\\n"));
            if (finding.severity == KELMORA::LintFinding::Error && !finding.path.isEmpty())
                message += ChoicesOfRefused(file, finding);
            out << file << ':' << finding.line << ':' << finding.column << ": "
                << finding.SeverityText() << ": " << message << '\n';
            status = std::max(status, finding.severity == KELMORA::LintFinding::Error
                                          ? int(ExitUnreadable)
                                          : int(ExitFailed));
        }
        out.flush();
    }
    return status;
}

int RunFormat(const QString& file, const QString& target, QTextStream& err) {
    std::unique_ptr<KELMORA::IKMObject> record;
    if (const auto failure = Failure([&] { record = LoadRecord(file); })) {
        Report(err, file, *failure);
        return ExitUnreadable;
    }
    // The save writes a temporary file and renames it over the target only
    // once complete; an incomplete record writes no document and is refused.
    if (const auto failure = Failure([&] { SaveRecord(*record, target); })) {
        Report(err, file, *failure);
        return ExitFailed;
    }
    return ExitSuccess;
}

int RunSchema(QTextStream& out) {
    out << QString::fromUtf8(SchemaText());
    out.flush();
    return ExitSuccess;
}

} // namespace tool
