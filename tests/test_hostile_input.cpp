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

#include <QDir>
#include <QElapsedTimer>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QUrl>
#include <QtEndian>

#include <cstring>

#if __has_include(<valgrind/valgrind.h>)
#include <valgrind/valgrind.h>
#define EXCITERSETTINGS_UNDER_VALGRIND (RUNNING_ON_VALGRIND != 0)
#else
#define EXCITERSETTINGS_UNDER_VALGRIND false
#endif

using namespace KELMORA;
using testsupport::FileContents;

namespace {

const int kMillion = 1000000;

// The bounds catch a hang or a blow-up, not a slow machine. Valgrind runs
// the code some fifty times slower and keeps books of its own, so under it
// the time bounds stretch and memory is not checked.
bool UnderValgrind() {
    return EXCITERSETTINGS_UNDER_VALGRIND;
}

void ResetPeakMemory() {
    QFile refs(QStringLiteral("/proc/self/clear_refs"));
    if (refs.open(QIODevice::WriteOnly))
        refs.write("5");
}

// The peak resident set since ResetPeakMemory, in MiB; -1 where the system
// does not tell.
long PeakMemoryMiB() {
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return -1;
    const QRegularExpressionMatch match = QRegularExpression(QStringLiteral("VmHWM:\\s*(\\d+) kB"))
                                              .match(QString::fromLatin1(status.readAll()));
    return match.hasMatch() ? match.captured(1).toLong() / 1024 : -1;
}

// Runs the load and returns the KMException's message, or a null string
// when the load succeeded. Fails the test when it takes longer than
// `seconds` or its peak memory reaches `mebibytes`.
template <typename Load> QString BoundedOutcome(int seconds, long mebibytes, Load load) {
    QString message;
    ResetPeakMemory();
    QElapsedTimer timer;
    timer.start();
    try {
        load();
    } catch (const KMException& failure) {
        message = failure.GetMessage();
    }
    const qint64 elapsed = timer.elapsed();
    EXPECT_LT(elapsed, seconds * 1000LL * (UnderValgrind() ? 50 : 1));
    const long peak = PeakMemoryMiB();
    if (!UnderValgrind() && peak >= 0) {
        EXPECT_LT(peak, mebibytes);
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
    Record fresh;
    fresh.SetXmlString(good);
    EXPECT_EQ(record.GetXmlString(), fresh.GetXmlString());
}

QString Example(const QString& name) {
    return QDir(QStringLiteral(EXAMPLES_DIR)).filePath(name);
}

QString LookThrough() {
    return QString::fromUtf8(FileContents(Example(QStringLiteral("look_through.xml"))));
}

QString GoodWDE() {
    WDE wde = testfixtures::CompleteWDE();
    WDE_Exciter exciter(0);
    exciter.SetLevel(-3.5);
    wde.GetExciterList().append(exciter);
    return wde.GetXmlString();
}

QString GoodRasterdetector() {
    WDE_Rasterdetector raster(4);
    raster.SetChannelStep(25000);
    raster.SetFrequencyList({433.05e6, 434.79e6});
    return raster.GetXmlString();
}

QString GoodSimulation() {
    WDE_Simulation simulation(1);
    simulation.SetRelativeFrequencyList({-12.5, 12.5});
    return simulation.GetXmlString();
}

QString Text(const char* text) {
    return QString::fromLatin1(text);
}

// <root> and `depth` levels of <open> ... </close>, around `inner`.
QString Nested(const char* root, const QString& open, const QString& close, int depth,
               const QString& inner = QString()) {
    const QString rootName = Text(root);
    return QStringLiteral("<%1>").arg(rootName) + open.repeated(depth) + inner +
           close.repeated(depth) + QStringLiteral("</%1>").arg(rootName);
}

QString Nested(const char* root, const char* element, int depth, const QString& inner = QString()) {
    const QString name = Text(element);
    return Nested(root, QStringLiteral("<%1>").arg(name), QStringLiteral("</%1>").arg(name), depth,
                  inner);
}

void WriteFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    ASSERT_EQ(file.write(bytes), bytes.size());
}

} // namespace

