// SPDX-License-Identifier: MIT
// The XML Schema and the format reference are second descriptions of what the
// records read and write; these tests hold them to the records. Documents the
// records write (every record kind, optional parts present and absent, items
// in every list, unset values, every number form and special value, every
// enumeration text) must validate with xmllint; every element, attribute and
// enumeration text that the schema declares must occur in them; damaged
// documents must fail; and docs/format.md must name exactly the schema's
// elements, in order, with examples that validate and that the records write
// back unchanged.
#include "TestSupport.h"

#include <Exciter_Settings.h>
#include <RecordKinds.h>

#include <QMap>
#include <QProcess>
#include <QSet>
#include <QTemporaryDir>

#include <algorithm>
#include <cfloat>
#include <climits>
#include <iterator>
#include <limits>
#include <string>

using namespace KELMORA;

namespace {

// ---- The schema, read as far as the tests need it ----

struct Schema {
    // Per global element (record): the paths of its attributes ("@Version")
    // and elements ("ScanParameter/DwellTime") in declaration order.
    QMap<QString, QStringList> paths;
    // "record/path" -> the declared type; empty for a record reference or an
    // element with a type of its own.
    QMap<QString, QString> types;
    // Types made only of enumerated texts (unions of such types included).
    QMap<QString, QSet<QString>> enumerations;
};

const Schema& ReadSchema() {
    static const Schema schema = [] {
        Schema read;
        QFile file(QStringLiteral(SCHEMA_FILE));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << SCHEMA_FILE;
        QXmlStreamReader reader(&file);
        QMap<QString, QStringList> unions;
        QString record, simpleType;
        QStringList path;
        int depth = 0;
        while (!reader.atEnd()) {
            reader.readNext();
            const QString kind = reader.name().toString();
            const QXmlStreamAttributes attributes = reader.attributes();
            if (reader.isStartElement()) {
                const QString name = attributes.value("name").toString();
                if (++depth == 2 && kind == "element")
                    record = name;
                else if (depth == 2 && kind == "simpleType")
                    simpleType = name;
                else if (kind == "enumeration")
                    read.enumerations[simpleType].insert(attributes.value("value").toString());
                else if (kind == "union")
                    unions[simpleType] = attributes.value("memberTypes").toString().split(' ');
                if (record.isEmpty() || depth == 2 || (kind != "element" && kind != "attribute"))
                    continue;
                const QString leaf = kind == "attribute" ? '@' + name
                                     : name.isEmpty()    ? attributes.value("ref").toString()
                                                         : name;
                const QString key = QStringList(path + QStringList(leaf)).join('/');
                read.paths[record].append(key);
                read.types[record + '/' + key] = attributes.value("type").toString();
                path.append(leaf);
            } else if (reader.isEndElement()) {
                if (depth-- == 2)
                    record.clear();
                else if (!record.isEmpty() && (kind == "element" || kind == "attribute"))
                    path.removeLast();
            }
        }
        EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
        // Attributes first, as they stand in the start tag.
        for (QStringList& paths : read.paths)
            std::stable_partition(paths.begin(), paths.end(),
                                  [](const QString& entry) { return entry.startsWith('@'); });
        for (auto type = unions.cbegin(); type != unions.cend(); ++type) {
            QSet<QString> texts;
            bool enumerated = true;
            for (const QString& member : type.value()) {
                enumerated = enumerated && read.enumerations.contains(member);
                texts += read.enumerations.value(member);
            }
            if (enumerated)
                read.enumerations[type.key()] = texts;
        }
        return read;
    }();
    return schema;
}

// ---- Validation with xmllint, all documents in one run ----

// xmllint's verdict on each document (name -> text), and its messages.
struct Validation {
    QMap<QString, bool> valid;
    std::string messages;
    QStringList Failed() const { return valid.keys(false); }
};

Validation Validate(const QMap<QString, QString>& documents) {
    QTemporaryDir dir;
    for (auto document = documents.cbegin(); document != documents.cend(); ++document)
        testsupport::WriteFile(dir.filePath(document.key()), document.value().toUtf8());
    QProcess xmllint;
    xmllint.setWorkingDirectory(dir.path());
    xmllint.start(QStringLiteral(XMLLINT_PATH),
                  QStringList{"--noout", "--schema", SCHEMA_FILE} + documents.keys());
    EXPECT_TRUE(xmllint.waitForFinished(120000))
        << "xmllint (" XMLLINT_PATH ") did not run; scripts/bootstrap.sh --dev installs libxml2-utils";
    Validation result;
    const QString output = QString::fromUtf8(xmllint.readAllStandardError());
    for (const QString& line : output.split('\n')) {
        if (line.endsWith(" validates"))
            result.valid[line.chopped(10)] = true;
        else if (line.endsWith(" fails to validate"))
            result.valid[line.chopped(18)] = false;
    }
    result.messages = output.toStdString();
    EXPECT_EQ(result.valid.size(), documents.size()) << result.messages;
    return result;
}

// ---- Documents written by the records ----

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// Values cycled through every number field: the forms each number format
// takes, the rounding cases, the unset markers' neighbours, the extremes and
// what Qt writes for infinities and NaN. An odd count, so that the optional
// values of odd variants meet every entry too.
const double kDoubles[] = {
    0,        -0.0,           1,          -1,       0.5,     12.5,        -3.456,
    1e-05,    0.000123456789, 1234567,    999999.5, 1e300,   -1e-300,     5e-324,
    DBL_MAX,  kInfinity,      -kInfinity, kNaN,     -111111, -111111.111, -111111.105,
    433.92e6, 0.004};
const int kIntegers[] = {0, -1, 42, INT_MAX, INT_MIN, -111110, 7};
const unsigned int kUnsigned[] = {0, 1, 4294967294u, 4294967295u, 12};
const int kIndexes[] = {0, 7, -3, INT_MAX, INT_MIN + 1};
constexpr int kVariants = 2 * static_cast<int>(std::size(kDoubles));

// Variant i: optional parts when i is odd, unset values every seventh, and
// the values below cycling with i / 2 (plus a salt per field).
bool Optional(int i) {
    return i % 2 == 1;
}
bool Unset(int i) {
    return i % 7 == 0;
}
int Pick(int i, int salt, int count) {
    return (i / 2 + salt) % count;
}
double Number(int i, int salt) {
    return kDoubles[Pick(i, salt, std::size(kDoubles))];
}
unsigned int Count(int i, int salt) {
    return kUnsigned[Pick(i, salt, std::size(kUnsigned))];
}
// The number of texts of an enumeration, asked of its converter.
template <class Record, class E> int TextCount(QString (Record::*toText)(E) const) {
    int count = 0;
    while (!(Record().*toText)(static_cast<E>(count)).isEmpty())
        ++count;
    return count;
}
// A value of the enumeration; Choose: unset every seventh variant.
template <class Record, class E> E Any(int i, QString (Record::*toText)(E) const) {
    return static_cast<E>(Pick(i, 0, TextCount(toText)));
}
template <class Record, class E> E Choose(int i, QString (Record::*toText)(E) const) {
    return Unset(i) ? static_cast<E>(-1) : Any(i, toText);
}

ATTANTPath Path(int i) {
    ATTANTPath path;
    const auto setters = {&ATTANTPath::SetATT1, &ATTANTPath::SetATT2, &ATTANTPath::SetATT3,
                          &ATTANTPath::SetATT4, &ATTANTPath::SetATT5, &ATTANTPath::SetATT6};
    int salt = 0;
    for (auto set : setters)
        (path.*set)(Pick(i, salt++, 2) == 1);
    return path;
}

SCU MakeSCU(int i) {
    SCU scu;
    scu.SetFrequency(Number(i, 0));
    if (Optional(i))
        scu.SetFrequencyMinMax(Number(i, 1), Number(i, 2));
    scu.SetTransmitTime(Number(i, 3));
    scu.SetATTANTPath(Path(i));
    return scu;
}

TGN MakeTGN(int i) {
    TGN tgn;
    tgn.SetFrequency(Number(i, 0));
    tgn.SetBandwidth(Number(i, 1));
    if (Optional(i)) {
        tgn.SetFrequencyMinMax(Number(i, 2), Number(i, 3));
        tgn.SetBandwidthMax(Number(i, 4));
    }
    tgn.SetPower(Number(i, 5));
    tgn.SetLevelSettingsMode(tgn.GetLevelSettingsModes().at(Pick(i, 0, 2)));
    tgn.SetReference(tgn.GetReferences().at(Pick(i, 1, 2)));
    tgn.SetTGNModulation(tgn.GetTGNModulations().at(Pick(i, 0, tgn.GetTGNModulations().size())));
    tgn.SetSweepActive(Pick(i, 0, 2) == 1);
    tgn.SetIQModulationState(Pick(i, 1, 2) == 1);
    tgn.SetIQModulationSource(static_cast<TGN::IQSources>(Pick(i, 0, 2)));
    tgn.SetBBINState(Pick(i, 0, 2) == 0);
    if (Optional(i)) {
        tgn.SetTone(Number(i, 6));
        tgn.SetToneStop(Number(i, 7));
        tgn.SetToneStart(Number(i, 8));
        tgn.SetAMDepth(kIntegers[Pick(i, 0, std::size(kIntegers))]);
        tgn.SetSweepSpacing(QStringLiteral("LIN <&> \"ü\"\r\n"));
        tgn.SetSweepDwellTime(Number(i, 9));
        tgn.SetFMCoupling(QStringLiteral("AC"));
        tgn.SetFMInput(QStringLiteral(" 1 "));
        tgn.SetFMDeviation(Number(i, 10));
        tgn.SetNoiseLevel(kIntegers[Pick(i, 1, std::size(kIntegers))]);
        ScanParameter& scan = tgn.GetScanParameter();
        scan.SetStartFrequency(Number(i, 11));
        scan.SetStopFrequency(Number(i, 12));
        scan.SetStepWidth(Number(i, 13));
        if (i % 4 == 1)
            scan.SetDwellTime(Number(i, 14));
    }
    return tgn;
}

WDE_Exciter MakeExciter(int i) {
    WDE_Exciter item = i % 3 == 0 ? WDE_Exciter() : WDE_Exciter(kIndexes[Pick(i, 0, 5)]);
    if (Optional(i))
        item.SetItemName(QStringLiteral("Exciter \"%1\" <&>").arg(i));
    item.SetSignalType(Choose(i, &WDE_Exciter::GetStringForSignalType));
    if (!Unset(i)) {
        item.SetSymbolRate(Number(i, 1));
        item.SetLevel(Number(i, 2));
    }
    if (Optional(i))
        item.SetFrequencyShift(Number(i, 3));
    return item;
}

WDE_Rasterdetector MakeRaster(int i) {
    WDE_Rasterdetector item(i);
    if (Optional(i))
        item.SetItemName(QStringLiteral("Band %1").arg(i));
    if (!Unset(i)) {
        item.SetChannelStep(Number(i, 0));
        item.SetMinimumFixedFrequencyLength(Number(i, 1));
    }
    item.SetExicterSet(Count(i, 0));
    item.SetActive(Pick(i, 0, 2) == 1);
    item.SetThresholdMode(Choose(i, &WDE_Rasterdetector::GetStringForThresholdMode));
    if (Optional(i)) {
        item.SetAbsoluteThresholdValue(Number(i, 2));
        item.SetRelativeThresholdValue(Number(i, 3));
        item.SetRelativeThresholdAvgTime(Any(i, &WDE_Rasterdetector::GetStringForAvgTime));
        item.SetAmplifier(Any(i, &WDE_Rasterdetector::GetStringForAmplifier));
    }
    // Lists of 0 to 4 values: every length that Base64 pads differently.
    for (int k = 0; k < Pick(i, 0, 5); ++k)
        item.AppendFrequency(Number(i, k + 4));
    return item;
}

WDE_Simulation MakeSimulation(int i) {
    WDE_Simulation item(Pick(i, 0, 3));
    if (Optional(i))
        item.SetItemName(QStringLiteral("PN sequence"));
    item.SetActive(Pick(i, 1, 2) == 1);
    item.SetType(Choose(i, &WDE_Simulation::GetStringForSimulationType));
    item.SetExciterSet(Count(i, 0));
    item.SetPNStartValue(Count(i, 1));
    item.SetChannelCount(Count(i, 2));
    if (!Unset(i)) {
        item.SetRelativeCenterFrequency(Number(i, 0));
        item.SetHopWidth(Number(i, 1));
    }
    for (int k = 0; Optional(i) && k <= Pick(i, 0, 3); ++k)
        item.AppendRelativeFrequency(Number(i, k + 2));
    return item;
}

WDE_Singlechanneldetector MakeSingle(int i) {
    WDE_Singlechanneldetector item(i);
    if (Optional(i))
        item.SetItemName(QStringLiteral("Uplink"));
    if (!Unset(i)) {
        item.SetFrequency(Number(i, 0));
        item.SetBandwidth(Number(i, 1));
        item.SetMinimumFixedFrequencyLength(Number(i, 2));
        item.SetAbsoluteThresholdValue(Number(i, 3));
    }
    item.SetExicterSet(Count(i, 0));
    item.SetActive(Pick(i, 0, 2) == 0);
    return item;
}

// Complete (as Exciter_Settings needs it) or with every seventh variant unset.
WDE MakeWDE(int i, bool complete) {
    WDE wde;
    const int v = complete && Unset(i) ? i + 2 : i;
    if (!Unset(v)) {
        wde.SetFrequency(Number(v, 0));
        wde.SetBandwidth(Number(v, 1));
        wde.SetEmissiondetectorDelay(Number(v, 2));
        wde.SetExciterPulseLength(Number(v, 3));
        wde.SetExciterRXDelay(Number(v, 4));
        wde.SetExciterTXDelay(Number(v, 5));
        wde.SetGuardTime(Number(v, 6));
        wde.SetExciterCount(complete ? 2 : Count(v, 0));
    }
    wde.SetMode(Choose(v, &WDE::GetStringForMode));
    wde.SetEmissiondetectorMode(Choose(v, &WDE::GetStringForEmissiondetectorMode));
    wde.SetEmissiondetectorAveraging(Choose(v, &WDE::GetStringForEmissiondetectorAveraging));
    if (Optional(i)) {
        for (int k = 0; k <= Pick(i, 0, 2); ++k) {
            wde.GetSinglechanneldetectorList().append(MakeSingle(i + 2 * k));
            wde.GetRasterdetectorList().append(MakeRaster(i + 2 * k));
            wde.GetExciterList().append(MakeExciter(i + 2 * k));
            wde.GetSimulationList().append(MakeSimulation(i + 2 * k));
        }
        wde.SetAttenuation(Any(i, &WDE::GetStringForAttenuationType));
        wde.SetAttenuationMode(Any(i, &WDE::GetStringForAttenuationModeType));
        wde.SetAttenuationValue(Number(i, 7));
        wde.SetGainCtrl(Any(i, &WDE::GetStringForGainCtrlType));
        wde.SetAGCValue(Any(i, &WDE::GetStringForAGCValueType));
        wde.SetMGCValue(Number(i, 8));
    }
    return wde;
}

Exciter_Settings MakeSettings(int i) {
    Exciter_Settings settings;
    settings.SetExciterMode(settings.GetExciterModes().at(Pick(i, 0, 12)));
    settings.SetAutostart(Pick(i, 0, 2) == 1);
    settings.SetTGN(MakeTGN(i));
    settings.SetSCU(MakeSCU(i));
    settings.SetWDE(MakeWDE(i, true));
    return settings;
}

// Every variant of every record kind, by file name.
const QMap<QString, QString>& WrittenDocuments() {
    static const QMap<QString, QString> documents = [] {
        QMap<QString, QString> written;
        for (int i = 0; i < kVariants; ++i) {
            const QString n = QString::number(i);
            written["settings-" + n + ".xml"] = MakeSettings(i).GetXmlString();
            written["tgn-" + n + ".xml"] = MakeTGN(i).GetXmlString();
            written["scu-" + n + ".xml"] = MakeSCU(i).GetXmlString();
            written["path-" + n + ".xml"] = Path(i).GetXmlString();
            written["wde-" + n + ".xml"] = MakeWDE(i, false).GetXmlString();
            written["exciter-" + n + ".xml"] = MakeExciter(i).GetXmlString();
            written["raster-" + n + ".xml"] = MakeRaster(i).GetXmlString();
            written["simulation-" + n + ".xml"] = MakeSimulation(i).GetXmlString();
            written["single-" + n + ".xml"] = MakeSingle(i).GetXmlString();
        }
        return written;
    }();
    return documents;
}

// "record/path" -> the texts met there; attributes as "record/@name", items
// and nested records start a path of their own.
QMap<QString, QSet<QString>> TextsByPath(const QMap<QString, QString>& documents) {
    const QStringList records = ReadSchema().paths.keys();
    QMap<QString, QSet<QString>> texts;
    for (const QString& xml : documents) {
        QXmlStreamReader reader(xml);
        struct Open {
            QString record, path, key, text;
            bool leaf = true;
        };
        QVector<Open> open;
        while (!reader.atEnd()) {
            reader.readNext();
            if (reader.isStartElement()) {
                const QString name = reader.name().toString();
                Open element;
                if (!open.isEmpty()) {
                    open.last().leaf = false;
                    const Open& parent = open.last();
                    element.path = parent.path.isEmpty() ? name : parent.path + '/' + name;
                    element.key = parent.record + '/' + element.path;
                    element.record = parent.record;
                    texts[element.key];
                }
                if (records.contains(name)) {
                    element = {name, QString(), element.key, QString()};
                    for (const QXmlStreamAttribute& attribute : reader.attributes())
                        texts[name + "/@" + attribute.name().toString()].insert(
                            attribute.value().toString());
                }
                open.append(element);
            } else if (reader.isCharacters()) {
                open.last().text += reader.text();
            } else if (reader.isEndElement()) {
                const Open element = open.takeLast();
                if (element.leaf && !element.key.isEmpty())
                    texts[element.key].insert(element.text);
            }
        }
        EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
    }
    return texts;
}

QString Example(const char* name) {
    return QString::fromUtf8(testsupport::FileContents(QStringLiteral(EXAMPLES_DIR "/") + name));
}

QString FormatReference() {
    return QString::fromUtf8(testsupport::FileContents(QStringLiteral(FORMAT_REFERENCE)));
}

} // namespace

