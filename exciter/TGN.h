#ifndef KELMORA_TGN_H
#define KELMORA_TGN_H

#include <ExciterSettingsExport.h>
#include <IKMObject.h>
#include <MinMax.h>
#include <ScanParameter.h>
#include <ValueMinMax.h>

#include <QString>
#include <QStringList>
#include <QtGlobal>

namespace KELMORA {

// The signal generator: frequency and bandwidth ranges, power, level settings
// mode, reference, modulation with its tone, AM, FM, sweep and noise settings,
// IQ modulation, baseband input and a scan parameter record.
//
// Level settings mode, reference and modulation are texts restricted to the
// record's choice lists; their setters reject anything else, also while
// loading, so a bad value ends the load. The record is complete (and is
// written) once both ranges have a value, the power is set and the three
// restricted texts hold a choice; every other value is optional.
//
// The IQ modulation source starts as ANALOG, and Reset() restores ANALOG, so
// a reset record equals a newly constructed one.
class EXCITERSETTINGS_EXPORT TGN : public IKMObject {
public:
    enum IQSources : qint32 { ANALOG = 0, BASEBAND = 1 };

    TGN();
    TGN(const TGN& other);
    TGN& operator=(const TGN& other);
    ~TGN() override;

    using IKMObject::Check;
    // Both ranges have a value, Power is set and the three restricted texts
    // are not empty.
    bool HasData() const override;
    // Every value back to unset, the three flags to false and the IQ
    // modulation source to ANALOG; the version, the ranges' element names and
    // the choice lists stay.
    void Reset() override;
    // Throws "TGN: Please set <name>!" for the first of Frequency, Bandwidth,
    // Power, LevelSettingsMode, Reference, TGNModulation that is missing.
    void Check() const override;
    // Writes nothing unless HasData(); optional values only when set, the scan
    // parameter only when it has data.
    void GetXml(QXmlStreamWriter& writer) const override;
    // Takes the "Version" attribute (empty when absent), then reads the
    // children without resetting first.
    void ProcessXml(QXmlStreamReader& reader) override;
    const QString& GetVersion() const override;

    // Anything but FMInput, the flags and the IQ modulation source is set
    // (the ranges and the scan parameter count when any of their values is).
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

    double GetBandwidth() const { return m_bandwidth.value; }
    void SetBandwidth(double value) { m_bandwidth.value = value; }
    double GetBandwidthMin() const { return m_bandwidth.minimum; }
    void SetBandwidthMin(double min) { m_bandwidth.minimum = min; }
    double GetBandwidthMax() const { return m_bandwidth.maximum; }
    void SetBandwidthMax(double max) { m_bandwidth.maximum = max; }
    void GetBandwidthMinMax(double& min, double& max) { m_bandwidth.GetMinMax(min, max); }
    MinMax GetBandwidthMinMax() const { return m_bandwidth.GetMinMax(); }
    void SetBandwidthMinMax(const MinMax& range) { m_bandwidth.SetMinMax(range); }
    void SetBandwidthMinMax(double min, double max) { m_bandwidth.SetMinMax(min, max); }

    double GetPower() const { return m_power; }
    void SetPower(double power) { m_power = power; }

    // The restricted texts. A setter given the empty text throws
    // "TGN: Please set <name>!", one given a text outside the choice list
    // (compared exactly) throws "TGN: Unknown <name> '<text>'"; either way the
    // field keeps its value.
    const QString& GetLevelSettingsMode() const { return m_levelSettingsMode; }
    void SetLevelSettingsMode(const QString& mode);
    const QStringList& GetLevelSettingsModes() const { return m_levelSettingsModes; }
    const QString& GetReference() const { return m_reference; }
    void SetReference(const QString& reference);
    const QStringList& GetReferences() const { return m_references; }
    const QString& GetTGNModulation() const { return m_tgnModulation; }
    void SetTGNModulation(const QString& modulation);
    const QStringList& GetTGNModulations() const { return m_tgnModulations; }

