// SPDX-License-Identifier: MIT
#include "TestSupport.h"

#include <WDE_Simulation.h>

using namespace KELMORA;
using testsupport::CheckMessage;
using testsupport::WrittenXml;

namespace {

const auto kUnsetType = static_cast<WDE_Simulation::SimulationType>(-1);

const QString kNewItemXml =
    QStringLiteral("<WDE_Simulation Version=\"0.1\"><Active>false</Active><Type></Type>"
                   "<ExciterSet>4294967295</ExciterSet><PNStartValue>4294967295</PNStartValue>"
                   "<RelativeCenterFrequency>-111111</RelativeCenterFrequency>"
                   "<ChannelCount>4294967295</ChannelCount><HopWidth>-111111</HopWidth>"
                   "</WDE_Simulation>");

WDE_Simulation PnSimulation() {
    WDE_Simulation item(2);
    item.SetItemName(QStringLiteral("sweep"));
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

} // namespace

TEST(WDESimulationRecord, WritesEveryChildInOrderWithMarkersForUnsetValues) {
    EXPECT_EQ(WrittenXml(PnSimulation()),
              QStringLiteral("<WDE_Simulation Version=\"0.1\" Index=\"2\" Name=\"sweep\">"
                             "<Active>true</Active><Type>PN</Type><ExciterSet>3</ExciterSet>"
                             "<PNStartValue>17</PNStartValue>"
                             "<RelativeCenterFrequency>1.5e+06</RelativeCenterFrequency>"
                             "<ChannelCount>8</ChannelCount><HopWidth>0.000125</HopWidth>"
                             "<FrequencyList><Frequency>-25000</Frequency><Frequency>0</Frequency>"
                             "<Frequency>1.23457e+08</Frequency></FrequencyList>"
                             "</WDE_Simulation>"));
    EXPECT_EQ(WrittenXml(WDE_Simulation()), kNewItemXml);

    // Unset values read back: unsigned ones unset, doubles as -111111.
    const auto fromUnset = testsupport::ReadFrom<WDE_Simulation>(kNewItemXml);
    EXPECT_EQ(fromUnset.GetChannelCount(), 4294967295u);
    EXPECT_EQ(fromUnset.GetHopWidth(), -111111.0);
    EXPECT_EQ(fromUnset.GetType(), kUnsetType);
}

TEST(WDESimulationRecord, ReadingKeepsItemAttributesAcrossTheWrapperAndAppends) {
    // The wrapper's attributes are not the item's; absent item attributes
    // keep Index and Name; the list grows; an unknown child is skipped whole.
    auto item = testsupport::ReadFrom<WDE_Simulation>(PnSimulation().GetXmlString());
    item.SetXmlString(QStringLiteral(
        "<WDE_Simulation Version=\"7.2\"><Frequency>1</Frequency>"
        "<Extra><ExciterSet>99</ExciterSet><Frequency>5</Frequency></Extra>"
        "<FrequencyList Version=\"9\" Index=\"8\" Name=\"w\"><Frequency>2</Frequency>"
        "<HopWidth>12.5</HopWidth></FrequencyList><Type>pn</Type><ExciterSet>x</ExciterSet>"
        "</WDE_Simulation>"));
    EXPECT_EQ(item.GetVersion(), QStringLiteral("7.2"));
    EXPECT_EQ(item.GetIndex(), 2);
    EXPECT_EQ(item.GetItemName(), QStringLiteral("sweep"));
    EXPECT_EQ(item.GetRelativeFrequencyList(),
              (QVector<double>{-25000.0, 0.0, 123457000.0, 1.0, 2.0}));
    EXPECT_EQ(item.GetHopWidth(), 12.5);
    EXPECT_EQ(item.GetType(), kUnsetType);
    EXPECT_EQ(item.GetExciterSet(), 0u);
}

TEST(WDESimulationRecord, ConvertersChecksAndReset) {
    const WDE_Simulation item;
    EXPECT_EQ(item.GetStringForSimulationType(WDE_Simulation::SIMULATIONTYPE_FLIS),
              QStringLiteral("FLIS"));
    EXPECT_TRUE(item.GetStringForSimulationType(kUnsetType).isNull());
    EXPECT_EQ(item.GetSimulationTypeForString(QStringLiteral("PN")), 1);
    EXPECT_EQ(item.GetSimulationTypeForString(QStringLiteral("Flis")), kUnsetType);

    WDE_Simulation checked;
    EXPECT_EQ(CheckMessage(checked), QStringLiteral("WDE_Simulation: Please set ExciterSet"));
    checked.SetExciterSet(0);
    EXPECT_EQ(CheckMessage(checked), QStringLiteral("WDE_Simulation: Please set Type"));
    EXPECT_FALSE(checked.HasData());
    checked.SetType(WDE_Simulation::SIMULATIONTYPE_FLIS);
    EXPECT_NO_THROW(checked.Check());
    EXPECT_TRUE(checked.HasData());

    WDE_Simulation listOnly(1);
    listOnly.SetActive(true);
    EXPECT_FALSE(listOnly.AnyData());
    listOnly.AppendRelativeFrequency(0.0);
    EXPECT_TRUE(listOnly.AnyData());

    // Reset keeps the version text and Active.
    WDE_Simulation full = PnSimulation();
    full.SetXmlString(QStringLiteral("<WDE_Simulation Version=\"2.0\"/>"));
    full.Reset();
    EXPECT_EQ(WrittenXml(full), QString(kNewItemXml)
                                    .replace(QStringLiteral("0.1"), QStringLiteral("2.0"))
                                    .replace(QStringLiteral(">false<"), QStringLiteral(">true<")));
}
