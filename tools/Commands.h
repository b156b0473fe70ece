// SPDX-License-Identifier: MIT
#ifndef EXCITERSETTINGS_TOOLS_COMMANDS_H
#define EXCITERSETTINGS_TOOLS_COMMANDS_H

#include <IKMObject.h>
#include <KelmoraException.h>

#include <QString>
#include <QStringList>
#include <QTextStream>

#include <exception>
#include <memory>
#include <new>
#include <optional>

namespace tool {

enum ExitStatus {
    ExitSuccess = 0,
    // check: a file failed validation; lint: findings; format: the result
    // could not be written; set: refused or not written; diff: differences.
    ExitFailed = 1,
    // A file could not be read: missing, not well-formed, unknown root
    // element, or rejected by its record while loading.
    ExitUnreadable = 2,
    // Wrong usage, or a path that names no setting.
    ExitUsage = 64,
};

// Runs the call; returns the text of whatever it threw, nothing when it
// returned normally.
template <class Call> std::optional<QString> Failure(Call&& call) {
    try {
        call();
    } catch (const KELMORA::KelmoraException& failure) {
        return failure.GetMessage();
    } catch (const std::bad_alloc&) {
        return QStringLiteral("out of memory");
    } catch (const std::exception& failure) {
        return QString::fromLocal8Bit(failure.what());
    } catch (...) {
        return QStringLiteral("unexpected failure");
    }
    return std::nullopt;
}

// "FILE: text" on the stream.
void Report(QTextStream& stream, const QString& file, const QString& text);

// The file name that stands for standard input or output.
inline QString StandardStream() {
    return QStringLiteral("-");
}

// Reads the file ("-": standard input) into a new record of the type its
// root element names. Throws KMException with the reason when the file
// cannot be read.
std::unique_ptr<KELMORA::IKMObject> LoadRecord(const QString& fileName);
// A temporary file that holds all of standard input, made on the first call.
QString StandardInputFile();
// The text of the file ("-": standard input) as it stands. Throws
// KMException when it cannot be read.
QString DocumentText(const QString& fileName);
// Writes the record through its atomic save, or to standard output for
// "-". Throws KMException when it cannot.
void SaveRecord(const KELMORA::IKMObject& record, const QString& target);

// " (ELEMENT choices: A, B)" when the element of a record of that root name
// takes its texts from a choice list, with " 'TEXT';" after the element when
// a text is given and `message` does not quote it; an empty text otherwise.
QString ChoicesNote(const QString& record, const QString& element, const QString& text,
                    const QString& message);

// Loads and validates each file: "FILE: OK" or "FILE: <reason>" on out for
// the files that were read, "FILE: <reason>" on err for those that were not.
// Returns the worst status.
int RunCheck(const QStringList& files, QTextStream& out, QTextStream& err);
int RunShow(const QString& file, QTextStream& out, QTextStream& err);
// Lints each file: one line "FILE:LINE:COLUMN: warning: MESSAGE" (or
// "error:") per finding on out. Returns 0 without findings, 1 with warnings,
// 2 when a file could not be read.
int RunLint(const QStringList& files, QTextStream& out);
// Writes the record back to target through the record's atomic save.
int RunFormat(const QString& file, const QString& target, QTextStream& err);
// The XML Schema of the settings files, schema/exciter-settings.xsd, built
// into the program (SchemaText.cpp.in).
const char* SchemaText();
// Prints SchemaText().
int RunSchema(QTextStream& out);

// Prints each setting that a path names as show prints it: a value alone on
// its line, a record or list as its subtree. Status 64 for a path that names
// nothing, with the names at the level where it went wrong.
int RunGet(const QString& file, const QStringList& paths, QTextStream& out, QTextStream& err);
// The settings as JSON (see SettingsDocument::ToJson).
int RunShowJson(const QString& file, QTextStream& out, QTextStream& err);

struct SetRequest {
    QString file;
    // "PATH=VALUE", "LIST/+" or "LIST/+=VALUE" (adds an item), "PATH=-"
    // (removes an item or a value), applied in order.
    QStringList assignments;
    // A JSON document as show --json writes it, applied before the
    // assignments; "-" for standard input; empty for none.
    QString json;
    QString target;
    // Saves what the lint or Check() would refuse.
    bool force = false;
};
// Changes settings in the written document, reads it into a fresh record
// of the same kind, refuses what the lint finds or Check() rejects, saves.
int RunSet(const SetRequest& request, QTextStream& out, QTextStream& err);
// One line "PATH: old -> new" per setting that differs. 0 equal, 1 differ,
// 2 a file could not be read.
int RunDiff(const QString& first, const QString& second, QTextStream& out, QTextStream& err);

} // namespace tool

#endif
