// SPDX-License-Identifier: MIT
// Runs the exciter-settings program as a user would. The program is the one
// built in the tree, or the one named by EXCITER_SETTINGS_TOOL (the installed
// copy, see RunInstalledTool.cmake).
#include "../TestSupport.h"

#include <WDE.h>

#include <QDir>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>

namespace {

const QString kExamples = QString(EXAMPLES_DIR "/");
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
    QString
    Output(const QStringList& arguments, int status = 0, const QString& err = QString(),
           const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment()) {
        QProcess process;
        process.setProcessEnvironment(environment);
        process.setProgram(qEnvironmentVariable("EXCITER_SETTINGS_TOOL", QString(TOOL_PATH)));
        process.setArguments(arguments);
        process.setWorkingDirectory(m_dir.path());
        process.start();
        process.write(m_input);
        process.closeWriteChannel();
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
    // Standard input of the runs.
    QByteArray m_input;
};

TEST_F(ToolCommandLine, CheckPrintsOneLinePerFileAndExitsWithTheWorstStatus) {
    const QString failed = "incomplete.xml: ATTANTPath: Please set ATT4!\n";
    EXPECT_EQ(Output({"check", kExample, "incomplete.xml"}, 1), kExample + ": OK\n" + failed);
    // An unreadable file outranks a failing one, before or after it, and the
    // files after it are still checked.
    EXPECT_EQ(Output({"check", "incomplete.xml", "missing.xml", "incomplete.xml"}, 2,
                     "missing.xml: Cannot open for reading: No such file or directory\n"),
              failed + failed);
}

TEST_F(ToolCommandLine, LintPrintsOneLinePerFindingAndExitsWithTheWorstStatus) {
    Write("damaged.xml", "<ATTANTPath>\n<ATT1>yes</ATT1><ATT2>false</ATT2><ATT3>true</ATT3>\n"
                         "<ATT4>true</ATT4><ATT5>false</ATT5><ATT6>1</ATT6></ATTANTPath>\n");
    const QString found = "damaged.xml:2:1: warning: 'yes' reads as false: a flag is true only for "
                          "'true'\ndamaged.xml:3:36: warning: '1' reads as false: a flag is true "
                          "only for 'true'\n";
    EXPECT_EQ(Output({"lint", kExample}), QString());
    EXPECT_EQ(Output({"lint", kExample, "damaged.xml"}, 1), found);
    // A file that cannot be read outranks findings, before or after it; a
    // text its record refuses comes with the choices.
    Write("broken.xml", "<ATTANTPath><ATT1>true</ATT2></ATTANTPath>");
    Write("refused.xml", "<TGN Version=\"1.0\">\n<Reference>x</Reference></TGN>");
    Write("root.xml", "<?xml version=\"1.0\"?>\n <Settings/>");
    EXPECT_TRUE(Output({"lint", "root.xml"}, 2)
                    .startsWith("root.xml:2:2: error: Unknown root element 'Settings' (known: "));
    EXPECT_EQ(Output({"lint", "broken.xml", "damaged.xml", "refused.xml"}, 2),
              "broken.xml:1:29: error: XML error: Opening and ending tag mismatch. (line 1, "
              "column 29)\n" +
                  found +
                  "refused.xml:2:1: error: TGN: Unknown Reference 'x' (Reference choices: intern, "
                  "extern)\n");
}

// A disk that fails at any step of a save: the tool says so, the previous
// file stays as it was and nothing is left beside it.
TEST_F(ToolCommandLine, FormatNoticesADiskThatFailsAtAnyStepOfTheSave) {
    const QByteArray previous = "<ATTANTPath>the previous file</ATTANTPath>\n";
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("LD_PRELOAD", QString(FAULT_SHIM));
    environment.insert("EXCITERSETTINGS_FAIL_DIR", m_dir.path());
    environment.insert("ASAN_OPTIONS",
                       "verify_asan_link_order=0:" + environment.value("ASAN_OPTIONS"));
    for (const char* call : {"write", "fchmod", "fsync", "close", "rename"}) {
        SCOPED_TRACE(call);
        Write("out.xml", previous);
        environment.insert("EXCITERSETTINGS_FAIL", QLatin1String(call));
        Output({"format", kExample, "-o", "out.xml"}, 1,
               kExample + ": Cannot write 'out.xml': Input/output error\n", environment);
        EXPECT_EQ(Contents("out.xml"), previous);
        EXPECT_EQ(QDir(m_dir.path()).entryList(QDir::Files | QDir::Hidden),
                  QStringList({"incomplete.xml", "out.xml"}));
    }
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
        // A text outside a choice list: the choices, and the text where the
        // record's message does not quote it.
        {"mode.xml", "<Exciter_Settings>\n<ExciterMode>Sweeep</ExciterMode></Exciter_Settings>",
         "Exciter_Settings: Invalid TaskType '-1' (line 2) (ExciterMode 'Sweeep'; choices: "
         "Continuous, Deception, Trap, Follower, Fast Sequential, Fast Sequential Parallel, Look "
         "Through, Look Through Parallel, Sweep, Wideband, Barrage, Broadcast)"},
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
    EXPECT_EQ(Output({"--version"}), TOOL_NAME " " PROJECT_VERSION_TEXT "\n");
    EXPECT_EQ(Output({"schema"}), QString::fromUtf8(testsupport::FileContents(SCHEMA_FILE)));
    const QString help = Output({"--help"});
    for (const char* expected : {"check FILE...", "show FILE", "format FILE [-o OUT]", "ATTANTPath",
                                 "WDE_Singlechanneldetector.", "2   a file could not be read"})
        EXPECT_TRUE(help.contains(QLatin1String(expected))) << expected;
    EXPECT_TRUE(Output({"format", "--help"}).contains("-o, --output <OUT>"));

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
                         QString(TOOL_NAME ": %1\nTry '" TOOL_NAME " --help'.\n")
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
    EXPECT_TRUE(continuous.endsWith("      ATT6: false\n")) << "no WDE section";
}

const QString kLookThrough = kExamples + "look_through.xml";

TEST_F(ToolCommandLine, GetPrintsValuesAsShowDoesAndNamesTheNamesThereOnAWrongPath) {
    const struct {
        QStringList paths;
        int status;
        const char* out;
        const char* err;
    } cases[] = {
        // Not written (unset); an attribute; a number of a one-line list; an item.
        {{"TGN/Power", "ExciterMode", "SCU/ATTANTPath/ATT4", "TGN/Tone", "WDE/ExciterList/0/Name",
          "TGN/Frequency/Minimum", "WDE/SimulationList/0/FrequencyList/2",
          "WDE/RasterdetectorList/0/Frequency/1", "WDE/ExciterList/1"},
         0,
         "-12.5\nLook Through\ntrue\nunset\nunset\n20000000\n25000\n433925000\n[1] WDE_Exciter\n"
         "  Version: 0.1\n  Index: 1\n  Name: unset\n  SignalType: CW\n  SymbolRate: 9600\n"
         "  FrequencyShift: unset\n  Level: -19\n",
         ""},
        {{"TGN/Power", "WDE/ExciterList/0/Nme"},
         64,
         "-12.5\n",
         ": No 'Nme' in 'WDE/ExciterList/0'; names there: Version, Index, Name, SignalType, "
         "SymbolRate, FrequencyShift, Level\n"},
        {{"WDE/ExciterList/2/Level"}, 64, "", ": No '2' in 'WDE/ExciterList'; names there: 0, 1\n"},
        {{"Modus"},
         64,
         "",
         ": No 'Modus' in 'Exciter_Settings'; names there: Version, ExciterMode, Autostart, TGN, "
         "SCU, WDE\n"},
    };
    for (const auto& get : cases)
        EXPECT_EQ(Output(QStringList{"get", kLookThrough} + get.paths, get.status,
                         *get.err ? kLookThrough + get.err : QString()),
                  get.out);
}

// Each change is checked by what diff finds between the file and the result.
TEST_F(ToolCommandLine, SetChangesThroughTheRecordAndRefusesWhatItWouldLose) {
    const QString refused = kLookThrough + ": not saved (--force saves it anyway)\n";
    const struct {
        QStringList changes;
        int status;
        QString err;
        const char* differences;
    } cases[] = {
        {{"TGN/Power=-10", "TGN/Tone=1000", "WDE/Mode=EX", "WDE/ExciterList/0/Name=First",
          "WDE/RasterdetectorList/0/Frequency/1=4.3393e8",
          "WDE/RasterdetectorList/0/Frequency/2=-"},
         0,
         {},
         "TGN/Power: -12.5 -> -10\nTGN/Tone: unset -> 1000\nWDE/Mode: DETX -> EX\n"
         "WDE/RasterdetectorList/0/Frequency/1: 433925000 -> 433930000\n"
         "WDE/RasterdetectorList/0/Frequency/2: 434790000 -> (none)\n"
         "WDE/ExciterList/0/Name: unset -> First\n"},
        {{"WDE/ExciterList/+", "WDE/ExciterList/2/SignalType=CW", "WDE/ExciterList/2/Level=-3",
          "WDE/SimulationList/0/FrequencyList/+=50000", "WDE/ExciterList/0=-"},
         0,
         {},
         "WDE/ExciterList/0/Index: 0 -> 1\nWDE/ExciterList/0/SignalType: FSK2 -> CW\n"
         "WDE/ExciterList/0/FrequencyShift: 4800 -> unset\nWDE/ExciterList/0/Level: -20 -> -19\n"
         "WDE/ExciterList/1/Index: 1 -> 2\nWDE/ExciterList/1/SymbolRate: 9600 -> -111111\n"
         "WDE/ExciterList/1/Level: -19 -> -3\n"
         "WDE/SimulationList/0/FrequencyList/3: (none) -> 50000\n"},
        {{"ExciterMode=Continuous", "WDE=-"}, 0, {}, nullptr},
        {{"WDE/RasterdetectorList/0/Frequency=433050000, 4.3393e8"},
         0,
         {},
         "WDE/RasterdetectorList/0/Frequency/1: 433925000 -> 433930000\n"
         "WDE/RasterdetectorList/0/Frequency/2: 434790000 -> (none)\n"},
        // A list of plain values: whole, or emptied and its first value added.
        {{"WDE/SimulationList/0/FrequencyList=1, 2"},
         0,
         {},
         "WDE/SimulationList/0/FrequencyList/0: -25000 -> 1\n"
         "WDE/SimulationList/0/FrequencyList/1: 0 -> 2\n"
         "WDE/SimulationList/0/FrequencyList/2: 25000 -> (none)\n"},
        {{"WDE/SimulationList/0/FrequencyList=-", "WDE/SimulationList/0/FrequencyList/+=5"},
         0,
         {},
         "WDE/SimulationList/0/FrequencyList/0: -25000 -> 5\n"
         "WDE/SimulationList/0/FrequencyList/1: 0 -> (none)\n"
         "WDE/SimulationList/0/FrequencyList/2: 25000 -> (none)\n"},
        // The record's own reader refuses a text outside its choice list;
        // the tool adds the choices.
        {{"TGN/Reference=Intern", "ExciterMode=Sweep"},
         1,
         kLookThrough + ": TGN: Unknown Reference 'Intern' (Reference choices: intern, extern)\n",
         ""},
        {{"WDE/AttenuationMode=Normal"},
         1,
         kLookThrough +
             ": WDE/AttenuationMode: 'Normal' is not an AttenuationMode (choices: "
             "LOWNOISE, NORMAL, LOWDISTORT)\n" +
             refused,
         ""},
        {{"SCU/TransmitTime=-"},
         1,
         kLookThrough +
             ": SCU: 'SCU' is incomplete (SCU: Please set TransmitTime!): nothing is "
             "saved\n" +
             kLookThrough + ": SCU: Please set TransmitTime!\n" + kLookThrough +
             ": not saved: Exciter_Settings writes no settings while incomplete\n",
         ""},
        {{"SCU/TransmitTime=0.0004", "--force"}, 0, {}, "SCU/TransmitTime: 2.5 -> 0\n"},
        {{"SCU/Powr=1"},
         64,
         kLookThrough + ": No 'Powr' in 'SCU'; names there: Version, Frequency, TransmitTime, "
                        "ATTANTPath\n",
         ""},
        {{"SCU/ATTANTPath/+"},
         64,
         kLookThrough + ": 'SCU/ATTANTPath' is not a list that holds items; '+' adds items only "
                        "to such a list\n",
         ""},
    };
    for (const auto& set : cases) {
        SCOPED_TRACE(set.changes.join(' ').toStdString());
        QFile::remove(m_dir.filePath("out.xml"));
        const QStringList arguments =
            QStringList{"set", kLookThrough, "-o", "out.xml"} + set.changes;
        EXPECT_EQ(Output(arguments, set.status, set.err), "");
        EXPECT_EQ(QFile::exists(m_dir.filePath("out.xml")), set.status == 0);
        if (set.status == 0 && set.differences) {
            EXPECT_EQ(Output({"diff", kLookThrough, "out.xml"}, 1), set.differences);
        }
    }
    // A mode that uses WDE brings it in for the changes after it.
    Output({"set", kExamples + "continuous.xml", "-o", "out.xml", "ExciterMode=Look Through",
            "WDE/Mode=DET", "WDE/Frequency=1e8", "WDE/Bandwidth=2e5",
            "WDE/EmissiondetectorMode=LOOP", "WDE/EmissiondetectorDelay=0.002",
            "WDE/EmissiondetectorAveraging=SHORT", "WDE/ExciterCount=1"});
    EXPECT_EQ(Output({"check", "out.xml"}), "out.xml: OK\n");
    // An empty list is not written; '+' adds its first item, in a WDE file
    // and in the WDE of a file that holds one; show --json gives it as [].
    const QStringList lists{"SinglechanneldetectorList", "RasterdetectorList", "ExciterList",
                            "SimulationList"};
    Write("wde.xml", "<WDE Version=\"0.1\"><GuardTime>1</GuardTime></WDE>");
    QStringList emptying{"set", kLookThrough, "-o", "emptied.xml", "WDE/ExciterList/1=-"};
    for (const QString& list : lists)
        emptying.append("WDE/" + list + "/0=-");
    EXPECT_EQ(Output(emptying), "");
    EXPECT_TRUE(Output({"show", "--json", "emptied.xml"}).contains("\"ExciterList\": [\n"));
    for (const QString& prefix : {QString(), QString("WDE/")}) {
        QStringList set{"set", prefix.isEmpty() ? "wde.xml" : "emptied.xml", "--force", "-o", "-"};
        QStringList get{"get", "-"};
        for (const QString& list : lists) {
            set += QStringList{prefix + list + "/+", prefix + list + "/0/Name=" + list};
            get += prefix + list + "/0/Name";
        }
        m_input = Output(set).toUtf8();
        EXPECT_EQ(Output(get), lists.join('\n') + '\n');
    }
    // In place, through the record's save.
    Write("copy.xml", testsupport::FileContents(kLookThrough));
    EXPECT_EQ(Output({"set", "copy.xml", "TGN/Power=-11"}), "");
    EXPECT_EQ(Output({"get", "copy.xml", "TGN/Power"}), "-11\n");
}

TEST_F(ToolCommandLine, DiffComparesTheSettingsByValue) {
    const QByteArray original = testsupport::FileContents(kLookThrough);
    const struct {
        const char* from;
        const char* to;
        int status;
        const char* out;
    } cases[] = {
        {">433920000</Frequency>\n        <Bandwidth>200000<",
         ">4.3392e8</Frequency>\n        <Bandwidth>200000.000<", 0, ""},
        {"<Power>-12.50</Power>", "<Power>-12.25</Power>", 1, "TGN/Power: -12.5 -> -12.25\n"},
        {" Name=\"Uplink\"", "", 1, "WDE/SinglechanneldetectorList/0/Name: Uplink -> unset\n"},
        {"<GuardTime>", "<GuardTme>1</GuardTme><GuardTime>", 0, ""},
        // An item that one side has, with its settings that are set.
        {"</ExciterList>",
         "<WDE_Exciter Version=\"0.1\" Index=\"2\"><Level>-3</Level></WDE_Exciter>"
         "</ExciterList>",
         1,
         "WDE/ExciterList/2: (none) -> WDE_Exciter\nWDE/ExciterList/2/Version: (none) -> 0.1\n"
         "WDE/ExciterList/2/Index: (none) -> 2\nWDE/ExciterList/2/Level: (none) -> -3\n"},
        // The raster frequencies, one Base64 text, by number.
        {"AAAAkNHPuUEAAACIK925QQAAAHBe6rlB", "AAAAkNHPuUEAAAAQP925QQ==", 1,
         "WDE/RasterdetectorList/0/Frequency/1: 433925000 -> 433930000\n"
         "WDE/RasterdetectorList/0/Frequency/2: 434790000 -> (none)\n"},
    };
    for (const auto& change : cases) {
        SCOPED_TRACE(change.to);
        Write("b.xml", QByteArray(original).replace(change.from, change.to));
        EXPECT_EQ(Output({"diff", kLookThrough, "b.xml"}, change.status), change.out);
    }
    // An incomplete record writes nothing: its file gives its settings, and
    // set completes it.
    EXPECT_EQ(Output({"diff", kExample, "incomplete.xml"}, 1),
              "ATT1: true -> True\nATT3: false -> true\nATT4: true -> unset\n");
    Output({"set", "incomplete.xml", "ATT1=true", "ATT3=false", "ATT4=true", "-o", "out.xml"});
    EXPECT_EQ(Output({"diff", kExample, "out.xml"}), "");
}

// show --json, changed by a script, and set --json of it; and back.
TEST_F(ToolCommandLine, JsonRoundTripsAndPipesUseStandardStreams) {
    for (const char* example :
         {"look_through.xml", "sweep.xml", "continuous.xml", "attantpath.xml"}) {
        const QString file = kExamples + example;
        SCOPED_TRACE(example);
        m_input = Output({"show", "--json", file}).toUtf8();
        EXPECT_EQ(Output({"set", file, "--json", "-", "-o", "out.xml"}), "");
        EXPECT_EQ(Output({"diff", file, "out.xml"}), "");
        m_input = testsupport::FileContents(file);
        EXPECT_EQ(Output({"format", "-", "-o", "-"}), Output({"format", file, "-o", "-"}));
        EXPECT_EQ(Output({"show", "-"}), Output({"show", file}));
    }
    QString json = Output({"show", "--json", kLookThrough})
                       .replace("\"Power\": -12.5", "\"Power\": -3")
                       .replace("\"Tone\": null", "\"Tone\": 1000")
                       .replace("433925000,", "433930000,"); // the raster, an array of numbers
    EXPECT_TRUE(json.contains("\"Autostart\": true"));
    // The first exciter's Name, unset, comes as a null attribute; a script
    // may give it as a plain key.
    const QString name = "\"@Name\": null";
    m_input = json.replace(json.indexOf(name), name.size(), R"("Name": "X")").toUtf8();
    EXPECT_EQ(Output({"set", kLookThrough, "--json", "-", "-o", "out.xml"}), "");
    EXPECT_EQ(Output({"diff", kLookThrough, "out.xml"}, 1),
              "TGN/Power: -12.5 -> -3\nTGN/Tone: unset -> 1000\n"
              "WDE/RasterdetectorList/0/Frequency/1: 433925000 -> 433930000\n"
              "WDE/ExciterList/0/Name: unset -> X\n");
}

} // namespace
