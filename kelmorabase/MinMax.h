#ifndef KELMORA_MINMAX_H
#define KELMORA_MINMAX_H

#include <KelmoraBaseExport.h>

namespace KELMORA {

// A plain pair of doubles: the minimum and the maximum of a range. No order
// between the two is enforced.
class KELMORABASE_EXPORT MinMax {
public:
    MinMax();
    MinMax(double min, double max);

    double GetMin() const { return m_min; }
    double GetMax() const { return m_max; }
    void SetMin(double min) { m_min = min; }
    void SetMax(double max) { m_max = max; }

private:
    double m_min;
    double m_max;
};

} // namespace KELMORA

#endif
