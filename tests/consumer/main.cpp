// SPDX-License-Identifier: MIT
// A host program outside the library's tree: it sees only the installed
// package, includes headers by class name and links Kelmora::ExciterSettings.
#include <ATTANTPath.h>
#include <DurableFile.h>
#include <ExciterSettingsExport.h>
#include <ExciterSettingsVersion.h>
#include <Exciter_Settings.h>
#include <IKMObject.h>
#include <InputLimits.h>
#include <KMException.h>
#include <KelmoraBaseExport.h>
#include <KelmoraException.h>
#include <Logger.h>
#include <MinMax.h>
#include <ReadObserver.h>
#include <RecordKinds.h>
#include <SCU.h>
#include <ScanParameter.h>
#include <SettingsLint.h>
#include <TGN.h>
#include <ValueMinMax.h>
#include <WDE.h>
#include <WDE_Exciter.h>
#include <WDE_Rasterdetector.h>
#include <WDE_Simulation.h>
#include <WDE_Singlechanneldetector.h>

#include <QtGlobal>

#include <cstdio>

// The Qt that the package brought along is the one the host asked for.
#if defined(EXPECTED_QT_MAJOR) && QT_VERSION_MAJOR != EXPECTED_QT_MAJOR
#error "the package brought another Qt major version than the host asked for"
#endif

namespace {

bool Fails(const char* what) {
    std::printf("consumer: %s\n", what);
    return false;
}

// An exception of the library, caught by its base class and its message
// read in the host.
bool IncompleteCheckThrows() {
    KELMORA::Exciter_Settings settings;
    settings.SetExciterMode(QStringLiteral("Trap"));
    try {
        settings.Check();
    } catch (const KELMORA::KelmoraException& failure) {
        return failure.GetMessage() == QStringLiteral("TGN: Please set Frequency!") ||
               Fails("unexpected Exciter_Settings message");
    }
    return Fails("incomplete settings passed Check()");
}

// Items made in the host travel through a document; the lint and the input
// limits, as a host reaches them.
bool ListsLintAndLimitsWork() {
    KELMORA::WDE wde;
    wde.GetExciterList().append(KELMORA::WDE_Exciter(0));
    wde.GetRasterdetectorList().append(KELMORA::WDE_Rasterdetector(0));
    wde.GetSimulationList().append(KELMORA::WDE_Simulation(0));
    wde.GetSinglechanneldetectorList().append(KELMORA::WDE_Singlechanneldetector(0));
    KELMORA::WDE copy;
    copy.SetXmlString(wde.GetXmlString());
    if (copy.GetXmlString() != wde.GetXmlString())
        return Fails("WDE lists lost on a round trip");
    const QVector<KELMORA::LintFinding> findings = KELMORA::SettingsLint::LintXmlString(
        QStringLiteral("<WDE_Exciter Version=\"0.1\"><Level>-3.1234567</Level></WDE_Exciter>"));
    if (findings.size() != 1 || findings[0].path != QStringLiteral("Level"))
        return Fails("the lint missed a rounded value");
    KELMORA::InputLimits limits;
    limits.maxDepth = 2;
    auto record = KELMORA::RecordKinds::Create(QStringLiteral("WDE"));
    record->SetInputLimits(limits);
    try {
        record->SetXmlString(QStringLiteral("<WDE><a><b/></a></WDE>"));
    } catch (const KELMORA::KMException&) {
        return true;
    }
    return Fails("a document deeper than the limit loaded");
}

// The headers' version and the library's run-time version agree in an
// install of one build.
bool VersionsAgree() {
    static_assert(EXCITERSETTINGS_VERSION ==
                      EXCITERSETTINGS_VERSION_CHECK(EXCITERSETTINGS_VERSION_MAJOR,
                                                    EXCITERSETTINGS_VERSION_MINOR,
                                                    EXCITERSETTINGS_VERSION_PATCH),
                  "EXCITERSETTINGS_VERSION");
    return QByteArray(KELMORA::ExciterSettingsVersion()) == EXCITERSETTINGS_VERSION_STRING ||
           Fails("the library's version differs from its headers'");
}

} // namespace

int main() {
    if (!IncompleteCheckThrows() || !ListsLintAndLimitsWork() || !VersionsAgree())
        return 1;
    std::printf("consumer ok (ExciterSettings %s, Qt %s)\n", KELMORA::ExciterSettingsVersion(),
                qVersion());
    return 0;
}
