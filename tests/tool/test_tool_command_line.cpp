// Runs the exciter-settings program as a user would. The program is the one
// built in the tree, or the one named by EXCITER_SETTINGS_TOOL (the installed
// copy, see RunInstalledTool.cmake).
#include "../TestSupport.h"

#include <WDE.h>

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

namespace {

const QString kExamples = QStringLiteral(EXAMPLES_DIR "/");
const QString kExample = kExamples + "attantpath.xml";

// ATT4 is missing; ATT1 holds a text other than "true", kept verbatim.
const QByteArray kIncomplete = "<ATTANTPath><ATT1>True</ATT1><ATT2>false</ATT2><ATT3>true</ATT3>"
                               "<ATT5>false</ATT5><ATT6>false</ATT6></ATTANTPath>";

// Each test starts in a temporary directory that holds incomplete.xml.
class ToolCommandLine : public ::testing::Test {
protected:
    void SetUp() override { Write("incomplete.xml", kIncomplete); }

    // Runs the tool in the temporary directory, so that relative file names
    // appear unchanged in its output. Returns the standard output of a run
    // that ends with the status and writes the text to standard error.
    QString Output(const QStringList& arguments, int status = 0, const QString& err = QString()) {
        QProcess process;
        process.setProgram(
            qEnvironmentVariable("EXCITER_SETTINGS_TOOL", QStringLiteral(TOOL_PATH)));
        process.setArguments(arguments);
        process.setWorkingDirectory(m_dir.path());
        process.start();
        const std::string trace = arguments.join(' ').toStdString();
        EXPECT_TRUE(process.waitForFinished(30000)) << trace;
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit) << "the tool crashed: " << trace;
        EXPECT_EQ(process.exitCode(), status) << trace;
        EXPECT_EQ(QString::fromUtf8(process.readAllStandardError()), err) << trace;
        return QString::fromUtf8(process.readAllStandardOutput());
    }

    QString Write(const QString& name, const QByteArray& content) {
        testsupport::WriteFile(m_dir.filePath(name), content);
        return name;
    }

    QByteArray Contents(const QString& name) const {
        return testsupport::FileContents(m_dir.filePath(name));
    }

    QTemporaryDir m_dir;
};

TEST_F(ToolCommandLine, CheckPrintsOneLinePerFileAndExitsWithTheWorstStatus) {
    const QString failed = QStringLiteral("incomplete.xml: ATTANTPath: Please set ATT4!\n");
    EXPECT_EQ(Output({"check", kExample, "incomplete.xml"}, 1), kExample + ": OK\n" + failed);
    // An unreadable file outranks a failing one, before or after it, and the
    // files after it are still checked.
    EXPECT_EQ(Output({"check", "incomplete.xml", "missing.xml", "incomplete.xml"}, 2,
                     "missing.xml: Cannot open for reading: No such file or directory\n"),
              failed + failed);
    const QString invalid = kExamples + "invalid_missing_transmit_time.xml";
    EXPECT_EQ(Output({"check", invalid}, 1), invalid + ": SCU: Please set TransmitTime!\n");
}

TEST_F(ToolCommandLine, LintPrintsOneLinePerFindingAndExitsWithTheWorstStatus) {
    Write("damaged.xml", "<ATTANTPath>\n<ATT1>yes</ATT1><ATT2>false</ATT2><ATT3>true</ATT3>\n"
                         "<ATT4>true</ATT4><ATT5>false</ATT5><ATT6>1</ATT6></ATTANTPath>\n");
    const QString found =
        QStringLiteral("damaged.xml:2:1: warning: 'yes' reads as false: a flag is true only for "
                       "'true'\ndamaged.xml:3:36: warning: '1' reads as false: a flag is true "
                       "only for 'true'\n");
    EXPECT_EQ(Output({"lint", kExample}), QString());
    EXPECT_EQ(Output({"lint", kExample, "damaged.xml"}, 1), found);
    // A file that cannot be read outranks findings, before or after it.
    Write("broken.xml", "<ATTANTPath><ATT1>true</ATT2></ATTANTPath>");
    EXPECT_EQ(Output({"lint", "broken.xml", "damaged.xml"}, 2),
              "broken.xml:1:29: error: XML error: Opening and ending tag mismatch. (line 1, "
              "column 29)\n" +
                  found);
}

