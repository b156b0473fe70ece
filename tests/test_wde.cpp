// SPDX-License-Identifier: MIT
// WDE and the four kinds of its list items: what they write, read, check and reset.
#include "RecordFixtures.h"
#include "TestSupport.h"

#include <WDE.h>

#include <WDE_Exciter.h>
#include <WDE_Rasterdetector.h>
#include <WDE_Simulation.h>
#include <WDE_Singlechanneldetector.h>

#include <QRegularExpression>

#include <limits>

using namespace KELMORA;
using testfixtures::CompleteWDE;
using testsupport::CheckMessage;
using testsupport::ExpectEnumTexts;
using testsupport::ReadFrom;
using testsupport::WrittenXml;

namespace {

using Raster = WDE_Rasterdetector;
using Detector = WDE_Singlechanneldetector;
const double kNaN = std::numeric_limits<double>::quiet_NaN();

const QString kFreshExciter =
    "<WDE_Exciter Version=\"0.1\"><SignalType></SignalType><SymbolRate>-111111</SymbolRate>"
    "<Level>-111111</Level></WDE_Exciter>";
const QString kFreshSimulation =
    "<WDE_Simulation Version=\"0.1\"><Active>false</Active><Type></Type>"
    "<ExciterSet>4294967295</ExciterSet><PNStartValue>4294967295</PNStartValue>"
    "<RelativeCenterFrequency>-111111</RelativeCenterFrequency>"
    "<ChannelCount>4294967295</ChannelCount><HopWidth>-111111</HopWidth>"
    "</WDE_Simulation>";
const QString kFreshRaster =
    "<WDE_Rasterdetector Version=\"0.1\"><ChannelStep>-111111</ChannelStep>"
    "<MinimumFixedFrequencyLength>-111111</MinimumFixedFrequencyLength>"
    "<ExciterSet>4294967295</ExciterSet><Active>false</Active><ThresholdMode></ThresholdMode>"
    "<Frequency></Frequency></WDE_Rasterdetector>";

WDE_Exciter CompleteExciter() {
    WDE_Exciter item(4);
    item.SetItemName("Ex A");
    item.SetSignalType(WDE_Exciter::MSK);
    item.SetSymbolRate(2400);
    item.SetFrequencyShift(0.5);
    item.SetLevel(1234567);
    return item;
}

WDE_Simulation PnSimulation() {
    WDE_Simulation item(2);
    item.SetItemName("sweep");
    item.SetActive(true);
    item.SetType(WDE_Simulation::SIMULATIONTYPE_PN);
    item.SetExciterSet(3);
    item.SetPNStartValue(17);
    item.SetRelativeCenterFrequency(1500000.0);
    item.SetChannelCount(8);
    item.SetHopWidth(0.000125);
    item.SetRelativeFrequencyList({-25000.0, 0.0, 123456789.0});
    return item;
}

Detector CompleteDetector() {
    Detector detector(1);
    detector.SetItemName("ch1");
    detector.SetFrequency(145500000.0);
    detector.SetBandwidth(12500.0);
    detector.SetMinimumFixedFrequencyLength(1234567.0);
    detector.SetExicterSet(2);
    detector.SetActive(true);
    detector.SetAbsoluteThresholdValue(-87.5);
    return detector;
}

// A fresh item writes `fresh`; `full` writes `complete`, which reads back
// into a fresh item unchanged. Reading a version text and then Reset leave
// no data and write `fresh` again with that version, and with Active kept.
template <class Item>
void ExpectWrittenAndReset(const QString& fresh, const Item& full, const QString& complete) {
    EXPECT_EQ(WrittenXml(Item()), fresh);
    EXPECT_EQ(WrittenXml(full), complete);
    Item copy = ReadFrom<Item>(complete);
    EXPECT_EQ(WrittenXml(copy), complete);
    copy.SetXmlString(QString("<%1 Version=\"2.0\"/>").arg(copy.GetObjectName()));
    copy.Reset();
    EXPECT_FALSE(copy.AnyData());
    EXPECT_EQ(WrittenXml(copy), QString(fresh).replace("0.1", "2.0").replace(">false<", ">true<"));
}

template <class Item> Item LoadBroken(const QString& children) {
    Item item;
    const QString document = QString("<%1 Version=\"0.1\">%2").arg(item.GetObjectName(), children);
    EXPECT_THROW(item.SetXmlString(document), KMException);
    return item;
}

} // namespace

