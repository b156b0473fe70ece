// SPDX-License-Identifier: MIT
// The records of the exciter: ATTANTPath, SCU, TGN and Exciter_Settings.
#include "RecordFixtures.h"
#include "TestSupport.h"

#include <Exciter_Settings.h>

using namespace KELMORA;
using namespace testfixtures;
using testsupport::CheckMessage;
using testsupport::ThrownMessage;
using testsupport::WrittenXml;

TEST(ATTANTPathRecord, WritesSixSwitchesInOrderOnlyWhenComplete) {
    ATTANTPath path = CompletePath();
    EXPECT_EQ(WrittenXml(path),
              "<ATTANTPath><ATT1>true</ATT1><ATT2>false</ATT2><ATT3>false</ATT3>"
              "<ATT4>true</ATT4><ATT5>false</ATT5><ATT6>false</ATT6></ATTANTPath>");

    // Each switch, the last included, left alone unset: nothing is written
    // and Check() names it.
    void (ATTANTPath::*const sets[])(bool) = {&ATTANTPath::SetATT1, &ATTANTPath::SetATT2,
                                              &ATTANTPath::SetATT3, &ATTANTPath::SetATT4,
                                              &ATTANTPath::SetATT5, &ATTANTPath::SetATT6};
    for (int unset = 0; unset < 6; ++unset) {
        path.Reset();
        for (int position = 0; position < 6; ++position)
            if (position != unset)
                (path.*sets[position])(true);
        EXPECT_TRUE(path.AnyData());
        EXPECT_FALSE(path.HasData());
        EXPECT_TRUE(WrittenXml(path).isEmpty());
        EXPECT_EQ(CheckMessage(path), QString("ATTANTPath: Please set ATT%1!").arg(unset + 1));
    }
}

TEST(ATTANTPathRecord, ReadsTextsVerbatimAndRejectsUnknownOrMiscasedChildren) {
    const auto path = testsupport::ReadFrom<ATTANTPath>(
        "<ATTANTPath><ATT1>True</ATT1><ATT2>1</ATT2><ATT3>true</ATT3>"
        "<ATT4>false</ATT4><ATT5>x</ATT5><ATT6>false</ATT6></ATTANTPath>");
    EXPECT_TRUE(path.HasData());
    EXPECT_FALSE(path.GetATT1() || path.GetATT2());
    EXPECT_TRUE(path.GetATT3());
    EXPECT_TRUE(WrittenXml(path).startsWith(
        "<ATTANTPath><ATT1>True</ATT1><ATT2>1</ATT2><ATT3>true</ATT3>"));

    ATTANTPath partial;
    EXPECT_EQ(
        ThrownMessage([&] {
            partial.SetXmlString(
                "<ATTANTPath><ATT1>true</ATT1><ATT7>true</ATT7><ATT2>true</ATT2></ATTANTPath>");
        }),
        "Unknown Tag 'ATT7' in 'ATTANTPath'");
    EXPECT_TRUE(partial.GetATT1());
    EXPECT_FALSE(partial.GetATT2());
    EXPECT_EQ(
        ThrownMessage([&] { partial.SetXmlString("<ATTANTPath><att1>true</att1></ATTANTPath>"); }),
        "Unknown Tag 'att1' in 'ATTANTPath'");
}

TEST(SCURecord, WritesVersionFrequencyTwoDecimalTransmitTimeAndPath) {
    SCU scu = CompleteSCU();
    // The frequency element as the range record itself writes it.
    const QString written = WrittenXml(scu);
    EXPECT_EQ(written, "<SCU Version=\"1.0\">" +
                           WrittenXml(ValueMinMax("Frequency", 100.5, 20, 3000)) +
                           "<TransmitTime>12.00</TransmitTime>" +
                           WrittenXml(testfixtures::CompletePath()) + "</SCU>");
}

