#include "model/Arrangement.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "model/ValuePath.h"

namespace designspec {

namespace {

// Where each row comes from, in the order that the rows are kept in.
std::vector<std::size_t> SortedRows(const Field& rows, const void* object)
{
    const Field& key = *KeysOf(rows).front();
    std::vector<Value> keys;
    for (std::int32_t i = 0; i < rows.RowCount(object); ++i)
        keys.push_back(GetValue(key, rows.Row(object, i)));
    std::vector<std::size_t> sorted(keys.size());
    std::iota(sorted.begin(), sorted.end(), std::size_t{0});
    const bool ascending = rows.order == RowOrder::Ascending;
    std::stable_sort(sorted.begin(), sorted.end(), [&](std::size_t a, std::size_t b) {
        return ascending ? keys[a] < keys[b] : keys[a] > keys[b];
    });
    return sorted;
}

void SortRows(const Field& rows, void* object)
{
    std::vector<std::size_t> from = SortedRows(rows, object);
    for (std::size_t i = 0; i < from.size(); ++i) {
        std::size_t at = i; // along the circle of rows that take each other's places
        while (from[at] != i) {
            rows.SwapRows(object, static_cast<std::int32_t>(at),
                          static_cast<std::int32_t>(from[at]));
            at = std::exchange(from[at], at);
        }
        from[at] = at;
    }
}

void ArrangeFields(std::span<const Field> fields, void* object)
{
    for (const Field& field : fields) {
        if (!field.HasRows()) continue;
        if (field.isUsed && !field.isUsed(object))
            while (field.RowCount(object) > 0)
                field.RemoveRow(object, field.RowCount(object) - 1);
        for (std::int32_t i = 0; i < field.RowCount(object); ++i)
            ArrangeFields(field.RowFields(), field.Row(object, i));
        if (field.order != RowOrder::AsGiven) SortRows(field, object);
    }
}

} // namespace

void Arrange(CDesignSpecification& specification)
{
    for (const CriterionInfo& criterion : Criteria())
        ArrangeFields(criterion.fields, criterion.get(specification));
    specification.LonGradMaxLen.rows.RemoveIf(
        [](const GradientRow& row) { return row.lengths.IsEmpty(); });
}

} // namespace designspec
