#include "bench/SpeedTableWays.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstdlib>
#include <type_traits>

#include <fmt/format.h>

using QueryValue::QueryMode;

namespace {

template <class T> T Between(const SpeedEntry<T>& low, const SpeedEntry<T>& high, int speed)
{
    if constexpr (std::is_same_v<T, int>) {
        const int product = (high.value - low.value) * (speed - low.speed);
        return static_cast<int>(static_cast<double>(product) / (high.speed - low.speed) +
                                low.value + 0.5);
    } else {
        return low.value +
               (high.value - low.value) * (speed - low.speed) / (high.speed - low.speed);
    }
}

// The answer for a speed between two neighbours.
template <class T>
bool Choose(const SpeedEntry<T>& low, const SpeedEntry<T>& high, int speed, QueryMode mode,
            T& value)
{
    switch (mode) {
    case QueryValue::Nearest:
        value = high.speed - speed > speed - low.speed ? low.value : high.value;
        return true;
    case QueryValue::Upper:
        value = high.value;
        return true;
    case QueryValue::Lower:
        value = low.value;
        return true;
    case QueryValue::Interpolate:
        value = Between(low, high, speed);
        return true;
    default:
        return mode != QueryValue::Exact;
    }
}

// The answer of an ascending array whose first entry not below the speed is `at`.
template <class T>
bool ChooseAt(const SpeedEntry<T>* first, const SpeedEntry<T>* at, const SpeedEntry<T>* last,
              int speed, QueryMode mode, T& value)
{
    if (first == last) return false;
    if (at != last && at->speed == speed) {
        value = at->value;
        return true;
    }
    if (mode == QueryValue::Exact) return false;
    if (at == first) {
        if (mode == QueryValue::Lower) return false;
        value = at->value;
        return true;
    }
    if (at == last) {
        if (mode == QueryValue::Upper) return false;
        value = at[-1].value;
        return true;
    }
    return Choose(at[-1], *at, speed, mode, value);
}

// The second one or the first one, without a branch.
template <class T> T OneOf(bool isSecond, T first, T second)
{
    using Bits = std::conditional_t<sizeof(T) == 8, std::uint64_t, std::uint32_t>;
    const Bits mask = Bits{0} - Bits{isSecond};
    return std::bit_cast<T>((std::bit_cast<Bits>(first) & ~mask) |
                            (std::bit_cast<Bits>(second) & mask));
}

template <class T> bool SlowerFirst(const SpeedEntry<T>& a, const SpeedEntry<T>& b)
{
    return a.speed < b.speed;
}

} // namespace

template <class T> void QuickSort::Sort(SpeedEntry<T>* entries, size_t count)
{
    std::qsort(entries, count, sizeof(SpeedEntry<T>), [](const void* a, const void* b) {
        return static_cast<const SpeedEntry<T>*>(a)->speed -
               static_cast<const SpeedEntry<T>*>(b)->speed;
    });
}

template <class T> void StdSort::Sort(SpeedEntry<T>* entries, size_t count)
{
    std::sort(entries, entries + count, SlowerFirst<T>);
}

template <class T, class Sorting>
bool CopyAndSort<T, Sorting>::Query(int speed, QueryMode mode, T& value) const
{
    if (m_table->count == 0) return false;
    const auto count = static_cast<size_t>(m_table->count);
    auto* copy = static_cast<SpeedEntry<T>*>(std::malloc(count * sizeof(SpeedEntry<T>)));
    std::copy_n(m_table->entries, count, copy);
    Sorting::Sort(copy, count);
    const auto* at = copy;
    while (at != copy + count && at->speed < speed)
        ++at;
    const bool answered = ChooseAt<T>(copy, at, copy + count, speed, mode, value);
    std::free(copy);
    return answered;
}

template <class T> SpeedMap<T>::SpeedMap(const SpeedTable<T>& table)
{
    for (const auto& entry : table)
        m_values.emplace(entry.speed, entry.value);
}

template <class T> bool SpeedMap<T>::Query(int speed, QueryMode mode, T& value) const
{
    const auto at = m_values.lower_bound(speed);
    if (at != m_values.end() && at->first == speed) {
        value = at->second;
        return true;
    }
    if (mode == QueryValue::Exact || m_values.empty()) return false;
    if (at == m_values.begin()) {
        if (mode == QueryValue::Lower) return false;
        value = at->second;
        return true;
    }
    const auto below = std::prev(at);
    if (at == m_values.end()) {
        if (mode == QueryValue::Upper) return false;
        value = below->second;
        return true;
    }
    return Choose<T>({below->first, below->second}, {at->first, at->second}, speed, mode, value);
}

template <class T>
SortedVector<T>::SortedVector(const SpeedTable<T>& table) : m_entries(table.begin(), table.end())
{
    std::sort(m_entries.begin(), m_entries.end(), SlowerFirst<T>);
}

template <class T> bool SortedVector<T>::Query(int speed, QueryMode mode, T& value) const
{
    const SpeedEntry<T>* first = m_entries.data();
    const SpeedEntry<T>* last = first + m_entries.size();
    const auto* at =
        std::lower_bound(first, last, speed,
                         [](const SpeedEntry<T>& entry, int asked) { return entry.speed < asked; });
    return ChooseAt(first, at, last, speed, mode, value);
}

