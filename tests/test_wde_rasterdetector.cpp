#include "TestSupport.h"

#include <WDE_Rasterdetector.h>

using namespace KELMORA;
using testsupport::CheckMessage;
using testsupport::WrittenXml;

namespace {

using Raster = WDE_Rasterdetector;

const QString kNewRecordXml = QStringLiteral(
    "<WDE_Rasterdetector Version=\"0.1\"><ChannelStep>-111111</ChannelStep>"
    "<MinimumFixedFrequencyLength>-111111</MinimumFixedFrequencyLength>"
    "<ExciterSet>4294967295</ExciterSet><Active>false</Active><ThresholdMode></ThresholdMode>"
    "<Frequency></Frequency></WDE_Rasterdetector>");

QString Element(const QString& children) {
    return QStringLiteral("<WDE_Rasterdetector>%1</WDE_Rasterdetector>").arg(children);
}

} // namespace

TEST(WDERasterdetectorItem, FrequencyListTravelsAsBase64OfLittleEndianDoubles) {
    Raster record;
    record.AppendFrequency(1.0);
    record.AppendFrequency(2.0);
    EXPECT_TRUE(WrittenXml(record).contains(
        QStringLiteral("<Frequency>AAAAAAAA8D8AAAAAAAAAQA==</Frequency>")));
    const QString three = QStringLiteral("AAAAAGDjNkEAAAAAAAACwPyp8dJNYlA/");
    record.SetFrequencyList({1.5e6, -2.25, 1e-3});
    EXPECT_TRUE(WrittenXml(record).contains(three));

    // Reading replaces the list; the last of several children decides.
    Raster read;
    read.SetFrequencyList({7, 8, 9, 10});
    read.SetXmlString(Element(
        QStringLiteral("<Frequency>AAAAAAAAWUA=</Frequency><Frequency>%1</Frequency>").arg(three)));
    EXPECT_EQ(read.GetFrequencyList(), QVector<double>({1.5e6, -2.25, 1e-3}));
    // Twelve decoded bytes give one value.
    read.SetXmlString(Element(QStringLiteral("<Frequency>AAAAAAAA8D8AAABA</Frequency>")));
    EXPECT_EQ(read.GetFrequencyList(), QVector<double>({1.0}));
    read.SetXmlString(Element(QString()));
    EXPECT_EQ(read.GetFrequencyList(), QVector<double>({1.0}));
    read.SetXmlString(Element(QStringLiteral("<Frequency/>")));
    EXPECT_TRUE(read.GetFrequencyList().isEmpty());
}

TEST(WDERasterdetectorItem, WritesChildrenInOrderAndUnsetMarkersReadBack) {
    EXPECT_EQ(WrittenXml(Raster()), kNewRecordXml);

    Raster full(3);
    full.SetItemName(QStringLiteral("R1"));
    full.SetChannelStep(1234567);
    full.SetMinimumFixedFrequencyLength(0.5);
    full.SetExicterSet(12);
    full.SetActive(true);
    full.SetThresholdMode(Raster::THRESHOLDMODE_ABSOLUTE);
    full.SetAbsoluteThresholdValue(-80);
    full.SetRelativeThresholdValue(6.25);
    full.SetRelativeThresholdAvgTime(Raster::AVGTIME_SHORT);
    full.SetAmplifier(Raster::AMPLIFIER_SHF2);
    full.AppendFrequency(100);
    EXPECT_EQ(WrittenXml(full),
              QStringLiteral("<WDE_Rasterdetector Version=\"0.1\" Index=\"3\" Name=\"R1\">"
                             "<ChannelStep>1.23457e+06</ChannelStep>"
                             "<MinimumFixedFrequencyLength>0.5</MinimumFixedFrequencyLength>"
                             "<ExciterSet>12</ExciterSet><Active>true</Active>"
                             "<ThresholdMode>ABSOLUTE</ThresholdMode>"
                             "<AbsoluteThresholdValue>-80</AbsoluteThresholdValue>"
                             "<RelativeThresholdValue>6.25</RelativeThresholdValue>"
                             "<RelativeThresholdAvgTime>SHORT</RelativeThresholdAvgTime>"
                             "<Amplifier>SHF2</Amplifier><Frequency>AAAAAAAAWUA=</Frequency>"
                             "</WDE_Rasterdetector>"));
    EXPECT_EQ(WrittenXml(testsupport::ReadFrom<Raster>(WrittenXml(full))), WrittenXml(full));

    const auto back = testsupport::ReadFrom<Raster>(kNewRecordXml);
    EXPECT_EQ(back.GetChannelStep(), -111111.0);
    EXPECT_EQ(back.GetThresholdMode(), -1);
    EXPECT_EQ(CheckMessage(back), QStringLiteral("WDE_Rasterdetector:Please set ExciterSet!"));

    // Reset keeps the version text and Active.
    full.SetXmlString(QStringLiteral("<WDE_Rasterdetector Version=\"0.9\"/>"));
    full.Reset();
    EXPECT_FALSE(full.AnyData());
    EXPECT_EQ(WrittenXml(full), QString(kNewRecordXml)
                                    .replace(QStringLiteral("0.1"), QStringLiteral("0.9"))
                                    .replace(QStringLiteral(">false<"), QStringLiteral(">true<")));
}

