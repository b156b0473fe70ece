// Runs the exciter-settings program as a user would. The program is the one
// built in the tree, or the one named by EXCITER_SETTINGS_TOOL (the installed
// copy, see RunInstalledTool.cmake).
#include <WDE.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

QT_BEGIN_NAMESPACE
inline void PrintTo(const QString& text, std::ostream* os) {
    *os << '"' << text.toStdString() << '"';
}
QT_END_NAMESPACE

namespace {

struct Outcome {
    int status;
    QString out;
    QString err;
};

const QString kExample = QStringLiteral(EXAMPLES_DIR "/attantpath.xml");

QString ExampleFile(const char* name) {
    return QStringLiteral(EXAMPLES_DIR "/") + QLatin1String(name);
}

QByteArray ReadAll(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
}

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
        const bool finished = process.waitForFinished(30000);
        EXPECT_TRUE(finished) << "the tool did not finish: " << arguments.join(' ').toStdString();
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
    Outcome passed = Run({QStringLiteral("check"), kExample});
    EXPECT_EQ(passed.status, 0);
    EXPECT_EQ(passed.out, kExample + QStringLiteral(": OK\n"));
    EXPECT_EQ(passed.err, QString());

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
        {"unknowntag.xml", "<ATTANTPath><ATT1>true</ATT1><ATT7>true</ATT7></ATTANTPath>",
         QStringLiteral("Unknown Tag 'ATT7' in 'ATTANTPath'")},
    };
    for (const Case& broken : cases) {
        const QString name = Write(QString::fromLatin1(broken.name), broken.content);
        for (const QString& command :
             {QStringLiteral("check"), QStringLiteral("show"), QStringLiteral("format")}) {
            SCOPED_TRACE(broken.name);
            SCOPED_TRACE(command.toStdString());
            const QByteArray before = ReadAll(Path(name));
            Outcome outcome = Run({command, name});
            EXPECT_EQ(outcome.status, 2);
            EXPECT_EQ(outcome.out, QString());
            EXPECT_EQ(outcome.err, name + QStringLiteral(": ") + broken.reason + QLatin1Char('\n'));
            EXPECT_EQ(ReadAll(Path(name)), before);
        }
    }
}

TEST_F(ToolCommandLine, ShowPrintsEveryFieldWithUnsetValues) {
    Outcome complete = Run({QStringLiteral("show"), kExample});
    EXPECT_EQ(complete.status, 0);
    EXPECT_EQ(complete.out, QStringLiteral("ATTANTPath\n"
                                           "  ATT1: true\n"
                                           "  ATT2: false\n"
                                           "  ATT3: false\n"
                                           "  ATT4: true\n"
                                           "  ATT5: false\n"
                                           "  ATT6: false\n"));

    Outcome incomplete = Run({QStringLiteral("show"), WriteIncomplete()});
    EXPECT_EQ(incomplete.status, 0);
    EXPECT_EQ(incomplete.out, QStringLiteral("ATTANTPath\n"
                                             "  ATT1: false\n"
                                             "  ATT2: false\n"
                                             "  ATT3: true\n"
                                             "  ATT4: unset\n"
                                             "  ATT5: false\n"
                                             "  ATT6: false\n"));
    EXPECT_EQ(incomplete.err, QString());
}

