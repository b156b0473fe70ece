// SPDX-License-Identifier: MIT
// The libFuzzer harness of every fuzz target. Each target is this file built
// with FUZZ_RECORD set to a record class and FUZZ_INPUT_XML (the bytes are a
// UTF-8 document for SetXmlString) or FUZZ_INPUT_BINARY (the bytes are a
// binary representation for SetBinaryRepresentation).
//
// Besides crashes, leaks and undefined behaviour (the sanitizers), the harness
// aborts, so that libFuzzer keeps the input, when
//  - anything but a KMException leaves a load, or anything leaves a write;
//  - a document that loaded is not a fixed point after one round trip: its
//    written text, read into a fresh record, must write the very same text;
//  - the binary forms of a record that loaded do not read back to the same
//    record;
//  - the lint disagrees with the load (an error finding exactly when the load
//    fails), or its two ways to the findings of a loaded record's own
//    document disagree: the short cut for an unchanged text and the full
//    comparison of the same document indented otherwise.
//
// Qt's XML reader is not instrumented, so libFuzzer sees no coverage change
// when a value's text changes, and the faults that hide in values (rounding
// onto an unset marker, characters a writer cannot write as they are) are
// rarely reached by byte mutations alone. The XML targets therefore have a
// custom mutator that, besides libFuzzer's own mutations, replaces the text of
// one leaf element or the value of one attribute as a whole by an edge value.
#include <ATTANTPath.h>
#include <Exciter_Settings.h>
#include <KMException.h>
#include <SCU.h>
#include <SettingsLint.h>
#include <TGN.h>
#include <WDE.h>
#include <WDE_Exciter.h>
#include <WDE_Rasterdetector.h>
#include <WDE_Simulation.h>
#include <WDE_Singlechanneldetector.h>

#include <QByteArray>
#include <QString>
#include <QXmlStreamReader>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#if !defined(FUZZ_RECORD) || (defined(FUZZ_INPUT_XML) == defined(FUZZ_INPUT_BINARY))
#error "Build with FUZZ_RECORD and one of FUZZ_INPUT_XML, FUZZ_INPUT_BINARY"
#endif

