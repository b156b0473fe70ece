// SPDX-License-Identifier: MIT
#include "MinMax.h"

namespace KELMORA {

MinMax::MinMax() : m_min(0.0), m_max(0.0) {}

MinMax::MinMax(double min, double max) : m_min(min), m_max(max) {}

} // namespace KELMORA
