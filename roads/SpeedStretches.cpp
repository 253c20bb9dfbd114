#include "roads/SpeedStretches.h"

#include <algorithm>
#include <functional>
#include <set>

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

// Goes along the road once and says at each place what holds of a list.
class Passage {
public:
    // Of several that hold the one with the highest rank is meant.
    Passage(const std::vector<DesignSpeed>& list, const std::function<int(size_t)>& rank)
        : m_list(list)
    {
        for (size_t i = 0; i < list.size(); ++i)
            if (list[i].from <= list[i].to) m_begins.emplace_back(rank(i), i);
        m_ends = m_begins;
        Sort(m_begins, &DesignSpeed::from);
        Sort(m_ends, &DesignSpeed::to);
    }

    // Null when none holds there. No place comes before the one of the call before.
    const DesignSpeed* At(double at)
    {
        for (; m_begun < m_begins.size() && Of(m_begins[m_begun]).from <= at; ++m_begun)
            m_holding.insert(m_begins[m_begun]);
        for (; m_ended < m_ends.size() && Of(m_ends[m_ended]).to < at; ++m_ended)
            m_holding.erase(m_ends[m_ended]);
        return m_holding.empty() ? nullptr : &Of(*m_holding.rbegin());
    }

private:
    using Ranked = std::pair<int, size_t>; // with its place in the list

    const DesignSpeed& Of(const Ranked& one) const { return m_list[one.second]; }
    void Sort(std::vector<Ranked>& all, double DesignSpeed::*by) const
    {
        std::sort(all.begin(), all.end(),
                  [&](const Ranked& a, const Ranked& b) { return Of(a).*by < Of(b).*by; });
    }

    const std::vector<DesignSpeed>& m_list;
    std::vector<Ranked> m_begins, m_ends; // in order of place
    size_t m_begun = 0, m_ended = 0;
    std::set<Ranked> m_holding;
};

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
    Passage choice(chosen, [](size_t i) { return static_cast<int>(i); });
    Passage file(road.speeds, [&](size_t i) { return road.speeds[i].speed; });
    for (size_t i = 1; i < cuts.size(); ++i) {
        const double from = cuts[i - 1], to = cuts[i], middle = (from + to) / 2;
        if (to - from <= kNoLength) continue;
        const DesignSpeed* const inFile = file.At(middle);
        const DesignSpeed* const inChoice = choice.At(middle);
        const int speed = inChoice ? inChoice->speed : inFile ? inFile->speed : 0;
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
