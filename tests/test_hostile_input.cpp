// SPDX-License-Identifier: MIT
// Documents built to hurt: nesting a million levels deep, entity bombs and
// external entities, files cut off at every byte, broken UTF-8 and control
// characters, a 100 MB Base64 text, lists of a million items. Each ends in a
// KMException or a correct load, within a time and memory bound, and the
// record is usable afterwards. The big inputs are generated here.
#include "RecordFixtures.h"
#include "TestSupport.h"

#include <Exciter_Settings.h>
#include <WDE_Exciter.h>
#include <WDE_Rasterdetector.h>
#include <WDE_Simulation.h>

#include <QDataStream>
#include <QDir>
#include <QElapsedTimer>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QUrl>

#include <functional>
#include <sys/resource.h>

#if __has_include(<valgrind/valgrind.h>)
#include <valgrind/valgrind.h>
#define EXCITERSETTINGS_UNDER_VALGRIND (RUNNING_ON_VALGRIND != 0)
#else
#define EXCITERSETTINGS_UNDER_VALGRIND false
#endif

using namespace KELMORA;
using testsupport::FileContents;
using testsupport::Outcome;
using testsupport::ThrownMessage;
using testsupport::WriteFile;

namespace {

const int kMillion = 1000000;

// The bounds catch a hang or a blow-up, not a slow machine. Valgrind runs
// the code some fifty times slower and keeps books of its own, so under it
// the time bounds stretch and memory is not checked.
bool UnderValgrind() {
    return EXCITERSETTINGS_UNDER_VALGRIND;
}

// The outcome of the load. Fails the test when it takes longer than
// `seconds` or its peak resident set reaches `mebibytes`.
QString BoundedOutcome(int seconds, long mebibytes, const std::function<void()>& load) {
    QFile refs("/proc/self/clear_refs"); // resets the peak
    if (refs.open(QIODevice::WriteOnly))
        refs.write("5");
    QElapsedTimer timer;
    timer.start();
    QString message = Outcome(load);
    EXPECT_LT(timer.elapsed(), seconds * 1000LL * (UnderValgrind() ? 50 : 1));
    const QRegularExpressionMatch peak =
        QRegularExpression("VmHWM:\\s*(\\d+) kB")
            .match(QString::fromLatin1(FileContents("/proc/self/status")));
    if (!UnderValgrind() && peak.hasMatch()) { // not every system tells
        EXPECT_LT(peak.captured(1).toLong() / 1024, mebibytes);
    }
    return message;
}

template <typename Record>
QString LoadBounded(Record& record, const QString& xml, int seconds = 10, long mebibytes = 1024) {
    return BoundedOutcome(seconds, mebibytes, [&] { record.SetXmlString(xml); });
}

// The record resets, then reads a good document and writes exactly what a
// fresh record writes after reading it.
template <typename Record> void ExpectUsable(Record& record, const QString& good) {
    record.Reset();
    EXPECT_FALSE(record.AnyData());
    record.SetXmlString(good);
    EXPECT_EQ(record.GetXmlString(), testsupport::ReadFrom<Record>(good).GetXmlString());
}

QString GoodWDE() {
    WDE wde = testfixtures::CompleteWDE();
    wde.GetExciterList().append(WDE_Exciter(0));
    return wde.GetXmlString();
}

// <root> around `depth` levels of <element>, around `inner`.
QString Nested(const char* root, const char* element, int depth, const QString& inner = QString()) {
    const QString open = "<%1>", close = "</%1>";
    const QString name = QString::fromLatin1(element), rootName = QString::fromLatin1(root);
    return open.arg(rootName) + open.arg(name).repeated(depth) + inner +
           close.arg(name).repeated(depth) + close.arg(rootName);
}

} // namespace

