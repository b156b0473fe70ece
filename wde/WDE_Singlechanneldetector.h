// SPDX-License-Identifier: MIT
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
    // An item with every value unset, no index and no name; version "0.1", object name
    // "WDE_Singlechanneldetector".
    WDE_Singlechanneldetector();
    // As the default constructor, with the given index (attribute "Index"). WDE gives each item it
    // reads its position in the list.
    WDE_Singlechanneldetector(int index);
    // Copies every value, the index, the name and the version.
    WDE_Singlechanneldetector(const WDE_Singlechanneldetector& other);
    // Assigns what the copy constructor copies.
    WDE_Singlechanneldetector& operator=(const WDE_Singlechanneldetector& other);
    // Nothing to release beyond the values.
    ~WDE_Singlechanneldetector() override;

    // Compares index, frequency and bandwidth values, minimum fixed-frequency
    // length, exciter set, Active and threshold with plain IEEE equality (a NaN
    // differs from itself). Names, version and the ranges are not compared.
    bool operator==(const WDE_Singlechanneldetector& other) const;
    // The negation of operator==.
    bool operator!=(const WDE_Singlechanneldetector& other) const;

    // "WDE_Singlechanneldetector", the element and object name.
    static QString GetName();

    // IKMObject's Check(bool), which runs Check() and reports the result.
    using IKMObject::Check;
    // True when frequency, bandwidth, minimum fixed-frequency length, exciter
    // set and threshold are all set.
    bool HasData() const override;
    // Clears every value, the index and the item name; the version text and
    // the Active flag stay.
    void Reset() override;
    // Throws KMException "Frequency: Please set Value!" or "Bandwidth: Please set Value!" while a
    // value is unset, then "WDE_Singlechanneldetector:Please set MinimumFixedFrequencyLength!",
    // "...:Please set ExciterSet!" or "...:Please set AbsoluteThresholdValue!" for the first unset
    // one.
    // The frequency's and bandwidth's own Check(), then
    // "WDE_Singlechanneldetector:Please set <field>!" for the first unset value.
    void Check() const override;
    // Always writes the "WDE_Singlechanneldetector" element with every value, unset ones included
    // ("Frequency" and "Bandwidth" then empty, doubles as -111111, the exciter set as 4294967295).
    void GetXml(QXmlStreamWriter& writer) const override;
    // Reads the attributes ("Index" and "Name" only when present), then the children without
    // resetting first. Unknown children are passed over; only a document that is not well-formed
    // throws KMException ("XML error: ...").
    void ProcessXml(QXmlStreamReader& reader) override;
    // The version text, attribute "Version": "0.1" unless read otherwise.
    const QString& GetVersion() const override;

    // True when any of the values that HasData() needs is set.
    bool AnyData() const;

    // The name of the item, attribute "Name"; empty (no attribute) while unset.
    QString GetItemName() { return m_itemName; }
    // Sets the name of the item (attribute "Name").
    void SetItemName(const QString& itemName) { m_itemName = itemName; }
    // The index, attribute "Index"; -2147483648 (no attribute) while unset.
    int GetIndex() const { return m_index; }
    // Sets the index (attribute "Index"), unchecked.
    void SetIndex(int index) { m_index = index; }
    // The detector frequency, text of element "Frequency"; -111111.11 while unset.
    double GetFrequency() const { return m_frequency.value; }
    // Sets the value only; the range and the element name stay.
    void SetFrequency(double frequency) { m_frequency.value = frequency; }
    // The detector bandwidth, text of element "Bandwidth"; -111111.11 while unset.
    double GetBandwidth() const { return m_bandwidth.value; }
    // Sets the value only; the range and the element name stay.
    void SetBandwidth(double bandwidth) { m_bandwidth.value = bandwidth; }
    // The minimum fixed-frequency length, element "MinimumFixedFrequencyLength" (six digits);
    // -111111.11 while unset (written -111111).
    double GetMinimumFixedFrequencyLength() const { return m_minimumFixedFrequencyLength; }
    // Sets the minimum fixed-frequency length (element "MinimumFixedFrequencyLength").
    void SetMinimumFixedFrequencyLength(double length) { m_minimumFixedFrequencyLength = length; }
    // The number of the exciter set, element "ExciterSet"; 4294967295 while unset.
    unsigned int GetExciterSet() const;
    // Sets the number of the exciter set (element "ExciterSet"); the name is spelt so.
    void SetExicterSet(unsigned int exciterSet) { m_exciterSet = exciterSet; }
    // Whether the detector is in use, element "Active"; false for a new item, and Reset() leaves it
    // alone.
    bool GetActive() const { return m_active; }
    // Switches the detector on or off (element "Active").
    void SetActive(bool active) { m_active = active; }
    // The detection threshold, element "AbsoluteThresholdValue" (six digits); -111111.11 while
    // unset (written -111111).
    double GetAbsoluteThresholdValue() const { return m_absoluteThresholdValue; }
    // Sets the detection threshold (element "AbsoluteThresholdValue").
    void SetAbsoluteThresholdValue(double threshold) { m_absoluteThresholdValue = threshold; }

protected:
    // Reads one child; any other is left for the element loop to pass over.
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
