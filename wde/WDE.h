#ifndef KELMORA_WDE_H
#define KELMORA_WDE_H

#include <ExciterSettingsExport.h>
#include <IKMObject.h>
#include <ValueMinMax.h>
#include <WDE_Exciter.h>
#include <WDE_Rasterdetector.h>
#include <WDE_Simulation.h>
#include <WDE_Singlechanneldetector.h>

#include <QString>
#include <QVector>

namespace KELMORA {

// The detection and exciter equipment settings: operating mode, emission
// detector, exciter count and timing, guard time, attenuation, gain control,
// frequency and bandwidth (each with a range), and four ordered item lists.
//
// Unlike the exciter records, WDE always writes its element, passes over
// child elements it does not know, and words a failed check as its object
// name followed by a fixed text ("WDE:Please set Mode!").
//
// Reading: the list wrappers ("ExciterList" and the others) are transparent:
// their children are dispatched as if they stood in the WDE element, so an
// item is filed by its own element name whatever wrapper encloses it. Items
// are constructed with their position in their list as index and appended
// after they have been read. Wrappers nested in wrappers are followed up to
// IKMObject::MaxProcessXmlNesting levels; deeper nesting throws KMException.
// Nothing is reset before reading, so reading twice doubles the lists.
class EXCITERSETTINGS_EXPORT WDE : public IKMObject {
public:
    enum Mode : qint32 {
        MODE_OFF = 0,
        MODE_DET = 1,
        MODE_DETX = 2,
        MODE_EX = 3,
        MODE_SIM = 4,
        MODE_SDET = 5,
    };
    enum EmissiondetectorMode : qint32 {
        EMISSIONDETECTORMODE_LOOP = 0,
        EMISSIONDETECTORMODE_NONLOOP = 1,
    };
    enum EmissiondetectorAveraging : qint32 {
        EMISSIONDETECTORAVERAGING_NONE = 0,
        EMISSIONDETECTORAVERAGING_SHORT = 1,
        EMISSIONDETECTORAVERAGING_MIDDLE = 2,
        EMISSIONDETECTORAVERAGING_LONG = 3,
    };
    enum AttenuationType : qint32 {
        ATTENUATION_ON = 0,
        ATTENUATION_OFF = 1,
    };
    enum AttenuationModeType : qint32 {
        ATTENUATIONMODE_LOWNOISE = 0,
        ATTENUATIONMODE_NORMAL = 1,
        ATTENUATIONMODE_LOWDISTORT = 2,
    };
    enum GainCtrlType : qint32 {
        GAINCTRL_AGC = 0,
        GAINCTRL_MGC = 1,
    };
    enum AGCValueType : qint32 {
        AGCVALUE_SLOW = 0,
        AGCVALUE_DEFAULT = 1,
        AGCVALUE_FAST = 2,
    };

    WDE();
    WDE(const WDE& other);
    WDE& operator=(const WDE& other);
    ~WDE() override;

    static QString GetName();
    static QString GetSinglechanneldetectorListName();
    static QString GetRasterdetectorListName();
    static QString GetExciterListName();
    static QString GetSimulationListName();
    static QString GetAttenuationName();
    static QString GetAttenuationModeName();
    static QString GetAttenuationValueName();
    static QString GetGainControlName();
    static QString GetAGCValueName();
    static QString GetMGCValueName();

    using IKMObject::Check;
    bool HasData() const override;
    void Reset() override;
    void Check() const override;
    void GetXml(QXmlStreamWriter& writer) const override;
    void ProcessXml(QXmlStreamReader& reader) override;
    const QString& GetVersion() const override;

    bool AnyData() const;

