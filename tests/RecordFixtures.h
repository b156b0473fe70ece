#ifndef EXCITERSETTINGS_TESTS_RECORDFIXTURES_H
#define EXCITERSETTINGS_TESTS_RECORDFIXTURES_H

#include <ATTANTPath.h>
#include <WDE.h>

// Complete records shared by several test files.
namespace testfixtures {

using namespace KELMORA;

// ATT1 and ATT4 on, the others off.
inline ATTANTPath CompletePath() {
    ATTANTPath path;
    path.SetATT1(true);
    path.SetATT2(false);
    path.SetATT3(false);
    path.SetATT4(true);
    path.SetATT5(false);
    path.SetATT6(false);
    return path;
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

} // namespace testfixtures

#endif
