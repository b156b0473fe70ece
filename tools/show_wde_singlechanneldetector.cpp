// SPDX-License-Identifier: MIT
// Tree form of WDE_Singlechanneldetector, an item of the WDE single-channel
// detector list.
#include "RecordRegistry.h"

#include <WDE_Singlechanneldetector.h>

namespace {

using KELMORA::WDE_Singlechanneldetector;

// The record offers the values of its frequency and bandwidth ranges only.
void PrintWDESinglechanneldetector(const WDE_Singlechanneldetector& detector,
                                   tool::TreePrinter& out) {
    out.ItemAttributes(detector);
    out.Double(QStringLiteral("Frequency"), detector.GetFrequency());
    out.Double(QStringLiteral("Bandwidth"), detector.GetBandwidth());
    out.Double(QStringLiteral("MinimumFixedFrequencyLength"),
               detector.GetMinimumFixedFrequencyLength());
    out.Unsigned(QStringLiteral("ExciterSet"), detector.GetExciterSet());
    out.Flag(QStringLiteral("Active"), detector.GetActive());
    out.Double(QStringLiteral("AbsoluteThresholdValue"), detector.GetAbsoluteThresholdValue());
}

const tool::RegisterRecord<WDE_Singlechanneldetector>
    kRegisterWDESinglechanneldetector(&PrintWDESinglechanneldetector);

} // namespace