TEST(HostileInput, NestingEndsAtTheDepthLimitOrAtTheWrapperLimit) {
    WDE wde;
    // A million levels of anything end at the depth limit, before the reader
    // holds them.
    for (const char* element : {"ExciterList", "WDE_Exciter", "Unknown"}) {
        wde.Reset();
        EXPECT_TRUE(LoadBounded(wde, Nested("WDE", element, kMillion), 5)
                        .startsWith("Input limit exceeded: elements nested deeper "
                                    "than 256 levels (maxDepth) (line 1, column "));
    }
    // Within it, wrappers in wrappers: the element loop follows 32 levels
    // (the root and 31 wrappers, so the item in the deepest is read), then
    // stops. (All four list wrappers and the simulation's own run that same
    // loop.)
    const QString tooDeep = "WDE: elements nested too deeply (line 1)";
    for (const auto& [depth, outcome] : {std::pair<int, QString>{31, QString()}, {32, tooDeep}}) {
        wde.Reset();
        const QString nested = Nested("WDE", "ExciterList", depth, "<WDE_Exciter/>");
        EXPECT_EQ(LoadBounded(wde, nested), outcome) << depth;
        EXPECT_EQ(wde.GetExciterList().size(), outcome.isNull() ? 1 : 0) << depth;
    }
    // Items in items: an item passes over children it does not know, at
    // any depth, so only the outermost one is read.
    wde.Reset();
    EXPECT_TRUE(LoadBounded(wde, Nested("WDE", "WDE_Exciter", 250)).isNull());
    EXPECT_EQ(wde.GetExciterList().size(), 1);
    // Unknown elements in unknown elements, beside the record's values and
    // inside one of them: passed over, and the value is read whole.
    wde.Reset();
    const QString unknown = Nested("Unknown", "Unknown", 120);
    EXPECT_TRUE(LoadBounded(wde, QString("<WDE>%1<Mode>%1DET</Mode></WDE>").arg(unknown)).isNull());
    EXPECT_EQ(wde.GetXmlString(),
              testsupport::ReadFrom<WDE>("<WDE><Mode>DET</Mode></WDE>").GetXmlString());
    ExpectUsable(wde, GoodWDE());
}

TEST(HostileInput, DocumentTypeDeclarationsAreRefusedSoNoEntityIsEverExpanded) {
    const QString refused = "XML error: document type declarations are not accepted (line %1)";
    WDE wde;
    // A billion laughs: ten levels of entities, each ten of the one below.
    QString laughs = "<?xml version=\"1.0\"?>\n<!DOCTYPE WDE [\n"
                     "<!ENTITY lol0 \"lol\">\n";
    for (int level = 1; level < 10; ++level)
        laughs += QString("<!ENTITY lol%1 \"%2\">\n")
                      .arg(level)
                      .arg(QString("&lol%1;").arg(level - 1).repeated(10));
    laughs += "]>\n<WDE><Mode>&lol9;</Mode></WDE>\n";
    EXPECT_EQ(LoadBounded(wde, laughs, 2, 256), refused.arg(13)); // where the declaration ends

    // External entities naming a local file, in the internal subset, as the
    // external subset and as a parameter entity: refused, and the file's
    // content shows up nowhere: not in the record, not in what it writes,
    // not in the message.
    QTemporaryDir dir;
    const QString secretPath = dir.filePath("secret.txt");
    const QString secret = "DETX-SECRET-7f3a";
    WriteFile(secretPath, secret.toLatin1());
    const QString external[] = {
        "<!DOCTYPE WDE [<!ENTITY x SYSTEM \"%1\">]>\n"
        "<WDE><Mode>&x;</Mode><ExciterList><WDE_Exciter>"
        "<SignalType>&x;</SignalType></WDE_Exciter></ExciterList></WDE>",
        "<!DOCTYPE WDE SYSTEM \"%1\">\n<WDE><Mode>&x;</Mode></WDE>",
        "<!DOCTYPE WDE [<!ENTITY % p SYSTEM \"%1\"> %p;]>\n<WDE/>",
    };
    for (const QString& document : external) {
        SCOPED_TRACE(document.toStdString());
        const QString message =
            LoadBounded(wde, document.arg(QUrl::fromLocalFile(secretPath).toString()), 2, 256);
        EXPECT_EQ(message, refused.arg(1));
        EXPECT_FALSE(message.contains(secret));
        EXPECT_FALSE(wde.GetXmlString().contains(secret));
    }
    ExpectUsable(wde, GoodWDE());
}

