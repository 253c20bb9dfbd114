#include "roads/SpeedStretches.h"

#include <algorithm>

namespace roadcheck {

namespace {

// What the options say as places along the road. A station that an equation lets come twice counts
// from its first place, and to its last.
std::vector<DesignSpeed> Chosen(const Alignment& road, const std::vector<SpeedChoice>& choices)
{
    std::vector<DesignSpeed> chosen;
    for (const SpeedChoice& choice : choices) {
        DesignSpeed one = {0, road.length, choice.speed};
        if (choice.stretch) {
            const auto from = road.stations.Places(choice.stretch->from, road.length);
            const auto to = road.stations.Places(choice.stretch->to, road.length);
            // Beyond the road's ends a station has no place; the road's own end is meant.
            const double a = from.empty()
                                 ? road.stations.At(0) <= choice.stretch->from ? road.length : 0
                                 : from.front();
            const double b =
                to.empty() ? road.stations.At(road.length) >= choice.stretch->to ? 0 : road.length
                           : to.back();
            one.from = std::min(a, b);
            one.to = std::max(a, b);
        }
        chosen.push_back(one);
    }
    return chosen;
}

} // namespace

SpeedStretches::SpeedStretches(const Alignment& road, const std::vector<SpeedChoice>& choices)
{
    const std::vector<DesignSpeed> chosen = Chosen(road, choices);
    std::vector<double> cuts = {0, road.length};
    for (const auto* list : {&chosen, &road.speeds})
        for (const DesignSpeed& one : *list) {
            cuts.push_back(std::clamp(one.from, 0.0, road.length));
            cuts.push_back(std::clamp(one.to, 0.0, road.length));
        }
    std::sort(cuts.begin(), cuts.end());
    for (size_t i = 1; i < cuts.size(); ++i) {
        const double from = cuts[i - 1], to = cuts[i], middle = (from + to) / 2;
        if (to - from <= kNoLength) continue;
        const auto holds = [&](const DesignSpeed& one) {
            return one.from <= middle && middle <= one.to;
        };
        int speed = 0;
        for (const DesignSpeed& one : road.speeds)
            if (holds(one)) speed = std::max(speed, one.speed);
        for (const DesignSpeed& one : chosen)
            if (holds(one)) speed = one.speed;
        if (speed == 0) continue;
        if (!m_stretches.empty() && m_stretches.back().speed == speed &&
            from - m_stretches.back().to <= kNoLength)
            m_stretches.back().to = to;
        else
            m_stretches.push_back({from, to, speed});
    }
}

std::optional<int> SpeedStretches::Highest(double from, double to) const
{
    // Of two stretches that meet at the end of an element the one it lies in counts alone.
    if (to - from > 2 * kNoLength) {
        from += kNoLength;
        to -= kNoLength;
    }
    std::optional<int> highest;
    auto one = std::lower_bound(m_stretches.begin(), m_stretches.end(), from,
                                [](const DesignSpeed& a, double at) { return a.to < at; });
    for (; one != m_stretches.end() && one->from <= to; ++one)
        highest = std::max(highest.value_or(0), one->speed);
    return highest;
}

} // namespace roadcheck
