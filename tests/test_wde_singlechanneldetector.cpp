// SPDX-License-Identifier: MIT
#include "TestSupport.h"

#include <WDE_Singlechanneldetector.h>

#include <limits>

using namespace KELMORA;
using testsupport::CheckMessage;
using testsupport::WrittenXml;

namespace {

using Detector = WDE_Singlechanneldetector;

Detector CompleteDetector() {
    Detector detector(1);
    detector.SetItemName(QStringLiteral("ch1"));
    detector.SetFrequency(145500000.0);
    detector.SetBandwidth(12500.0);
    detector.SetMinimumFixedFrequencyLength(1234567.0);
    detector.SetExicterSet(2);
    detector.SetActive(true);
    detector.SetAbsoluteThresholdValue(-87.5);
    return detector;
}

} // namespace

TEST(WDESinglechanneldetectorRecord, WritesInOrderAndReadsBack) {
    EXPECT_EQ(WrittenXml(CompleteDetector()),
              QStringLiteral("<WDE_Singlechanneldetector Version=\"0.1\" Index=\"1\" Name=\"ch1\">"
                             "<Frequency>145500000</Frequency><Bandwidth>12500</Bandwidth>"
                             "<MinimumFixedFrequencyLength>1.23457e+06"
                             "</MinimumFixedFrequencyLength><ExciterSet>2</ExciterSet>"
                             "<Active>true</Active>"
                             "<AbsoluteThresholdValue>-87.5</AbsoluteThresholdValue>"
                             "</WDE_Singlechanneldetector>"));
    EXPECT_EQ(WrittenXml(Detector()),
              QStringLiteral("<WDE_Singlechanneldetector Version=\"0.1\"><Frequency/><Bandwidth/>"
                             "<MinimumFixedFrequencyLength>-111111</MinimumFixedFrequencyLength>"
                             "<ExciterSet>4294967295</ExciterSet><Active>false</Active>"
                             "<AbsoluteThresholdValue>-111111</AbsoluteThresholdValue>"
                             "</WDE_Singlechanneldetector>"));

    // Unknown children are skipped whole; the ranges read their bounds too.
    Detector target = CompleteDetector();
    target.SetXmlString(QStringLiteral(
        "<WDE_Singlechanneldetector><frequency>5</frequency><Other><ExciterSet>9</ExciterSet>"
        "</Other><Bandwidth Minimum=\"1\" Maximum=\"2\">25000</Bandwidth><Active>yes</Active>"
        "</WDE_Singlechanneldetector>"));
    EXPECT_EQ(target.GetFrequency(), 145500000.0);
    EXPECT_EQ(target.GetExciterSet(), 2u);
    EXPECT_FALSE(target.GetActive());
    // SetBandwidth changes the value only; the range read above stays.
    target.SetBandwidth(30000.0);
    EXPECT_TRUE(WrittenXml(target).contains(
        QStringLiteral("<Bandwidth Minimum=\"1\" Maximum=\"2\">30000</Bandwidth>")));
}

TEST(WDESinglechanneldetectorRecord, EqualityComparesListedFieldsWithIeeeSemantics) {
    const Detector base = CompleteDetector();
    Detector other = CompleteDetector();
    other.SetItemName(QStringLiteral("different"));
    other.SetXmlString(QStringLiteral("<WDE_Singlechanneldetector Version=\"9.9\">"
                                      "<Frequency Minimum=\"1\" Maximum=\"2\">145500000</Frequency>"
                                      "</WDE_Singlechanneldetector>"));
    EXPECT_TRUE(base == other);
    Detector inactive = CompleteDetector();
    inactive.SetActive(false);
    EXPECT_TRUE(base != inactive);
    EXPECT_TRUE(Detector(6) != Detector(7));

    Detector withNan = CompleteDetector();
    withNan.SetAbsoluteThresholdValue(std::numeric_limits<double>::quiet_NaN());
    const Detector nanCopy(withNan);
    EXPECT_FALSE(withNan == nanCopy);
    EXPECT_TRUE(withNan != nanCopy);
    Detector positiveZero = CompleteDetector();
    Detector negativeZero = CompleteDetector();
    positiveZero.SetBandwidth(0.0);
    negativeZero.SetBandwidth(-0.0);
    EXPECT_TRUE(positiveZero == negativeZero);
}

TEST(WDESinglechanneldetectorRecord, CheckDataQueriesAndReset) {
    Detector detector;
    EXPECT_EQ(CheckMessage(detector), QStringLiteral("Frequency: Please set Value!"));
    detector.SetFrequency(1.0);
    detector.SetBandwidth(1.0);
    EXPECT_TRUE(detector.AnyData());
    EXPECT_EQ(CheckMessage(detector),
              QStringLiteral("WDE_Singlechanneldetector:Please set MinimumFixedFrequencyLength!"));
    // Exact comparison with the marker: a NaN counts as set.
    detector.SetMinimumFixedFrequencyLength(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(CheckMessage(detector),
              QStringLiteral("WDE_Singlechanneldetector:Please set ExciterSet!"));
    detector.SetExicterSet(0);
    EXPECT_EQ(CheckMessage(detector),
              QStringLiteral("WDE_Singlechanneldetector:Please set AbsoluteThresholdValue!"));
    EXPECT_FALSE(detector.HasData());
    detector.SetAbsoluteThresholdValue(-111111.0);
    EXPECT_NO_THROW(detector.Check());
    EXPECT_TRUE(detector.HasData());

    // Reset keeps the version text and Active, and the members' element names.
    Detector full = CompleteDetector();
    full.SetXmlString(QStringLiteral("<WDE_Singlechanneldetector Version=\"2.0\"/>"));
    full.Reset();
    EXPECT_FALSE(full.AnyData());
    EXPECT_EQ(WrittenXml(full), QString(WrittenXml(Detector()))
                                    .replace(QStringLiteral("0.1"), QStringLiteral("2.0"))
                                    .replace(QStringLiteral(">false<"), QStringLiteral(">true<")));
}