namespace {

// Loads every prefix of the file, as text and as a file: each is an XML
// error until the root element is complete, and from there on the record
// reads exactly what the whole file gives.
template <typename Record> void ExpectEveryPrefixFailsOrLoadsWhole(const QString& path) {
    const QByteArray whole = FileContents(path);
    const QString expected = testsupport::ReadFrom<Record>(QString::fromUtf8(whole)).GetXmlString();
    const int rootEnd = whole.lastIndexOf('>') + 1;
    QTemporaryDir dir;
    Record record;
    for (int length = 0; length <= whole.size(); ++length) {
        const QByteArray prefix = whole.left(length);
        // A new file each time: truncating one file over and over makes the
        // file system flush it on every close, which is slow.
        const QString cut = dir.filePath(QString("cut%1.xml").arg(length));
        WriteFile(cut, prefix);
        const std::function<void()> loads[] = {
            [&] { record.SetXmlString(QString::fromUtf8(prefix)); },
            [&] { record.LoadXml(cut); },
        };
        for (const auto& load : loads) {
            record.Reset();
            const QString message = Outcome(load);
            if (length < rootEnd) {
                EXPECT_TRUE(message.startsWith("XML error: "))
                    << path.toStdString() << " cut at " << length << ": " << message.toStdString();
                EXPECT_GE(record.GetFailureLine(), 1);
                EXPECT_LE(record.GetFailureLine(), prefix.count('\n') + 1);
            } else {
                EXPECT_TRUE(message.isNull()) << length << ": " << message.toStdString();
                EXPECT_EQ(record.GetXmlString(), expected) << length;
            }
        }
        QFile::remove(cut);
    }
}

} // namespace

TEST(HostileInput, EveryExampleCutOffAtEveryByteIsAnXmlErrorUntilItIsWhole) {
    const QDir examples(QString(EXAMPLES_DIR));
    const QStringList names = examples.entryList({"*.xml"}, QDir::Files);
    ASSERT_TRUE(names.contains("look_through.xml"));
    for (const QString& name : names) {
        if (name.startsWith("attantpath"))
            ExpectEveryPrefixFailsOrLoadsWhole<ATTANTPath>(examples.filePath(name));
        else
            ExpectEveryPrefixFailsOrLoadsWhole<Exciter_Settings>(examples.filePath(name));
    }
}

