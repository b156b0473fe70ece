// SPDX-License-Identifier: MIT
// Tree form of ATTANTPath.
#include "RecordRegistry.h"

#include <ATTANTPath.h>

namespace {

using KELMORA::ATTANTPath;

struct Switch {
    const char* name;
    bool (ATTANTPath::*get)() const;
    void (ATTANTPath::*set)(bool);
};

const Switch kSwitches[] = {
    {"ATT1", &ATTANTPath::GetATT1, &ATTANTPath::SetATT1},
    {"ATT2", &ATTANTPath::GetATT2, &ATTANTPath::SetATT2},
    {"ATT3", &ATTANTPath::GetATT3, &ATTANTPath::SetATT3},
    {"ATT4", &ATTANTPath::GetATT4, &ATTANTPath::SetATT4},
    {"ATT5", &ATTANTPath::GetATT5, &ATTANTPath::SetATT5},
    {"ATT6", &ATTANTPath::GetATT6, &ATTANTPath::SetATT6},
};

// The getters only tell on from off, not whether a switch is set. A switch
// is set exactly when a copy with the five others set is complete.
bool IsSet(const ATTANTPath& path, const Switch& which) {
    ATTANTPath probe = path;
    for (const Switch& other : kSwitches) {
        if (&other != &which)
            (probe.*other.set)(true);
    }
    return probe.HasData();
}

void PrintATTANTPath(const ATTANTPath& path, tool::TreePrinter& out) {
    for (const Switch& which : kSwitches) {
        const QString name = QString::fromLatin1(which.name);
        if (IsSet(path, which))
            out.Flag(name, (path.*which.get)());
        else
            out.Unset(name);
    }
}

const tool::RegisterRecord<ATTANTPath> kRegisterATTANTPath(&PrintATTANTPath);

} // namespace
