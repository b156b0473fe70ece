#include "RecordFixtures.h"
#include "TestSupport.h"

#include <ATTANTPath.h>

using namespace KELMORA;
using testfixtures::CompletePath;
using testsupport::ThrownMessage;
using testsupport::WrittenXml;

namespace {} // namespace

TEST(ATTANTPathRecord, WritesSixSwitchesInOrderWithoutAttributes) {
    EXPECT_EQ(WrittenXml(CompletePath()),
              QStringLiteral("<ATTANTPath><ATT1>true</ATT1><ATT2>false</ATT2><ATT3>false</ATT3>"
                             "<ATT4>true</ATT4><ATT5>false</ATT5><ATT6>false</ATT6></ATTANTPath>"));
}

TEST(ATTANTPathRecord, IncompletePathWritesNothingAndNamesFirstMissingSwitch) {
    ATTANTPath path = CompletePath();
    path.Reset();
    path.SetATT1(true);
    path.SetATT2(true);
    path.SetATT3(true);
    path.SetATT5(true);
    path.SetATT6(true);
    EXPECT_TRUE(WrittenXml(path).isEmpty());
    EXPECT_EQ(ThrownMessage([&] { path.Check(); }), QStringLiteral("ATTANTPath: Please set ATT4!"));
    EXPECT_EQ(ThrownMessage([] { ATTANTPath().Check(); }),
              QStringLiteral("ATTANTPath: Please set ATT1!"));
}

TEST(ATTANTPathRecord, DataQueriesAndReset) {
    ATTANTPath path;
    path.SetATT2(false);
    EXPECT_TRUE(path.AnyData());
    EXPECT_FALSE(path.HasData());
    path = CompletePath();
    EXPECT_TRUE(path.HasData());
    path.Reset();
    EXPECT_FALSE(path.HasData());
    EXPECT_FALSE(path.AnyData());
    EXPECT_FALSE(path.GetATT1());
    EXPECT_FALSE(path.GetATT4());
}

TEST(ATTANTPathRecord, ReadTextsAreStoredVerbatim) {
    ATTANTPath path;
    path.SetXmlString(
        QStringLiteral("<ATTANTPath><ATT1>True</ATT1><ATT2>1</ATT2><ATT3>true</ATT3>"
                       "<ATT4>false</ATT4><ATT5>x</ATT5><ATT6>false</ATT6></ATTANTPath>"));
    EXPECT_TRUE(path.HasData());
    EXPECT_FALSE(path.GetATT1());
    EXPECT_FALSE(path.GetATT2());
    EXPECT_TRUE(path.GetATT3());
    EXPECT_TRUE(WrittenXml(path).startsWith(
        QStringLiteral("<ATTANTPath><ATT1>True</ATT1><ATT2>1</ATT2><ATT3>true</ATT3>")));
}

TEST(ATTANTPathRecord, UnknownOrMiscasedChildFailsAfterKeepingEarlierSwitches) {
    ATTANTPath path;
    EXPECT_EQ(
        ThrownMessage([&] {
            path.SetXmlString(QStringLiteral(
                "<ATTANTPath><ATT1>true</ATT1><ATT7>true</ATT7><ATT2>true</ATT2></ATTANTPath>"));
        }),
        QStringLiteral("Unknown Tag 'ATT7' in 'ATTANTPath'"));
    EXPECT_TRUE(path.GetATT1());
    EXPECT_FALSE(path.GetATT2());
    EXPECT_EQ(ThrownMessage([&] {
                  path.SetXmlString(QStringLiteral("<ATTANTPath><att1>true</att1></ATTANTPath>"));
              }),
              QStringLiteral("Unknown Tag 'att1' in 'ATTANTPath'"));
}

TEST(ATTANTPathRecord, CopiesAreIndependentAndSurviveRoundTrip) {
    ATTANTPath source = CompletePath();
    ATTANTPath copy(source);
    copy.SetATT1(false);
    EXPECT_TRUE(source.GetATT1());
    ATTANTPath back;
    back.SetXmlString(source.GetXmlString());
    EXPECT_EQ(WrittenXml(back), WrittenXml(source));
    EXPECT_EQ(back.GetObjectName(), QStringLiteral("ATTANTPath"));
    EXPECT_TRUE(back.GetVersion().isEmpty());
}