TEST(HostileInput, ControlCharactersAndBrokenUtf8AreXmlErrors) {
    // The WDE children, '|' between them. What XML 1.0 does not allow: control
    // characters raw and as character references, in text, names and
    // attributes; noncharacters; surrogates. Then bytes that are not UTF-8:
    // stray, overlong, cut short, an encoded surrogate, beyond U+10FFFF; in
    // text, names and attributes.
    static const char kForbidden[] =
        "<Mode>DE\x01T</Mode>|<Mode>DE\0T</Mode>|<M\x1bode>DET</M\x1bode>|"
        "<WDE_Exciter Name=\"a\x02z\"/>|<Mode>&#0;</Mode>|<Mode>&#x1F;</Mode>|"
        "<Mode>&#xFFFE;</Mode>|<Mode>&#xD800;</Mode>|<WDE_Exciter Name=\"&#x7;\"/>";
    const QList<QByteArray> notUtf8 =
        QByteArray(
            "<Mode>DE\xffT</Mode>|<Mode>\xc0\xaf</Mode>|<Mode>\xe2\x82</Mode>|<Mode>\xed\xa0\x80"
            "</Mode>|<Mode>\xf4\x90\x80\x80</Mode>|<M\xc3ode>DET</M\xc3ode>|<WDE_Exciter "
            "Name=\"\xfe\"/>")
            .split('|');
    QTemporaryDir dir;
    const QString path = dir.filePath("broken.xml");
    WDE wde;
    for (const QByteArray& children : QByteArray(kForbidden, sizeof kForbidden - 1).split('|')) {
        WriteFile(path, "<WDE>" + children + "</WDE>");
        const QString fromFile = ThrownMessage([&] { wde.LoadXml(path); });
        EXPECT_TRUE(fromFile.startsWith("XML error: ")) << fromFile.toStdString();
        EXPECT_TRUE(fromFile.contains("(line 1, column ")) << fromFile.toStdString();
    }
    for (const QByteArray& children : notUtf8) {
        WriteFile(path, "<WDE>" + children + "</WDE>");
        EXPECT_EQ(ThrownMessage([&] { wde.LoadXml(path); }).left(52),
                  "XML error: Encountered incorrectly encoded content. ");
    }
    EXPECT_TRUE(wde.GetExciterList().isEmpty());

    // A host that decodes broken bytes itself hands over U+FFFD, a character
    // like any other in values: the records take it, and say which value is
    // wrong. DEL and the C1 controls are allowed in XML 1.0 and load as they
    // are.
    TGN tgn;
    EXPECT_EQ(ThrownMessage([&] {
                  tgn.SetXmlString(
                      QString::fromUtf8("<TGN><TGNModulation>C\xffW</TGNModulation></TGN>"));
              }),
              QString("TGN: Unknown TGNModulation 'C%1W'").arg(QChar(0xFFFD)));
    wde.SetXmlString(QString::fromUtf8("<WDE><WDE_Exciter Name=\"a\x7f\xc2\x85z\"/></WDE>"));
    ASSERT_EQ(wde.GetExciterList().size(), 1);
    EXPECT_EQ(wde.GetExciterList()[0].GetItemName(),
              QString("a%1%2z").arg(QChar(0x7f)).arg(QChar(0x85)));
    ExpectUsable(wde, GoodWDE());
}

TEST(HostileInput, TextsStoredThroughSettersAlwaysWriteReadableDocuments) {
    // What a setter may store and what reads back from the written document:
    // characters that XML 1.0 cannot carry are left out, an unpaired
    // surrogate becomes '?', everything else comes back unchanged.
    const struct {
        QString stored;
        QString readBack;
    } texts[] = {
        {QString("a%1b").arg(QChar(0x01)), "ab"},
        {QString("a%1b").arg(QChar(0x00)), "ab"},
        {QString("a%1b").arg(QChar(0xFFFE)), "ab"},
        {QString("a%1b").arg(QChar(0xD800)), "a?b"},
        {QString("a%1b").arg(QChar(0xDC00)), "a?b"},
        {QString::fromUtf8("\xf0\x9f\x98\x80 \xc3\xa4\x7f\ttab"),
         QString::fromUtf8("\xf0\x9f\x98\x80 \xc3\xa4\x7f\ttab")},
    };
    QTemporaryDir dir;
    const QString path = dir.filePath("written.xml");
    for (const auto& text : texts) {
        SCOPED_TRACE(text.stored.toUtf8().toHex().toStdString());
        // In an attribute: the item name, through the text and file forms.
        WDE wde;
        WDE_Exciter exciter(0);
        exciter.SetItemName(text.stored);
        exciter.SetLevel(-1);
        wde.GetExciterList().append(exciter);
        WDE fromText = testsupport::ReadFrom<WDE>(wde.GetXmlString());
        ASSERT_EQ(fromText.GetExciterList().size(), 1);
        EXPECT_EQ(fromText.GetExciterList()[0].GetItemName(), text.readBack);
        EXPECT_EQ(fromText.GetExciterList()[0].GetLevel(), -1); // what follows is intact
        EXPECT_EQ(wde.GetXmlString(), fromText.GetXmlString()); // the text is what reads back
        ASSERT_NO_THROW(wde.SaveXml(path));
        EXPECT_EQ(testsupport::ReadFrom<WDE>(QString::fromUtf8(FileContents(path))).GetXmlString(),
                  fromText.GetXmlString());

        // In element text: a free text of the signal generator.
        TGN tgn = testfixtures::CompleteTGN();
        tgn.SetFMInput(text.stored);
        const TGN tgnBack = testsupport::ReadFrom<TGN>(tgn.GetXmlString());
        EXPECT_EQ(tgnBack.GetFMInput(), text.readBack);
        EXPECT_TRUE(tgnBack.HasData());
    }
}

