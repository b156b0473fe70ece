// SPDX-License-Identifier: MIT
// The base record's host operations (text, files, binary forms, merging,
// validation flag, logger) and the base value records, through real records:
// ATTANTPath writes only when complete and rejects unknown children; WDE
// always writes and skips them; and the bundled example files, loaded,
// checked, saved and reloaded the way a host uses the library. Cut-off
// documents are covered by the hostile input tests.
#include "RecordFixtures.h"
#include "TestSupport.h"

#include <Exciter_Settings.h>
#include <Logger.h>
#include <ScanParameter.h>
#include <ValueMinMax.h>

#include <QTemporaryDir>

using namespace KELMORA;
using testfixtures::CompletePath;
using testfixtures::Example;
using testfixtures::Loaded;
using testsupport::CheckMessage;
using testsupport::FileContents;
using testsupport::ThrownMessage;
using testsupport::WrittenXml;

namespace {

// Saves the record, loads the file into a fresh record and returns it.
Exciter_Settings SavedAndReloaded(const Exciter_Settings& settings) {
    const QTemporaryDir dir;
    settings.SaveXml(dir.filePath("saved.xml"));
    return Loaded(dir.filePath("saved.xml"));
}

} // namespace

TEST(HostOperations, OnlyTheNamedRootIsReadAndTheFailureLineIsKept) {
    ATTANTPath path;
    EXPECT_THROW(path.SetXmlString("<ATTANTPath/><ATTANTPath/>"), KMException);
    EXPECT_EQ(ThrownMessage([&] { path.SetXmlString("<SCU/>"); }),
              "Wrong root element: expected 'ATTANTPath', found 'SCU'");
    EXPECT_THROW(path.SetXmlString("<ATTANTPath>\n\n<ATT9/></ATTANTPath>"), KMException);
    EXPECT_EQ(path.GetFailureLine(), 3);
    path.SetXmlString(WrittenXml(CompletePath()));
    EXPECT_EQ(path.GetFailureLine(), 0);
}

TEST(HostOperations, SaveAndLoadFiles) {
    QTemporaryDir dir;
    const QString file = dir.filePath("path.xml");
    // ATTANTPath keeps its texts verbatim, so they show the escaping.
    const auto path = testsupport::ReadFrom<ATTANTPath>(
        WrittenXml(CompletePath()).replace(">true<", ">ä &amp; &lt;b&gt;<"));
    path.SaveXml(file);
    const QByteArray saved = FileContents(file);
    EXPECT_TRUE(saved.contains("\n    <ATT1>\xc3\xa4 &amp; &lt;b&gt;</ATT1>")); // indented UTF-8
    EXPECT_EQ(WrittenXml(Loaded<ATTANTPath>(file)), WrittenXml(path));

    // A record that fails validation leaves the file.
    WDE invalid;
    invalid.SetValidate(true);
    EXPECT_EQ(ThrownMessage([&] { invalid.SaveXml(file); }), "Frequency: Please set Value!");
    EXPECT_EQ(FileContents(file), saved);
}

TEST(HostOperations, LoggerAndValidationFlag) {
    Logger logger;
    WDE wde;
    wde.SetLogger(&logger);
    const QString missing = "/nonexistent/file.xml";
    EXPECT_TRUE(ThrownMessage([&] { wde.LoadXml(missing); }).contains(missing));
    ASSERT_EQ(logger.GetEntries().size(), 1);
    EXPECT_TRUE(logger.GetEntries().first().startsWith("ERROR: LoadXml"));
    wde.ResetLogger();
    EXPECT_THROW(wde.LoadXml(missing), KMException);
    EXPECT_EQ(logger.GetEntries().size(), 1);

    const QString fresh = WrittenXml(WDE());
    wde.SetXmlString(fresh); // no validation: accepted
    wde.SetValidate(true);
    EXPECT_EQ(ThrownMessage([&] { wde.SetXmlString(fresh); }), "Frequency: Please set Value!");
    EXPECT_FALSE(wde.Check(false));
    EXPECT_THROW(wde.Check(true), KMException);
    EXPECT_TRUE(testfixtures::CompleteWDE().Check(false));
}

