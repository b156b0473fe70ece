// SPDX-License-Identifier: MIT
#ifndef KELMORA_SCU_H
#define KELMORA_SCU_H

#include <ATTANTPath.h>
#include <ExciterSettingsExport.h>
#include <IKMObject.h>
#include <MinMax.h>
#include <ValueMinMax.h>

#include <QString>

namespace KELMORA {

// The control unit: the frequency with its permitted range, the transmit time
// and the attenuator and antenna path. The record is complete (and is written)
// only when the frequency value, the transmit time and all six path switches
// are set. No setter checks its value: a minimum above the maximum, or the
// unset marker itself, is stored as given.
class EXCITERSETTINGS_EXPORT SCU : public IKMObject {
public:
    // A control unit with everything unset: version "1.0", object name "SCU", frequency range named
    // "Frequency".
    SCU();
    // Copies the version, the frequency range, the transmit time and the path.
    SCU(const SCU& other);
    // Assigns what the copy constructor copies.
    SCU& operator=(const SCU& other);
    // Nothing to release.
    ~SCU() override;

    // IKMObject's Check(bool), which runs Check() and reports the result.
    using IKMObject::Check;
    // Frequency value, transmit time and the whole path are set.
    bool HasData() const override;
    // Clears the frequency range, the transmit time and the path; the version
    // text stays.
    void Reset() override;
    // Throws "SCU: Please set Frequency!", then "SCU: Please set TransmitTime!",
    // then whatever the path's Check() throws.
    void Check() const override;
    // Writes the "SCU" element: attribute "Version", then "Frequency" (exact, with
    // "Minimum"/"Maximum" when set), "TransmitTime" (two decimals) and "ATTANTPath".
    // Writes nothing unless HasData().
    void GetXml(QXmlStreamWriter& writer) const override;
    // Takes the "Version" attribute (empty when absent), then reads the
    // children without resetting first.
    void ProcessXml(QXmlStreamReader& reader) override;
    // The version text, attribute "Version": "1.0" unless read otherwise.
    const QString& GetVersion() const override;

    // The frequency value, the transmit time or the whole path is set; a path
    // with only some switches set does not count.
    bool AnyData() const;

    // The frequency, text of element "Frequency"; -111111.11 while unset.
    double GetFrequency() const { return m_frequency.value; }
    // Sets the frequency (text of "Frequency"); -111111.11 makes it unset.
    void SetFrequency(double value) { m_frequency.value = value; }
    // The minimum frequency, attribute "Minimum" of "Frequency"; -111111.11 while unset.
    double GetFrequencyMin() const { return m_frequency.minimum; }
    // Sets the minimum frequency (attribute "Minimum" of "Frequency").
    void SetFrequencyMin(double min) { m_frequency.minimum = min; }
    // The maximum frequency, attribute "Maximum" of "Frequency"; -111111.11 while unset.
    double GetFrequencyMax() const { return m_frequency.maximum; }
    // Sets the maximum frequency (attribute "Maximum" of "Frequency").
    void SetFrequencyMax(double max) { m_frequency.maximum = max; }
    // Stores the minimum and the maximum frequency in min and max.
    void GetFrequencyMinMax(double& min, double& max) { m_frequency.GetMinMax(min, max); }
    // The minimum and the maximum frequency as a pair.
    MinMax GetFrequencyMinMax() const { return m_frequency.GetMinMax(); }
    // Sets the minimum and the maximum frequency from the pair, without comparing them.
    void SetFrequencyMinMax(const MinMax& range) { m_frequency.SetMinMax(range); }
    // Sets the minimum and the maximum frequency, without comparing them.
    void SetFrequencyMinMax(double min, double max) { m_frequency.SetMinMax(min, max); }

    // The transmit time, element "TransmitTime" (two decimals); -111111.11 while unset.
    double GetTransmitTime() const { return m_transmitTime; }
    // Sets the transmit time (element "TransmitTime"); -111111.11 makes it unset. Saved with two
    // decimals: 3.14159 is written 3.14.
    void SetTransmitTime(double transmitTime) { m_transmitTime = transmitTime; }

    // The attenuator and antenna path, element "ATTANTPath", to change in place.
    ATTANTPath& GetATTANTPath() { return m_path; }
    // The attenuator and antenna path, element "ATTANTPath".
    const ATTANTPath& GetATTANTPath() const { return m_path; }
    // Replaces the whole path with a copy.
    void SetATTANTPath(const ATTANTPath& path) { m_path = path; }

protected:
    // "Frequency", "TransmitTime" and "ATTANTPath"; any other child throws
    // "Unknown Tag '<child>' in 'SCU'".
    void ProcessXmlStartElement(QXmlStreamReader& reader) override;

private:
    QString m_version;
    ValueMinMax m_frequency;
    double m_transmitTime;
    ATTANTPath m_path;
};

} // namespace KELMORA

#endif
