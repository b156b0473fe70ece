// SPDX-License-Identifier: MIT
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

// The codec itself is compared with QByteArray's Base64 in test_exact_short_cuts.
TEST(WDERasterdetectorItem, FrequencyListTravelsAsBase64OfLittleEndianDoubles) {
    Raster record;
    record.AppendFrequency(1.0);
    record.AppendFrequency(2.0);
    EXPECT_TRUE(record.AnyData()); // the list alone counts
    EXPECT_TRUE(WrittenXml(record).contains(
        QStringLiteral("<Frequency>AAAAAAAA8D8AAAAAAAAAQA==</Frequency>")));

    // Reading replaces the list; the last of several children decides, and
    // without a child the list stays.
    const QVector<double> three{1.5e6, -2.25, 1e-3};
    record.SetXmlString(Element(QStringLiteral("<Frequency>AAAAAAAAWUA=</Frequency>"
                                               "<Frequency>AAAAAGDjNkEAAAAAAAACwPyp8dJNYlA/"
                                               "</Frequency>")));
    EXPECT_EQ(record.GetFrequencyList(), three);
    record.SetXmlString(Element(QString()));
    EXPECT_EQ(record.GetFrequencyList(), three);
    record.SetXmlString(Element(QStringLiteral("<Frequency/>")));
    EXPECT_TRUE(record.GetFrequencyList().isEmpty());
}

TEST(WDERasterdetectorItem, WritesChildrenInOrderAndUnsetMarkersReadBack) {
    EXPECT_EQ(WrittenXml(Raster()), kNewRecordXml);

    // Every child set, read back and written again as it was.
    const QString complete =
        QStringLiteral("<WDE_Rasterdetector Version=\"0.1\" Index=\"3\" Name=\"R1\">"
                       "<ChannelStep>1.23457e+06</ChannelStep>"
                       "<MinimumFixedFrequencyLength>0.5</MinimumFixedFrequencyLength>"
                       "<ExciterSet>12</ExciterSet><Active>true</Active>"
                       "<ThresholdMode>ABSOLUTE</ThresholdMode>"
                       "<AbsoluteThresholdValue>-80</AbsoluteThresholdValue>"
                       "<RelativeThresholdValue>6.25</RelativeThresholdValue>"
                       "<RelativeThresholdAvgTime>SHORT</RelativeThresholdAvgTime>"
                       "<Amplifier>SHF2</Amplifier><Frequency>AAAAAAAAWUA=</Frequency>"
                       "</WDE_Rasterdetector>");
    auto full = testsupport::ReadFrom<Raster>(complete);
    EXPECT_EQ(WrittenXml(full), complete);

    // The written double marker reads back as a value, the unsigned one as unset.
    const auto back = testsupport::ReadFrom<Raster>(kNewRecordXml);
    EXPECT_EQ(back.GetChannelStep(), -111111.0);
    EXPECT_EQ(back.GetThresholdMode(), -1);
    EXPECT_EQ(CheckMessage(back), QStringLiteral("WDE_Rasterdetector:Please set ExciterSet!"));

    // Reset keeps the version text and Active, which AnyData ignores.
    full.SetXmlString(QStringLiteral("<WDE_Rasterdetector Version=\"0.9\"/>"));
    full.Reset();
    EXPECT_FALSE(full.AnyData());
    EXPECT_EQ(WrittenXml(full), QString(kNewRecordXml)
                                    .replace(QStringLiteral("0.1"), QStringLiteral("0.9"))
                                    .replace(QStringLiteral(">false<"), QStringLiteral(">true<")));
}

TEST(WDERasterdetectorItem, CheckOrderAndThresholdModeDecideWhatIsNeeded) {
    // Each step fills what the message before it asked for.
    Raster record;
    const std::pair<const char*, std::function<void()>> steps[] = {
        {"ChannelStep", [&] { record.SetChannelStep(1); }},
        {"MinimumFixedFrequencyLength", [&] { record.SetMinimumFixedFrequencyLength(1); }},
        {"ExciterSet", [&] { record.SetExicterSet(4294967294u); }},
        {"ThresholdMode", [&] { record.SetThresholdMode(Raster::THRESHOLDMODE_ABSOLUTE); }},
        {"AbsoluteThresholdValue",
         [&] { record.SetThresholdMode(Raster::THRESHOLDMODE_RELATIVE); }},
        {"RelativeThresholdValue", [&] { record.SetRelativeThresholdValue(6); }},
        {"RelativeThresholdAvgTime",
         [&] { record.SetRelativeThresholdAvgTime(Raster::AVGTIME_MIDDLE); }},
    };
    for (const auto& [missing, fill] : steps) {
        EXPECT_FALSE(record.HasData()) << missing;
        EXPECT_EQ(CheckMessage(record),
                  QStringLiteral("WDE_Rasterdetector:Please set %1!").arg(missing));
        fill();
    }
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

    using testsupport::ExpectEnumTexts;
    ExpectEnumTexts("VUHF UHF1 UHF2 SHF1 SHF2", &Raster::GetStringForAmplifier,
                    &Raster::GetAmplifierForString);
    ExpectEnumTexts("ABSOLUTE RELATIVE", &Raster::GetStringForThresholdMode,
                    &Raster::GetThresholdModeForString);
    ExpectEnumTexts("SHORT MIDDLE LONG", &Raster::GetStringForAvgTime,
                    &Raster::GetAvgTimeForString);
    ExpectEnumTexts("SHORt MIDDLe LONG", &Raster::GetSKPIStringForAvgTime,
                    &Raster::GetAvgTimeForSKPIString);
}
