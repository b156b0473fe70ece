// SPDX-License-Identifier: MIT
#ifndef KELMORA_SETTINGSPATH_H
#define KELMORA_SETTINGSPATH_H

#include <ExciterSettingsExport.h>

#include <QString>
#include <QStringList>

namespace KELMORA {

// The name of a setting from the root record: child element names joined by
// '/', list items by their position from 0 ("WDE/ExciterList/2/Level",
// "SCU/ATTANTPath/ATT1", "ExciterMode"); empty for the root record itself.
// The lint's findings and the command-line tool both name settings so.
class EXCITERSETTINGS_EXPORT SettingsPath {
public:
    // The segments of a path. A leading or trailing '/' is ignored; throws
    // KMException for an empty segment ("TGN//Power").
    static QStringList Parse(const QString& path);
    static QString Print(const QStringList& segments);
    // The segment of the list item at `position`, and back: the position a
    // segment names, -1 when it names no item.
    static QString ItemSegment(int position);
    static int ItemPosition(const QString& segment);
};

} // namespace KELMORA

#endif
