// The bundled example files, loaded, checked, saved and reloaded the way a
// host uses the library.
#include "TestSupport.h"

#include <Exciter_Settings.h>

#include <QDir>
#include <QTemporaryDir>

using namespace KELMORA;
using testsupport::CheckMessage;
using testsupport::ThrownMessage;

namespace {

QString Example(const char* name) {
    return QDir(QStringLiteral(EXAMPLES_DIR)).filePath(QString::fromLatin1(name));
}

Exciter_Settings Loaded(const QString& path) {
    Exciter_Settings settings;
    settings.LoadXml(path);
    return settings;
}

// Saves the record, loads the file into a fresh record and returns it.
Exciter_Settings SavedAndReloaded(const Exciter_Settings& settings, const QTemporaryDir& dir) {
    const QString path = dir.filePath(QStringLiteral("saved.xml"));
    settings.SaveXml(path);
    return Loaded(path);
}

} // namespace

TEST(ExampleFiles, EveryValidExampleChecksAndSurvivesTwoRoundTrips) {
    QTemporaryDir dir;
    for (const char* name : {"continuous.xml", "sweep.xml", "look_through.xml"}) {
        SCOPED_TRACE(name);
        const Exciter_Settings loaded = Loaded(Example(name));
        EXPECT_NO_THROW(loaded.Check());
        const Exciter_Settings once = SavedAndReloaded(loaded, dir);
        EXPECT_EQ(once.GetXmlString(), loaded.GetXmlString());
        EXPECT_EQ(SavedAndReloaded(once, dir).GetXmlString(), once.GetXmlString());
    }
}

TEST(ExampleFiles, InvalidExampleLoadsButFailsCheckWithTheMissingSetting) {
    const QString path = Example("invalid_missing_transmit_time.xml");
    Exciter_Settings settings = Loaded(path);
    EXPECT_EQ(CheckMessage(settings), QStringLiteral("SCU: Please set TransmitTime!"));
    settings.SetValidate(true);
    EXPECT_EQ(ThrownMessage([&] { settings.LoadXml(path); }),
              QStringLiteral("SCU: Please set TransmitTime!"));
}

TEST(ExampleFiles, ChangesMadeThroughSettersSurviveSaveAndReload) {
    QTemporaryDir dir;
    Exciter_Settings settings = Loaded(Example("look_through.xml"));
    settings.SetAutostart(false);
    settings.GetTGN().SetTGNModulation(QStringLiteral("AM ext"));
    settings.GetSCU().GetATTANTPath().SetATT6(true);
    settings.GetWDE().GetExciterList()[1].SetLevel(-3.25);
    settings.GetWDE().GetRasterdetectorList()[0].AppendFrequency(435e6);

    const Exciter_Settings back = SavedAndReloaded(settings, dir);
    EXPECT_FALSE(back.GetAutostart());
    EXPECT_EQ(back.GetTGN().GetTGNModulation(), QStringLiteral("AM ext"));
    EXPECT_TRUE(back.GetSCU().GetATTANTPath().GetATT6());
    EXPECT_EQ(back.GetWDE().GetExciterList()[1].GetLevel(), -3.25);
    EXPECT_EQ(back.GetWDE().GetRasterdetectorList()[0].GetFrequencyList().last(), 435e6);

    // Switching to a mode without WDE drops it from the file, not from the record.
    settings.SetExciterMode(QStringLiteral("Wideband"));
    EXPECT_FALSE(SavedAndReloaded(settings, dir).GetWDE().AnyData());
    EXPECT_TRUE(settings.GetWDE().AnyData());
}
