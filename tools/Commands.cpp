// SPDX-License-Identifier: MIT
#include "Commands.h"

#include "RecordRegistry.h"
#include "TreePrinter.h"

#include <InputLimits.h>
#include <KMException.h>
#include <RecordKinds.h>
#include <SettingsLint.h>
#include <XmlReaderError.h>

#include <QFile>
#include <QXmlStreamReader>

#include <algorithm>
#include <exception>
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

void Report(QTextStream& stream, const QString& file, const QString& text) {
    stream << file << ": " << text << '\n';
    stream.flush();
}

QString StandardInput() {
    static const QString text = [] {
        QFile input;
        if (!input.open(stdin, QIODevice::ReadOnly))
            throw KMException(
                QStringLiteral("Cannot read standard input: %1").arg(input.errorString()));
        return QString::fromUtf8(input.readAll());
    }();
    return text;
}

namespace {

// A record's failure while loading, with the line where the reader stopped
// unless the message names it already.
[[noreturn]] void Rethrow(const KELMORA::KelmoraException& failure,
                          const KELMORA::IKMObject& record) {
    const QString& message = failure.GetMessage();
    if (record.GetFailureLine() <= 0 || message.contains(QLatin1String("(line ")))
        throw;
    throw KMException(
        QStringLiteral("%1 (line %2)").arg(message, QString::number(record.GetFailureLine())));
}

std::unique_ptr<KELMORA::IKMObject> CreateRecord(const QString& rootName) {
    const RecordType* type = RecordRegistry::Instance().Find(rootName);
    if (!type)
        throw KMException(QStringLiteral("Unknown root element '%1'").arg(rootName));
    return type->create();
}

std::unique_ptr<KELMORA::IKMObject> LoadStandardInput() {
    const QString xml = StandardInput();
    QXmlStreamReader reader(xml);
    if (!reader.readNextStartElement())
        throw KELMORA::XmlReaderError(reader);
    std::unique_ptr<KELMORA::IKMObject> record = CreateRecord(reader.name().toString());
    try {
        record->SetXmlString(xml);
    } catch (const KELMORA::KelmoraException& failure) {
        Rethrow(failure, *record);
    }
    return record;
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
    if (fileName == StandardStream())
        return LoadStandardInput();
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        throw KMException(QStringLiteral("Cannot open for reading: %1").arg(file.errorString()));
    const QString rootName = RootElementName(file);
    std::unique_ptr<KELMORA::IKMObject> record = CreateRecord(rootName);
    if (!file.seek(0))
        throw KMException(
            QStringLiteral("Cannot read the file a second time: %1").arg(file.errorString()));
    try {
        record->LoadXml(file);
    } catch (const KELMORA::KelmoraException& failure) {
        // A record's own message says what is wrong; add where, unless the
        // XML reader's message already names the line.
        Rethrow(failure, *record);
    }
    return record;
}

QString DocumentText(const QString& fileName) {
    if (fileName == StandardStream())
        return StandardInput();
    QFile file(fileName);
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

int RunLint(const QStringList& files, QTextStream& out) {
    int status = ExitSuccess;
    for (const QString& file : files) {
        const QVector<KELMORA::LintFinding> findings =
            file == StandardStream() ? KELMORA::SettingsLint::LintXmlString(StandardInput())
                                     : KELMORA::SettingsLint::LintXmlFile(file);
        for (const KELMORA::LintFinding& finding : findings) {
            // One line each, whatever a record's message quotes.
            QString message = finding.message;
            message.replace(QLatin1Char('\n'), QLatin1String("\\n"));
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
