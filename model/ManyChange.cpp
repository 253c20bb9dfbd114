#include "model/ManyChange.h"

#include <cmath>
#include <limits>

#include "base/Format.h"
#include "base/Number.h"
#include "base/Text.h"
#include "model/Findings.h"
#include "model/SpecificationValue.h"

namespace designspec {

namespace {

constexpr double kDecimals = 1e9;

using Kind = ManyChange::Kind;

bool IsNumber(const Field& field)
{
    return field.kind == FieldKind::Int || field.kind == FieldKind::Double;
}

std::optional<double> NumberOf(const Value& value)
{
    if (const auto* whole = std::get_if<std::int32_t>(&value)) return *whole;
    if (const auto* decimal = std::get_if<double>(&value)) return *decimal;
    return std::nullopt;
}

// The new value as a text; nothing, with `problem`, when it is not one.
CString Reckoned(const Field& field, double now, const ManyChange& change, CString& problem)
{
    double operand = 0;
    if (!ParseDouble(ToUtf8(Trim(change.operand)), operand)) {
        problem = Format(L"“%s”不是数", change.operand);
        return {};
    }
    const double made = change.kind == Kind::Add ? now + operand : now * operand;
    if (field.kind == FieldKind::Double)
        return ToWide(DoubleToText(std::round(made * kDecimals) / kDecimals));
    if (std::abs(made) > std::numeric_limits<std::int32_t>::max()) problem = L"得到的数太大";
    return std::to_wstring(std::llround(made));
}

// Of one value, whose path is whole.
CString ChangeValue(CDesignSpecification& made, const ManyChange& change, const ValuePath& path)
{
    if (change.kind == Kind::Set) return WriteValue(made, path, Trim(change.operand));
    ValuePlace place;
    CString problem = FindValue(made, path, place);
    if (!problem.empty() || !place.field) return problem;
    if (!IsNumber(*place.field)) return Format(L"%s 不是数, 只能设为", CString(place.field->label));
    const double now = *NumberOf(GetValue(*place.field, place.object));
    if (now == 0 && place.field->zeroMeans) return {};
    const CString text = Reckoned(*place.field, now, change, problem);
    return problem.empty() ? WriteValue(made, path, text) : problem;
}

// The paths of the values that the change is for.
std::vector<ValuePath> PathsOf(CDesignSpecification& specification, const ValuePath& path)
{
    ValuePlace place;
    if (!FindValue(specification, path, place).empty() || !place.field || !place.field->IsTable())
        return {path};
    std::vector<ValuePath> paths;
    for (std::int32_t row = 0; row < place.field->RowCount(place.object); ++row) {
        ValuePath one = path;
        const Field& speed = place.field->RowFields().front();
        one.steps.back().keys = {GetValue(speed, place.field->Row(place.object, row))};
        paths.push_back(std::move(one));
    }
    return paths;
}

} // namespace

Changed MadeChange(const CDesignSpecification& specification, const ManyChange& change)
{
    Changed result{specification, {}, {}};
    for (const ValuePath& path : PathsOf(result.made, change.path)) {
        if (result.problem = ChangeValue(result.made, change, path); !result.problem.empty()) break;
    }
    if (result.problem.empty()) result.problem = NewFault(specification, result.made);
    if (result.problem.empty())
        result.differences = Differences(specification, result.made);
    else
        result.made = specification;
    return result;
}

} // namespace designspec
