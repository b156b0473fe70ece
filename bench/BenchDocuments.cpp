// SPDX-License-Identifier: MIT
#include "BenchDocuments.h"

#include <QDomDocument>
#include <QHash>
#include <QTextStream>
#include <Utf8TextStream.h>

#include <stdexcept>

namespace bench {

using namespace KELMORA;

namespace {

constexpr int kRasterFrequencies = 64;
constexpr int kSimulationFrequencies = 16;

// Items get a label every other position, as installations name some and
// leave others anonymous.
QString ItemName(const char* kind, int index) {
    return index % 2 == 0 ? QStringLiteral("%1 %2").arg(QLatin1String(kind)).arg(index) : QString();
}

WDE_Singlechanneldetector MakeSinglechanneldetector(int index) {
    WDE_Singlechanneldetector detector(index);
    detector.SetItemName(ItemName("Channel", index));
    detector.SetFrequency(30e6 + 12500.0 * index);
    detector.SetBandwidth(index % 3 == 0 ? 12500 : 25000);
    detector.SetMinimumFixedFrequencyLength(0.002 * (1 + index % 5));
    detector.SetExicterSet(static_cast<unsigned int>(index % 8));
    detector.SetActive(index % 4 != 3);
    detector.SetAbsoluteThresholdValue(-95.5 + index % 20);
    return detector;
}

WDE_Rasterdetector MakeRasterdetector(int index) {
    WDE_Rasterdetector raster(index);
    raster.SetItemName(ItemName("Raster", index));
    raster.SetChannelStep(25000);
    raster.SetMinimumFixedFrequencyLength(0.02);
    raster.SetExicterSet(static_cast<unsigned int>(index % 8));
    raster.SetActive(true);
    raster.SetAmplifier(static_cast<WDE_Rasterdetector::Amplifier>(index % 5));
    raster.SetThresholdMode(WDE_Rasterdetector::THRESHOLDMODE_RELATIVE);
    raster.SetRelativeThresholdValue(6 + index % 4);
    raster.SetRelativeThresholdAvgTime(WDE_Rasterdetector::AVGTIME_MIDDLE);
    QVector<double> frequencies;
    frequencies.reserve(kRasterFrequencies);
    for (int k = 0; k < kRasterFrequencies; ++k)
        frequencies.append(100e6 + 1e5 * index + 25000.0 * k + 0.5 * (k % 3));
    raster.SetFrequencyList(frequencies);
    return raster;
}

WDE_Exciter MakeExciter(int index) {
    WDE_Exciter exciter(index);
    exciter.SetItemName(ItemName("Exciter", index));
    exciter.SetSignalType(static_cast<WDE_Exciter::SignalType>(index % 3));
    exciter.SetSymbolRate(1200.0 * (1 + index % 8));
    if (index % 3 == 1)
        exciter.SetFrequencyShift(4800);
    exciter.SetLevel(-20.5 + index % 10);
    return exciter;
}

WDE_Simulation MakeSimulation(int index) {
    WDE_Simulation simulation(index);
    simulation.SetItemName(ItemName("Simulation", index));
    simulation.SetActive(index % 2 == 0);
    simulation.SetType(static_cast<WDE_Simulation::SimulationType>(index % 2));
    simulation.SetExciterSet(static_cast<unsigned int>(index % 8));
    simulation.SetPNStartValue(static_cast<unsigned int>(1 + index % 511));
    simulation.SetRelativeCenterFrequency(0.25 + 0.001 * (index % 100));
    simulation.SetChannelCount(kSimulationFrequencies);
    simulation.SetHopWidth(0.0125);
    for (int k = 0; k < kSimulationFrequencies; ++k)
        simulation.AppendRelativeFrequency(-0.5 + 0.0625 * k + 0.0001 * (index % 50));
    return simulation;
}

SCU MakeSCU() {
    ATTANTPath path;
    path.SetATT1(true);
    path.SetATT2(false);
    path.SetATT3(false);
    path.SetATT4(true);
    path.SetATT5(false);
    path.SetATT6(false);
    SCU scu;
    scu.SetFrequency(433.92e6);
    scu.SetFrequencyMinMax(20e6, 3e9);
    scu.SetTransmitTime(12);
    scu.SetATTANTPath(path);
    return scu;
}

TGN MakeTGN() {
    TGN tgn;
    tgn.SetFrequency(433.92e6);
    tgn.SetFrequencyMinMax(20e6, 3e9);
    tgn.SetBandwidth(25000);
    tgn.SetPower(12.5);
    tgn.SetLevelSettingsMode(QStringLiteral("auto"));
    tgn.SetReference(QStringLiteral("intern"));
    tgn.SetTGNModulation(QStringLiteral("CW"));
    return tgn;
}

void WalkDom(const QDomElement& element, qint64& checksum) {
    QDomElement child = element.firstChildElement();
    if (child.isNull()) {
        checksum += element.text().size();
        return;
    }
    for (; !child.isNull(); child = child.nextSiblingElement())
        WalkDom(child, checksum);
}

qint64 WalkDomDocument(const QDomDocument& document) {
    qint64 checksum = 0;
    WalkDom(document.documentElement(), checksum);
    return checksum;
}

[[noreturn]] void ThrowParseError(const QString& message, int line) {
    throw std::runtime_error(
        QStringLiteral("QDom: %1 (line %2)").arg(message).arg(line).toStdString());
}

QDomDocument BuildDom(const QVector<WriteStep>& steps) {
    QDomDocument document;
    document.appendChild(document.createProcessingInstruction(
        QStringLiteral("xml"), QStringLiteral("version=\"1.0\" encoding=\"UTF-8\"")));
    QVector<QDomNode> open{document};
    for (const WriteStep& step : steps) {
        switch (step.kind) {
        case WriteStep::StartElement: {
            QDomElement element = document.createElement(step.name);
            for (const QXmlStreamAttribute& attribute : step.attributes)
                element.setAttribute(attribute.name().toString(), attribute.value().toString());
            open.last().appendChild(element);
            open.append(element);
            break;
        }
        case WriteStep::TextElement: {
            QDomElement element = document.createElement(step.name);
            element.appendChild(document.createTextNode(step.text));
            open.last().appendChild(element);
            break;
        }
        case WriteStep::Characters:
            open.last().appendChild(document.createTextNode(step.text));
            break;
        case WriteStep::EndElement:
            open.removeLast();
            break;
        }
    }
    return document;
}

} // namespace

Exciter_Settings MakeSettings(int items) {
    WDE wde;
    wde.SetFrequency(433.92e6);
    wde.SetBandwidth(200e3);
    wde.SetMode(WDE::MODE_DETX);
    wde.SetEmissiondetectorMode(WDE::EMISSIONDETECTORMODE_LOOP);
    wde.SetEmissiondetectorDelay(0.002);
    wde.SetEmissiondetectorAveraging(WDE::EMISSIONDETECTORAVERAGING_SHORT);
    wde.SetExciterCount(2);
    wde.SetExciterPulseLength(0.01);
    wde.SetExciterRXDelay(2e-6);
    wde.SetExciterTXDelay(3e-6);
    wde.SetGuardTime(0.001);
    wde.SetAttenuation(WDE::ATTENUATION_ON);
    wde.SetAttenuationValue(10);
    wde.SetGainCtrl(WDE::GAINCTRL_MGC);
    wde.SetMGCValue(12.5);
    const int perList = items / 4;
    for (int i = 0; i < perList; ++i) {
        wde.GetSinglechanneldetectorList().append(MakeSinglechanneldetector(i));
        wde.GetRasterdetectorList().append(MakeRasterdetector(i));
        wde.GetExciterList().append(MakeExciter(i));
        wde.GetSimulationList().append(MakeSimulation(i));
    }

    Exciter_Settings settings;
    settings.SetExciterMode(QStringLiteral("Look Through"));
    settings.SetTGN(MakeTGN());
    settings.SetSCU(MakeSCU());
    settings.SetWDE(wde);
    return settings;
}

QVector<WriteStep> StepsOf(const QString& document) {
    // Names and attribute texts repeat: each is kept once and shared, and
    // nothing refers to the reader's buffers, so that the steps take little
    // memory and the bare writer is as quick as it can be.
    QHash<QString, QString> shared;
    auto share = [&shared](QStringView text) {
        const QString copy = text.toString();
        auto known = shared.constFind(copy);
        return known != shared.constEnd() ? *known : *shared.insert(copy, copy);
    };
    QVector<WriteStep> steps;
    struct Open {
        int step;
        bool hasChild;
        qint64 startOffset;
    };
    QVector<Open> open;
    QString text;
    QXmlStreamReader reader(document);
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement: {
            if (!open.isEmpty())
                open.last().hasChild = true;
            WriteStep step{WriteStep::StartElement, share(reader.name()), {}, QString()};
            for (const QXmlStreamAttribute& attribute : reader.attributes())
                step.attributes.append(share(attribute.qualifiedName()), share(attribute.value()));
            steps.append(step);
            open.append({static_cast<int>(steps.size()) - 1, false, reader.characterOffset()});
            text.clear();
            break;
        }
        case QXmlStreamReader::Characters:
            if (!reader.isWhitespace())
                text += reader.text();
            break;
        case QXmlStreamReader::EndElement: {
            const Open element = open.takeLast();
            // A leaf written as <X/> ends where it starts; <X></X> and <X>text</X>
            // were written with text, possibly empty.
            if (!element.hasChild && reader.characterOffset() != element.startOffset) {
                WriteStep& start = steps[element.step];
                const QString exact(text.constData(), text.size());
                if (start.attributes.isEmpty()) {
                    start.kind = WriteStep::TextElement;
                    start.text = exact;
                    break;
                }
                steps.append({WriteStep::Characters, QString(), {}, exact});
            }
            steps.append({WriteStep::EndElement, QString(), {}, QString()});
            break;
        }
        default:
            break;
        }
    }
    if (reader.hasError())
        throw std::runtime_error(reader.errorString().toStdString());
    return steps;
}

