// Runs the exciter-settings program as a user would. The program is the one
// built in the tree, or the one named by EXCITER_SETTINGS_TOOL (the installed
// copy, see RunInstalledTool.cmake).
#include "../TestSupport.h"

#include <WDE.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

namespace {

struct Outcome {
    int status;
    QString out;
    QString err;
};

QString ExampleFile(const char* name) {
    return QStringLiteral(EXAMPLES_DIR "/") + QLatin1String(name);
}

const QString kExample = ExampleFile("attantpath.xml");

class ToolCommandLine : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(m_dir.isValid()); }

    // Runs the tool in the temporary directory, so that relative file names
    // appear unchanged in its output.
    Outcome Run(const QStringList& arguments) {
        QProcess process;
        process.setProgram(
            qEnvironmentVariable("EXCITER_SETTINGS_TOOL", QStringLiteral(TOOL_PATH)));
        process.setArguments(arguments);
        process.setWorkingDirectory(m_dir.path());
        process.start();
        EXPECT_TRUE(process.waitForFinished(30000)) << arguments.join(' ').toStdString();
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit) << "the tool crashed";
        return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError())};
    }

    QString Write(const QString& name, const QByteArray& content) {
        QFile file(m_dir.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        return name;
    }

    QString Path(const QString& name) const { return m_dir.filePath(name); }

    // ATT4 is missing; ATT1 holds a text other than "true", kept verbatim.
    QString WriteIncomplete() {
        return Write(QStringLiteral("incomplete.xml"),
                     "<ATTANTPath><ATT1>True</ATT1><ATT2>false</ATT2><ATT3>true</ATT3>"
                     "<ATT5>false</ATT5><ATT6>false</ATT6></ATTANTPath>");
    }

    QTemporaryDir m_dir;
};

TEST_F(ToolCommandLine, CheckPrintsOneLinePerFileAndExitsWithTheWorstStatus) {
    const QString incomplete = WriteIncomplete();
    Outcome failed = Run({QStringLiteral("check"), kExample, incomplete});
    EXPECT_EQ(failed.status, 1);
    EXPECT_EQ(failed.out, kExample + QStringLiteral(": OK\nincomplete.xml: ATTANTPath: Please set "
                                                    "ATT4!\n"));
    EXPECT_EQ(failed.err, QString());

    // An unreadable file outranks a failing one, and the files after it are
    // still checked.
    Outcome unreadable =
        Run({QStringLiteral("check"), incomplete, QStringLiteral("missing.xml"), kExample});
    EXPECT_EQ(unreadable.status, 2);
    EXPECT_EQ(unreadable.out, QStringLiteral("incomplete.xml: ATTANTPath: Please set ATT4!\n") +
                                  kExample + QStringLiteral(": OK\n"));
    EXPECT_EQ(unreadable.err,
              QStringLiteral("missing.xml: Cannot open for reading: No such file or directory\n"));

    const QString invalid = ExampleFile("invalid_missing_transmit_time.xml");
    EXPECT_EQ(Run({QStringLiteral("check"), invalid}).out,
              invalid + QStringLiteral(": SCU: Please set TransmitTime!\n"));
    EXPECT_EQ(Run({QStringLiteral("check"), kExample}).status, 0);
}