TEST(WDEItems, WriteEveryChildInOrderAndResetToTheFreshForm) {
    ExpectWrittenAndReset(kFreshExciter, CompleteExciter(),
                          "<WDE_Exciter Version=\"0.1\" Index=\"4\" Name=\"Ex A\">"
                          "<SignalType>MSK</SignalType><SymbolRate>2400</SymbolRate>"
                          "<FrequencyShift>0.5</FrequencyShift><Level>1.23457e+06"
                          "</Level></WDE_Exciter>");
    ExpectWrittenAndReset(kFreshSimulation, PnSimulation(),
                          "<WDE_Simulation Version=\"0.1\" Index=\"2\" Name=\"sweep\">"
                          "<Active>true</Active><Type>PN</Type><ExciterSet>3</ExciterSet>"
                          "<PNStartValue>17</PNStartValue>"
                          "<RelativeCenterFrequency>1.5e+06</RelativeCenterFrequency>"
                          "<ChannelCount>8</ChannelCount><HopWidth>0.000125</HopWidth>"
                          "<FrequencyList><Frequency>-25000</Frequency><Frequency>0</Frequency>"
                          "<Frequency>1.23457e+08</Frequency></FrequencyList></WDE_Simulation>");
    const QString raster = "<WDE_Rasterdetector Version=\"0.1\" Index=\"3\" Name=\"R1\">"
                           "<ChannelStep>1.23457e+06</ChannelStep>"
                           "<MinimumFixedFrequencyLength>0.5</MinimumFixedFrequencyLength>"
                           "<ExciterSet>12</ExciterSet><Active>true</Active>"
                           "<ThresholdMode>ABSOLUTE</ThresholdMode>"
                           "<AbsoluteThresholdValue>-80</AbsoluteThresholdValue>"
                           "<RelativeThresholdValue>6.25</RelativeThresholdValue>"
                           "<RelativeThresholdAvgTime>SHORT</RelativeThresholdAvgTime>"
                           "<Amplifier>SHF2</Amplifier><Frequency>AAAAAAAAWUA=</Frequency>"
                           "</WDE_Rasterdetector>";
    ExpectWrittenAndReset(kFreshRaster, ReadFrom<Raster>(raster), raster);
    ExpectWrittenAndReset("<WDE_Singlechanneldetector Version=\"0.1\"><Frequency/><Bandwidth/>"
                          "<MinimumFixedFrequencyLength>-111111</MinimumFixedFrequencyLength>"
                          "<ExciterSet>4294967295</ExciterSet><Active>false</Active>"
                          "<AbsoluteThresholdValue>-111111</AbsoluteThresholdValue>"
                          "</WDE_Singlechanneldetector>",
                          CompleteDetector(),
                          "<WDE_Singlechanneldetector Version=\"0.1\" Index=\"1\" Name=\"ch1\">"
                          "<Frequency>145500000</Frequency><Bandwidth>12500</Bandwidth>"
                          "<MinimumFixedFrequencyLength>1.23457e+06</MinimumFixedFrequencyLength>"
                          "<ExciterSet>2</ExciterSet><Active>true</Active>"
                          "<AbsoluteThresholdValue>-87.5</AbsoluteThresholdValue>"
                          "</WDE_Singlechanneldetector>");
}

