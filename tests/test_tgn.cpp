// SPDX-License-Identifier: MIT
#include "RecordFixtures.h"
#include "TestSupport.h"

#include <TGN.h>

using namespace KELMORA;
using testfixtures::CompleteTGN;
using testsupport::CheckMessage;
using testsupport::ThrownMessage;
using testsupport::WrittenXml;

namespace {

// The start tag and both ranges, as the range records themselves write them,
// followed by the values that are always written.
const QString kRequired =
    QStringLiteral("<TGN Version=\"1.0\">") +
    WrittenXml(ValueMinMax(QStringLiteral("Frequency"), 100, 10, 1000)) +
    WrittenXml(ValueMinMax(QStringLiteral("Bandwidth"), 25, -111111.11, -111111.11)) +
    QStringLiteral("<Power>12.50</Power><LevelSettingsMode>auto</LevelSettingsMode>"
                   "<Reference>intern</Reference><TGNModulation>CW</TGNModulation>");

} // namespace

TEST(TGNRecord, ChoiceListsAndValidatedSetters) {
    TGN tgn;
    EXPECT_EQ(tgn.GetLevelSettingsModes().join(QLatin1Char('|')), QStringLiteral("auto|fix"));
    EXPECT_EQ(tgn.GetReferences().join(QLatin1Char('|')), QStringLiteral("intern|extern"));
    EXPECT_EQ(tgn.GetTGNModulations().join(QLatin1Char('|')),
              QStringLiteral("CW|FM int|AM int|FM AFsweep|AM AFsweep|FM ext|AM ext|NOISE"));

    // Each setter checks against its own list (failed reads show that the value stays).
    EXPECT_EQ(ThrownMessage([&] { tgn.SetLevelSettingsMode(QStringLiteral("FIX")); }),
              QStringLiteral("TGN: Unknown LevelSettingsMode 'FIX'"));
    EXPECT_EQ(ThrownMessage([&] { tgn.SetReference(QStringLiteral("auto")); }),
              QStringLiteral("TGN: Unknown Reference 'auto'"));
    EXPECT_EQ(ThrownMessage([&] { tgn.SetReference(QString()); }),
              QStringLiteral("TGN: Please set Reference!"));
    EXPECT_EQ(ThrownMessage([&] { tgn.SetTGNModulation(QStringLiteral("intern")); }),
              QStringLiteral("TGN: Unknown TGNModulation 'intern'"));
}

TEST(TGNRecord, WritesOptionalValuesOnlyWhenSetInFixedOrderAndFormats) {
    TGN tgn = CompleteTGN();
    tgn.GetScanParameter().SetStartFrequency(1); // incomplete: not written
    EXPECT_EQ(WrittenXml(tgn),
              kRequired + QStringLiteral("<SweepActive>false</SweepActive>"
                                         "<IQModulationState>false</IQModulationState>"
                                         "<IQModulationSource>ANALOG</IQModulationSource>"
                                         "<BBINState>false</BBINState></TGN>"));

    tgn.GetScanParameter().SetStopFrequency(2);
    tgn.GetScanParameter().SetStepWidth(0.5);
    const QString optional = QStringLiteral(
        "<Tone>440.00</Tone><ToneStop>-3.46</ToneStop><ToneStart>1.00</ToneStart>"
        "<AMDepth>-7</AMDepth><SweepActive>true</SweepActive><SweepSpacing>LIN</SweepSpacing>"
        "<SweepDwellTime>1.23457e+06</SweepDwellTime><FMCoupling>AC</FMCoupling>"
        "<FMInput>EXT1</FMInput><FMDeviation>1.23457</FMDeviation><NoiseLevel>12</NoiseLevel>"
        "<IQModulationState>true</IQModulationState>"
        "<IQModulationSource>BASEBAND</IQModulationSource><BBINState>true</BBINState>");
    // Read with more digits than are written: each value keeps its own format.
    tgn.SetXmlString(
        QStringLiteral("<TGN Version=\"1.0\">%1</TGN>")
            .arg(QString(optional)
                     .replace(QStringLiteral("-3.46"), QStringLiteral("-3.456"))
                     .replace(QStringLiteral("1.23457e+06"), QStringLiteral("1234567"))
                     .replace(QStringLiteral("1.23457<"), QStringLiteral("1.2345678<"))));
    EXPECT_EQ(WrittenXml(tgn),
              kRequired + optional + WrittenXml(tgn.GetScanParameter()) + QStringLiteral("</TGN>"));
}

