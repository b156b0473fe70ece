// SPDX-License-Identifier: MIT
// The base record's host operations (text, files, binary forms, merging,
// validation flag, logger) and the base value records, through real records:
// ATTANTPath writes only when complete and rejects unknown children; WDE
// always writes and skips them; and the invalid example file. Cut-off
// documents are covered by the hostile input tests.
#include "RecordFixtures.h"
#include "TestSupport.h"

#include <Exciter_Settings.h>
#include <Logger.h>
#include <ScanParameter.h>
#include <ValueMinMax.h>

using namespace KELMORA;
using testfixtures::CompletePath;
using testsupport::CheckMessage;
using testsupport::ThrownMessage;
using testsupport::WrittenXml;

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

TEST(ExampleFiles, InvalidExampleLoadsButFailsCheckWithTheMissingSetting) {
    Exciter_Settings settings = testfixtures::Example("invalid_missing_transmit_time");
    EXPECT_EQ(CheckMessage(settings), "SCU: Please set TransmitTime!");
    settings.SetValidate(true);
    EXPECT_EQ(
        ThrownMessage([&] { settings.LoadXml(EXAMPLES_DIR "/invalid_missing_transmit_time.xml"); }),
        "SCU: Please set TransmitTime!");
}
