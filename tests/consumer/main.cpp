// A host program outside the library's tree: it sees only the installed
// package, includes headers by class name and links Kelmora::ExciterSettings.
#include <ATTANTPath.h>
#include <IKMObject.h>
#include <KMException.h>

#include <cstdio>

int main() {
    KELMORA::ATTANTPath path;
    path.SetATT1(true);
    try {
        path.Check();
        std::puts("unexpected: incomplete path passed Check()");
        return 1;
    } catch (const KELMORA::KMException& failure) {
        if (failure.GetMessage() != QStringLiteral("ATTANTPath: Please set ATT2!")) {
            std::printf("unexpected message: %s\n", qPrintable(failure.GetMessage()));
            return 1;
        }
    }
    std::puts("consumer ok");
    return 0;
}
