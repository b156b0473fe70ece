// SPDX-License-Identifier: MIT
// Tree form of SCU.
#include "RecordRegistry.h"

#include <SCU.h>

namespace {

using KELMORA::SCU;

void PrintSCU(const SCU& scu, tool::TreePrinter& out) {
    out.Version(scu);
    out.Range(QStringLiteral("Frequency"), scu.GetFrequency(), scu.GetFrequencyMin(),
              scu.GetFrequencyMax());
    out.Double(QStringLiteral("TransmitTime"), scu.GetTransmitTime());
    out.Record(scu.GetATTANTPath());
}

const tool::RegisterRecord<SCU> kRegisterSCU(&PrintSCU);

} // namespace
