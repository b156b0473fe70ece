// SPDX-License-Identifier: MIT
#include "RecordFixtures.h"
#include "TestSupport.h"

#include <Exciter_Settings.h>

using namespace KELMORA;
using namespace testfixtures;
using testsupport::CheckMessage;
using testsupport::ChildNames;
using testsupport::ThrownMessage;
using testsupport::Words;
using testsupport::WrittenXml;

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
    return QStringLiteral("<Exciter_Settings>%1</Exciter_Settings>").arg(children);
}

} // namespace

TEST(ExciterSettingsRecord, ModeNamesConversionsAndTheirFailures) {
    Exciter_Settings settings;
    EXPECT_TRUE(settings.GetAutostart());
    EXPECT_TRUE(WrittenXml(settings).isEmpty());
    EXPECT_EQ(CheckMessage(settings), QStringLiteral("Exciter_Settings: Please set ExciterMode"));
    EXPECT_EQ(settings.GetExciterModes(),
              (QStringList{"Continuous", "Deception", "Trap", "Follower", "Fast Sequential",
                           "Fast Sequential Parallel", "Look Through", "Look Through Parallel",
                           "Sweep", "Wideband", "Barrage", "Broadcast"}));
    settings.SetExciterMode(QStringLiteral("Look Through"));
    const std::pair<std::function<void()>, const char*> failures[] = {
        {[&] { settings.SetExciterMode(QStringLiteral("continuous")); },
         "Unknown ExciterMode 'continuous'"},
        {[&] { settings.SetExciterMode(QString()); }, "Exciter_Settings: Please set ExciterMode"},
        {[&] { settings.SetExciterMode(static_cast<Exciter_Settings::ExciterModeType>(12)); },
         "Exciter_Settings: Invalid TaskType '12'"},
        {[&] {
             settings.ExciterModeTypeToName(static_cast<Exciter_Settings::ExciterModeType>(12));
         },
         "Exciter_Settings: Invalid ValueType '12'"},
        {[&] { settings.NameToExciterModeType(QStringLiteral("Sweeps")); },
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
        EXPECT_EQ(ChildNames(xml), Words(Exciter_Settings::IsValidWDE(back.GetExciterMode())
                                             ? "ExciterMode Autostart TGN SCU WDE"
                                             : "ExciterMode Autostart TGN SCU"));
    }

    Exciter_Settings settings = Settings(QStringLiteral("Trap"));
    settings.GetWDE().SetMode(static_cast<WDE::Mode>(-1));
    EXPECT_FALSE(settings.HasData());
    EXPECT_TRUE(WrittenXml(settings).isEmpty());
    EXPECT_EQ(CheckMessage(settings), QStringLiteral("WDE:Please set Mode!"));
    // Back in a mode without WDE, the incomplete WDE no longer matters.
    settings.SetExciterMode(QStringLiteral("Barrage"));
    EXPECT_NO_THROW(settings.Check());

    // Nested failures pass through unchanged, in the order TGN, SCU.
    settings.GetSCU().SetTransmitTime(-111111.11);
    EXPECT_EQ(CheckMessage(settings), QStringLiteral("SCU: Please set TransmitTime!"));
    settings.GetTGN().Reset();
    EXPECT_EQ(CheckMessage(settings), QStringLiteral("TGN: Please set Frequency!"));
}

TEST(ExciterSettingsRecord, ReadingModeAutostartAndWDEOrder) {
    // A WDE before the mode is passed over: the mode is still unset then.
    const QString xml = WrittenXml(Settings(QStringLiteral("Look Through")));
    const QString mode = QStringLiteral("<ExciterMode>Look Through</ExciterMode>");
    const QString end = QStringLiteral("</Exciter_Settings>");
    const QString modeLast = QString(xml).remove(mode).replace(end, mode + end);
    EXPECT_FALSE(testsupport::ReadFrom<Exciter_Settings>(modeLast).GetWDE().AnyData());

    Exciter_Settings settings;
    for (const auto& [text, expected] :
         {std::pair<const char*, bool>{"false", false}, {"False", true}, {"0", true}, {"", true}}) {
        settings.SetAutostart(!expected);
        settings.SetXmlString(
            Element(QStringLiteral("<Autostart>%1</Autostart>").arg(QLatin1String(text))));
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
    Exciter_Settings source = Settings(QStringLiteral("Trap"));
    source.SetAutostart(false);
    Exciter_Settings copy(source);
    EXPECT_EQ(WrittenXml(copy), WrittenXml(source));
    copy.GetTGN().SetPower(5);
    EXPECT_EQ(source.GetTGN().GetPower(), 12.5);

    source.Reset();
    EXPECT_TRUE(source.GetAutostart());
    EXPECT_EQ(source.GetExciterMode(), -1);
    EXPECT_FALSE(source.AnyData() || source.GetWDE().AnyData());
    EXPECT_EQ(source.GetVersion(), QStringLiteral("1.0"));
    source.SetSCU(CompleteSCU());
    EXPECT_TRUE(source.AnyData()); // a complete nested record counts
}
