// SPDX-License-Identifier: MIT
#ifndef KELMORA_MINMAX_H
#define KELMORA_MINMAX_H

#include <KelmoraBaseExport.h>

namespace KELMORA {

// A plain pair of doubles: the minimum and the maximum of a range. No order
// between the two is enforced.
class KELMORABASE_EXPORT MinMax {
public:
    // Both bounds 0.
    MinMax();
    // The given minimum and maximum, in this order.
    MinMax(double min, double max);

    // The minimum.
    double GetMin() const { return m_min; }
    // The maximum.
    double GetMax() const { return m_max; }
    // Sets the minimum, without comparing it with the maximum.
    void SetMin(double min) { m_min = min; }
    // Sets the maximum, without comparing it with the minimum.
    void SetMax(double max) { m_max = max; }

private:
    double m_min;
    double m_max;
};

} // namespace KELMORA

#endif