namespace {

using Record = KELMORA::FUZZ_RECORD;

// The text with every control character but the line feed shown as <U+XXXX>,
// so that a carriage return or a NUL cannot hide a difference in the report.
QString Visible(const QString& text) {
    QString shown;
    for (const QChar c : text) {
        if (c.unicode() < 0x20 && c != QLatin1Char('\n'))
            shown += QStringLiteral("<U+%1>").arg(c.unicode(), 4, 16, QLatin1Char('0'));
        else
            shown += c;
    }
    return shown;
}

[[noreturn]] void Fail(const char* what, const QString& details) {
    std::fprintf(stderr, "\n==fuzz_record== %s\n%s\n", what, Visible(details).toUtf8().constData());
    std::fflush(stderr);
    std::abort();
}

// Runs one load. True when it succeeded, false when it threw a KMException;
// any other exception is a finding.
template <typename Load> bool Loads(const char* stage, Load&& load) {
    try {
        load();
        return true;
    } catch (const KELMORA::KMException&) {
        return false;
    } catch (const KELMORA::KelmoraException& failure) {
        Fail(stage, QStringLiteral("a KelmoraException that is not a KMException escaped: ") +
                        failure.GetMessage());
    } catch (const std::exception& failure) {
        Fail(stage, QStringLiteral("a standard exception escaped: ") +
                        QString::fromLocal8Bit(failure.what()));
    } catch (...) {
        Fail(stage, QStringLiteral("an exception of an unknown type escaped"));
    }
}

// Writing a record never fails, whatever it holds.
template <typename Write> auto Written(const char* stage, Write&& write) -> decltype(write()) {
    try {
        return write();
    } catch (const KELMORA::KelmoraException& failure) {
        Fail(stage, QStringLiteral("writing threw: ") + failure.GetMessage());
    } catch (...) {
        Fail(stage, QStringLiteral("writing threw an exception that is not a KelmoraException"));
    }
}

bool HasRootElement(const QString& document) {
    QXmlStreamReader reader(document);
    return reader.readNextStartElement();
}

QString BothTexts(const QString& first, const QString& second) {
    int at = 0;
    while (at < first.size() && at < second.size() && first.at(at) == second.at(at))
        ++at;
    return QStringLiteral("--- first text (the loaded record written) ---\n%1\n"
                          "--- second text (that text read into a fresh record, written) ---\n%2\n"
                          "--- the texts differ from character %3 on ---")
        .arg(first, second, QString::number(at));
}

// A record that loaded, written, read back and written again, gives the same
// text both times.
//
// An incomplete guarded record (Exciter_Settings, TGN with HasData() false)
// loads but writes no element: its text is the XML declaration alone. Reading
// that into a fresh record must fail with a KMException (a document without a
// root element); the fresh record then stays in its reset state, which writes
// the declaration alone too, so the two texts are still identical. What is
// not allowed: a record that holds a complete set of values writing no
// element, or a written element that does not read back.
void CheckFixedPoint(const Record& loaded) {
    const QString first =
        Written("writing the loaded record", [&] { return loaded.GetXmlString(); });
    const bool hasElement = HasRootElement(first);
    if (!hasElement && loaded.HasData())
        Fail("a complete record wrote no element", first);

    Record fresh;
    QString readBackFailure;
    try {
        fresh.SetXmlString(first);
    } catch (const KELMORA::KMException& failure) {
        readBackFailure = failure.GetMessage();
    } catch (...) {
        Fail("reading the written text back",
             QStringLiteral("an exception other than KMException"));
    }
    if (hasElement && !readBackFailure.isNull())
        Fail("the written text does not read back",
             QStringLiteral("%1\n--- KMException ---\n%2").arg(first, readBackFailure));

    const QString second =
        Written("writing the fresh record", [&] { return fresh.GetXmlString(); });
    if (first != second)
        Fail("a loaded document is not a fixed point after one round trip",
             BothTexts(first, second));
}

#ifdef FUZZ_INPUT_BINARY
// The plain and the compressed binary form of a loaded record read back into
// a fresh record that writes the same XML.
void CheckBinaryForms(const Record& loaded) {
    const QString expected =
        Written("writing the loaded record", [&] { return loaded.GetXmlString(); });
    const bool hasElement = HasRootElement(expected);
    const QByteArray forms[] = {
        Written("writing the binary form",
                [&] { return loaded.GetBinaryRepresentationAsQByteArray(); }),
        Written("writing the compressed binary form",
                [&] { return loaded.GetCompressedBinaryRepresentationAsQByteArray(); }),
    };
    for (const QByteArray& form : forms) {
        Record fresh;
        const bool read =
            Loads("reading a written binary form", [&] { fresh.SetBinaryRepresentation(form); });
        if (read != hasElement)
            Fail(read ? "the binary form of a record without element read back"
                      : "the binary form of a loaded record does not read back",
                 expected);
        const QString again =
            Written("writing the fresh record", [&] { return fresh.GetXmlString(); });
        if (again != expected)
            Fail("the binary form does not read back to the same record",
                 BothTexts(expected, again));
    }
}
#endif

#ifdef FUZZ_INPUT_XML
// Texts at the edges of what the records hold and of what XML can carry.
const char* const kEdgeValues[] = {
    "",
    "-111111.11",
    "-111111.111",
    "-111111.109",
    "-111111.105",
    "-111111.115",
    "-111111",
    "-111111.1",
    "4294967295",
    "4294967296",
    "-2147483648",
    "2147483647",
    "2147483648",
    "-1",
    "0",
    "-0",
    "nan",
    "inf",
    "-inf",
    "1e308",
    "1e309",
    "4.9e-324",
    " 1 ",
    "1,5",
    "0x1F",
    "true",
    "false",
    "True",
    "&#13;",
    "a&#13;b",
    "&#13;&#10;",
    "&#xD;",
    "&#9;",
    "&#10;",
    "&#x85;",
    "&#x2028;",
    "&amp;",
    "&lt;&gt;",
    "&quot;",
    "<![CDATA[x]]>",
    "<!--c-->",
    "\xc3\xa9",
    "\xef\xbf\xbd",
    "AAAAAAAA8D8=",
    "AAAAAAAA+H8=",
    "AAAAAAAA8H8=",
    "AAAA",
    "=",
    "====",
    "SHORt",
};

// A random decimal number: sign, digits, fraction, exponent.
std::string RandomNumber(std::minstd_rand& random) {
    std::string text;
    if (random() % 2)
        text += '-';
    if (random() % 4 == 0) {
        text += "111111.1"; // next to the double marker
    } else {
        const int digits = 1 + static_cast<int>(random() % 12);
        for (int i = 0; i < digits; ++i)
            text += static_cast<char>('0' + random() % 10);
        text += '.';
    }
    const int decimals = static_cast<int>(random() % 6);
    for (int i = 0; i < decimals; ++i)
        text += static_cast<char>('0' + random() % 10);
    if (random() % 4 == 0)
        text += "e" + std::to_string(static_cast<int>(random() % 617) - 308);
    return text;
}

struct Span {
    std::size_t begin;
    std::size_t end;
};

// The texts of leaf elements (">text</") and the values of attributes.
std::vector<Span> ValueSpans(const std::uint8_t* data, std::size_t size) {
    std::vector<Span> spans;
    for (std::size_t i = 0; i + 1 < size; ++i) {
        if (data[i] == '>') {
            std::size_t end = i + 1;
            while (end < size && data[end] != '<')
                ++end;
            if (end + 1 < size && data[end + 1] == '/')
                spans.push_back({i + 1, end});
        } else if (data[i] == '=' && (data[i + 1] == '"' || data[i + 1] == '\'')) {
            std::size_t end = i + 2;
            while (end < size && data[end] != data[i + 1])
                ++end;
            if (end < size)
                spans.push_back({i + 2, end});
        }
    }
    return spans;
}
#endif

} // namespace