TEST(SCURecord, CompletenessCheckOrderAndAnyData) {
    SCU scu;
    EXPECT_EQ(CheckMessage(scu), "SCU: Please set Frequency!");
    // Bounds alone do not make the frequency set, nor does a partial path.
    scu.SetFrequencyMinMax(5, 2);
    scu.GetATTANTPath().SetATT1(true);
    EXPECT_FALSE(scu.AnyData());
    scu.SetFrequency(1.5);
    EXPECT_TRUE(scu.AnyData());
    EXPECT_EQ(CheckMessage(scu), "SCU: Please set TransmitTime!");
    scu.SetTransmitTime(0.5);
    EXPECT_FALSE(scu.HasData());
    EXPECT_TRUE(WrittenXml(scu).isEmpty());
    EXPECT_EQ(CheckMessage(scu), "ATTANTPath: Please set ATT2!");
}

TEST(SCURecord, ReadingKeepsEarlierValuesAndResetKeepsVersion) {
    SCU scu = CompleteSCU();
    EXPECT_EQ(ThrownMessage([&] {
                  scu.SetXmlString("<SCU Version=\"3\"><TransmitTime>abc"
                                   "</TransmitTime><Power>1</Power></SCU>");
              }),
              "Unknown Tag 'Power' in 'SCU'");
    EXPECT_EQ(scu.GetTransmitTime(), 0);
    EXPECT_TRUE(scu.HasData()); // 0 counts as set
    scu.Reset();
    EXPECT_FALSE(scu.AnyData() || scu.GetATTANTPath().AnyData());
    EXPECT_EQ(scu.GetVersion(), "3");
}

namespace {

// The start tag and both ranges, as the range records themselves write them,
// followed by the values that are always written.
const QString kRequired = "<TGN Version=\"1.0\">" +
                          WrittenXml(ValueMinMax("Frequency", 100, 10, 1000)) +
                          WrittenXml(ValueMinMax("Bandwidth", 25, -111111.11, -111111.11)) +
                          "<Power>12.50</Power><LevelSettingsMode>auto</LevelSettingsMode>"
                          "<Reference>intern</Reference><TGNModulation>CW</TGNModulation>";

} // namespace

TEST(TGNRecord, ChoiceListsAndValidatedSetters) {
    TGN tgn;
    EXPECT_EQ(tgn.GetLevelSettingsModes().join(QLatin1Char('|')), "auto|fix");
    EXPECT_EQ(tgn.GetReferences().join(QLatin1Char('|')), "intern|extern");
    EXPECT_EQ(tgn.GetTGNModulations().join(QLatin1Char('|')),
              "CW|FM int|AM int|FM AFsweep|AM AFsweep|FM ext|AM ext|NOISE");

    // Each setter checks against its own list (failed reads show that the value stays).
    EXPECT_EQ(ThrownMessage([&] { tgn.SetLevelSettingsMode("FIX"); }),
              "TGN: Unknown LevelSettingsMode 'FIX'");
    EXPECT_EQ(ThrownMessage([&] { tgn.SetReference("auto"); }), "TGN: Unknown Reference 'auto'");
    EXPECT_EQ(ThrownMessage([&] { tgn.SetReference(QString()); }), "TGN: Please set Reference!");
    EXPECT_EQ(ThrownMessage([&] { tgn.SetTGNModulation("intern"); }),
              "TGN: Unknown TGNModulation 'intern'");
}