TEST(WDEItems, CheckOrderAndDataQueries) {
    WDE_Exciter exciter;
    EXPECT_FALSE(exciter.AnyData());
    exciter.SetFrequencyShift(100);
    EXPECT_TRUE(exciter.AnyData());
    EXPECT_EQ(CheckMessage(exciter), "WDE_Exciter: Please set SignalType!");
    exciter.SetSignalType(WDE_Exciter::FSK2);
    exciter.SetLevel(-3);
    EXPECT_EQ(CheckMessage(exciter), "WDE_Exciter: Please set SymbolRate!");
    exciter.SetSymbolRate(1200);
    exciter.SetLevel(-111111.11);
    EXPECT_EQ(CheckMessage(exciter), "WDE_Exciter: Please set Level!");
    EXPECT_FALSE(exciter.HasData());
    exciter.SetLevel(0);
    EXPECT_TRUE(exciter.HasData());
    // A signal type outside the table counts as set but has no text.
    exciter.SetSignalType(static_cast<WDE_Exciter::SignalType>(7));
    EXPECT_TRUE(exciter.HasData());
    EXPECT_NO_THROW(exciter.Check());
    EXPECT_TRUE(WrittenXml(exciter).contains("<SignalType></SignalType>"));

    WDE_Simulation simulation(1);
    simulation.SetActive(true);
    EXPECT_FALSE(simulation.AnyData());
    simulation.AppendRelativeFrequency(0.0);
    EXPECT_TRUE(simulation.AnyData());
    EXPECT_EQ(CheckMessage(simulation), "WDE_Simulation: Please set ExciterSet");
    simulation.SetExciterSet(0);
    EXPECT_EQ(CheckMessage(simulation), "WDE_Simulation: Please set Type");
    EXPECT_FALSE(simulation.HasData());
    simulation.SetType(WDE_Simulation::SIMULATIONTYPE_FLIS);
    EXPECT_NO_THROW(simulation.Check());
    EXPECT_TRUE(simulation.HasData());

    Detector detector;
    EXPECT_EQ(CheckMessage(detector), "Frequency: Please set Value!");
    detector.SetFrequency(1.0);
    detector.SetBandwidth(1.0);
    EXPECT_TRUE(detector.AnyData());
    const QString missing = "WDE_Singlechanneldetector:Please set %1!";
    EXPECT_EQ(CheckMessage(detector), missing.arg("MinimumFixedFrequencyLength"));
    // Exact comparison with the marker: a NaN counts as set.
    detector.SetMinimumFixedFrequencyLength(kNaN);
    EXPECT_EQ(CheckMessage(detector), missing.arg("ExciterSet"));
    detector.SetExicterSet(0);
    EXPECT_EQ(CheckMessage(detector), missing.arg("AbsoluteThresholdValue"));
    EXPECT_FALSE(detector.HasData());
    detector.SetAbsoluteThresholdValue(-111111.0);
    EXPECT_NO_THROW(detector.Check());
    EXPECT_TRUE(detector.HasData());
}