TEST_F(ToolCommandLine, UnreadableFilesExitWithTwoAndTheReasonOnStandardError) {
    const char* const cases[][3] = {
        // Broken inside the root element: found while the record loads.
        {"mismatch.xml", "<ATTANTPath>\n  <ATT1>true</ATT1>\n  <ATT2>false</ATT3>\n</ATTANTPath>\n",
         "XML error: Opening and ending tag mismatch. (line 3, column 20)"},
        // Broken in the root's start tag: found while looking for the root.
        {"brokenroot.xml", "<ATTANTPath <ATT1>",
         "XML error: Expected '>' or '/', but got '<'. (line 1, column 13)"},
        {"wrongroot.xml", "<?xml version=\"1.0\"?>\n<Settings><ATT1>true</ATT1></Settings>",
         "Unknown root element 'Settings'"},
        // Well-formed, but rejected by the record while loading.
        {"unknowntag.xml", "<ATTANTPath>\n<ATT1>true</ATT1>\n<ATT7>true</ATT7></ATTANTPath>",
         "Unknown Tag 'ATT7' in 'ATTANTPath' (line 3)"},
    };
    for (const auto& broken : cases) {
        const QString name = Write(broken[0], broken[1]);
        for (const char* command : {"check", "show", "format"}) {
            EXPECT_EQ(Output({command, name}, 2, name + ": " + broken[2] + '\n'), "");
            EXPECT_EQ(Contents(name), broken[1]);
        }
    }
}

TEST_F(ToolCommandLine, FormatWritesTheLibrarysFormAndLeavesTheFileAloneOnFailure) {
    const QByteArray canonical = testsupport::FileContents(kExample);
    const QString compact =
        Write("compact.xml", QByteArray(canonical).replace("\n    ", "").replace('\n', ""));
    EXPECT_EQ(Output({"format", compact, "-o", "out.xml"}), "");
    EXPECT_EQ(Contents("out.xml"), canonical);
    EXPECT_NE(Contents(compact), canonical);
    EXPECT_EQ(Output({"format", compact}), "");
    EXPECT_EQ(Contents(compact), canonical);

    // An incomplete record writes no document: nothing is replaced.
    Output({"format", "incomplete.xml"}, 1,
           "incomplete.xml: Cannot save 'incomplete.xml': ATTANTPath holds no complete "
           "settings\n");
    EXPECT_EQ(Contents("incomplete.xml"), kIncomplete);
    EXPECT_EQ(QDir(m_dir.path()).entryList(QDir::Files).size(), 3) << "no temporary file left";
    Output({"format", compact, "--output", "no-such-dir/out.xml"}, 1,
           "compact.xml: Cannot open 'no-such-dir/out.xml' for writing: No such file or "
           "directory\n");
}

TEST_F(ToolCommandLine, OptionsAndWrongUsage) {
    EXPECT_EQ(Output({"--version"}), "exciter-settings " PROJECT_VERSION_TEXT "\n");
    EXPECT_EQ(Output({"schema"}), QString::fromUtf8(testsupport::FileContents(SCHEMA_FILE)));
    const QString help = Output({"--help"});
    for (const char* expected : {"check FILE...", "show FILE", "format FILE [-o OUT]", "ATTANTPath",
                                 "WDE_Singlechanneldetector.", "2   a file could not be read"})
        EXPECT_TRUE(help.contains(QLatin1String(expected))) << expected;
    EXPECT_TRUE(Output({"format", "--help"}).contains(QLatin1String("-o, --output <OUT>")));

    const std::pair<QStringList, const char*> wrongUsages[] = {
        {{}, "no command given"},
        {{"validate", kExample}, "unknown command 'validate'"},
        {{"check"}, "check needs at least one FILE"},
        {{"show", kExample, kExample}, "show takes exactly one FILE"},
        {{"schema", kExample}, "schema takes no FILE"},
        {{"check", "-o", "x.xml", kExample}, "Unknown option 'o'."},
    };
    for (const auto& wrong : wrongUsages)
        EXPECT_EQ(Output(wrong.first, 64,
                         QStringLiteral("exciter-settings: %1\nTry 'exciter-settings --help'.\n")
                             .arg(QLatin1String(wrong.second))),
                  "");
}

