#include "RecordFixtures.h"
#include "TestSupport.h"

#include <Exciter_Settings.h>

#include <QStringList>

using namespace KELMORA;
using testfixtures::CompletePath;
using testfixtures::CompleteWDE;
using testsupport::ChildNames;
using testsupport::ThrownMessage;
using testsupport::WrittenXml;

namespace {

TGN CompleteTGN() {
    TGN tgn;
    tgn.SetFrequency(100e6);
    tgn.SetBandwidth(1e6);
    tgn.SetPower(-10);
    tgn.SetLevelSettingsMode(QStringLiteral("auto"));
    tgn.SetReference(QStringLiteral("intern"));
    tgn.SetTGNModulation(QStringLiteral("CW"));
    return tgn;
}

SCU CompleteSCU() {
    SCU scu;
    scu.SetFrequency(100e6);
    scu.SetTransmitTime(2);
    scu.SetATTANTPath(CompletePath());
    return scu;
}

Exciter_Settings Settings(const QString& mode) {
    Exciter_Settings settings;
    settings.SetExciterMode(mode);
    settings.SetTGN(CompleteTGN());
    settings.SetSCU(CompleteSCU());
    return settings;
}

} // namespace

TEST(ExciterSettingsRecord, FreshRecordIsEmptyAndAsksForTheMode) {
    Exciter_Settings settings;
    EXPECT_EQ(settings.GetObjectName(), QStringLiteral("Exciter_Settings"));
    EXPECT_EQ(settings.GetVersion(), QStringLiteral("1.0"));
    EXPECT_TRUE(settings.GetAutostart());
    EXPECT_FALSE(settings.HasData());
    EXPECT_FALSE(settings.AnyData());
    EXPECT_TRUE(WrittenXml(settings).isEmpty());
    EXPECT_EQ(ThrownMessage([&] { settings.Check(); }),
              QStringLiteral("Exciter_Settings: Please set ExciterMode"));
    settings.SetSCU(CompleteSCU());
    EXPECT_TRUE(settings.AnyData()); // a complete nested record counts
}

TEST(ExciterSettingsRecord, ModeNamesAndConversions) {
    Exciter_Settings settings;
    EXPECT_EQ(settings.GetExciterModes(),
              (QStringList{"Continuous", "Deception", "Trap", "Follower", "Fast Sequential",
                           "Fast Sequential Parallel", "Look Through", "Look Through Parallel",
                           "Sweep", "Wideband", "Barrage", "Broadcast"}));
    settings.SetExciterMode(QStringLiteral("Look Through"));
    EXPECT_EQ(settings.GetExciterMode(), 6);
    EXPECT_EQ(ThrownMessage([&] { settings.SetExciterMode(QStringLiteral("continuous")); }),
              QStringLiteral("Unknown ExciterMode 'continuous'"));
    EXPECT_EQ(ThrownMessage([&] { settings.SetExciterMode(QString()); }),
              QStringLiteral("Exciter_Settings: Please set ExciterMode"));
    EXPECT_EQ(ThrownMessage([&] {
                  settings.SetExciterMode(static_cast<Exciter_Settings::ExciterModeType>(-1));
              }),
              QStringLiteral("Exciter_Settings: Invalid TaskType '-1'"));
    EXPECT_EQ(ThrownMessage([&] {
                  settings.SetExciterMode(static_cast<Exciter_Settings::ExciterModeType>(12));
              }),
              QStringLiteral("Exciter_Settings: Invalid TaskType '12'"));
    EXPECT_EQ(settings.GetExciterMode(), 6); // failed setters keep the mode
    EXPECT_EQ(settings.ExciterModeTypeToName(Exciter_Settings::EXCITERMODE_BROADCAST),
              QStringLiteral("Broadcast"));
    EXPECT_EQ(ThrownMessage([&] {
                  settings.ExciterModeTypeToName(
                      static_cast<Exciter_Settings::ExciterModeType>(12));
              }),
              QStringLiteral("Exciter_Settings: Invalid ValueType '12'"));
    EXPECT_EQ(ThrownMessage([&] { settings.NameToExciterModeType(QStringLiteral("Sweeps")); }),
              QStringLiteral("Exciter_Settings: Invalid ValueType 'Sweeps'"));
    EXPECT_EQ(settings.NameToExciterModeType(QStringLiteral("Barrage")), 10);

    int wdeModes = 0;
    for (int mode = -1; mode <= 12; ++mode) {
        const auto type = static_cast<Exciter_Settings::ExciterModeType>(mode);
        wdeModes += Exciter_Settings::IsValidWDE(type) ? 1 : 0;
        EXPECT_EQ(Exciter_Settings::IsValidScan(type), mode == 8);
    }
    EXPECT_EQ(wdeModes, 7);
    EXPECT_TRUE(Exciter_Settings::IsValidWDE(Exciter_Settings::EXCITERMODE_BROADCAST));
    EXPECT_FALSE(Exciter_Settings::IsValidWDE(Exciter_Settings::EXCITERMODE_SWEEP));
}