TEST(TGNRecord, WritesOptionalValuesOnlyWhenSetInFixedOrderAndFormats) {
    TGN tgn = CompleteTGN();
    tgn.GetScanParameter().SetStartFrequency(1); // incomplete: not written
    EXPECT_EQ(WrittenXml(tgn), kRequired + "<SweepActive>false</SweepActive>"
                                           "<IQModulationState>false</IQModulationState>"
                                           "<IQModulationSource>ANALOG</IQModulationSource>"
                                           "<BBINState>false</BBINState></TGN>");

    tgn.GetScanParameter().SetStopFrequency(2);
    tgn.GetScanParameter().SetStepWidth(0.5);
    const QString optional =
        "<Tone>440.00</Tone><ToneStop>-3.46</ToneStop><ToneStart>1.00</ToneStart>"
        "<AMDepth>-7</AMDepth><SweepActive>true</SweepActive><SweepSpacing>LIN</SweepSpacing>"
        "<SweepDwellTime>1.23457e+06</SweepDwellTime><FMCoupling>AC</FMCoupling>"
        "<FMInput>EXT1</FMInput><FMDeviation>1.23457</FMDeviation><NoiseLevel>12</NoiseLevel>"
        "<IQModulationState>true</IQModulationState>"
        "<IQModulationSource>BASEBAND</IQModulationSource><BBINState>true</BBINState>";
    // Read with more digits than are written: each value keeps its own format.
    tgn.SetXmlString(QString("<TGN Version=\"1.0\">%1</TGN>")
                         .arg(QString(optional)
                                  .replace("-3.46", "-3.456")
                                  .replace("1.23457e+06", "1234567")
                                  .replace("1.23457<", "1.2345678<")));
    EXPECT_EQ(WrittenXml(tgn),
              kRequired + optional + WrittenXml(tgn.GetScanParameter()) + "</TGN>");
}

TEST(TGNRecord, CheckOrderHasDataAndAnyData) {
    TGN tgn;
    EXPECT_FALSE(tgn.AnyData());
    const std::pair<const char*, std::function<void()>> steps[] = {
        {"Frequency", [&] { tgn.SetFrequency(1); }},
        {"Bandwidth", [&] { tgn.SetBandwidth(1); }},
        {"Power", [&] { tgn.SetPower(1); }},
        {"LevelSettingsMode", [&] { tgn.SetLevelSettingsMode("auto"); }},
        {"Reference", [&] { tgn.SetReference("intern"); }},
        {"TGNModulation", [&] { tgn.SetTGNModulation("NOISE"); }},
    };
    for (const auto& [missing, fill] : steps) {
        EXPECT_FALSE(tgn.HasData());
        EXPECT_TRUE(WrittenXml(tgn).isEmpty()); // incomplete, though it has some data
        EXPECT_EQ(CheckMessage(tgn), QString("TGN: Please set %1!").arg(missing));
        fill();
    }
    EXPECT_NO_THROW(tgn.Check());

    TGN unconsulted;
    unconsulted.SetFMInput("EXT1");
    unconsulted.SetSweepActive(true);
    unconsulted.SetIQModulationSource(TGN::BASEBAND);
    EXPECT_FALSE(unconsulted.AnyData());
    unconsulted.SetBandwidthMax(5); // a range counts with any of its values
    EXPECT_TRUE(unconsulted.AnyData());
}

TEST(TGNRecord, ReadingConvertersAndReset) {
    TGN tgn;
    tgn.SetXmlString(
        "<TGN><Power>abc</Power><NoiseLevel>12</NoiseLevel><SweepActive>True</SweepActive>"
        "<IQModulationState>1</IQModulationState><BBINState>true</BBINState>"
        "<IQModulationSource>analog</IQModulationSource></TGN>");
    EXPECT_EQ(tgn.GetPower(), 0);
    EXPECT_EQ(tgn.GetNoiseLevel(), 12);
    EXPECT_FALSE(tgn.GetSweepActive() || tgn.GetIQModulationState());
    EXPECT_TRUE(tgn.GetBBINState());
    EXPECT_EQ(tgn.GetIQModulationSource(), TGN::BASEBAND); // every text but "ANALOG"
    EXPECT_TRUE(tgn.GetVersion().isEmpty());

    // What was read before a failure stays; nothing after it is read.
    tgn.SetTGNModulation("FM int");
    const std::pair<const char*, const char*> failures[] = {
        {"<Tone>440</Tone><TGNModulation>FM  int</TGNModulation><Power>3</Power>",
         "TGN: Unknown TGNModulation 'FM  int'"},
        {"<ToneStop>1</ToneStop><tone>2</tone>", "Unknown Tag 'tone' in 'TGN'"},
    };
    for (const auto& failure : failures) {
        const QString document = QString("<TGN>%1</TGN>").arg(QLatin1String(failure.first));
        EXPECT_EQ(ThrownMessage([&] { tgn.SetXmlString(document); }),
                  QLatin1String(failure.second));
    }
    EXPECT_EQ(tgn.GetTone(), 440);
    EXPECT_EQ(tgn.GetToneStop(), 1);
    EXPECT_EQ(tgn.GetTGNModulation(), "FM int");
    EXPECT_EQ(tgn.GetPower(), 0);
    EXPECT_EQ(tgn.GetStringForIQSource(static_cast<TGN::IQSources>(7)), "BASEBAND");

    // Reset keeps the version text and brings back the IQ defaults.
    tgn.SetXmlString("<TGN Version=\"7\"/>");
    tgn.Reset();
    EXPECT_FALSE(tgn.AnyData() || tgn.GetBBINState());
    EXPECT_EQ(tgn.GetIQModulationSource(), TGN::ANALOG);
    EXPECT_EQ(tgn.GetVersion(), "7");
}

