// SPDX-License-Identifier: MIT
// The short cuts that make loading and saving fast must give exactly what
// Qt's general routines give: number texts, the Base64 list codec, element
// texts read without a copy, and documents written straight into a QString.
#include "DoubleListCodec.h"
#include "ElementText.h"
#include "NumberText.h"
#include "RecordFixtures.h"
#include "RecordFormat.h"
#include "RecordVariants.h"
#include "TestSupport.h"

#include <QDir>
#include <QTemporaryDir>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>

using namespace KELMORA;
using testsupport::LittleEndianBytes;

namespace {

bool SameBits(double a, double b) {
    quint64 aBits = 0, bBits = 0;
    std::memcpy(&aBits, &a, sizeof a);
    std::memcpy(&bBits, &b, sizeof b);
    return aBits == bBits;
}

// Values where a six-digit formatter goes wrong first: ties (which Qt rounds
// away from zero), carries into a new digit, the edges of the plain and
// exponent forms and of the short cut's range, and the values that are not
// numbers at all; then log-uniform magnitudes across the short cut's range
// and beyond, and values a few units of the last place from six-digit ties.
std::vector<double> DifficultValues() {
    using L = std::numeric_limits<double>;
    std::vector<double> values{
        0.0,      -0.0,     L::quiet_NaN(), L::infinity(), -L::infinity(), L::denorm_min(),
        L::min(), L::max(), Unset::Double,  4294967295.0,  1234565,        1000005,
        100000.5, 999999.5, 9999995,        0.1234565,     2.5e-5,         9.999995e-5,
        1e-5,     0.0001,   99999.95,       123456.5,      1.5e6,          433.92e6};
    for (int exponent = -17; exponent <= 23; ++exponent) {
        const double power = std::pow(10.0, exponent);
        for (double value : {power, 999999.5 * power / 1e6, 1.000005 * power})
            values.insert(values.end(), {value, std::nextafter(value, 0.0),
                                         std::nextafter(value, 1e300), -value});
    }
    std::mt19937_64 random(20240917);
    std::uniform_real_distribution<double> decade(-17.0, 23.0);
    for (int i = 0; i < 20000; ++i) {
        const double value = std::pow(10.0, decade(random));
        const double tie =
            (100000 + double(random() % 900000) + 0.5) * std::pow(10.0, int(random() % 36) - 20);
        values.insert(values.end(), {i % 2 ? value : -value, tie, std::nextafter(tie, 0.0),
                                     std::nextafter(tie, 1e300)});
    }
    return values;
}

// GetTextValue is protected; the tests reach it through a record of their own.
struct TextProbe : IKMObject {
    static QString Text(QXmlStreamReader& reader) { return GetTextValue(reader); }
};

// Positions a reader on the first <v> element of the document.
void OpenValue(QXmlStreamReader& reader) {
    while (!reader.atEnd() && !(reader.isStartElement() && reader.name() == QLatin1String("v")))
        reader.readNext();
}

} // namespace

TEST(NumberText, FormatsAndParsesExactlyAsQt) {
    for (const double value : DifficultValues()) {
        const QString expected = QString::number(value, 'g', 6);
        ASSERT_EQ(NumberText::GeneralSix(value), expected) << value;
        for (const QString& text :
             {expected, QString::number(value, 'g', 17), QString::number(value, 'f', 4),
              QString::number(value, 'E', 9)}) {
            ASSERT_TRUE(SameBits(NumberText::ToDouble(text), text.toDouble()))
                << text.toStdString();
        }
    }

    // Texts outside the plain forms go to QString's own conversions, which
    // decide what blanks, signs, words and out-of-range values give.
    for (const std::string& odd : recordvariants::OddNumberTexts()) {
        const QString text = QString::fromStdString(odd);
        const QStringView ref(text);
        EXPECT_TRUE(SameBits(NumberText::ToDouble(text), text.toDouble())) << odd;
        EXPECT_TRUE(SameBits(NumberText::ToDouble(ref), text.toDouble())) << odd;
        EXPECT_EQ(NumberText::ToInt(text), text.toInt(nullptr, 10)) << odd;
        EXPECT_EQ(NumberText::ToInt(ref), text.toInt(nullptr, 10)) << odd;
        EXPECT_EQ(NumberText::ToUnsigned(text), text.toUInt(nullptr, 10)) << odd;
        EXPECT_EQ(NumberText::ToUnsigned(ref), text.toUInt(nullptr, 10)) << odd;
    }
}