    double GetTone() const { return m_tone; }
    void SetTone(double tone) { m_tone = tone; }
    double GetToneStart() const { return m_toneStart; }
    void SetToneStart(double toneStart) { m_toneStart = toneStart; }
    double GetToneStop() const { return m_toneStop; }
    void SetToneStop(double toneStop) { m_toneStop = toneStop; }
    int GetAMDepth() const { return m_amDepth; }
    void SetAMDepth(int depth) { m_amDepth = depth; }
    bool GetSweepActive() const { return m_sweepActive; }
    void SetSweepActive(bool active) { m_sweepActive = active; }
    const QString& GetSweepSpacing() const { return m_sweepSpacing; }
    void SetSweepSpacing(const QString& spacing) { m_sweepSpacing = spacing; }
    double GetSweepDwellTime() const { return m_sweepDwellTime; }
    void SetSweepDwellTime(double dwellTime) { m_sweepDwellTime = dwellTime; }
    const QString& GetFMCoupling() const { return m_fmCoupling; }
    void SetFMCoupling(const QString& coupling) { m_fmCoupling = coupling; }
    const QString& GetFMInput() const { return m_fmInput; }
    void SetFMInput(const QString& input) { m_fmInput = input; }
    double GetFMDeviation() const { return m_fmDeviation; }
    void SetFMDeviation(double deviation) { m_fmDeviation = deviation; }
    int GetNoiseLevel() const { return m_noiseLevel; }
    void SetNoiseLevel(int level) { m_noiseLevel = level; }
    bool GetIQModulationState() const { return m_iqModulationState; }
    void SetIQModulationState(bool state) { m_iqModulationState = state; }
    IQSources GetIQModulationSource() const { return m_iqModulationSource; }
    void SetIQModulationSource(IQSources source) { m_iqModulationSource = source; }
    bool GetBBINState() const { return m_bbinState; }
    void SetBBINState(bool state) { m_bbinState = state; }

    ScanParameter& GetScanParameter() { return m_scanParameter; }
    const ScanParameter& GetScanParameter() const { return m_scanParameter; }
    void SetScanParameter(const ScanParameter& scanParameter) { m_scanParameter = scanParameter; }

    // Only the exact text "ANALOG" gives ANALOG; every other text gives
    // BASEBAND.
    IQSources GetIQSourceForString(const QString& text);
    // ANALOG gives "ANALOG"; every other value gives "BASEBAND".
    QString GetStringForIQSource(IQSources source) const;

protected:
    // Reads the children the record knows; a restricted text goes through its
    // setter. Any other child throws "Unknown Tag '<child>' in 'TGN'".
    void ProcessXmlStartElement(QXmlStreamReader& reader) override;

private:
    // The one validation behind the three restricted setters.
    void SetChoice(QString& field, const QStringList& choices, const QString& elementName,
                   const QString& value);
    // The element name of the first required value that is missing, or a null
    // text when the record is complete.
    QString FirstMissing() const;

    QString m_version;
    ValueMinMax m_frequency;
    ValueMinMax m_bandwidth;
    double m_power;
    QString m_levelSettingsMode;
    QString m_reference;
    QString m_tgnModulation;
    double m_tone;
    double m_toneStop;
    double m_toneStart;
    int m_amDepth;
    bool m_sweepActive;
    QString m_sweepSpacing;
    double m_sweepDwellTime;
    QString m_fmCoupling;
    QString m_fmInput;
    double m_fmDeviation;
    int m_noiseLevel;
    bool m_iqModulationState;
    IQSources m_iqModulationSource = ANALOG;
    bool m_bbinState;
    ScanParameter m_scanParameter;
    QStringList m_levelSettingsModes;
    QStringList m_references;
    QStringList m_tgnModulations;
};

} // namespace KELMORA

#endif