TEST_F(ToolCommandLine, UnreadableFilesExitWithTwoAndTheReasonOnStandardError) {
    struct Case {
        const char* name;
        QByteArray content;
        QString reason;
    };
    const Case cases[] = {
        // Broken inside the root element: found while the record loads.
        {"mismatch.xml", "<ATTANTPath>\n  <ATT1>true</ATT1>\n  <ATT2>false</ATT3>\n</ATTANTPath>\n",
         QStringLiteral("XML error: Opening and ending tag mismatch. (line 3, column 20)")},
        // Broken in the root's start tag: found while looking for the root.
        {"brokenroot.xml", "<ATTANTPath <ATT1>",
         QStringLiteral("XML error: Expected '>' or '/', but got '<'. (line 1, column 13)")},
        {"empty.xml", "",
         QStringLiteral("XML error: Premature end of document. (line 1, column 0)")},
        {"wrongroot.xml", "<?xml version=\"1.0\"?>\n<Settings><ATT1>true</ATT1></Settings>",
         QStringLiteral("Unknown root element 'Settings'")},
        // Well-formed, but rejected by the record while loading.
        {"unknowntag.xml", "<ATTANTPath>\n<ATT1>true</ATT1>\n<ATT7>true</ATT7></ATTANTPath>",
         QStringLiteral("Unknown Tag 'ATT7' in 'ATTANTPath' (line 3)")},
    };
    for (const Case& broken : cases) {
        const QString name = Write(QString::fromLatin1(broken.name), broken.content);
        for (const QString& command :
             {QStringLiteral("check"), QStringLiteral("show"), QStringLiteral("format")}) {
            SCOPED_TRACE(broken.name + (' ' + command.toStdString()));
            const QByteArray before = testsupport::FileContents(Path(name));
            Outcome outcome = Run({command, name});
            EXPECT_EQ(outcome.status, 2);
            EXPECT_EQ(outcome.out, QString());
            EXPECT_EQ(outcome.err, name + QStringLiteral(": ") + broken.reason + QLatin1Char('\n'));
            EXPECT_EQ(testsupport::FileContents(Path(name)), before);
        }
    }
}

TEST_F(ToolCommandLine, FormatWritesTheLibrarysFormAndLeavesTheFileAloneOnFailure) {
    const QByteArray canonical = testsupport::FileContents(kExample);
    const QString compact =
        Write(QStringLiteral("compact.xml"),
              "<?xml version='1.0'?><ATTANTPath><ATT1>true</ATT1><ATT2>false</ATT2>"
              "<ATT3>false</ATT3><ATT4>true</ATT4><ATT5>false</ATT5><ATT6>false</ATT6>"
              "</ATTANTPath>");
    Outcome toOut =
        Run({QStringLiteral("format"), compact, QStringLiteral("-o"), QStringLiteral("out.xml")});
    EXPECT_EQ(toOut.status, 0);
    EXPECT_EQ(toOut.out + toOut.err, QString());
    EXPECT_EQ(testsupport::FileContents(Path(QStringLiteral("out.xml"))), canonical);
    EXPECT_NE(testsupport::FileContents(Path(compact)), canonical);
    EXPECT_EQ(Run({QStringLiteral("format"), compact}).status, 0);
    EXPECT_EQ(testsupport::FileContents(Path(compact)), canonical);

    // An incomplete record writes no document: nothing is replaced.
    const QString incomplete = WriteIncomplete();
    const QByteArray before = testsupport::FileContents(Path(incomplete));
    Outcome refused = Run({QStringLiteral("format"), incomplete});
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(refused.err,
              QStringLiteral("incomplete.xml: Cannot save 'incomplete.xml': ATTANTPath "
                             "holds no complete settings\n"));
    EXPECT_EQ(testsupport::FileContents(Path(incomplete)), before);
    EXPECT_EQ(QDir(m_dir.path()).entryList(QDir::Files).size(), 3) << "no temporary file left";

    Outcome unwritable = Run({QStringLiteral("format"), compact, QStringLiteral("--output"),
                              QStringLiteral("no-such-dir/out.xml")});
    EXPECT_EQ(unwritable.status, 1);
    EXPECT_EQ(unwritable.err, QStringLiteral("compact.xml: Cannot open 'no-such-dir/out.xml' for "
                                             "writing: No such file or directory\n"));
}

