// SPDX-License-Identifier: MIT
#include "WDE_Simulation.h"

#include "ChildName.h"
#include "ElementNames.h"
#include "ElementText.h"
#include "EnumTable.h"
#include "ItemAttributes.h"
#include "RecordFormat.h"
#include "RecordMessages.h"
#include "ValueNotes.h"

namespace KELMORA {

namespace {

const QString kObjectName = QStringLiteral("WDE_Simulation");
const QString kDefaultVersion = QStringLiteral("0.1");
const QString kType = QStringLiteral("Type");
const QString kPNStartValue = QStringLiteral("PNStartValue");
const QString kRelativeCenterFrequency = QStringLiteral("RelativeCenterFrequency");
const QString kChannelCount = QStringLiteral("ChannelCount");
const QString kHopWidth = QStringLiteral("HopWidth");
const QString kFrequencyList = QStringLiteral("FrequencyList");

// "PN" is matched before "FLIS" when reading a text.
const EnumTable kSimulationTypes{{WDE_Simulation::SIMULATIONTYPE_PN, "PN"},
                                 {WDE_Simulation::SIMULATIONTYPE_FLIS, "FLIS"}};
const ValueNotes::Registration kTypeNote{kObjectName, kType, ValueNotes::Kind::Enumeration,
                                         &kSimulationTypes};
const ValueNotes::Registration kFrequencyListNote{kObjectName, kFrequencyList,
                                                  ElementNames::Frequency};

const QString kPleaseSetExciterSet = QStringLiteral(": Please set ExciterSet");
const QString kPleaseSetType = QStringLiteral(": Please set Type");

} // namespace

WDE_Simulation::WDE_Simulation() : m_active(false), m_version(kDefaultVersion) {
    SetObjectName(kObjectName);
    Reset();
}

WDE_Simulation::WDE_Simulation(int index) : WDE_Simulation() {
    m_index = index;
}

WDE_Simulation::WDE_Simulation(const WDE_Simulation& other) = default;

WDE_Simulation& WDE_Simulation::operator=(const WDE_Simulation& other) = default;

WDE_Simulation::~WDE_Simulation() = default;

QString WDE_Simulation::GetName() {
    return kObjectName;
}

bool WDE_Simulation::HasData() const {
    return IsValid(m_exciterSet) && m_type != static_cast<SimulationType>(Unset::Enum);
}

bool WDE_Simulation::AnyData() const {
    return IsValid(m_exciterSet) || IsValid(m_pnStartValue) || IsValid(m_relativeCenterFrequency) ||
           IsValid(m_channelCount) || IsValid(m_hopWidth) || !m_relativeFrequencyList.isEmpty() ||
           m_type != static_cast<SimulationType>(Unset::Enum);
}

void WDE_Simulation::Reset() {
    SetInvalid(m_exciterSet);
    SetInvalid(m_pnStartValue);
    SetInvalid(m_relativeCenterFrequency);
    SetInvalid(m_channelCount);
    SetInvalid(m_hopWidth);
    m_relativeFrequencyList = QVector<double>();
    SetInvalid(m_index);
    m_type = static_cast<SimulationType>(Unset::Enum);
    m_itemName.clear();
}

void WDE_Simulation::Check() const {
    if (!IsValid(m_exciterSet))
        throw RecordMessages::ObjectText(GetObjectName(), kPleaseSetExciterSet);
    if (m_type == static_cast<SimulationType>(Unset::Enum))
        throw RecordMessages::ObjectText(GetObjectName(), kPleaseSetType);
}

void WDE_Simulation::GetXml(QXmlStreamWriter& writer) const {
    writer.writeStartElement(GetObjectName());
    ItemAttributes::WriteItem(*this, writer, m_version, m_index, m_itemName);
    writer.writeTextElement(ElementNames::Active, RecordFormat::Flag(m_active));
    writer.writeTextElement(kType, GetStringForSimulationType(m_type));
    writer.writeTextElement(ElementNames::ExciterSet, RecordFormat::Unsigned(m_exciterSet));
    writer.writeTextElement(kPNStartValue, RecordFormat::Unsigned(m_pnStartValue));
    writer.writeTextElement(kRelativeCenterFrequency,
                            RecordFormat::GeneralSix(m_relativeCenterFrequency));
    writer.writeTextElement(kChannelCount, RecordFormat::Unsigned(m_channelCount));
    writer.writeTextElement(kHopWidth, RecordFormat::GeneralSix(m_hopWidth));
    if (!m_relativeFrequencyList.isEmpty()) {
        writer.writeStartElement(kFrequencyList);
        for (double frequency : m_relativeFrequencyList)
            writer.writeTextElement(ElementNames::Frequency, RecordFormat::GeneralSix(frequency));
        writer.writeEndElement();
    }
    writer.writeEndElement();
}

void WDE_Simulation::ProcessXml(QXmlStreamReader& reader) {
    ItemAttributes::ReadItem(*this, reader, m_version, m_index, m_itemName);
    IKMObject::ProcessXml(reader);
}

void WDE_Simulation::ProcessXmlStartElement(QXmlStreamReader& reader) {
    // A view into the reader: compared before the child is read, never after.
    const ChildName child(reader.name());
    if (child == ElementNames::Active) {
        m_active = ElementText::IsTrue(reader);
    } else if (child == kType) {
        m_type = GetSimulationTypeForString(GetTextValue(reader));
    } else if (child == ElementNames::ExciterSet) {
        m_exciterSet = ElementText::ToUnsigned(reader);
    } else if (child == kPNStartValue) {
        m_pnStartValue = ElementText::ToUnsigned(reader);
    } else if (child == kRelativeCenterFrequency) {
        m_relativeCenterFrequency = ElementText::ToDouble(reader);
    } else if (child == kChannelCount) {
        m_channelCount = ElementText::ToUnsigned(reader);
    } else if (child == kHopWidth) {
        m_hopWidth = ElementText::ToDouble(reader);
    } else if (child == kFrequencyList) {
        // The wrapper's children are dispatched as the item's own. This runs the
        // base loop, not this record's ProcessXml, so the wrapper's (absent)
        // attributes do not replace the item's version, index and name.
        IKMObject::ProcessXml(reader);
    } else if (child == ElementNames::Frequency) {
        m_relativeFrequencyList.append(ElementText::ToDouble(reader));
    }
    // Any other child is left unread; the element loop skips it whole.
}

const QString& WDE_Simulation::GetVersion() const {
    return m_version;
}

unsigned int WDE_Simulation::GetExciterSet() const {
    return m_exciterSet;
}

unsigned int WDE_Simulation::GetPNStartValue() const {
    return m_pnStartValue;
}

unsigned int WDE_Simulation::GetChannelCount() const {
    return m_channelCount;
}

void WDE_Simulation::AppendRelativeFrequency(const double& frequency) {
    m_relativeFrequencyList.append(frequency);
}

QString WDE_Simulation::GetStringForSimulationType(SimulationType type) const {
    return kSimulationTypes.DisplayText(type);
}

WDE_Simulation::SimulationType
WDE_Simulation::GetSimulationTypeForString(const QString& text) const {
    return static_cast<SimulationType>(kSimulationTypes.ValueOfDisplay(text));
}

} // namespace KELMORA
