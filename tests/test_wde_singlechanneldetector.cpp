#include "TestSupport.h"

#include <WDE_Singlechanneldetector.h>

#include <limits>

using namespace KELMORA;
using testsupport::ThrownMessage;
using testsupport::WrittenXml;

namespace {

WDE_Singlechanneldetector CompleteDetector() {
    WDE_Singlechanneldetector detector(1);
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
    EXPECT_EQ(
        WrittenXml(CompleteDetector()),
        QStringLiteral("<WDE_Singlechanneldetector Version=\"0.1\" Index=\"1\" Name=\"ch1\">"
                       "<Frequency>145500000</Frequency><Bandwidth>12500</Bandwidth>"
                       "<MinimumFixedFrequencyLength>1.23457e+06</MinimumFixedFrequencyLength>"
                       "<ExciterSet>2</ExciterSet><Active>true</Active>"
                       "<AbsoluteThresholdValue>-87.5</AbsoluteThresholdValue>"
                       "</WDE_Singlechanneldetector>"));
    const QString unsetXml = WrittenXml(WDE_Singlechanneldetector());
    EXPECT_EQ(unsetXml,
              QStringLiteral("<WDE_Singlechanneldetector Version=\"0.1\"><Frequency/><Bandwidth/>"
                             "<MinimumFixedFrequencyLength>-111111</MinimumFixedFrequencyLength>"
                             "<ExciterSet>4294967295</ExciterSet><Active>false</Active>"
                             "<AbsoluteThresholdValue>-111111</AbsoluteThresholdValue>"
                             "</WDE_Singlechanneldetector>"));

    WDE_Singlechanneldetector fromUnset;
    fromUnset.SetXmlString(unsetXml);
    EXPECT_EQ(fromUnset.GetMinimumFixedFrequencyLength(), -111111.0);
    EXPECT_EQ(fromUnset.GetExciterSet(), 4294967295u);

    // Mis-cased and unknown children are skipped whole and later ones read;
    // absent "Index"/"Name" keep the held values, absent "Version" empties it.
    WDE_Singlechanneldetector target = CompleteDetector();
    target.SetXmlString(QStringLiteral(
        "<WDE_Singlechanneldetector><frequency>5</frequency><Other><ExciterSet>9</ExciterSet>"
        "</Other><Bandwidth Minimum=\"1\" Maximum=\"2\">25000</Bandwidth><Active>yes</Active>"
        "</WDE_Singlechanneldetector>"));
    EXPECT_EQ(target.GetFrequency(), 145500000.0);
    EXPECT_EQ(target.GetExciterSet(), 2u);
    EXPECT_FALSE(target.GetActive());
    EXPECT_EQ(target.GetIndex(), 1);
    EXPECT_EQ(target.GetItemName(), QStringLiteral("ch1"));
    EXPECT_TRUE(target.GetVersion().isEmpty());
    // SetBandwidth changes the value only; the range read above stays.
    target.SetBandwidth(30000.0);
    EXPECT_TRUE(WrittenXml(target).contains(
        QStringLiteral("<Bandwidth Minimum=\"1\" Maximum=\"2\">30000</Bandwidth>")));
}

TEST(WDESinglechanneldetectorRecord, EqualityComparesListedFieldsWithIeeeSemantics) {
    const WDE_Singlechanneldetector base = CompleteDetector();
    WDE_Singlechanneldetector other = CompleteDetector();
    other.SetItemName(QStringLiteral("different"));
    other.SetXmlString(QStringLiteral("<WDE_Singlechanneldetector Version=\"9.9\">"
                                      "<Frequency Minimum=\"1\" Maximum=\"2\">145500000</Frequency>"
                                      "</WDE_Singlechanneldetector>"));
    EXPECT_TRUE(base == other);
    EXPECT_FALSE(base != other);

    WDE_Singlechanneldetector inactive = CompleteDetector();
    inactive.SetActive(false);
    EXPECT_TRUE(base != inactive);

    WDE_Singlechanneldetector withNan = CompleteDetector();
    withNan.SetAbsoluteThresholdValue(std::numeric_limits<double>::quiet_NaN());
    const WDE_Singlechanneldetector nanCopy(withNan);
    EXPECT_FALSE(withNan == nanCopy);
    EXPECT_TRUE(withNan != nanCopy);
    WDE_Singlechanneldetector positiveZero = CompleteDetector();
    WDE_Singlechanneldetector negativeZero = CompleteDetector();
    positiveZero.SetBandwidth(0.0);
    negativeZero.SetBandwidth(-0.0);
    EXPECT_TRUE(positiveZero == negativeZero);
    EXPECT_TRUE(WDE_Singlechanneldetector(6) == WDE_Singlechanneldetector(6));
    EXPECT_TRUE(WDE_Singlechanneldetector(6) != WDE_Singlechanneldetector(7));
}

TEST(WDESinglechanneldetectorRecord, CheckDataQueriesAndReset) {
    WDE_Singlechanneldetector detector;
    EXPECT_EQ(ThrownMessage([&] { detector.Check(); }),
              QStringLiteral("Frequency: Please set Value!"));
    detector.SetFrequency(1.0);
    detector.SetBandwidth(1.0);
    EXPECT_TRUE(detector.AnyData());
    EXPECT_EQ(ThrownMessage([&] { detector.Check(); }),
              QStringLiteral("WDE_Singlechanneldetector:Please set MinimumFixedFrequencyLength!"));
    // Exact comparison with the marker: a NaN counts as set.
    detector.SetMinimumFixedFrequencyLength(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(ThrownMessage([&] { detector.Check(); }),
              QStringLiteral("WDE_Singlechanneldetector:Please set ExciterSet!"));
    detector.SetExicterSet(0);
    EXPECT_EQ(ThrownMessage([&] { detector.Check(); }),
              QStringLiteral("WDE_Singlechanneldetector:Please set AbsoluteThresholdValue!"));
    EXPECT_FALSE(detector.HasData());
    detector.SetAbsoluteThresholdValue(-111111.0);
    EXPECT_NO_THROW(detector.Check());
    EXPECT_TRUE(detector.HasData());

    // Reset keeps the version text and Active, and the members' element names.
    WDE_Singlechanneldetector full = CompleteDetector();
    full.SetXmlString(QStringLiteral("<WDE_Singlechanneldetector Version=\"2.0\"/>"));
    full.Reset();
    EXPECT_FALSE(full.AnyData());
    EXPECT_TRUE(full.GetActive());
    EXPECT_EQ(full.GetVersion(), QStringLiteral("2.0"));
    EXPECT_TRUE(full.GetItemName().isEmpty());
    EXPECT_TRUE(WrittenXml(full).startsWith(
        QStringLiteral("<WDE_Singlechanneldetector Version=\"2.0\"><Frequency/><Bandwidth/>")));
    EXPECT_FALSE(WDE_Singlechanneldetector().GetActive());
}
