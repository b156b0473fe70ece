// SPDX-License-Identifier: MIT
#include "WDE.h"

#include "ChildName.h"
#include "EnumTable.h"
#include "ItemAttributes.h"
#include "RecordFormat.h"
#include "RecordMessages.h"
#include "ValueNotes.h"

namespace KELMORA {

namespace {

const QString kName = QStringLiteral("WDE");
const QString kVersionDefault = QStringLiteral("0.1");
const QString kFrequency = QStringLiteral("Frequency");
const QString kBandwidth = QStringLiteral("Bandwidth");
const QString kMode = QStringLiteral("Mode");
const QString kEmissiondetectorMode = QStringLiteral("EmissiondetectorMode");
const QString kEmissiondetectorDelay = QStringLiteral("EmissiondetectorDelay");
const QString kEmissiondetectorAveraging = QStringLiteral("EmissiondetectorAveraging");
const QString kSinglechanneldetectorList = QStringLiteral("SinglechanneldetectorList");
const QString kRasterdetectorList = QStringLiteral("RasterdetectorList");
const QString kExciterCount = QStringLiteral("ExciterCount");
const QString kExciterPulseLength = QStringLiteral("ExciterPulseLength");
const QString kExciterRXDelay = QStringLiteral("ExciterRXDelay");
const QString kExciterTXDelay = QStringLiteral("ExciterTXDelay");
const QString kExciterList = QStringLiteral("ExciterList");
const QString kGuardTime = QStringLiteral("GuardTime");
const QString kSimulationList = QStringLiteral("SimulationList");
const QString kAttenuation = QStringLiteral("Attenuation");
const QString kAttenuationMode = QStringLiteral("AttenuationMode");
const QString kAttenuationValue = QStringLiteral("AttenuationValue");
const QString kGainControl = QStringLiteral("GainControl");
const QString kAGCValue = QStringLiteral("AGCValue");
const QString kMGCValue = QStringLiteral("MGCValue");

const EnumTable kModes{{WDE::MODE_OFF, "OFF"}, {WDE::MODE_DET, "DET"}, {WDE::MODE_DETX, "DETX"},
                       {WDE::MODE_EX, "EX"},   {WDE::MODE_SIM, "SIM"}, {WDE::MODE_SDET, "SDET"}};
const EnumTable kEmissiondetectorModes{{WDE::EMISSIONDETECTORMODE_LOOP, "LOOP", "LOOP"},
                                       {WDE::EMISSIONDETECTORMODE_NONLOOP, "NONLoop", "NONLoop"}};
const EnumTable kEmissiondetectorAveragings{
    {WDE::EMISSIONDETECTORAVERAGING_NONE, "NONE", "NONE"},
    {WDE::EMISSIONDETECTORAVERAGING_SHORT, "SHORT", "SHORt"},
    {WDE::EMISSIONDETECTORAVERAGING_MIDDLE, "MIDDLE", "MIDDLe"},
    {WDE::EMISSIONDETECTORAVERAGING_LONG, "LONG", "LONG"}};
const EnumTable kAttenuationTypes{{WDE::ATTENUATION_ON, "ON"}, {WDE::ATTENUATION_OFF, "OFF"}};
const EnumTable kAttenuationModeTypes{{WDE::ATTENUATIONMODE_LOWNOISE, "LOWNOISE"},
                                      {WDE::ATTENUATIONMODE_NORMAL, "NORMAL"},
                                      {WDE::ATTENUATIONMODE_LOWDISTORT, "LOWDISTORT"}};
const EnumTable kGainCtrlTypes{{WDE::GAINCTRL_AGC, "AGC"}, {WDE::GAINCTRL_MGC, "MGC"}};
const EnumTable kAGCValueTypes{
    {WDE::AGCVALUE_SLOW, "SLOW"}, {WDE::AGCVALUE_DEFAULT, "DEFAULT"}, {WDE::AGCVALUE_FAST, "FAST"}};

using ValueNotes::Kind;
using ValueNotes::Registration;
const Registration kNotes[] = {
    {kName, kMode, Kind::Enumeration, &kModes},
    {kName, kEmissiondetectorMode, Kind::Enumeration, &kEmissiondetectorModes},
    {kName, kEmissiondetectorAveraging, Kind::Enumeration, &kEmissiondetectorAveragings},
    {kName, kAttenuation, Kind::Enumeration, &kAttenuationTypes},
    {kName, kAttenuationMode, Kind::Enumeration, &kAttenuationModeTypes},
    {kName, kGainControl, Kind::Enumeration, &kGainCtrlTypes},
    {kName, kAGCValue, Kind::Enumeration, &kAGCValueTypes},
};

// Reads one item element into a new item whose index is its position in the
// list. The item is read in its place at the end of the list, which saves
// copying it there with all it holds; should reading fail, it is taken off
// again, so the list is as if it had been appended only once read.
template <typename Item> void AppendReadItem(QVector<Item>& list, QXmlStreamReader& reader) {
    list.append(Item(list.size()));
    try {
        list.last().ProcessXml(reader);
    } catch (...) {
        list.removeLast();
        throw;
    }
}

// A list is written inside its wrapper element, and not at all when empty.
template <typename Item>
void WriteList(QXmlStreamWriter& writer, const QString& wrapper, const QVector<Item>& list) {
    if (list.isEmpty())
        return;
    writer.writeStartElement(wrapper);
    for (const Item& item : list)
        item.GetXml(writer);
    writer.writeEndElement();
}

} // namespace

WDE::WDE()
    : m_version(kVersionDefault), m_frequency(kFrequency), m_bandwidth(kBandwidth),
      m_mgcValue(kMGCValue) {
    SetObjectName(kName);
    Reset();
}

WDE::WDE(const WDE& other) = default;

WDE& WDE::operator=(const WDE& other) = default;

WDE::~WDE() = default;

QString WDE::GetName() {
    return kName;
}
QString WDE::GetSinglechanneldetectorListName() {
    return kSinglechanneldetectorList;
}
QString WDE::GetRasterdetectorListName() {
    return kRasterdetectorList;
}
QString WDE::GetExciterListName() {
    return kExciterList;
}
QString WDE::GetSimulationListName() {
    return kSimulationList;
}
QString WDE::GetAttenuationName() {
    return kAttenuation;
}
QString WDE::GetAttenuationModeName() {
    return kAttenuationMode;
}
QString WDE::GetAttenuationValueName() {
    return kAttenuationValue;
}
QString WDE::GetGainControlName() {
    return kGainControl;
}
QString WDE::GetAGCValueName() {
    return kAGCValue;
}
QString WDE::GetMGCValueName() {
    return kMGCValue;
}

bool WDE::HasData() const {
    return m_frequency.HasData() && m_bandwidth.HasData() && m_mode != Unset::Enum &&
           m_emissiondetectorMode != Unset::Enum && IsValid(m_emissiondetectorDelay) &&
           m_emissiondetectorAveraging != Unset::Enum && IsValid(m_exciterCount) &&
           IsValid(m_exciterPulseLength) && IsValid(m_exciterTXDelay) && IsValid(m_exciterRXDelay);
}

bool WDE::AnyData() const {
    return m_frequency.HasData() || m_bandwidth.HasData() || m_mode != Unset::Enum ||
           m_emissiondetectorMode != Unset::Enum || IsValid(m_emissiondetectorDelay) ||
           m_emissiondetectorAveraging != Unset::Enum || !m_singlechanneldetectorList.isEmpty() ||
           !m_rasterdetectorList.isEmpty() || IsValid(m_exciterCount) ||
           IsValid(m_exciterPulseLength) || IsValid(m_exciterTXDelay) ||
           IsValid(m_exciterRXDelay) || !m_exciterList.isEmpty() || IsValid(m_guardTime) ||
           !m_simulationList.isEmpty();
}

void WDE::Reset() {
    m_frequency.Reset();
    m_bandwidth.Reset();
    m_mgcValue.Reset();
    m_mode = static_cast<Mode>(Unset::Enum);
    m_emissiondetectorMode = static_cast<EmissiondetectorMode>(Unset::Enum);
    m_emissiondetectorAveraging = static_cast<EmissiondetectorAveraging>(Unset::Enum);
    m_attenuation = static_cast<AttenuationType>(Unset::Enum);
    m_attenuationMode = static_cast<AttenuationModeType>(Unset::Enum);
    m_gainControl = static_cast<GainCtrlType>(Unset::Enum);
    m_agcValue = static_cast<AGCValueType>(Unset::Enum);
    SetInvalid(m_emissiondetectorDelay);
    SetInvalid(m_exciterPulseLength);
    SetInvalid(m_exciterRXDelay);
    SetInvalid(m_exciterTXDelay);
    SetInvalid(m_guardTime);
    SetInvalid(m_attenuationValue);
    SetInvalid(m_exciterCount);
    m_singlechanneldetectorList.clear();
    m_rasterdetectorList.clear();
    m_exciterList.clear();
    m_simulationList.clear();
}

void WDE::Check() const {
    m_frequency.Check();
    m_bandwidth.Check();
    const struct {
        bool missing;
        const char* text;
    } tests[] = {
        {m_mode == Unset::Enum, ":Please set Mode!"},
        {m_emissiondetectorMode == Unset::Enum, ":Please set EmissiondetectorMode!"},
        {!IsValid(m_emissiondetectorDelay), ":Please set !EmissiondetectorDelay"},
        {m_emissiondetectorAveraging == Unset::Enum, ":Please set EmissiondetectorAveraging!"},
        {!IsValid(m_exciterCount), ":Please set ExciterCount!"},
        {!IsValid(m_exciterPulseLength), ":Please set ExciterPulseLength!"},
        {!IsValid(m_exciterTXDelay), ":Please set ExciterTXDelay!"},
        {!IsValid(m_exciterRXDelay), ":Please set ExicterRXDelay!"},
    };
    for (const auto& test : tests) {
        if (test.missing)
            throw RecordMessages::ObjectText(GetObjectName(), QString::fromLatin1(test.text));
    }
}

void WDE::GetXml(QXmlStreamWriter& writer) const {
    writer.writeStartElement(GetObjectName());
    ItemAttributes::WriteVersion(writer, m_version);
    m_frequency.GetXml(writer);
    m_bandwidth.GetXml(writer);
    writer.writeTextElement(kMode, GetStringForMode(m_mode));
    writer.writeTextElement(kEmissiondetectorMode,
                            GetStringForEmissiondetectorMode(m_emissiondetectorMode));
    writer.writeTextElement(kEmissiondetectorDelay,
                            RecordFormat::GeneralSix(m_emissiondetectorDelay));
    writer.writeTextElement(kEmissiondetectorAveraging,
                            GetStringForEmissiondetectorAveraging(m_emissiondetectorAveraging));
    WriteList(writer, kSinglechanneldetectorList, m_singlechanneldetectorList);
    WriteList(writer, kRasterdetectorList, m_rasterdetectorList);
    writer.writeTextElement(kExciterCount, RecordFormat::Unsigned(m_exciterCount));
    writer.writeTextElement(kExciterPulseLength, RecordFormat::GeneralSix(m_exciterPulseLength));
    writer.writeTextElement(kExciterRXDelay, RecordFormat::GeneralSix(m_exciterRXDelay));
    writer.writeTextElement(kExciterTXDelay, RecordFormat::GeneralSix(m_exciterTXDelay));
    WriteList(writer, kExciterList, m_exciterList);
    writer.writeTextElement(kGuardTime, RecordFormat::GeneralSix(m_guardTime));
    WriteList(writer, kSimulationList, m_simulationList);
    WriteOptionalValues(writer);
    writer.writeEndElement();
}

void WDE::WriteOptionalValues(QXmlStreamWriter& writer) const {
    if (m_attenuation != Unset::Enum)
        writer.writeTextElement(kAttenuation, GetStringForAttenuationType(m_attenuation));
    if (m_attenuationMode != Unset::Enum)
        writer.writeTextElement(kAttenuationMode,
                                GetStringForAttenuationModeType(m_attenuationMode));
    if (IsValid(m_attenuationValue))
        writer.writeTextElement(kAttenuationValue, RecordFormat::GeneralSix(m_attenuationValue));
    if (m_gainControl != Unset::Enum)
        writer.writeTextElement(kGainControl, GetStringForGainCtrlType(m_gainControl));
    if (m_agcValue != Unset::Enum)
        writer.writeTextElement(kAGCValue, GetStringForAGCValueType(m_agcValue));
    // Compared directly with the marker: a NaN value is written.
    if (!(m_mgcValue.value == Unset::Double))
        writer.writeTextElement(kMGCValue, RecordFormat::GeneralSix(m_mgcValue.value));
}

void WDE::ProcessXml(QXmlStreamReader& reader) {
    m_version = ItemAttributes::ReadVersion(reader);
    IKMObject::ProcessXml(reader);
}

const QString& WDE::GetVersion() const {
    return m_version;
}

void WDE::ProcessXmlStartElement(QXmlStreamReader& reader) {
    // A view into the reader: compared before the child is read, never after.
    const QStringView child = reader.name();
    if (!ReadValueElement(child, reader))
        ReadListElement(child, reader);
    // Anything else is left unread; the element loop passes over it.
}

bool WDE::ReadValueElement(QStringView childName, QXmlStreamReader& reader) {
    const ChildName child(childName);
    if (child == m_frequency.name)
        m_frequency.ReadValuesFromXml(reader);
    else if (child == m_bandwidth.name)
        m_bandwidth.ReadValuesFromXml(reader);
    else if (child == kMode)
        m_mode = GetModeForString(GetTextValue(reader));
    else if (child == kEmissiondetectorMode)
        m_emissiondetectorMode = GetEmissiondetectorModeForString(GetTextValue(reader));
    else if (child == kEmissiondetectorDelay)
        m_emissiondetectorDelay = RecordFormat::ToDouble(GetTextValue(reader));
    else if (child == kEmissiondetectorAveraging)
        m_emissiondetectorAveraging = GetEmissiondetectorAveragingForString(GetTextValue(reader));
    else if (child == kExciterPulseLength)
        m_exciterPulseLength = RecordFormat::ToDouble(GetTextValue(reader));
    else if (child == kExciterCount)
        m_exciterCount = RecordFormat::ToUnsigned(GetTextValue(reader));
    else if (child == kExciterRXDelay)
        m_exciterRXDelay = RecordFormat::ToDouble(GetTextValue(reader));
    else if (child == kExciterTXDelay)
        m_exciterTXDelay = RecordFormat::ToDouble(GetTextValue(reader));
    else if (child == kGuardTime)
        m_guardTime = RecordFormat::ToDouble(GetTextValue(reader));
    else if (child == kAttenuation)
        m_attenuation = GetAttenuationTypeForString(GetTextValue(reader));
    else if (child == kAttenuationMode)
        m_attenuationMode = GetAttenuationModeTypeForString(GetTextValue(reader));
    else if (child == kAttenuationValue)
        m_attenuationValue = RecordFormat::ToDouble(GetTextValue(reader));
    else if (child == kGainControl)
        m_gainControl = GetGainCtrlTypeForString(GetTextValue(reader));
    else if (child == kAGCValue)
        m_agcValue = GetAGCValueTypeForString(GetTextValue(reader));
    else if (child == kMGCValue)
        m_mgcValue.ReadValuesFromXml(reader);
    else
        return false;
    return true;
}

bool WDE::ReadListElement(QStringView childName, QXmlStreamReader& reader) {
    const ChildName child(childName);
    if (child == kSinglechanneldetectorList || child == kRasterdetectorList ||
        child == kExciterList || child == kSimulationList)
        IKMObject::ProcessXml(reader); // the base loop: the wrapper has no attributes of ours
    else if (child == WDE_Singlechanneldetector::GetName())
        AppendReadItem(m_singlechanneldetectorList, reader);
    else if (child == WDE_Rasterdetector::GetName())
        AppendReadItem(m_rasterdetectorList, reader);
    else if (child == WDE_Exciter::GetName())
        AppendReadItem(m_exciterList, reader);
    else if (child == WDE_Simulation::GetName())
        AppendReadItem(m_simulationList, reader);
    else
        return false;
    return true;
}

QString WDE::GetStringForMode(Mode mode) const {
    return kModes.DisplayText(mode);
}

WDE::Mode WDE::GetModeForString(const QString& text) const {
    return static_cast<Mode>(kModes.ValueOfDisplay(text));
}

QString WDE::GetStringForEmissiondetectorMode(EmissiondetectorMode mode) const {
    return kEmissiondetectorModes.DisplayText(mode);
}

WDE::EmissiondetectorMode WDE::GetEmissiondetectorModeForString(const QString& text) const {
    return static_cast<EmissiondetectorMode>(kEmissiondetectorModes.ValueOfDisplay(text));
}

WDE::EmissiondetectorMode WDE::GetEmissiondetectorModeForSKPIString(const QString& text) const {
    return static_cast<EmissiondetectorMode>(kEmissiondetectorModes.ValueOfSkpi(text));
}

QString WDE::GetStringForEmissiondetectorAveraging(EmissiondetectorAveraging averaging) const {
    return kEmissiondetectorAveragings.DisplayText(averaging);
}

WDE::EmissiondetectorAveraging
WDE::GetEmissiondetectorAveragingForString(const QString& text) const {
    return static_cast<EmissiondetectorAveraging>(kEmissiondetectorAveragings.ValueOfDisplay(text));
}

QString WDE::GetSKPIStringForEmissiondetectorAveraging(EmissiondetectorAveraging averaging) const {
    return kEmissiondetectorAveragings.SkpiText(averaging);
}

WDE::EmissiondetectorAveraging
WDE::GetEmissiondetectorAveragingForSKPIString(const QString& text) const {
    return static_cast<EmissiondetectorAveraging>(kEmissiondetectorAveragings.ValueOfSkpi(text));
}

QString WDE::GetStringForAttenuationType(AttenuationType attenuation) const {
    return kAttenuationTypes.DisplayText(attenuation);
}

WDE::AttenuationType WDE::GetAttenuationTypeForString(const QString& text) const {
    return static_cast<AttenuationType>(kAttenuationTypes.ValueOfDisplay(text));
}

QString WDE::GetStringForAttenuationModeType(AttenuationModeType mode) const {
    return kAttenuationModeTypes.DisplayText(mode);
}

WDE::AttenuationModeType WDE::GetAttenuationModeTypeForString(const QString& text) const {
    return static_cast<AttenuationModeType>(kAttenuationModeTypes.ValueOfDisplay(text));
}

QString WDE::GetStringForGainCtrlType(GainCtrlType gainControl) const {
    return kGainCtrlTypes.DisplayText(gainControl);
}

WDE::GainCtrlType WDE::GetGainCtrlTypeForString(const QString& text) const {
    return static_cast<GainCtrlType>(kGainCtrlTypes.ValueOfDisplay(text));
}

QString WDE::GetStringForAGCValueType(AGCValueType value) const {
    return kAGCValueTypes.DisplayText(value);
}

WDE::AGCValueType WDE::GetAGCValueTypeForString(const QString& text) const {
    return static_cast<AGCValueType>(kAGCValueTypes.ValueOfDisplay(text));
}

} // namespace KELMORA
