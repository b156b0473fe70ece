// SPDX-License-Identifier: MIT
#include "RecordFixtures.h"
#include "TestSupport.h"

#include <SCU.h>

using namespace KELMORA;
using testfixtures::CompleteSCU;
using testsupport::CheckMessage;
using testsupport::ThrownMessage;
using testsupport::WrittenXml;

TEST(SCURecord, WritesVersionFrequencyTwoDecimalTransmitTimeAndPath) {
    SCU scu = CompleteSCU();
    // The frequency element as the range record itself writes it.
    const QString written = WrittenXml(scu);
    EXPECT_EQ(written, QStringLiteral("<SCU Version=\"1.0\">") +
                           WrittenXml(ValueMinMax(QStringLiteral("Frequency"), 100.5, 20, 3000)) +
                           QStringLiteral("<TransmitTime>12.00</TransmitTime>") +
                           WrittenXml(testfixtures::CompletePath()) + QStringLiteral("</SCU>"));
    scu.SetTransmitTime(3.14159);
    EXPECT_TRUE(WrittenXml(scu).contains(QStringLiteral(">3.14<")));

    EXPECT_EQ(WrittenXml(testsupport::ReadFrom<SCU>(written)), written);
    const auto unversioned =
        testsupport::ReadFrom<SCU>(QString(written).remove(QStringLiteral(" Version=\"1.0\"")));
    EXPECT_TRUE(WrittenXml(unversioned).startsWith(QStringLiteral("<SCU Version=\"\">")));
}

TEST(SCURecord, CompletenessCheckOrderAndAnyData) {
    SCU scu;
    EXPECT_EQ(CheckMessage(scu), QStringLiteral("SCU: Please set Frequency!"));
    // Bounds alone do not make the frequency set, nor does a partial path.
    scu.SetFrequencyMinMax(5, 2);
    scu.GetATTANTPath().SetATT1(true);
    EXPECT_FALSE(scu.AnyData());
    scu.SetFrequency(1.5);
    EXPECT_TRUE(scu.AnyData());
    EXPECT_EQ(CheckMessage(scu), QStringLiteral("SCU: Please set TransmitTime!"));
    scu.SetTransmitTime(0.5);
    EXPECT_FALSE(scu.HasData());
    EXPECT_TRUE(WrittenXml(scu).isEmpty());
    EXPECT_EQ(CheckMessage(scu), QStringLiteral("ATTANTPath: Please set ATT2!"));
}

TEST(SCURecord, ReadingKeepsEarlierValuesAndResetKeepsVersion) {
    SCU scu = CompleteSCU();
    EXPECT_EQ(ThrownMessage([&] {
                  scu.SetXmlString(QStringLiteral("<SCU Version=\"3\"><TransmitTime>abc"
                                                  "</TransmitTime><Power>1</Power></SCU>"));
              }),
              QStringLiteral("Unknown Tag 'Power' in 'SCU'"));
    EXPECT_EQ(scu.GetTransmitTime(), 0);
    EXPECT_TRUE(scu.HasData()); // 0 counts as set
    scu.Reset();
    EXPECT_FALSE(scu.AnyData() || scu.GetATTANTPath().AnyData());
    EXPECT_EQ(scu.GetVersion(), QStringLiteral("3"));
}
