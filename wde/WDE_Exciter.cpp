// SPDX-License-Identifier: MIT
#include "WDE_Exciter.h"

#include "ChildName.h"
#include "ElementText.h"
#include "EnumTable.h"
#include "ItemAttributes.h"
#include "RecordFormat.h"
#include "ValueNotes.h"

namespace KELMORA {

namespace {

const QString kObjectName = QStringLiteral("WDE_Exciter");
const QString kDefaultVersion = QStringLiteral("0.1");
const QString kSignalType = QStringLiteral("SignalType");
const QString kSymbolRate = QStringLiteral("SymbolRate");
const QString kFrequencyShift = QStringLiteral("FrequencyShift");
const QString kLevel = QStringLiteral("Level");

// The messages are complete texts; they do not take the object name.
const QString kPleaseSetSignalType = QStringLiteral("WDE_Exciter: Please set SignalType!");
const QString kPleaseSetSymbolRate = QStringLiteral("WDE_Exciter: Please set SymbolRate!");
const QString kPleaseSetLevel = QStringLiteral("WDE_Exciter: Please set Level!");

const EnumTable kSignalTypes{
    {WDE_Exciter::CW, "CW"}, {WDE_Exciter::FSK2, "FSK2"}, {WDE_Exciter::MSK, "MSK"}};
const ValueNotes::Registration kSignalTypeNote{kObjectName, kSignalType,
                                               ValueNotes::Kind::Enumeration, &kSignalTypes};

bool IsSet(double value) {
    return value != Unset::Double;
}

} // namespace

WDE_Exciter::WDE_Exciter() : m_version(kDefaultVersion) {
    SetObjectName(GetName());
    WDE_Exciter::Reset();
}

WDE_Exciter::WDE_Exciter(int index) : WDE_Exciter() {
    m_index = index;
}

WDE_Exciter::WDE_Exciter(const WDE_Exciter& other) = default;

WDE_Exciter& WDE_Exciter::operator=(const WDE_Exciter& other) = default;

WDE_Exciter::~WDE_Exciter() = default;

bool WDE_Exciter::HasData() const {
    return m_signalType != Unset::Enum && IsSet(m_symbolRate) && IsSet(m_level);
}

bool WDE_Exciter::AnyData() const {
    return m_signalType != Unset::Enum || IsSet(m_frequencyShift) || IsSet(m_symbolRate) ||
           IsSet(m_level);
}

void WDE_Exciter::Reset() {
    m_signalType = static_cast<SignalType>(Unset::Enum);
    m_symbolRate = Unset::Double;
    m_frequencyShift = Unset::Double;
    m_level = Unset::Double;
    SetInvalid(m_index);
    m_itemName.clear();
}

void WDE_Exciter::Check() const {
    // Any value but -1 passes, also one outside the table.
    if (m_signalType == Unset::Enum)
        throw KMException(kPleaseSetSignalType);
    if (!IsSet(m_symbolRate))
        throw KMException(kPleaseSetSymbolRate);
    if (!IsSet(m_level))
        throw KMException(kPleaseSetLevel);
}

void WDE_Exciter::GetXml(QXmlStreamWriter& writer) const {
    writer.writeStartElement(GetObjectName());
    ItemAttributes::WriteItem(*this, writer, m_version, m_index, m_itemName);
    writer.writeTextElement(kSignalType, GetStringForSignalType(m_signalType));
    writer.writeTextElement(kSymbolRate, RecordFormat::GeneralSix(m_symbolRate));
    if (IsSet(m_frequencyShift))
        writer.writeTextElement(kFrequencyShift, RecordFormat::GeneralSix(m_frequencyShift));
    writer.writeTextElement(kLevel, RecordFormat::GeneralSix(m_level));
    writer.writeEndElement();
}

void WDE_Exciter::ProcessXml(QXmlStreamReader& reader) {
    ItemAttributes::ReadItem(*this, reader, m_version, m_index, m_itemName);
    IKMObject::ProcessXml(reader);
}

const QString& WDE_Exciter::GetVersion() const {
    return m_version;
}

void WDE_Exciter::ProcessXmlStartElement(QXmlStreamReader& reader) {
    // A view into the reader: compared before the child is read, never after.
    const ChildName child(reader.name());
    if (child == kSignalType)
        m_signalType = GetSignalTypeForString(GetTextValue(reader));
    else if (child == kSymbolRate)
        m_symbolRate = ElementText::ToDouble(reader);
    else if (child == kFrequencyShift)
        m_frequencyShift = ElementText::ToDouble(reader);
    else if (child == kLevel)
        m_level = ElementText::ToDouble(reader);
}

QString WDE_Exciter::GetName() {
    return kObjectName;
}

WDE_Exciter::SignalType WDE_Exciter::GetSignalTypeForString(const QString& text) const {
    return static_cast<SignalType>(kSignalTypes.ValueOfDisplay(text));
}

QString WDE_Exciter::GetStringForSignalType(SignalType signalType) const {
    return kSignalTypes.DisplayText(signalType);
}

} // namespace KELMORA
