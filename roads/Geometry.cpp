#include "roads/Geometry.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>

namespace roadcheck {

using std::numbers::pi;

double Distance(const PlanPoint& a, const PlanPoint& b)
{
    return std::hypot(b.east - a.east, b.north - a.north);
}

Turn TurnOfArc(const PlanPoint& start, const PlanPoint& center, const PlanPoint& end)
{
    const double left = (end.east - start.east) * (center.north - start.north) -
                        (end.north - start.north) * (center.east - start.east);
    const double chord = Distance(start, end), radius = Distance(start, center);
    if (std::fabs(left) <= 1e-9 * chord * radius) return Turn::None;
    return left > 0 ? Turn::Left : Turn::Right;
}

double ArcLength(const PlanPoint& start, const PlanPoint& center, const PlanPoint& end, Turn turn)
{
    const auto bearing = [&](const PlanPoint& point) {
        return std::atan2(point.east - center.east, point.north - center.north);
    };
    double angle = bearing(end) - bearing(start); // clockwise
    if (turn == Turn::Left) angle = -angle;
    while (angle <= 1e-12)
        angle += 2 * pi;
    return angle * Distance(start, center);
}

std::optional<double> ArcLengthOfChord(double chord, double radius)
{
    const double half = chord / 2 / radius;
    // What rounding adds to a chord through the centre.
    if (!(half <= 1 + 1e-9)) return {};
    return 2 * radius * std::asin(std::min(half, 1.0));
}

double ClothoidChord(double length, double start, double end)
{
    // Gauss's rule of five points on equal parts, each of which turns little.
    constexpr double kAt[] = {0, 0.5384693101056831, -0.5384693101056831, 0.9061798459386640,
                              -0.9061798459386640};
    constexpr double kWeight[] = {0.5688888888888889, 0.4786286704993665, 0.4786286704993665,
                                  0.2369268850561891, 0.2369268850561891};
    constexpr int kParts = 8;
    const double part = length / kParts;
    std::complex<double> sum = 0;
    for (int i = 0; i < kParts; ++i)
        for (size_t k = 0; k < std::size(kAt); ++k) {
            const double at = (i + (1 + kAt[k]) / 2) * part;
            const double direction = start * at + (end - start) * at * at / (2 * length);
            sum += kWeight[k] * part / 2 * std::polar(1.0, direction);
        }
    return std::abs(sum);
}

std::optional<double> ClothoidLengthOfChord(double chord, double start, double end)
{
    // Up to half a circle the chord grows with the length.
    double low = chord;
    double high = 2 * pi / (std::fabs(start) + std::fabs(end));
    if (!(low <= high) || ClothoidChord(high, start, end) < chord) return {};
    for (int i = 0; i < 200 && high - low > 1e-9; ++i) {
        const double middle = (low + high) / 2;
        (ClothoidChord(middle, start, end) < chord ? low : high) = middle;
    }
    return (low + high) / 2;
}

} // namespace roadcheck
