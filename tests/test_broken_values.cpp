// SPDX-License-Identifier: MIT
// A child element that breaks off (the document ends inside it, or its end
// tag is wrong) gives no value: the load fails, the children read before it
// stay, and nothing of the broken one is stored.
#include "TestSupport.h"

#include <WDE_Exciter.h>
#include <WDE_Rasterdetector.h>
#include <WDE_Simulation.h>
#include <WDE_Singlechanneldetector.h>

using namespace KELMORA;

namespace {

template <class Item> Item LoadBroken(const QString& children) {
    Item item;
    const QString document =
        QStringLiteral("<%1 Version=\"0.1\">%2").arg(item.GetObjectName(), children);
    EXPECT_THROW(item.SetXmlString(document), KMException);
    return item;
}

// Each item with a value read before the break and the broken value, cut off
// and with a wrong end tag.
TEST(BrokenValue, IsNotStoredInAnyItem) {
    for (const char* end : {"", "</Broken>"}) {
        SCOPED_TRACE(end);
        const QString brokenEnd = QString::fromLatin1(end);
        const auto exciter = LoadBroken<WDE_Exciter>(
            QStringLiteral("<Level>-3</Level><SymbolRate>2400") + brokenEnd);
        EXPECT_EQ(exciter.GetLevel(), -3);
        EXPECT_EQ(exciter.GetSymbolRate(), IKMObject::InvalidDouble);

        const auto raster = LoadBroken<WDE_Rasterdetector>(
            QStringLiteral("<ChannelStep>25000</ChannelStep><Frequency>AAAAAAAA8D8=") + brokenEnd);
        EXPECT_EQ(raster.GetChannelStep(), 25000);
        EXPECT_TRUE(raster.GetFrequencyList().isEmpty());

        const auto simulation = LoadBroken<WDE_Simulation>(
            QStringLiteral("<FrequencyList><Frequency>1</Frequency><Frequency>2") + brokenEnd);
        EXPECT_EQ(simulation.GetRelativeFrequencyList(), QVector<double>{1});

        const auto detector = LoadBroken<WDE_Singlechanneldetector>(
            QStringLiteral("<ExciterSet>2</ExciterSet><AbsoluteThresholdValue>-40") + brokenEnd);
        EXPECT_EQ(detector.GetExciterSet(), 2u);
        EXPECT_EQ(detector.GetAbsoluteThresholdValue(), IKMObject::InvalidDouble);
    }
}

} // namespace
