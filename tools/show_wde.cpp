// SPDX-License-Identifier: MIT
// Tree form of WDE, the detection and exciter equipment.
#include "RecordRegistry.h"

#include <WDE.h>

namespace {

using KELMORA::WDE;

// The record offers the values of its frequency, bandwidth and MGC ranges
// only.
void PrintWDE(const WDE& wde, tool::TreePrinter& out) {
    out.Version(wde);
    out.Double(QStringLiteral("Frequency"), wde.GetFrequency());
    out.Double(QStringLiteral("Bandwidth"), wde.GetBandwidth());
    out.Enum(QStringLiteral("Mode"), wde.GetMode(), wde.GetStringForMode(wde.GetMode()));
    out.Enum(QStringLiteral("EmissiondetectorMode"), wde.GetEmissiondetectorMode(),
             wde.GetStringForEmissiondetectorMode(wde.GetEmissiondetectorMode()));
    out.Double(QStringLiteral("EmissiondetectorDelay"), wde.GetEmissiondetectorDelay());
    out.Enum(QStringLiteral("EmissiondetectorAveraging"), wde.GetEmissiondetectorAveraging(),
             wde.GetStringForEmissiondetectorAveraging(wde.GetEmissiondetectorAveraging()));
    out.List(WDE::GetSinglechanneldetectorListName(), wde.GetSinglechanneldetectorList());
    out.List(WDE::GetRasterdetectorListName(), wde.GetRasterdetectorList());
    out.Unsigned(QStringLiteral("ExciterCount"), wde.GetExciterCount());
    out.Double(QStringLiteral("ExciterPulseLength"), wde.GetExciterPulseLength());
    out.Double(QStringLiteral("ExciterRXDelay"), wde.GetExciterRXDelay());
    out.Double(QStringLiteral("ExciterTXDelay"), wde.GetExciterTXDelay());
    out.List(WDE::GetExciterListName(), wde.GetExciterList());
    out.Double(QStringLiteral("GuardTime"), wde.GetGuardTime());
    out.List(WDE::GetSimulationListName(), wde.GetSimulationList());
    out.Enum(WDE::GetAttenuationName(), wde.GetAttenuation(),
             wde.GetStringForAttenuationType(wde.GetAttenuation()));
    out.Enum(WDE::GetAttenuationModeName(), wde.GetAttenuationMode(),
             wde.GetStringForAttenuationModeType(wde.GetAttenuationMode()));
    out.Double(WDE::GetAttenuationValueName(), wde.GetAttenuationValue());
    out.Enum(WDE::GetGainControlName(), wde.GetGainCtrl(),
             wde.GetStringForGainCtrlType(wde.GetGainCtrl()));
    out.Enum(WDE::GetAGCValueName(), wde.GetAGCValue(),
             wde.GetStringForAGCValueType(wde.GetAGCValue()));
    out.Double(WDE::GetMGCValueName(), wde.GetMGCValue());
}

const tool::RegisterRecord<WDE> kRegisterWDE(&PrintWDE);

} // namespace
