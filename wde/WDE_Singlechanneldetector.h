#ifndef KELMORA_WDE_SINGLECHANNELDETECTOR_H
#define KELMORA_WDE_SINGLECHANNELDETECTOR_H

#include <ExciterSettingsExport.h>
#include <IKMObject.h>
#include <ValueMinMax.h>

#include <QString>

namespace KELMORA {

// One entry of the WDE single-channel detector list: a frequency and a
// bandwidth, each with its range, a minimum fixed-frequency length, a
// detection threshold and the exciter set the detector belongs to. The element
// is always written; unknown children are passed over. Frequency and bandwidth
// write and read their own "Frequency" and "Bandwidth" elements.
class EXCITERSETTINGS_EXPORT WDE_Singlechanneldetector : public IKMObject {
public:
    WDE_Singlechanneldetector();
    WDE_Singlechanneldetector(int index);
    WDE_Singlechanneldetector(const WDE_Singlechanneldetector& other);
    WDE_Singlechanneldetector& operator=(const WDE_Singlechanneldetector& other);
    ~WDE_Singlechanneldetector() override;

    // Compares index, frequency and bandwidth values, minimum fixed-frequency
    // length, exciter set, Active and threshold with plain IEEE equality (a NaN
    // differs from itself). Names, version and the ranges are not compared.
    bool operator==(const WDE_Singlechanneldetector& other) const;
    bool operator!=(const WDE_Singlechanneldetector& other) const;

    static QString GetName();

    using IKMObject::Check;
    // True when frequency, bandwidth, minimum fixed-frequency length, exciter
    // set and threshold are all set.
    bool HasData() const override;
    // Clears every value, the index and the item name; the version text and
    // the Active flag stay.
    void Reset() override;
    // The frequency's and bandwidth's own Check(), then
    // "WDE_Singlechanneldetector:Please set <field>!" for the first unset value.
    void Check() const override;
    void GetXml(QXmlStreamWriter& writer) const override;
    void ProcessXml(QXmlStreamReader& reader) override;
    const QString& GetVersion() const override;

    // True when any of the values that HasData() needs is set.
    bool AnyData() const;

    QString GetItemName() { return m_itemName; }
    void SetItemName(const QString& itemName) { m_itemName = itemName; }
    int GetIndex() const { return m_index; }
    void SetIndex(int index) { m_index = index; }
    double GetFrequency() const { return m_frequency.value; }
    // Sets the value only; the range and the element name stay.
    void SetFrequency(double frequency) { m_frequency.value = frequency; }
    double GetBandwidth() const { return m_bandwidth.value; }
    // Sets the value only; the range and the element name stay.
    void SetBandwidth(double bandwidth) { m_bandwidth.value = bandwidth; }
    double GetMinimumFixedFrequencyLength() const { return m_minimumFixedFrequencyLength; }
    void SetMinimumFixedFrequencyLength(double length) { m_minimumFixedFrequencyLength = length; }
    unsigned int GetExciterSet() const;
    void SetExicterSet(unsigned int exciterSet) { m_exciterSet = exciterSet; }
    bool GetActive() const { return m_active; }
    void SetActive(bool active) { m_active = active; }
    double GetAbsoluteThresholdValue() const { return m_absoluteThresholdValue; }
    void SetAbsoluteThresholdValue(double threshold) { m_absoluteThresholdValue = threshold; }

protected:
    void ProcessXmlStartElement(QXmlStreamReader& reader) override;

private:
    int m_index;
    QString m_itemName;
    QString m_version;
    ValueMinMax m_frequency;
    ValueMinMax m_bandwidth;
    double m_minimumFixedFrequencyLength;
    unsigned int m_exciterSet;
    bool m_active;
    double m_absoluteThresholdValue;
};

} // namespace KELMORA

#endif
