// SPDX-License-Identifier: MIT
#include "TGN.h"

#include "ElementNames.h"
#include "EnumTable.h"
#include "ItemAttributes.h"
#include "RecordFormat.h"
#include "RecordMessages.h"
#include "TextElement.h"
#include "ValueNotes.h"

namespace KELMORA {

namespace {

const QString kObjectName = QStringLiteral("TGN");
const QString kDefaultVersion = QStringLiteral("1.0");

const QString kPower = QStringLiteral("Power");
const QString kLevelSettingsMode = QStringLiteral("LevelSettingsMode");
const QString kReference = QStringLiteral("Reference");
const QString kTGNModulation = QStringLiteral("TGNModulation");
const QString kTone = QStringLiteral("Tone");
const QString kToneStop = QStringLiteral("ToneStop");
const QString kToneStart = QStringLiteral("ToneStart");
const QString kAMDepth = QStringLiteral("AMDepth");
const QString kSweepActive = QStringLiteral("SweepActive");
const QString kSweepSpacing = QStringLiteral("SweepSpacing");
const QString kSweepDwellTime = QStringLiteral("SweepDwellTime");
const QString kFMCoupling = QStringLiteral("FMCoupling");
const QString kFMInput = QStringLiteral("FMInput");
const QString kFMDeviation = QStringLiteral("FMDeviation");
const QString kNoiseLevel = QStringLiteral("NoiseLevel");
const QString kIQModulationState = QStringLiteral("IQModulationState");
const QString kIQModulationSource = QStringLiteral("IQModulationSource");
const QString kBBINState = QStringLiteral("BBINState");

const QStringList kLevelSettingsModes = {QStringLiteral("auto"), QStringLiteral("fix")};
const QStringList kReferences = {QStringLiteral("intern"), QStringLiteral("extern")};
const QStringList kTGNModulations = {QStringLiteral("CW"),         QStringLiteral("FM int"),
                                     QStringLiteral("AM int"),     QStringLiteral("FM AFsweep"),
                                     QStringLiteral("AM AFsweep"), QStringLiteral("FM ext"),
                                     QStringLiteral("AM ext"),     QStringLiteral("NOISE")};

const EnumTable kIQSources{{TGN::ANALOG, "ANALOG"}, {TGN::BASEBAND, "BASEBAND"}};
const ValueNotes::Registration kIQSourceNote{kObjectName, kIQModulationSource,
                                             ValueNotes::Kind::Enumeration, &kIQSources};

bool IsSet(double value) {
    return value != Unset::Double;
}
bool IsSet(int value) {
    return value != Unset::Int;
}
bool IsSet(const QString& text) {
    return !text.isEmpty();
}

constexpr bool kAlways = true;

} // namespace

TGN::TGN() : m_version(kDefaultVersion) {
    SetObjectName(kObjectName);
    m_frequency.name = ElementNames::Frequency;
    m_bandwidth.name = ElementNames::Bandwidth;
    m_levelSettingsModes = kLevelSettingsModes;
    m_references = kReferences;
    m_tgnModulations = kTGNModulations;
    Reset();
}

TGN::TGN(const TGN& other) = default;

TGN& TGN::operator=(const TGN& other) = default;

TGN::~TGN() = default;

QString TGN::FirstMissing() const {
    const struct {
        bool set;
        const QString& name;
    } required[] = {
        {m_frequency.HasData(), ElementNames::Frequency},
        {m_bandwidth.HasData(), ElementNames::Bandwidth},
        {IsSet(m_power), kPower},
        {IsSet(m_levelSettingsMode), kLevelSettingsMode},
        {IsSet(m_reference), kReference},
        {IsSet(m_tgnModulation), kTGNModulation},
    };
    for (const auto& value : required) {
        if (!value.set)
            return value.name;
    }
    return QString();
}

bool TGN::HasData() const {
    return FirstMissing().isNull();
}

void TGN::Check() const {
    const QString missing = FirstMissing();
    if (!missing.isNull())
        throw RecordMessages::PleaseSet(GetObjectName(), missing);
}

bool TGN::AnyData() const {
    return m_frequency.AnyData() || m_bandwidth.AnyData() || IsSet(m_power) ||
           IsSet(m_levelSettingsMode) || IsSet(m_reference) || IsSet(m_tgnModulation) ||
           IsSet(m_tone) || IsSet(m_toneStop) || IsSet(m_toneStart) || IsSet(m_amDepth) ||
           IsSet(m_sweepSpacing) || IsSet(m_sweepDwellTime) || IsSet(m_fmCoupling) ||
           IsSet(m_fmDeviation) || IsSet(m_noiseLevel) || m_scanParameter.AnyData();
}

void TGN::Reset() {
    m_frequency.Reset();
    m_bandwidth.Reset();
    m_scanParameter.Reset();
    m_power = Unset::Double;
    m_tone = Unset::Double;
    m_toneStop = Unset::Double;
    m_toneStart = Unset::Double;
    m_sweepDwellTime = Unset::Double;
    m_fmDeviation = Unset::Double;
    m_amDepth = Unset::Int;
    m_noiseLevel = Unset::Int;
    m_levelSettingsMode.clear();
    m_reference.clear();
    m_tgnModulation.clear();
    m_sweepSpacing.clear();
    m_fmCoupling.clear();
    m_fmInput.clear();
    m_sweepActive = false;
    m_iqModulationState = false;
    m_bbinState = false;
    m_iqModulationSource = ANALOG;
}

void TGN::GetXml(QXmlStreamWriter& writer) const {
    if (!HasData())
        return;
    writer.writeStartElement(GetObjectName());
    ItemAttributes::WriteVersion(writer, m_version);
    m_frequency.GetXml(writer);
    m_bandwidth.GetXml(writer);

    using namespace RecordFormat;
    const struct {
        const QString& name;
        bool written;
        QString text;
    } values[] = {
        {kPower, kAlways, FixedTwo(m_power)},
        {kLevelSettingsMode, kAlways, m_levelSettingsMode},
        {kReference, kAlways, m_reference},
        {kTGNModulation, kAlways, m_tgnModulation},
        {kTone, IsSet(m_tone), FixedTwo(m_tone)},
        {kToneStop, IsSet(m_toneStop), FixedTwo(m_toneStop)},
        {kToneStart, IsSet(m_toneStart), FixedTwo(m_toneStart)},
        {kAMDepth, IsSet(m_amDepth), Integer(m_amDepth)},
        {kSweepActive, kAlways, Flag(m_sweepActive)},
        {kSweepSpacing, IsSet(m_sweepSpacing), m_sweepSpacing},
        {kSweepDwellTime, IsSet(m_sweepDwellTime), GeneralSix(m_sweepDwellTime)},
        {kFMCoupling, IsSet(m_fmCoupling), m_fmCoupling},
        {kFMInput, IsSet(m_fmInput), m_fmInput},
        {kFMDeviation, IsSet(m_fmDeviation), GeneralSix(m_fmDeviation)},
        {kNoiseLevel, IsSet(m_noiseLevel), Integer(m_noiseLevel)},
        {kIQModulationState, kAlways, Flag(m_iqModulationState)},
        {kIQModulationSource, kAlways, GetStringForIQSource(m_iqModulationSource)},
        {kBBINState, kAlways, Flag(m_bbinState)},
    };
    for (const auto& value : values) {
        if (value.written)
            TextElement::Write(writer, value.name, value.text);
    }

    if (m_scanParameter.HasData())
        m_scanParameter.GetXml(writer);
    writer.writeEndElement();
}

void TGN::ProcessXml(QXmlStreamReader& reader) {
    m_version = ItemAttributes::ReadVersion(reader);
    IKMObject::ProcessXml(reader);
}

void TGN::ProcessXmlStartElement(QXmlStreamReader& reader) {
    using namespace RecordFormat;
    // A view into the reader: compared before the child is read, never after.
    const QStringView child = reader.name();
    if (child == m_frequency.name)
        m_frequency.ReadValuesFromXml(reader);
    else if (child == m_bandwidth.name)
        m_bandwidth.ReadValuesFromXml(reader);
    else if (child == kPower)
        m_power = ToDouble(GetTextValue(reader));
    else if (child == kLevelSettingsMode)
        SetLevelSettingsMode(GetTextValue(reader));
    else if (child == kReference)
        SetReference(GetTextValue(reader));
    else if (child == kTGNModulation)
        SetTGNModulation(GetTextValue(reader));
    else if (child == kTone)
        m_tone = ToDouble(GetTextValue(reader));
    else if (child == kToneStop)
        m_toneStop = ToDouble(GetTextValue(reader));
    else if (child == kToneStart)
        m_toneStart = ToDouble(GetTextValue(reader));
    else if (child == kAMDepth)
        m_amDepth = ToInt(GetTextValue(reader));
    else if (child == kSweepActive)
        m_sweepActive = IsTrue(GetTextValue(reader));
    else if (child == kSweepSpacing)
        m_sweepSpacing = GetTextValue(reader);
    else if (child == kSweepDwellTime)
        m_sweepDwellTime = ToDouble(GetTextValue(reader));
    else if (child == kFMCoupling)
        m_fmCoupling = GetTextValue(reader);
    else if (child == kFMInput)
        m_fmInput = GetTextValue(reader);
    else if (child == kFMDeviation)
        m_fmDeviation = ToDouble(GetTextValue(reader));
    else if (child == kNoiseLevel)
        m_noiseLevel = ToInt(GetTextValue(reader));
    else if (child == kIQModulationState)
        m_iqModulationState = IsTrue(GetTextValue(reader));
    else if (child == kIQModulationSource)
        m_iqModulationSource = GetIQSourceForString(GetTextValue(reader));
    else if (child == kBBINState)
        m_bbinState = IsTrue(GetTextValue(reader));
    else if (child == m_scanParameter.GetObjectName())
        m_scanParameter.ProcessXml(reader);
    else
        throw RecordMessages::UnknownTag(child.toString(), GetObjectName());
}

const QString& TGN::GetVersion() const {
    return m_version;
}

void TGN::SetChoice(QString& field, const QStringList& choices, const QString& elementName,
                    const QString& value) {
    if (value.isEmpty())
        throw RecordMessages::PleaseSet(GetObjectName(), elementName);
    if (!choices.contains(value, Qt::CaseSensitive))
        throw RecordMessages::UnknownChoice(GetObjectName(), elementName, value);
    field = value;
}

void TGN::SetLevelSettingsMode(const QString& mode) {
    SetChoice(m_levelSettingsMode, m_levelSettingsModes, kLevelSettingsMode, mode);
}

void TGN::SetReference(const QString& reference) {
    SetChoice(m_reference, m_references, kReference, reference);
}

void TGN::SetTGNModulation(const QString& modulation) {
    SetChoice(m_tgnModulation, m_tgnModulations, kTGNModulation, modulation);
}

TGN::IQSources TGN::GetIQSourceForString(const QString& text) {
    return kIQSources.ValueOfDisplay(text) == ANALOG ? ANALOG : BASEBAND;
}

QString TGN::GetStringForIQSource(IQSources source) const {
    return kIQSources.DisplayText(source == ANALOG ? ANALOG : BASEBAND);
}

} // namespace KELMORA