namespace {

Exciter_Settings Settings(const QString& mode) {
    Exciter_Settings settings;
    settings.SetExciterMode(mode);
    settings.SetTGN(CompleteTGN());
    settings.SetSCU(CompleteSCU());
    settings.SetWDE(CompleteWDE());
    return settings;
}

QString Element(const QString& children) {
    return QString("<Exciter_Settings>%1</Exciter_Settings>").arg(children);
}

} // namespace

TEST(ExciterSettingsRecord, ModeNamesConversionsAndTheirFailures) {
    Exciter_Settings settings;
    EXPECT_TRUE(settings.GetAutostart());
    EXPECT_EQ(CheckMessage(settings), "Exciter_Settings: Please set ExciterMode");
    EXPECT_EQ(settings.GetExciterModes(),
              (QStringList{"Continuous", "Deception", "Trap", "Follower", "Fast Sequential",
                           "Fast Sequential Parallel", "Look Through", "Look Through Parallel",
                           "Sweep", "Wideband", "Barrage", "Broadcast"}));
    settings.SetExciterMode("Look Through");
    const std::pair<std::function<void()>, const char*> failures[] = {
        {[&] { settings.SetExciterMode("continuous"); }, "Unknown ExciterMode 'continuous'"},
        {[&] { settings.SetExciterMode(QString()); }, "Exciter_Settings: Please set ExciterMode"},
        {[&] { settings.SetExciterMode(static_cast<Exciter_Settings::ExciterModeType>(12)); },
         "Exciter_Settings: Invalid TaskType '12'"},
        {[&] {
             settings.ExciterModeTypeToName(static_cast<Exciter_Settings::ExciterModeType>(12));
         },
         "Exciter_Settings: Invalid ValueType '12'"},
        {[&] { settings.NameToExciterModeType("Sweeps"); },
         "Exciter_Settings: Invalid ValueType 'Sweeps'"},
    };
    for (const auto& [call, message] : failures)
        EXPECT_EQ(ThrownMessage(call), QString::fromLatin1(message));
    EXPECT_EQ(settings.GetExciterMode(), 6); // failed setters keep the mode

    for (int mode = -1; mode <= 12; ++mode) {
        const auto type = static_cast<Exciter_Settings::ExciterModeType>(mode);
        EXPECT_EQ(Exciter_Settings::IsValidWDE(type), (mode >= 2 && mode <= 7) || mode == 11)
            << mode;
        EXPECT_EQ(Exciter_Settings::IsValidScan(type), mode == 8) << mode;
    }
}

