#include "model/SpeedTable.h"

#include <cmath>
#include <limits>

#include "model/Nested.h"

namespace {

// The entries next to a speed: the highest below it and the lowest above it; null where there is
// none. With `exact` set, the speed itself stands in the table.
template <class T> struct Neighbours {
    const SpeedEntry<T>* exact = nullptr;
    const SpeedEntry<T>* lower = nullptr;
    const SpeedEntry<T>* upper = nullptr;
};

// One pass instead of a sorted copy: the answer is the same, and nothing is allocated.
template <class T>
Neighbours<T> FindNeighbours(const GrowArray<SpeedEntry<T>>& table, std::int32_t speed)
{
    Neighbours<T> found;
    for (const SpeedEntry<T>& entry : table) {
        if (entry.speed == speed) {
            found.exact = &entry;
            return found;
        }
        if (entry.speed < speed) {
            if (!found.lower || entry.speed > found.lower->speed) found.lower = &entry;
        } else if (!found.upper || entry.speed < found.upper->speed) {
            found.upper = &entry;
        }
    }
    return found;
}

// How far apart two speeds are, for any pair of 32-bit speeds.
std::int64_t Distance(std::int32_t lower, std::int32_t upper)
{
    return std::int64_t{upper} - lower;
}

std::int32_t Between(const SpeedEntry<std::int32_t>& lower, const SpeedEntry<std::int32_t>& upper,
                     std::int32_t speed)
{
    // The product is taken in 32 bits and wraps, as other modules have always seen it.
    const auto bits = [](std::int32_t value) { return static_cast<std::uint32_t>(value); };
    const auto product = static_cast<std::int32_t>((bits(upper.value) - bits(lower.value)) *
                                                   (bits(speed) - bits(lower.speed)));
    const auto span = static_cast<double>(Distance(lower.speed, upper.speed));
    return TruncateToInt(product / span + lower.value + 0.5);
}

double Between(const SpeedEntry<double>& lower, const SpeedEntry<double>& upper, std::int32_t speed)
{
    return lower.value + (upper.value - lower.value) *
                             static_cast<double>(Distance(lower.speed, speed)) /
                             static_cast<double>(Distance(lower.speed, upper.speed));
}

template <class T>
bool QueryBetween(const SpeedEntry<T>& lower, const SpeedEntry<T>& upper, std::int32_t speed,
                  QueryValue::QueryMode mode, T& value)
{
    switch (mode) {
    case QueryValue::Nearest: {
        const bool lowerIsNearer = Distance(speed, upper.speed) > Distance(lower.speed, speed);
        value = lowerIsNearer ? lower.value : upper.value;
        break;
    }
    case QueryValue::Upper:
        value = upper.value;
        break;
    case QueryValue::Lower:
        value = lower.value;
        break;
    case QueryValue::Interpolate:
        value = Between(lower, upper, speed);
        break;
    case QueryValue::Exact:
        return false;
    }
    return true;
}

template <class T>
bool Query(const GrowArray<SpeedEntry<T>>& table, std::int32_t speed, QueryValue::QueryMode mode,
           T& value)
{
    const Neighbours<T> found = FindNeighbours(table, speed);
    if (found.exact) {
        value = found.exact->value;
        return true;
    }
    if (mode == QueryValue::Exact) return false;
    if (found.lower && found.upper)
        return QueryBetween(*found.lower, *found.upper, speed, mode, value);
    if (found.upper && mode != QueryValue::Lower) {
        value = found.upper->value;
        return true;
    }
    if (found.lower && mode != QueryValue::Upper) {
        value = found.lower->value;
        return true;
    }
    return false;
}

void ExchangeValue(CXTPPropExchange* pPX, std::int32_t& value)
{
    PX_Int(pPX, L"value", value, 0);
}

void ExchangeValue(CXTPPropExchange* pPX, double& value)
{
    PX_Double(pPX, L"value", value, 0);
}

template <class T> void SortTable(GrowArray<SpeedEntry<T>>& table)
{
    std::stable_sort(table.begin(), table.end(),
                     [](const auto& a, const auto& b) { return a.speed > b.speed; });
}

template <class T> void ExchangeTable(CXTPPropExchange* pPX, GrowArray<SpeedEntry<T>>& table)
{
    ExchangeEach(pPX, L"Item", table, [](CXTPPropExchange* item, SpeedEntry<T>& entry) {
        PX_Int(item, L"speed", entry.speed, 0);
        ExchangeValue(item, entry.value);
    });
    if (pPX->IsLoading()) SortTable(table);
}

template <class T>
void ExchangeKey(CXTPPropExchange* pPX, const wchar_t* key, GrowArray<SpeedEntry<T>>& table)
{
    CXTPPropExchange section = pPX->IsStoring() ? pPX->ReplaceSection(key) : pPX->FindSection(key);
    if (section.IsSectionExists()) ExchangeTable(&section, table);
}

} // namespace

int TruncateToInt(double value)
{
    constexpr int kMin = std::numeric_limits<int>::min();
    constexpr int kMax = std::numeric_limits<int>::max();
    if (std::isnan(value)) return 0;
    if (value <= kMin) return kMin;
    if (value >= kMax) return kMax;
    return static_cast<int>(value);
}

bool QueryValue::QueryIntValBySpeed(const SpeedToIntValues* table, int speed, QueryMode mode,
                                    int& value)
{
    return Query(*table, speed, mode, value);
}

bool QueryValue::QueryDoubleValBySpeed(const SpeedToDoubleValues* table, int speed, QueryMode mode,
                                       double& value)
{
    return Query(*table, speed, mode, value);
}

void SortDescending(SpeedToIntValues& table)
{
    SortTable(table);
}

void SortDescending(SpeedToDoubleValues& table)
{
    SortTable(table);
}

void PX_SpeedToIntValues(CXTPPropExchange* pPX, const wchar_t* key, SpeedToIntValues& table)
{
    ExchangeKey(pPX, key, table);
}

void PX_SpeedToDoubleValues(CXTPPropExchange* pPX, const wchar_t* key, SpeedToDoubleValues& table)
{
    ExchangeKey(pPX, key, table);
}

void ExchangeItems(CXTPPropExchange* pPX, SpeedToIntValues& table)
{
    ExchangeTable(pPX, table);
}