TEST(ExciterSettingsRecord, WDETakesPartOnlyInWDEModes) {
    Exciter_Settings settings = Settings(QStringLiteral("Continuous"));
    settings.SetWDE(CompleteWDE());
    EXPECT_EQ(ChildNames(WrittenXml(settings)),
              (QStringList{"ExciterMode", "Autostart", "TGN", "SCU"}));

    settings.SetExciterMode(QStringLiteral("Trap"));
    EXPECT_EQ(ChildNames(WrittenXml(settings)),
              (QStringList{"ExciterMode", "Autostart", "TGN", "SCU", "WDE"}));

    settings.GetWDE().SetMode(static_cast<WDE::Mode>(-1));
    EXPECT_FALSE(settings.HasData());
    EXPECT_TRUE(WrittenXml(settings).isEmpty());
    EXPECT_EQ(ThrownMessage([&] { settings.Check(); }), QStringLiteral("WDE:Please set Mode!"));

    // Back in a mode without WDE, the incomplete WDE no longer matters.
    settings.SetExciterMode(QStringLiteral("Barrage"));
    EXPECT_NO_THROW(settings.Check());
    EXPECT_EQ(settings.GetWDE().GetFrequency(), 2.4e9);
}

TEST(ExciterSettingsRecord, CheckOrderPassesNestedMessagesThrough) {
    Exciter_Settings settings = Settings(QStringLiteral("Continuous"));
    settings.GetSCU().SetTransmitTime(-111111.11);
    EXPECT_EQ(ThrownMessage([&] { settings.Check(); }),
              QStringLiteral("SCU: Please set TransmitTime!"));
    settings.GetTGN().Reset();
    EXPECT_EQ(ThrownMessage([&] { settings.Check(); }),
              QStringLiteral("TGN: Please set Frequency!"));
}

TEST(ExciterSettingsRecord, ReadingModeAutostartAndWDEOrder) {
    const Exciter_Settings source = [] {
        Exciter_Settings s = Settings(QStringLiteral("Look Through"));
        s.SetWDE(CompleteWDE());
        return s;
    }();
    const QString xml = WrittenXml(source);

    Exciter_Settings back;
    back.SetXmlString(xml);
    EXPECT_EQ(back.GetExciterMode(), Exciter_Settings::EXCITERMODE_LOOK_THROUGH);
    EXPECT_EQ(back.GetWDE().GetFrequency(), 2.4e9);
    EXPECT_EQ(WrittenXml(back), xml);

    // A WDE before the mode is passed over: the mode is still unset then.
    QString wdeFirst = xml;
    const int wdeStart = wdeFirst.indexOf(QStringLiteral("<WDE "));
    const QString wdeElement =
        wdeFirst.mid(wdeStart, wdeFirst.indexOf(QStringLiteral("</WDE>")) + 6 - wdeStart);
    wdeFirst.remove(wdeStart, wdeElement.size());
    wdeFirst.insert(wdeFirst.indexOf(QStringLiteral("<ExciterMode>")), wdeElement);
    Exciter_Settings lost;
    lost.SetXmlString(wdeFirst);
    EXPECT_FALSE(lost.GetWDE().AnyData());

    for (const auto& [text, expected] :
         {std::pair<const char*, bool>{"false", false}, {"False", true}, {"0", true}, {"", true}}) {
        Exciter_Settings flag;
        flag.SetAutostart(!expected);
        flag.SetXmlString(
            QStringLiteral("<Exciter_Settings><Autostart>%1</Autostart></Exciter_Settings>")
                .arg(QString::fromLatin1(text)));
        EXPECT_EQ(flag.GetAutostart(), expected) << text;
    }
}

TEST(ExciterSettingsRecord, ReadingRejectsUnknownModeAndTag) {
    Exciter_Settings settings;
    EXPECT_EQ(ThrownMessage([&] {
                  settings.SetXmlString(QStringLiteral(
                      "<Exciter_Settings><Autostart>false</Autostart><ExciterMode>Jamming</"
                      "ExciterMode></Exciter_Settings>"));
              }),
              QStringLiteral("Exciter_Settings: Invalid TaskType '-1'"));
    EXPECT_FALSE(settings.GetAutostart()); // read before the failure, kept
    EXPECT_EQ(ThrownMessage([&] {
                  settings.SetXmlString(
                      QStringLiteral("<Exciter_Settings><Mode/></Exciter_Settings>"));
              }),
              QStringLiteral("Unknown Tag 'Mode' in 'Exciter_Settings'"));
}

TEST(ExciterSettingsRecord, CopiesAreDeepAndResetKeepsVersion) {
    Exciter_Settings source = Settings(QStringLiteral("Trap"));
    source.SetWDE(CompleteWDE());
    source.GetWDE().GetExciterList().append(WDE_Exciter(0));
    Exciter_Settings copy(source);
    copy.GetWDE().GetExciterList().clear();
    copy.GetTGN().SetPower(5);
    copy.GetSCU().GetATTANTPath().SetATT1(false);
    EXPECT_EQ(source.GetWDE().GetExciterList().size(), 1);
    EXPECT_EQ(source.GetTGN().GetPower(), -10.0);
    EXPECT_TRUE(source.GetSCU().GetATTANTPath().GetATT1());

    source.SetAutostart(false);
    source.Reset();
    EXPECT_TRUE(source.GetAutostart());
    EXPECT_EQ(source.GetExciterMode(), -1);
    EXPECT_FALSE(source.GetWDE().AnyData());
    EXPECT_EQ(source.GetVersion(), QStringLiteral("1.0"));
    EXPECT_EQ(source.GetExciterModes().size(), 12);
}
