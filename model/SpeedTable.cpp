#include "model/SpeedTable.h"

#include <bit>
#include <cmath>
#include <limits>
#include <type_traits>

#include "platform/xtp/PropExchange.h"

using namespace designspec;

namespace {

// How far an entry's speed is from the asked one, and its place in the table, in one number, so
// that the nearest of many is the least or the greatest number: the difference of the speeds
// (negative below the asked one) above bit 31, the place below it.
using Step = std::uint64_t;
constexpr int kPlaceBits = 31;

std::int64_t Difference(Step step)
{
    return static_cast<std::int64_t>(step) >> kPlaceBits;
}

size_t Place(Step step)
{
    return step & ((Step{1} << kPlaceBits) - 1);
}

struct Neighbours {
    Step above = ~Step{0}; // the lowest speed at or above the asked one; none if it is below
    Step below = 0;        // the highest speed below the asked one; none if it is not below

    void Take(Step otherAbove, Step otherBelow)
    {
        above = std::min(above, otherAbove);
        below = std::max(below, otherBelow);
    }
    bool HasExact() const { return Difference(above) == 0; }
    bool HasAbove() const { return Difference(above) >= 0; }
    bool HasBelow() const { return Difference(below) < 0; }
};

// One pass over the table as it stands, whatever its order: the answer is that of a sorted copy,
// and nothing is allocated. Steps are compared as unsigned numbers: those of the speeds below are
// then greater than all others, so that the greatest step is the nearest below and the least one
// the nearest above. Every other entry is compared by itself: a comparison waits for the one
// before.
template <class T>
Neighbours FindNeighbours(const GrowArray<SpeedEntry<T>>& table, std::int32_t speed)
{
    Neighbours found;
    Neighbours others;
    const Step asked = static_cast<Step>(speed) << kPlaceBits;
    const auto stepOf = [&table, asked](Step place) {
        return (static_cast<Step>(table.entries[place].speed) << kPlaceBits) - asked + place;
    };
    const auto count = static_cast<Step>(table.count);
    Step place = 0;
    for (; place + 1 < count; place += 2) {
        found.Take(stepOf(place), stepOf(place));
        others.Take(stepOf(place + 1), stepOf(place + 1));
    }
    if (place < count) found.Take(stepOf(place), stepOf(place));
    found.Take(others.above, others.below);
    return found;
}

// One of two, without a branch: which one it is follows the numbers of the table and the asked
// speed, and a processor that guesses wrong loses more time than the whole query takes.
template <class V> V Choose(bool second, V first, V other)
{
    using Bits = std::conditional_t<sizeof(V) == 8, std::uint64_t, std::uint32_t>;
    const Bits mask = Bits{0} - Bits{second};
    return std::bit_cast<V>((std::bit_cast<Bits>(first) & ~mask) |
                            (std::bit_cast<Bits>(other) & mask));
}

// The nearer neighbour; the one above at equal distance. The distance of one that is not there is
// greater than any, as an unsigned number.
Step Nearest(const Neighbours& found)
{
    const auto above = static_cast<Step>(Difference(found.above));
    const auto below = static_cast<Step>(-Difference(found.below));
    return Choose(above > below, found.above, found.below);
}

// How far apart two speeds are, for any pair of 32-bit speeds.
double Distance(std::int32_t lower, std::int32_t upper)
{
    return static_cast<double>(std::int64_t{upper} - lower);
}

int Truncate(double value)
{
    constexpr int kMin = std::numeric_limits<int>::min();
    constexpr int kMax = std::numeric_limits<int>::max();
    if (value > kMin && value < kMax) return static_cast<int>(value);
    if (std::isnan(value)) return 0;
    return value < 0 ? kMin : kMax;
}

std::int32_t Between(const SpeedEntry<std::int32_t>& lower, const SpeedEntry<std::int32_t>& upper,
                     std::int32_t speed)
{
    // The product is taken in 32 bits and wraps, as other modules have always seen it.
    const auto bits = [](std::int32_t value) { return static_cast<std::uint32_t>(value); };
    const auto product = static_cast<std::int32_t>((bits(upper.value) - bits(lower.value)) *
                                                   (bits(speed) - bits(lower.speed)));
    return Truncate(product / Distance(lower.speed, upper.speed) + lower.value + 0.5);
}

double Between(const SpeedEntry<double>& lower, const SpeedEntry<double>& upper, std::int32_t speed)
{
    return lower.value + (upper.value - lower.value) * Distance(lower.speed, speed) /
                             Distance(lower.speed, upper.speed);
}

// Beyond the ends and at a speed of the table the one neighbour answers that is there; what is
// computed between the two has no meaning then, and is not chosen.
template <class T>
T Interpolate(const GrowArray<SpeedEntry<T>>& table, const Neighbours& found, std::int32_t speed)
{
    const SpeedEntry<T>& below = table.entries[Place(found.below)];
    const SpeedEntry<T>& above = table.entries[Place(found.above)];
    const bool isBetween = found.HasBelow() & (Difference(found.above) > 0);
    const T end = Choose(found.HasAbove(), below.value, above.value);
    return Choose(isBetween, end, Between(below, above, speed));
}

// Leaves `value` when there is no answer.
template <class T> bool Answer(bool answers, T answer, T& value)
{
    value = Choose(answers, value, answer);
    return answers;
}

template <class T>
bool Query(const GrowArray<SpeedEntry<T>>& table, std::int32_t speed, QueryValue::QueryMode mode,
           T& value)
{
    if (table.IsEmpty()) return false;
    const Neighbours found = FindNeighbours(table, speed);
    const auto valueOf = [&table](Step step) { return table.entries[Place(step)].value; };
    switch (mode) {
    case QueryValue::Nearest:
        return Answer(true, valueOf(Nearest(found)), value);
    case QueryValue::Upper:
        return Answer(found.HasAbove(), valueOf(found.above), value);
    case QueryValue::Lower: {
        const Step atOrBelow = Choose(found.HasExact(), found.below, found.above);
        return Answer(found.HasExact() | found.HasBelow(), valueOf(atOrBelow), value);
    }
    case QueryValue::Interpolate:
        return Answer(true, Interpolate(table, found, speed), value);
    case QueryValue::Exact:
        return Answer(found.HasExact(), valueOf(found.above), value);
    }
    // No such mode: it has nothing to say between two speeds.
    const bool isBetween = found.HasAbove() && found.HasBelow() && !found.HasExact();
    Answer(!isBetween, valueOf(Nearest(found)), value);
    return true;
}

constexpr wchar_t kItem[] = L"Item";
constexpr std::wstring_view kSpeed = L"speed";
constexpr std::wstring_view kValue = L"value";

void ExchangeValue(CXTPPropExchange* pPX, std::int32_t& value)
{
    PX_Int(pPX, kValue, value, 0);
}

void ExchangeValue(CXTPPropExchange* pPX, double& value)
{
    PX_Double(pPX, kValue, value, 0);
}

template <class T> void SortTable(GrowArray<SpeedEntry<T>>& table)
{
    // Files are stored in that order; a stable sort takes memory to find nothing to do.
    const auto higherFirst = [](const auto& a, const auto& b) { return a.speed > b.speed; };
    if (std::is_sorted(table.begin(), table.end(), higherFirst)) return;
    std::stable_sort(table.begin(), table.end(), higherFirst);
}

template <class T> void ExchangeItem(CXTPPropExchange& item, SpeedEntry<T>& entry)
{
    item.EnableCompactMode(true);
    PX_Int(&item, kSpeed, entry.speed, 0);
    ExchangeValue(&item, entry.value);
}

template <class T> void ExchangeTable(CXTPPropExchange* pPX, GrowArray<SpeedEntry<T>>& table)
{
    if (pPX->IsStoring()) {
        for (SpeedEntry<T>& entry : table) {
            CXTPPropExchange item = pPX->AppendSection(kItem);
            ExchangeItem(item, entry);
        }
        return;
    }
    for (CXTPPropExchange item = pPX->FindSection(kItem); item.IsSectionExists(); item.MoveToNext())
        ExchangeItem(item, table.Add({}));
    SortTable(table);
}

template <class T>
void ExchangeKey(CXTPPropExchange* pPX, const wchar_t* key, GrowArray<SpeedEntry<T>>& table)
{
    CXTPPropExchange section = pPX->IsStoring() ? pPX->ReplaceSection(key) : pPX->FindSection(key);
    if (section.IsSectionExists()) ExchangeTable(&section, table);
}

} // namespace

int designspec::TruncateToInt(double value)
{
    return Truncate(value);
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

void designspec::SortDescending(SpeedToIntValues& table)
{
    SortTable(table);
}

void designspec::SortDescending(SpeedToDoubleValues& table)
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

void designspec::ExchangeItems(CXTPPropExchange* pPX, SpeedToIntValues& table)
{
    ExchangeTable(pPX, table);
}

void designspec::ExchangeItems(CXTPPropExchange* pPX, SpeedToDoubleValues& table)
{
    ExchangeTable(pPX, table);
}
