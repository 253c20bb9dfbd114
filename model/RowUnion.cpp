#include "model/RowUnion.h"

#include <algorithm>
#include <compare>
#include <iterator>
#include <map>
#include <utility>

#include "model/ValuePath.h"

namespace designspec {

namespace {

// An order of all values, whatever a decimal is.
std::strong_ordering CompareValues(const Value& a, const Value& b)
{
    if (const auto* decimal = std::get_if<double>(&a))
        return std::strong_order(*decimal, std::get<double>(b));
    if (const auto* whole = std::get_if<std::int32_t>(&a))
        return *whole <=> std::get<std::int32_t>(b);
    return std::get<CString>(a).compare(std::get<CString>(b)) <=> 0;
}

struct KeysLess {
    bool operator()(const std::vector<Value>& a, const std::vector<Value>& b) const
    {
        return std::is_lt(std::lexicographical_compare_three_way(a.begin(), a.end(), b.begin(),
                                                                 b.end(), CompareValues));
    }
};

std::vector<Value> KeysIn(const std::vector<const Field*>& fields, const void* row)
{
    std::vector<Value> keys;
    for (const Field* field : fields) {
        Value& key = keys.emplace_back(GetValue(*field, row));
        if (auto* decimal = std::get_if<double>(&key)) *decimal += 0.0; // no negative zero
    }
    return keys;
}

} // namespace

RowUnion::RowUnion(const Field& rows, const Objects& objects) : m_order(rows.order)
{
    const auto keys = KeysOf(rows);
    std::map<std::vector<Value>, std::vector<std::size_t>, KeysLess> known; // by number
    for (const Party party : {kBase, kMine, kTheirs}) {
        const void* const object = objects[party];
        std::map<std::vector<Value>, int, KeysLess> seen;
        for (std::int32_t i = 0; object && i < rows.RowCount(object); ++i) {
            const void* const row = rows.Row(object, i);
            const auto at = known.try_emplace(KeysIn(keys, row)).first;
            const int number = seen[at->first]++;
            if (static_cast<std::size_t>(number) == at->second.size()) {
                at->second.push_back(m_rows.size());
                m_rows.push_back({at->first, number});
            }
            const std::size_t place = at->second[static_cast<std::size_t>(number)];
            m_rows[place].of[party] = row;
            m_orders[party].push_back(place);
        }
    }
}

bool RowUnion::StandsBefore(std::size_t a, std::size_t b) const
{
    const auto order = CompareValues(m_rows[a].keys.front(), m_rows[b].keys.front());
    return (m_order == RowOrder::Ascending && std::is_lt(order)) ||
           (m_order == RowOrder::Descending && std::is_gt(order));
}

std::vector<std::size_t> RowUnion::Sequence(Party first, Party second) const
{
    // Behind each row the next one; the last place stands for the one before all rows.
    const std::size_t front = m_rows.size();
    const std::size_t none = front + 1;
    std::vector<std::size_t> next(none, none);
    std::vector<bool> placed(front, false);
    for (const Party party : {first, second, kBase}) {
        std::size_t before = front;
        for (const std::size_t row : m_orders[party]) {
            if (!placed[row]) {
                while (next[before] != none && !m_rows[next[before]].of[party] &&
                       StandsBefore(next[before], row))
                    before = next[before];
                next[row] = std::exchange(next[before], row);
                placed[row] = true;
            }
            before = row;
        }
    }
    std::vector<std::size_t> sequence;
    for (std::size_t row = next[front]; row != none; row = next[row])
        sequence.push_back(row);
    return sequence;
}

// The rows that the other has, too, as the first one has them.
std::vector<std::size_t> RowUnion::Common(Party party, Party other) const
{
    std::vector<std::size_t> common;
    std::copy_if(m_orders[party].begin(), m_orders[party].end(), std::back_inserter(common),
                 [&](std::size_t row) { return m_rows[row].of[other] != nullptr; });
    return common;
}

bool RowUnion::IsMoved(Party a, Party b) const
{
    return Common(a, b) != Common(b, a);
}

} // namespace designspec
