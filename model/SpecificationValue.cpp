#include "model/SpecificationValue.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "base/Format.h"
#include "base/Number.h"
#include "base/Text.h"
#include "model/Rules.h"

namespace designspec {

namespace {

using Step = ValuePath::Step;

bool IsRow(const Step& step, const void* row)
{
    const auto keys = KeysOf(*step.field);
    for (size_t i = 0; i < keys.size(); ++i)
        if (!IsSameValue(GetValue(*keys[i], row), step.keys[i])) return false;
    return true;
}

// The first row of the step's keys at or behind `from`; the count of rows when there is none.
std::int32_t FindRow(const Step& step, const void* object, std::int32_t from = 0)
{
    std::int32_t at = from;
    while (at < step.field->RowCount(object) && !IsRow(step, step.field->Row(object, at)))
        ++at;
    return at;
}

// The row of the step; null when there is none.
void* RowOf(const Step& step, void* object)
{
    const std::int32_t at = FindRow(step, object);
    return at < step.field->RowCount(object) ? step.field->Row(object, at) : nullptr;
}

// Why no row of these keys can be added.
CString AddProblem(const Step& step)
{
    const auto keys = KeysOf(*step.field);
    const auto* first = std::get_if<std::int32_t>(&step.keys.front());
    if (keys.front()->key == CString(L"speed") && !IsSpeed(*first)) return SpeedText();
    for (size_t i = 0; i < keys.size(); ++i)
        if (IsNegative(step.keys[i])) return keys[i]->label + CString(L"不能小于 0");
    const bool isRange = keys.size() > 1;
    return isRange && step.keys.front() >= step.keys.back() ? L"半径下限必须小于半径上限"
                                                            : CString();
}

void* AddRow(const Step& step, void* object)
{
    const Field& rows = *step.field;
    const auto keys = KeysOf(rows);
    const auto standsBehind = [&](const void* row) {
        const Value there = GetValue(*keys.front(), row);
        return rows.order == RowOrder::Ascending    ? there > step.keys.front()
               : rows.order == RowOrder::Descending ? there < step.keys.front()
                                                    : false;
    };
    std::int32_t at = 0;
    while (at < rows.RowCount(object) && !standsBehind(rows.Row(object, at)))
        ++at;
    void* row = rows.InsertRow(object, at);
    for (size_t i = 0; i < keys.size(); ++i)
        SetValue(*keys[i], row, step.keys[i]);
    return row;
}

// The value that the path means; null when it ends with more.
const Field* ValueField(const ValuePath& path)
{
    const Step& last = path.steps.back();
    return last.keys.empty() ? last.field : OnlyValue(*last.field);
}

CString MoreThanAValue(const ValuePath& path)
{
    return Format(L"%s 不是一个值,请指定其中的一个", path.Text());
}

// What is wrong with setting the path's value, other than with the value itself; whether rows can
// be added is asked from the first one on that is missing.
CString WriteProblem(CDesignSpecification& specification, const ValuePath& path)
{
    void* object = path.criterion->get(specification);
    for (const Step& step : path.steps) {
        if (object && step.field->isUsed && !step.field->isUsed(object))
            return Format(L"%s 在当前条件下不用,也不会保存", CString(step.field->key));
        if (step.keys.empty()) continue;
        object = object ? RowOf(step, object) : nullptr;
        if (CString problem = AddProblem(step); !object && !problem.empty()) return problem;
    }
    return {};
}

CString NumberProblem(double number, double& value)
{
    if (!std::isfinite(number)) return Format(L"值“%s”不是数", ToWide(DoubleToText(number)));
    value = number + 0.0; // no negative zero
    return {};
}

CString NumberProblem(double number, std::int32_t& value)
{
    const bool fits = std::abs(number) <= std::numeric_limits<std::int32_t>::max();
    if (!fits || std::trunc(number) != number)
        return Format(L"值“%s”不是整数", ToWide(DoubleToText(number)));
    value = static_cast<std::int32_t>(number);
    return {};
}

template <class T>
CString Fill(GrowArray<SpeedEntry<T>>& table, std::span<const std::int32_t> speeds,
             std::span<const double> values)
{
    GrowArray<SpeedEntry<T>> made;
    for (size_t i = 0; i < speeds.size(); ++i) {
        T value = 0;
        if (CString problem = NumberProblem(values[i], value); !problem.empty()) return problem;
        AddSpeed(made, speeds[i], value);
    }
    SortDescending(made);
    const auto twice = std::adjacent_find(
        made.begin(), made.end(), [](const auto& a, const auto& b) { return a.speed == b.speed; });
    if (twice != made.end()) return Format(L"车速 %d 不止一次", twice->speed);
    table = made;
    return {};
}

void RemoveRows(const Step& step, void* object, std::int32_t from)
{
    for (std::int32_t at = from; (at = FindRow(step, object, at)) < step.field->RowCount(object);)
        step.field->RemoveRow(object, at);
}

} // namespace

CString FindValue(CDesignSpecification& specification, const ValuePath& path, ValuePlace& place)
{
    place = {};
    const Field* field = path.steps.empty() ? nullptr : ValueField(path);
    if (!field || field->kind == FieldKind::Rows) return MoreThanAValue(path);
    void* object = path.criterion->get(specification);
    for (const Step& step : path.steps) {
        if (!step.keys.empty()) object = RowOf(step, object);
        if (!object) return {};
    }
    place = {field, object};
    return {};
}

CString WriteValue(CDesignSpecification& specification, const ValuePath& path, const CString& text)
{
    const Field* field = path.steps.empty() ? nullptr : ValueField(path);
    if (!field || field->HasRows()) return MoreThanAValue(path);
    if (field->isKey) return path.Text() + L" 是键,不能修改";
    if (CString problem = WriteProblem(specification, path); !problem.empty()) return problem;
    Value value;
    if (CString problem = ParseValue(*field, text, L"值", value); !problem.empty()) return problem;
    if (IsNegative(value)) return kTableValueText;

    void* object = path.criterion->get(specification);
    for (const Step& step : path.steps) {
        if (step.keys.empty()) continue;
        void* const outer = object;
        object = RowOf(step, outer);
        if (!object) object = AddRow(step, outer);
        if (&step == &path.steps.back()) {
            // A file may hold a key twice; a query could find either.
            RemoveRows(step, outer, FindRow(step, outer) + 1);
            object = RowOf(step, outer);
        }
    }
    SetValue(*field, object, value);
    return {};
}

CString WriteTable(const ValuePlace& table, std::span<const std::int32_t> speeds,
                   std::span<const double> values)
{
    const Field& field = *table.field;
    return field.kind == FieldKind::IntTable
               ? Fill(field.Of<SpeedToIntValues>(table.object), speeds, values)
               : Fill(field.Of<SpeedToDoubleValues>(table.object), speeds, values);
}

CString RemoveRow(CDesignSpecification& specification, const ValuePath& path)
{
    if (path.steps.empty() || path.steps.back().keys.empty())
        return path.Text() + L" 不是表中的一行";
    const Step& last = path.steps.back();
    void* object = path.criterion->get(specification);
    for (const Step& step : path.steps)
        if (object && &step != &last) object = RowOf(step, object);
    if (!object || !RowOf(last, object))
        return Format(L"表中没有%s %s", KeyLabel(*last.field), last.KeyText());
    RemoveRows(last, object, 0);
    return {};
}

} // namespace designspec
