// SPDX-License-Identifier: MIT
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
    // The operating mode of the equipment, element "Mode"; -1 is unset (written as the empty text).
    enum Mode : qint32 {
        // "OFF".
        MODE_OFF = 0,
        // "DET".
        MODE_DET = 1,
        // "DETX".
        MODE_DETX = 2,
        // "EX".
        MODE_EX = 3,
        // "SIM".
        MODE_SIM = 4,
        // "SDET".
        MODE_SDET = 5,
    };
    // The emission detector mode, element "EmissiondetectorMode"; the instrument word is the same
    // text. -1 is unset.
    enum EmissiondetectorMode : qint32 {
        // "LOOP".
        EMISSIONDETECTORMODE_LOOP = 0,
        // "NONLoop".
        EMISSIONDETECTORMODE_NONLOOP = 1,
    };
    // The averaging of the emission detector, element "EmissiondetectorAveraging"; -1 is unset.
    enum EmissiondetectorAveraging : qint32 {
        // "NONE" (instrument word "NONE").
        EMISSIONDETECTORAVERAGING_NONE = 0,
        // "SHORT" (instrument word "SHORt").
        EMISSIONDETECTORAVERAGING_SHORT = 1,
        // "MIDDLE" (instrument word "MIDDLe").
        EMISSIONDETECTORAVERAGING_MIDDLE = 2,
        // "LONG" (instrument word "LONG").
        EMISSIONDETECTORAVERAGING_LONG = 3,
    };
    // The attenuation, element "Attenuation" (written when set); -1 is unset.
    enum AttenuationType : qint32 {
        // "ON".
        ATTENUATION_ON = 0,
        // "OFF".
        ATTENUATION_OFF = 1,
    };
    // The attenuation mode, element "AttenuationMode" (written when set); -1 is unset.
    enum AttenuationModeType : qint32 {
        // "LOWNOISE".
        ATTENUATIONMODE_LOWNOISE = 0,
        // "NORMAL".
        ATTENUATIONMODE_NORMAL = 1,
        // "LOWDISTORT".
        ATTENUATIONMODE_LOWDISTORT = 2,
    };
    // The gain control, element "GainControl" (written when set); -1 is unset.
    enum GainCtrlType : qint32 {
        // "AGC": automatic gain control.
        GAINCTRL_AGC = 0,
        // "MGC": manual gain control.
        GAINCTRL_MGC = 1,
    };
    // The speed of the automatic gain control, element "AGCValue" (written when set); -1 is unset.
    enum AGCValueType : qint32 {
        // "SLOW".
        AGCVALUE_SLOW = 0,
        // "DEFAULT".
        AGCVALUE_DEFAULT = 1,
        // "FAST".
        AGCVALUE_FAST = 2,
    };

    // Equipment settings with every value unset and empty lists; version "0.1", object name "WDE".
    WDE();
    // Copies every value and the four lists (which share their storage until one side changes).
    WDE(const WDE& other);
    // Assigns what the copy constructor copies.
    WDE& operator=(const WDE& other);
    // Releases the items.
    ~WDE() override;

    // "WDE", the element and object name.
    static QString GetName();
    // "SinglechanneldetectorList", the wrapper of the single-channel detectors.
    static QString GetSinglechanneldetectorListName();
    // "RasterdetectorList", the wrapper of the raster detectors.
    static QString GetRasterdetectorListName();
    // "ExciterList", the wrapper of the exciters.
    static QString GetExciterListName();
    // "SimulationList", the wrapper of the simulations.
    static QString GetSimulationListName();
    // "Attenuation", an element name.
    static QString GetAttenuationName();
    // "AttenuationMode", an element name.
    static QString GetAttenuationModeName();
    // "AttenuationValue", an element name.
    static QString GetAttenuationValueName();
    // "GainControl", an element name.
    static QString GetGainControlName();
    // "AGCValue", an element name.
    static QString GetAGCValueName();
    // "MGCValue", an element name.
    static QString GetMGCValueName();

    // IKMObject's Check(bool), which runs Check() and reports the result.
    using IKMObject::Check;
    // Frequency and bandwidth values, mode, emission detector mode, delay and averaging, exciter
    // count, pulse length and TX and RX delays are set; the lists may be empty.
    bool HasData() const override;
    // Every value back to unset and the four lists emptied; the version stays.
    void Reset() override;
    // Throws KMException "Frequency: Please set Value!" or "Bandwidth: Please set Value!" while a
    // value is unset, then "WDE:Please set Mode!", "WDE:Please set EmissiondetectorMode!",
    // "WDE:Please set !EmissiondetectorDelay", "WDE:Please set EmissiondetectorAveraging!",
    // "WDE:Please set ExciterCount!", "WDE:Please set ExciterPulseLength!", "WDE:Please set
    // ExciterTXDelay!", "WDE:Please set ExicterRXDelay!" for the first missing setting (texts as
    // they stand). The items are not checked.
    void Check() const override;
    // Always writes the "WDE" element, unset values included, in the order of docs/format.md; a
    // list only when it holds items, inside its wrapper.
    void GetXml(QXmlStreamWriter& writer) const override;
    // Takes the "Version" attribute (empty when absent), then reads the children without resetting
    // first; unknown children are passed over, enumeration texts outside their table read as -1.
    // Throws only what the XML reader or an item throws.
    void ProcessXml(QXmlStreamReader& reader) override;
    // The version text, attribute "Version": "0.1" unless read otherwise.
    const QString& GetVersion() const override;

    // Frequency or bandwidth value, mode, any emission detector value, exciter count or timing,
    // guard time is set, or a list holds items; attenuation and gain settings do not count.
    bool AnyData() const;

    // The frequency, text of element "Frequency"; -111111.11 while unset (written as the empty
    // text).
    double GetFrequency() const { return m_frequency.value; }
    // Sets the frequency (text of "Frequency"); its range stays.
    void SetFrequency(double frequency) { m_frequency.value = frequency; }
    // The bandwidth, text of element "Bandwidth"; -111111.11 while unset.
    double GetBandwidth() const { return m_bandwidth.value; }
    // Sets the bandwidth (text of "Bandwidth"); its range stays.
    void SetBandwidth(double bandwidth) { m_bandwidth.value = bandwidth; }
    // The operating mode, element "Mode"; -1 while unset.
    Mode GetMode() const { return m_mode; }
    // Sets the operating mode (element "Mode"), unchecked: a value outside the table is written as
    // the empty text.
    void SetMode(Mode mode) { m_mode = mode; }
    // The emission detector mode, element "EmissiondetectorMode"; -1 while unset.
    EmissiondetectorMode GetEmissiondetectorMode() const { return m_emissiondetectorMode; }
    // Sets the emission detector mode (element "EmissiondetectorMode"), unchecked.
    void SetEmissiondetectorMode(EmissiondetectorMode mode) { m_emissiondetectorMode = mode; }
    // The emission detector delay, element "EmissiondetectorDelay" (six digits); -111111.11 while
    // unset (written -111111).
    double GetEmissiondetectorDelay() const { return m_emissiondetectorDelay; }
    // Sets the emission detector delay (element "EmissiondetectorDelay").
    void SetEmissiondetectorDelay(double delay) { m_emissiondetectorDelay = delay; }
    // The emission detector averaging, element "EmissiondetectorAveraging"; -1 while unset.
    EmissiondetectorAveraging GetEmissiondetectorAveraging() const {
        return m_emissiondetectorAveraging;
    }
    // Sets the emission detector averaging (element "EmissiondetectorAveraging"), unchecked.
    void SetEmissiondetectorAveraging(EmissiondetectorAveraging averaging) {
        m_emissiondetectorAveraging = averaging;
    }
    // The single-channel detectors, items of "SinglechanneldetectorList", to change in place.
    QVector<WDE_Singlechanneldetector>& GetSinglechanneldetectorList() {
        return m_singlechanneldetectorList;
    }
    // The single-channel detectors, items of "SinglechanneldetectorList".
    const QVector<WDE_Singlechanneldetector>& GetSinglechanneldetectorList() const {
        return m_singlechanneldetectorList;
    }
    // Replaces the single-channel detectors; their indexes are kept as they are.
    void SetSingleChanneldetectorList(const QVector<WDE_Singlechanneldetector>& list) {
        m_singlechanneldetectorList = list;
    }
    // The raster detectors, items of "RasterdetectorList", to change in place.
    QVector<WDE_Rasterdetector>& GetRasterdetectorList() { return m_rasterdetectorList; }
    // The raster detectors, items of "RasterdetectorList".
    const QVector<WDE_Rasterdetector>& GetRasterdetectorList() const {
        return m_rasterdetectorList;
    }
    // Replaces the raster detectors.
    void SetRasterdetectorList(const QVector<WDE_Rasterdetector>& list) {
        m_rasterdetectorList = list;
    }
    // The number of exciters, element "ExciterCount", not tied to the exciter list; 4294967295
    // while unset.
    unsigned int GetExciterCount() const { return m_exciterCount; }
    // Sets the number of exciters (element "ExciterCount").
    void SetExciterCount(unsigned int count) { m_exciterCount = count; }
    // The exciter pulse length, element "ExciterPulseLength" (six digits); -111111.11 while unset.
    double GetExciterPulseLength() const { return m_exciterPulseLength; }
    // Sets the exciter pulse length (element "ExciterPulseLength").
    void SetExciterPulseLength(double length) { m_exciterPulseLength = length; }
    // The exciter receive delay, element "ExciterRXDelay" (six digits); -111111.11 while unset.
    double GetExciterRXDelay() const { return m_exciterRXDelay; }
    // Sets the exciter receive delay (element "ExciterRXDelay").
    void SetExciterRXDelay(double delay) { m_exciterRXDelay = delay; }
    // The exciter transmit delay, element "ExciterTXDelay" (six digits); -111111.11 while unset.
    double GetExciterTXDelay() const { return m_exciterTXDelay; }
    // Sets the exciter transmit delay (element "ExciterTXDelay").
    void SetExciterTXDelay(double delay) { m_exciterTXDelay = delay; }
    // The exciters, items of "ExciterList", to change in place.
    QVector<WDE_Exciter>& GetExciterList() { return m_exciterList; }
    // The exciters, items of "ExciterList".
    const QVector<WDE_Exciter>& GetExciterList() const { return m_exciterList; }
    // Replaces the exciters.
    void SetExciterList(const QVector<WDE_Exciter>& list) { m_exciterList = list; }
    // The guard time, element "GuardTime" (six digits); -111111.11 while unset.
    double GetGuardTime() const { return m_guardTime; }
    // Sets the guard time (element "GuardTime").
    void SetGuardTime(double guardTime) { m_guardTime = guardTime; }
    // The simulations, items of "SimulationList", to change in place.
    QVector<WDE_Simulation>& GetSimulationList() { return m_simulationList; }
    // The simulations, items of "SimulationList".
    const QVector<WDE_Simulation>& GetSimulationList() const { return m_simulationList; }
    // Replaces the simulations.
    void SetSimulationList(const QVector<WDE_Simulation>& list) { m_simulationList = list; }
    // The attenuation, element "Attenuation" (written when set); -1 while unset.
    AttenuationType GetAttenuation() const { return m_attenuation; }
    // Sets the attenuation (element "Attenuation"), unchecked.
    void SetAttenuation(AttenuationType attenuation) { m_attenuation = attenuation; }
    // The attenuation mode, element "AttenuationMode" (written when set); -1 while unset.
    AttenuationModeType GetAttenuationMode() const { return m_attenuationMode; }
    // Sets the attenuation mode (element "AttenuationMode"), unchecked.
    void SetAttenuationMode(const AttenuationModeType& mode) { m_attenuationMode = mode; }
    // The attenuation value, element "AttenuationValue" (six digits, written when set); -111111.11
    // while unset.
    double GetAttenuationValue() const { return m_attenuationValue; }
    // Sets the attenuation value (element "AttenuationValue").
    void SetAttenuationValue(double value) { m_attenuationValue = value; }
    // The gain control, element "GainControl" (written when set); -1 while unset.
    GainCtrlType GetGainCtrl() const { return m_gainControl; }
    // Sets the gain control (element "GainControl"), unchecked.
    void SetGainCtrl(GainCtrlType gainControl) { m_gainControl = gainControl; }
    // The automatic gain control speed, element "AGCValue" (written when set); -1 while unset.
    AGCValueType GetAGCValue() const { return m_agcValue; }
    // Sets the automatic gain control speed (element "AGCValue"), unchecked.
    void SetAGCValue(AGCValueType value) { m_agcValue = value; }
    // The manual gain control value, element "MGCValue" (six digits, written unless exactly
    // -111111.11); -111111.11 while unset.
    double GetMGCValue() const { return m_mgcValue.value; }
    // Sets the manual gain control value (element "MGCValue").
    void SetMGCValue(double value) { m_mgcValue.value = value; }

    // Converters between the enumerations and their display texts (the XML
    // form) and, for two of them, the instrument's SKPI words. Exact and
    // case-sensitive; an unknown text gives -1, a value outside the table an
    // empty QString. They use no state of the record.
    // The text of a mode ("OFF" to "SDET"); empty for -1 and any other value outside the table.
    QString GetStringForMode(Mode mode) const;
    // The mode of a text, exact and case-sensitive; -1 for any other text.
    Mode GetModeForString(const QString& text) const;
    // The text of an emission detector mode; empty outside the table.
    QString GetStringForEmissiondetectorMode(EmissiondetectorMode mode) const;
    // The emission detector mode of a text; -1 for any other text.
    EmissiondetectorMode GetEmissiondetectorModeForString(const QString& text) const;
    // The emission detector mode of an instrument word ("LOOP", "NONLoop"); -1 for any other.
    EmissiondetectorMode GetEmissiondetectorModeForSKPIString(const QString& text) const;
    // The text of an averaging ("NONE", "SHORT", "MIDDLE", "LONG"); empty outside the table.
    QString GetStringForEmissiondetectorAveraging(EmissiondetectorAveraging averaging) const;
    // The averaging of a text; -1 for any other text.
    EmissiondetectorAveraging GetEmissiondetectorAveragingForString(const QString& text) const;
    // The instrument word of an averaging ("NONE", "SHORt", "MIDDLe", "LONG"); empty outside the
    // table.
    QString GetSKPIStringForEmissiondetectorAveraging(EmissiondetectorAveraging averaging) const;
    // The averaging of an instrument word; -1 for any other, "SHORT" included.
    EmissiondetectorAveraging GetEmissiondetectorAveragingForSKPIString(const QString& text) const;
    // The text of an attenuation ("ON", "OFF"); empty outside the table.
    QString GetStringForAttenuationType(AttenuationType attenuation) const;
    // The attenuation of a text; -1 for any other text.
    AttenuationType GetAttenuationTypeForString(const QString& text) const;
    // The text of an attenuation mode; empty outside the table.
    QString GetStringForAttenuationModeType(AttenuationModeType mode) const;
    // The attenuation mode of a text; -1 for any other text.
    AttenuationModeType GetAttenuationModeTypeForString(const QString& text) const;
    // The text of a gain control ("AGC", "MGC"); empty outside the table.
    QString GetStringForGainCtrlType(GainCtrlType gainControl) const;
    // The gain control of a text; -1 for any other text.
    GainCtrlType GetGainCtrlTypeForString(const QString& text) const;
    // The text of an AGC speed ("SLOW", "DEFAULT", "FAST"); empty outside the table.
    QString GetStringForAGCValueType(AGCValueType value) const;
    // The AGC speed of a text; -1 for any other text.
    AGCValueType GetAGCValueTypeForString(const QString& text) const;

protected:
    // Reads one child: a value, an item (appended with its position as index unless it carries
    // "Index"), or a list wrapper whose children are read as the record's own. Any other child is
    // left for the element loop to pass over.
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