TEST(WDEItems, RasterCheckOrderAndThresholdModeDecideWhatIsNeeded) {
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
        EXPECT_EQ(CheckMessage(record), QString("WDE_Rasterdetector:Please set %1!").arg(missing));
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

TEST(WDEItems, WrittenMarkersReadBackAsValuesExceptTheUnsignedAndEnumeratedOnes) {
    WDE_Exciter exciter(7);
    exciter.SetItemName("kept");
    exciter.SetXmlString(QString(kFreshExciter).remove(" Version=\"0.1\""));
    EXPECT_EQ(exciter.GetSymbolRate(), -111111.0);
    EXPECT_EQ(exciter.GetFrequencyShift(), -111111.11);
    EXPECT_EQ(CheckMessage(exciter), "WDE_Exciter: Please set SignalType!");
    EXPECT_TRUE(
        WrittenXml(exciter).startsWith("<WDE_Exciter Version=\"\" Index=\"7\" Name=\"kept\">"));

    const auto simulation = ReadFrom<WDE_Simulation>(kFreshSimulation);
    EXPECT_EQ(simulation.GetChannelCount(), 4294967295u);
    EXPECT_EQ(simulation.GetHopWidth(), -111111.0);
    EXPECT_EQ(simulation.GetType(), -1);

    const auto raster = ReadFrom<Raster>(kFreshRaster);
    EXPECT_EQ(raster.GetChannelStep(), -111111.0);
    EXPECT_EQ(raster.GetThresholdMode(), -1);
    EXPECT_EQ(CheckMessage(raster), "WDE_Rasterdetector:Please set ExciterSet!");
}

// Children are matched case-sensitively; unknown ones are passed over whole;
// the last of several decides; texts that do not convert read as 0.
TEST(WDEItems, ReadingPassesOverUnknownChildren) {
    WDE_Exciter exciter;
    exciter.SetXmlString("<WDE_Exciter Version=\"0.2\" Index=\"x1\" Name=\"\">"
                         "<SignalType>CW</SignalType><GuardTime><Level>9</Level>"
                         "</GuardTime><level>8</level><SymbolRate>abc</SymbolRate>"
                         "<Level>-12.5</Level><SignalType>cw</SignalType>"
                         "</WDE_Exciter>");
    EXPECT_EQ(exciter.GetSymbolRate(), 0.0);
    EXPECT_EQ(exciter.GetLevel(), -12.5);
    EXPECT_EQ(exciter.GetSignalType(), -1);
    EXPECT_TRUE(WrittenXml(exciter).startsWith("<WDE_Exciter Version=\"0.2\" Index=\"0\">"));

    Raster raster;
    raster.SetAbsoluteThresholdValue(-70);
    raster.SetXmlString(
        "<WDE_Rasterdetector><Unknown><ChannelStep>1</ChannelStep></Unknown><ChannelStep>x"
        "</ChannelStep><channelstep>3</channelstep><ExciterSet>-2</ExciterSet><Amplifier>VUHF"
        "</Amplifier><RelativeThresholdAvgTime>SHORt</RelativeThresholdAvgTime>"
        "</WDE_Rasterdetector>");
    EXPECT_EQ(raster.GetChannelStep(), 0.0);
    EXPECT_EQ(raster.GetExciterSet(), 0u);
    EXPECT_EQ(raster.GetAmplifier(), Raster::AMPLIFIER_VUHF);
    EXPECT_EQ(raster.GetAbsoluteThresholdValue(), -70.0);
    EXPECT_EQ(raster.GetRelativeThresholdAvgTime(), -1); // the SKPI word is not a display text

    Detector detector = CompleteDetector();
    detector.SetXmlString(
        "<WDE_Singlechanneldetector><frequency>5</frequency><Other><ExciterSet>9</ExciterSet>"
        "</Other><Bandwidth Minimum=\"1\" Maximum=\"2\">25000</Bandwidth><Active>yes</Active>"
        "</WDE_Singlechanneldetector>");
    EXPECT_EQ(detector.GetFrequency(), 145500000.0);
    EXPECT_EQ(detector.GetExciterSet(), 2u);
    EXPECT_FALSE(detector.GetActive());
    // The range read above stays; SetBandwidth changes the value only.
    detector.SetBandwidth(30000.0);
    EXPECT_TRUE(
        WrittenXml(detector).contains("<Bandwidth Minimum=\"1\" Maximum=\"2\">30000</Bandwidth>"));

    // The wrapper's attributes are not the item's; absent item attributes
    // keep Index and Name; the list grows.
    auto simulation = ReadFrom<WDE_Simulation>(PnSimulation().GetXmlString());
    simulation.SetXmlString(
        "<WDE_Simulation Version=\"7.2\"><Frequency>1</Frequency>"
        "<Extra><ExciterSet>99</ExciterSet><Frequency>5</Frequency></Extra>"
        "<FrequencyList Version=\"9\" Index=\"8\" Name=\"w\"><Frequency>2</Frequency>"
        "<HopWidth>12.5</HopWidth></FrequencyList><Type>pn</Type><ExciterSet>x</ExciterSet>"
        "</WDE_Simulation>");
    EXPECT_TRUE(WrittenXml(simulation)
                    .startsWith("<WDE_Simulation Version=\"7.2\" Index=\"2\" Name=\"sweep\">"));
    EXPECT_EQ(simulation.GetRelativeFrequencyList(),
              (QVector<double>{-25000.0, 0.0, 123457000.0, 1.0, 2.0}));
    EXPECT_EQ(simulation.GetHopWidth(), 12.5);
    EXPECT_EQ(simulation.GetType(), -1);
    EXPECT_EQ(simulation.GetExciterSet(), 0u);
}

// The codec itself is compared with QByteArray's Base64 in test_exact_short_cuts.
TEST(WDEItems, RasterFrequencyListTravelsAsBase64OfLittleEndianDoubles) {
    Raster record;
    record.AppendFrequency(1.0);
    record.AppendFrequency(2.0);
    EXPECT_TRUE(record.AnyData()); // the list alone counts
    EXPECT_TRUE(WrittenXml(record).contains("<Frequency>AAAAAAAA8D8AAAAAAAAAQA==</Frequency>"));

    // Reading replaces the list; the last of several children decides, and
    // without a child the list stays.
    const QVector<double> three{1.5e6, -2.25, 1e-3};
    const QString element = "<WDE_Rasterdetector>%1</WDE_Rasterdetector>";
    record.SetXmlString(element.arg("<Frequency>AAAAAAAAWUA=</Frequency>"
                                    "<Frequency>AAAAAGDjNkEAAAAAAAACwPyp8dJNYlA/</Frequency>"));
    EXPECT_EQ(record.GetFrequencyList(), three);
    record.SetXmlString(element.arg(QString()));
    EXPECT_EQ(record.GetFrequencyList(), three);
    record.SetXmlString(element.arg("<Frequency/>"));
    EXPECT_TRUE(record.GetFrequencyList().isEmpty());
}

TEST(WDEItems, DetectorEqualityComparesListedFieldsWithIeeeSemantics) {
    const Detector base = CompleteDetector();
    Detector other = CompleteDetector();
    other.SetItemName("different");
    other.SetXmlString("<WDE_Singlechanneldetector Version=\"9.9\">"
                       "<Frequency Minimum=\"1\" Maximum=\"2\">145500000</Frequency>"
                       "</WDE_Singlechanneldetector>");
    EXPECT_TRUE(base == other);
    Detector inactive = CompleteDetector();
    inactive.SetActive(false);
    EXPECT_TRUE(base != inactive);
    EXPECT_TRUE(Detector(6) != Detector(7));

    Detector withNan = CompleteDetector();
    withNan.SetAbsoluteThresholdValue(kNaN);
    const Detector nanCopy(withNan);
    EXPECT_TRUE(withNan != nanCopy);
    Detector positiveZero = CompleteDetector();
    Detector negativeZero = CompleteDetector();
    positiveZero.SetBandwidth(0.0);
    negativeZero.SetBandwidth(-0.0);
    EXPECT_TRUE(positiveZero == negativeZero);
}

// A child element that breaks off (the document ends inside it, or its end
// tag is wrong) gives no value: the load fails, the children read before it
// stay, and nothing of the broken one is stored.
TEST(WDEItems, ABrokenValueIsNotStored) {
    for (const QString& end : {QString(), QString("</Broken>")}) {
        SCOPED_TRACE(end.toStdString());
        const auto exciter = LoadBroken<WDE_Exciter>("<Level>-3</Level><SymbolRate>2400" + end);
        EXPECT_EQ(exciter.GetLevel(), -3);
        EXPECT_EQ(exciter.GetSymbolRate(), IKMObject::InvalidDouble);
        const auto raster =
            LoadBroken<Raster>("<ChannelStep>25000</ChannelStep><Frequency>AAAAAAAA8D8=" + end);
        EXPECT_EQ(raster.GetChannelStep(), 25000);
        EXPECT_TRUE(raster.GetFrequencyList().isEmpty());
        const auto simulation =
            LoadBroken<WDE_Simulation>("<FrequencyList><Frequency>1</Frequency><Frequency>2" + end);
        EXPECT_EQ(simulation.GetRelativeFrequencyList(), QVector<double>{1});
        const auto detector =
            LoadBroken<Detector>("<ExciterSet>2</ExciterSet><AbsoluteThresholdValue>-40" + end);
        EXPECT_EQ(detector.GetExciterSet(), 2u);
        EXPECT_EQ(detector.GetAbsoluteThresholdValue(), IKMObject::InvalidDouble);
    }
}

namespace {

QString WDEElement(const QString& children) {
    return QString("<WDE Version=\"0.7\">%1</WDE>").arg(children);
}

} // namespace

TEST(WDERecord, WritesValuesListsAndOptionalElementsInOrder) {
    const QString fresh = WrittenXml(WDE());
    WDE wde = CompleteWDE();
    wde.GetSinglechanneldetectorList().append(WDE_Singlechanneldetector(0));
    wde.GetRasterdetectorList().append(WDE_Rasterdetector(0));
    wde.GetExciterList().append(WDE_Exciter(0));
    wde.GetSimulationList().append(WDE_Simulation(0));
    wde.SetAttenuation(WDE::ATTENUATION_OFF);
    wde.SetAttenuationMode(WDE::ATTENUATIONMODE_LOWDISTORT);
    wde.SetAttenuationValue(12.25);
    wde.SetGainCtrl(WDE::GAINCTRL_MGC);
    wde.SetAGCValue(WDE::AGCVALUE_FAST);
    wde.SetMGCValue(12.5);
    // Everything set: the order of all children is held by the schema tests.
    const QString xml = WrittenXml(wde);
    // The texts of both records; the unset markers can only come from the fresh one.
    for (const char* part :
         {"<WDE Version=\"0.1\">", "<Mode></Mode>",
          "<EmissiondetectorDelay>-111111</EmissiondetectorDelay>",
          "<ExciterCount>4294967295</ExciterCount>", "<Mode>DETX</Mode>",
          "<EmissiondetectorAveraging>MIDDLE</EmissiondetectorAveraging>",
          "<ExciterPulseLength>0.001</ExciterPulseLength>", "<Attenuation>OFF</Attenuation>",
          "<GainControl>MGC</GainControl><AGCValue>FAST</AGCValue><MGCValue>12.5</MGCValue>"})
        EXPECT_TRUE((fresh + xml).contains(QLatin1String(part))) << part;
    wde.SetMGCValue(-111111.11);
    EXPECT_FALSE(WrittenXml(wde).contains("MGCValue"));

    // Read back with another version: the list wrappers do not clobber it.
    const QString versioned = QString(xml).replace("<WDE Version=\"0.1\"", "<WDE Version=\"0.9\"");
    const WDE copy = testsupport::ReadFrom<WDE>(versioned);
    EXPECT_EQ(WrittenXml(copy), versioned);
    EXPECT_NO_THROW(copy.Check());

    // The MGC value is written unless it is exactly the marker; a NaN is written.
    wde.SetMGCValue(std::numeric_limits<double>::quiet_NaN());
    EXPECT_TRUE(WrittenXml(wde).contains("<MGCValue>nan</MGCValue>"));
}

TEST(WDERecord, ReadingIndexesItemsByPositionAndFilesThemByName) {
    WDE wde;
    const QString content =
        "<ExciterList><WDE_Exciter/><SimulationList><WDE_Exciter Index=\"7\"/></SimulationList>"
        "<WDE_Exciter/></ExciterList>"
        "<RasterdetectorList><WDE_Exciter "
        "Name=\"stray\"/><GuardTime>5</GuardTime></RasterdetectorList>"
        "<WDE_Simulation/><Mystery><WDE_Simulation/></Mystery><mode>DET</mode>";
    wde.SetXmlString(WDEElement(content));
    ASSERT_EQ(wde.GetExciterList().size(), 4);
    EXPECT_EQ(wde.GetExciterList()[0].GetIndex(), 0);
    EXPECT_EQ(wde.GetExciterList()[1].GetIndex(), 7);
    EXPECT_EQ(wde.GetExciterList()[2].GetIndex(), 2);
    EXPECT_EQ(wde.GetExciterList()[3].GetItemName(), "stray");
    EXPECT_EQ(wde.GetGuardTime(), 5.0);
    EXPECT_EQ(wde.GetSimulationList().size(), 1); // the one inside an unknown element is skipped
    EXPECT_EQ(wde.GetMode(), -1);                 // names match case-sensitively
    EXPECT_EQ(wde.GetVersion(), "0.7");

    // Reading again without a reset appends: the lists double.
    wde.SetXmlString(WDEElement(content));
    EXPECT_EQ(wde.GetExciterList().size(), 8);
    EXPECT_EQ(wde.GetExciterList()[4].GetIndex(), 4);
}

TEST(WDERecord, CheckOrderTextsAndDataQueries) {
    // Each case reads the complete record without the named elements.
    const QString complete = WrittenXml(CompleteWDE());
    const char* const cases[][2] = {
        {"Mode", "WDE:Please set Mode!"},
        {"EmissiondetectorMode", "WDE:Please set EmissiondetectorMode!"},
        {"EmissiondetectorDelay", "WDE:Please set !EmissiondetectorDelay"},
        {"EmissiondetectorAveraging", "WDE:Please set EmissiondetectorAveraging!"},
        {"ExciterCount", "WDE:Please set ExciterCount!"},
        {"ExciterPulseLength", "WDE:Please set ExciterPulseLength!"},
        {"ExciterRXDelay", "WDE:Please set ExicterRXDelay!"},
        {"ExciterRXDelay|ExciterTXDelay", "WDE:Please set ExciterTXDelay!"}, // TX before RX
        {"Frequency|Mode", "Frequency: Please set Value!"},
    };
    for (const auto& [elements, message] : cases) {
        const QRegularExpression element(QString("<(%1)>[^<]*</\\1>").arg(elements));
        const auto record = testsupport::ReadFrom<WDE>(QString(complete).remove(element));
        EXPECT_EQ(CheckMessage(record), QString::fromLatin1(message));
        EXPECT_FALSE(record.HasData()) << message;
    }
    EXPECT_TRUE(CompleteWDE().HasData());

    // AnyData ignores the attenuation and gain settings.
    WDE partial;
    partial.SetAttenuation(WDE::ATTENUATION_ON);
    partial.SetMGCValue(3);
    partial.SetAGCValue(WDE::AGCVALUE_SLOW);
    EXPECT_FALSE(partial.AnyData());
    partial.SetGuardTime(1);
    EXPECT_TRUE(partial.AnyData());
    partial.Reset();
    EXPECT_FALSE(partial.AnyData());
    EXPECT_EQ(partial.GetAttenuation(), -1);
}

TEST(WDEEnumerations, DisplayAndSKPITextsOfWDEAndItsItemsConvertBothWays) {
    ExpectEnumTexts("OFF DET DETX EX SIM SDET", &WDE::GetStringForMode, &WDE::GetModeForString);
    ExpectEnumTexts("LOOP NONLoop", &WDE::GetStringForEmissiondetectorMode,
                    &WDE::GetEmissiondetectorModeForString);
    ExpectEnumTexts("NONE SHORT MIDDLE LONG", &WDE::GetStringForEmissiondetectorAveraging,
                    &WDE::GetEmissiondetectorAveragingForString);
    ExpectEnumTexts("NONE SHORt MIDDLe LONG", &WDE::GetSKPIStringForEmissiondetectorAveraging,
                    &WDE::GetEmissiondetectorAveragingForSKPIString);
    ExpectEnumTexts("ON OFF", &WDE::GetStringForAttenuationType, &WDE::GetAttenuationTypeForString);
    ExpectEnumTexts("LOWNOISE NORMAL LOWDISTORT", &WDE::GetStringForAttenuationModeType,
                    &WDE::GetAttenuationModeTypeForString);
    ExpectEnumTexts("AGC MGC", &WDE::GetStringForGainCtrlType, &WDE::GetGainCtrlTypeForString);
    ExpectEnumTexts("SLOW DEFAULT FAST", &WDE::GetStringForAGCValueType,
                    &WDE::GetAGCValueTypeForString);

    ExpectEnumTexts("CW FSK2 MSK", &WDE_Exciter::GetStringForSignalType,
                    &WDE_Exciter::GetSignalTypeForString);
    ExpectEnumTexts("FLIS PN", &WDE_Simulation::GetStringForSimulationType,
                    &WDE_Simulation::GetSimulationTypeForString);
    EXPECT_TRUE(WDE_Simulation()
                    .GetStringForSimulationType(static_cast<WDE_Simulation::SimulationType>(-1))
                    .isNull());
    ExpectEnumTexts("VUHF UHF1 UHF2 SHF1 SHF2", &Raster::GetStringForAmplifier,
                    &Raster::GetAmplifierForString);
    ExpectEnumTexts("ABSOLUTE RELATIVE", &Raster::GetStringForThresholdMode,
                    &Raster::GetThresholdModeForString);
    ExpectEnumTexts("SHORT MIDDLE LONG", &Raster::GetStringForAvgTime,
                    &Raster::GetAvgTimeForString);
    ExpectEnumTexts("SHORt MIDDLe LONG", &Raster::GetSKPIStringForAvgTime,
                    &Raster::GetAvgTimeForSKPIString);
    const WDE wde;
    EXPECT_EQ(wde.GetEmissiondetectorAveragingForSKPIString("SHORT"), -1);
    EXPECT_EQ(wde.GetEmissiondetectorModeForSKPIString("LOOP"), 0);
    EXPECT_EQ(wde.GetEmissiondetectorModeForSKPIString("NONLoop"), 1);
    EXPECT_EQ(wde.GetEmissiondetectorModeForSKPIString("NONLOOP"), -1);
}