TEST(HostileInput, AMillionLevelsOfNestingEndInAnErrorOrALoad) {
    const QString tooDeep = QStringLiteral("WDE: elements nested too deeply (line 1)");
    WDE wde;
    // Wrappers in wrappers: the element loop follows 32 levels, then stops,
    // whichever of the four list wrappers it meets.
    EXPECT_EQ(LoadBounded(wde, Nested("WDE", "ExciterList", kMillion)), tooDeep);
    EXPECT_EQ(
        LoadBounded(wde, Nested("WDE",
                                QStringLiteral("<SinglechanneldetectorList><RasterdetectorList>"
                                               "<ExciterList><SimulationList>"),
                                QStringLiteral("</SimulationList></ExciterList>"
                                               "</RasterdetectorList></SinglechanneldetectorList>"),
                                kMillion / 4)),
        tooDeep);
    // Items in items: an item passes over children it does not know, at
    // any depth, so only the outermost one is read.
    wde.Reset();
    EXPECT_TRUE(LoadBounded(wde, Nested("WDE", "WDE_Exciter", kMillion)).isNull());
    EXPECT_EQ(wde.GetExciterList().size(), 1);
    // Unknown elements in unknown elements, beside the record's values and
    // inside one of them.
    wde.Reset();
    EXPECT_TRUE(LoadBounded(wde, Nested("WDE", "Unknown", kMillion)).isNull());
    EXPECT_FALSE(wde.AnyData());
    EXPECT_TRUE(LoadBounded(wde, Nested("WDE", "Mode", 1,
                                        Nested("Unknown", "Unknown", kMillion) + Text("DET")))
                    .isNull());
    EXPECT_EQ(wde.GetMode(), WDE::MODE_DET);
    ExpectUsable(wde, GoodWDE());

    // The simulation item's own wrapper, alone and inside a WDE document.
    WDE_Simulation simulation;
    EXPECT_EQ(LoadBounded(simulation, Nested("WDE_Simulation", "FrequencyList", kMillion)),
              QStringLiteral("WDE_Simulation: elements nested too deeply (line 1)"));
    ExpectUsable(simulation, GoodSimulation());
    EXPECT_EQ(LoadBounded(wde, Nested("WDE", "SimulationList", 1,
                                      Nested("WDE_Simulation", "FrequencyList", kMillion))),
              QStringLiteral("WDE_Simulation: elements nested too deeply (line 1)"));
    EXPECT_TRUE(wde.GetSimulationList().isEmpty()); // an item that failed is not appended

    // The records that reject unknown children stop at the first level; a
    // WDE inside the root stops at its 32nd.
    SCU scu;
    EXPECT_EQ(LoadBounded(scu, Nested("SCU", "SCU", kMillion)),
              QStringLiteral("Unknown Tag 'SCU' in 'SCU'"));
    ExpectUsable(scu, testfixtures::CompleteSCU().GetXmlString());
    Exciter_Settings settings;
    EXPECT_EQ(LoadBounded(settings, QStringLiteral("<Exciter_Settings><ExciterMode>Look "
                                                   "Through</ExciterMode>") +
                                        Nested("WDE", "RasterdetectorList", kMillion) +
                                        QStringLiteral("</Exciter_Settings>")),
              tooDeep);
    ExpectUsable(settings, LookThrough());
}

