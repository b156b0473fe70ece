// The bundled example files, loaded, checked, saved and reloaded the way a
// host uses the library.
#include "TestSupport.h"

#include <Exciter_Settings.h>

#include <QDir>
#include <QTemporaryDir>

using namespace KELMORA;
using testsupport::ThrownMessage;

namespace {

QString Example(const char* name) {
    return QDir(QStringLiteral(EXAMPLES_DIR)).filePath(QString::fromLatin1(name));
}

// Saves the record, loads the file into a fresh record and returns it.
Exciter_Settings SavedAndReloaded(const Exciter_Settings& settings, const QTemporaryDir& dir) {
    const QString path = dir.filePath(QStringLiteral("saved.xml"));
    settings.SaveXml(path);
    Exciter_Settings reloaded;
    reloaded.LoadXml(path);
    return reloaded;
}

} // namespace

TEST(ExampleFiles, EveryValidExampleChecksAndSurvivesTwoRoundTrips) {
    QTemporaryDir dir;
    for (const char* name : {"continuous.xml", "sweep.xml", "look_through.xml"}) {
        SCOPED_TRACE(name);
        Exciter_Settings loaded;
        loaded.LoadXml(Example(name));
        EXPECT_NO_THROW(loaded.Check());
        const Exciter_Settings once = SavedAndReloaded(loaded, dir);
        const Exciter_Settings twice = SavedAndReloaded(once, dir);
        EXPECT_FALSE(once.GetXmlString().isEmpty());
        EXPECT_EQ(once.GetXmlString(), loaded.GetXmlString());
        EXPECT_EQ(twice.GetXmlString(), once.GetXmlString());
    }
}

TEST(ExampleFiles, ExamplesHoldWhatTheyDescribe) {
    Exciter_Settings sweep;
    sweep.LoadXml(Example("sweep.xml"));
    EXPECT_TRUE(Exciter_Settings::IsValidScan(sweep.GetExciterMode()));
    EXPECT_FALSE(sweep.GetAutostart());
    EXPECT_EQ(sweep.GetTGN().GetScanParameter().GetStopFrequency(), 470e6);

    Exciter_Settings lookThrough;
    lookThrough.LoadXml(Example("look_through.xml"));
    const WDE& wde = lookThrough.GetWDE();
    EXPECT_EQ(wde.GetSinglechanneldetectorList().size(), 1);
    EXPECT_EQ(wde.GetRasterdetectorList().size(), 1);
    EXPECT_EQ(wde.GetExciterList().size(), 2);
    EXPECT_EQ(wde.GetSimulationList().size(), 1);
    EXPECT_EQ(wde.GetRasterdetectorList()[0].GetFrequencyList(),
              (QVector<double>{433.05e6, 433.925e6, 434.79e6}));
    EXPECT_EQ(wde.GetSimulationList()[0].GetRelativeFrequencyList().size(), 3);
    EXPECT_EQ(wde.GetVersion(), QStringLiteral("0.1"));

    // The same file read in a mode without WDE leaves the WDE member empty.
    QFile file(Example("look_through.xml"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QString text = QString::fromUtf8(file.readAll());
    text.replace(QStringLiteral("<ExciterMode>Look Through<"),
                 QStringLiteral("<ExciterMode>Barrage<"));
    Exciter_Settings barrage;
    barrage.SetXmlString(text);
    EXPECT_FALSE(barrage.GetWDE().AnyData());
}

TEST(ExampleFiles, InvalidExampleLoadsButFailsCheckWithTheMissingSetting) {
    Exciter_Settings settings;
    settings.LoadXml(Example("invalid_missing_transmit_time.xml"));
    EXPECT_EQ(ThrownMessage([&] { settings.Check(); }),
              QStringLiteral("SCU: Please set TransmitTime!"));
    settings.SetValidate(true);
    EXPECT_EQ(
        ThrownMessage([&] { settings.LoadXml(Example("invalid_missing_transmit_time.xml")); }),
        QStringLiteral("SCU: Please set TransmitTime!"));
}

TEST(ExampleFiles, ChangesMadeThroughSettersSurviveSaveAndReload) {
    QTemporaryDir dir;
    Exciter_Settings settings;
    settings.LoadXml(Example("look_through.xml"));
    settings.SetAutostart(false);
    settings.GetTGN().SetTGNModulation(QStringLiteral("AM ext"));
    settings.GetTGN().SetAMDepth(30);
    settings.GetSCU().GetATTANTPath().SetATT6(true);
    settings.GetWDE().GetExciterList()[1].SetLevel(-3.25);
    settings.GetWDE().GetRasterdetectorList()[0].AppendFrequency(435e6);
    settings.GetWDE().SetGainCtrl(WDE::GAINCTRL_AGC);
    settings.GetWDE().SetAGCValue(WDE::AGCVALUE_FAST);

    const Exciter_Settings back = SavedAndReloaded(settings, dir);
    EXPECT_FALSE(back.GetAutostart());
    EXPECT_EQ(back.GetTGN().GetTGNModulation(), QStringLiteral("AM ext"));
    EXPECT_EQ(back.GetTGN().GetAMDepth(), 30);
    EXPECT_TRUE(back.GetSCU().GetATTANTPath().GetATT6());
    EXPECT_EQ(back.GetWDE().GetExciterList()[1].GetLevel(), -3.25);
    EXPECT_EQ(back.GetWDE().GetRasterdetectorList()[0].GetFrequencyList().last(), 435e6);
    EXPECT_EQ(back.GetWDE().GetGainCtrl(), WDE::GAINCTRL_AGC);
    EXPECT_EQ(back.GetWDE().GetAGCValue(), WDE::AGCVALUE_FAST);

    // Switching to a mode without WDE drops it from the file, not from the record.
    settings.SetExciterMode(QStringLiteral("Wideband"));
    const Exciter_Settings wideband = SavedAndReloaded(settings, dir);
    EXPECT_FALSE(wideband.GetWDE().AnyData());
    EXPECT_TRUE(settings.GetWDE().AnyData());
}