TEST(DoubleListCodec, MatchesQByteArrayBase64BothWays) {
    std::mt19937_64 random(7);
    for (int count = 0; count <= 20; ++count) {
        QVector<double> values(count);
        for (double& value : values) {
            const quint64 bits = random();
            std::memcpy(&value, &bits, sizeof value);
        }
        const QString text = DoubleListCodec::Encode(values);
        ASSERT_EQ(text, QString::fromLatin1(LittleEndianBytes(values).toBase64())) << count;

        // Whatever the text holds besides the alphabet is passed over, as
        // QByteArray::fromBase64 of its UTF-8 bytes passes it over.
        for (const QString& variant :
             {text, text + "AB", QString(text).remove(QLatin1Char('=')),
              QString(text).insert(text.size() / 2, " \n\t=é€😀\xE9"),
              QString(text).insert(1, QChar(0xD800)), text.left(text.size() * 2 / 3)}) {
            const QByteArray decoded = QByteArray::fromBase64(variant.toUtf8());
            ASSERT_EQ(LittleEndianBytes(DoubleListCodec::Decode(variant)),
                      decoded.left(decoded.size() / 8 * 8))
                << variant.toStdString();
        }
    }
}

TEST(ElementText, ReadsWhatGetTextValueReads) {
    QString list; // 1600 characters: longer than the text kept on the stack
    for (int i = 0; i < 200; ++i)
        list += QString("AAAAAAAA8D8=").left(i % 2 ? 12 : 11);
    // The last two: the document ends inside the element, or breaks there.
    for (const char* element :
         {"<v>1.5</v>", "<v/>", "<v></v>", "<v> 2.5 </v>", "<v>1<!-- a comment -->5</v>",
          "<v>1<?pi x?>7</v>", "<v>4<w>9<x/></w>2</v>", "<v><![CDATA[7.25]]></v>", "<v>1&#48;0</v>",
          "<v>tr&#117;e</v>", "<v>true</v>", "<v>4294967295</v>", "<v>AAAAAAAA8D8AAAAAAAAAQA==</v>",
          "<v>AAAAAAAA<!-- - -->8D8=</v>", "<v>LIST</v>", "<v>LIST<!---->AAAAAAAAAEA=</v>",
          "<v>2.5", "<v>2.5</w>"}) {
        SCOPED_TRACE(element);
        const QString document =
            QString("<r>%1<next/></r>").arg(QString::fromLatin1(element)).replace("LIST", list);
        QXmlStreamReader expected(document);
        OpenValue(expected);
        QString text;
        bool cutOff = false;
        try {
            text = TextProbe::Text(expected);
        } catch (const KMException&) {
            // The document breaks off inside the element: nothing of it is a value.
            cutOff = true;
        }
        if (cutOff) {
            QXmlStreamReader reader(document);
            OpenValue(reader);
            EXPECT_THROW(ElementText::ToDouble(reader), KMException);
            continue;
        }
        auto readAgain = [&](auto read) {
            QXmlStreamReader reader(document);
            OpenValue(reader);
            const auto value = read(reader);
            // The reader is left where GetTextValue leaves it.
            EXPECT_EQ(reader.tokenType(), expected.tokenType());
            EXPECT_EQ(reader.characterOffset(), expected.characterOffset());
            EXPECT_EQ(reader.hasError(), expected.hasError());
            return value;
        };
        const double number = readAgain(ElementText::ToDouble);
        const QVector<double> values = readAgain(ElementText::ToDoubleList);
        EXPECT_TRUE(SameBits(number, RecordFormat::ToDouble(text)));
        EXPECT_EQ(readAgain(ElementText::ToUnsigned), RecordFormat::ToUnsigned(text));
        EXPECT_EQ(readAgain(ElementText::IsTrue), RecordFormat::IsTrue(text));
        EXPECT_EQ(LittleEndianBytes(values), LittleEndianBytes(DoubleListCodec::Decode(text)));
    }
}

TEST(DocumentText, IsWhatTheUtf8WriterWrites) {
    // The document as a UTF-8 writer on a device writes it.
    const auto utf8Document = [](const IKMObject& record) {
        QByteArray document;
        QXmlStreamWriter writer(&document);
        writer.setAutoFormatting(true);
        writer.writeStartDocument();
        record.GetXml(writer);
        writer.writeEndDocument();
        return document;
    };
    // A record that writes nothing still gives the declaration.
    EXPECT_EQ(ATTANTPath().GetXmlString(), QString::fromUtf8(utf8Document(ATTANTPath())));

    // Escapes, text beyond Latin-1, and characters outside the BMP (not a
    // lone surrogate: the UTF-8 writer drops what follows one). SaveXml
    // encodes the document in pieces of a million characters and never
    // splits a surrogate pair between two: with and without one character
    // in front, the pairs of a name that spans the first boundary fall on
    // both sides of it.
    QTemporaryDir dir;
    const QString path = dir.filePath("wde.xml");
    for (const QString& front : {QString(), QString("x")}) {
        WDE wde = testfixtures::CompleteWDE();
        for (const QString& name :
             {QString("Ä<&>\"' \t ü€ end"),
              front + QString::fromUtf8("\xf0\x9f\x98\x80").repeated(600000)}) {
            WDE_Exciter exciter(wde.GetExciterList().size());
            exciter.SetItemName(name);
            wde.GetExciterList().append(exciter);
        }
        const QByteArray reference = utf8Document(wde);
        EXPECT_TRUE(wde.GetXmlString() == QString::fromUtf8(reference));
        wde.SaveXml(path);
        EXPECT_TRUE(testsupport::FileContents(path) == reference);
    }
}

