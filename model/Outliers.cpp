#include "model/Outliers.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace designspec {

namespace {

constexpr std::size_t kMost = 200; // of values: the search takes their number to the third power
constexpr std::size_t kOneIn = 4;  // that may be out of order

// The values of a row that are left when those out of order are taken out.
struct Kept {
    std::size_t count = 0;
    double bends = 0; // how much the slope changes from one value to the next, all together
    std::vector<std::size_t> places;

    bool IsBetterThan(const Kept& other) const
    {
        return std::pair(count, -bends) > std::pair(other.count, -other.bends);
    }
};

// Finds the longest, and of these the smoothest, part of a row that rises.
class LongestRise {
public:
    explicit LongestRise(const std::vector<RowValue>& row) : m_row(row), m_best(row.size())
    {
        for (auto& ends : m_best)
            ends.resize(row.size());
    }

    Kept Find()
    {
        Kept found{1, 0, {0}};
        std::pair<std::size_t, std::size_t> end;
        for (std::size_t last = 1; last < m_row.size(); ++last)
            for (std::size_t before = 0; before < last; ++before) {
                if (!Rises(before, last)) continue;
                const Best& best = m_best[before][last] = BestTo(before, last);
                const Kept kept{best.count, best.bends, {}};
                if (!kept.IsBetterThan(found)) continue;
                found = kept;
                end = {before, last};
            }
        if (found.count > 1) found.places = WayTo(end.first, end.second);
        return found;
    }

private:
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
    // Of the parts that end with two values.
    struct Best {
        std::size_t count = 2;
        double bends = 0;
        std::size_t previous = kNone; // stands before the two
    };

    bool Rises(std::size_t from, std::size_t to) const
    {
        return m_row[to].value >= m_row[from].value;
    }
    double Slope(std::size_t from, std::size_t to) const
    {
        return (m_row[to].value - m_row[from].value) / (m_row[to].at - m_row[from].at);
    }

    Best BestTo(std::size_t before, std::size_t last) const
    {
        Best best;
        for (std::size_t i = 0; i < before; ++i) {
            if (!Rises(i, before)) continue;
            const Best& so = m_best[i][before];
            const double bends = so.bends + std::abs(Slope(before, last) - Slope(i, before));
            if (std::pair(so.count + 1, -bends) > std::pair(best.count, -best.bends))
                best = {so.count + 1, bends, i};
        }
        return best;
    }

    std::vector<std::size_t> WayTo(std::size_t before, std::size_t last) const
    {
        std::vector<std::size_t> way{last};
        while (before != kNone) {
            way.push_back(before);
            last = std::exchange(before, m_best[before][last].previous);
        }
        std::reverse(way.begin(), way.end());
        return way;
    }

    const std::vector<RowValue>& m_row;
    std::vector<std::vector<Best>> m_best; // by the last two
};

// Which values of the row count, and these.
std::pair<std::vector<std::size_t>, std::vector<RowValue>>
OnePerPlace(const std::vector<RowValue>& row)
{
    std::pair<std::vector<std::size_t>, std::vector<RowValue>> kept;
    for (std::size_t i = 0; i < row.size(); ++i) {
        if (i + 1 < row.size() && row[i + 1].at == row[i].at) continue;
        kept.first.push_back(i);
        kept.second.push_back(row[i]);
    }
    return kept;
}

} // namespace

std::vector<std::size_t> Outliers(const std::vector<RowValue>& row)
{
    if (row.size() > kMost) return {};
    auto [places, values] = OnePerPlace(row);
    if (values.size() < kOneIn) return {};
    const Kept rising = LongestRise(values).Find();
    for (RowValue& one : values)
        one.value = -one.value;
    const Kept falling = LongestRise(values).Find();

    const Kept& kept = rising.count > falling.count ? rising : falling;
    const std::size_t out = values.size() - kept.count;
    if (rising.count == falling.count || out > values.size() / kOneIn) return {};
    std::vector<std::size_t> outliers;
    for (std::size_t i = 0; i < values.size(); ++i)
        if (!std::binary_search(kept.places.begin(), kept.places.end(), i))
            outliers.push_back(places[i]);
    return outliers;
}

} // namespace designspec
