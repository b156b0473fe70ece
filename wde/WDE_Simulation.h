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
    enum SimulationType : qint32 { SIMULATIONTYPE_FLIS = 0, SIMULATIONTYPE_PN = 1 };

    WDE_Simulation();
    WDE_Simulation(int index);
    WDE_Simulation(const WDE_Simulation& other);
    WDE_Simulation& operator=(const WDE_Simulation& other);
    ~WDE_Simulation() override;

    static QString GetName();

    using IKMObject::Check;
    // True when the exciter set and the type are set.
    bool HasData() const override;
    // Clears every value, the list, the index and the item name; the version
    // text and the Active flag stay.
    void Reset() override;
    // Throws "WDE_Simulation: Please set ExciterSet", then "...: Please set Type".
    void Check() const override;
    void GetXml(QXmlStreamWriter& writer) const override;
    void ProcessXml(QXmlStreamReader& reader) override;
    const QString& GetVersion() const override;

    // True when any value or list entry is set (Active, index and name aside).
    bool AnyData() const;

    QString GetItemName() { return m_itemName; }
    void SetItemName(const QString& itemName) { m_itemName = itemName; }
    int GetIndex() { return m_index; }
    void SetIndex(int index) { m_index = index; }
    bool GetActive() const { return m_active; }
    void SetActive(bool active) { m_active = active; }
    SimulationType GetType() const { return m_type; }
    void SetType(SimulationType type) { m_type = type; }
    unsigned int GetExciterSet() const;
    void SetExciterSet(unsigned int exciterSet) { m_exciterSet = exciterSet; }
    unsigned int GetPNStartValue() const;
    void SetPNStartValue(unsigned int pnStartValue) { m_pnStartValue = pnStartValue; }
    double GetRelativeCenterFrequency() const { return m_relativeCenterFrequency; }
    void SetRelativeCenterFrequency(double frequency) { m_relativeCenterFrequency = frequency; }
    unsigned int GetChannelCount() const;
    void SetChannelCount(unsigned int channelCount) { m_channelCount = channelCount; }
    double GetHopWidth() const { return m_hopWidth; }
    void SetHopWidth(double hopWidth) { m_hopWidth = hopWidth; }
    QVector<double>& GetRelativeFrequencyList() { return m_relativeFrequencyList; }
    const QVector<double>& GetRelativeFrequencyList() const { return m_relativeFrequencyList; }
    void SetRelativeFrequencyList(const QVector<double>& frequencies) {
        m_relativeFrequencyList = frequencies;
    }
    void AppendRelativeFrequency(const double& frequency);

    // "FLIS" and "PN"; an empty text for any other value.
    QString GetStringForSimulationType(SimulationType type) const;
    // Exact and case-sensitive; -1 for any other text.
    SimulationType GetSimulationTypeForString(const QString& text) const;

protected:
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
