// SPDX-License-Identifier: MIT
#ifndef KELMORA_KELMORABASEEXPORT_H
#define KELMORA_KELMORABASEEXPORT_H

// Symbols of KelmoraBase are hidden unless marked with this macro.
#if defined(KELMORABASE_BUILD)
#define KELMORABASE_EXPORT __attribute__((visibility("default")))
#else
#define KELMORABASE_EXPORT
#endif

#endif
