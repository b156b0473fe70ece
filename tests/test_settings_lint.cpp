// SPDX-License-Identifier: MIT
// The lint: silent on documents in the library's own form, one finding on the
// right line and path for each kind of loss, in every record kind as a root.
#include "RecordFixtures.h"
#include "TestSupport.h"

#include <Exciter_Settings.h>
#include <SettingsLint.h>
#include <WDE_Exciter.h>
#include <WDE_Rasterdetector.h>
#include <WDE_Simulation.h>
#include <WDE_Singlechanneldetector.h>

#include <QMap>
#include <QTemporaryDir>

using namespace KELMORA;
using testfixtures::Example;

namespace {

// Each record kind's own document, as the library writes it.
QMap<QString, QString> Documents() {
    const Exciter_Settings lookThrough = Example("look_through");
    const Exciter_Settings sweep = Example("sweep");
    const WDE& wde = lookThrough.GetWDE();
    return {
        {"settings", lookThrough.GetXmlString()},
        {"tgn", sweep.GetTGN().GetXmlString()},
        {"scu", sweep.GetSCU().GetXmlString()},
        {"path", sweep.GetSCU().GetATTANTPath().GetXmlString()},
        {"wde", wde.GetXmlString()},
        {"exciter", wde.GetExciterList()[0].GetXmlString()},
        {"raster", wde.GetRasterdetectorList()[0].GetXmlString()},
        {"simulation", wde.GetSimulationList()[0].GetXmlString()},
        {"single", wde.GetSinglechanneldetectorList()[0].GetXmlString()},
    };
}

QString Describe(const QVector<LintFinding>& findings) {
    QString text;
    for (const LintFinding& f : findings)
        text += QString("%1:%2 %3 [%4] %5\n")
                    .arg(f.line)
                    .arg(f.column)
                    .arg(f.SeverityText(), f.path, f.message);
    return text;
}

// Documents in the library's form, also with other indentation (which takes
// the comparison rather than the short cut for an unchanged text), and with
// unset values and exponent forms.
TEST(SettingsLint, FindsNothingInTheLibrarysOwnDocuments) {
    QStringList documents = Documents().values();
    WDE unset; // every value at its marker; the items with theirs
    unset.GetExciterList().append(WDE_Exciter(0));
    unset.GetRasterdetectorList().append(WDE_Rasterdetector(0));
    unset.GetSimulationList().append(WDE_Simulation(0));
    unset.GetSinglechanneldetectorList().append(WDE_Singlechanneldetector(0));
    WDE small = testfixtures::CompleteWDE();
    small.SetGuardTime(1.5e-7);
    small.SetExciterCount(0);
    documents << unset.GetXmlString() << small.GetXmlString()
              << Example("continuous").GetXmlString() << testfixtures::CompleteTGN().GetXmlString();
    for (const QString& document : documents) {
        for (const QString& form : {document, QString(document).replace("    ", "\t")}) {
            const QVector<LintFinding> findings = SettingsLint::LintXmlString(form);
            EXPECT_TRUE(findings.isEmpty()) << Describe(findings).toStdString() << "in\n"
                                            << form.toStdString();
        }
    }
}

struct Damage {
    const char* document;
    const char* from; // the first occurrence is replaced
    const char* to;
    const char* path;
    const char* message;
    const char* standsAt = nullptr; // the finding's element, when not `to`
};

// One defect each; the finding must stand on the line where `to` begins, or
// where `standsAt` first occurs.
const Damage kDamages[] = {
    {"settings", "<Power>-12.50</Power>", "<Power>abc</Power>", "TGN/Power",
     "'abc' reads as 0: it is not a number"},
    {"scu", "<TransmitTime>2.50<", "<TransmitTime>0.0004<", "TransmitTime",
     "'0.0004' is saved as '0.00': TransmitTime keeps two decimals"},
    {"tgn", "<SweepActive>true<", "<SweepActive>True<", "SweepActive",
     "'True' reads as false: a flag is true only for 'true'"},
    {"settings", "<Autostart>true<", "<Autostart>False<", "Autostart",
     "'False' reads as true: Autostart is false only for 'false'"},
    {"settings", "<ATT1>true<", "<ATT1>yes<", "SCU/ATTANTPath/ATT1",
     "'yes' reads as false: a flag is true only for 'true'"},
    {"settings", "<Mode>DETX<", "<Mode>Det<", "WDE/Mode",
     "'Det' is not a Mode (choices: OFF, DET, DETX, EX, SIM, SDET)"},
    {"wde", "<GuardTime>", "<GuardTme>0.5</GuardTme>\n<GuardTime>", "GuardTme",
     "unknown element 'GuardTme' is passed over and lost on save"},
    // In an item that is not the last: its record is gone by the time the
    // lint words the finding.
    {"settings", "<Level>-20<", "<Levl>-18</Levl><Level>-20<", "WDE/ExciterList/0/Levl",
     "unknown element 'Levl' is passed over"},
    {"settings", "<Level>-19<", "<Level>-19<Sub/><", "WDE/ExciterList/1/Level/Sub",
     "element 'Sub' inside the value 'Level' is passed over and lost on save"},
    {"path", "<ATT2>", "<ATT2><x>1</x>", "ATT2/x", "element 'x' inside the value 'ATT2'"},
    {"settings", "</SimulationList>", "<Junk/></SimulationList>", "WDE/SimulationList/Junk",
     "unknown element 'Junk' is passed over"},
    {"wde", "<ExciterList>", R"(<ExciterList><WDE_Simulation Version="0.1" Index="7"/>)",
     "SimulationList/0", "'WDE_Simulation' in 'ExciterList' is saved in 'SimulationList'"},
    {"exciter", "<Level>-20<", "<Level>-1234.567<", "Level",
     "'-1234.567' is saved as '-1234.57': Level keeps no more digits than that"},
    {"exciter", "<Level>-20<", "<Level>\n-20x<", "Level", "'\\n-20x' reads as 0"},
    {"exciter", "<Level>-20<", "<Level>-20.0000001<", "Level",
     "'-20.0000001' is saved as '-20': Level keeps six significant digits"},
    {"simulation", "<Frequency>25000<", "<Frequency>25000.0000001<", "FrequencyList/2",
     "keeps six significant digits"},
    {"settings", "<Frequency>0</Frequency>", "<Frequency>x</Frequency>",
     "WDE/SimulationList/0/FrequencyList/1", "'x' reads as 0"},
    {"tgn", "<IQModulationSource>ANALOG<", "<IQModulationSource>analog<", "IQModulationSource",
     "'analog' is not an IQModulationSource (choices: ANALOG, BASEBAND): reads as 'BASEBAND'"},
    {"wde", "<ExciterCount>2<", "<ExciterCount>-2<", "ExciterCount",
     "'-2' reads as 0: ExciterCount takes no negative numbers"},
    {"single", "<ExciterSet>0<", "<ExciterSet>1.5<", "ExciterSet",
     "'1.5' reads as 0: ExciterSet takes whole numbers only"},
    {"tgn", "<Power>", R"(<Power unit="dBm">)", "Power/unit",
     "unknown attribute 'unit' of 'Power' is passed over and lost on save"},
    {"raster", R"(Index="0")", R"(Index="0" Colour="red")", "Colour",
     "unknown attribute 'Colour' of 'WDE_Rasterdetector'"},
    {"settings", "<ExciterList>", "<ExciterList Count=\"2\">", "WDE/ExciterList",
     "attribute 'Count' of 'ExciterList' is passed over"},
    {"settings", "Index=\"1\"", "Index=\"one\"", "WDE/ExciterList/1/Index",
     "'one' reads as 0: it is not a number"},
    {"scu", "<SCU Version=\"1.0\">", "<SCU>", "Version", "no 'Version' attribute"},
    {"tgn", "<Power>-12.50</Power>", "<Power>-10</Power>\n<Power>-12.50</Power>", "Power",
     "Power '-10' is lost: a later Power on line"},
    {"settings", "<Level>-20<", "<Level>-21</Level>\n<Level>-20<", "WDE/ExciterList/0/Level",
     "Level '-21' is lost"},
    {"raster", "AAAAkNHPuUEAAACIK925QQAAAHBe6rlB", "AAAAkNHPuUEAAACIK925QQAAAHB!e6rlB", "Frequency",
     "holds characters that are not Base64 ('!')"},
    {"settings", "AAAAkNHPuUEAAACIK925QQAAAHBe6rlB", "AAAAkNHPuUEAAACIK925QQAAAHBe",
     "WDE/RasterdetectorList/0/Frequency", "holds 21 bytes, not whole numbers of 8"},
    {"tgn", ">433920000<", ">5000000000<", "Frequency",
     "'5000000000' lies outside the range of Frequency (Minimum 20000000, Maximum 3000000000)"},
    {"settings", "<ExciterMode>Look Through<", "<ExciterMode>Continuous<", "WDE",
     "'WDE' is passed over and lost on save: ExciterMode 'Continuous' does not use WDE", "<WDE "},
    {"tgn", "<SweepDwellTime>0.01<", "<SweepDwellTime>-111111.11<", "SweepDwellTime",
     "'-111111.11' is the unset marker: SweepDwellTime reads as unset and is left out on save"},
    {"wde", "<AttenuationMode>NORMAL<", "<AttenuationMode>Normal<", "AttenuationMode",
     "'Normal' is not an AttenuationMode (choices: LOWNOISE, NORMAL, LOWDISTORT)"},
    {"tgn", "<StepWidth>25000</StepWidth>", "", "ScanParameter",
     "'ScanParameter' is incomplete (ScanParameter: Please set StepWidth!): it is left out",
     "<ScanParameter>"},
    {"settings", "<TransmitTime>2.50</TransmitTime>", "", "SCU",
     "'SCU' is incomplete (SCU: Please set TransmitTime!): nothing is saved", "<SCU "},
};

TEST(SettingsLint, ReportsEachLossWhereItStands) {
    const QMap<QString, QString> documents = Documents();
    for (const Damage& damage : kDamages) {
        QString document = documents.value(QLatin1String(damage.document));
        const QString from = QString::fromUtf8(damage.from);
        const int at = document.indexOf(from);
        ASSERT_GE(at, 0) << damage.from;
        document.replace(at, from.size(), QString::fromUtf8(damage.to));
        const QVector<LintFinding> findings = SettingsLint::LintXmlString(document);
        SCOPED_TRACE(Describe(findings).toStdString() + document.toStdString());
        EXPECT_EQ(findings.size(), 1);
        if (findings.size() != 1)
            continue;
        EXPECT_EQ(findings[0].severity, LintFinding::Warning);
        const int standsAt =
            damage.standsAt ? document.indexOf(QString::fromUtf8(damage.standsAt)) : at;
        EXPECT_EQ(findings[0].line, document.left(standsAt).count(QLatin1Char('\n')) + 1);
        EXPECT_EQ(findings[0].path, QString::fromUtf8(damage.path));
        EXPECT_TRUE(findings[0].message.contains(QString::fromUtf8(damage.message)));
    }
}

TEST(SettingsLint, AFileThatCannotBeReadIsOneErrorWithTheRecordsMessage) {
    const QString settings = Documents().value("settings");
    const auto lineOf = [](const QString& document, const char* text) {
        return document.left(document.indexOf(QLatin1String(text))).count(QLatin1Char('\n')) + 1;
    };
    const QString cut = settings.left(settings.indexOf("<SymbolRate>") + 14);
    const struct {
        QString document;
        qint64 line;
        const char* message;
    } cases[] = {
        {QString(settings).replace("<Reference>intern<", "<Reference>Intern<"),
         lineOf(settings, "<Reference>"), "TGN: Unknown Reference 'Intern'"},
        {QString(settings).replace("<ATT6>", "<ATT7/><ATT6>"), lineOf(settings, "<ATT6>"),
         "Unknown Tag 'ATT7' in 'ATTANTPath'"},
        {cut, lineOf(cut, "<SymbolRate>"), "XML error: Premature end of document"},
        {"\n<Unknown/>", 2, "Unknown root element 'Unknown'"},
    };
    for (const auto& failing : cases) {
        const QVector<LintFinding> findings = SettingsLint::LintXmlString(failing.document);
        ASSERT_EQ(findings.size(), 1) << Describe(findings).toStdString();
        EXPECT_EQ(findings[0].severity, LintFinding::Error);
        EXPECT_EQ(findings[0].line, failing.line);
        EXPECT_TRUE(findings[0].message.startsWith(QLatin1String(failing.message)))
            << findings[0].message.toStdString();
    }
    EXPECT_EQ(SettingsLint::LintXmlFile("/nonexistent/x.xml")[0].severity, LintFinding::Error);
}

// A file is read as LoadXml reads it, and the short cut for an unchanged
// text compares bytes: a file in the library's form, then the same with a
// value changed.
TEST(SettingsLint, ReadsFilesAsLoadXmlDoes) {
    QTemporaryDir directory;
    const QString path = directory.filePath("settings.xml");
    Example("look_through").SaveXml(path);
    EXPECT_TRUE(SettingsLint::LintXmlFile(path).isEmpty());
    Exciter_Settings loaded;
    const QVector<LintFinding> none = SettingsLint::LintXmlFile(path, loaded);
    EXPECT_TRUE(none.isEmpty());
    EXPECT_EQ(loaded.GetWDE().GetExciterList().size(), 2);

    testsupport::WriteFile(path, testsupport::FileContents(path).replace("<TransmitTime>2.50<",
                                                                         "<TransmitTime>2.505<"));
    const QVector<LintFinding> findings = SettingsLint::LintXmlFile(path);
    ASSERT_EQ(findings.size(), 1);
    EXPECT_EQ(findings[0].path, "SCU/TransmitTime");
}

} // namespace
