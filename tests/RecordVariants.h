// SPDX-License-Identifier: MIT
#ifndef EXCITERSETTINGS_TESTS_RECORDVARIANTS_H
#define EXCITERSETTINGS_TESTS_RECORDVARIANTS_H

// Records of every kind filled through their setters, in numbered variants:
// optional parts in the odd variants, unset values in every seventh, the
// enumerations and flags cycling through their values, lists of every
// length up to four, and the numbers and texts taken from a Values source.
// The schema tests take them from fixed tables, the writer of the documents
// that the Qt 5 and Qt 6 builds compare draws them. Nothing here needs
// GoogleTest.

#include <Exciter_Settings.h>

#include <QString>

#include <string>
#include <vector>

namespace recordvariants {

using namespace KELMORA;

// The numbers and texts of variant i; `salt` tells the fields apart.
class Values {
public:
    virtual ~Values() = default;
    virtual double Number(int i, int salt) const = 0;
    virtual int Integer(int i, int salt) const = 0;
    virtual unsigned int Count(int i, int salt) const = 0;
    virtual QString Text(int i, int salt) const = 0;
};

inline bool Optional(int i) {
    return i % 2 == 1;
}
inline bool Unset(int i) {
    return i % 7 == 0;
}
inline int Pick(int i, int salt, int count) {
    return (i / 2 + salt) % count;
}
// The number of texts of an enumeration, asked of its converter.
template <class Record, class E> int TextCount(QString (Record::*toText)(E) const) {
    int count = 0;
    while (!(Record().*toText)(static_cast<E>(count)).isEmpty())
        ++count;
    return count;
}
// A value of the enumeration; Choose: unset every seventh variant.
template <class Record, class E> E Any(int i, QString (Record::*toText)(E) const) {
    return static_cast<E>(Pick(i, 0, TextCount(toText)));
}
template <class Record, class E> E Choose(int i, QString (Record::*toText)(E) const) {
    return Unset(i) ? static_cast<E>(-1) : Any(i, toText);
}

inline ATTANTPath Path(int i) {
    ATTANTPath path;
    int salt = 0;
    for (auto set : {&ATTANTPath::SetATT1, &ATTANTPath::SetATT2, &ATTANTPath::SetATT3,
                     &ATTANTPath::SetATT4, &ATTANTPath::SetATT5, &ATTANTPath::SetATT6})
        (path.*set)(Pick(i, salt++, 2) == 1);
    return path;
}

inline SCU MakeSCU(const Values& v, int i) {
    SCU scu;
    scu.SetFrequency(v.Number(i, 0));
    if (Optional(i))
        scu.SetFrequencyMinMax(v.Number(i, 1), v.Number(i, 2));
    scu.SetTransmitTime(v.Number(i, 3));
    scu.SetATTANTPath(Path(i));
    return scu;
}

inline TGN MakeTGN(const Values& v, int i) {
    TGN tgn;
    tgn.SetFrequency(v.Number(i, 0));
    tgn.SetBandwidth(v.Number(i, 1));
    if (Optional(i)) {
        tgn.SetFrequencyMinMax(v.Number(i, 2), v.Number(i, 3));
        if (i % 4 == 1)
            tgn.SetBandwidthMax(v.Number(i, 4));
        else
            tgn.SetBandwidthMinMax(v.Number(i, 15), v.Number(i, 4));
    }
    tgn.SetPower(v.Number(i, 5));
    tgn.SetLevelSettingsMode(tgn.GetLevelSettingsModes().at(Pick(i, 0, 2)));
    tgn.SetReference(tgn.GetReferences().at(Pick(i, 1, 2)));
    tgn.SetTGNModulation(tgn.GetTGNModulations().at(Pick(i, 0, tgn.GetTGNModulations().size())));
    tgn.SetSweepActive(Pick(i, 0, 2) == 1);
    tgn.SetIQModulationState(Pick(i, 1, 2) == 1);
    tgn.SetIQModulationSource(static_cast<TGN::IQSources>(Pick(i, 0, 2)));
    tgn.SetBBINState(Pick(i, 0, 2) == 0);
    if (Optional(i)) {
        tgn.SetTone(v.Number(i, 6));
        tgn.SetToneStop(v.Number(i, 7));
        tgn.SetToneStart(v.Number(i, 8));
        tgn.SetAMDepth(v.Integer(i, 0));
        tgn.SetSweepSpacing(v.Text(i, 0));
        tgn.SetSweepDwellTime(v.Number(i, 9));
        tgn.SetFMCoupling(v.Text(i, 1));
        tgn.SetFMInput(v.Text(i, 2));
        tgn.SetFMDeviation(v.Number(i, 10));
        tgn.SetNoiseLevel(v.Integer(i, 1));
        ScanParameter& scan = tgn.GetScanParameter();
        scan.SetStartFrequency(v.Number(i, 11));
        scan.SetStopFrequency(v.Number(i, 12));
        scan.SetStepWidth(v.Number(i, 13));
        if (i % 4 == 1)
            scan.SetDwellTime(v.Number(i, 14));
    }
    return tgn;
}

// An item's index (none every third variant) and, in the odd ones, its name.
template <class Item> Item MakeItem(const Values& v, int i) {
    Item item;
    if (i % 3 != 0)
        item.SetIndex(v.Integer(i, 2));
    if (Optional(i))
        item.SetItemName(v.Text(i, 3));
    return item;
}

inline WDE_Exciter MakeExciter(const Values& v, int i) {
    auto item = MakeItem<WDE_Exciter>(v, i);
    item.SetSignalType(Choose(i, &WDE_Exciter::GetStringForSignalType));
    if (!Unset(i)) {
        item.SetSymbolRate(v.Number(i, 1));
        item.SetLevel(v.Number(i, 2));
    }
    if (Optional(i))
        item.SetFrequencyShift(v.Number(i, 3));
    return item;
}

inline WDE_Rasterdetector MakeRaster(const Values& v, int i) {
    auto item = MakeItem<WDE_Rasterdetector>(v, i);
    if (!Unset(i)) {
        item.SetChannelStep(v.Number(i, 0));
        item.SetMinimumFixedFrequencyLength(v.Number(i, 1));
    }
    item.SetExicterSet(v.Count(i, 0));
    item.SetActive(Pick(i, 0, 2) == 1);
    item.SetThresholdMode(Choose(i, &WDE_Rasterdetector::GetStringForThresholdMode));
    if (Optional(i)) {
        item.SetAbsoluteThresholdValue(v.Number(i, 2));
        item.SetRelativeThresholdValue(v.Number(i, 3));
        item.SetRelativeThresholdAvgTime(Any(i, &WDE_Rasterdetector::GetStringForAvgTime));
        item.SetAmplifier(Any(i, &WDE_Rasterdetector::GetStringForAmplifier));
    }
    // Lists of 0 to 4 values: every length that Base64 pads differently.
    for (int k = 0; k < Pick(i, 0, 5); ++k)
        item.AppendFrequency(v.Number(i, k + 4));
    return item;
}

inline WDE_Simulation MakeSimulation(const Values& v, int i) {
    auto item = MakeItem<WDE_Simulation>(v, i);
    item.SetActive(Pick(i, 1, 2) == 1);
    item.SetType(Choose(i, &WDE_Simulation::GetStringForSimulationType));
    item.SetExciterSet(v.Count(i, 0));
    item.SetPNStartValue(v.Count(i, 1));
    item.SetChannelCount(v.Count(i, 2));
    if (!Unset(i)) {
        item.SetRelativeCenterFrequency(v.Number(i, 0));
        item.SetHopWidth(v.Number(i, 1));
    }
    for (int k = 0; Optional(i) && k <= Pick(i, 0, 3); ++k)
        item.AppendRelativeFrequency(v.Number(i, k + 2));
    return item;
}

inline WDE_Singlechanneldetector MakeSingle(const Values& v, int i) {
    auto item = MakeItem<WDE_Singlechanneldetector>(v, i);
    if (!Unset(i)) {
        item.SetFrequency(v.Number(i, 0));
        item.SetBandwidth(v.Number(i, 1));
        item.SetMinimumFixedFrequencyLength(v.Number(i, 2));
        item.SetAbsoluteThresholdValue(v.Number(i, 3));
    }
    item.SetExicterSet(v.Count(i, 0));
    item.SetActive(Pick(i, 0, 2) == 0);
    return item;
}

// Complete (as Exciter_Settings needs it) or with every seventh variant unset.
inline WDE MakeWDE(const Values& v, int i, bool complete) {
    WDE wde;
    const int u = complete && Unset(i) ? i + 2 : i;
    if (!Unset(u)) {
        wde.SetFrequency(v.Number(u, 0));
        wde.SetBandwidth(v.Number(u, 1));
        wde.SetEmissiondetectorDelay(v.Number(u, 2));
        wde.SetExciterPulseLength(v.Number(u, 3));
        wde.SetExciterRXDelay(v.Number(u, 4));
        wde.SetExciterTXDelay(v.Number(u, 5));
        wde.SetGuardTime(v.Number(u, 6));
        wde.SetExciterCount(complete ? 2 : v.Count(u, 0));
    }
    wde.SetMode(Choose(u, &WDE::GetStringForMode));
    wde.SetEmissiondetectorMode(Choose(u, &WDE::GetStringForEmissiondetectorMode));
    wde.SetEmissiondetectorAveraging(Choose(u, &WDE::GetStringForEmissiondetectorAveraging));
    if (Optional(i)) {
        for (int k = 0; k <= Pick(i, 0, 2); ++k) {
            wde.GetSinglechanneldetectorList().append(MakeSingle(v, i + 2 * k));
            wde.GetRasterdetectorList().append(MakeRaster(v, i + 2 * k));
            wde.GetExciterList().append(MakeExciter(v, i + 2 * k));
            wde.GetSimulationList().append(MakeSimulation(v, i + 2 * k));
        }
        wde.SetAttenuation(Any(i, &WDE::GetStringForAttenuationType));
        wde.SetAttenuationMode(Any(i, &WDE::GetStringForAttenuationModeType));
        wde.SetAttenuationValue(v.Number(i, 7));
        wde.SetGainCtrl(Any(i, &WDE::GetStringForGainCtrlType));
        wde.SetAGCValue(Any(i, &WDE::GetStringForAGCValueType));
        wde.SetMGCValue(v.Number(i, 8));
    }
    return wde;
}

inline Exciter_Settings MakeSettings(const Values& v, int i) {
    Exciter_Settings settings;
    settings.SetExciterMode(settings.GetExciterModes().at(Pick(i, 0, 12)));
    settings.SetAutostart(Pick(i, 0, 2) == 1);
    settings.SetTGN(MakeTGN(v, i));
    settings.SetSCU(MakeSCU(v, i));
    settings.SetWDE(MakeWDE(v, i, true));
    return settings;
}

// Variant i of each record kind, named "<kind>-<i>".
template <class Use> void ForEachRecord(const Values& v, int i, Use use) {
    const QString n = QString::number(i);
    use(QStringLiteral("settings-") + n, MakeSettings(v, i));
    use(QStringLiteral("tgn-") + n, MakeTGN(v, i));
    use(QStringLiteral("scu-") + n, MakeSCU(v, i));
    use(QStringLiteral("path-") + n, Path(i));
    use(QStringLiteral("wde-") + n, MakeWDE(v, i, false));
    use(QStringLiteral("exciter-") + n, MakeExciter(v, i));
    use(QStringLiteral("raster-") + n, MakeRaster(v, i));
    use(QStringLiteral("simulation-") + n, MakeSimulation(v, i));
    use(QStringLiteral("single-") + n, MakeSingle(v, i));
}

// The texts between the '|' of `joined`, empty ones included.
inline std::vector<std::string> Split(const char* joined) {
    std::vector<std::string> texts(1);
    for (const char* c = joined; *c; ++c) {
        if (*c == '|')
            texts.emplace_back();
        else
            texts.back() += *c;
    }
    return texts;
}

// Numbers as people and other programs write them besides the plain forms:
// blanks, signs, words, other digits, the extremes, values out of range.
inline const std::vector<std::string>& OddNumberTexts() {
    static const std::vector<std::string> texts = Split(
        "| 1|1 |   |1 2|+1|.5|5.|1e|1e+|e5|-|--1|1.5.5|1,5|0x10|true|nan|NaN|inf|-inf|1e400|-1e400|"
        "1e-400|0e-400|-0|0.000|00.10|00012.5000|1E5|1e05|1.5E+3|4.9e-324|4.9406564584124654e-324|"
        "2.4703282292062328e-324|1.7976931348623159e308|"
        "123456789012345678901234567890123456789012345678901234567890|"
        "123456789012345678901234567890.5|"
        "0.1000000000000000055511151231257827021181583404541015625|\xd9\xa1|\xef\xbc\x91|0|007|"
        "-1|-7|-111111|-111111.11|2147483647|2147483648|-2147483648|-2147483649|4294967295|"
        "4294967296|99999999999");
    return texts;
}

} // namespace recordvariants

#endif
