#include "roads/AxisTicks.h"

#include <algorithm>
#include <cmath>

namespace roadcheck {

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
    std::vector<double> multiples;
    const double last = std::floor(high / step + kOff);
    // The 0 takes the sign off a -0.
    for (double i = std::ceil(low / step - kOff); i <= last; ++i)
        multiples.push_back(i * step + 0.0);
    return multiples;
}

int DecimalsOf(double step)
{
    return std::max(0, static_cast<int>(-std::floor(std::log10(step) + 1e-9)));
}

} // namespace roadcheck
