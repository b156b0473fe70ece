// SPDX-License-Identifier: MIT
#ifndef KELMORA_RECORDKINDS_H
#define KELMORA_RECORDKINDS_H

#include <ExciterSettingsExport.h>
#include <IKMObject.h>

#include <QString>
#include <QStringList>
#include <QVector>

#include <memory>
#include <optional>

namespace KELMORA {

// Every record of the library that can be the root of a document, by the
// name of its element.
class EXCITERSETTINGS_EXPORT RecordKinds {
public:
    // A new record whose element is `rootName`, or null when there is none.
    static std::unique_ptr<IKMObject> Create(const QString& rootName);
    // The root element names, sorted.
    static QStringList RootNames();
    // The name of the first element of a document, or an empty text when it
    // has none (the reader stops there, so a large document costs nothing).
    static QString RootNameOfXmlString(const QString& xml);
    // As above for a file, read through the default InputLimits; throws
    // KMException when it cannot be opened, is not well-formed before its
    // first element, or passes a limit there.
    static QString RootNameOfXmlFile(const QString& fileName);

    // The element name of the items of the list `listName` of the record
    // whose element is `recordName` ("WDE", "ExciterList": "WDE_Exciter"), or
    // an empty text when it has no such list of records. A record writes no
    // empty list, so a document does not tell; the record itself does: a
    // fresh one reads a fresh record of each kind and writes itself.
    static QString ItemName(const QString& recordName, const QString& listName);
    // The element name of the values of the list of plain values `listName`
    // ("WDE_Simulation", "FrequencyList": "Frequency"), or an empty text.
    static QString ValueItemName(const QString& recordName, const QString& listName);
    // The numbers of a value that its record holds as one Base64 text of
    // doubles (WDE_Rasterdetector's "Frequency"), decoded as the record
    // reads them; nothing for other values.
    static std::optional<QVector<double>> NumberList(const QString& recordName,
                                                     const QString& element, const QString& text);
    // The text of such a value that holds `numbers`, as the record writes
    // it; nothing for other values.
    static std::optional<QString> NumberListText(const QString& recordName, const QString& element,
                                                 const QVector<double>& numbers);
};

} // namespace KELMORA

#endif
