#include "model/LonGradLen.h"

#include <cmath>

#include "platform/xtp/PropExchange.h"

using namespace designspec;

namespace {

constexpr double kSameGradient = 0.01; // %

bool QueryRow(const GradientRow& row, int speed, QueryValue::QueryMode mode, int& value)
{
    return QueryValue::QueryIntValBySpeed(&row.lengths, speed, mode, value);
}

// The two end lengths stand crossed over.
bool InterpolateRows(const GradientRow& gentler, const GradientRow& steeper, double grad, int speed,
                     int& value)
{
    int low = 0;
    int high = 0;
    const bool hasHigh = QueryRow(steeper, speed, QueryValue::Interpolate, high);
    const bool hasLow = QueryRow(gentler, speed, QueryValue::Interpolate, low);
    if (!hasHigh && !hasLow) return false;
    if (!hasHigh || !hasLow) {
        value = hasHigh ? high : low;
        return true;
    }
    value = TruncateToInt((grad - gentler.Grad) * (static_cast<double>(low) - high) /
                              (steeper.Grad - gentler.Grad) +
                          high + 0.5);
    return true;
}

} // namespace

CDSLonGradMinLen::CDSLonGradMinLen()
    : MinLens{{80, 290}, {60, 170}, {50, 140}, {40, 110}, {30, 85}, {20, 60}}
{
}

CDSLonGradMinLen::CDSLonGradMinLen(const CDSLonGradMinLen& other) = default;
CDSLonGradMinLen& CDSLonGradMinLen::operator=(const CDSLonGradMinLen& other) = default;
CDSLonGradMinLen::~CDSLonGradMinLen() = default;

std::span<const Field> CDSLonGradMinLen::Fields()
{
    using C = CDSLonGradMinLen;
    static constexpr Field kFields[] = {
        MakeField<&C::Criterion>(L"Criterion", L"数据来源"),
        MakeField<&C::MinLens>(L"MinLens", L"最小坡长", L"m"),
    };
    return kFields;
}

void CDSLonGradMinLen::DoPropExchange(CXTPPropExchange* pPX)
{
    ExchangeFields(pPX, this, Fields());
}

CDSLonGradMaxLen::CDSLonGradMaxLen()
    : rows{{5, {{80, 600}}},
           {5.5, {{80, 500}}},
           {6, {{80, 400}, {60, 400}, {50, 350}}},
           {6.5, {{60, 350}, {50, 300}, {40, 300}}},
           {7, {{60, 300}, {50, 250}, {40, 250}}},
           {8, {{40, 200}}}}
{
}

CDSLonGradMaxLen::CDSLonGradMaxLen(const CDSLonGradMaxLen& other) = default;
CDSLonGradMaxLen& CDSLonGradMaxLen::operator=(const CDSLonGradMaxLen& other) = default;
CDSLonGradMaxLen::~CDSLonGradMaxLen() = default;

bool CDSLonGradMaxLen::QueryVal(double grad, int speed, QueryValue::QueryMode mode,
                                int& value) const
{
    if (rows.IsEmpty()) return false;
    std::int32_t i = 0;
    for (; i < rows.count; ++i) {
        if (std::fabs(rows[i].Grad - grad) < kSameGradient)
            return QueryRow(rows[i], speed, mode, value);
        if (rows[i].Grad > grad) break;
    }
    if (mode == QueryValue::Exact) return false;
    if (i == 0) return mode != QueryValue::Lower && QueryRow(rows[0], speed, mode, value);
    if (i == rows.count)
        return mode != QueryValue::Upper && QueryRow(rows[i - 1], speed, mode, value);
    return QueryBetween(rows[i - 1], rows[i], grad, speed, mode, value);
}

bool CDSLonGradMaxLen::QueryBetween(const GradientRow& gentler, const GradientRow& steeper,
                                    double grad, int speed, QueryValue::QueryMode mode,
                                    int& value) const
{
    switch (mode) {
    case QueryValue::Nearest: {
        const bool gentlerIsNearer = steeper.Grad - grad > grad - gentler.Grad;
        return QueryRow(gentlerIsNearer ? gentler : steeper, speed, mode, value);
    }
    case QueryValue::Upper:
        return QueryRow(steeper, speed, mode, value);
    case QueryValue::Lower:
        return QueryRow(gentler, speed, mode, value);
    case QueryValue::Interpolate:
        return InterpolateRows(gentler, steeper, grad, speed, value);
    default:
        return false;
    }
}

std::span<const Field> GradientRow::Fields()
{
    static constexpr auto kLengths = [] {
        Field field = MakeField<&GradientRow::lengths>(L"lengths", L"最大坡长", L"m");
        field.element = L"";
        return field;
    }();
    static constexpr Field kFields[] = {
        In(GridPlace::Row, Key(MakeAttribute<&GradientRow::Grad>(L"Grad", L"坡度", L"%")),
           L"坡度%s%% 最大坡长(m)"),
        kLengths,
    };
    return kFields;
}

std::span<const Field> CDSLonGradMaxLen::Fields()
{
    using C = CDSLonGradMaxLen;
    static constexpr Field kFields[] = {
        MakeField<&C::Criterion>(L"Criterion", L"数据来源"),
        MakeRows<&C::rows>(L"rows", L"最大坡长", L"m", L"maxLens", L"Item", RowOrder::Ascending),
    };
    return kFields;
}

void CDSLonGradMaxLen::DoPropExchange(CXTPPropExchange* pPX)
{
    ExchangeFields(pPX, this, Fields());
    if (pPX->IsLoading()) TidyRows();
}

// A row without lengths says nothing. Rows of equal gradient keep their order.
void CDSLonGradMaxLen::TidyRows()
{
    rows.RemoveIf([](const GradientRow& row) { return row.lengths.IsEmpty(); });
    std::stable_sort(rows.begin(), rows.end(),
                     [](const GradientRow& a, const GradientRow& b) { return a.Grad < b.Grad; });
}
