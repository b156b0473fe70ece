#include "Commands.h"

#include "RecordRegistry.h"
#include "TreePrinter.h"

#include <KMException.h>
#include <SettingsLint.h>

#include <QFile>
#include <QXmlStreamReader>

#include <algorithm>
#include <exception>
#include <optional>

namespace tool {

namespace {

using KELMORA::KMException;

// Runs the call; returns the text of whatever it threw, nothing when it
// returned normally.
template <class Call> std::optional<QString> Failure(Call&& call) {
    try {
        call();
    } catch (const KELMORA::KelmoraException& failure) {
        return failure.GetMessage();
    } catch (const std::exception& failure) {
        return QString::fromLocal8Bit(failure.what());
    } catch (...) {
        return QStringLiteral("unexpected failure");
    }
    return std::nullopt;
}

QString RootElementName(QFile& file) {
    QXmlStreamReader reader(&file);
    if (reader.readNextStartElement())
        return reader.name().toString();
    throw KMException(QStringLiteral("XML error: %1 (line %2, column %3)")
                          .arg(reader.errorString(), QString::number(reader.lineNumber()),
                               QString::number(reader.columnNumber())));
}

void Report(QTextStream& stream, const QString& file, const QString& text) {
    stream << file << ": " << text << '\n';
    stream.flush();
}

} // namespace

std::unique_ptr<KELMORA::IKMObject> LoadRecord(const QString& fileName) {
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        throw KMException(QStringLiteral("Cannot open for reading: %1").arg(file.errorString()));
    const QString rootName = RootElementName(file);
    const RecordType* type = RecordRegistry::Instance().Find(rootName);
    if (!type)
        throw KMException(QStringLiteral("Unknown root element '%1'").arg(rootName));
    if (!file.seek(0))
        throw KMException(
            QStringLiteral("Cannot read the file a second time: %1").arg(file.errorString()));
    std::unique_ptr<KELMORA::IKMObject> record = type->create();
    try {
        record->LoadXml(file);
    } catch (const KELMORA::KelmoraException& failure) {
        // A record's own message says what is wrong; add where, unless the
        // XML reader's message already names the line.
        const QString& message = failure.GetMessage();
        if (record->GetFailureLine() <= 0 || message.contains(QLatin1String("(line ")))
            throw;
        throw KMException(
            QStringLiteral("%1 (line %2)").arg(message, QString::number(record->GetFailureLine())));
    }
    return record;
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
        for (const KELMORA::LintFinding& finding : KELMORA::SettingsLint::LintXmlFile(file)) {
            out << file << ':' << finding.line << ':' << finding.column << ": "
                << finding.SeverityText() << ": " << finding.message << '\n';
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
    if (const auto failure = Failure([&] { record->SaveXml(target); })) {
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