TEST(HostileInput, DocumentTypeDeclarationsAreRefusedSoNoEntityIsEverExpanded) {
    const QString refused =
        QStringLiteral("XML error: document type declarations are not accepted (line %1)");
    WDE wde;
    // A billion laughs: ten levels of entities, each ten of the one below.
    QString laughs = QStringLiteral("<?xml version=\"1.0\"?>\n<!DOCTYPE WDE [\n"
                                    "<!ENTITY lol0 \"lol\">\n");
    for (int level = 1; level < 10; ++level)
        laughs += QStringLiteral("<!ENTITY lol%1 \"%2\">\n")
                      .arg(level)
                      .arg(QStringLiteral("&lol%1;").arg(level - 1).repeated(10));
    laughs += QStringLiteral("]>\n<WDE><Mode>&lol9;</Mode></WDE>\n");
    EXPECT_EQ(LoadBounded(wde, laughs, 2, 256), refused.arg(13)); // where the declaration ends
    // Quadratic blow-up: one entity below any per-entity limit, used a
    // hundred thousand times.
    const QString blowUp =
        QStringLiteral("<!DOCTYPE WDE [<!ENTITY a \"%1\">]><WDE><Mode>%2</Mode></WDE>")
            .arg(QString(4000, QLatin1Char('a')), QStringLiteral("&a;").repeated(100000));
    EXPECT_EQ(LoadBounded(wde, blowUp, 2, 256), refused.arg(1));
    EXPECT_EQ(LoadBounded(wde, QStringLiteral("<!DOCTYPE WDE>\n<WDE/>")), refused.arg(1));

    // External entities naming a local file: refused, and the file's content
    // shows up nowhere: not in the record, not in what it writes, not in the
    // message.
    QTemporaryDir dir;
    const QString secretPath = dir.filePath(QStringLiteral("secret.txt"));
    const QByteArray secret = "DETX-SECRET-7f3a";
    WriteFile(secretPath, secret);
    const QString url = QUrl::fromLocalFile(secretPath).toString();
    const QString external[] = {
        QStringLiteral("<!DOCTYPE WDE [<!ENTITY x SYSTEM \"%1\">]>\n"
                       "<WDE><Mode>&x;</Mode><ExciterList><WDE_Exciter>"
                       "<SignalType>&x;</SignalType></WDE_Exciter></ExciterList></WDE>")
            .arg(url),
        QStringLiteral("<!DOCTYPE WDE SYSTEM \"%1\">\n<WDE><Mode>&x;</Mode></WDE>").arg(url),
        QStringLiteral("<!DOCTYPE WDE [<!ENTITY % p SYSTEM \"%1\"> %p;]>\n<WDE/>").arg(url),
    };
    const QString documentPath = dir.filePath(QStringLiteral("settings.xml"));
    for (const QString& document : external) {
        SCOPED_TRACE(document.toStdString());
        const QString fromText = LoadBounded(wde, document);
        WriteFile(documentPath, document.toUtf8());
        const QString fromFile = BoundedOutcome(2, 256, [&] { wde.LoadXml(documentPath); });
        for (const QString& message : {fromText, fromFile}) {
            EXPECT_EQ(message, refused.arg(1));
            EXPECT_FALSE(message.contains(QString::fromLatin1(secret)));
        }
        EXPECT_FALSE(wde.GetXmlString().contains(QString::fromLatin1(secret)));
        EXPECT_FALSE(wde.GetBinaryRepresentationAsQByteArray().contains(secret));
    }
    ExpectUsable(wde, GoodWDE());
}

