#include "RecordFixtures.h"
#include "TestSupport.h"

#include <WDE.h>

#include <QStringList>

using namespace KELMORA;
using testfixtures::CompleteWDE;
using testsupport::ChildNames;
using testsupport::ThrownMessage;
using testsupport::WrittenXml;

namespace {

QString WDEElement(const QString& children) {
    return QStringLiteral("<WDE Version=\"0.7\">%1</WDE>").arg(children);
}

} // namespace

TEST(WDERecord, NewRecordWritesAlwaysWrittenElementsWithUnsetMarkers) {
    const QString xml = WrittenXml(WDE());
    EXPECT_EQ(ChildNames(xml),
              (QStringList{"Frequency", "Bandwidth", "Mode", "EmissiondetectorMode",
                           "EmissiondetectorDelay", "EmissiondetectorAveraging", "ExciterCount",
                           "ExciterPulseLength", "ExciterRXDelay", "ExciterTXDelay", "GuardTime"}));
    EXPECT_TRUE(xml.startsWith(QStringLiteral("<WDE Version=\"0.1\">")));
    EXPECT_TRUE(xml.contains(QStringLiteral("<Mode></Mode>")));
    EXPECT_TRUE(
        xml.contains(QStringLiteral("<EmissiondetectorDelay>-111111</EmissiondetectorDelay>")));
    EXPECT_TRUE(xml.contains(QStringLiteral("<ExciterCount>4294967295</ExciterCount>")));
    EXPECT_TRUE(xml.contains(QStringLiteral("<GuardTime>-111111</GuardTime>")));

    // Read back, the doubles become -111111: no longer the marker, so set.
    WDE back;
    back.SetXmlString(xml);
    EXPECT_EQ(back.GetMode(), -1);
    EXPECT_EQ(back.GetGuardTime(), -111111.0);
    EXPECT_TRUE(back.AnyData());
    EXPECT_FALSE(back.IsValid(back.GetExciterCount()));
}

TEST(WDERecord, FullRecordWritesListsAndOptionalElementsInOrder) {
    WDE wde = CompleteWDE();
    wde.GetSinglechanneldetectorList().append(WDE_Singlechanneldetector(0));
    wde.GetRasterdetectorList().append(WDE_Rasterdetector(0));
    wde.GetExciterList().append(WDE_Exciter(0));
    wde.GetSimulationList().append(WDE_Simulation(0));
    wde.SetGuardTime(4);
    wde.SetAttenuation(WDE::ATTENUATION_OFF);
    wde.SetAttenuationMode(WDE::ATTENUATIONMODE_LOWDISTORT);
    wde.SetAttenuationValue(12.25);
    wde.SetGainCtrl(WDE::GAINCTRL_MGC);
    wde.SetAGCValue(WDE::AGCVALUE_FAST);
    wde.SetMGCValue(12.5);
    const QString xml = WrittenXml(wde);
    EXPECT_EQ(ChildNames(xml), (QStringList{"Frequency",
                                            "Bandwidth",
                                            "Mode",
                                            "EmissiondetectorMode",
                                            "EmissiondetectorDelay",
                                            "EmissiondetectorAveraging",
                                            "SinglechanneldetectorList",
                                            "RasterdetectorList",
                                            "ExciterCount",
                                            "ExciterPulseLength",
                                            "ExciterRXDelay",
                                            "ExciterTXDelay",
                                            "ExciterList",
                                            "GuardTime",
                                            "SimulationList",
                                            "Attenuation",
                                            "AttenuationMode",
                                            "AttenuationValue",
                                            "GainControl",
                                            "AGCValue",
                                            "MGCValue"}));
    EXPECT_TRUE(xml.contains(QStringLiteral("<Mode>DETX</Mode>")));
    EXPECT_TRUE(xml.contains(
        QStringLiteral("<EmissiondetectorAveraging>MIDDLE</EmissiondetectorAveraging>")));
    EXPECT_TRUE(xml.contains(QStringLiteral("<ExciterPulseLength>0.001</ExciterPulseLength>")));
    EXPECT_TRUE(xml.contains(QStringLiteral("<Attenuation>OFF</Attenuation>")));
    EXPECT_TRUE(xml.contains(QStringLiteral(
        "<GainControl>MGC</GainControl><AGCValue>FAST</AGCValue><MGCValue>12.5</MGCValue>")));

    // The MGC value is written unless it is exactly the marker; a NaN is written.
    wde.SetMGCValue(-111111.11);
    EXPECT_FALSE(WrittenXml(wde).contains(QStringLiteral("MGCValue")));
    wde.SetMGCValue(std::numeric_limits<double>::quiet_NaN());
    EXPECT_TRUE(WrittenXml(wde).contains(QStringLiteral("<MGCValue>nan</MGCValue>")));
}

