// SPDX-License-Identifier: MIT
#ifndef KELMORA_EXCITERSETTINGSEXPORT_H
#define KELMORA_EXCITERSETTINGSEXPORT_H

// Symbols of ExciterSettings are hidden unless marked with this macro.
#if defined(EXCITERSETTINGS_BUILD)
#define EXCITERSETTINGS_EXPORT __attribute__((visibility("default")))
#else
#define EXCITERSETTINGS_EXPORT
#endif

#endif