TEST(TGNRecord, CheckOrderHasDataAndAnyData) {
    TGN tgn;
    EXPECT_FALSE(tgn.AnyData());
    const std::pair<const char*, std::function<void()>> steps[] = {
        {"Frequency", [&] { tgn.SetFrequency(1); }},
        {"Bandwidth", [&] { tgn.SetBandwidth(1); }},
        {"Power", [&] { tgn.SetPower(1); }},
        {"LevelSettingsMode", [&] { tgn.SetLevelSettingsMode(QStringLiteral("auto")); }},
        {"Reference", [&] { tgn.SetReference(QStringLiteral("intern")); }},
        {"TGNModulation", [&] { tgn.SetTGNModulation(QStringLiteral("NOISE")); }},
    };
    for (const auto& [missing, fill] : steps) {
        EXPECT_FALSE(tgn.HasData());
        EXPECT_TRUE(WrittenXml(tgn).isEmpty()); // incomplete, though it has some data
        EXPECT_EQ(CheckMessage(tgn), QStringLiteral("TGN: Please set %1!").arg(missing));
        fill();
    }
    EXPECT_NO_THROW(tgn.Check());

    TGN unconsulted;
    unconsulted.SetFMInput(QStringLiteral("EXT1"));
    unconsulted.SetSweepActive(true);
    unconsulted.SetIQModulationSource(TGN::BASEBAND);
    EXPECT_FALSE(unconsulted.AnyData());
    unconsulted.SetBandwidthMax(5); // a range counts with any of its values
    EXPECT_TRUE(unconsulted.AnyData());
}

TEST(TGNRecord, ReadingConvertersAndReset) {
    TGN tgn;
    tgn.SetXmlString(QStringLiteral(
        "<TGN><Power>abc</Power><NoiseLevel>12</NoiseLevel><SweepActive>True</SweepActive>"
        "<IQModulationState>1</IQModulationState><BBINState>true</BBINState>"
        "<IQModulationSource>analog</IQModulationSource></TGN>"));
    EXPECT_EQ(tgn.GetPower(), 0);
    EXPECT_EQ(tgn.GetNoiseLevel(), 12);
    EXPECT_FALSE(tgn.GetSweepActive() || tgn.GetIQModulationState());
    EXPECT_TRUE(tgn.GetBBINState());
    EXPECT_EQ(tgn.GetIQModulationSource(), TGN::BASEBAND); // every text but "ANALOG"
    EXPECT_TRUE(tgn.GetVersion().isEmpty());

    // What was read before a failure stays; nothing after it is read.
    tgn.SetTGNModulation(QStringLiteral("FM int"));
    const std::pair<const char*, const char*> failures[] = {
        {"<Tone>440</Tone><TGNModulation>FM  int</TGNModulation><Power>3</Power>",
         "TGN: Unknown TGNModulation 'FM  int'"},
        {"<ToneStop>1</ToneStop><tone>2</tone>", "Unknown Tag 'tone' in 'TGN'"},
    };
    for (const auto& failure : failures) {
        const QString document = QStringLiteral("<TGN>%1</TGN>").arg(QLatin1String(failure.first));
        EXPECT_EQ(ThrownMessage([&] { tgn.SetXmlString(document); }),
                  QLatin1String(failure.second));
    }
    EXPECT_EQ(tgn.GetTone(), 440);
    EXPECT_EQ(tgn.GetToneStop(), 1);
    EXPECT_EQ(tgn.GetTGNModulation(), QStringLiteral("FM int"));
    EXPECT_EQ(tgn.GetPower(), 0);
    EXPECT_EQ(tgn.GetStringForIQSource(static_cast<TGN::IQSources>(7)), QStringLiteral("BASEBAND"));

    // Reset keeps the version text and brings back the IQ defaults.
    tgn.SetXmlString(QStringLiteral("<TGN Version=\"7\"/>"));
    tgn.Reset();
    EXPECT_FALSE(tgn.AnyData() || tgn.GetBBINState());
    EXPECT_EQ(tgn.GetIQModulationSource(), TGN::ANALOG);
    EXPECT_EQ(tgn.GetVersion(), QStringLiteral("7"));
}
