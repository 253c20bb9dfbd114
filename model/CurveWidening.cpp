#include "model/CurveWidening.h"

#include "base/Format.h"
#include "base/NoCase.h"

using namespace designspec;

namespace {

constexpr int kAnswered = 0;
constexpr int kNoCarType = -1;
constexpr int kAboveRanges = -2;
constexpr int kBelowRanges = -3;
constexpr int kNoRange = -4;

constexpr struct {
    std::int32_t min, max;
    double small, ordinary, articulated;
} kDefaults[] = {
    {200, 250, 0.28, 0.4, 0.45}, {150, 200, 0.3, 0.45, 0.55}, {100, 150, 0.32, 0.6, 0.75},
    {60, 100, 0.35, 0.7, 0.95},  {50, 60, 0.39, 0.9, 1.25},   {40, 50, 0.4, 1.0, 1.5},
    {30, 40, 0.45, 1.3, 1.9},    {20, 30, 0.6, 1.8, 2.8},     {15, 20, 0.7, 2.4, 3.5},
};

} // namespace

CDSCurveWidening::CDSCurveWidening()
{
    for (const auto& row : kDefaults)
        ranges.Add({row.min,
                    row.max,
                    {{L"小型汽车", row.small},
                     {L"普通汽车", row.ordinary},
                     {L"铰接车", row.articulated}}});
}

CDSCurveWidening::CDSCurveWidening(const CDSCurveWidening& other) = default;
CDSCurveWidening& CDSCurveWidening::operator=(const CDSCurveWidening& other) = default;
CDSCurveWidening::~CDSCurveWidening() = default;

bool CDSCurveWidening::Holds(const WideningRange& range, int radius) const
{
    return IsGMinAndLEMaxMode ? range.min < radius && radius <= range.max
                              : range.min <= radius && radius < range.max;
}

int CDSCurveWidening::QueryWidening(const wchar_t* carType, int radius, double& widening) const
{
    for (const WideningRange& range : ranges) {
        if (!Holds(range, radius)) continue;
        for (const Widening& one : range.widenings) {
            if (EqualNoCase(one.carType, carType)) {
                widening = one.widening;
                return kAnswered;
            }
        }
        return kNoCarType;
    }
    return WhyNoRange(radius);
}

// At both ends the comparison includes the bound, whichever way the ranges do.
int CDSCurveWidening::WhyNoRange(int radius) const
{
    std::int32_t smallest = 1000000;
    std::int32_t largest = 0;
    for (const WideningRange& range : ranges) {
        smallest = std::min(smallest, range.min);
        largest = std::max(largest, range.max);
    }
    if (largest == 0) return kNoRange;
    if (radius >= largest) return kAboveRanges;
    return smallest >= radius ? kBelowRanges : kNoRange;
}

std::span<const Field> Widening::Fields()
{
    static constexpr Field kFields[] = {
        In(GridPlace::Column, Key(MakeAttribute<&Widening::carType>(L"carType", L"车型")),
           L"%s(m)"),
        MakeAttribute<&Widening::widening>(L"widening", L"加宽", L"m"),
    };
    return kFields;
}

std::span<const Field> WideningRange::Fields()
{
    using R = WideningRange;
    static constexpr Field kFields[] = {
        In(GridPlace::Row, Key(MakeAttribute<&R::min>(L"min", L"半径下限", L"m"))),
        In(GridPlace::Row, Key(MakeAttribute<&R::max>(L"max", L"半径上限", L"m"))),
        MakeRows<&R::widenings>(L"widenings", L"加宽", L"m", L"", L"Item"),
    };
    return kFields;
}

namespace {

CString RangeText(const void* criterion, const void* row)
{
    const auto& range = *static_cast<const WideningRange*>(row);
    const bool holdsMax = static_cast<const CDSCurveWidening*>(criterion)->IsGMinAndLEMaxMode != 0;
    return Format(holdsMax ? L"%d < R ≤ %d" : L"%d ≤ R < %d", range.min, range.max);
}

constexpr Field RangesField()
{
    Field field =
        MakeRows<&CDSCurveWidening::ranges>(L"ranges", L"圆曲线半径", L"m", L"Radiuses", L"Radius");
    field.rowText = RangeText;
    return field;
}

} // namespace

std::span<const Field> CDSCurveWidening::Fields()
{
    using C = CDSCurveWidening;
    static constexpr Field kFields[] = {
        MakeField<&C::Criterion>(L"Criterion", L"数据来源"),
        MakeBool<&C::IsGMinAndLEMaxMode>(L"IsGMinAndLEMaxMode", L"半径范围含上限、不含下限"),
        RangesField(),
    };
    return kFields;
}

void CDSCurveWidening::DoPropExchange(CXTPPropExchange* pPX)
{
    ExchangeFields(pPX, this, Fields());
}
