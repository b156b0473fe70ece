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
    SCU();
    SCU(const SCU& other);
    SCU& operator=(const SCU& other);
    ~SCU() override;

    using IKMObject::Check;
    // Frequency value, transmit time and the whole path are set.
    bool HasData() const override;
    // Clears the frequency range, the transmit time and the path; the version
    // text stays.
    void Reset() override;
    // Throws "SCU: Please set Frequency!", then "SCU: Please set TransmitTime!",
    // then whatever the path's Check() throws.
    void Check() const override;
    // Writes nothing unless HasData().
    void GetXml(QXmlStreamWriter& writer) const override;
    // Takes the "Version" attribute (empty when absent), then reads the
    // children without resetting first.
    void ProcessXml(QXmlStreamReader& reader) override;
    const QString& GetVersion() const override;

    // The frequency value, the transmit time or the whole path is set; a path
    // with only some switches set does not count.
    bool AnyData() const;

    double GetFrequency() const { return m_frequency.value; }
    void SetFrequency(double value) { m_frequency.value = value; }
    double GetFrequencyMin() const { return m_frequency.minimum; }
    void SetFrequencyMin(double min) { m_frequency.minimum = min; }
    double GetFrequencyMax() const { return m_frequency.maximum; }
    void SetFrequencyMax(double max) { m_frequency.maximum = max; }
    void GetFrequencyMinMax(double& min, double& max) { m_frequency.GetMinMax(min, max); }
    MinMax GetFrequencyMinMax() const { return m_frequency.GetMinMax(); }
    void SetFrequencyMinMax(const MinMax& range) { m_frequency.SetMinMax(range); }
    void SetFrequencyMinMax(double min, double max) { m_frequency.SetMinMax(min, max); }

    double GetTransmitTime() const { return m_transmitTime; }
    void SetTransmitTime(double transmitTime) { m_transmitTime = transmitTime; }

    ATTANTPath& GetATTANTPath() { return m_path; }
    const ATTANTPath& GetATTANTPath() const { return m_path; }
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
