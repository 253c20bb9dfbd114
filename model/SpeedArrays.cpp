#include "model/SpeedArrays.h"

#include <algorithm>
#include <vector>

namespace designspec {

namespace {

constexpr std::int64_t kWidest = 4096; // of a list of answers, which should stay in the cache

bool Ask(const SpeedToIntValues& table, int speed, QueryValue::QueryMode mode, double& value)
{
    int whole = 0;
    const bool found = QueryValue::QueryIntValBySpeed(&table, speed, mode, whole);
    if (found) value = whole;
    return found;
}

bool Ask(const SpeedToDoubleValues& table, int speed, QueryValue::QueryMode mode, double& value)
{
    return QueryValue::QueryDoubleValBySpeed(&table, speed, mode, value);
}

// The answers for all speeds from one below the table's to one above them, between which every
// other speed has the answer of the nearer end.
struct AllAnswers {
    std::int32_t first;
    std::vector<double> values;
    std::vector<std::uint8_t> found;
};

template <class Table>
void AskEach(const Table& table, std::span<const std::int32_t> speeds, QueryValue::QueryMode mode,
             double none, double* values, std::uint8_t* found)
{
    for (std::size_t i = 0; i < speeds.size(); ++i) {
        values[i] = none;
        const bool answered = Ask(table, speeds[i], mode, values[i]);
        if (found) found[i] = answered;
    }
}

void LookUp(const AllAnswers& all, std::span<const std::int32_t> speeds, double* values,
            std::uint8_t* found)
{
    const std::int32_t last = all.first + static_cast<std::int32_t>(all.values.size()) - 1;
    const auto place = [&](std::int32_t speed) {
        return static_cast<std::size_t>(std::clamp(speed, all.first, last) - all.first);
    };
    if (!found) {
        for (std::size_t i = 0; i < speeds.size(); ++i)
            values[i] = all.values[place(speeds[i])];
        return;
    }
    for (std::size_t i = 0; i < speeds.size(); ++i) {
        const std::size_t at = place(speeds[i]);
        values[i] = all.values[at];
        found[i] = all.found[at];
    }
}

template <class Table>
void AskMany(const Table& table, std::span<const std::int32_t> speeds, QueryValue::QueryMode mode,
             double none, double* values, std::uint8_t* found)
{
    std::int64_t low = 0, high = 0;
    for (const auto& entry : table) {
        low = std::min<std::int64_t>(low, entry.speed - std::int64_t{1});
        high = std::max<std::int64_t>(high, entry.speed + std::int64_t{1});
    }
    const std::int64_t width = high - low + 1;
    if (width > kWidest || width > static_cast<std::int64_t>(speeds.size()))
        return AskEach(table, speeds, mode, none, values, found);
    AllAnswers all{static_cast<std::int32_t>(low), {}, {}};
    std::vector<std::int32_t> each(static_cast<std::size_t>(width));
    for (std::size_t i = 0; i < each.size(); ++i)
        each[i] = all.first + static_cast<std::int32_t>(i);
    all.values.resize(each.size());
    all.found.resize(each.size());
    AskEach(table, each, mode, none, all.values.data(), all.found.data());
    LookUp(all, speeds, values, found);
}

} // namespace

void QueryMany(const SpeedToIntValues& table, std::span<const std::int32_t> speeds,
               QueryValue::QueryMode mode, double none, double* values, std::uint8_t* found)
{
    AskMany(table, speeds, mode, none, values, found);
}

void QueryMany(const SpeedToDoubleValues& table, std::span<const std::int32_t> speeds,
               QueryValue::QueryMode mode, double none, double* values, std::uint8_t* found)
{
    AskMany(table, speeds, mode, none, values, found);
}

} // namespace designspec