TEST_F(ToolCommandLine, ShowPrintsTheWholeTreeAndMarksUnsetValues) {
    EXPECT_EQ(Output({"show", "incomplete.xml"}),
              "ATTANTPath\n  ATT1: false\n  ATT2: false\n  ATT3: true\n  ATT4: unset\n"
              "  ATT5: false\n  ATT6: false\n");

    // A fresh WDE writes its unset doubles as -111111, which reads back as a
    // set value; its unset count and enumerations read back unset.
    KELMORA::WDE().SaveXml(m_dir.filePath("fresh.xml"));
    EXPECT_EQ(Output({"show", "fresh.xml"}),
              "WDE\n  Version: 0.1\n  Frequency: unset\n  Bandwidth: unset\n  Mode: unset\n"
              "  EmissiondetectorMode: unset\n  EmissiondetectorDelay: -111111\n"
              "  EmissiondetectorAveraging: unset\n  SinglechanneldetectorList: empty\n"
              "  RasterdetectorList: empty\n  ExciterCount: unset\n  ExciterPulseLength: -111111\n"
              "  ExciterRXDelay: -111111\n  ExciterTXDelay: -111111\n  ExciterList: empty\n"
              "  GuardTime: -111111\n  SimulationList: empty\n  Attenuation: unset\n"
              "  AttenuationMode: unset\n  AttenuationValue: unset\n  GainControl: unset\n"
              "  AGCValue: unset\n  MGCValue: unset\n");

    const QString lookThrough = Output({"show", kExamples + "look_through.xml"});
    const char* const expectedParts[] = {
        "Exciter_Settings\n  Version: 1.0\n  ExciterMode: Look Through\n  Autostart: true\n  TGN\n",
        "    ScanParameter\n      StartFrequency: unset\n",
        "  SCU\n    Version: 1.0\n    Frequency\n      Value: 433920000\n",
        "    TransmitTime: 2.5\n    ATTANTPath\n      ATT1: true\n",
        // Parts that span two literals are in parentheses: no missing comma.
        ("  WDE\n    Version: 0.1\n    Frequency: 433920000\n    Bandwidth: 200000\n"
         "    Mode: DETX\n"),
        // The raster frequencies travel as Base64 and are shown decoded.
        "        Amplifier: UHF1\n        Frequency: 433050000, 433925000, 434790000\n",
        ("    ExciterList: 2 items\n      [0] WDE_Exciter\n        Version: 0.1\n"
         "        Index: 0\n        Name: unset\n        SignalType: FSK2\n"),
        "        FrequencyShift: unset\n        Level: -19\n    GuardTime: 0.001\n",
        "        FrequencyList: -25000, 0, 25000\n    Attenuation: ON\n",
        "    AGCValue: unset\n    MGCValue: 12.5\n",
    };
    for (const char* part : expectedParts)
        EXPECT_TRUE(lookThrough.contains(QLatin1String(part))) << part;

    // Outside the modes that use it, WDE is not part of the settings.
    const QString continuous = Output({"show", kExamples + "continuous.xml"});
    EXPECT_TRUE(continuous.endsWith(QLatin1String("      ATT6: false\n"))) << "no WDE section";
}

} // namespace
