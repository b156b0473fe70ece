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
    enum Level : qint32 { LEVEL_INFO = 0, LEVEL_WARNING = 1, LEVEL_ERROR = 2 };

    Logger();
    virtual ~Logger();

    virtual void Log(Level level, const QString& message);

    // Every entry logged so far, each as "<LEVEL>: <message>".
    const QStringList& GetEntries() const { return m_entries; }
    void Clear() { m_entries.clear(); }

    static QString GetLevelName(Level level);

private:
    QStringList m_entries;
};

} // namespace KELMORA

#endif
