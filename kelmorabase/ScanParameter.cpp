// SPDX-License-Identifier: MIT
#include "ScanParameter.h"

#include "LosslessNumber.h"

namespace KELMORA {

namespace {

const QString kStartFrequency = QStringLiteral("StartFrequency");
const QString kStopFrequency = QStringLiteral("StopFrequency");
const QString kStepWidth = QStringLiteral("StepWidth");
const QString kDwellTime = QStringLiteral("DwellTime");

} // namespace

ScanParameter::ScanParameter() {
    SetObjectName(QStringLiteral("ScanParameter"));
    Reset();
}

ScanParameter::ScanParameter(const ScanParameter& other) = default;

ScanParameter& ScanParameter::operator=(const ScanParameter& other) = default;

ScanParameter::~ScanParameter() = default;

bool ScanParameter::HasData() const {
    return IsValid(m_startFrequency) && IsValid(m_stopFrequency) && IsValid(m_stepWidth);
}

bool ScanParameter::AnyData() const {
    return IsValid(m_startFrequency) || IsValid(m_stopFrequency) || IsValid(m_stepWidth) ||
           IsValid(m_dwellTime);
}

void ScanParameter::Reset() {
    SetInvalid(m_startFrequency);
    SetInvalid(m_stopFrequency);
    SetInvalid(m_stepWidth);
    SetInvalid(m_dwellTime);
}

void ScanParameter::Check() const {
    // The first three fields are required; the dwell time is optional.
    for (const Field& field : Fields()) {
        if (field.name != kDwellTime && !IsValid(*field.value))
            throw KMException(
                QStringLiteral("%1: Please set %2!").arg(GetObjectName()).arg(field.name));
    }
}

void ScanParameter::GetXml(QXmlStreamWriter& writer) const {
    writer.writeStartElement(GetObjectName());
    for (const Field& field : Fields()) {
        if (IsValid(*field.value))
            writer.writeTextElement(field.name, LosslessNumber::Format(*field.value));
    }
    writer.writeEndElement();
}

void ScanParameter::ProcessXml(QXmlStreamReader& reader) {
    IKMObject::ProcessXml(reader);
}

void ScanParameter::ProcessXmlStartElement(QXmlStreamReader& reader) {
    const QStringView child = reader.name();
    for (const Field& field : Fields()) {
        if (child == field.name) {
            *field.value = LosslessNumber::Parse(GetTextValue(reader));
            return;
        }
    }
    throw KMException(
        QStringLiteral("Unknown Tag '%1' in '%2'").arg(child.toString()).arg(GetObjectName()));
}

std::array<ScanParameter::Field, 4> ScanParameter::Fields() const {
    // Only ProcessXmlStartElement, a non-const member, writes through the pointers.
    auto* self = const_cast<ScanParameter*>(this);
    return {{{kStartFrequency, &self->m_startFrequency},
             {kStopFrequency, &self->m_stopFrequency},
             {kStepWidth, &self->m_stepWidth},
             {kDwellTime, &self->m_dwellTime}}};
}

} // namespace KELMORA
