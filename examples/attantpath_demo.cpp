// SPDX-License-Identifier: MIT
// Loads an attenuator path file, validates it, prints its switches and, when
// given a second file name, saves it there.
#include <ATTANTPath.h>
#include <KMException.h>

#include <cstdio>

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fprintf(stderr, "usage: %s FILE [OUT]\n", argv[0]);
        return 2;
    }
    KELMORA::ATTANTPath path;
    try {
        path.LoadXml(QString::fromLocal8Bit(argv[1]));
        path.Check();
        const bool switches[] = {path.GetATT1(), path.GetATT2(), path.GetATT3(),
                                 path.GetATT4(), path.GetATT5(), path.GetATT6()};
        for (int i = 0; i < 6; ++i)
            std::printf("ATT%d: %s\n", i + 1, switches[i] ? "on" : "off");
        if (argc > 2)
            path.SaveXml(QString::fromLocal8Bit(argv[2]));
    } catch (const KELMORA::KMException& failure) {
        std::fprintf(stderr, "%s: %s\n", argv[1], qPrintable(failure.GetMessage()));
        return 1;
    }
    return 0;
}
