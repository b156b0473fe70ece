#ifndef EXCITERSETTINGS_TOOLS_COMMANDS_H
#define EXCITERSETTINGS_TOOLS_COMMANDS_H

#include <IKMObject.h>

#include <QString>
#include <QStringList>
#include <QTextStream>

#include <memory>

namespace tool {

enum ExitStatus {
    ExitSuccess = 0,
    // check: a file failed validation; format: the result could not be written.
    ExitFailed = 1,
    // A file could not be read: missing, not well-formed, unknown root
    // element, or rejected by its record while loading.
    ExitUnreadable = 2,
    ExitUsage = 64,
};

// Reads the file into a new record of the type its root element names.
// Throws KMException with the reason when the file cannot be read.
std::unique_ptr<KELMORA::IKMObject> LoadRecord(const QString& fileName);

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

} // namespace tool

#endif