TEST_F(ToolCommandLine, OptionsAndWrongUsage) {
    Outcome version = Run({QStringLiteral("--version")});
    EXPECT_EQ(version.status, 0);
    EXPECT_EQ(version.out, QStringLiteral("exciter-settings " PROJECT_VERSION_TEXT "\n"));

    Outcome help = Run({QStringLiteral("--help")});
    EXPECT_EQ(help.status, 0);
    for (const char* expected : {"check FILE...", "show FILE", "format FILE [-o OUT]", "ATTANTPath",
                                 "WDE_Singlechanneldetector.", "2   a file could not be read"})
        EXPECT_TRUE(help.out.contains(QLatin1String(expected))) << expected;
    EXPECT_TRUE(Run({QStringLiteral("format"), QStringLiteral("--help")})
                    .out.contains(QLatin1String("-o, --output <OUT>")));

    const QStringList wrongUsages[] = {
        {},
        {QStringLiteral("validate"), kExample},
        {QStringLiteral("check")},
        {QStringLiteral("show"), kExample, kExample},
        {QStringLiteral("check"), QStringLiteral("-o"), QStringLiteral("x.xml"), kExample},
    };
    for (const QStringList& arguments : wrongUsages) {
        Outcome wrong = Run(arguments);
        EXPECT_EQ(wrong.status, 64) << arguments.join(' ').toStdString();
        EXPECT_EQ(wrong.out, QString());
        EXPECT_TRUE(wrong.err.endsWith(QLatin1String("Try 'exciter-settings --help'.\n")));
    }
    EXPECT_TRUE(
        Run({QStringLiteral("validate")})
            .err.startsWith(QLatin1String("exciter-settings: unknown command 'validate'\n")));
}

TEST_F(ToolCommandLine, ShowPrintsEveryFieldAndMarksUnsetValues) {
    Outcome incomplete = Run({QStringLiteral("show"), WriteIncomplete()});
    EXPECT_EQ(incomplete.status, 0);
    EXPECT_EQ(incomplete.err, QString());
    EXPECT_EQ(incomplete.out, QStringLiteral("ATTANTPath\n  ATT1: false\n  ATT2: false\n"
                                             "  ATT3: true\n  ATT4: unset\n  ATT5: false\n"
                                             "  ATT6: false\n"));

    // A fresh WDE writes its unset doubles as -111111, which reads back as a
    // set value; its unset count and enumerations read back unset.
    KELMORA::WDE().SaveXml(Path(QStringLiteral("fresh.xml")));
    EXPECT_EQ(
        Run({QStringLiteral("show"), QStringLiteral("fresh.xml")}).out,
        QStringLiteral("WDE\n  Version: 0.1\n  Frequency: unset\n  Bandwidth: unset\n"
                       "  Mode: unset\n  EmissiondetectorMode: unset\n"
                       "  EmissiondetectorDelay: -111111\n  EmissiondetectorAveraging: unset\n"
                       "  SinglechanneldetectorList: empty\n  RasterdetectorList: empty\n"
                       "  ExciterCount: unset\n  ExciterPulseLength: -111111\n"
                       "  ExciterRXDelay: -111111\n  ExciterTXDelay: -111111\n"
                       "  ExciterList: empty\n  GuardTime: -111111\n  SimulationList: empty\n"
                       "  Attenuation: unset\n  AttenuationMode: unset\n"
                       "  AttenuationValue: unset\n  GainControl: unset\n"
                       "  AGCValue: unset\n  MGCValue: unset\n"));
}

TEST_F(ToolCommandLine, ShowWritesTheWholeTreeWithItemsAndDecodedNumbers) {
    Outcome lookThrough = Run({QStringLiteral("show"), ExampleFile("look_through.xml")});
    EXPECT_EQ(lookThrough.status, 0);
    EXPECT_EQ(lookThrough.err, QString());
    const char* const expectedParts[] = {
        "Exciter_Settings\n  Version: 1.0\n  ExciterMode: Look Through\n  Autostart: true\n  TGN\n",
        "    AMDepth: unset\n",
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
        EXPECT_TRUE(lookThrough.out.contains(QLatin1String(part))) << part;

    // Outside the modes that use it, WDE is not part of the settings.
    Outcome continuous = Run({QStringLiteral("show"), ExampleFile("continuous.xml")});
    EXPECT_EQ(continuous.status, 0);
    EXPECT_TRUE(continuous.out.contains(QLatin1String("  ExciterMode: Continuous\n")));
    EXPECT_TRUE(continuous.out.endsWith(QLatin1String("      ATT6: false\n"))) << "no WDE section";
}

} // namespace
