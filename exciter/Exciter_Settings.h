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
    // The values are the positions of the names in GetExciterModes(); -1 is unset.
    enum ExciterModeType : qint32 {
        EXCITERMODE_CONTINUOUS = 0,
        EXCITERMODE_DECEPTION = 1,
        EXCITERMODE_TRAP = 2,
        EXCITERMODE_FOLLOWER = 3,
        EXCITERMODE_FAST_SEQUENTIAL = 4,
        EXCITERMODE_FAST_SEQUENTIAL_PARALLEL = 5,
        EXCITERMODE_LOOK_THROUGH = 6,
        EXCITERMODE_LOOK_THROUGH_PARALLEL = 7,
        EXCITERMODE_SWEEP = 8,
        EXCITERMODE_WIDEBAND = 9,
        EXCITERMODE_BARRAGE = 10,
        EXCITERMODE_BROADCAST = 11,
    };

    Exciter_Settings();
    Exciter_Settings(const Exciter_Settings& other);
    Exciter_Settings& operator=(const Exciter_Settings& other);
    ~Exciter_Settings() override;

    using IKMObject::Check;
    bool HasData() const override;
    void Reset() override;
    void Check() const override;
    void GetXml(QXmlStreamWriter& writer) const override;
    void ProcessXml(QXmlStreamReader& reader) override;
    const QString& GetVersion() const override;

    // True when the mode is set or TGN or SCU is complete; WDE does not count.
    bool AnyData() const;

    bool GetAutostart();
    const bool& GetAutostart() const;
    void SetAutostart(bool autostart);
    static QString GetAutostartName();

    ExciterModeType GetExciterMode();
    const ExciterModeType& GetExciterMode() const;
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

    TGN& GetTGN() { return m_tgn; }
    const TGN& GetTGN() const { return m_tgn; }
    void SetTGN(const TGN& tgn) { m_tgn = tgn; }
    SCU& GetSCU() { return m_scu; }
    const SCU& GetSCU() const { return m_scu; }
    void SetSCU(const SCU& scu) { m_scu = scu; }
    WDE& GetWDE() { return m_wde; }
    const WDE& GetWDE() const { return m_wde; }
    void SetWDE(const WDE& wde) { m_wde = wde; }

protected:
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
