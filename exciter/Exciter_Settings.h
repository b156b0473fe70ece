// SPDX-License-Identifier: MIT
#ifndef KELMORA_EXCITER_SETTINGS_H
#define KELMORA_EXCITER_SETTINGS_H

#include <ExciterSettingsExport.h>
#include <IKMObject.h>
#include <SCU.h>
#include <TGN.h>
#include <WDE.h>

#include <QString>
#include <QStringList>

namespace KELMORA {

// The root of the exciter settings: the operating mode, the autostart flag,
// the signal generator (TGN), the control unit (SCU) and the detection and
// exciter equipment (WDE).
//
// The mode is the record's switch: only in the seven WDE modes (Trap,
// Follower, Fast Sequential, Fast Sequential Parallel, Look Through, Look
// Through Parallel, Broadcast) does the WDE member take part in writing,
// reading, checking and HasData(). Changing the mode never touches the WDE
// member's values. A "WDE" child read while the mode is unset or not a WDE
// mode is passed over, so a document must name its mode before its WDE.
//
// The element name is the base library's name for object type 69,
// "Exciter_Settings".
class EXCITERSETTINGS_EXPORT Exciter_Settings : public IKMObject {
public:
    // The operating mode, element "ExciterMode", written by its name.
    // The values are the positions of the names in GetExciterModes(); -1 is unset.
    enum ExciterModeType : qint32 {
        // "Continuous".
        EXCITERMODE_CONTINUOUS = 0,
        // "Deception".
        EXCITERMODE_DECEPTION = 1,
        // "Trap"; uses WDE.
        EXCITERMODE_TRAP = 2,
        // "Follower"; uses WDE.
        EXCITERMODE_FOLLOWER = 3,
        // "Fast Sequential"; uses WDE.
        EXCITERMODE_FAST_SEQUENTIAL = 4,
        // "Fast Sequential Parallel"; uses WDE.
        EXCITERMODE_FAST_SEQUENTIAL_PARALLEL = 5,
        // "Look Through"; uses WDE.
        EXCITERMODE_LOOK_THROUGH = 6,
        // "Look Through Parallel"; uses WDE.
        EXCITERMODE_LOOK_THROUGH_PARALLEL = 7,
        // "Sweep"; the scan mode (IsValidScan).
        EXCITERMODE_SWEEP = 8,
        // "Wideband".
        EXCITERMODE_WIDEBAND = 9,
        // "Barrage".
        EXCITERMODE_BARRAGE = 10,
        // "Broadcast"; uses WDE.
        EXCITERMODE_BROADCAST = 11,
    };

    // Settings with the mode unset, autostart on and TGN, SCU and WDE unset; version "1.0", object
    // type 69 (element "Exciter_Settings").
    Exciter_Settings();
    // Copies the whole tree.
    Exciter_Settings(const Exciter_Settings& other);
    // Assigns the whole tree.
    Exciter_Settings& operator=(const Exciter_Settings& other);
    // Nothing to release beyond the tree.
    ~Exciter_Settings() override;

    // IKMObject's Check(bool), which runs Check() and reports the result.
    using IKMObject::Check;
    // The mode is set, TGN and SCU are complete and, in a WDE mode, WDE is complete.
    bool HasData() const override;
    // The mode unset, TGN, SCU and WDE reset, autostart on; the version stays.
    void Reset() override;
    // Throws KMException "Exciter_Settings: Please set ExciterMode" (no exclamation mark) while the
    // mode is unset, then whatever TGN's, SCU's and, in a WDE mode, WDE's Check() throws.
    void Check() const override;
    // Writes nothing unless HasData(). Otherwise the "Exciter_Settings" element: attribute
    // "Version", "ExciterMode" (its name), "Autostart", "TGN", "SCU" and, in a WDE mode only,
    // "WDE".
    void GetXml(QXmlStreamWriter& writer) const override;
    // Takes the "Version" attribute (empty when absent), then reads the children without resetting
    // first. Throws KMException "Exciter_Settings: Invalid TaskType '-1'" for an unknown mode name,
    // "Unknown Tag '<child>' in 'Exciter_Settings'" for an unknown child, or what TGN, SCU and WDE
    // throw.
    void ProcessXml(QXmlStreamReader& reader) override;
    // The version text, attribute "Version": "1.0" unless read otherwise.
    const QString& GetVersion() const override;