    double GetFrequency() const { return m_frequency.value; }
    void SetFrequency(double frequency) { m_frequency.value = frequency; }
    double GetBandwidth() const { return m_bandwidth.value; }
    void SetBandwidth(double bandwidth) { m_bandwidth.value = bandwidth; }
    Mode GetMode() const { return m_mode; }
    void SetMode(Mode mode) { m_mode = mode; }
    EmissiondetectorMode GetEmissiondetectorMode() const { return m_emissiondetectorMode; }
    void SetEmissiondetectorMode(EmissiondetectorMode mode) { m_emissiondetectorMode = mode; }
    double GetEmissiondetectorDelay() const { return m_emissiondetectorDelay; }
    void SetEmissiondetectorDelay(double delay) { m_emissiondetectorDelay = delay; }
    EmissiondetectorAveraging GetEmissiondetectorAveraging() const {
        return m_emissiondetectorAveraging;
    }
    void SetEmissiondetectorAveraging(EmissiondetectorAveraging averaging) {
        m_emissiondetectorAveraging = averaging;
    }
    QVector<WDE_Singlechanneldetector>& GetSinglechanneldetectorList() {
        return m_singlechanneldetectorList;
    }
    const QVector<WDE_Singlechanneldetector>& GetSinglechanneldetectorList() const {
        return m_singlechanneldetectorList;
    }
    void SetSingleChanneldetectorList(const QVector<WDE_Singlechanneldetector>& list) {
        m_singlechanneldetectorList = list;
    }
    QVector<WDE_Rasterdetector>& GetRasterdetectorList() { return m_rasterdetectorList; }
    const QVector<WDE_Rasterdetector>& GetRasterdetectorList() const {
        return m_rasterdetectorList;
    }
    void SetRasterdetectorList(const QVector<WDE_Rasterdetector>& list) {
        m_rasterdetectorList = list;
    }
    unsigned int GetExciterCount() const { return m_exciterCount; }
    void SetExciterCount(unsigned int count) { m_exciterCount = count; }
    double GetExciterPulseLength() const { return m_exciterPulseLength; }
    void SetExciterPulseLength(double length) { m_exciterPulseLength = length; }
    double GetExciterRXDelay() const { return m_exciterRXDelay; }
    void SetExciterRXDelay(double delay) { m_exciterRXDelay = delay; }
    double GetExciterTXDelay() const { return m_exciterTXDelay; }
    void SetExciterTXDelay(double delay) { m_exciterTXDelay = delay; }
    QVector<WDE_Exciter>& GetExciterList() { return m_exciterList; }
    const QVector<WDE_Exciter>& GetExciterList() const { return m_exciterList; }
    void SetExciterList(const QVector<WDE_Exciter>& list) { m_exciterList = list; }
    double GetGuardTime() const { return m_guardTime; }
    void SetGuardTime(double guardTime) { m_guardTime = guardTime; }
    QVector<WDE_Simulation>& GetSimulationList() { return m_simulationList; }
    const QVector<WDE_Simulation>& GetSimulationList() const { return m_simulationList; }
    void SetSimulationList(const QVector<WDE_Simulation>& list) { m_simulationList = list; }
    AttenuationType GetAttenuation() const { return m_attenuation; }
    void SetAttenuation(AttenuationType attenuation) { m_attenuation = attenuation; }
    AttenuationModeType GetAttenuationMode() const { return m_attenuationMode; }
    void SetAttenuationMode(const AttenuationModeType& mode) { m_attenuationMode = mode; }
    double GetAttenuationValue() const { return m_attenuationValue; }
    void SetAttenuationValue(double value) { m_attenuationValue = value; }
    GainCtrlType GetGainCtrl() const { return m_gainControl; }
    void SetGainCtrl(GainCtrlType gainControl) { m_gainControl = gainControl; }
    AGCValueType GetAGCValue() const { return m_agcValue; }
    void SetAGCValue(AGCValueType value) { m_agcValue = value; }
    double GetMGCValue() const { return m_mgcValue.value; }
    void SetMGCValue(double value) { m_mgcValue.value = value; }

    // Converters between the enumerations and their display texts (the XML
    // form) and, for two of them, the instrument's SKPI words. Exact and
    // case-sensitive; an unknown text gives -1, a value outside the table an
    // empty QString. They use no state of the record.
    QString GetStringForMode(Mode mode) const;
    Mode GetModeForString(const QString& text) const;
    QString GetStringForEmissiondetectorMode(EmissiondetectorMode mode) const;
    EmissiondetectorMode GetEmissiondetectorModeForString(const QString& text) const;
    EmissiondetectorMode GetEmissiondetectorModeForSKPIString(const QString& text) const;
    QString GetStringForEmissiondetectorAveraging(EmissiondetectorAveraging averaging) const;
    EmissiondetectorAveraging GetEmissiondetectorAveragingForString(const QString& text) const;
    QString GetSKPIStringForEmissiondetectorAveraging(EmissiondetectorAveraging averaging) const;
    EmissiondetectorAveraging GetEmissiondetectorAveragingForSKPIString(const QString& text) const;
    QString GetStringForAttenuationType(AttenuationType attenuation) const;
    AttenuationType GetAttenuationTypeForString(const QString& text) const;
    QString GetStringForAttenuationModeType(AttenuationModeType mode) const;
    AttenuationModeType GetAttenuationModeTypeForString(const QString& text) const;
    QString GetStringForGainCtrlType(GainCtrlType gainControl) const;
    GainCtrlType GetGainCtrlTypeForString(const QString& text) const;
    QString GetStringForAGCValueType(AGCValueType value) const;
    AGCValueType GetAGCValueTypeForString(const QString& text) const;

protected:
    void ProcessXmlStartElement(QXmlStreamReader& reader) override;

private:
    // Each returns false when the child is not one of its elements.
    bool ReadValueElement(QStringView child, QXmlStreamReader& reader);
    bool ReadListElement(QStringView child, QXmlStreamReader& reader);
    void WriteOptionalValues(QXmlStreamWriter& writer) const;

    QString m_version;
    ValueMinMax m_frequency;
    ValueMinMax m_bandwidth;
    Mode m_mode;
    EmissiondetectorMode m_emissiondetectorMode;
    double m_emissiondetectorDelay;
    EmissiondetectorAveraging m_emissiondetectorAveraging;
    QVector<WDE_Singlechanneldetector> m_singlechanneldetectorList;
    QVector<WDE_Rasterdetector> m_rasterdetectorList;
    unsigned int m_exciterCount;
    double m_exciterPulseLength;
    double m_exciterRXDelay;
    double m_exciterTXDelay;
    QVector<WDE_Exciter> m_exciterList;
    double m_guardTime;
    QVector<WDE_Simulation> m_simulationList;
    AttenuationType m_attenuation;
    AttenuationModeType m_attenuationMode;
    double m_attenuationValue;
    GainCtrlType m_gainControl;
    AGCValueType m_agcValue;
    ValueMinMax m_mgcValue;
};

} // namespace KELMORA

#endif
