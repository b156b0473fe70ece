// SPDX-License-Identifier: MIT
// Tree form of Exciter_Settings, the root of the settings tree.
#include "RecordRegistry.h"

#include <Exciter_Settings.h>

namespace {

using KELMORA::Exciter_Settings;

QString ModeName(const Exciter_Settings& settings) {
    const Exciter_Settings::ExciterModeType mode = settings.GetExciterMode();
    // ExciterModeTypeToName throws for anything but a known mode, unset
    // included.
    const bool known =
        static_cast<quint32>(mode) < static_cast<quint32>(settings.GetExciterModes().size());
    return known ? settings.ExciterModeTypeToName(mode) : QString();
}

void PrintExciterSettings(const Exciter_Settings& settings, tool::TreePrinter& out) {
    out.Version(settings);
    out.Enum(QStringLiteral("ExciterMode"), settings.GetExciterMode(), ModeName(settings));
    out.Flag(QStringLiteral("Autostart"), settings.GetAutostart());
    out.Record(settings.GetTGN());
    out.Record(settings.GetSCU());
    // WDE takes part in the settings only in the modes that use it: in the
    // others it is neither read, written nor checked, so whatever the member
    // holds is not part of them and is not shown.
    if (Exciter_Settings::IsValidWDE(settings.GetExciterMode()))
        out.Record(settings.GetWDE());
}

QStringList ExciterSettingsChoices(const Exciter_Settings& settings, const QString& element) {
    return element == Exciter_Settings::GetExciterModeName() ? settings.GetExciterModes()
                                                             : QStringList();
}

const tool::RegisterRecord<Exciter_Settings> kRegisterExciterSettings(&PrintExciterSettings,
                                                                      &ExciterSettingsChoices);

} // namespace
