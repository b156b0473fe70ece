// SPDX-License-Identifier: MIT
#include "ElementNames.h"

namespace KELMORA {
namespace ElementNames {
const QString Version = QStringLiteral("Version");
const QString Index = QStringLiteral("Index");
const QString Name = QStringLiteral("Name");
const QString Frequency = QStringLiteral("Frequency");
const QString Bandwidth = QStringLiteral("Bandwidth");
const QString Active = QStringLiteral("Active");
const QString ExciterSet = QStringLiteral("ExciterSet");
const QString MinimumFixedFrequencyLength = QStringLiteral("MinimumFixedFrequencyLength");
const QString AbsoluteThresholdValue = QStringLiteral("AbsoluteThresholdValue");
const QString TransmitTime = QStringLiteral("TransmitTime");
} // namespace ElementNames
} // namespace KELMORA
