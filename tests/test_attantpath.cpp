// SPDX-License-Identifier: MIT
#include "RecordFixtures.h"
#include "TestSupport.h"

#include <ATTANTPath.h>

using namespace KELMORA;
using testfixtures::CompletePath;
using testsupport::CheckMessage;
using testsupport::ThrownMessage;
using testsupport::WrittenXml;

TEST(ATTANTPathRecord, WritesSixSwitchesInOrderOnlyWhenComplete) {
    ATTANTPath path = CompletePath();
    EXPECT_EQ(WrittenXml(path),
              QStringLiteral("<ATTANTPath><ATT1>true</ATT1><ATT2>false</ATT2><ATT3>false</ATT3>"
                             "<ATT4>true</ATT4><ATT5>false</ATT5><ATT6>false</ATT6></ATTANTPath>"));
    EXPECT_EQ(CheckMessage(ATTANTPath()), QStringLiteral("ATTANTPath: Please set ATT1!"));

    path.Reset();
    EXPECT_FALSE(path.AnyData() || path.GetATT1() || path.GetATT4());
    // Each switch, the last included, left alone unset: nothing is written
    // and Check() names it.
    void (ATTANTPath::*const sets[])(bool) = {&ATTANTPath::SetATT1, &ATTANTPath::SetATT2,
                                              &ATTANTPath::SetATT3, &ATTANTPath::SetATT4,
                                              &ATTANTPath::SetATT5, &ATTANTPath::SetATT6};
    for (int unset = 0; unset < 6; ++unset) {
        path.Reset();
        for (int position = 0; position < 6; ++position)
            if (position != unset)
                (path.*sets[position])(true);
        EXPECT_TRUE(path.AnyData());
        EXPECT_FALSE(path.HasData());
        EXPECT_TRUE(WrittenXml(path).isEmpty());
        EXPECT_EQ(CheckMessage(path),
                  QStringLiteral("ATTANTPath: Please set ATT%1!").arg(unset + 1));
    }
}

TEST(ATTANTPathRecord, ReadsTextsVerbatimAndRejectsUnknownOrMiscasedChildren) {
    const auto path = testsupport::ReadFrom<ATTANTPath>(
        QStringLiteral("<ATTANTPath><ATT1>True</ATT1><ATT2>1</ATT2><ATT3>true</ATT3>"
                       "<ATT4>false</ATT4><ATT5>x</ATT5><ATT6>false</ATT6></ATTANTPath>"));
    EXPECT_TRUE(path.HasData());
    EXPECT_FALSE(path.GetATT1() || path.GetATT2());
    EXPECT_TRUE(path.GetATT3());
    EXPECT_TRUE(WrittenXml(path).startsWith(
        QStringLiteral("<ATTANTPath><ATT1>True</ATT1><ATT2>1</ATT2><ATT3>true</ATT3>")));

    ATTANTPath partial;
    EXPECT_EQ(
        ThrownMessage([&] {
            partial.SetXmlString(QStringLiteral(
                "<ATTANTPath><ATT1>true</ATT1><ATT7>true</ATT7><ATT2>true</ATT2></ATTANTPath>"));
        }),
        QStringLiteral("Unknown Tag 'ATT7' in 'ATTANTPath'"));
    EXPECT_TRUE(partial.GetATT1());
    EXPECT_FALSE(partial.GetATT2());
    EXPECT_EQ(ThrownMessage([&] {
                  partial.SetXmlString(
                      QStringLiteral("<ATTANTPath><att1>true</att1></ATTANTPath>"));
              }),
              QStringLiteral("Unknown Tag 'att1' in 'ATTANTPath'"));
}