template <class T>
BranchFreeSearch<T>::BranchFreeSearch(const SpeedTable<T>& table)
    : m_entries(table.begin(), table.end())
{
    std::sort(m_entries.begin(), m_entries.end(), SlowerFirst<T>);
}

template <class T> bool BranchFreeSearch<T>::Query(int speed, QueryMode mode, T& value) const
{
    if (m_entries.empty()) return false;
    const SpeedEntry<T>* const first = m_entries.data();
    const SpeedEntry<T>* const last = first + m_entries.size() - 1;
    const SpeedEntry<T>* at = first; // the first one not below the speed
    for (size_t left = m_entries.size(); left > 1; left -= left / 2)
        at += static_cast<size_t>(at[left / 2 - 1].speed < speed) * (left / 2);
    at += static_cast<size_t>(at->speed < speed);
    const SpeedEntry<T>& above = *std::min(at, last);
    const SpeedEntry<T>& below = *(at - static_cast<size_t>(at > first));
    const bool isExact = above.speed == speed;
    const bool hasAbove = at <= last;
    const bool hasBelow = (at > first) | isExact;
    const auto answer = [&value](bool answers, T its) {
        value = OneOf(answers, value, its);
        return answers;
    };
    switch (mode) {
    case QueryValue::Nearest: {
        const bool isAbove = above.speed - speed <= speed - below.speed;
        return answer(
            true, OneOf(isExact | (hasAbove & (!hasBelow | isAbove)), below.value, above.value));
    }
    case QueryValue::Upper:
        return answer(hasAbove, above.value);
    case QueryValue::Lower:
        return answer(hasBelow, OneOf(isExact, below.value, above.value));
    case QueryValue::Interpolate: {
        const bool isBetween = hasAbove & hasBelow & !isExact;
        const SpeedEntry<T> high{above.speed + !isBetween, above.value}; // no division by zero
        const T end = OneOf(hasAbove, below.value, above.value);
        return answer(true, OneOf(isBetween, end, Between(below, high, speed)));
    }
    default:
        return mode == QueryValue::Exact ? answer(isExact, above.value) : true;
    }
}

template <class T>
SqlTable<T>::SqlTable(const SpeedTable<T>& table)
    : m_database(OpenInMemory()), m_atOrBelow(NoStatement()), m_atOrAbove(NoStatement()),
      m_exact(NoStatement())
{
    const char* kind = std::is_same_v<T, int> ? "INTEGER" : "REAL";
    Run(m_database, fmt::format("CREATE TABLE limits(speed INTEGER PRIMARY KEY, value {})", kind));
    for (const auto& entry : table)
        Run(m_database, fmt::format("INSERT INTO limits VALUES({}, {})", entry.speed, entry.value));
    const std::string select = "SELECT speed, value FROM limits WHERE speed ";
    m_atOrBelow = Prepare(m_database, select + "<= ? ORDER BY speed DESC LIMIT 1");
    m_atOrAbove = Prepare(m_database, select + ">= ? ORDER BY speed LIMIT 1");
    m_exact = Prepare(m_database, select + "= ?");
}

template <class T>
bool SqlTable<T>::Find(const SqlStatement& statement, int speed, SpeedEntry<T>& entry) const
{
    sqlite3_bind_int(statement.get(), 1, speed);
    const bool found = sqlite3_step(statement.get()) == SQLITE_ROW;
    if (found) {
        entry.speed = sqlite3_column_int(statement.get(), 0);
        if constexpr (std::is_same_v<T, int>)
            entry.value = sqlite3_column_int(statement.get(), 1);
        else
            entry.value = sqlite3_column_double(statement.get(), 1);
    }
    sqlite3_reset(statement.get());
    return found;
}

template <class T> bool SqlTable<T>::Query(int speed, QueryMode mode, T& value) const
{
    SpeedEntry<T> low;
    SpeedEntry<T> high;
    const auto answer = [&value](bool found, const SpeedEntry<T>& entry) {
        if (found) value = entry.value;
        return found;
    };
    if (mode == QueryValue::Exact) return answer(Find(m_exact, speed, low), low);
    if (mode == QueryValue::Upper) return answer(Find(m_atOrAbove, speed, high), high);
    const bool hasLow = Find(m_atOrBelow, speed, low);
    if (mode == QueryValue::Lower || (hasLow && low.speed == speed)) return answer(hasLow, low);
    const bool hasHigh = Find(m_atOrAbove, speed, high);
    if (!hasLow || !hasHigh) return hasLow ? answer(true, low) : answer(hasHigh, high);
    return Choose(low, high, speed, mode, value);
}

template class CopyAndSort<int, QuickSort>;
template class CopyAndSort<double, QuickSort>;
template class CopyAndSort<int, StdSort>;
template class CopyAndSort<double, StdSort>;
template class SpeedMap<int>;
template class SpeedMap<double>;
template class SortedVector<int>;
template class SortedVector<double>;
template class BranchFreeSearch<int>;
template class BranchFreeSearch<double>;
template class SqlTable<int>;
template class SqlTable<double>;
