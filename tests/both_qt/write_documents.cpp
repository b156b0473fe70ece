// SPDX-License-Identifier: MIT
// Writes the documents on which the builds against Qt 5 and Qt 6 are
// compared (CompareBuilds.cmake):
//
//   written/  settings trees filled through the setters with values drawn
//             from a fixed-seed generator (every kind of double, item names
//             with characters that XML cannot carry), saved as XML and as
//             both binary forms by this build's library;
//   given/    texts that no library wrote: the examples with their values
//             and attributes replaced by drawn texts (numbers in many forms,
//             texts no conversion accepts, damaged Base64, escaped
//             characters) and elements given twice.
//
// The drawing uses nothing of Qt, so both builds draw the same values.
//
//   usage: exciter_settings_write_documents EXAMPLES_DIR OUT_DIR
#include <Exciter_Settings.h>
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
        static const double kSpecial[] = {0.0,
                                          -0.0,
                                          std::numeric_limits<double>::infinity(),
                                          -std::numeric_limits<double>::infinity(),
                                          std::numeric_limits<double>::quiet_NaN(),
                                          std::numeric_limits<double>::denorm_min(),
                                          std::numeric_limits<double>::max(),
                                          std::numeric_limits<double>::min(),
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
        static const char* const kOdd[] = {" 12",         "12 ",
                                           "+12",         "0x10",
                                           "1e400",       "-1e400",
                                           "1e-400",      "4.9e-324",
                                           "inf",         "-inf",
                                           "nan",         "NaN",
                                           "1,5",         ".5",
                                           "5.",          "1e",
                                           "-0",          "00.10",
                                           "007",         "",
                                           "   ",         "1 2",
                                           "\xd9\xa1",    "\xef\xbc\x91",
                                           "4294967295",  "4294967296",
                                           "-1",          "2147483648",
                                           "-2147483649", "true",
                                           "1.5E+3",      "-111111.11",
                                           "-111111",     "123456789012345678901234567890.5"};
        if (OneIn(4))
            return Pick(kOdd);
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
        static const char kAlphabet[] =
            "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
        std::string bytes;
        for (int count = Below(6); count > 0; --count) {
            const double value = Double();
            char raw[sizeof value];
            std::memcpy(raw, &value, sizeof value);
            bytes.append(raw, sizeof raw);
        }
        std::string text;
        for (size_t i = 0; i < bytes.size(); i += 3) {
            quint32 group = 0;
            const size_t take = std::min<size_t>(3, bytes.size() - i);
            for (size_t k = 0; k < 3; ++k)
                group = group << 8 | (k < take ? static_cast<unsigned char>(bytes[i + k]) : 0u);
            for (size_t k = 0; k < 4; ++k)
                text += k <= take ? kAlphabet[group >> (18 - 6 * k) & 63] : '=';
        }
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
        static const char* const kPieces[] = {"a",
                                              "Z",
                                              "9",
                                              " ",
                                              "&amp;",
                                              "&lt;",
                                              "&gt;",
                                              "&quot;",
                                              "&apos;",
                                              "&#9;",
                                              "&#10;",
                                              "&#13;",
                                              "&#x20;",
                                              "\t",
                                              "\n",
                                              "\xc3\xa9",
                                              "\xe2\x82\xac",
                                              "\xf0\x9f\x98\x80",
                                              "\xc2\x85",
                                              "\xe2\x80\xa8",
                                              "&#x10FFFF;",
                                              "]]&gt;"};
        std::string text;
        for (int count = Below(8); count > 0; --count)
            text += Pick(kPieces);
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

template <typename Item> void NameItem(Draw& draw, Item& item, int index) {
    item.SetIndex(draw.OneIn(8) ? static_cast<int>(draw.Bits()) : index);
    if (!draw.OneIn(3))
        item.SetItemName(draw.RawText());
}

QVector<double> Doubles(Draw& draw) {
    QVector<double> values;
    for (int count = draw.Below(8); count > 0; --count)
        values.append(draw.Double());
    return values;
}

void FillWDE(Draw& draw, WDE& wde) {
    wde.SetFrequency(draw.Double());
    wde.SetBandwidth(draw.Double());
    wde.SetMode(static_cast<WDE::Mode>(draw.Below(6)));
    wde.SetEmissiondetectorMode(static_cast<WDE::EmissiondetectorMode>(draw.Below(2)));
    wde.SetEmissiondetectorDelay(draw.Double());
    wde.SetEmissiondetectorAveraging(static_cast<WDE::EmissiondetectorAveraging>(draw.Below(4)));
    wde.SetExciterCount(static_cast<unsigned int>(draw.Bits()));
    wde.SetExciterPulseLength(draw.Double());
    wde.SetExciterRXDelay(draw.Double());
    wde.SetExciterTXDelay(draw.Double());
    wde.SetGuardTime(draw.Double());
    wde.SetAttenuation(static_cast<WDE::AttenuationType>(draw.Below(2)));
    wde.SetAttenuationMode(static_cast<WDE::AttenuationModeType>(draw.Below(3)));
    wde.SetAttenuationValue(draw.Double());
    wde.SetGainCtrl(static_cast<WDE::GainCtrlType>(draw.Below(2)));
    wde.SetAGCValue(static_cast<WDE::AGCValueType>(draw.Below(3)));
    wde.SetMGCValue(draw.Double());
    for (int i = draw.Below(3); i > 0; --i) {
        WDE_Singlechanneldetector item(i);
        NameItem(draw, item, i);
        item.SetFrequency(draw.Double());
        item.SetBandwidth(draw.Double());
        item.SetMinimumFixedFrequencyLength(draw.Double());
        item.SetExicterSet(static_cast<unsigned int>(draw.Bits()));
        item.SetActive(draw.OneIn(2));
        item.SetAbsoluteThresholdValue(draw.Double());
        wde.GetSinglechanneldetectorList().append(item);
    }
    for (int i = draw.Below(3); i > 0; --i) {
        WDE_Rasterdetector item(i);
        NameItem(draw, item, i);
        item.SetChannelStep(draw.Double());
        item.SetMinimumFixedFrequencyLength(draw.Double());
        item.SetExicterSet(static_cast<unsigned int>(draw.Bits()));
        item.SetActive(draw.OneIn(2));
        item.SetAmplifier(static_cast<WDE_Rasterdetector::Amplifier>(draw.Below(5)));
        item.SetThresholdMode(static_cast<WDE_Rasterdetector::ThresholdMode>(draw.Below(2)));
        item.SetAbsoluteThresholdValue(draw.Double());
        item.SetRelativeThresholdValue(draw.Double());
        item.SetRelativeThresholdAvgTime(static_cast<WDE_Rasterdetector::AvgTime>(draw.Below(3)));
        item.SetFrequencyList(Doubles(draw));
        wde.GetRasterdetectorList().append(item);
    }
    for (int i = draw.Below(3); i > 0; --i) {
        WDE_Exciter item(i);
        NameItem(draw, item, i);
        item.SetSignalType(static_cast<WDE_Exciter::SignalType>(draw.Below(3)));
        item.SetSymbolRate(draw.Double());
        item.SetFrequencyShift(draw.Double());
        item.SetLevel(draw.Double());
        wde.GetExciterList().append(item);
    }
    for (int i = draw.Below(3); i > 0; --i) {
        WDE_Simulation item(i);
        NameItem(draw, item, i);
        item.SetActive(draw.OneIn(2));
        item.SetType(static_cast<WDE_Simulation::SimulationType>(draw.Below(2)));
        item.SetExciterSet(static_cast<unsigned int>(draw.Bits()));
        item.SetPNStartValue(static_cast<unsigned int>(draw.Bits()));
        item.SetRelativeCenterFrequency(draw.Double());
        item.SetChannelCount(static_cast<unsigned int>(draw.Bits()));
        item.SetHopWidth(draw.Double());
        item.SetRelativeFrequencyList(Doubles(draw));
        wde.GetSimulationList().append(item);
    }
}

Exciter_Settings FilledSettings(Draw& draw, int mode) {
    Exciter_Settings settings;
    settings.SetExciterMode(static_cast<Exciter_Settings::ExciterModeType>(mode));
    settings.SetAutostart(draw.OneIn(2));
    TGN& tgn = settings.GetTGN();
    tgn.SetFrequency(draw.Double());
    tgn.SetFrequencyMinMax(draw.Double(), draw.Double());
    tgn.SetBandwidth(draw.Double());
    if (!draw.OneIn(3))
        tgn.SetBandwidthMinMax(draw.Double(), draw.Double());
    tgn.SetPower(draw.Double());
    tgn.SetLevelSettingsMode(tgn.GetLevelSettingsModes().value(
        draw.Below(static_cast<int>(tgn.GetLevelSettingsModes().size()))));
    tgn.SetReference(
        tgn.GetReferences().value(draw.Below(static_cast<int>(tgn.GetReferences().size()))));
    tgn.SetTGNModulation(tgn.GetTGNModulations().value(
        draw.Below(static_cast<int>(tgn.GetTGNModulations().size()))));
    for (auto set : {&TGN::SetTone, &TGN::SetToneStart, &TGN::SetToneStop, &TGN::SetSweepDwellTime,
                     &TGN::SetFMDeviation}) {
        if (!draw.OneIn(3))
            (tgn.*set)(draw.Double());
    }
    tgn.SetAMDepth(static_cast<int>(draw.Bits()));
    tgn.SetNoiseLevel(static_cast<int>(draw.Bits()));
    tgn.SetSweepActive(draw.OneIn(2));
    tgn.SetIQModulationState(draw.OneIn(2));
    tgn.SetIQModulationSource(static_cast<TGN::IQSources>(draw.Below(2)));
    tgn.SetBBINState(draw.OneIn(2));
    tgn.SetSweepSpacing(draw.RawText());
    tgn.SetFMCoupling(draw.RawText());
    tgn.SetFMInput(draw.RawText());
    ScanParameter& scan = tgn.GetScanParameter();
    scan.SetStartFrequency(draw.Double());
    scan.SetStopFrequency(draw.Double());
    scan.SetStepWidth(draw.Double());
    scan.SetDwellTime(draw.Double());
    SCU& scu = settings.GetSCU();
    scu.SetFrequency(draw.Double());
    scu.SetFrequencyMinMax(draw.Double(), draw.Double());
    scu.SetTransmitTime(draw.Double());
    for (auto set : {&ATTANTPath::SetATT1, &ATTANTPath::SetATT2, &ATTANTPath::SetATT3,
                     &ATTANTPath::SetATT4, &ATTANTPath::SetATT5, &ATTANTPath::SetATT6})
        (scu.GetATTANTPath().*set)(draw.OneIn(2));
    FillWDE(draw, settings.GetWDE());
    return settings;
}

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
    constexpr int kModes = 12;
    for (int document = 0; document < 3 * kModes; ++document) {
        const Exciter_Settings settings = FilledSettings(draw, document % kModes);
        const QString base = out.filePath(QStringLiteral("written/settings-%1").arg(document));
        try {
            settings.SaveXml(base + QStringLiteral(".xml"));
        } catch (const KMException& failure) { // a required value drawn unset
            WriteBytes(base + QStringLiteral(".message"), failure.GetMessage().toUtf8());
        }
        if (!WriteBytes(base + QStringLiteral(".bin"),
                        settings.GetBinaryRepresentationAsQByteArray()) ||
            !WriteBytes(base + QStringLiteral(".binz"),
                        settings.GetCompressedBinaryRepresentationAsQByteArray()))
            return Fail(QStringLiteral("cannot write %1").arg(base));
    }

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