TEST(WDERasterdetectorItem, CheckOrderAndThresholdModeDecideWhatIsNeeded) {
    Raster record;
    EXPECT_EQ(CheckMessage(record), QStringLiteral("WDE_Rasterdetector:Please set ChannelStep!"));
    record.SetChannelStep(1);
    EXPECT_EQ(CheckMessage(record),
              QStringLiteral("WDE_Rasterdetector:Please set MinimumFixedFrequencyLength!"));
    record.SetMinimumFixedFrequencyLength(1);
    record.SetExicterSet(4294967294u);
    EXPECT_EQ(CheckMessage(record), QStringLiteral("WDE_Rasterdetector:Please set ThresholdMode!"));
    record.SetThresholdMode(Raster::THRESHOLDMODE_ABSOLUTE);
    record.SetRelativeThresholdValue(3);
    EXPECT_EQ(CheckMessage(record),
              QStringLiteral("WDE_Rasterdetector:Please set AbsoluteThresholdValue!"));
    record.SetThresholdMode(Raster::THRESHOLDMODE_RELATIVE);
    EXPECT_EQ(CheckMessage(record),
              QStringLiteral("WDE_Rasterdetector:Please set RelativeThresholdAvgTime!"));
    record.SetRelativeThresholdValue(-111111.11);
    EXPECT_EQ(CheckMessage(record),
              QStringLiteral("WDE_Rasterdetector:Please set RelativeThresholdValue!"));

    record.SetRelativeThresholdValue(6);
    record.SetRelativeThresholdAvgTime(Raster::AVGTIME_MIDDLE);
    EXPECT_NO_THROW(record.Check());
    EXPECT_TRUE(record.HasData());
    record.SetThresholdMode(Raster::THRESHOLDMODE_ABSOLUTE);
    EXPECT_FALSE(record.HasData());
    record.SetAbsoluteThresholdValue(-90);
    record.SetRelativeThresholdAvgTime(static_cast<Raster::AvgTime>(-1));
    EXPECT_TRUE(record.HasData());

    // A mode outside the table passes Check but is never complete.
    record.SetThresholdMode(static_cast<Raster::ThresholdMode>(2));
    record.SetAmplifier(static_cast<Raster::Amplifier>(7));
    EXPECT_NO_THROW(record.Check());
    EXPECT_FALSE(record.HasData());
    for (const char* empty : {"<ThresholdMode></ThresholdMode>", "<Amplifier></Amplifier>"})
        EXPECT_TRUE(WrittenXml(record).contains(QLatin1String(empty))) << empty;
}

TEST(WDERasterdetectorItem, ReadingPassesOverUnknownChildrenAndUsesDisplayTexts) {
    Raster record;
    EXPECT_FALSE(record.GetActive());
    record.SetAbsoluteThresholdValue(-70);
    record.SetXmlString(Element(QStringLiteral(
        "<Unknown><ChannelStep>1</ChannelStep></Unknown><ChannelStep>x</ChannelStep>"
        "<channelstep>3</channelstep><ExciterSet>-2</ExciterSet><Amplifier>VUHF</Amplifier>"
        "<RelativeThresholdAvgTime>SHORt</RelativeThresholdAvgTime>")));
    EXPECT_EQ(record.GetChannelStep(), 0.0);
    EXPECT_EQ(record.GetExciterSet(), 0u);
    EXPECT_EQ(record.GetAmplifier(), Raster::AMPLIFIER_VUHF);
    EXPECT_EQ(record.GetAbsoluteThresholdValue(), -70.0);
    EXPECT_EQ(record.GetRelativeThresholdAvgTime(), -1); // the SKPI word is not a display text

    EXPECT_EQ(record.GetAmplifierForString(QStringLiteral("uhf2")), -1);
    EXPECT_EQ(record.GetAvgTimeForString(QStringLiteral("MIDDLe")), -1);
    EXPECT_EQ(record.GetAvgTimeForSKPIString(QStringLiteral("SHORt")), Raster::AVGTIME_SHORT);
    EXPECT_EQ(record.GetAvgTimeForSKPIString(QStringLiteral("SHORT")), -1);
    EXPECT_EQ(record.GetAvgTimeForSKPIString(QStringLiteral("LONG")), Raster::AVGTIME_LONG);
    EXPECT_EQ(record.GetSKPIStringForAvgTime(Raster::AVGTIME_MIDDLE), QStringLiteral("MIDDLe"));

    // AnyData ignores Active but counts the list.
    Raster empty;
    empty.SetActive(true);
    EXPECT_FALSE(empty.AnyData());
    empty.AppendFrequency(1);
    EXPECT_TRUE(empty.AnyData());
}
