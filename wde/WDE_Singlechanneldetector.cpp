// SPDX-License-Identifier: MIT
#include "WDE_Singlechanneldetector.h"

#include "ChildName.h"
#include "ElementNames.h"
#include "ElementText.h"
#include "ItemAttributes.h"
#include "RecordFormat.h"
#include "RecordMessages.h"

namespace KELMORA {

namespace {

const QString kObjectName = QStringLiteral("WDE_Singlechanneldetector");
const QString kDefaultVersion = QStringLiteral("0.1");

const QString kPleaseSetMinimumFixedFrequencyLength =
    QStringLiteral(":Please set MinimumFixedFrequencyLength!");
const QString kPleaseSetExciterSet = QStringLiteral(":Please set ExciterSet!");
const QString kPleaseSetAbsoluteThresholdValue =
    QStringLiteral(":Please set AbsoluteThresholdValue!");

} // namespace

WDE_Singlechanneldetector::WDE_Singlechanneldetector()
    : m_version(kDefaultVersion), m_active(false) {
    SetObjectName(kObjectName);
    // Reset() keeps these names, and reading matches the children against them.
    m_frequency.name = ElementNames::Frequency;
    m_bandwidth.name = ElementNames::Bandwidth;
    Reset();
}

WDE_Singlechanneldetector::WDE_Singlechanneldetector(int index) : WDE_Singlechanneldetector() {
    m_index = index;
}

WDE_Singlechanneldetector::WDE_Singlechanneldetector(const WDE_Singlechanneldetector& other) =
    default;

WDE_Singlechanneldetector&
WDE_Singlechanneldetector::operator=(const WDE_Singlechanneldetector& other) = default;

WDE_Singlechanneldetector::~WDE_Singlechanneldetector() = default;

bool WDE_Singlechanneldetector::operator==(const WDE_Singlechanneldetector& other) const {
    return m_index == other.m_index && m_frequency.value == other.m_frequency.value &&
           m_bandwidth.value == other.m_bandwidth.value &&
           m_minimumFixedFrequencyLength == other.m_minimumFixedFrequencyLength &&
           m_exciterSet == other.m_exciterSet && m_active == other.m_active &&
           m_absoluteThresholdValue == other.m_absoluteThresholdValue;
}

bool WDE_Singlechanneldetector::operator!=(const WDE_Singlechanneldetector& other) const {
    return !(*this == other);
}

QString WDE_Singlechanneldetector::GetName() {
    return kObjectName;
}

bool WDE_Singlechanneldetector::HasData() const {
    return m_frequency.HasData() && m_bandwidth.HasData() &&
           IsValid(m_minimumFixedFrequencyLength) && IsValid(m_exciterSet) &&
           IsValid(m_absoluteThresholdValue);
}

bool WDE_Singlechanneldetector::AnyData() const {
    return m_frequency.HasData() || m_bandwidth.HasData() ||
           IsValid(m_minimumFixedFrequencyLength) || IsValid(m_exciterSet) ||
           IsValid(m_absoluteThresholdValue);
}

void WDE_Singlechanneldetector::Reset() {
    m_frequency.Reset();
    m_bandwidth.Reset();
    SetInvalid(m_minimumFixedFrequencyLength);
    SetInvalid(m_exciterSet);
    SetInvalid(m_absoluteThresholdValue);
    SetInvalid(m_index);
    m_itemName.clear();
}

void WDE_Singlechanneldetector::Check() const {
    m_frequency.Check();
    m_bandwidth.Check();
    // Exact comparisons with the markers, so a NaN counts as set.
    if (m_minimumFixedFrequencyLength == Unset::Double)
        throw RecordMessages::ObjectText(GetObjectName(), kPleaseSetMinimumFixedFrequencyLength);
    if (m_exciterSet == Unset::UnsignedInt)
        throw RecordMessages::ObjectText(GetObjectName(), kPleaseSetExciterSet);
    if (m_absoluteThresholdValue == Unset::Double)
        throw RecordMessages::ObjectText(GetObjectName(), kPleaseSetAbsoluteThresholdValue);
}

void WDE_Singlechanneldetector::GetXml(QXmlStreamWriter& writer) const {
    writer.writeStartElement(GetObjectName());
    ItemAttributes::WriteItem(*this, writer, m_version, m_index, m_itemName);
    m_frequency.GetXml(writer);
    m_bandwidth.GetXml(writer);
    writer.writeTextElement(ElementNames::MinimumFixedFrequencyLength,
                            RecordFormat::GeneralSix(m_minimumFixedFrequencyLength));
    writer.writeTextElement(ElementNames::ExciterSet, RecordFormat::Unsigned(m_exciterSet));
    writer.writeTextElement(ElementNames::Active, RecordFormat::Flag(m_active));
    writer.writeTextElement(ElementNames::AbsoluteThresholdValue,
                            RecordFormat::GeneralSix(m_absoluteThresholdValue));
    writer.writeEndElement();
}

void WDE_Singlechanneldetector::ProcessXml(QXmlStreamReader& reader) {
    ItemAttributes::ReadItem(*this, reader, m_version, m_index, m_itemName);
    IKMObject::ProcessXml(reader);
}

void WDE_Singlechanneldetector::ProcessXmlStartElement(QXmlStreamReader& reader) {
    // A view into the reader: compared before the child is read, never after.
    const ChildName child(reader.name());
    if (child == m_frequency.name)
        m_frequency.ReadValuesFromXml(reader);
    else if (child == m_bandwidth.name)
        m_bandwidth.ReadValuesFromXml(reader);
    else if (child == ElementNames::MinimumFixedFrequencyLength)
        m_minimumFixedFrequencyLength = ElementText::ToDouble(reader);
    else if (child == ElementNames::ExciterSet)
        m_exciterSet = ElementText::ToUnsigned(reader);
    else if (child == ElementNames::Active)
        m_active = ElementText::IsTrue(reader);
    else if (child == ElementNames::AbsoluteThresholdValue)
        m_absoluteThresholdValue = ElementText::ToDouble(reader);
}

const QString& WDE_Singlechanneldetector::GetVersion() const {
    return m_version;
}

unsigned int WDE_Singlechanneldetector::GetExciterSet() const {
    return m_exciterSet;
}

} // namespace KELMORA