qint64 WalkReader(QXmlStreamReader& reader) {
    qint64 checksum = 0;
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::Characters && !reader.isWhitespace()) {
            // The cheapest way to a QString of the text: it shares the reader's
            // buffer until the next token.
            const QString text = reader.text().toString();
            checksum += text.size();
        }
    }
    if (reader.hasError())
        throw std::runtime_error(reader.errorString().toStdString());
    return checksum;
}

void WriteSteps(QXmlStreamWriter& writer, const QVector<WriteStep>& steps) {
    writer.setAutoFormatting(true);
    writer.writeStartDocument();
    for (const WriteStep& step : steps) {
        switch (step.kind) {
        case WriteStep::StartElement:
            writer.writeStartElement(step.name);
            writer.writeAttributes(step.attributes);
            break;
        case WriteStep::TextElement:
            writer.writeTextElement(step.name, step.text);
            break;
        case WriteStep::Characters:
            writer.writeCharacters(step.text);
            break;
        case WriteStep::EndElement:
            writer.writeEndElement();
            break;
        }
    }
    writer.writeEndDocument();
}

qint64 LoadWithDom(QDomDocument& dom, const QString& document) {
    QString message;
    int line = 0;
    if (!dom.setContent(document, &message, &line))
        ThrowParseError(message, line);
    return WalkDomDocument(dom);
}

qint64 LoadWithDom(QDomDocument& dom, QIODevice& device) {
    QString message;
    int line = 0;
    if (!dom.setContent(&device, &message, &line))
        ThrowParseError(message, line);
    return WalkDomDocument(dom);
}

QString SaveWithDom(const QVector<WriteStep>& steps) {
    return BuildDom(steps).toString(4);
}

void SaveWithDom(const QVector<WriteStep>& steps, QIODevice& device) {
    QTextStream stream(&device);
    KELMORA::SetUtf8(stream);
    BuildDom(steps).save(stream, 4);
}

} // namespace bench
