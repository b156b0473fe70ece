// SPDX-License-Identifier: MIT
// Writes the documents on which the builds against Qt 5 and Qt 6 are
// compared (CompareBuilds.cmake):
//
//   written/  the variants of every record kind (RecordVariants.h: optional
//             parts present and absent, items in every list, every mode)
//             with values drawn from a fixed-seed generator (every kind of
//             double, item names and free texts with characters that XML
//             cannot carry), saved as XML and as both binary forms by this
//             build's library;
//   given/    texts that no library wrote: the examples with their values
//             and attributes replaced by drawn texts (numbers in many forms,
//             texts no conversion accepts, damaged Base64, escaped
//             characters) and elements given twice.
//
// The drawing uses nothing of Qt but QByteArray's Base64 encoding, which is
// the same in both, so both builds draw the same values.
//
//   usage: exciter_settings_write_documents EXAMPLES_DIR OUT_DIR
#include "../RecordVariants.h"

#include <KMException.h>

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>
#include <random>
#include <regex>
#include <string>

namespace {

using namespace KELMORA;

class Draw {
public:
    explicit Draw(quint64 seed) : m_random(seed) {}

    quint64 Bits() { return m_random(); }
    int Below(int bound) { return static_cast<int>(m_random() % static_cast<quint64>(bound)); }
    bool OneIn(int chances) { return Below(chances) == 0; }
    template <typename T, size_t N> const T& Pick(const T (&choices)[N]) {
        return choices[Below(static_cast<int>(N))];
    }

    // Doubles of every kind that the number formats treat differently.
    double Double() {
        using L = std::numeric_limits<double>;
        static const double kSpecial[] = {0.0,
                                          -0.0,
                                          L::infinity(),
                                          -L::infinity(),
                                          L::quiet_NaN(),
                                          L::denorm_min(),
                                          L::max(),
                                          L::min(),
                                          IKMObject::InvalidDouble,
                                          1e21,
                                          1e-15,
                                          0.005,
                                          0.015,
                                          2.675,
                                          999999.5,
                                          9999995,
                                          4294967295.0,
                                          -2147483648.0};
        const double sign = OneIn(3) ? -1.0 : 1.0;
        switch (Below(6)) {
        case 0: {
            const quint64 bits = Bits();
            double value = 0;
            std::memcpy(&value, &bits, sizeof value);
            return value;
        }
        case 1:
            return sign * static_cast<double>(Below(2000000000));
        case 2: // a decimal with up to nine places
            return sign * static_cast<double>(Below(1000000000)) / std::pow(10.0, Below(10));
        case 3: // any magnitude
            return sign * (1 + static_cast<double>(Below(1000000)) / 1e6) *
                   std::pow(10.0, Below(80) - 40);
        case 4: // six significant digits and a five: ties of the six-digit format
            return sign * (static_cast<double>(Below(900000) + 100000) + 0.5) *
                   std::pow(10.0, Below(30) - 20);
        default:
            return Pick(kSpecial);
        }
    }

    // Printed in one of the forms that people and other programs write.
    std::string NumberText() {
        const std::vector<std::string>& odd = recordvariants::OddNumberTexts();
        if (OneIn(4))
            return odd[static_cast<size_t>(Below(static_cast<int>(odd.size())))];
        const double value = Double();
        char text[64];
        switch (Below(5)) {
        case 0: {
            const std::to_chars_result end = std::to_chars(text, text + sizeof text - 1, value);
            *end.ptr = '\0';
            break;
        }
        case 1:
            std::snprintf(text, sizeof text, "%.17g", value);
            break;
        case 2:
            std::snprintf(text, sizeof text, "%.6g", value);
            break;
        case 3:
            std::snprintf(text, sizeof text, "%.2f", std::fmod(value, 1e30));
            break;
        default:
            std::snprintf(text, sizeof text, "%.3e", value);
            break;
        }
        return text;
    }

    // Base64 of little-endian doubles, now and then damaged.
    std::string Base64List() {
        QByteArray bytes;
        for (int count = Below(6); count > 0; --count) {
            const double value = Double();
            bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
        }
        std::string text = bytes.toBase64().toStdString();
        static const char* const kDamage[] = {" ", "\n", "!", "=", "A", "-_", "==x", "&#x41;"};
        for (int count = OneIn(2) ? Below(3) : 0; count > 0; --count)
            text.insert(static_cast<size_t>(Below(static_cast<int>(text.size()) + 1)),
                        Pick(kDamage));
        return text;
    }

    // A name as escaped XML text: markup characters, white space and
    // character references that the reader resolves, letters beyond the
    // Basic Multilingual Plane.
    std::string EscapedText() {
        static const std::vector<std::string> kPieces = recordvariants::Split(
            "a|Z|9| |&amp;|&lt;|&gt;|&quot;|&apos;|&#9;|&#10;|&#13;|&#x20;|\t|\n|\xc3\xa9|"
            "\xe2\x82\xac|\xf0\x9f\x98\x80|\xc2\x85|\xe2\x80\xa8|&#x10FFFF;|]]&gt;");
        std::string text;
        for (int count = Below(8); count > 0; --count)
            text += kPieces[static_cast<size_t>(Below(static_cast<int>(kPieces.size())))];
        return text;
    }