namespace {

// Loads every prefix of the file, through the text and the file
// operations: each is an XML error until the root element is complete, and
// from there on the record reads exactly what the whole file gives.
template <typename Record> void ExpectEveryPrefixFailsOrLoadsWhole(const QString& path) {
    const QByteArray whole = FileContents(path);
    Record reference;
    reference.LoadXml(path);
    const QString expected = reference.GetXmlString();
    const int rootEnd = whole.lastIndexOf('>') + 1;
    QTemporaryDir dir;
    Record record;
    for (int length = 0; length <= whole.size(); ++length) {
        const QByteArray prefix = whole.left(length);
        // A new file each time: truncating one file over and over makes the
        // file system flush it on every close, which is slow.
        const QString cut = dir.filePath(QStringLiteral("cut%1.xml").arg(length));
        WriteFile(cut, prefix);
        const std::function<void()> loads[] = {
            [&] { record.SetXmlString(QString::fromUtf8(prefix)); },
            [&] { record.LoadXml(cut); },
        };
        for (const auto& load : loads) {
            record.Reset();
            QString message;
            try {
                load();
            } catch (const KMException& failure) {
                message = failure.GetMessage();
            }
            if (length < rootEnd) {
                EXPECT_TRUE(message.startsWith(QStringLiteral("XML error: ")))
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
    const QStringList examples =
        QDir(QStringLiteral(EXAMPLES_DIR)).entryList({QStringLiteral("*.xml")}, QDir::Files);
    ASSERT_TRUE(examples.contains(QStringLiteral("look_through.xml")));
    for (const QString& name : examples) {
        if (name.startsWith(QStringLiteral("attantpath")))
            ExpectEveryPrefixFailsOrLoadsWhole<ATTANTPath>(Example(name));
        else
            ExpectEveryPrefixFailsOrLoadsWhole<Exciter_Settings>(Example(name));
    }
}

TEST(HostileInput, ControlCharactersAndBrokenUtf8AreXmlErrors) {
    // What XML 1.0 does not allow: control characters raw and as character
    // references, in text, names and attributes; noncharacters; surrogates.
    const QByteArray forbidden[] = {
        QByteArray("<WDE><Mode>DE\x01T</Mode></WDE>"),
        QByteArray("<WDE><Mode>DE\0T</Mode></WDE>", 27),
        QByteArray("<WDE><Mo\x1b"
                   "de>DET</Mo\x1b"
                   "de></WDE>"),
        QByteArray("<WDE><WDE_Exciter Name=\"a\x02"
                   "b\"/></WDE>"),
        QByteArray("<WDE><Mode>&#1;</Mode></WDE>"),
        QByteArray("<WDE><Mode>&#0;</Mode></WDE>"),
        QByteArray("<WDE><Mode>&#x1F;</Mode></WDE>"),
        QByteArray("<WDE><Mode>&#xFFFE;</Mode></WDE>"),
        QByteArray("<WDE><Mode>&#xD800;</Mode></WDE>"),
        QByteArray("<WDE><WDE_Exciter Name=\"&#x7;\"/></WDE>"),
    };
    // Bytes that are not UTF-8: stray, overlong, cut short, an encoded
    // surrogate, beyond U+10FFFF; in text, names and attributes.
    const QByteArray notUtf8[] = {
        QByteArray("<WDE><Mode>DE\xff"
                   "T</Mode></WDE>"),
        QByteArray("<WDE><Mode>\xc0\xaf</Mode></WDE>"),
        QByteArray("<WDE><Mode>\xe2\x82</Mode></WDE>"),
        QByteArray("<WDE><Mode>\xed\xa0\x80</Mode></WDE>"),
        QByteArray("<WDE><Mode>\xf4\x90\x80\x80</Mode></WDE>"),
        QByteArray("<WDE><Mo\xc3"
                   "de>DET</Mo\xc3"
                   "de></WDE>"),
        QByteArray("<WDE><WDE_Exciter Name=\"\xfe\"/></WDE>"),
    };
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("broken.xml"));
    WDE wde;
    for (const QByteArray& document : forbidden) {
        WriteFile(path, document);
        const QString fromFile = testsupport::ThrownMessage([&] { wde.LoadXml(path); });
        EXPECT_TRUE(fromFile.startsWith(QStringLiteral("XML error: "))) << fromFile.toStdString();
        EXPECT_TRUE(fromFile.contains(QStringLiteral("(line 1, column ")))
            << fromFile.toStdString();
        // Text handed over by the host meets the same rules.
        const QString fromText = testsupport::ThrownMessage(
            [&] { wde.SetXmlString(QString::fromUtf8(document.constData(), document.size())); });
        EXPECT_TRUE(fromText.startsWith(QStringLiteral("XML error: "))) << fromText.toStdString();
    }
    for (const QByteArray& document : notUtf8) {
        WriteFile(path, document);
        EXPECT_EQ(testsupport::ThrownMessage([&] { wde.LoadXml(path); }).left(52),
                  QStringLiteral("XML error: Encountered incorrectly encoded content. "));
    }
    EXPECT_TRUE(wde.GetExciterList().isEmpty());
    ExpectUsable(wde, GoodWDE());

    // A host that decodes broken bytes itself hands over U+FFFD, which is
    // not allowed in names but is a character like any other in values: the
    // records take it, and those that check their values say which one is
    // wrong (the root's mode the way it reports any unknown mode).
    const QChar replacement(0xFFFD);
    TGN tgn;
    EXPECT_EQ(testsupport::ThrownMessage([&] {
                  tgn.SetXmlString(
                      QString::fromUtf8("<TGN><TGNModulation>C\xffW</TGNModulation></TGN>"));
              }),
              QStringLiteral("TGN: Unknown TGNModulation 'C%1W'").arg(replacement));
    Exciter_Settings settings;
    EXPECT_EQ(testsupport::ThrownMessage([&] {
                  settings.SetXmlString(
                      QString::fromUtf8("<Exciter_Settings><ExciterMode>Look "
                                        "Thr\xffugh</ExciterMode></Exciter_Settings>"));
              }),
              QStringLiteral("Exciter_Settings: Invalid TaskType '-1'"));
    EXPECT_TRUE(testsupport::ThrownMessage([&] {
                    settings.SetXmlString(QString::fromUtf8(
                        "<Exciter_Settings><Exciter\xffMode/></Exciter_Settings>"));
                }).startsWith(QStringLiteral("XML error: Invalid XML name.")));
    wde.Reset();
    wde.SetXmlString(QString::fromUtf8("<WDE><Mode>DE\xffT</Mode></WDE>"));
    EXPECT_EQ(wde.GetMode(), static_cast<WDE::Mode>(-1));
    // DEL and the C1 controls are allowed in XML 1.0 and load as they are.
    wde.SetXmlString(QString::fromUtf8("<WDE><WDE_Exciter Name=\"a\x7f\xc2\x85"
                                       "b\"/></WDE>"));
    ASSERT_EQ(wde.GetExciterList().size(), 1);
    EXPECT_EQ(wde.GetExciterList()[0].GetItemName(),
              QStringLiteral("a%1%2b").arg(QChar(0x7f)).arg(QChar(0x85)));
    ExpectUsable(settings, LookThrough());
}

TEST(HostileInput, TextsStoredThroughSettersAlwaysWriteReadableDocuments) {
    // What a setter may store and what reads back from the written document:
    // characters that XML 1.0 cannot carry are left out, an unpaired
    // surrogate becomes '?', everything else comes back unchanged.
    const struct {
        QString stored;
        QString readBack;
    } texts[] = {
        {QStringLiteral("a%1b").arg(QChar(0x01)), QStringLiteral("ab")},
        {QStringLiteral("a%1b").arg(QChar(0x00)), QStringLiteral("ab")},
        {QStringLiteral("a%1b").arg(QChar(0x1f)), QStringLiteral("ab")},
        {QStringLiteral("a%1b").arg(QChar(0xFFFE)), QStringLiteral("ab")},
        {QStringLiteral("a%1b").arg(QChar(0xFFFF)), QStringLiteral("ab")},
        {QStringLiteral("a%1b").arg(QChar(0xD800)), QStringLiteral("a?b")},
        {QStringLiteral("a%1b").arg(QChar(0xDC00)), QStringLiteral("a?b")},
        {QStringLiteral("a%1%2b").arg(QChar(0xDC00)).arg(QChar(0xD800)), QStringLiteral("a??b")},
        {QStringLiteral("a%1").arg(QChar(0xD83D)), QStringLiteral("a?")},
        {QString::fromUtf8("\xf0\x9f\x98\x80 \xc3\xa4\x7f\ttab"),
         QString::fromUtf8("\xf0\x9f\x98\x80 \xc3\xa4\x7f\ttab")},
    };
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("written.xml"));
    for (const auto& text : texts) {
        SCOPED_TRACE(text.stored.toUtf8().toHex().toStdString());
        // In an attribute: the item name, through the text and file forms.
        WDE wde;
        WDE_Exciter exciter(0);
        exciter.SetItemName(text.stored);
        exciter.SetLevel(-1);
        wde.GetExciterList().append(exciter);
        WDE fromText;
        ASSERT_NO_THROW(fromText.SetXmlString(wde.GetXmlString()));
        ASSERT_EQ(fromText.GetExciterList().size(), 1);
        EXPECT_EQ(fromText.GetExciterList()[0].GetItemName(), text.readBack);
        EXPECT_EQ(fromText.GetExciterList()[0].GetLevel(), -1); // what follows is intact
        ASSERT_NO_THROW(wde.SaveXml(path));
        WDE fromFile;
        ASSERT_NO_THROW(fromFile.LoadXml(path));
        EXPECT_EQ(fromFile.GetXmlString(), fromText.GetXmlString());

        // In element text: a free text of the signal generator.
        TGN tgn = testfixtures::CompleteTGN();
        tgn.SetFMInput(text.stored);
        TGN tgnBack;
        ASSERT_NO_THROW(tgnBack.SetXmlString(tgn.GetXmlString()));
        EXPECT_EQ(tgnBack.GetFMInput(), text.readBack);
        EXPECT_TRUE(tgnBack.HasData());
    }
}

TEST(HostileInput, AHundredMegabyteBase64FrequencyTextLoadsInBoundedTimeAndMemory) {
    // Three frequencies are 24 bytes, 32 Base64 characters without padding;
    // repeated to 100 MB of text, they are 9.375 million frequencies.
    const double frequencies[] = {433.05e6, -0.125, 2.4e9};
    QByteArray bytes;
    for (const double frequency : frequencies) {
        quint64 bits = 0;
        std::memcpy(&bits, &frequency, sizeof bits);
        char littleEndian[sizeof bits];
        qToLittleEndian<quint64>(bits, littleEndian);
        bytes.append(littleEndian, sizeof littleEndian);
    }
    const QByteArray unit = bytes.toBase64();
    ASSERT_EQ(unit.size(), 32);
    const int megabyte = 1000 * 1000;
    const QByteArray chunk = unit.repeated(megabyte / unit.size());
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("raster.xml"));
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(
            "<WDE_Rasterdetector Version=\"0.1\" Index=\"2\"><ChannelStep>25000</ChannelStep>"
            "<Frequency>");
        for (int i = 0; i < 100; ++i)
            ASSERT_EQ(file.write(chunk), chunk.size());
        file.write("</Frequency></WDE_Rasterdetector>\n");
    }