TEST(HostileInput, AHundredMegabyteBase64FrequencyTextLoadsInBoundedTimeAndMemory) {
    // Three frequencies are 24 bytes, 32 Base64 characters without padding;
    // repeated to 100 MB of text, they are 9.375 million frequencies.
    const QVector<double> frequencies{433.05e6, -0.125, 2.4e9};
    const QByteArray unit = testsupport::LittleEndianBytes(frequencies).toBase64();
    ASSERT_EQ(unit.size(), 32);
    const int megabyte = 1000 * 1000;
    const QByteArray chunk = unit.repeated(megabyte / unit.size());
    QTemporaryDir dir;
    const QString path = dir.filePath("raster.xml");
    WriteFile(path, "<WDE_Rasterdetector Version=\"0.1\" Index=\"2\"><ChannelStep>25000"
                    "</ChannelStep><Frequency>" +
                        chunk.repeated(100) + "</Frequency></WDE_Rasterdetector>\n");

    // Above the default text limit, which a host raises for such a list.
    WDE_Rasterdetector raster;
    EXPECT_TRUE(ThrownMessage([&] {
                    raster.LoadXml(path);
                }).startsWith("Input limit exceeded: a text longer than 67108864"));
    InputLimits limits;
    limits.maxTextLength = 128 << 20;
    raster.SetInputLimits(limits);
    EXPECT_TRUE(BoundedOutcome(60, 2048, [&] { raster.LoadXml(path); }).isNull());
    const QVector<double>& list = raster.GetFrequencyList();
    ASSERT_EQ(list.size(), 100 * megabyte / 32 * 3);
    const int size = static_cast<int>(list.size());
    for (int i : {0, 1, 2, size - 3, size - 2, size - 1})
        EXPECT_EQ(list[i], frequencies[i % 3]) << i;
    EXPECT_EQ(raster.GetChannelStep(), 25000);
    EXPECT_EQ(raster.GetIndex(), 2);
    ExpectUsable(raster, "<WDE_Rasterdetector Index=\"4\"><ChannelStep>25000"
                         "</ChannelStep></WDE_Rasterdetector>");
}

TEST(HostileInput, ListsOfAMillionItemsLoadInBoundedTimeAndMemory) {
    WDE wde;
    const QString exciters = QString("<WDE_Exciter/>").repeated(kMillion);
    EXPECT_TRUE(LoadBounded(wde, Nested("WDE", "ExciterList", 1, exciters), 30, 2048).isNull());
    QVector<WDE_Exciter>& list = wde.GetExciterList(); // GetIndex() is not const
    ASSERT_EQ(list.size(), kMillion);
    EXPECT_EQ(list.first().GetIndex(), 0); // each item is numbered by its position
    EXPECT_EQ(list.last().GetIndex(), kMillion - 1);
    ExpectUsable(wde, GoodWDE());

    WDE_Simulation simulation;
    const QString frequencies = QString("<Frequency>-2.5</Frequency>").repeated(kMillion);
    EXPECT_TRUE(
        LoadBounded(simulation, Nested("WDE_Simulation", "FrequencyList", 1, frequencies), 30, 2048)
            .isNull());
    ASSERT_EQ(simulation.GetRelativeFrequencyList().size(), kMillion);
    EXPECT_EQ(simulation.GetRelativeFrequencyList().last(), -2.5);
    ExpectUsable(simulation, "<WDE_Simulation Index=\"1\"><FrequencyList><Frequency>"
                             "12.5</Frequency></FrequencyList></WDE_Simulation>");
}

