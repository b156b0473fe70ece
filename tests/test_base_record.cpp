// The base record: its element loop and its host operations (text, files,
// binary forms, merging, validation flag, logger).
#include "TestSupport.h"

#include <IKMObject.h>
#include <Logger.h>
#include <MinMax.h>
#include <ScanParameter.h>
#include <ValueMinMax.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <QTemporaryDir>

using namespace KELMORA;
using testsupport::ThrownMessage;

namespace {

// A minimal record: "Value" children are read, "Wrapper" children are
// descended into as if their children stood in the record, anything else is
// left to the loop to skip.
class ProbeRecord : public IKMObject {
public:
    ProbeRecord() { SetObjectName(QStringLiteral("Probe")); }

    bool HasData() const override { return !values.isEmpty(); }
    void Reset() override { values.clear(); }
    void Check() const override {
        if (values.isEmpty())
            throw KMException(QStringLiteral("Probe: Please set Value!"));
    }
    void GetXml(QXmlStreamWriter& writer) const override {
        if (!HasData())
            return;
        writer.writeStartElement(GetObjectName());
        for (const QString& value : values)
            writer.writeTextElement(QStringLiteral("Value"), value);
        writer.writeEndElement();
    }
    using IKMObject::Check;

    QStringList values;
    QStringList seen;

protected:
    void ProcessXmlStartElement(QXmlStreamReader& reader) override {
        const QString name = reader.name().toString();
        seen.append(name);
        if (name == QLatin1String("Value"))
            values.append(GetTextValue(reader));
        else if (name == QLatin1String("Wrapper"))
            IKMObject::ProcessXml(reader);
    }
};

QString ProbeDocument(const QString& children) {
    return QStringLiteral("<Probe>%1</Probe>").arg(children);
}

} // namespace

