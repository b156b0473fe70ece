// SPDX-License-Identifier: MIT
#include "RecordFixtures.h"
#include "TestSupport.h"

#include <WDE.h>

#include <QRegularExpression>

#include <limits>

using namespace KELMORA;
using testfixtures::CompleteWDE;
using testsupport::CheckMessage;
using testsupport::ChildNames;
using testsupport::ExpectEnumTexts;
using testsupport::ThrownMessage;
using testsupport::WrittenXml;

namespace {

QString WDEElement(const QString& children) {
    return QStringLiteral("<WDE Version=\"0.7\">%1</WDE>").arg(children);
}

} // namespace

TEST(WDERecord, WritesValuesListsAndOptionalElementsInOrder) {
    const QString fresh = WrittenXml(WDE());
    EXPECT_EQ(ChildNames(fresh),
              testsupport::Words("Frequency Bandwidth Mode EmissiondetectorMode "
                                 "EmissiondetectorDelay EmissiondetectorAveraging ExciterCount "
                                 "ExciterPulseLength ExciterRXDelay ExciterTXDelay GuardTime"));

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
    const QString xml = WrittenXml(wde);
    EXPECT_EQ(ChildNames(xml),
              testsupport::Words("Frequency Bandwidth Mode EmissiondetectorMode "
                                 "EmissiondetectorDelay EmissiondetectorAveraging "
                                 "SinglechanneldetectorList RasterdetectorList ExciterCount "
                                 "ExciterPulseLength ExciterRXDelay ExciterTXDelay ExciterList "
                                 "GuardTime SimulationList Attenuation AttenuationMode "
                                 "AttenuationValue GainControl AGCValue MGCValue"));
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
    EXPECT_FALSE(WrittenXml(wde).contains(QStringLiteral("MGCValue")));

    // Read back with another version: the list wrappers do not clobber it.
    const QString versioned = QString(xml).replace(QStringLiteral("<WDE Version=\"0.1\""),
                                                   QStringLiteral("<WDE Version=\"0.9\""));
    const WDE copy = testsupport::ReadFrom<WDE>(versioned);
    EXPECT_EQ(copy.GetVersion(), QStringLiteral("0.9"));
    EXPECT_EQ(WrittenXml(copy), versioned);
    EXPECT_NO_THROW(copy.Check());

    // The MGC value is written unless it is exactly the marker; a NaN is written.
    wde.SetMGCValue(std::numeric_limits<double>::quiet_NaN());
    EXPECT_TRUE(WrittenXml(wde).contains(QStringLiteral("<MGCValue>nan</MGCValue>")));
}

TEST(WDERecord, ReadingIndexesItemsByPositionAndFilesThemByName) {
    WDE wde;
    const QString content = QStringLiteral(
        "<ExciterList><WDE_Exciter/><SimulationList><WDE_Exciter Index=\"7\"/></SimulationList>"
        "<WDE_Exciter/></ExciterList>"
        "<RasterdetectorList><WDE_Exciter "
        "Name=\"stray\"/><GuardTime>5</GuardTime></RasterdetectorList>"
        "<WDE_Simulation/><Mystery><WDE_Simulation/></Mystery><mode>DET</mode>");
    wde.SetXmlString(WDEElement(content));
    ASSERT_EQ(wde.GetExciterList().size(), 4);
    EXPECT_EQ(wde.GetExciterList()[0].GetIndex(), 0);
    EXPECT_EQ(wde.GetExciterList()[1].GetIndex(), 7);
    EXPECT_EQ(wde.GetExciterList()[2].GetIndex(), 2);
    EXPECT_EQ(wde.GetExciterList()[3].GetItemName(), QStringLiteral("stray"));
    EXPECT_EQ(wde.GetGuardTime(), 5.0);
    EXPECT_EQ(wde.GetSimulationList().size(), 1); // the one inside an unknown element is skipped
    EXPECT_EQ(wde.GetMode(), -1);                 // names match case-sensitively
    EXPECT_EQ(wde.GetVersion(), QStringLiteral("0.7"));

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
        const QRegularExpression element(QStringLiteral("<(%1)>[^<]*</\\1>").arg(elements));
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

TEST(WDEEnumerations, DisplayAndSKPITextsConvertBothWays) {
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

    const WDE wde;
    EXPECT_EQ(wde.GetEmissiondetectorAveragingForSKPIString(QStringLiteral("SHORT")), -1);
    EXPECT_EQ(wde.GetEmissiondetectorModeForSKPIString(QStringLiteral("LOOP")), 0);
    EXPECT_EQ(wde.GetEmissiondetectorModeForSKPIString(QStringLiteral("NONLoop")), 1);
    EXPECT_EQ(wde.GetEmissiondetectorModeForSKPIString(QStringLiteral("NONLOOP")), -1);
}
