#include "TestSupport.h"

#include <SCU.h>

using namespace KELMORA;
using testsupport::ThrownMessage;
using testsupport::WrittenXml;

namespace {

const QString kPathXml =
    QStringLiteral("<ATTANTPath><ATT1>true</ATT1><ATT2>false</ATT2><ATT3>true</ATT3>"
                   "<ATT4>false</ATT4><ATT5>true</ATT5><ATT6>false</ATT6></ATTANTPath>");

SCU CompleteSCU(double transmitTime) {
    SCU scu;
    scu.SetFrequency(100.5);
    scu.SetFrequencyMinMax(20, 3000);
    scu.SetTransmitTime(transmitTime);
    scu.GetATTANTPath().SetXmlString(kPathXml);
    return scu;
}

} // namespace

TEST(SCURecord, WritesVersionFrequencyTwoDecimalTransmitTimeAndPath) {
    const SCU scu = CompleteSCU(12);
    // The frequency element as the range record itself writes it.
    const QString frequency = WrittenXml(ValueMinMax(QStringLiteral("Frequency"), 100.5, 20, 3000));
    EXPECT_EQ(WrittenXml(scu), QStringLiteral("<SCU Version=\"1.0\">") + frequency +
                                   QStringLiteral("<TransmitTime>12.00</TransmitTime>") + kPathXml +
                                   QStringLiteral("</SCU>"));
    EXPECT_TRUE(WrittenXml(CompleteSCU(3.14159)).contains(QStringLiteral(">3.14<")));
}

TEST(SCURecord, CompletenessCheckOrderAndAnyData) {
    SCU scu;
    EXPECT_EQ(ThrownMessage([&] { scu.Check(); }), QStringLiteral("SCU: Please set Frequency!"));
    // Bounds alone do not make the frequency set, nor does a partial path.
    scu.SetFrequencyMinMax(5, 2);
    scu.GetATTANTPath().SetATT1(true);
    EXPECT_FALSE(scu.AnyData());
    EXPECT_EQ(scu.GetFrequencyMinMax().GetMin(), 5);
    EXPECT_EQ(scu.GetFrequencyMinMax().GetMax(), 2);
    scu.SetFrequency(1.5);
    EXPECT_TRUE(scu.AnyData());
    EXPECT_EQ(ThrownMessage([&] { scu.Check(); }), QStringLiteral("SCU: Please set TransmitTime!"));
    scu.SetTransmitTime(0.5);
    EXPECT_FALSE(scu.HasData());
    EXPECT_TRUE(WrittenXml(scu).isEmpty());
    EXPECT_EQ(ThrownMessage([&] { scu.Check(); }), QStringLiteral("ATTANTPath: Please set ATT2!"));

    scu = CompleteSCU(1);
    EXPECT_NO_THROW(scu.Check());
    scu.SetTransmitTime(-111111.11);
    EXPECT_FALSE(scu.HasData());
}

TEST(SCURecord, ReadingKeepsEarlierValuesAndRoundTrips) {
    SCU scu;
    EXPECT_EQ(ThrownMessage([&] {
                  scu.SetXmlString(QStringLiteral("<SCU><TransmitTime>abc</TransmitTime>"
                                                  "<Power>1</Power></SCU>"));
              }),
              QStringLiteral("Unknown Tag 'Power' in 'SCU'"));
    EXPECT_EQ(scu.GetTransmitTime(), 0);
    EXPECT_TRUE(scu.GetVersion().isEmpty());

    const QString written = WrittenXml(CompleteSCU(2.25));
    SCU back;
    back.SetXmlString(written);
    EXPECT_EQ(WrittenXml(back), written);
    SCU unversioned;
    unversioned.SetXmlString(QString(written).remove(QStringLiteral(" Version=\"1.0\"")));
    EXPECT_TRUE(WrittenXml(unversioned).startsWith(QStringLiteral("<SCU Version=\"\">")));
}

TEST(SCURecord, ResetKeepsVersionAndCopiesAreIndependent) {
    SCU source = CompleteSCU(1);
    SCU copy(source);
    EXPECT_EQ(WrittenXml(copy), WrittenXml(source));
    copy.SetFrequency(9);
    copy.GetATTANTPath().SetATT1(false);
    EXPECT_EQ(source.GetFrequency(), 100.5);
    EXPECT_TRUE(source.GetATTANTPath().GetATT1());

    source.SetXmlString(QStringLiteral("<SCU Version=\"3\"/>"));
    source.Reset();
    EXPECT_FALSE(source.AnyData());
    EXPECT_FALSE(source.GetATTANTPath().AnyData());
    EXPECT_EQ(source.GetVersion(), QStringLiteral("3"));
    // Assignment replaces the whole record.
    source = copy;
    EXPECT_EQ(WrittenXml(source), WrittenXml(copy));
}
