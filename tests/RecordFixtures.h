// SPDX-License-Identifier: MIT
#ifndef EXCITERSETTINGS_TESTS_RECORDFIXTURES_H
#define EXCITERSETTINGS_TESTS_RECORDFIXTURES_H

#include <ATTANTPath.h>
#include <Exciter_Settings.h>
#include <SCU.h>
#include <TGN.h>
#include <WDE.h>

// Complete records shared by several test files.
namespace testfixtures {

using namespace KELMORA;

// ATT1 and ATT4 on, the others off.
inline ATTANTPath CompletePath() {
    ATTANTPath path;
    path.SetATT1(true);
    path.SetATT4(true);
    for (auto off :
         {&ATTANTPath::SetATT2, &ATTANTPath::SetATT3, &ATTANTPath::SetATT5, &ATTANTPath::SetATT6})
        (path.*off)(false);
    return path;
}

inline SCU CompleteSCU() {
    SCU scu;
    scu.SetFrequency(100.5);
    scu.SetFrequencyMinMax(20, 3000);
    scu.SetTransmitTime(12);
    scu.SetATTANTPath(CompletePath());
    return scu;
}

// Everything that Check() requires; the bandwidth range is left unset.
inline TGN CompleteTGN() {
    TGN tgn;
    tgn.SetFrequency(100);
    tgn.SetFrequencyMinMax(10, 1000);
    tgn.SetBandwidth(25);
    tgn.SetPower(12.5);
    tgn.SetLevelSettingsMode(QStringLiteral("auto"));
    tgn.SetReference(QStringLiteral("intern"));
    tgn.SetTGNModulation(QStringLiteral("CW"));
    return tgn;
}

// Everything that Check() requires, with empty lists.
inline WDE CompleteWDE() {
    WDE wde;
    wde.SetFrequency(2.4e9);
    wde.SetBandwidth(20e6);
    wde.SetMode(WDE::MODE_DETX);
    wde.SetEmissiondetectorMode(WDE::EMISSIONDETECTORMODE_NONLOOP);
    wde.SetEmissiondetectorDelay(0.5);
    wde.SetEmissiondetectorAveraging(WDE::EMISSIONDETECTORAVERAGING_MIDDLE);
    wde.SetExciterCount(2);
    wde.SetExciterPulseLength(1e-3);
    wde.SetExciterRXDelay(2e-6);
    wde.SetExciterTXDelay(3e-6);
    return wde;
}

// An example file ("look_through"), loaded.
inline Exciter_Settings Example(const char* name) {
    Exciter_Settings settings;
    settings.LoadXml(QString(EXAMPLES_DIR "/%1.xml").arg(QLatin1String(name)));
    return settings;
}

} // namespace testfixtures

#endif
