// SPDX-License-Identifier: MIT
#include "Exciter_Settings.h"

#include "ItemAttributes.h"
#include "RecordFormat.h"
#include "RecordMessages.h"

namespace KELMORA {

namespace {

const QString kVersionDefault = QStringLiteral("1.0");
const QString kExciterMode = QStringLiteral("ExciterMode");
const QString kAutostart = QStringLiteral("Autostart");
const QString kFalse = QStringLiteral("false");
const QStringList kModeNames{QStringLiteral("Continuous"),
                             QStringLiteral("Deception"),
                             QStringLiteral("Trap"),
                             QStringLiteral("Follower"),
                             QStringLiteral("Fast Sequential"),
                             QStringLiteral("Fast Sequential Parallel"),
                             QStringLiteral("Look Through"),
                             QStringLiteral("Look Through Parallel"),
                             QStringLiteral("Sweep"),
                             QStringLiteral("Wideband"),
                             QStringLiteral("Barrage"),
                             QStringLiteral("Broadcast")};
const quint32 kHighestMode = Exciter_Settings::EXCITERMODE_BROADCAST;

// Every range test on the mode is unsigned, so -1 (unset) is out of range.
bool InModeRange(qint32 mode) {
    return static_cast<quint32>(mode) <= kHighestMode;
}

} // namespace

Exciter_Settings::Exciter_Settings()
    : IKMObject(OBJECT_TYPE_EXCITER_SETTINGS), m_version(kVersionDefault),
      m_exciterMode(static_cast<ExciterModeType>(Unset::Enum)), m_exciterModes(kModeNames) {
    m_tgn.Reset();
    m_scu.Reset();
    m_wde.Reset();
}

Exciter_Settings::Exciter_Settings(const Exciter_Settings& other) = default;

Exciter_Settings& Exciter_Settings::operator=(const Exciter_Settings& other) = default;

Exciter_Settings::~Exciter_Settings() = default;

bool Exciter_Settings::HasData() const {
    if (!IsValidExciterModeType(m_exciterMode))
        return false;
    return m_tgn.HasData() && m_scu.HasData() && (!UsesWDE() || m_wde.HasData());
}

bool Exciter_Settings::AnyData() const {
    return IsValidExciterModeType(m_exciterMode) || m_tgn.HasData() || m_scu.HasData();
}

void Exciter_Settings::Reset() {
    m_exciterMode = static_cast<ExciterModeType>(Unset::Enum);
    m_tgn.Reset();
    m_scu.Reset();
    m_wde.Reset();
    m_autostart = true;
}

void Exciter_Settings::Check() const {
    if (m_exciterMode == Unset::Enum)
        throw RecordMessages::PleaseSetWithoutMark(GetObjectName(), kExciterMode);
    m_tgn.Check();
    m_scu.Check();
    if (UsesWDE())
        m_wde.Check();
}

void Exciter_Settings::GetXml(QXmlStreamWriter& writer) const {
    if (!HasData())
        return;
    writer.writeStartElement(GetObjectName());
    ItemAttributes::WriteVersion(writer, m_version);
    writer.writeTextElement(kExciterMode, ExciterModeTypeToName(m_exciterMode));
    writer.writeTextElement(kAutostart, RecordFormat::Flag(m_autostart));
    m_tgn.GetXml(writer);
    m_scu.GetXml(writer);
    if (UsesWDE())
        m_wde.GetXml(writer);
    writer.writeEndElement();
}

void Exciter_Settings::ProcessXml(QXmlStreamReader& reader) {
    m_version = ItemAttributes::ReadVersion(reader);
    IKMObject::ProcessXml(reader);
}

const QString& Exciter_Settings::GetVersion() const {
    return m_version;
}

void Exciter_Settings::ProcessXmlStartElement(QXmlStreamReader& reader) {
    // A view into the reader: compared before the child is read, never after.
    const QStringView child = reader.name();
    if (child == kExciterMode) {
        SetExciterMode(ToExciterModeType(GetTextValue(reader)));
    } else if (child == kAutostart) {
        m_autostart = GetTextValue(reader) != kFalse;
    } else if (child == m_tgn.GetObjectName()) {
        m_tgn.ProcessXml(reader);
    } else if (child == m_scu.GetObjectName()) {
        m_scu.ProcessXml(reader);
    } else if (child == m_wde.GetObjectName()) {
        if (UsesWDE())
            m_wde.ProcessXml(reader);
        // Otherwise the element loop passes over the child.
    } else {
        throw RecordMessages::UnknownTag(child.toString(), GetObjectName());
    }
}

bool Exciter_Settings::GetAutostart() {
    return m_autostart;
}

const bool& Exciter_Settings::GetAutostart() const {
    return m_autostart;
}

void Exciter_Settings::SetAutostart(bool autostart) {
    m_autostart = autostart;
}

QString Exciter_Settings::GetAutostartName() {
    return kAutostart;
}

Exciter_Settings::ExciterModeType Exciter_Settings::GetExciterMode() {
    return m_exciterMode;
}

const Exciter_Settings::ExciterModeType& Exciter_Settings::GetExciterMode() const {
    return m_exciterMode;
}

QString Exciter_Settings::GetExciterModeName() {
    return kExciterMode;
}

void Exciter_Settings::SetExciterMode(const ExciterModeType& mode) {
    if (!IsValidExciterModeType(mode))
        throw RecordMessages::InvalidTaskType(GetObjectName(), mode);
    m_exciterMode = mode;
}

void Exciter_Settings::SetExciterMode(const QString& name) {
    if (name.isEmpty())
        throw RecordMessages::PleaseSetWithoutMark(GetObjectName(), kExciterMode);
    if (!m_exciterModes.contains(name))
        throw RecordMessages::UnknownNamed(kExciterMode, name);
    m_exciterMode = NameToExciterModeType(name);
}

const QStringList& Exciter_Settings::GetExciterModes() const {
    return m_exciterModes;
}

Exciter_Settings::ExciterModeType
Exciter_Settings::NameToExciterModeType(const QString& name) const {
    const ExciterModeType mode = ToExciterModeType(name);
    if (mode == Unset::Enum)
        throw RecordMessages::InvalidValueType(GetObjectName(), name);
    return mode;
}

const QString& Exciter_Settings::ExciterModeTypeToName(ExciterModeType mode) const {
    if (!IsValidExciterModeType(mode))
        throw RecordMessages::InvalidValueType(GetObjectName(), QString::number(mode));
    return m_exciterModes.at(mode);
}

bool Exciter_Settings::IsValidScan(const ExciterModeType& mode) {
    return mode == EXCITERMODE_SWEEP;
}

bool Exciter_Settings::IsValidWDE(const ExciterModeType& mode) {
    switch (mode) {
    case EXCITERMODE_TRAP:
    case EXCITERMODE_FOLLOWER:
    case EXCITERMODE_FAST_SEQUENTIAL:
    case EXCITERMODE_FAST_SEQUENTIAL_PARALLEL:
    case EXCITERMODE_LOOK_THROUGH:
    case EXCITERMODE_LOOK_THROUGH_PARALLEL:
    case EXCITERMODE_BROADCAST:
        return true;
    default:
        return false;
    }
}

Exciter_Settings::ExciterModeType Exciter_Settings::ToExciterModeType(const QString& name) const {
    return static_cast<ExciterModeType>(m_exciterModes.indexOf(name));
}

bool Exciter_Settings::IsValidExciterModeType(const ExciterModeType& mode) const {
    return InModeRange(mode);
}

bool Exciter_Settings::UsesWDE() const {
    return IsValidWDE(m_exciterMode);
}

} // namespace KELMORA
