// SPDX-License-Identifier: MIT
#ifndef KELMORA_LOGGER_H
#define KELMORA_LOGGER_H

#include <KelmoraBaseExport.h>

#include <QString>
#include <QStringList>
#include <QtGlobal>

namespace KELMORA {

// Receives the failures of the host operations of a record (loading and
// saving). The default implementation keeps the entries in memory, so a host
// can inspect them; derive and override Log() to route them elsewhere.
class KELMORABASE_EXPORT Logger {
public:
    // \var LEVEL_INFO
    // Information; named "INFO".

    // \var LEVEL_WARNING
    // Something went wrong but the operation went on; named "WARNING".

    // \var LEVEL_ERROR
    // The operation failed; named "ERROR". The records log their load and save failures at this
    // level.

    // How serious an entry is.
    enum Level : qint32 { LEVEL_INFO = 0, LEVEL_WARNING = 1, LEVEL_ERROR = 2 };

    // A logger without entries.
    Logger();
    // Drops the entries.
    virtual ~Logger();

    // Keeps the entry as "<LEVEL>: <message>" (GetLevelName); override to route entries elsewhere.
    virtual void Log(Level level, const QString& message);

    // Every entry logged so far, each as "<LEVEL>: <message>".
    const QStringList& GetEntries() const { return m_entries; }
    // Drops every entry.
    void Clear() { m_entries.clear(); }

    // "INFO", "WARNING" or "ERROR"; "UNKNOWN" for any other value.
    static QString GetLevelName(Level level);

private:
    QStringList m_entries;
};

} // namespace KELMORA

#endif
