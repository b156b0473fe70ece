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

    QString GetItemName();
    void SetItemName(const QString& itemName);
    int GetIndex() const;
    void SetIndex(int index);
    double GetFrequency() const;
    // Sets the value only; the range and the element name stay.
    void SetFrequency(double frequency);
    double GetBandwidth() const;
    // Sets the value only; the range and the element name stay.
    void SetBandwidth(double bandwidth);
    double GetMinimumFixedFrequencyLength() const;
    void SetMinimumFixedFrequencyLength(double length);
    unsigned int GetExciterSet() const;
    void SetExicterSet(unsigned int exciterSet);
    bool GetActive() const;
    void SetActive(bool active);
    double GetAbsoluteThresholdValue() const;
    void SetAbsoluteThresholdValue(double threshold);

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