TEST(Schema, EveryDocumentTheRecordsWriteValidates) {
    const Validation validation = Validate(WrittenDocuments());
    EXPECT_EQ(validation.Failed(), QStringList()) << validation.messages;
}

TEST(Schema, DeclaresExactlyWhatTheRecordsWriteWithTheirEnumerationTexts) {
    const Schema& schema = ReadSchema();
    const QMap<QString, QSet<QString>> written = TextsByPath(WrittenDocuments());
    QSet<QString> declared;
    for (auto record = schema.paths.cbegin(); record != schema.paths.cend(); ++record) {
        for (const QString& path : record.value())
            declared.insert(record.key() + '/' + path);
    }
    const QSet<QString> met(written.keyBegin(), written.keyEnd());
    EXPECT_EQ(QSet<QString>(declared).subtract(met), QSet<QString>()) << "declared, never written";
    EXPECT_EQ(QSet<QString>(met).subtract(declared), QSet<QString>()) << "written, not declared";
    for (auto type = schema.types.cbegin(); type != schema.types.cend(); ++type) {
        if (schema.enumerations.contains(type.value())) {
            EXPECT_EQ(written.value(type.key()), schema.enumerations[type.value()])
                << type.key().toStdString();
        }
    }
}

TEST(Schema, ValidExamplesPassAndDamagedDocumentsFail) {
    const QString base = Example("look_through.xml");
    // What the records would read differently, change or pass over; each
    // replaces one part of an example that validates.
    const char* damages[][2] = {
        {"<TransmitTime>2.50<", "<TransmitTime>2.5x<"},                    // does not convert
        {"<Level>-20<", "<Level>1,5<"},                                    // does not convert
        {"<AttenuationValue>10<", "<AttenuationValue>ten<"},               // does not convert
        {"<GuardTime>0.001</GuardTime>", "<GuardTme>0.001</GuardTme>"},    // misspelt
        {"<ATT2>false<", "<ATT2>False<"},                                  // flag
        {"<Autostart>true<", "<Autostart>True<"},                          // flag
        {"<AttenuationMode>NORMAL<", "<AttenuationMode>Normal<"},          // enumeration
        {"<Amplifier>UHF1<", "<Amplifier>UHF3<"},                          // enumeration
        {"<SignalType>CW<", "<SignalType>cw<"},                            // enumeration
        {"<TGNModulation>CW<", "<TGNModulation>FM Int<"},                  // choice list
        {"<TransmitTime>2.50<", "<TransmitTime>2.5<"},                     // not two decimals
        {"<GuardTime>0.001<", "<GuardTime>0.0012345678<"},                 // more than six digits
        {"<Power>-12.50<", "<Power>-111111.11<"},                          // unset marker
        {"<ExciterSet>1<", "<ExciterSet>-1<"},                             // not unsigned
        {"Index=\"1\"", "Index=\"one\""},                                  // not an index
        {"HBe6rlB<", "HBe6rl<"},                                           // Base64 cut short
        {R"(<WDE Version="0.1">)", R"(<WDE Version="0.1" Revision="2">)"}, // unknown attribute
        {"<Power>-12.50</Power>", ""},                              // required element missing
        {"<Mode>DETX</Mode>", "<Mode>DETX</Mode><Mode>DET</Mode>"}, // given twice
        {"<ExciterMode>Look Through</ExciterMode>\n    <Autostart>true</Autostart>",
         "<Autostart>true</Autostart>\n    <ExciterMode>Look Through</ExciterMode>"}, // order
    };
    QMap<QString, QString> documents{{"base.xml", base}};
    for (const char* name : {"attantpath.xml", "continuous.xml", "sweep.xml"})
        documents[name] = Example(name);
    documents["invalid_missing_transmit_time.xml"] = Example("invalid_missing_transmit_time.xml");
    int n = 0;
    for (const auto& damage : damages) {
        QString damaged = base;
        damaged.replace(QString::fromUtf8(damage[0]), QString::fromUtf8(damage[1]));
        EXPECT_NE(damaged, base) << damage[0];
        documents[QStringLiteral("damaged-%1.xml").arg(n++)] = damaged;
    }
    const Validation validation = Validate(documents);
    EXPECT_EQ(validation.valid.keys(true),
              QStringList({"attantpath.xml", "base.xml", "continuous.xml", "sweep.xml"}))
        << validation.messages;
    EXPECT_EQ(validation.Failed().size(), n + 1) << validation.messages;
}

