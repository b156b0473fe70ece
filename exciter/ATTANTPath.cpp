// SPDX-License-Identifier: MIT
#include "ATTANTPath.h"

#include "RecordFormat.h"
#include "RecordMessages.h"
#include "TextElement.h"
#include "ValueNotes.h"

namespace KELMORA {

namespace {

const QString kObjectName = QStringLiteral("ATTANTPath");
const QString kSwitchNames[] = {QStringLiteral("ATT1"), QStringLiteral("ATT2"),
                                QStringLiteral("ATT3"), QStringLiteral("ATT4"),
                                QStringLiteral("ATT5"), QStringLiteral("ATT6")};
// Held as text, read as a flag: the diagnostics point out texts other than
// "true" and "false".
using ValueNotes::Kind;
const ValueNotes::Registration kSwitchNotes[] = {
    {kObjectName, kSwitchNames[0], Kind::TextFlag}, {kObjectName, kSwitchNames[1], Kind::TextFlag},
    {kObjectName, kSwitchNames[2], Kind::TextFlag}, {kObjectName, kSwitchNames[3], Kind::TextFlag},
    {kObjectName, kSwitchNames[4], Kind::TextFlag}, {kObjectName, kSwitchNames[5], Kind::TextFlag},
};

} // namespace

ATTANTPath::ATTANTPath() {
    SetObjectName(kObjectName);
}

ATTANTPath::ATTANTPath(const ATTANTPath& other) = default;

// clang-tidy 14 takes the index of the implicit loop that copies the array
// member for a declared identifier.
// NOLINTNEXTLINE(bugprone-reserved-identifier)
ATTANTPath& ATTANTPath::operator=(const ATTANTPath& other) = default;

ATTANTPath::~ATTANTPath() = default;

bool ATTANTPath::HasData() const {
    for (const QString& text : m_switches) {
        if (text.isEmpty())
            return false;
    }
    return true;
}

bool ATTANTPath::AnyData() const {
    for (const QString& text : m_switches) {
        if (!text.isEmpty())
            return true;
    }
    return false;
}

void ATTANTPath::Reset() {
    for (QString& text : m_switches)
        text.clear();
}

void ATTANTPath::Check() const {
    for (int position = 0; position < SwitchCount; ++position) {
        if (m_switches[position].isEmpty())
            throw RecordMessages::PleaseSet(GetObjectName(), kSwitchNames[position]);
    }
}

void ATTANTPath::GetXml(QXmlStreamWriter& writer) const {
    if (!HasData())
        return;
    writer.writeStartElement(GetObjectName());
    for (int position = 0; position < SwitchCount; ++position)
        TextElement::Write(writer, kSwitchNames[position], m_switches[position]);
    writer.writeEndElement();
}

void ATTANTPath::ProcessXmlStartElement(QXmlStreamReader& reader) {
    // A view into the reader: compared before the child is read, never after.
    const QStringView child = reader.name();
    for (int position = 0; position < SwitchCount; ++position) {
        if (child == kSwitchNames[position]) {
            m_switches[position] = GetTextValue(reader);
            return;
        }
    }
    throw RecordMessages::UnknownTag(child.toString(), GetObjectName());
}

bool ATTANTPath::IsOn(int position) const {
    return RecordFormat::IsTrue(m_switches[position]);
}

void ATTANTPath::SetSwitch(int position, bool on) {
    m_switches[position] = RecordFormat::Flag(on);
}

} // namespace KELMORA
