// SPDX-License-Identifier: MIT
#include "KMException.h"

namespace KELMORA {

KMException::KMException(const QString& message) : KelmoraException(message) {}

KMException::~KMException() = default;

} // namespace KELMORA
