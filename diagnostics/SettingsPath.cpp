// SPDX-License-Identifier: MIT
#include "SettingsPath.h"

#include <KMException.h>

namespace KELMORA {

namespace {

const QChar kSeparator = QLatin1Char('/');

} // namespace

QStringList SettingsPath::Parse(const QString& path) {
    QString trimmed = path;
    if (trimmed.startsWith(kSeparator))
        trimmed.remove(0, 1);
    if (trimmed.endsWith(kSeparator))
        trimmed.chop(1);
    if (trimmed.isEmpty())
        return {};
    QStringList segments = trimmed.split(kSeparator);
    if (segments.contains(QString()))
        throw KMException(QStringLiteral("Empty name in the path '%1'").arg(path));
    return segments;
}

QString SettingsPath::Print(const QStringList& segments) {
    return segments.join(kSeparator);
}

QString SettingsPath::ItemSegment(int position) {
    return QString::number(position);
}

int SettingsPath::ItemPosition(const QString& segment) {
    bool ok = false;
    const int position = segment.toInt(&ok);
    return ok && position >= 0 && ItemSegment(position) == segment ? position : -1;
}

} // namespace KELMORA