#ifdef FUZZ_INPUT_XML
extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t maxSize, unsigned int seed) {
    std::minstd_rand random(seed);
    if (random() % 3 != 0)
        return LLVMFuzzerMutate(data, size, maxSize);
    const std::vector<Span> spans = ValueSpans(data, size);
    if (spans.empty())
        return LLVMFuzzerMutate(data, size, maxSize);
    const Span span = spans[random() % spans.size()];
    const std::size_t choice = random() % (std::size(kEdgeValues) + 4);
    const std::string value =
        choice < std::size(kEdgeValues) ? kEdgeValues[choice] : RandomNumber(random);
    const std::size_t newSize = size - (span.end - span.begin) + value.size();
    if (newSize > maxSize)
        return LLVMFuzzerMutate(data, size, maxSize);
    std::memmove(data + span.begin + value.size(), data + span.end, size - span.end);
    std::copy(value.begin(), value.end(), data + span.begin); // no terminator: raw bytes
    return newSize;
}
#endif

#ifdef FUZZ_INPUT_XML
QString FindingsText(const QVector<KELMORA::LintFinding>& findings) {
    QString text;
    for (const KELMORA::LintFinding& finding : findings)
        text += QStringLiteral("%1 %2 [%3] %4\n")
                    .arg(finding.line)
                    .arg(finding.SeverityText(), finding.path, finding.message);
    return text;
}

void CheckLint(const QString& xml, bool loaded, const Record& record) {
    const auto lint = [](const QString& document) {
        QVector<KELMORA::LintFinding> findings;
        Record scratch;
        Loads("lint", [&] { findings = KELMORA::SettingsLint::LintXmlString(document, scratch); });
        return findings;
    };
    const QVector<KELMORA::LintFinding> findings = lint(xml);
    const bool error =
        !findings.isEmpty() && findings.first().severity == KELMORA::LintFinding::Error;
    if (error == loaded)
        Fail("lint", QStringLiteral("the load %1 but the lint found\n%2")
                         .arg(loaded ? QStringLiteral("succeeded") : QStringLiteral("failed"),
                              FindingsText(findings)));
    if (!loaded)
        return;
    const QString written = record.GetXmlString();
    if (!HasRootElement(written))
        return;
    const QString same = FindingsText(lint(written));
    const QString compared =
        FindingsText(lint(QString(written).replace(QLatin1String("    "), QLatin1String("\t"))));
    if (same != compared)
        Fail("lint",
             QStringLiteral("unchanged text:\n%1compared:\n%2in\n%3").arg(same, compared, written));
}
#endif

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const char* bytes = reinterpret_cast<const char*>(data);
    const int length = static_cast<int>(size);
    Record record;
#ifdef FUZZ_INPUT_XML
    const QString xml = QString::fromUtf8(bytes, length);
    const bool loaded = Loads("SetXmlString", [&] { record.SetXmlString(xml); });
    CheckLint(xml, loaded, record);
    if (!loaded)
        return 0;
#else
    const QByteArray binary(bytes, length);
    if (!Loads("SetBinaryRepresentation", [&] { record.SetBinaryRepresentation(binary); }))
        return 0;
    CheckBinaryForms(record);
#endif
    CheckFixedPoint(record);
    return 0;
}