TEST_F(ToolCommandLine, FormatWritesTheLibrarysFormAndLeavesTheFileAloneOnFailure) {
    const QByteArray canonical = ReadAll(kExample);
    const QString compact =
        Write(QStringLiteral("compact.xml"),
              "<?xml version='1.0'?><ATTANTPath><ATT1>true</ATT1><ATT2>false</ATT2>"
              "<ATT3>false</ATT3><ATT4>true</ATT4><ATT5>false</ATT5><ATT6>false</ATT6>"
              "</ATTANTPath>");
    Outcome toOut =
        Run({QStringLiteral("format"), compact, QStringLiteral("-o"), QStringLiteral("out.xml")});
    EXPECT_EQ(toOut.status, 0);
    EXPECT_EQ(toOut.out + toOut.err, QString());
    EXPECT_EQ(ReadAll(Path(QStringLiteral("out.xml"))), canonical);
    EXPECT_NE(ReadAll(Path(compact)), canonical);

    Outcome inPlace = Run({QStringLiteral("format"), compact});
    EXPECT_EQ(inPlace.status, 0);
    EXPECT_EQ(ReadAll(Path(compact)), canonical);

    // An incomplete record writes no document: nothing is replaced.
    const QString incomplete = WriteIncomplete();
    const QByteArray before = ReadAll(Path(incomplete));
    Outcome refused = Run({QStringLiteral("format"), incomplete});
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(refused.err,
              QStringLiteral("incomplete.xml: Cannot save 'incomplete.xml': ATTANTPath "
                             "holds no complete settings\n"));
    EXPECT_EQ(ReadAll(Path(incomplete)), before);
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

    Outcome formatHelp = Run({QStringLiteral("format"), QStringLiteral("--help")});
    EXPECT_EQ(formatHelp.status, 0);
    EXPECT_TRUE(formatHelp.out.contains(QLatin1String("-o, --output <OUT>")));

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

TEST_F(ToolCommandLine, CheckKnowsEveryBundledExampleByItsRootElement) {
    QStringList files;
    QString expected;
    for (const char* name : {"attantpath.xml", "continuous.xml", "sweep.xml", "look_through.xml",
                             "invalid_missing_transmit_time.xml"}) {
        files.append(ExampleFile(name));
        const bool failing = QLatin1String(name).startsWith(QLatin1String("invalid"));
        expected += files.last() + (failing ? QStringLiteral(": SCU: Please set TransmitTime!\n")
                                            : QStringLiteral(": OK\n"));
        Outcome single = Run({QStringLiteral("check"), files.last()});
        EXPECT_EQ(single.status, failing ? 1 : 0) << name;
    }
    Outcome all = Run(QStringList{QStringLiteral("check")} + files);
    EXPECT_EQ(all.status, 1);
    EXPECT_EQ(all.out, expected);
    EXPECT_EQ(all.err, QString());
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
        "  WDE\n    Version: 0.1\n    Frequency: 433920000\n    Bandwidth: 200000\n"
        "    Mode: DETX\n",
        // The raster frequencies travel as Base64 and are shown decoded.
        "        Amplifier: UHF1\n        Frequency: 433050000, 433925000, 434790000\n",
        "    ExciterList: 2 items\n      [0] WDE_Exciter\n        Version: 0.1\n"
        "        Index: 0\n        Name: unset\n        SignalType: FSK2\n",
        "      [1] WDE_Exciter\n        Version: 0.1\n        Index: 1\n",
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

TEST_F(ToolCommandLine, ShowMarksEveryGapOfAFreshWDEAsUnset) {
    KELMORA::WDE().SaveXml(Path(QStringLiteral("fresh.xml")));
    Outcome fresh = Run({QStringLiteral("show"), QStringLiteral("fresh.xml")});
    EXPECT_EQ(fresh.status, 0);
    // A fresh WDE writes its unset doubles as -111111, which reads back as a
    // set value; its unset count and enumerations read back unset.
    EXPECT_EQ(fresh.out, QStringLiteral("WDE\n"
                                        "  Version: 0.1\n"
                                        "  Frequency: unset\n"
                                        "  Bandwidth: unset\n"
                                        "  Mode: unset\n"
                                        "  EmissiondetectorMode: unset\n"
                                        "  EmissiondetectorDelay: -111111\n"
                                        "  EmissiondetectorAveraging: unset\n"
                                        "  SinglechanneldetectorList: empty\n"
                                        "  RasterdetectorList: empty\n"
                                        "  ExciterCount: unset\n"
                                        "  ExciterPulseLength: -111111\n"
                                        "  ExciterRXDelay: -111111\n"
                                        "  ExciterTXDelay: -111111\n"
                                        "  ExciterList: empty\n"
                                        "  GuardTime: -111111\n"
                                        "  SimulationList: empty\n"
                                        "  Attenuation: unset\n"
                                        "  AttenuationMode: unset\n"
                                        "  AttenuationValue: unset\n"
                                        "  GainControl: unset\n"
                                        "  AGCValue: unset\n"
                                        "  MGCValue: unset\n"));
}

TEST_F(ToolCommandLine, FormatOfAnExampleIsStableAndKeepsEverySetting) {
    const QString example = ExampleFile("look_through.xml");
    const QString once = QStringLiteral("once.xml");
    const QString twice = QStringLiteral("twice.xml");
    EXPECT_EQ(Run({QStringLiteral("format"), example, QStringLiteral("-o"), once}).status, 0);
    Outcome checked = Run({QStringLiteral("check"), once});
    EXPECT_EQ(checked.status, 0);
    EXPECT_EQ(checked.out, once + QStringLiteral(": OK\n"));
    EXPECT_EQ(Run({QStringLiteral("format"), once, QStringLiteral("-o"), twice}).status, 0);
    EXPECT_EQ(ReadAll(Path(twice)), ReadAll(Path(once)));
    EXPECT_EQ(Run({QStringLiteral("show"), once}).out, Run({QStringLiteral("show"), example}).out);
}

} // namespace