TEST(WDERecord, RoundTripKeepsVersionValuesListsAndMGCValue) {
    WDE wde = CompleteWDE();
    WDE_Exciter exciter(0);
    exciter.SetSignalType(WDE_Exciter::FSK2);
    wde.GetExciterList().append(exciter);
    wde.SetMGCValue(-3.5);
    WDE back;
    back.SetXmlString(WrittenXml(wde).replace(QStringLiteral("Version=\"0.1\""),
                                              QStringLiteral("Version=\"0.9\"")));
    EXPECT_EQ(back.GetVersion(), QStringLiteral("0.9")); // not clobbered by the list wrapper
    EXPECT_EQ(back.GetMGCValue(), -3.5);
    EXPECT_EQ(back.GetEmissiondetectorAveraging(), WDE::EMISSIONDETECTORAVERAGING_MIDDLE);
    ASSERT_EQ(back.GetExciterList().size(), 1);
    EXPECT_EQ(back.GetExciterList()[0].GetSignalType(), WDE_Exciter::FSK2);
    EXPECT_EQ(WrittenXml(back), WrittenXml(wde).replace(QStringLiteral("Version=\"0.1\""),
                                                        QStringLiteral("Version=\"0.9\"")));
    EXPECT_NO_THROW(back.Check());
}

