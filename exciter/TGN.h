// SPDX-License-Identifier: MIT
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
    // \var ANALOG
    // Analog IQ modulation source, written "ANALOG"; the value of a new or reset record.

    // \var BASEBAND
    // Baseband IQ modulation source, written "BASEBAND"; also what any text but "ANALOG" reads as.

    // The source of the IQ modulation, element "IQModulationSource".
    enum IQSources : qint32 { ANALOG = 0, BASEBAND = 1 };

    // A signal generator with every value unset, the flags false and the IQ modulation source
    // ANALOG; version "1.0", object name "TGN".
    TGN();
    // Copies every value, the ranges, the scan parameter and the choice lists.
    TGN(const TGN& other);
    // Assigns what the copy constructor copies.
    TGN& operator=(const TGN& other);
    // Nothing to release.
    ~TGN() override;

    // IKMObject's Check(bool), which runs Check() and reports the result.
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
    // Writes the "TGN" element in the order of docs/format.md: "Frequency", "Bandwidth", "Power",
    // the three choices, the optional tones, AM, sweep, FM and noise values, the IQ and baseband
    // settings and "ScanParameter".
    // Writes nothing unless HasData(); optional values only when set, the scan
    // parameter only when it has data.
    void GetXml(QXmlStreamWriter& writer) const override;
    // Takes the "Version" attribute (empty when absent), then reads the
    // children without resetting first.
    void ProcessXml(QXmlStreamReader& reader) override;
    // The version text, attribute "Version": "1.0" unless read otherwise.
    const QString& GetVersion() const override;

    // Anything but FMInput, the flags and the IQ modulation source is set
    // (the ranges and the scan parameter count when any of their values is).
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

    // The bandwidth, text of element "Bandwidth"; -111111.11 while unset.
    double GetBandwidth() const { return m_bandwidth.value; }
    // Sets the bandwidth (text of "Bandwidth"); -111111.11 makes it unset.
    void SetBandwidth(double value) { m_bandwidth.value = value; }
    // The minimum bandwidth, attribute "Minimum" of "Bandwidth"; -111111.11 while unset.
    double GetBandwidthMin() const { return m_bandwidth.minimum; }
    // Sets the minimum bandwidth (attribute "Minimum" of "Bandwidth").
    void SetBandwidthMin(double min) { m_bandwidth.minimum = min; }
    // The maximum bandwidth, attribute "Maximum" of "Bandwidth"; -111111.11 while unset.
    double GetBandwidthMax() const { return m_bandwidth.maximum; }
    // Sets the maximum bandwidth (attribute "Maximum" of "Bandwidth").
    void SetBandwidthMax(double max) { m_bandwidth.maximum = max; }
    // Stores the minimum and the maximum bandwidth in min and max.
    void GetBandwidthMinMax(double& min, double& max) { m_bandwidth.GetMinMax(min, max); }
    // The minimum and the maximum bandwidth as a pair.
    MinMax GetBandwidthMinMax() const { return m_bandwidth.GetMinMax(); }
    // Sets the minimum and the maximum bandwidth from the pair, without comparing them.
    void SetBandwidthMinMax(const MinMax& range) { m_bandwidth.SetMinMax(range); }
    // Sets the minimum and the maximum bandwidth, without comparing them.
    void SetBandwidthMinMax(double min, double max) { m_bandwidth.SetMinMax(min, max); }

    // The power, element "Power" (two decimals); -111111.11 while unset.
    double GetPower() const { return m_power; }
    // Sets the power (element "Power"); -111111.11 makes it unset.
    void SetPower(double power) { m_power = power; }

    // The restricted texts. A setter given the empty text throws
    // "TGN: Please set <name>!", one given a text outside the choice list
    // (compared exactly) throws "TGN: Unknown <name> '<text>'"; either way the
    // field keeps its value.
    // The level settings mode, element "LevelSettingsMode": "auto" or "fix"; empty while unset.
    const QString& GetLevelSettingsMode() const { return m_levelSettingsMode; }
    // Sets the level settings mode (element "LevelSettingsMode"); throws "TGN: Please set
    // LevelSettingsMode!" or "TGN: Unknown LevelSettingsMode '<text>'".
    void SetLevelSettingsMode(const QString& mode);
    // The choices of the level settings mode: "auto", "fix".
    const QStringList& GetLevelSettingsModes() const { return m_levelSettingsModes; }
    // The reference, element "Reference": "intern" or "extern"; empty while unset.
    const QString& GetReference() const { return m_reference; }
    // Sets the reference (element "Reference"); throws "TGN: Please set Reference!" or "TGN:
    // Unknown Reference '<text>'".
    void SetReference(const QString& reference);
    // The choices of the reference: "intern", "extern".
    const QStringList& GetReferences() const { return m_references; }
    // The modulation, element "TGNModulation"; empty while unset.
    const QString& GetTGNModulation() const { return m_tgnModulation; }
    // Sets the modulation (element "TGNModulation"); throws "TGN: Please set TGNModulation!" or
    // "TGN: Unknown TGNModulation '<text>'".
    void SetTGNModulation(const QString& modulation);
    // The choices of the modulation: "CW", "FM int", "AM int", "FM AFsweep", "AM AFsweep", "FM
    // ext", "AM ext", "NOISE".
    const QStringList& GetTGNModulations() const { return m_tgnModulations; }

    // The modulation tone, element "Tone" (two decimals, written when set); -111111.11 while unset.
    double GetTone() const { return m_tone; }
    // Sets the modulation tone (element "Tone"); -111111.11 makes it unset.
    void SetTone(double tone) { m_tone = tone; }
    // The start tone, element "ToneStart" (two decimals, written when set); -111111.11 while unset.
    double GetToneStart() const { return m_toneStart; }
    // Sets the start tone (element "ToneStart").
    void SetToneStart(double toneStart) { m_toneStart = toneStart; }
    // The stop tone, element "ToneStop" (two decimals, written when set, before "ToneStart");
    // -111111.11 while unset.
    double GetToneStop() const { return m_toneStop; }
    // Sets the stop tone (element "ToneStop").
    void SetToneStop(double toneStop) { m_toneStop = toneStop; }
    // The AM depth, element "AMDepth" (integer, written when set); -111111 while unset.
    int GetAMDepth() const { return m_amDepth; }
    // Sets the AM depth (element "AMDepth"); -111111 makes it unset.
    void SetAMDepth(int depth) { m_amDepth = depth; }
    // Whether the sweep is on, element "SweepActive"; false after construction and Reset().
    bool GetSweepActive() const { return m_sweepActive; }
    // Switches the sweep on or off (element "SweepActive").
    void SetSweepActive(bool active) { m_sweepActive = active; }
    // The sweep spacing, element "SweepSpacing", a free text written when not empty; empty while
    // unset.
    const QString& GetSweepSpacing() const { return m_sweepSpacing; }
    // Sets the sweep spacing (element "SweepSpacing"), unchecked.
    void SetSweepSpacing(const QString& spacing) { m_sweepSpacing = spacing; }
    // The dwell time of the sweep, element "SweepDwellTime" (six digits, written when set);
    // -111111.11 while unset.
    double GetSweepDwellTime() const { return m_sweepDwellTime; }
    // Sets the dwell time of the sweep (element "SweepDwellTime").
    void SetSweepDwellTime(double dwellTime) { m_sweepDwellTime = dwellTime; }
    // The FM coupling, element "FMCoupling", a free text written when not empty; empty while unset.
    const QString& GetFMCoupling() const { return m_fmCoupling; }
    // Sets the FM coupling (element "FMCoupling"), unchecked.
    void SetFMCoupling(const QString& coupling) { m_fmCoupling = coupling; }
    // The FM input, element "FMInput", a free text written when not empty; empty while unset.
    const QString& GetFMInput() const { return m_fmInput; }
    // Sets the FM input (element "FMInput"), unchecked.
    void SetFMInput(const QString& input) { m_fmInput = input; }
    // The FM deviation, element "FMDeviation" (six digits, written when set); -111111.11 while
    // unset.
    double GetFMDeviation() const { return m_fmDeviation; }
    // Sets the FM deviation (element "FMDeviation"); saved with six significant digits.
    void SetFMDeviation(double deviation) { m_fmDeviation = deviation; }
    // The noise level, element "NoiseLevel" (integer, written when set); -111111 while unset.
    int GetNoiseLevel() const { return m_noiseLevel; }
    // Sets the noise level (element "NoiseLevel"); -111111 makes it unset.
    void SetNoiseLevel(int level) { m_noiseLevel = level; }
    // Whether IQ modulation is on, element "IQModulationState"; false after construction and
    // Reset().
    bool GetIQModulationState() const { return m_iqModulationState; }
    // Switches IQ modulation on or off (element "IQModulationState").
    void SetIQModulationState(bool state) { m_iqModulationState = state; }
    // The IQ modulation source, element "IQModulationSource"; ANALOG after construction and
    // Reset().
    IQSources GetIQModulationSource() const { return m_iqModulationSource; }
    // Sets the IQ modulation source (element "IQModulationSource"); a value other than ANALOG is
    // written "BASEBAND".
    void SetIQModulationSource(IQSources source) { m_iqModulationSource = source; }
    // Whether the baseband input is on, element "BBINState"; false after construction and Reset().
    bool GetBBINState() const { return m_bbinState; }
    // Switches the baseband input on or off (element "BBINState").
    void SetBBINState(bool state) { m_bbinState = state; }

    // The scan parameter, element "ScanParameter" (written when start, stop and step are set), to
    // change in place.
    ScanParameter& GetScanParameter() { return m_scanParameter; }
    // The scan parameter, element "ScanParameter".
    const ScanParameter& GetScanParameter() const { return m_scanParameter; }
    // Replaces the scan parameter with a copy.
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