TEST(HostOperations, BinaryFormsAndMergeRefuseForeignData) {
    const ATTANTPath path = CompletePath();
    const QByteArray plain = path.GetBinaryRepresentationAsQByteArray();
    QByteArray compressed = path.GetCompressedBinaryRepresentationAsQByteArray();
    for (const QByteArray& form : {plain, compressed}) {
        ATTANTPath copy;
        copy.SetBinaryRepresentation(form);
        EXPECT_EQ(WrittenXml(copy), WrittenXml(path));
    }
    for (int i = 12; i < compressed.size(); ++i)
        compressed[i] = static_cast<char>(compressed[i] ^ 0x5A);
    QByteArray otherVersion = plain;
    otherVersion[5] = 2; // the format version, big-endian after the four-byte magic number
    ATTANTPath target;
    for (const QByteArray& foreign :
         {QByteArray("garbage"), plain.left(plain.size() - 5), compressed, otherVersion,
          WDE().GetBinaryRepresentationAsQByteArray()})
        EXPECT_THROW(target.SetBinaryRepresentation(foreign), KMException);

    // Merging reads the other record's element over this one.
    target.SetATT6(true);
    target.MergeKMObject(path);
    EXPECT_EQ(WrittenXml(target), WrittenXml(path));
    // WDE skips unknown children, so only the name check refuses the path.
    EXPECT_THROW(WDE().MergeKMObject(path), KMException);
}

TEST(BaseValues, ValueMinMaxAndScanParameter) {
    // Ranges keep every double exactly; unset parts stay unset.
    const ValueMinMax range("F", 0.1 + 0.2, 1e-300, 123456789.123456789);
    ValueMinMax back("F", 5, 5, 5);
    const auto read = [&back](const ValueMinMax& source) {
        QXmlStreamReader reader(WrittenXml(source));
        reader.readNextStartElement();
        back.ReadValuesFromXml(reader);
    };
    read(range);
    EXPECT_TRUE(back.value == range.value && back.minimum == range.minimum &&
                back.maximum == range.maximum);
    EXPECT_EQ(WrittenXml(ValueMinMax("F", 433.92e6, 2e7, 0.125)),
              "<F Minimum=\"20000000\" Maximum=\"0.125\">433920000</F>");
    read(ValueMinMax("F")); // an unset range: the bounds stay as they were
    EXPECT_FALSE(back.HasData());
    EXPECT_TRUE(back.AnyData());
    EXPECT_EQ(CheckMessage(back), "F: Please set Value!");
    back.Reset();
    EXPECT_FALSE(back.AnyData());
    EXPECT_EQ(back.name, "F");

    ScanParameter scan;
    EXPECT_EQ(ThrownMessage([&] { scan.SetXmlString("<ScanParameter><Step/></ScanParameter>"); }),
              "Unknown Tag 'Step' in 'ScanParameter'");
    EXPECT_EQ(CheckMessage(scan), "ScanParameter: Please set StartFrequency!");
    scan.SetStartFrequency(1);
    scan.SetStopFrequency(2);
    scan.SetStepWidth(0.5);
    EXPECT_NO_THROW(scan.Check()); // the dwell time is optional
}

// A save writes exactly what GetXmlString gives, so one round trip that
// changes nothing proves that any number of them change nothing.
TEST(ExampleFiles, EveryValidExampleChecksAndSurvivesARoundTrip) {
    for (const char* name : {"continuous", "sweep", "look_through"}) {
        SCOPED_TRACE(name);
        const Exciter_Settings loaded = Example(name);
        EXPECT_NO_THROW(loaded.Check());
        EXPECT_EQ(SavedAndReloaded(loaded).GetXmlString(), loaded.GetXmlString());
    }
    // Changes made through the setters survive too.
    Exciter_Settings settings = Example("look_through");
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

TEST(ExampleFiles, InvalidExampleLoadsButFailsCheckWithTheMissingSetting) {
    const QString path = EXAMPLES_DIR "/invalid_missing_transmit_time.xml";
    Exciter_Settings settings = Loaded(path);
    EXPECT_EQ(testsupport::CheckMessage(settings), "SCU: Please set TransmitTime!");
    settings.SetValidate(true);
    EXPECT_EQ(ThrownMessage([&] { settings.LoadXml(path); }), "SCU: Please set TransmitTime!");
}
