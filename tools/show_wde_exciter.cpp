// SPDX-License-Identifier: MIT
// Tree form of WDE_Exciter, an item of the WDE exciter list.
#include "RecordRegistry.h"

#include <WDE_Exciter.h>

namespace {

using KELMORA::WDE_Exciter;

void PrintWDEExciter(const WDE_Exciter& exciter, tool::TreePrinter& out) {
    out.ItemAttributes(exciter);
    out.Enum(QStringLiteral("SignalType"), exciter.GetSignalType(),
             exciter.GetStringForSignalType(exciter.GetSignalType()));
    out.Double(QStringLiteral("SymbolRate"), exciter.GetSymbolRate());
    out.Double(QStringLiteral("FrequencyShift"), exciter.GetFrequencyShift());
    out.Double(QStringLiteral("Level"), exciter.GetLevel());
}

const tool::RegisterRecord<WDE_Exciter> kRegisterWDEExciter(&PrintWDEExciter);

} // namespace