    // A name as a setter receives it: anything UTF-16 can hold.
    QString RawText() {
        static const char16_t kUnits[] = {
            u'a', u'Z', u' ', u'&', u'<',   u'>',   u'"',   u'\'',  u'\t',  u'\n',  u'\r',  0x01,
            0x1F, 0x7F, 0x85, 0xE9, 0x2028, 0xFEFF, 0xFFFE, 0xFFFF, 0xD800, 0xDBFF, 0xDC00, 0xDFFF};
        QString text;
        for (int count = Below(10); count > 0; --count) {
            if (OneIn(5))
                text += QString::fromUtf8("\xf0\x9f\x98\x80");
            else
                text += QChar(Pick(kUnits));
        }
        return text;
    }

private:
    std::mt19937_64 m_random;
};

bool WriteBytes(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
}

// The variants' numbers and texts, drawn.
class DrawnValues : public recordvariants::Values {
public:
    explicit DrawnValues(Draw& draw) : m_draw(draw) {}
    double Number(int, int) const override { return m_draw.Double(); }
    int Integer(int, int) const override {
        return m_draw.OneIn(2) ? m_draw.Below(100) : static_cast<int>(m_draw.Bits());
    }
    unsigned int Count(int, int) const override { return static_cast<unsigned int>(m_draw.Bits()); }
    QString Text(int, int) const override { return m_draw.RawText(); }

private:
    Draw& m_draw;
};

// Replaces every match of `pattern` in `text` by what `replace` makes of it.
template <typename Replace>
std::string ReplaceEach(const std::string& text, const std::regex& pattern, Replace replace) {
    std::string out;
    auto from = text.cbegin();
    for (std::sregex_iterator match(text.cbegin(), text.cend(), pattern), end; match != end;
         ++match) {
        out.append(from, (*match)[0].first);
        from = (*match)[0].second;
        out += replace(*match);
    }
    out.append(from, text.cend());
    return out;
}

// The example with its attributes and values replaced by drawn texts (an
// enumeration or a flag is mostly kept, so that the rest of the document
// is read), now and then an element given twice.
std::string Variant(Draw& draw, const std::string& example) {
    // Attributes of the elements, not of the XML declaration.
    static const std::regex kAttribute(R"re(\b([A-Z]\w*)="([^"]*)")re");
    static const std::regex kValue(R"re((<(\w+)[^<>]*>)([^<>]*)(</\w+>))re");
    const std::string attributesDrawn =
        ReplaceEach(example, kAttribute, [&draw](const std::smatch& found) {
            if (draw.OneIn(4))
                return found.str();
            const std::string name = found.str(1);
            return name + "=\"" + (name == "Name" ? draw.EscapedText() : draw.NumberText()) + '"';
        });
    return ReplaceEach(attributesDrawn, kValue, [&draw](const std::smatch& found) {
        std::string text = found.str(3);
        const bool word = !text.empty() && std::isalpha(static_cast<unsigned char>(text[0]));
        if (found.str(2) == "Frequency" && draw.OneIn(2))
            text = draw.Base64List();
        else if (draw.OneIn(8))
            text = draw.EscapedText();
        else if (word ? draw.OneIn(4) : !draw.OneIn(4))
            text = draw.NumberText();
        const std::string value = found.str(1) + text + found.str(4);
        return draw.OneIn(10) ? value + value : value;
    });
}

int Fail(const QString& what) {
    std::fprintf(stderr, "write_documents: %s\n", what.toUtf8().constData());
    return 1;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3)
        return Fail(QStringLiteral("usage: exciter_settings_write_documents EXAMPLES_DIR OUT_DIR"));
    const QDir examples(QString::fromLocal8Bit(argv[1]));
    const QDir out(QString::fromLocal8Bit(argv[2]));
    if (!out.mkpath(QStringLiteral("written")) || !out.mkpath(QStringLiteral("given")))
        return Fail(QStringLiteral("cannot make the folders in %1").arg(out.path()));

    Draw draw(20261123);
    const DrawnValues values(draw);
    bool written = true;
    // 24 variants: every mode twice, each with and without its optional parts.
    for (int i = 0; i < 24; ++i) {
        recordvariants::ForEachRecord(values, i, [&](const QString& name, const IKMObject& record) {
            const QString base = out.filePath(QStringLiteral("written/") + name);
            try {
                record.SaveXml(base + QStringLiteral(".xml"));
            } catch (const KMException& failure) { // incomplete, or a required value drawn unset
                // Without the folder, which is not the same for both builds.
                const QString message =
                    QString(failure.GetMessage()).replace(out.path(), QStringLiteral("OUT"));
                written =
                    WriteBytes(base + QStringLiteral(".message"), message.toUtf8()) && written;
            }
            written = WriteBytes(base + QStringLiteral(".bin"),
                                 record.GetBinaryRepresentationAsQByteArray()) &&
                      WriteBytes(base + QStringLiteral(".binz"),
                                 record.GetCompressedBinaryRepresentationAsQByteArray()) &&
                      written;
        });
    }
    if (!written)
        return Fail(QStringLiteral("cannot write the documents in %1").arg(out.path()));

    constexpr int kVariants = 12;
    const QStringList names =
        examples.entryList({QStringLiteral("*.xml")}, QDir::Files, QDir::Name);
    for (const QString& name : names) {
        QFile file(examples.filePath(name));
        if (!file.open(QIODevice::ReadOnly))
            return Fail(QStringLiteral("cannot read %1").arg(file.fileName()));
        const std::string example = file.readAll().toStdString();
        for (int variant = 0; variant < kVariants; ++variant) {
            const QString path = out.filePath(QStringLiteral("given/%1-%2.xml")
                                                  .arg(QFileInfo(name).completeBaseName())
                                                  .arg(variant));
            if (!WriteBytes(path, QByteArray::fromStdString(Variant(draw, example))))
                return Fail(QStringLiteral("cannot write %1").arg(path));
        }
    }
    return 0;
}
