// SPDX-License-Identifier: MIT
// The bundled example files, loaded, checked, saved and reloaded the way a
// host uses the library.
#include "TestSupport.h"

#include <Exciter_Settings.h>

#include <QTemporaryDir>

using namespace KELMORA;

namespace {

const QString kExamples = QStringLiteral(EXAMPLES_DIR "/");

Exciter_Settings Loaded(const QString& path) {
    Exciter_Settings settings;
    settings.LoadXml(path);
    return settings;
}

// Saves the record, loads the file into a fresh record and returns it.
Exciter_Settings SavedAndReloaded(const Exciter_Settings& settings) {
    const QTemporaryDir dir;
    settings.SaveXml(dir.filePath("saved.xml"));
    return Loaded(dir.filePath("saved.xml"));
}

} // namespace

// A save writes exactly what GetXmlString gives, so one round trip that
// changes nothing proves that any number of them change nothing.
TEST(ExampleFiles, EveryValidExampleChecksAndSurvivesARoundTrip) {
    for (const char* name : {"continuous.xml", "sweep.xml", "look_through.xml"}) {
        SCOPED_TRACE(name);
        const Exciter_Settings loaded = Loaded(kExamples + name);
        EXPECT_NO_THROW(loaded.Check());
        EXPECT_EQ(SavedAndReloaded(loaded).GetXmlString(), loaded.GetXmlString());
    }
}

TEST(ExampleFiles, InvalidExampleLoadsButFailsCheckWithTheMissingSetting) {
    const QString path = kExamples + "invalid_missing_transmit_time.xml";
    Exciter_Settings settings = Loaded(path);
    EXPECT_EQ(testsupport::CheckMessage(settings), "SCU: Please set TransmitTime!");
    settings.SetValidate(true);
    EXPECT_EQ(testsupport::ThrownMessage([&] { settings.LoadXml(path); }),
              "SCU: Please set TransmitTime!");
}

TEST(ExampleFiles, ChangesMadeThroughSettersSurviveSaveAndReload) {
    Exciter_Settings settings = Loaded(kExamples + "look_through.xml");
    settings.SetAutostart(false);
    settings.GetTGN().SetTGNModulation("AM ext");
    settings.GetSCU().GetATTANTPath().SetATT6(true);
    settings.GetWDE().GetExciterList()[1].SetLevel(-3.25);
    settings.GetWDE().GetRasterdetectorList()[0].AppendFrequency(435e6);

    const Exciter_Settings back = SavedAndReloaded(settings);
    EXPECT_FALSE(back.GetAutostart());
    EXPECT_EQ(back.GetTGN().GetTGNModulation(), "AM ext");
    EXPECT_TRUE(back.GetSCU().GetATTANTPath().GetATT6());
    EXPECT_EQ(back.GetWDE().GetExciterList()[1].GetLevel(), -3.25);
    EXPECT_EQ(back.GetWDE().GetRasterdetectorList()[0].GetFrequencyList().last(), 435e6);

    // Switching to a mode without WDE drops it from the file, not from the record.
    settings.SetExciterMode("Wideband");
    EXPECT_FALSE(SavedAndReloaded(settings).GetWDE().AnyData());
    EXPECT_TRUE(settings.GetWDE().AnyData());
}
