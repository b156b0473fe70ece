// SPDX-License-Identifier: MIT
#ifndef KELMORA_ELEMENTNAMES_H
#define KELMORA_ELEMENTNAMES_H

#include <QString>

namespace KELMORA {

// Element and attribute names used by more than one record. Each record keeps
// the names of its own fields in its source file. All of them are created
// when the library is loaded and never change.
namespace ElementNames {
extern const QString Version;
extern const QString Index;
extern const QString Name;
extern const QString Frequency;
extern const QString Bandwidth;
extern const QString Active;
extern const QString ExciterSet;
extern const QString MinimumFixedFrequencyLength;
extern const QString AbsoluteThresholdValue;
extern const QString TransmitTime;
} // namespace ElementNames

} // namespace KELMORA

#endif