    WDE_Rasterdetector raster;
    EXPECT_TRUE(BoundedOutcome(60, 2048, [&] { raster.LoadXml(path); }).isNull());
    const QVector<double>& list = raster.GetFrequencyList();
    ASSERT_EQ(list.size(), 100 * megabyte / 32 * 3);
    for (int i : {0, 1, 2, list.size() - 3, list.size() - 2, list.size() - 1})
        EXPECT_EQ(list[i], frequencies[i % 3]) << i;
    EXPECT_EQ(raster.GetChannelStep(), 25000);
    EXPECT_EQ(raster.GetIndex(), 2);
    ExpectUsable(raster, GoodRasterdetector());
}

TEST(HostileInput, ListsOfAMillionItemsLoadInBoundedTimeAndMemory) {
    WDE wde;
    const QString items =
        Nested("WDE", "ExciterList", 1, QStringLiteral("<WDE_Exciter/>").repeated(kMillion));
    EXPECT_TRUE(LoadBounded(wde, items, 30, 2048).isNull());
    QVector<WDE_Exciter>& exciters = wde.GetExciterList(); // GetIndex() is not const
    ASSERT_EQ(exciters.size(), kMillion);
    EXPECT_EQ(exciters.first().GetIndex(), 0); // each item is numbered by its position
    EXPECT_EQ(exciters.last().GetIndex(), kMillion - 1);
    ExpectUsable(wde, GoodWDE());

    WDE_Simulation simulation;
    const QString frequencies =
        Nested("WDE_Simulation", "FrequencyList", 1,
               QStringLiteral("<Frequency>-2.5</Frequency>").repeated(kMillion));
    EXPECT_TRUE(LoadBounded(simulation, frequencies, 30, 2048).isNull());
    ASSERT_EQ(simulation.GetRelativeFrequencyList().size(), kMillion);
    EXPECT_EQ(simulation.GetRelativeFrequencyList().last(), -2.5);
    ExpectUsable(simulation, GoodSimulation());
}
