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
    const struct {
        const QString& name;
        double value;
    } required[] = {{kStartFrequency, m_startFrequency},
                    {kStopFrequency, m_stopFrequency},
                    {kStepWidth, m_stepWidth}};
    for (const auto& field : required) {
        if (!IsValid(field.value))
            throw KMException(
                QStringLiteral("%1: Please set %2!").arg(GetObjectName()).arg(field.name));
    }
}

void ScanParameter::GetXml(QXmlStreamWriter& writer) const {
    writer.writeStartElement(GetObjectName());
    const struct {
        const QString& name;
        double value;
    } fields[] = {{kStartFrequency, m_startFrequency},
                  {kStopFrequency, m_stopFrequency},
                  {kStepWidth, m_stepWidth},
                  {kDwellTime, m_dwellTime}};
    for (const auto& field : fields) {
        if (IsValid(field.value))
            writer.writeTextElement(field.name, LosslessNumber::Format(field.value));
    }
    writer.writeEndElement();
}

void ScanParameter::ProcessXml(QXmlStreamReader& reader) {
    IKMObject::ProcessXml(reader);
}

void ScanParameter::ProcessXmlStartElement(QXmlStreamReader& reader) {
    // A view into the reader: compared before the child is read, never after.
    const QStringRef child = reader.name();
    double* target = child == kStartFrequency  ? &m_startFrequency
                     : child == kStopFrequency ? &m_stopFrequency
                     : child == kStepWidth     ? &m_stepWidth
                     : child == kDwellTime     ? &m_dwellTime
                                               : nullptr;
    if (!target)
        throw KMException(
            QStringLiteral("Unknown Tag '%1' in '%2'").arg(child.toString()).arg(GetObjectName()));
    *target = LosslessNumber::Parse(GetTextValue(reader));
}

} // namespace KELMORA
