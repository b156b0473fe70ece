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
    ATTANTPath();
    ATTANTPath(const ATTANTPath& other);
    ATTANTPath& operator=(const ATTANTPath& other);
    ~ATTANTPath() override;

    using IKMObject::Check;
    // True when all six switches are set.
    bool HasData() const override;
    void Reset() override;
    // Throws "ATTANTPath: Please set ATTn!" for the first unset switch.
    void Check() const override;
    // Writes nothing unless HasData().
    void GetXml(QXmlStreamWriter& writer) const override;

    // True when at least one switch is set.
    bool AnyData() const;

    // True only when the switch's text is exactly "true".
    bool GetATT1() const { return IsOn(0); }
    bool GetATT2() const { return IsOn(1); }
    bool GetATT3() const { return IsOn(2); }
    bool GetATT4() const { return IsOn(3); }
    bool GetATT5() const { return IsOn(4); }
    bool GetATT6() const { return IsOn(5); }
    void SetATT1(bool on) { SetSwitch(0, on); }
    void SetATT2(bool on) { SetSwitch(1, on); }
    void SetATT3(bool on) { SetSwitch(2, on); }
    void SetATT4(bool on) { SetSwitch(3, on); }
    void SetATT5(bool on) { SetSwitch(4, on); }
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
