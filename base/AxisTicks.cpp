#include "base/AxisTicks.h"

#include <algorithm>
#include <cmath>

namespace designspec {

double StepOf(double range, double most)
{
    const double least = range / std::max(most, 1.0);
    const double power = std::pow(10, std::floor(std::log10(least)));
    for (const double times : {1.0, 2.0, 5.0})
        if (times * power >= least) return times * power;
    return 10 * power;
}

std::vector<double> MultiplesOf(double step, double low, double high)
{
    constexpr double kOff = 1e-6;
    const double first = std::ceil(low / step - kOff), last = std::floor(high / step + kOff);
    std::vector<double> multiples(static_cast<size_t>(std::max(last - first + 1, 0.0)));
    for (size_t i = 0; i < multiples.size(); ++i)
        multiples[i] = (first + static_cast<double>(i)) * step + 0.0; // -0 becomes 0
    return multiples;
}

int DecimalsOf(double step)
{
    return std::max(0, static_cast<int>(-std::floor(std::log10(step) + 1e-9)));
}

} // namespace designspec
