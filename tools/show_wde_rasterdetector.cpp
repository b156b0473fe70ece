// SPDX-License-Identifier: MIT
// Tree form of WDE_Rasterdetector, an item of the WDE raster detector list.
#include "RecordRegistry.h"

#include <WDE_Rasterdetector.h>

namespace {

using KELMORA::WDE_Rasterdetector;

void PrintWDERasterdetector(const WDE_Rasterdetector& detector, tool::TreePrinter& out) {
    out.ItemAttributes(detector);
    out.Double(QStringLiteral("ChannelStep"), detector.GetChannelStep());
    out.Double(QStringLiteral("MinimumFixedFrequencyLength"),
               detector.GetMinimumFixedFrequencyLength());
    out.Unsigned(QStringLiteral("ExciterSet"), detector.GetExciterSet());
    out.Flag(QStringLiteral("Active"), detector.GetActive());
    out.Enum(QStringLiteral("ThresholdMode"), detector.GetThresholdMode(),
             detector.GetStringForThresholdMode(detector.GetThresholdMode()));
    out.Double(QStringLiteral("AbsoluteThresholdValue"), detector.GetAbsoluteThresholdValue());
    out.Double(QStringLiteral("RelativeThresholdValue"), detector.GetRelativeThresholdValue());
    out.Enum(QStringLiteral("RelativeThresholdAvgTime"), detector.GetRelativeThresholdAvgTime(),
             detector.GetStringForAvgTime(detector.GetRelativeThresholdAvgTime()));
    out.Enum(QStringLiteral("Amplifier"), detector.GetAmplifier(),
             detector.GetStringForAmplifier(detector.GetAmplifier()));
    // The file holds the list as one Base64 text; shown decoded.
    out.Numbers(QStringLiteral("Frequency"), detector.GetFrequencyList());
}

const tool::RegisterRecord<WDE_Rasterdetector> kRegisterWDERasterdetector(&PrintWDERasterdetector);

} // namespace
