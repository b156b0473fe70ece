// SPDX-License-Identifier: MIT
#include "Logger.h"

namespace KELMORA {

Logger::Logger() = default;

Logger::~Logger() = default;

void Logger::Log(Level level, const QString& message) {
    m_entries.append(QStringLiteral("%1: %2").arg(GetLevelName(level), message));
}

QString Logger::GetLevelName(Level level) {
    switch (level) {
    case LEVEL_INFO:
        return QStringLiteral("INFO");
    case LEVEL_WARNING:
        return QStringLiteral("WARNING");
    case LEVEL_ERROR:
        return QStringLiteral("ERROR");
    }
    return QStringLiteral("UNKNOWN");
}

} // namespace KELMORA
