// SPDX-License-Identifier: MIT
#include "TestSupport.h"

#include <WDE_Exciter.h>

using namespace KELMORA;
using testsupport::CheckMessage;
using testsupport::WrittenXml;

namespace {

const QString kNewItemXml = QStringLiteral(
    "<WDE_Exciter Version=\"0.1\"><SignalType></SignalType><SymbolRate>-111111</SymbolRate>"
    "<Level>-111111</Level></WDE_Exciter>");

} // namespace

TEST(WDEExciterItem, WritesAttributesAndChildrenInOrderWithSixDigits) {
    EXPECT_EQ(WrittenXml(WDE_Exciter()), kNewItemXml);
    WDE_Exciter item(4);
    item.SetItemName(QStringLiteral("Ex A"));
    item.SetSignalType(WDE_Exciter::MSK);
    item.SetSymbolRate(2400);
    item.SetFrequencyShift(0.5);
    item.SetLevel(1234567);
    EXPECT_EQ(WrittenXml(item),
              QStringLiteral("<WDE_Exciter Version=\"0.1\" Index=\"4\" Name=\"Ex A\">"
                             "<SignalType>MSK</SignalType><SymbolRate>2400</SymbolRate>"
                             "<FrequencyShift>0.5</FrequencyShift><Level>1.23457e+06</Level>"
                             "</WDE_Exciter>"));

    // A value outside the table counts as set but has no text.
    item.SetSignalType(static_cast<WDE_Exciter::SignalType>(7));
    EXPECT_TRUE(item.HasData());
    EXPECT_NO_THROW(item.Check());
    EXPECT_TRUE(WrittenXml(item).contains(QStringLiteral("<SignalType></SignalType>")));
    EXPECT_TRUE(item.GetStringForSignalType(static_cast<WDE_Exciter::SignalType>(3)).isEmpty());
    EXPECT_EQ(item.GetSignalTypeForString(QStringLiteral("fsk2")), -1);
}

TEST(WDEExciterItem, CheckOrderAndDataQueries) {
    WDE_Exciter item;
    EXPECT_FALSE(item.AnyData());
    item.SetFrequencyShift(100);
    EXPECT_TRUE(item.AnyData());
    EXPECT_EQ(CheckMessage(item), QStringLiteral("WDE_Exciter: Please set SignalType!"));
    item.SetSignalType(WDE_Exciter::FSK2);
    item.SetLevel(-3);
    EXPECT_EQ(CheckMessage(item), QStringLiteral("WDE_Exciter: Please set SymbolRate!"));
    item.SetSymbolRate(1200);
    item.SetLevel(-111111.11);
    EXPECT_EQ(CheckMessage(item), QStringLiteral("WDE_Exciter: Please set Level!"));
    EXPECT_FALSE(item.HasData());
    item.SetLevel(0);
    EXPECT_TRUE(item.HasData());
}

TEST(WDEExciterItem, ReadingMarkersAttributesAndUnknownChildren) {
    // Written unset markers read back as set values, but not the signal type.
    WDE_Exciter item(7);
    item.SetItemName(QStringLiteral("kept"));
    item.SetXmlString(QString(kNewItemXml).remove(QStringLiteral(" Version=\"0.1\"")));
    EXPECT_EQ(item.GetSymbolRate(), -111111.0);
    EXPECT_EQ(item.GetFrequencyShift(), -111111.11);
    EXPECT_EQ(CheckMessage(item), QStringLiteral("WDE_Exciter: Please set SignalType!"));
    EXPECT_TRUE(WrittenXml(item).startsWith(
        QStringLiteral("<WDE_Exciter Version=\"\" Index=\"7\" Name=\"kept\">")));

    item.SetXmlString(QStringLiteral("<WDE_Exciter Version=\"0.2\" Index=\"x1\" Name=\"\">"
                                     "<SignalType>CW</SignalType><GuardTime><Level>9</Level>"
                                     "</GuardTime><level>8</level><SymbolRate>abc</SymbolRate>"
                                     "<Level>-12.5</Level><SignalType>cw</SignalType>"
                                     "</WDE_Exciter>"));
    EXPECT_EQ(item.GetSymbolRate(), 0.0);
    EXPECT_EQ(item.GetLevel(), -12.5);
    EXPECT_EQ(item.GetSignalType(), -1);
    EXPECT_TRUE(
        WrittenXml(item).startsWith(QStringLiteral("<WDE_Exciter Version=\"0.2\" Index=\"0\">")));

    item.Reset();
    EXPECT_FALSE(item.AnyData());
    EXPECT_EQ(WrittenXml(item),
              QString(kNewItemXml).replace(QStringLiteral("0.1"), QStringLiteral("0.2")));
}
