// SPDX-License-Identifier: MIT
#include "WDE_Rasterdetector.h"

#include "ChildName.h"
#include "DoubleListCodec.h"
#include "ElementNames.h"
#include "ElementText.h"
#include "EnumTable.h"
#include "ItemAttributes.h"
#include "RecordFormat.h"
#include "RecordMessages.h"
#include "ValueNotes.h"

namespace KELMORA {

namespace {

const QString kObjectName = QStringLiteral("WDE_Rasterdetector");
const QString kDefaultVersion = QStringLiteral("0.1");
const QString kChannelStep = QStringLiteral("ChannelStep");
const QString kThresholdMode = QStringLiteral("ThresholdMode");
const QString kRelativeThresholdValue = QStringLiteral("RelativeThresholdValue");
const QString kRelativeThresholdAvgTime = QStringLiteral("RelativeThresholdAvgTime");
const QString kAmplifier = QStringLiteral("Amplifier");

// Appended to the object name as they stand.
const QString kPleaseSetChannelStep = QStringLiteral(":Please set ChannelStep!");
const QString kPleaseSetMinimumFixedFrequencyLength =
    QStringLiteral(":Please set MinimumFixedFrequencyLength!");
const QString kPleaseSetExciterSet = QStringLiteral(":Please set ExciterSet!");
const QString kPleaseSetThresholdMode = QStringLiteral(":Please set ThresholdMode!");
const QString kPleaseSetAbsoluteThresholdValue =
    QStringLiteral(":Please set AbsoluteThresholdValue!");
const QString kPleaseSetRelativeThresholdValue =
    QStringLiteral(":Please set RelativeThresholdValue!");
const QString kPleaseSetRelativeThresholdAvgTime =
    QStringLiteral(":Please set RelativeThresholdAvgTime!");

const EnumTable kAmplifiers{{WDE_Rasterdetector::AMPLIFIER_VUHF, "VUHF"},
                            {WDE_Rasterdetector::AMPLIFIER_UHF1, "UHF1"},
                            {WDE_Rasterdetector::AMPLIFIER_UHF2, "UHF2"},
                            {WDE_Rasterdetector::AMPLIFIER_SHF1, "SHF1"},
                            {WDE_Rasterdetector::AMPLIFIER_SHF2, "SHF2"}};
const EnumTable kThresholdModes{{WDE_Rasterdetector::THRESHOLDMODE_ABSOLUTE, "ABSOLUTE"},
                                {WDE_Rasterdetector::THRESHOLDMODE_RELATIVE, "RELATIVE"}};
const EnumTable kAvgTimes{{WDE_Rasterdetector::AVGTIME_SHORT, "SHORT", "SHORt"},
                          {WDE_Rasterdetector::AVGTIME_MIDDLE, "MIDDLE", "MIDDLe"},
                          {WDE_Rasterdetector::AVGTIME_LONG, "LONG"}};

using ValueNotes::Kind;
using ValueNotes::Registration;
const Registration kNotes[] = {
    {kObjectName, kAmplifier, Kind::Enumeration, &kAmplifiers},
    {kObjectName, kThresholdMode, Kind::Enumeration, &kThresholdModes},
    {kObjectName, kRelativeThresholdAvgTime, Kind::Enumeration, &kAvgTimes},
    {kObjectName, ElementNames::Frequency, Kind::DoubleList},
};

} // namespace

WDE_Rasterdetector::WDE_Rasterdetector() : m_version(kDefaultVersion), m_active(false) {
    SetObjectName(GetName());
    WDE_Rasterdetector::Reset();
}

WDE_Rasterdetector::WDE_Rasterdetector(int index) : WDE_Rasterdetector() {
    m_index = index;
}

WDE_Rasterdetector::WDE_Rasterdetector(const WDE_Rasterdetector& other) = default;

WDE_Rasterdetector& WDE_Rasterdetector::operator=(const WDE_Rasterdetector& other) = default;

WDE_Rasterdetector::~WDE_Rasterdetector() = default;

bool WDE_Rasterdetector::HasData() const {
    if (!IsValid(m_channelStep) || !IsValid(m_minimumFixedFrequencyLength) ||
        !IsValid(m_exciterSet) || m_thresholdMode == Unset::Enum)
        return false;
    if (m_thresholdMode == THRESHOLDMODE_ABSOLUTE)
        return IsValid(m_absoluteThresholdValue);
    if (m_thresholdMode == THRESHOLDMODE_RELATIVE)
        return IsValid(m_relativeThresholdValue) && m_relativeThresholdAvgTime != Unset::Enum;
    return false;
}

bool WDE_Rasterdetector::AnyData() const {
    return IsValid(m_channelStep) || IsValid(m_minimumFixedFrequencyLength) ||
           IsValid(m_exciterSet) || m_thresholdMode != Unset::Enum ||
           IsValid(m_absoluteThresholdValue) || IsValid(m_relativeThresholdValue) ||
           IsValid(m_relativeThresholdAvgTime != Unset::Enum) || !m_frequencyList.isEmpty() ||
           m_amplifier != Unset::Enum;
}

void WDE_Rasterdetector::Reset() {
    SetInvalid(m_channelStep);
    SetInvalid(m_minimumFixedFrequencyLength);
    SetInvalid(m_exciterSet);
    m_thresholdMode = static_cast<ThresholdMode>(Unset::Enum);
    SetInvalid(m_absoluteThresholdValue);
    SetInvalid(m_relativeThresholdValue);
    m_relativeThresholdAvgTime = static_cast<AvgTime>(Unset::Enum);
    m_frequencyList = QVector<double>(); // releases the storage, unlike clear()
    m_itemName.clear();
    SetInvalid(m_index);
    m_amplifier = static_cast<Amplifier>(Unset::Enum);
}

void WDE_Rasterdetector::Check() const {
    if (m_channelStep == Unset::Double)
        throw RecordMessages::ObjectText(GetObjectName(), kPleaseSetChannelStep);
    if (m_minimumFixedFrequencyLength == Unset::Double)
        throw RecordMessages::ObjectText(GetObjectName(), kPleaseSetMinimumFixedFrequencyLength);
    if (m_exciterSet == Unset::UnsignedInt)
        throw RecordMessages::ObjectText(GetObjectName(), kPleaseSetExciterSet);
    if (m_thresholdMode == Unset::Enum)
        throw RecordMessages::ObjectText(GetObjectName(), kPleaseSetThresholdMode);
    // A mode outside the table asks for neither threshold.
    if (m_thresholdMode == THRESHOLDMODE_ABSOLUTE && m_absoluteThresholdValue == Unset::Double)
        throw RecordMessages::ObjectText(GetObjectName(), kPleaseSetAbsoluteThresholdValue);
    if (m_thresholdMode == THRESHOLDMODE_RELATIVE && m_relativeThresholdValue == Unset::Double)
        throw RecordMessages::ObjectText(GetObjectName(), kPleaseSetRelativeThresholdValue);
    if (m_thresholdMode == THRESHOLDMODE_RELATIVE && m_relativeThresholdAvgTime == Unset::Enum)
        throw RecordMessages::ObjectText(GetObjectName(), kPleaseSetRelativeThresholdAvgTime);
}

void WDE_Rasterdetector::GetXml(QXmlStreamWriter& writer) const {
    writer.writeStartElement(GetObjectName());
    ItemAttributes::WriteItem(*this, writer, m_version, m_index, m_itemName);
    writer.writeTextElement(kChannelStep, RecordFormat::GeneralSix(m_channelStep));
    writer.writeTextElement(ElementNames::MinimumFixedFrequencyLength,
                            RecordFormat::GeneralSix(m_minimumFixedFrequencyLength));
    writer.writeTextElement(ElementNames::ExciterSet, RecordFormat::Unsigned(m_exciterSet));
    writer.writeTextElement(ElementNames::Active, RecordFormat::Flag(m_active));
    writer.writeTextElement(kThresholdMode, GetStringForThresholdMode(m_thresholdMode));
    // Both thresholds are kept whatever the mode.
    if (IsValid(m_absoluteThresholdValue))
        writer.writeTextElement(ElementNames::AbsoluteThresholdValue,
                                RecordFormat::GeneralSix(m_absoluteThresholdValue));
    if (IsValid(m_relativeThresholdValue))
        writer.writeTextElement(kRelativeThresholdValue,
                                RecordFormat::GeneralSix(m_relativeThresholdValue));
    if (m_relativeThresholdAvgTime != Unset::Enum)
        writer.writeTextElement(kRelativeThresholdAvgTime,
                                GetStringForAvgTime(m_relativeThresholdAvgTime));
    if (m_amplifier != Unset::Enum)
        writer.writeTextElement(kAmplifier, GetStringForAmplifier(m_amplifier));
    writer.writeTextElement(ElementNames::Frequency, DoubleListCodec::Encode(m_frequencyList));
    writer.writeEndElement();
}

void WDE_Rasterdetector::ProcessXml(QXmlStreamReader& reader) {
    ItemAttributes::ReadItem(*this, reader, m_version, m_index, m_itemName);
    IKMObject::ProcessXml(reader);
}

const QString& WDE_Rasterdetector::GetVersion() const {
    return m_version;
}

void WDE_Rasterdetector::ProcessXmlStartElement(QXmlStreamReader& reader) {
    // A view into the reader: compared before the child is read, never after.
    const ChildName child(reader.name());
    if (child == kChannelStep)
        m_channelStep = ElementText::ToDouble(reader);
    else if (child == ElementNames::MinimumFixedFrequencyLength)
        m_minimumFixedFrequencyLength = ElementText::ToDouble(reader);
    else if (child == ElementNames::ExciterSet)
        m_exciterSet = ElementText::ToUnsigned(reader);
    else if (child == ElementNames::Active)
        m_active = ElementText::IsTrue(reader);
    else if (child == kThresholdMode)
        m_thresholdMode = GetThresholdModeForString(GetTextValue(reader));
    else if (child == ElementNames::AbsoluteThresholdValue)
        m_absoluteThresholdValue = ElementText::ToDouble(reader);
    else if (child == kRelativeThresholdValue)
        m_relativeThresholdValue = ElementText::ToDouble(reader);
    else if (child == kRelativeThresholdAvgTime)
        m_relativeThresholdAvgTime = GetAvgTimeForString(GetTextValue(reader));
    else if (child == kAmplifier)
        m_amplifier = GetAmplifierForString(GetTextValue(reader));
    else if (child == ElementNames::Frequency)
        m_frequencyList = ElementText::ToDoubleList(reader);
}

QString WDE_Rasterdetector::GetName() {
    return kObjectName;
}

unsigned int WDE_Rasterdetector::GetExciterSet() const {
    return m_exciterSet;
}

void WDE_Rasterdetector::AppendFrequency(const double& frequency) {
    m_frequencyList.append(frequency);
}

QString WDE_Rasterdetector::GetStringForAmplifier(Amplifier amplifier) const {
    return kAmplifiers.DisplayText(amplifier);
}

WDE_Rasterdetector::Amplifier WDE_Rasterdetector::GetAmplifierForString(const QString& text) const {
    return static_cast<Amplifier>(kAmplifiers.ValueOfDisplay(text));
}

QString WDE_Rasterdetector::GetStringForThresholdMode(ThresholdMode thresholdMode) const {
    return kThresholdModes.DisplayText(thresholdMode);
}

WDE_Rasterdetector::ThresholdMode
WDE_Rasterdetector::GetThresholdModeForString(const QString& text) const {
    return static_cast<ThresholdMode>(kThresholdModes.ValueOfDisplay(text));
}

QString WDE_Rasterdetector::GetStringForAvgTime(AvgTime avgTime) const {
    return kAvgTimes.DisplayText(avgTime);
}

WDE_Rasterdetector::AvgTime WDE_Rasterdetector::GetAvgTimeForString(const QString& text) const {
    return static_cast<AvgTime>(kAvgTimes.ValueOfDisplay(text));
}

QString WDE_Rasterdetector::GetSKPIStringForAvgTime(AvgTime avgTime) const {
    return kAvgTimes.SkpiText(avgTime);
}

WDE_Rasterdetector::AvgTime WDE_Rasterdetector::GetAvgTimeForSKPIString(const QString& text) const {
    return static_cast<AvgTime>(kAvgTimes.ValueOfSkpi(text));
}

} // namespace KELMORA