    // True when the mode is set or TGN or SCU is complete; WDE does not count.
    bool AnyData() const;

    // Whether the exciter starts by itself, element "Autostart"; true after construction and
    // Reset().
    bool GetAutostart();
    // As above.
    const bool& GetAutostart() const;
    // Sets autostart (element "Autostart"). On reading, only the exact text "false" turns it off.
    void SetAutostart(bool autostart);
    // "Autostart", the element name.
    static QString GetAutostartName();

    // The operating mode, element "ExciterMode"; -1 while unset.
    ExciterModeType GetExciterMode();
    // As above.
    const ExciterModeType& GetExciterMode() const;
    // "ExciterMode", the element name.
    static QString GetExciterModeName();
    // Stores a mode from 0 to 11; any other value throws
    // "Exciter_Settings: Invalid TaskType '<value>'".
    void SetExciterMode(const ExciterModeType& mode);
    // Stores the mode of that name; an empty name throws
    // "Exciter_Settings: Please set ExciterMode", an unknown one
    // "Unknown ExciterMode '<name>'".
    void SetExciterMode(const QString& name);
    // The twelve mode names in value order.
    const QStringList& GetExciterModes() const;
    // Throws "Exciter_Settings: Invalid ValueType '<name>'" for an unknown name.
    ExciterModeType NameToExciterModeType(const QString& name) const;
    // Throws "Exciter_Settings: Invalid ValueType '<value>'" for a value above 11.
    const QString& ExciterModeTypeToName(ExciterModeType mode) const;

    // True for Sweep only.
    static bool IsValidScan(const ExciterModeType& mode);
    // True for the seven modes that use WDE.
    static bool IsValidWDE(const ExciterModeType& mode);

    // The signal generator, element "TGN", to change in place.
    TGN& GetTGN() { return m_tgn; }
    // The signal generator, element "TGN".
    const TGN& GetTGN() const { return m_tgn; }
    // Replaces the signal generator with a copy.
    void SetTGN(const TGN& tgn) { m_tgn = tgn; }
    // The control unit, element "SCU", to change in place.
    SCU& GetSCU() { return m_scu; }
    // The control unit, element "SCU".
    const SCU& GetSCU() const { return m_scu; }
    // Replaces the control unit with a copy.
    void SetSCU(const SCU& scu) { m_scu = scu; }
    // The detection and exciter equipment, element "WDE" (written, read and checked in the WDE
    // modes only), to change in place.
    WDE& GetWDE() { return m_wde; }
    // The detection and exciter equipment, element "WDE".
    const WDE& GetWDE() const { return m_wde; }
    // Replaces the equipment settings with a copy.
    void SetWDE(const WDE& wde) { m_wde = wde; }

protected:
    // Reads one child: "ExciterMode", "Autostart", "TGN", "SCU", or "WDE" in a WDE mode (passed
    // over otherwise); any other throws KMException "Unknown Tag '<child>' in 'Exciter_Settings'".
    void ProcessXmlStartElement(QXmlStreamReader& reader) override;

private:
    // The position of the name in the mode list, or -1; never throws.
    ExciterModeType ToExciterModeType(const QString& name) const;
    bool IsValidExciterModeType(const ExciterModeType& mode) const;
    bool UsesWDE() const;

    bool m_autostart = true;
    QString m_version;
    ExciterModeType m_exciterMode;
    TGN m_tgn;
    SCU m_scu;
    WDE m_wde;
    QStringList m_exciterModes;
};

} // namespace KELMORA

#endif
