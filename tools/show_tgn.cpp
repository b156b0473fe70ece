// SPDX-License-Identifier: MIT
// Tree form of TGN.
#include "RecordRegistry.h"

#include <ScanParameter.h>
#include <TGN.h>

namespace {

using KELMORA::ScanParameter;
using KELMORA::TGN;

// TGN clears its two integers to this marker itself.
constexpr int kUnsetInt = -111111;

void PrintInteger(tool::TreePrinter& out, const QString& name, int value) {
    out.Integer(name, value, value != kUnsetInt);
}

// The scan parameter belongs to the base library and has no file of its own,
// so it is written here rather than registered.
void PrintScanParameter(const ScanParameter& scan, tool::TreePrinter& out) {
    out.Section(scan.GetObjectName(), [&] {
        out.Double(QStringLiteral("StartFrequency"), scan.GetStartFrequency());
        out.Double(QStringLiteral("StopFrequency"), scan.GetStopFrequency());
        out.Double(QStringLiteral("StepWidth"), scan.GetStepWidth());
        out.Double(QStringLiteral("DwellTime"), scan.GetDwellTime());
    });
}

void PrintTGN(const TGN& tgn, tool::TreePrinter& out) {
    out.Version(tgn);
    out.Range(QStringLiteral("Frequency"), tgn.GetFrequency(), tgn.GetFrequencyMin(),
              tgn.GetFrequencyMax());
    out.Range(QStringLiteral("Bandwidth"), tgn.GetBandwidth(), tgn.GetBandwidthMin(),
              tgn.GetBandwidthMax());
    out.Double(QStringLiteral("Power"), tgn.GetPower());
    out.Text(QStringLiteral("LevelSettingsMode"), tgn.GetLevelSettingsMode());
    out.Text(QStringLiteral("Reference"), tgn.GetReference());
    out.Text(QStringLiteral("TGNModulation"), tgn.GetTGNModulation());
    out.Double(QStringLiteral("Tone"), tgn.GetTone());
    out.Double(QStringLiteral("ToneStop"), tgn.GetToneStop());
    out.Double(QStringLiteral("ToneStart"), tgn.GetToneStart());
    PrintInteger(out, QStringLiteral("AMDepth"), tgn.GetAMDepth());
    out.Flag(QStringLiteral("SweepActive"), tgn.GetSweepActive());
    out.Text(QStringLiteral("SweepSpacing"), tgn.GetSweepSpacing());
    out.Double(QStringLiteral("SweepDwellTime"), tgn.GetSweepDwellTime());
    out.Text(QStringLiteral("FMCoupling"), tgn.GetFMCoupling());
    out.Text(QStringLiteral("FMInput"), tgn.GetFMInput());
    out.Double(QStringLiteral("FMDeviation"), tgn.GetFMDeviation());
    PrintInteger(out, QStringLiteral("NoiseLevel"), tgn.GetNoiseLevel());
    out.Flag(QStringLiteral("IQModulationState"), tgn.GetIQModulationState());
    out.Enum(QStringLiteral("IQModulationSource"), tgn.GetIQModulationSource(),
             tgn.GetStringForIQSource(tgn.GetIQModulationSource()));
    out.Flag(QStringLiteral("BBINState"), tgn.GetBBINState());
    PrintScanParameter(tgn.GetScanParameter(), out);
}

// The values whose texts the reader takes only from a list of the record's.
QStringList TGNChoices(const TGN& tgn, const QString& element) {
    if (element == QLatin1String("LevelSettingsMode"))
        return tgn.GetLevelSettingsModes();
    if (element == QLatin1String("Reference"))
        return tgn.GetReferences();
    if (element == QLatin1String("TGNModulation"))
        return tgn.GetTGNModulations();
    return {};
}

const tool::RegisterRecord<TGN> kRegisterTGN(&PrintTGN, &TGNChoices);

} // namespace
