// SPDX-License-Identifier: MIT
// Tree form of WDE_Simulation, an item of the WDE simulation list.
#include "RecordRegistry.h"

#include <WDE_Simulation.h>

namespace {

using KELMORA::WDE_Simulation;

void PrintWDESimulation(const WDE_Simulation& simulation, tool::TreePrinter& out) {
    out.ItemAttributes(simulation);
    out.Flag(QStringLiteral("Active"), simulation.GetActive());
    out.Enum(QStringLiteral("Type"), simulation.GetType(),
             simulation.GetStringForSimulationType(simulation.GetType()));
    out.Unsigned(QStringLiteral("ExciterSet"), simulation.GetExciterSet());
    out.Unsigned(QStringLiteral("PNStartValue"), simulation.GetPNStartValue());
    out.Double(QStringLiteral("RelativeCenterFrequency"), simulation.GetRelativeCenterFrequency());
    out.Unsigned(QStringLiteral("ChannelCount"), simulation.GetChannelCount());
    out.Double(QStringLiteral("HopWidth"), simulation.GetHopWidth());
    out.Numbers(QStringLiteral("FrequencyList"), simulation.GetRelativeFrequencyList());
}

const tool::RegisterRecord<WDE_Simulation> kRegisterWDESimulation(&PrintWDESimulation);

} // namespace
