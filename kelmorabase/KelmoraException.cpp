// SPDX-License-Identifier: MIT
#include "KelmoraException.h"

namespace KELMORA {

KelmoraException::KelmoraException(const QString& message) : m_message(message) {}

KelmoraException::~KelmoraException() = default;

const QString& KelmoraException::GetMessage() const {
    return m_message;
}

} // namespace KELMORA
