// SPDX-License-Identifier: MIT
#ifndef KELMORA_SETTINGSLINT_H
#define KELMORA_SETTINGSLINT_H

#include <ExciterSettingsExport.h>
#include <IKMObject.h>

#include <QString>
#include <QVector>

namespace KELMORA {

// One thing a settings document says that the library will not keep as
// written: a value it reads differently, changes on saving or passes over.
struct EXCITERSETTINGS_EXPORT LintFinding {
    // How serious a finding is.
    enum Severity {
        // The document loads, but this setting is not what the file says.
        Warning,
        // The document cannot be read at all: not well-formed, or rejected by
        // its record while loading. It is then the only finding.
        Error,
    };

    // Where the element concerned starts (both from 1); 0 when the file
    // itself could not be opened.
    qint64 line = 0;
    // The column where the element concerned starts, from 1; 0 as for line.
    qint64 column = 0;
    // Warning, or Error when the document could not be read.
    Severity severity = Warning;
    // The setting from the root record: child names joined by '/', list
    // items by their position from 0 ("WDE/ExciterList/2/Level",
    // "SCU/ATTANTPath/ATT1"); empty for the root element itself.
    QString path;
    // What the file says, what the library makes of it and why, e.g.
    // "'0.0004' is saved as '0.00': TransmitTime keeps two decimals".
    QString message;

    // "warning" or "error".
    QString SeverityText() const;
};

// Finds what a settings document would lose or change silently when loaded
// into its record and saved again. The lint loads the document into a fresh
// record of the kind its root element names, watching which elements the
// record takes and passes over, writes the record and compares the two
// documents setting by setting (by value: "1e6" equals "1000000.00"). On top
// of that comparison it checks what a written document cannot show: values
// outside their own Minimum/Maximum, and switches held as text that are
// neither "true" nor "false". A document as the library writes it gives no
// findings. Nothing is changed or saved.
//
// It reports: numbers that do not convert and read as 0; flags that are not
// exactly "true"/"false"; enumeration texts outside their table; values that
// the number format changes on saving (more decimals or digits than kept);
// unknown elements and attributes that are passed over; a WDE element that
// the exciter mode does not read; values given twice, the earlier one
// overwritten; Base64 frequency lists with stray characters or a length that
// is not whole numbers; values outside their range; unset markers; records
// that are incomplete and so left out of the saved document.
//
// Findings come in document order.
class EXCITERSETTINGS_EXPORT SettingsLint {
public:
    // The document as text; its root element chooses the record.
    static QVector<LintFinding> LintXmlString(const QString& xml);
    // The document in a file, read as IKMObject::LoadXml reads it.
    static QVector<LintFinding> LintXmlFile(const QString& fileName);

    // As above with a record that the caller chose: it is Reset() and loaded
    // with the document, and holds it afterwards as far as it could be read.
    static QVector<LintFinding> LintXmlString(const QString& xml, IKMObject& record);
    // As LintXmlString with a record of the caller's, for the document in a file.
    static QVector<LintFinding> LintXmlFile(const QString& fileName, IKMObject& record);
};

} // namespace KELMORA

#endif
