// SPDX-License-Identifier: MIT
#ifndef KELMORA_WDE_SIMULATION_H
#define KELMORA_WDE_SIMULATION_H

#include <ExciterSettingsExport.h>
#include <IKMObject.h>

#include <QString>
#include <QVector>
#include <QtGlobal>

namespace KELMORA {

// One entry of the WDE simulation list: the kind of simulation, the exciter set
// it uses, its PN start value, channel layout and a list of relative
// frequencies. The element is always written; unknown children are passed over.
//
// The relative frequencies are written inside a "FrequencyList" wrapper, one
// "Frequency" child per value. Reading appends to the list held, whether the
// "Frequency" children stand inside the wrapper or directly in the item.
class EXCITERSETTINGS_EXPORT WDE_Simulation : public IKMObject {
public:
    // \var SIMULATIONTYPE_FLIS
    // "FLIS".

    // \var SIMULATIONTYPE_PN
    // "PN": a pseudo-noise sequence.

    // The kind of simulation, element "Type"; -1 is unset (written as the empty text).
    enum SimulationType : qint32 { SIMULATIONTYPE_FLIS = 0, SIMULATIONTYPE_PN = 1 };

    // An item with every value unset, no index and no name; version "0.1", object name
    // "WDE_Simulation".
    WDE_Simulation();
    // As the default constructor, with the given index (attribute "Index"). WDE gives each item it
    // reads its position in the list.
    WDE_Simulation(int index);
    // Copies every value, the index, the name and the version.
    WDE_Simulation(const WDE_Simulation& other);
    // Assigns what the copy constructor copies.
    WDE_Simulation& operator=(const WDE_Simulation& other);
    // Nothing to release beyond the values.
    ~WDE_Simulation() override;

    // "WDE_Simulation", the element and object name.
    static QString GetName();

    // IKMObject's Check(bool), which runs Check() and reports the result.
    using IKMObject::Check;
    // True when the exciter set and the type are set.
    bool HasData() const override;
    // Clears every value, the list, the index and the item name; the version
    // text and the Active flag stay.
    void Reset() override;
    // Throws "WDE_Simulation: Please set ExciterSet", then "...: Please set Type".
    void Check() const override;
    // Always writes the "WDE_Simulation" element with every value, unset ones included, and the
    // "FrequencyList" wrapper when the list is not empty.
    void GetXml(QXmlStreamWriter& writer) const override;
    // Reads the attributes ("Index" and "Name" only when present), then the children without
    // resetting first: each "Frequency" is appended. Unknown children are passed over; only a
    // document that is not well-formed ("XML error: ...") or wrappers nested more than
    // IKMObject::MaxProcessXmlNesting deep throw KMException.
    void ProcessXml(QXmlStreamReader& reader) override;
    // The version text, attribute "Version": "0.1" unless read otherwise.
    const QString& GetVersion() const override;

    // True when any value or list entry is set (Active, index and name aside).
    bool AnyData() const;

    // The name of the item, attribute "Name"; empty (no attribute) while unset.
    QString GetItemName() { return m_itemName; }
    // Sets the name of the item (attribute "Name").
    void SetItemName(const QString& itemName) { m_itemName = itemName; }
    // The index, attribute "Index"; -2147483648 (no attribute) while unset.
    int GetIndex() { return m_index; }
    // Sets the index (attribute "Index"), unchecked; nothing renumbers the items of a list.
    void SetIndex(int index) { m_index = index; }
    // Whether the simulation is in use, element "Active"; false for a new item, and Reset() leaves
    // it alone.
    bool GetActive() const { return m_active; }
    // Switches the simulation on or off (element "Active").
    void SetActive(bool active) { m_active = active; }
    // The kind of simulation, element "Type"; -1 while unset.
    SimulationType GetType() const { return m_type; }
    // Sets the kind of simulation (element "Type"), unchecked.
    void SetType(SimulationType type) { m_type = type; }
    // The number of the exciter set, element "ExciterSet"; 4294967295 while unset.
    unsigned int GetExciterSet() const;
    // Sets the number of the exciter set (element "ExciterSet").
    void SetExciterSet(unsigned int exciterSet) { m_exciterSet = exciterSet; }
    // The PN start value, element "PNStartValue"; 4294967295 while unset.
    unsigned int GetPNStartValue() const;
    // Sets the PN start value (element "PNStartValue").
    void SetPNStartValue(unsigned int pnStartValue) { m_pnStartValue = pnStartValue; }
    // The relative centre frequency, element "RelativeCenterFrequency" (six digits); -111111.11
    // while unset (written -111111).
    double GetRelativeCenterFrequency() const { return m_relativeCenterFrequency; }
    // Sets the relative centre frequency (element "RelativeCenterFrequency").
    void SetRelativeCenterFrequency(double frequency) { m_relativeCenterFrequency = frequency; }
    // The number of channels, element "ChannelCount"; 4294967295 while unset.
    unsigned int GetChannelCount() const;
    // Sets the number of channels (element "ChannelCount").
    void SetChannelCount(unsigned int channelCount) { m_channelCount = channelCount; }
    // The hop width, element "HopWidth" (six digits); -111111.11 while unset (written -111111).
    double GetHopWidth() const { return m_hopWidth; }
    // Sets the hop width (element "HopWidth").
    void SetHopWidth(double hopWidth) { m_hopWidth = hopWidth; }
    // The relative frequencies, "Frequency" children of "FrequencyList" (six digits each), to
    // change in place.
    QVector<double>& GetRelativeFrequencyList() { return m_relativeFrequencyList; }
    // The relative frequencies.
    const QVector<double>& GetRelativeFrequencyList() const { return m_relativeFrequencyList; }
    // Replaces the relative frequencies.
    void SetRelativeFrequencyList(const QVector<double>& frequencies) {
        m_relativeFrequencyList = frequencies;
    }
    // Adds a relative frequency at the end of the list.
    void AppendRelativeFrequency(const double& frequency);

    // "FLIS" and "PN"; an empty text for any other value.
    QString GetStringForSimulationType(SimulationType type) const;
    // Exact and case-sensitive; -1 for any other text.
    SimulationType GetSimulationTypeForString(const QString& text) const;

protected:
    // Reads one child; "FrequencyList" is read as the item's own children. Any other child is left
    // for the element loop to pass over.
    void ProcessXmlStartElement(QXmlStreamReader& reader) override;

private:
    bool m_active;
    SimulationType m_type;
    int m_index;
    unsigned int m_exciterSet;
    unsigned int m_pnStartValue;
    double m_relativeCenterFrequency;
    unsigned int m_channelCount;
    double m_hopWidth;
    QVector<double> m_relativeFrequencyList;
    QString m_itemName;
    QString m_version;
};

} // namespace KELMORA

#endif