// docs/format.md: per record a section "## <record>" whose table rows name the
// attributes and elements (`@Version`, `ScanParameter/DwellTime`) in the
// schema's order, and an example that validates and that the record writes
// back unchanged.
TEST(FormatReference, NamesTheSchemasElementsInOrderWithExamplesInTheLibrarysForm) {
    const Schema& schema = ReadSchema();
    QMap<QString, QStringList> named;
    QMap<QString, QString> examples;
    QString section;
    bool inExample = false;
    for (const QString& line : FormatReference().split('\n')) {
        if (line.startsWith("## "))
            section = schema.paths.contains(line.mid(3)) ? line.mid(3) : QString();
        else if (!section.isEmpty() && line == "```xml")
            inExample = true;
        else if (inExample && line == "```")
            inExample = false;
        else if (inExample)
            examples[section + ".xml"] += line + '\n';
        else if (!section.isEmpty() && line.startsWith("| `"))
            named[section].append(line.section('`', 1, 1));
    }
    EXPECT_EQ(named, schema.paths);
    EXPECT_EQ(examples.size(), schema.paths.size());
    const Validation validation = Validate(examples);
    EXPECT_EQ(validation.Failed(), QStringList()) << validation.messages;
    for (auto document = examples.cbegin(); document != examples.cend(); ++document) {
        const std::unique_ptr<IKMObject> record =
            RecordKinds::Create(RecordKinds::RootNameOfXmlString(document.value()));
        ASSERT_TRUE(record) << document.key().toStdString();
        record->SetXmlString(document.value());
        EXPECT_EQ(record->GetXmlString(), document.value());
    }
}
