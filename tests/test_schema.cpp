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
#include "RecordVariants.h"
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
        QFile file(QString(SCHEMA_FILE));
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
    xmllint.start(QString(XMLLINT_PATH),
                  QStringList{"--noout", "--schema", SCHEMA_FILE} + documents.keys());
    EXPECT_TRUE(xmllint.waitForFinished(120000))
        << "xmllint (" XMLLINT_PATH
           ") did not run; scripts/bootstrap.sh --dev installs libxml2-utils";
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

// Values cycled through every number field: the forms each number format
// takes, the rounding cases, the unset markers' neighbours, the extremes and
// what Qt writes for infinities and NaN. An odd count, so that the optional
// values of odd variants meet every entry too.
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kDoubles[] = {
    0,        -0.0,           1,          -1,       0.5,     12.5,        -3.456,
    1e-05,    0.000123456789, 1234567,    999999.5, 1e300,   -1e-300,     5e-324,
    DBL_MAX,  kInfinity,      -kInfinity, kNaN,     -111111, -111111.111, -111111.105,
    433.92e6, 0.004};
const int kIntegers[] = {0, -1, 42, INT_MAX, INT_MIN, -111110, 7, -3, INT_MIN + 1};
const unsigned int kUnsigned[] = {0, 1, 4294967294u, 4294967295u, 12};
// Item names and free texts, '|' between them.
const QStringList kTexts =
    QString::fromUtf8("AC| 1 |Band 3|PN sequence|Uplink|Exciter \"1\" <&>|LIN <&> \"\xc3\xbc\"\r\n")
        .split('|');
constexpr int kVariants = 2 * static_cast<int>(std::size(kDoubles));

struct TableValues : recordvariants::Values {
    template <class T, size_t N> static T At(const T (&table)[N], int i, int salt) {
        return table[recordvariants::Pick(i, salt, N)];
    }
    double Number(int i, int salt) const override { return At(kDoubles, i, salt); }
    int Integer(int i, int salt) const override { return At(kIntegers, i, salt); }
    unsigned int Count(int i, int salt) const override { return At(kUnsigned, i, salt); }
    QString Text(int i, int salt) const override {
        return kTexts[recordvariants::Pick(i, salt, kTexts.size())];
    }
};

// Every variant of every record kind, by file name.
const QMap<QString, QString>& WrittenDocuments() {
    static const QMap<QString, QString> documents = [] {
        QMap<QString, QString> written;
        for (int i = 0; i < kVariants; ++i)
            recordvariants::ForEachRecord(TableValues(), i,
                                          [&](const QString& name, const IKMObject& record) {
                                              written[name + ".xml"] = record.GetXmlString();
                                          });
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
    return QString::fromUtf8(testsupport::FileContents(QString(EXAMPLES_DIR "/") + name));
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
        documents[QString("damaged-%1.xml").arg(n++)] = damaged;
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
    for (const QString& line :
         QString::fromUtf8(testsupport::FileContents(FORMAT_REFERENCE)).split('\n')) {
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