TEST(DocumentText, LargeTextsReadAsTheReaderReadsAQString) {
    WDE wde = testfixtures::CompleteWDE();
    for (int i = 0; i < 300; ++i) {
        WDE_Exciter exciter(i);
        exciter.SetItemName(QString("Sender é %1").arg(i));
        wde.GetExciterList().append(exciter);
    }
    const QString written = wde.GetXmlString();
    const QString body = written.mid(written.indexOf("?>") + 2);
    ASSERT_GT(body.size(), 16384);

    // A QString is Unicode already: whatever encoding its declaration names,
    // and whether it has a declaration or a byte order mark, it reads the same.
    for (const QString& text :
         {written, body, QChar(0xFEFF) + written,
          R"(<?xml version="1.0" encoding="ISO-8859-1"?>)" + body,
          R"(<?xml version="1.0" encoding = 'utf-8' standalone="yes"?>)" + body,
          R"(<?xml version="1.0" encoding="UTF-16"?>)" + body}) {
        SCOPED_TRACE(text.left(60).toStdString());
        WDE read;
        read.SetXmlString(text);
        EXPECT_EQ(read.GetXmlString(), written);
    }

    // A failure far into a large text is reported where the reader finds it.
    QString broken = written;
    broken.replace(broken.lastIndexOf("</WDE_Exciter>"), 14, "</WDE_Exciters>");
    QXmlStreamReader reference(broken);
    while (!reference.atEnd())
        reference.readNext();
    ASSERT_TRUE(reference.hasError());
    WDE read;
    EXPECT_EQ(testsupport::ThrownMessage([&] { read.SetXmlString(broken); }),
              QString("XML error: %1 (line %2, column %3)")
                  .arg(reference.errorString())
                  .arg(reference.lineNumber())
                  .arg(reference.columnNumber()));
    EXPECT_EQ(read.GetFailureLine(), reference.lineNumber());
}

TEST(ItemsReadInPlace, AnItemThatFailsToReadLeavesItsListAsItWas) {
    WDE wde;
    wde.SetXmlString("<WDE><ExciterList><WDE_Exciter Name=\"kept\"/></ExciterList>"
                     "</WDE>");
    const QVector<WDE_Exciter> before = wde.GetExciterList();

    // An XML error inside the second exciter, after its level was read.
    EXPECT_TRUE(testsupport::ThrownMessage([&] {
                    wde.SetXmlString("<WDE><GuardTime>4</GuardTime><WDE_Exciter><Level>-3</Level>"
                                     "<SymbolRate>1</Level></WDE_Exciter></WDE>");
                }).startsWith("XML error: "));
    EXPECT_EQ(wde.GetGuardTime(), 4.0); // read before the failure, kept
    ASSERT_EQ(wde.GetExciterList().size(), 1);
    EXPECT_EQ(wde.GetExciterList()[0].GetItemName(), "kept");
    EXPECT_EQ(wde.GetExciterList()[0].GetLevel(), before[0].GetLevel());

    // Items keep the version text they are read with, shared or not: none
    // without the attribute, an empty one with an empty attribute.
    const auto read = [](const char* element) {
        return testsupport::ReadFrom<WDE_Exciter>(QString::fromLatin1(element)).GetVersion();
    };
    EXPECT_TRUE(read("<WDE_Exciter/>").isNull());
    const QString empty = read("<WDE_Exciter Version=\"\"/>");
    EXPECT_TRUE(empty.isEmpty() && !empty.isNull());
}

TEST(DocumentText, SaveXmlReportsARecordWithoutSettingsFirst) {
    QTemporaryDir dir;
    const QString file = dir.filePath("path.xml");
    testfixtures::CompletePath().SaveXml(file);
    const QByteArray saved = testsupport::FileContents(file);

    // Nothing to save counts before a file that cannot be written, and a
    // validating save checks first. The file stays, and no temporary file is
    // left behind.
    for (const QString& target : {file, dir.filePath("no/such/folder/path.xml")})
        EXPECT_EQ(testsupport::ThrownMessage([&] { ATTANTPath().SaveXml(target); }),
                  QString("Cannot save '%1': ATTANTPath holds no complete settings").arg(target));
    WDE invalid;
    invalid.SetValidate(true);
    EXPECT_EQ(testsupport::ThrownMessage([&] { invalid.SaveXml(file); }),
              "Frequency: Please set Value!");
    EXPECT_EQ(testsupport::FileContents(file), saved);
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files), QStringList{"path.xml"});
}