TEST(ExciterSettingsRecord, EveryModeReadsBackAndWDETakesPartOnlyInWDEModes) {
    // Every mode, the highest included, works in a complete record: set by
    // its name, written (with WDE only in the modes that use it), read back
    // and checked.
    const QStringList modes = Exciter_Settings().GetExciterModes();
    for (int value = 0; value < modes.size(); ++value) {
        const QString xml = WrittenXml(Settings(modes[value]));
        const auto back = testsupport::ReadFrom<Exciter_Settings>(xml);
        EXPECT_EQ(back.GetExciterMode(), value);
        EXPECT_EQ(WrittenXml(back), xml);
        EXPECT_NO_THROW(back.Check()) << value;
        EXPECT_EQ(xml.contains("<WDE "), Exciter_Settings::IsValidWDE(back.GetExciterMode()));
    }

    Exciter_Settings settings = Settings("Trap");
    settings.GetWDE().SetMode(static_cast<WDE::Mode>(-1));
    EXPECT_FALSE(settings.HasData());
    EXPECT_TRUE(WrittenXml(settings).isEmpty());
    EXPECT_EQ(CheckMessage(settings), "WDE:Please set Mode!");
    // Back in a mode without WDE, the incomplete WDE no longer matters, and
    // it is still there when a WDE mode comes back.
    settings.SetExciterMode("Barrage");
    EXPECT_NO_THROW(settings.Check());
    settings.SetExciterMode("Broadcast");
    EXPECT_EQ(CheckMessage(settings), "WDE:Please set Mode!");
    settings.SetExciterMode("Barrage");

    // Nested failures pass through unchanged, in the order TGN, SCU.
    settings.GetSCU().SetTransmitTime(-111111.11);
    EXPECT_EQ(CheckMessage(settings), "SCU: Please set TransmitTime!");
    settings.GetTGN().Reset();
    EXPECT_EQ(CheckMessage(settings), "TGN: Please set Frequency!");
}

TEST(ExciterSettingsRecord, ReadingModeAutostartAndWDEOrder) {
    // A WDE before the mode is passed over: the mode is still unset then.
    const QString xml = WrittenXml(Settings("Look Through"));
    const QString mode = "<ExciterMode>Look Through</ExciterMode>";
    const QString end = "</Exciter_Settings>";
    const QString modeLast = QString(xml).remove(mode).replace(end, mode + end);
    EXPECT_FALSE(testsupport::ReadFrom<Exciter_Settings>(modeLast).GetWDE().AnyData());

    Exciter_Settings settings;
    for (const auto& [text, expected] :
         {std::pair<const char*, bool>{"false", false}, {"False", true}, {"0", true}, {"", true}}) {
        settings.SetAutostart(!expected);
        settings.SetXmlString(
            Element(QString("<Autostart>%1</Autostart>").arg(QLatin1String(text))));
        EXPECT_EQ(settings.GetAutostart(), expected) << text;
    }

    const std::pair<const char*, const char*> failures[] = {
        {"<Autostart>false</Autostart><ExciterMode>Jamming</ExciterMode>",
         "Exciter_Settings: Invalid TaskType '-1'"},
        {"<Mode/>", "Unknown Tag 'Mode' in 'Exciter_Settings'"},
    };
    for (const auto& failure : failures) {
        const QString document = Element(QLatin1String(failure.first));
        EXPECT_EQ(ThrownMessage([&] { settings.SetXmlString(document); }),
                  QLatin1String(failure.second));
    }
    EXPECT_FALSE(settings.GetAutostart()); // read before the failure, kept
}

TEST(ExciterSettingsRecord, CopiesAreDeepAndResetRestoresDefaults) {
    Exciter_Settings source = Settings("Trap");
    source.SetAutostart(false);
    Exciter_Settings copy(source);
    EXPECT_EQ(WrittenXml(copy), WrittenXml(source));
    copy.GetTGN().SetPower(5);
    EXPECT_EQ(source.GetTGN().GetPower(), 12.5);

    source.Reset();
    EXPECT_TRUE(source.GetAutostart());
    EXPECT_EQ(source.GetExciterMode(), -1);
    EXPECT_FALSE(source.AnyData() || source.GetWDE().AnyData());
    EXPECT_EQ(source.GetVersion(), "1.0");
    source.SetSCU(CompleteSCU());
    EXPECT_TRUE(source.AnyData()); // a complete nested record counts
}
