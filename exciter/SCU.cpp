// SPDX-License-Identifier: MIT
#include "SCU.h"

#include "ElementNames.h"
#include "ItemAttributes.h"
#include "RecordFormat.h"
#include "RecordMessages.h"

namespace KELMORA {

namespace {

const QString kObjectName = QStringLiteral("SCU");
const QString kDefaultVersion = QStringLiteral("1.0");

} // namespace

SCU::SCU()
    : m_version(kDefaultVersion), m_frequency(ElementNames::Frequency),
      m_transmitTime(Unset::Double) {
    SetObjectName(kObjectName);
    Reset();
}

SCU::SCU(const SCU& other) = default;

SCU& SCU::operator=(const SCU& other) = default;

SCU::~SCU() = default;

bool SCU::HasData() const {
    return m_frequency.HasData() && m_transmitTime != Unset::Double && m_path.HasData();
}

bool SCU::AnyData() const {
    return m_frequency.HasData() || m_transmitTime != Unset::Double || m_path.HasData();
}

void SCU::Reset() {
    m_frequency.Reset();
    m_transmitTime = Unset::Double;
    m_path.Reset();
}

void SCU::Check() const {
    if (!m_frequency.HasData())
        throw RecordMessages::PleaseSet(GetObjectName(), ElementNames::Frequency);
    if (m_transmitTime == Unset::Double)
        throw RecordMessages::PleaseSet(GetObjectName(), ElementNames::TransmitTime);
    m_path.Check();
}

void SCU::GetXml(QXmlStreamWriter& writer) const {
    if (!HasData())
        return;
    writer.writeStartElement(GetObjectName());
    ItemAttributes::WriteVersion(writer, m_version);
    m_frequency.GetXml(writer);
    writer.writeTextElement(ElementNames::TransmitTime, RecordFormat::FixedTwo(m_transmitTime));
    m_path.GetXml(writer);
    writer.writeEndElement();
}

void SCU::ProcessXml(QXmlStreamReader& reader) {
    m_version = ItemAttributes::ReadVersion(reader);
    IKMObject::ProcessXml(reader);
}

void SCU::ProcessXmlStartElement(QXmlStreamReader& reader) {
    // A view into the reader: compared before the child is read, never after.
    const QStringView child = reader.name();
    if (child == m_frequency.name)
        m_frequency.ReadValuesFromXml(reader);
    else if (child == ElementNames::TransmitTime)
        m_transmitTime = RecordFormat::ToDouble(GetTextValue(reader));
    else if (child == m_path.GetObjectName())
        m_path.ProcessXml(reader);
    else
        throw RecordMessages::UnknownTag(child.toString(), GetObjectName());
}

const QString& SCU::GetVersion() const {
    return m_version;
}

} // namespace KELMORA