// Each input limit ends the load where it is passed, from a file (which is
// never read further) and from a text alike, with a message that names it;
// the record stays usable. The limits are lowered so that the files stay
// small; the README gives the defaults and the worst cases measured.
TEST(HostileInput, EachInputLimitEndsTheLoadWhereItIsPassed) {
    InputLimits limits;
    limits.maxTextLength = 1 << 20;
    limits.maxNameLength = 64;
    limits.maxAttributes = 16;
    limits.maxDepth = 32;
    limits.maxNamespaceDeclarations = 3;
    const QByteArray large(2 << 20, 'x');
    QByteArray attributes;
    for (int i = 0; i < 20; ++i)
        attributes += " a" + QByteArray::number(i) + "=\"1\"";
    const struct {
        QByteArray document;
        const char* message;
    } cases[] = {
        {"<WDE>\n<Mode>" + large + "</Mode></WDE>",
         "a text longer than 1048576 characters (maxTextLength) (line 2, column "},
        {"<WDE><!--" + large + "--></WDE>", "a comment longer than 1048576 characters"},
        {"<WDE><![CDATA[" + large + "]]></WDE>", "a CDATA section longer than 1048576"},
        {"<WDE><?pi " + large + "?></WDE>", "a processing instruction longer than 1048576"},
        {"<WDE a=\"" + large + "\"/>", "an attribute value longer than 1048576"},
        {"<WDE/>\n<!--" + large + "-->", "a comment longer than 1048576"}, // after the root
        {"<WDE><" + QByteArray(100, 'n') + "/></WDE>",
         "a name longer than 64 characters (maxNameLength) (line 1, column 71)"},
        {"<WDE" + attributes + "/>", "an element with more than 16 attributes (maxAttributes)"},
        {QByteArray("<WDE>").repeated(40),
         "elements nested deeper than 32 levels (maxDepth) (line 1, column 162)"},
        {"<WDE" + QByteArray(2 << 20, ' ') + "/>", "the spaces of a start tag longer than 1048576"},
        // Qt looks up every prefixed name through the declarations in scope.
        {"<WDE xmlns:a=\"u\"><x xmlns:b=\"u\" xmlns=\"u\"/><y xmlns:c=\"u\" xmlns:d=\"u\"><z "
         "xmlns:e=\"u\"/>",
         "more than 3 namespace declarations in scope (maxNamespaceDeclarations) (line 1, "
         "column 82)"},
    };
    QTemporaryDir dir;
    const QString path = dir.filePath("hostile.xml");
    for (const auto& hostile : cases) {
        SCOPED_TRACE(hostile.message);
        WriteFile(path, hostile.document);
        WDE wde;
        wde.SetInputLimits(limits);
        const QString expected = QString("Input limit exceeded: ") + hostile.message;
        EXPECT_TRUE(BoundedOutcome(2, 1024, [&] { wde.LoadXml(path); }).startsWith(expected));
        EXPECT_TRUE(LoadBounded(wde, QString::fromUtf8(hostile.document), 2).startsWith(expected));
        ExpectUsable(wde, GoodWDE());
    }
    // A file in UTF-16 is measured in its characters, not its bytes.
    const QString deep = QString("<WDE>").repeated(31) + QString("</WDE>").repeated(31);
    WriteFile(path, "\xff\xfe" +
                        QByteArray(reinterpret_cast<const char*>(deep.utf16()), deep.size() * 2));
    WDE wde;
    wde.SetInputLimits(limits);
    EXPECT_NO_THROW(wde.LoadXml(path));
}

