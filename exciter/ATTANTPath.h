// SPDX-License-Identifier: MIT
#ifndef KELMORA_ATTANTPATH_H
#define KELMORA_ATTANTPATH_H

#include <ExciterSettingsExport.h>
#include <IKMObject.h>

#include <QString>

namespace KELMORA {

// The six switches ATT1 to ATT6 of the attenuator and antenna path of the
// control unit. Each switch is held as its text: empty while unset, "true" or
// "false" once set (a text read from XML is kept verbatim, so "True" counts as
// set but reads as off). The element has no attributes and no version.
class EXCITERSETTINGS_EXPORT ATTANTPath : public IKMObject {
public:
    // A path with all six switches unset (empty text); object name "ATTANTPath".
    ATTANTPath();
    // Copies the six switch texts.
    ATTANTPath(const ATTANTPath& other);
    // Assigns the six switch texts.
    ATTANTPath& operator=(const ATTANTPath& other);
    // Nothing to release.
    ~ATTANTPath() override;

    // IKMObject's Check(bool), which runs Check() and reports the result.
    using IKMObject::Check;
    // True when all six switches are set.
    bool HasData() const override;
    // Empties all six switch texts (unset).
    void Reset() override;
    // Throws "ATTANTPath: Please set ATTn!" for the first unset switch.
    void Check() const override;
    // Writes the "ATTANTPath" element with "ATT1" to "ATT6", each holding its text unchanged, no
    // attributes.
    // Writes nothing unless HasData().
    void GetXml(QXmlStreamWriter& writer) const override;

    // True when at least one switch is set.
    bool AnyData() const;

    // True only when the switch's text is exactly "true".
    // Switch 1, element "ATT1": true only when its text is exactly "true"; false while unset.
    bool GetATT1() const { return IsOn(0); }
    // Switch 2, element "ATT2", as GetATT1().
    bool GetATT2() const { return IsOn(1); }
    // Switch 3, element "ATT3", as GetATT1().
    bool GetATT3() const { return IsOn(2); }
    // Switch 4, element "ATT4", as GetATT1().
    bool GetATT4() const { return IsOn(3); }
    // Switch 5, element "ATT5", as GetATT1().
    bool GetATT5() const { return IsOn(4); }
    // Switch 6, element "ATT6", as GetATT1().
    bool GetATT6() const { return IsOn(5); }
    // Sets switch 1 (element "ATT1") to the text "true" or "false"; there is no way back to unset
    // but Reset().
    void SetATT1(bool on) { SetSwitch(0, on); }
    // Sets switch 2 (element "ATT2"), as SetATT1().
    void SetATT2(bool on) { SetSwitch(1, on); }
    // Sets switch 3 (element "ATT3"), as SetATT1().
    void SetATT3(bool on) { SetSwitch(2, on); }
    // Sets switch 4 (element "ATT4"), as SetATT1().
    void SetATT4(bool on) { SetSwitch(3, on); }
    // Sets switch 5 (element "ATT5"), as SetATT1().
    void SetATT5(bool on) { SetSwitch(4, on); }
    // Sets switch 6 (element "ATT6"), as SetATT1().
    void SetATT6(bool on) { SetSwitch(5, on); }

protected:
    // Stores the text of ATT1..ATT6 unchanged; any other child throws
    // "Unknown Tag '<child>' in 'ATTANTPath'".
    void ProcessXmlStartElement(QXmlStreamReader& reader) override;

private:
    static constexpr int SwitchCount = 6;

    bool IsOn(int position) const;
    void SetSwitch(int position, bool on);

    QString m_switches[SwitchCount];
};

} // namespace KELMORA

#endif
