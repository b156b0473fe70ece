// SPDX-License-Identifier: MIT
#include "ValueMinMax.h"

#include "LosslessNumber.h"

namespace KELMORA {

namespace {

const QString kMinimumAttribute = QStringLiteral("Minimum");
const QString kMaximumAttribute = QStringLiteral("Maximum");

} // namespace

ValueMinMax::ValueMinMax() : ValueMinMax(QString()) {}

ValueMinMax::ValueMinMax(const QString& elementName)
    : ValueMinMax(elementName, InvalidDouble, InvalidDouble, InvalidDouble) {}

ValueMinMax::ValueMinMax(const QString& elementName, double initialValue, double min, double max)
    : name(elementName), value(initialValue), minimum(min), maximum(max) {
    SetObjectName(QStringLiteral("ValueMinMax"));
}

ValueMinMax::ValueMinMax(const ValueMinMax& other) = default;

ValueMinMax& ValueMinMax::operator=(const ValueMinMax& other) = default;

ValueMinMax::~ValueMinMax() = default;

bool ValueMinMax::HasData() const {
    return IsValid(value);
}

bool ValueMinMax::AnyData() const {
    return IsValid(value) || IsValid(minimum) || IsValid(maximum);
}

void ValueMinMax::Reset() {
    SetInvalid(value);
    SetInvalid(minimum);
    SetInvalid(maximum);
}

void ValueMinMax::Check() const {
    if (!HasData())
        throw KMException(QStringLiteral("%1: Please set %2!").arg(name, QStringLiteral("Value")));
}

void ValueMinMax::GetXml(QXmlStreamWriter& writer) const {
    writer.writeStartElement(name);
    if (IsValid(minimum))
        writer.writeAttribute(kMinimumAttribute, LosslessNumber::Format(minimum));
    if (IsValid(maximum))
        writer.writeAttribute(kMaximumAttribute, LosslessNumber::Format(maximum));
    if (IsValid(value))
        writer.writeCharacters(LosslessNumber::Format(value));
    writer.writeEndElement();
}

void ValueMinMax::ReadValuesFromXml(QXmlStreamReader& reader) {
    const QXmlStreamAttributes attributes = reader.attributes();
    if (attributes.hasAttribute(kMinimumAttribute))
        minimum = LosslessNumber::Parse(attributes.value(kMinimumAttribute).toString());
    if (attributes.hasAttribute(kMaximumAttribute))
        maximum = LosslessNumber::Parse(attributes.value(kMaximumAttribute).toString());
    const QString text = GetTextValue(reader).trimmed();
    if (text.isEmpty())
        SetInvalid(value);
    else
        value = LosslessNumber::Parse(text);
}

} // namespace KELMORA