TEST(WDERecord, ItemsAreIndexedByPositionFiledByNameAndAppended) {
    WDE wde;
    const QString content = QStringLiteral(
        "<ExciterList><WDE_Exciter/><WDE_Exciter Index=\"7\"/><WDE_Exciter/></ExciterList>"
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

TEST(WDERecord, HostileWrapperNestingIsRefusedWithAnException) {
    QString nested;
    for (int i = 0; i < 1000; ++i)
        nested += QStringLiteral("<ExciterList>");
    for (int i = 0; i < 1000; ++i)
        nested += QStringLiteral("</ExciterList>");
    WDE wde;
    EXPECT_THROW(wde.SetXmlString(WDEElement(nested)), KMException);
}

TEST(WDERecord, NumbersReadAsZeroWhenNotNumbers) {
    WDE wde;
    wde.SetXmlString(WDEElement(QStringLiteral("<ExciterCount>-3</ExciterCount>")));
    EXPECT_EQ(wde.GetExciterCount(), 0u);
    wde.SetXmlString(
        WDEElement(QStringLiteral("<ExciterCount>12</ExciterCount><GuardTime>x</GuardTime>")));
    EXPECT_EQ(wde.GetExciterCount(), 12u);
    wde.SetXmlString(WDEElement(QStringLiteral("<ExciterCount>many</ExciterCount>")));
    EXPECT_EQ(wde.GetExciterCount(), 0u);
    EXPECT_EQ(wde.GetGuardTime(), 0.0);
}

TEST(WDERecord, CheckOrderAndTexts) {
    WDE wde;
    wde.SetFrequency(1);
    wde.SetBandwidth(1);
    EXPECT_EQ(ThrownMessage([&] { wde.Check(); }), QStringLiteral("WDE:Please set Mode!"));
    EXPECT_FALSE(wde.HasData());

    WDE complete = CompleteWDE();
    EXPECT_NO_THROW(complete.Check());
    EXPECT_TRUE(complete.HasData());
    const struct {
        void (*unset)(WDE&);
        const char* message;
    } cases[] = {
        {[](WDE& w) { w.SetEmissiondetectorMode(static_cast<WDE::EmissiondetectorMode>(-1)); },
         "WDE:Please set EmissiondetectorMode!"},
        {[](WDE& w) { w.SetEmissiondetectorDelay(-111111.11); },
         "WDE:Please set !EmissiondetectorDelay"},
        {[](WDE& w) {
             w.SetEmissiondetectorAveraging(static_cast<WDE::EmissiondetectorAveraging>(-1));
         },
         "WDE:Please set EmissiondetectorAveraging!"},
        {[](WDE& w) { w.SetExciterCount(4294967295u); }, "WDE:Please set ExciterCount!"},
        {[](WDE& w) { w.SetExciterPulseLength(-111111.11); }, "WDE:Please set ExciterPulseLength!"},
        {[](WDE& w) { w.SetExciterTXDelay(-111111.11); }, "WDE:Please set ExciterTXDelay!"},
        {[](WDE& w) { w.SetExciterRXDelay(-111111.11); }, "WDE:Please set ExicterRXDelay!"},
    };
    for (const auto& c : cases) {
        WDE record = CompleteWDE();
        c.unset(record);
        EXPECT_EQ(ThrownMessage([&] { record.Check(); }), QString::fromLatin1(c.message));
        EXPECT_FALSE(record.HasData()) << c.message;
    }
    // The TX delay is tested before the RX delay.
    complete.SetExciterRXDelay(-111111.11);
    complete.SetExciterTXDelay(-111111.11);
    EXPECT_EQ(ThrownMessage([&] { complete.Check(); }),
              QStringLiteral("WDE:Please set ExciterTXDelay!"));
}

TEST(WDERecord, AnyDataIgnoresAttenuationAndGainSettings) {
    WDE wde;
    wde.SetAttenuation(WDE::ATTENUATION_ON);
    wde.SetMGCValue(3);
    wde.SetAGCValue(WDE::AGCVALUE_SLOW);
    EXPECT_FALSE(wde.AnyData());
    wde.SetGuardTime(1);
    EXPECT_TRUE(wde.AnyData());
    EXPECT_FALSE(wde.HasData());
    wde.Reset();
    EXPECT_FALSE(wde.AnyData());
    EXPECT_EQ(wde.GetAttenuation(), -1);
    EXPECT_EQ(wde.GetVersion(), QStringLiteral("0.1"));
}

TEST(WDERecord, CopiesOwnTheirLists) {
    WDE source = CompleteWDE();
    source.GetExciterList().append(WDE_Exciter(0));
    WDE copy(source);
    copy.GetExciterList()[0].SetLevel(7);
    copy.GetExciterList().append(WDE_Exciter(1));
    EXPECT_EQ(source.GetExciterList().size(), 1);
    EXPECT_EQ(source.GetExciterList()[0].GetLevel(), -111111.11);
    WDE assigned;
    assigned = copy;
    copy.Reset();
    EXPECT_EQ(assigned.GetExciterList().size(), 2);
}

TEST(WDEEnumerations, DisplayAndSKPITextsConvertBothWays) {
    const WDE wde;
    const QStringList modes{"OFF", "DET", "DETX", "EX", "SIM", "SDET"};
    for (int value = 0; value < modes.size(); ++value) {
        EXPECT_EQ(wde.GetModeForString(modes[value]), value);
        EXPECT_EQ(wde.GetStringForMode(static_cast<WDE::Mode>(value)), modes[value]);
    }
    EXPECT_EQ(wde.GetModeForString(QStringLiteral("off")), -1);
    EXPECT_EQ(wde.GetModeForString(QStringLiteral(" OFF")), -1);
    EXPECT_EQ(wde.GetModeForString(QString()), -1);
    EXPECT_TRUE(wde.GetStringForMode(static_cast<WDE::Mode>(6)).isEmpty());
    EXPECT_TRUE(wde.GetStringForMode(static_cast<WDE::Mode>(-1)).isEmpty());

    const QStringList display{"NONE", "SHORT", "MIDDLE", "LONG"};
    const QStringList skpi{"NONE", "SHORt", "MIDDLe", "LONG"};
    for (int value = 0; value < 4; ++value) {
        const auto averaging = static_cast<WDE::EmissiondetectorAveraging>(value);
        EXPECT_EQ(wde.GetStringForEmissiondetectorAveraging(averaging), display[value]);
        EXPECT_EQ(wde.GetSKPIStringForEmissiondetectorAveraging(averaging), skpi[value]);
        EXPECT_EQ(wde.GetEmissiondetectorAveragingForString(display[value]), value);
        EXPECT_EQ(wde.GetEmissiondetectorAveragingForSKPIString(skpi[value]), value);
    }
    EXPECT_EQ(wde.GetEmissiondetectorAveragingForSKPIString(QStringLiteral("SHORT")), -1);

    for (const QString& text : {QStringLiteral("LOOP"), QStringLiteral("NONLoop")}) {
        EXPECT_EQ(wde.GetEmissiondetectorModeForSKPIString(text),
                  wde.GetEmissiondetectorModeForString(text));
        EXPECT_EQ(wde.GetStringForEmissiondetectorMode(wde.GetEmissiondetectorModeForString(text)),
                  text);
    }
    EXPECT_EQ(wde.GetEmissiondetectorModeForString(QStringLiteral("NONLOOP")), -1);
    EXPECT_EQ(wde.GetEmissiondetectorModeForSKPIString(QStringLiteral("NONLOOP")), -1);

    EXPECT_EQ(wde.GetAttenuationTypeForString(QStringLiteral("OFF")), WDE::ATTENUATION_OFF);
    EXPECT_EQ(wde.GetStringForAttenuationType(WDE::ATTENUATION_ON), QStringLiteral("ON"));
    const QStringList attenuationModes{"LOWNOISE", "NORMAL", "LOWDISTORT"};
    const QStringList agcValues{"SLOW", "DEFAULT", "FAST"};
    for (int value = 0; value < 3; ++value) {
        EXPECT_EQ(wde.GetStringForAttenuationModeType(
                      wde.GetAttenuationModeTypeForString(attenuationModes[value])),
                  attenuationModes[value]);
        EXPECT_EQ(wde.GetAttenuationModeTypeForString(attenuationModes[value]), value);
        EXPECT_EQ(wde.GetAGCValueTypeForString(agcValues[value]), value);
        EXPECT_EQ(wde.GetStringForAGCValueType(static_cast<WDE::AGCValueType>(value)),
                  agcValues[value]);
    }
    EXPECT_EQ(wde.GetGainCtrlTypeForString(QStringLiteral("AGC")), WDE::GAINCTRL_AGC);
    EXPECT_EQ(wde.GetStringForGainCtrlType(WDE::GAINCTRL_MGC), QStringLiteral("MGC"));
    EXPECT_EQ(wde.GetGainCtrlTypeForString(QStringLiteral("mgc")), -1);
}