// A binary representation is measured before it is read or inflated: a
// compressed frame that declares more than the limit, one that declares
// little and inflates to far more (a bomb), a frame whose document declares
// gigabytes, and a file above the limit.
TEST(HostileInput, BinaryFramesAreBoundedBeforeTheyAreReadOrInflated) {
    InputLimits limits;
    limits.maxBinaryFrameSize = 1 << 20;
    const auto frame = [](quint32 magic, const std::function<void(QDataStream&)>& body) {
        QByteArray data;
        QDataStream out(&data, QIODevice::WriteOnly);
        out.setVersion(QDataStream::Qt_5_15);
        out << magic;
        body(out);
        return data;
    };
    const quint32 plain = 0x4B4D4F42, compressed = 0x4B4D4F5A;
    QByteArray bomb = qCompress(QByteArray(64 << 20, '\0')); // 64 MB in some 64 kB
    const QByteArray honest = frame(compressed, [&](QDataStream& out) { out << bomb; });
    bomb[0] = bomb[1] = bomb[2] = 0; // declares 232 bytes
    const QByteArray lying = frame(compressed, [&](QDataStream& out) { out << bomb; });
    const QByteArray huge = frame(plain, [](QDataStream& out) {
        out << quint16(1) << QString("WDE") << quint32(0xC0000000);
    });
    const struct {
        QByteArray data;
        const char* message;
    } cases[] = {
        {honest, "WDE: compressed binary representation declares 67108864 bytes, more than "
                 "1048576 (maxBinaryFrameSize)"},
        {lying, "WDE: compressed binary representation is corrupt"},
        {huge, "WDE: binary representation of 3221225472 bytes, more than 1048576 "
               "(maxBinaryFrameSize)"},
    };
    QTemporaryDir dir;
    const QString path = dir.filePath("frame.bin");
    for (const auto& hostile : cases) {
        WDE wde;
        wde.SetInputLimits(limits);
        EXPECT_EQ(BoundedOutcome(2, 1024, [&] { wde.SetBinaryRepresentation(hostile.data); }),
                  QLatin1String(hostile.message));
        ExpectUsable(wde, GoodWDE());
    }
    WriteFile(path, QByteArray(2 << 20, 'x'));
    WDE wde;
    wde.SetInputLimits(limits);
    EXPECT_TRUE(ThrownMessage([&] {
                    wde.LoadBinary(path);
                }).endsWith("2097152 bytes, more than 1048576 (maxBinaryFrameSize)"));
    // A device has no size to check first.
    EXPECT_EQ(BoundedOutcome(2, 1024, [&] { wde.LoadBinary("/dev/zero"); }),
              "Cannot read '/dev/zero': more than 1048576 bytes (maxBinaryFrameSize)");
}

#if !defined(__SANITIZE_ADDRESS__)
// Running out of memory inside the reader or a record ends the load with a
// KMException like any other failure. (The address space cannot be limited
// under AddressSanitizer, which reserves terabytes of it.)
TEST(HostileInput, RunningOutOfMemoryIsAKMException) {
    if (UnderValgrind())
        GTEST_SKIP() << "valgrind keeps its own books of memory";
    const QString document =
        Nested("WDE", "ExciterList", 1, QString("<WDE_Exciter/>").repeated(kMillion));
    rlimit previous{};
    getrlimit(RLIMIT_AS, &previous);
    const QRegularExpressionMatch size =
        QRegularExpression("VmSize:\\s*(\\d+) kB")
            .match(QString::fromLatin1(FileContents("/proc/self/status")));
    ASSERT_TRUE(size.hasMatch());
    rlimit lowered = previous;
    lowered.rlim_cur = (size.captured(1).toULongLong() + 64ULL * 1024) * 1024; // 64 MB more
    ASSERT_EQ(setrlimit(RLIMIT_AS, &lowered), 0);
    WDE wde;
    const QString message = Outcome([&] { wde.SetXmlString(document); });
    setrlimit(RLIMIT_AS, &previous);
    EXPECT_EQ(message, "WDE: out of memory while loading");
    ExpectUsable(wde, GoodWDE());
}
#endif
