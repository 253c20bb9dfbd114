// Findings in the widening of curves.
#include <algorithm>
#include <optional>

#include "base/Format.h"
#include "base/NoCase.h"
#include "model/FindingList.h"
#include "model/Rules.h"

namespace designspec {
namespace {

std::wstring PathOf(const WideningRange& range)
{
    return At(L"CurveWidening.ranges", range.min, range.max);
}

std::wstring PathOf(const WideningRange& range, const std::wstring& category)
{
    return At(PathOf(range) + L".widenings", category) + L".widening";
}

// A category of vehicles, called as where it comes up first. Of two values in one range the first
// one counts, as it does for queries.
struct Category {
    std::wstring name;
    std::vector<std::optional<double>> values; // by range
};
using Categories = std::vector<Category>;

size_t IndexOf(const Categories& categories, const std::wstring& name)
{
    const auto found =
        std::find_if(categories.begin(), categories.end(),
                     [&name](const Category& one) { return EqualNoCase(one.name, name); });
    return static_cast<size_t>(found - categories.begin());
}

Categories CategoriesOf(const CDSCurveWidening& criterion)
{
    Categories categories;
    for (std::int32_t i = 0; i < criterion.ranges.count; ++i)
        for (const auto& [name, widening] : criterion.ranges[i].widenings) {
            const size_t index = IndexOf(categories, name);
            if (index == categories.size())
                categories.push_back({name, std::vector<std::optional<double>>(
                                                static_cast<size_t>(criterion.ranges.count))});
            auto& value = categories[index].values[static_cast<size_t>(i)];
            if (!value) value = widening;
        }
    return categories;
}

// Each range ends where the one before it begins.
void FindRangeGaps(const CDSCurveWidening& criterion, FindingList& found)
{
    for (std::int32_t i = 1; i < criterion.ranges.count; ++i) {
        const WideningRange& range = criterion.ranges[i];
        if (range.max != criterion.ranges[i - 1].min)
            found.Error(PathOf(range), WideningRangeGapText(range.min, range.max));
    }
}

void FindGaps(const CDSCurveWidening& criterion, const Category& category, FindingList& found)
{
    std::vector<bool> filled;
    for (const auto& value : category.values)
        filled.push_back(value.has_value());
    for (const size_t gap : Gaps(filled))
        found.Error(PathOf(criterion.ranges[static_cast<std::int32_t>(gap)], category.name),
                    WideningGapText(category.name));
}

// Narrower curves are widened more.
void FindNarrower(const CDSCurveWidening& criterion, const Category& category, FindingList& found)
{
    for (std::int32_t i = 1; i < criterion.ranges.count; ++i) {
        const WideningRange& wider = criterion.ranges[i - 1];
        const WideningRange& range = criterion.ranges[i];
        const auto& before = category.values[static_cast<size_t>(i) - 1];
        const auto& value = category.values[static_cast<size_t>(i)];
        if (before && value && range.min < wider.min && *value < *before)
            found.Note(PathOf(range, category.name),
                       Format(L"加宽类别 %s 在半径 %d~%d 的加宽为 %s, 小于半径 %d~%d 的 %s",
                              category.name, range.min, range.max, NumberText(*value), wider.min,
                              wider.max, NumberText(*before)));
    }
}

void FindInWidenings(const WideningRange& range, const Categories& categories, FindingList& found)
{
    std::vector<size_t> order;
    for (const auto& [name, widening] : range.widenings) {
        const std::wstring path = PathOf(range, name);
        const size_t index = IndexOf(categories, name);
        if (name.empty()) found.OnlyFromFile(path, kNoCategoryText);
        if (!IsTableValue(widening)) found.OnlyFromFile(path, kTableValueText);
        if (std::find(order.begin(), order.end(), index) != order.end()) {
            found.Note(path, Format(L"加宽类别 %s 不止一次, 只用第一个值", name));
            continue;
        }
        if (categories[index].name != name)
            found.Note(path, Format(L"加宽类别 %s 编辑后改写为 %s", name, categories[index].name));
        order.push_back(index);
    }
    if (!std::is_sorted(order.begin(), order.end()))
        found.Note(PathOf(range), L"加宽类别的次序和前面的范围不同, 编辑后重新排列");
}

void FindInRange(const WideningRange& range, FindingList& found)
{
    if (!IsRadius(range.min) || !IsRadius(range.max))
        found.OnlyFromFile(PathOf(range), kRadiusText);
    if (range.min >= range.max)
        found.Note(PathOf(range), L"最小半径不小于最大半径, 没有半径在这个范围内");
    if (range.widenings.IsEmpty()) found.Note(PathOf(range), L"没有加宽值, 编辑后不保存");
}

} // namespace

void Find(const CDSCurveWidening& criterion, const CDesignSpecification&, FindingList& found)
{
    const Categories categories = CategoriesOf(criterion);
    FindRangeGaps(criterion, found);
    for (const Category& category : categories)
        FindGaps(criterion, category, found);
    for (const WideningRange& range : criterion.ranges) {
        FindInRange(range, found);
        FindInWidenings(range, categories, found);
    }
    for (const Category& category : categories)
        FindNarrower(criterion, category, found);
}

} // namespace designspec