TEST(ElementLoop, SkipsUnreadChildrenWholeAndGoesOnWithSiblings) {
    ProbeRecord probe;
    probe.SetXmlString(ProbeDocument(QStringLiteral(
        "<Value>a</Value><Other><Value>hidden</Value><Deep><X/></Deep></Other><Value>b</Value>")));
    EXPECT_EQ(probe.values, (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
    // The loop calls the handler once per direct child only.
    EXPECT_EQ(probe.seen, (QStringList{QStringLiteral("Value"), QStringLiteral("Other"),
                                       QStringLiteral("Value")}));
}

TEST(ElementLoop, ReenteredWrapperDispatchesItsChildrenAsTheRecordsOwn) {
    ProbeRecord probe;
    probe.SetXmlString(ProbeDocument(QStringLiteral(
        "<Wrapper><Value>a</Value><Wrapper><Value>b</Value></Wrapper></Wrapper><Value>c</Value>")));
    EXPECT_EQ(probe.values,
              (QStringList{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")}));
}

TEST(ElementLoop, HostileWrapperNestingEndsInAnExceptionNotACrash) {
    QString nested;
    for (int i = 0; i < 5000; ++i)
        nested += QStringLiteral("<Wrapper>");
    for (int i = 0; i < 5000; ++i)
        nested += QStringLiteral("</Wrapper>");
    ProbeRecord probe;
    EXPECT_TRUE(ThrownMessage([&] {
                    probe.SetXmlString(ProbeDocument(nested));
                }).contains(QStringLiteral("nested too deeply")));
    // The guard unwinds: the same record reads again afterwards.
    probe.SetXmlString(ProbeDocument(QStringLiteral("<Wrapper><Value>x</Value></Wrapper>")));
    EXPECT_EQ(probe.values.last(), QStringLiteral("x"));
}

TEST(ElementLoop, MalformedInputReportsReaderErrorWithLineAndColumn) {
    ProbeRecord probe;
    const QString message = ThrownMessage([&] {
        probe.SetXmlString(QStringLiteral("<Probe>\n<Value>a</Value>\n<Value>b</Valu>\n</Probe>"));
    });
    EXPECT_TRUE(message.startsWith(QStringLiteral("XML error: "))) << message.toStdString();
    EXPECT_TRUE(message.contains(QStringLiteral("line 3"))) << message.toStdString();
    EXPECT_TRUE(message.contains(QStringLiteral("column"))) << message.toStdString();
    // Values read before the failure stay.
    EXPECT_EQ(probe.values.first(), QStringLiteral("a"));
}

TEST(ElementLoop, TruncatedDocumentAndTrailingGarbageAreRejected) {
    ProbeRecord probe;
    EXPECT_TRUE(ThrownMessage([&] {
                    probe.SetXmlString(QStringLiteral("<Probe><Value>a</Value>"));
                }).startsWith(QStringLiteral("XML error: ")));
    EXPECT_TRUE(ThrownMessage([&] {
                    probe.SetXmlString(QStringLiteral("<Probe/><Probe/>"));
                }).startsWith(QStringLiteral("XML error: ")));
    EXPECT_TRUE(ThrownMessage([&] {
                    probe.SetXmlString(QString());
                }).contains(QStringLiteral("no root element")));
}

TEST(HostOperations, WrongRootElementNamesExpectedAndFound) {
    ProbeRecord probe;
    EXPECT_EQ(ThrownMessage([&] { probe.SetXmlString(QStringLiteral("<SCU/>")); }),
              QStringLiteral("Wrong root element: expected 'Probe', found 'SCU'"));
}

TEST(HostOperations, SaveAndLoadFileRoundTrip) {
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("probe.xml"));
    ProbeRecord probe;
    probe.values = QStringList{QStringLiteral("ä & <b>")};
    probe.SaveXml(path);

    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    EXPECT_TRUE(bytes.startsWith("<?xml version=\"1.0\" encoding=\"UTF-8\"?>"));
    EXPECT_TRUE(bytes.contains("\n    <Value>")); // indented
    file.close();

    ProbeRecord loaded;
    loaded.LoadXml(path);
    EXPECT_EQ(loaded.values, probe.values);
}

TEST(HostOperations, FailedSaveLeavesThePreviousFileByteForByte) {
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("settings.xml"));
    ProbeRecord probe;
    probe.values = QStringList{QStringLiteral("kept")};
    probe.SaveXml(path);
    QFile original(path);
    ASSERT_TRUE(original.open(QIODevice::ReadOnly));
    const QByteArray before = original.readAll();
    original.close();

    // An incomplete record writes no element: saving it must not replace the file.
    ProbeRecord empty;
    EXPECT_TRUE(ThrownMessage([&] { empty.SaveXml(path); }).contains(path));
    // A record whose validation fails is not written when validation is on.
    empty.SetValidate(true);
    EXPECT_EQ(ThrownMessage([&] { empty.SaveXml(path); }),
              QStringLiteral("Probe: Please set Value!"));

    ASSERT_TRUE(original.open(QIODevice::ReadOnly));
    EXPECT_EQ(original.readAll(), before);
}

TEST(HostOperations, UnwritableTargetAndMissingFileNameTheFile) {
    QTemporaryDir dir;
    ProbeRecord probe;
    probe.values = QStringList{QStringLiteral("x")};
    const QString unwritable = dir.filePath(QStringLiteral("no/such/dir/out.xml"));
    EXPECT_TRUE(ThrownMessage([&] { probe.SaveXml(unwritable); }).contains(unwritable));

    const QString missing = dir.filePath(QStringLiteral("missing.xml"));
    const QString message = ThrownMessage([&] { probe.LoadXml(missing); });
    EXPECT_TRUE(message.contains(missing)) << message.toStdString();
    EXPECT_TRUE(ThrownMessage([&] { probe.LoadXml(dir.path()); }).contains(dir.path()));
}

TEST(HostOperations, LoggerReceivesLoadAndSaveFailures) {
    Logger logger;
    ProbeRecord probe;
    probe.SetLogger(&logger);
    EXPECT_THROW(probe.LoadXml(QStringLiteral("/nonexistent/file.xml")), KMException);
    ASSERT_EQ(logger.GetEntries().size(), 1);
    EXPECT_TRUE(logger.GetEntries().first().startsWith(QStringLiteral("ERROR: LoadXml")));
    probe.ResetLogger();
    EXPECT_THROW(probe.LoadXml(QStringLiteral("/nonexistent/file.xml")), KMException);
    EXPECT_EQ(logger.GetEntries().size(), 1);
}

TEST(HostOperations, ValidationFlagRunsCheckAfterLoading) {
    ProbeRecord probe;
    probe.SetXmlString(ProbeDocument(QString())); // no validation: accepted
    probe.SetValidate(true);
    EXPECT_TRUE(probe.GetValidate());
    EXPECT_EQ(ThrownMessage([&] { probe.SetXmlString(ProbeDocument(QString())); }),
              QStringLiteral("Probe: Please set Value!"));
    EXPECT_FALSE(probe.Check(false));
    EXPECT_THROW(probe.Check(true), KMException);
    probe.values.append(QStringLiteral("v"));
    EXPECT_TRUE(probe.Check(false));
}

TEST(HostOperations, BinaryAndCompressedFormsRoundTripAndRejectForeignData) {
    ProbeRecord probe;
    probe.values = QStringList{QStringLiteral("one"), QStringLiteral("two")};
    for (const QByteArray& form : {probe.GetBinaryRepresentationAsQByteArray(),
                                   probe.GetCompressedBinaryRepresentationAsQByteArray()}) {
        ProbeRecord copy;
        copy.SetBinaryRepresentation(form);
        EXPECT_EQ(copy.values, probe.values);
    }
    ProbeRecord target;
    EXPECT_THROW(target.SetBinaryRepresentation(QByteArray("garbage")), KMException);
    QByteArray truncated = probe.GetBinaryRepresentationAsQByteArray();
    truncated.chop(5);
    EXPECT_THROW(target.SetBinaryRepresentation(truncated), KMException);
    QByteArray corrupt = probe.GetCompressedBinaryRepresentationAsQByteArray();
    for (int i = 12; i < corrupt.size(); ++i)
        corrupt[i] = static_cast<char>(corrupt[i] ^ 0x5A);
    EXPECT_THROW(target.SetBinaryRepresentation(corrupt), KMException);

    ScanParameter other; // a frame of another record is refused
    other.SetStartFrequency(1);
    other.SetStopFrequency(2);
    other.SetStepWidth(1);
    EXPECT_TRUE(ThrownMessage([&] {
                    target.SetBinaryRepresentation(other.GetBinaryRepresentationAsQByteArray());
                }).contains(QStringLiteral("ScanParameter")));
}

TEST(HostOperations, MergeAppliesOtherRecordAndRequiresSameName) {
    ProbeRecord base;
    base.values = QStringList{QStringLiteral("a")};
    ProbeRecord other;
    other.values = QStringList{QStringLiteral("b")};
    base.MergeKMObject(other);
    EXPECT_EQ(base.values, (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
    EXPECT_THROW(base.MergeKMObject(ScanParameter()), KMException);
}

TEST(BaseMarkers, InvalidValuesAndIsValid) {
    IKMObject object;
    double d = 1;
    unsigned int u = 1;
    int i = 1;
    object.SetInvalid(d);
    object.SetInvalid(u);
    object.SetInvalid(i);
    EXPECT_EQ(d, -111111.11);
    EXPECT_EQ(u, 4294967295u);
    EXPECT_FALSE(object.IsValid(d));
    EXPECT_FALSE(object.IsValid(u));
    EXPECT_FALSE(object.IsValid(i));
    EXPECT_TRUE(object.IsValid(-111111.0));
    EXPECT_TRUE(object.IsValid(-1));
    EXPECT_TRUE(object.IsValid(0));
    EXPECT_TRUE(object.IsValid(true));
    EXPECT_FALSE(object.IsValid(false));
    EXPECT_EQ(IKMObject(OBJECT_TYPE_EXCITER_SETTINGS).GetObjectName(),
              QStringLiteral("Exciter_Settings"));
}

TEST(ValueMinMaxRecord, KeepsEveryDoubleExactlyAndUnsetStaysUnset) {
    ValueMinMax range(QStringLiteral("Frequency"), 0.1 + 0.2, 1e-300, 123456789.123456789);
    ValueMinMax read(QStringLiteral("Frequency"));
    QXmlStreamReader reader(testsupport::WrittenXml(range));
    reader.readNextStartElement();
    read.ReadValuesFromXml(reader);
    EXPECT_EQ(read.value, range.value);
    EXPECT_EQ(read.minimum, range.minimum);
    EXPECT_EQ(read.maximum, range.maximum);
    EXPECT_EQ(testsupport::WrittenXml(ValueMinMax(QStringLiteral("F"), 433.92e6, 2e7, 0.125)),
              QStringLiteral("<F Minimum=\"20000000\" Maximum=\"0.125\">433920000</F>"));

    ValueMinMax unset(QStringLiteral("Bandwidth"));
    ValueMinMax back(QStringLiteral("Bandwidth"), 5, 5, 5);
    QXmlStreamReader unsetReader(testsupport::WrittenXml(unset));
    unsetReader.readNextStartElement();
    back.ReadValuesFromXml(unsetReader);
    EXPECT_FALSE(back.HasData());
    EXPECT_EQ(back.minimum, 5.0); // absent bounds keep their values
}

TEST(ValueMinMaxRecord, PlainTextElementAndDataQueries) {
    ValueMinMax mgc(QStringLiteral("MGCValue"));
    QXmlStreamReader reader(QStringLiteral("<MGCValue>12.5</MGCValue>"));
    reader.readNextStartElement();
    mgc.ReadValuesFromXml(reader);
    EXPECT_EQ(mgc.value, 12.5);
    EXPECT_TRUE(mgc.HasData());

    ValueMinMax boundsOnly(QStringLiteral("Frequency"));
    boundsOnly.minimum = 1;
    EXPECT_FALSE(boundsOnly.HasData());
    EXPECT_TRUE(boundsOnly.AnyData());
    EXPECT_EQ(ThrownMessage([&] { boundsOnly.Check(); }),
              QStringLiteral("Frequency: Please set Value!"));
    boundsOnly.Reset();
    EXPECT_FALSE(boundsOnly.AnyData());
    EXPECT_EQ(boundsOnly.name, QStringLiteral("Frequency"));
}

TEST(ScanParameterRecord, RoundTripAndUnknownChild) {
    ScanParameter scan;
    scan.SetStartFrequency(1.5e9);
    scan.SetStopFrequency(2.5e9);
    scan.SetStepWidth(0.1);
    ASSERT_TRUE(scan.HasData());
    ScanParameter back;
    back.SetXmlString(scan.GetXmlString());
    EXPECT_EQ(back.GetStepWidth(), 0.1);
    EXPECT_FALSE(back.AnyData() && back.GetDwellTime() != IKMObject::InvalidDouble);
    EXPECT_EQ(ThrownMessage([&] {
                  back.SetXmlString(QStringLiteral("<ScanParameter><Step/></ScanParameter>"));
              }),
              QStringLiteral("Unknown Tag 'Step' in 'ScanParameter'"));
    EXPECT_EQ(ThrownMessage([&] { ScanParameter().Check(); }),
              QStringLiteral("ScanParameter: Please set StartFrequency!"));
}
