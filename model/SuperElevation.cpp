#include "model/SuperElevation.h"

#include <limits>

using namespace designspec;

namespace {

constexpr int kAnswered = 0;
constexpr int kModeNotSupported = -1;
constexpr int kNoDefinition = -2;
constexpr int kSpeedOutside = -3;
constexpr int kSpeedTooLow = -4;
constexpr int kNoRange = -5;

using Rows = GrowArray<SuperElevSpeedRow>;

// The row for a speed strictly between the first and the last row; null when the mode chooses
// none. The walk goes on to the end, and each lower row chooses anew.
const SuperElevSpeedRow* WalkRows(const Rows& rows, std::int64_t speed, QueryValue::QueryMode mode)
{
    const SuperElevSpeedRow* chosen = nullptr;
    for (std::int32_t i = 0; i < rows.count; ++i) {
        const SuperElevSpeedRow& row = rows[i];
        if (row.speed == speed) return &row;
        if (row.speed > speed) continue;
        const SuperElevSpeedRow& previous = rows[std::max(i - 1, 0)];
        switch (mode) {
        case QueryValue::Nearest: {
            const bool previousIsNearer = speed - row.speed > previous.speed - speed;
            chosen = previousIsNearer ? &previous : &row;
            break;
        }
        case QueryValue::Upper:
            chosen = &previous;
            break;
        case QueryValue::Lower:
            chosen = &row;
            break;
        default:
            return nullptr;
        }
    }
    return chosen;
}

int QueryRange(const SuperElevSpeedRow& row, int radius, int& superElev)
{
    for (const SuperElevRange& range : row.ranges) {
        if (range.minRadius <= radius && radius < range.maxRadius) {
            superElev = range.superElev;
            return kAnswered;
        }
    }
    return kNoRange;
}

} // namespace

CDSSuperElevation::CDSSuperElevation()
    : definitions{
          {6, {{80, {{200, 300, 6}, {300, 430, 5}, {430, 570, 4}, {570, 810, 3}, {810, 1000, 2}}}}},
          {4,
           {{60, {{150, 230, 4}, {230, 360, 3}, {360, 600, 2}}},
            {50, {{110, 150, 4}, {150, 230, 3}, {230, 400, 2}}}}},
          {2, {{40, {{70, 300, 2}}}, {30, {{40, 150, 2}}}, {20, {{20, 70, 2}}}}},
      }
{
}

CDSSuperElevation::CDSSuperElevation(const CDSSuperElevation& other) = default;
CDSSuperElevation& CDSSuperElevation::operator=(const CDSSuperElevation& other) = default;
CDSSuperElevation::~CDSSuperElevation() = default;

int CDSSuperElevation::QuerySuperElevation(int maxSuperElev, int speed, QueryValue::QueryMode mode,
                                           int speedTolerance, int radius, int& superElev) const
{
    if (mode == QueryValue::Interpolate) return kModeNotSupported;
    const auto* definition =
        std::find_if(definitions.begin(), definitions.end(),
                     [&](const auto& one) { return one.maxSuperElev == maxSuperElev; });
    if (definition == definitions.end() || definition->rows.IsEmpty()) return kNoDefinition;

    const Rows& rows = definition->rows;
    const SuperElevSpeedRow& first = rows[0];
    const SuperElevSpeedRow& last = rows[rows.count - 1];
    if (speed >= first.speed) {
        if (std::int64_t{speed} - first.speed > speedTolerance || mode == QueryValue::Upper)
            return kSpeedOutside;
        return QueryRange(first, radius, superElev);
    }
    if (speed <= last.speed) {
        if (mode == QueryValue::Lower) return kSpeedOutside;
        if (std::int64_t{last.speed} - speed > speedTolerance) return kSpeedTooLow;
        return QueryRange(last, radius, superElev);
    }
    const SuperElevSpeedRow* row = WalkRows(rows, speed, mode);
    return row ? QueryRange(*row, radius, superElev) : kAnswered;
}

std::span<const Field> SuperElevRange::Fields()
{
    using R = SuperElevRange;
    static constexpr Field kFields[] = {
        In(GridPlace::Row, MakeAttribute<&R::superElev>(L"superElev", L"超高", L"%"),
           L"超高 %s%% 时圆曲线半径范围(m)"),
        Key(MakeAttribute<&R::minRadius>(L"minRadius", L"半径下限", L"m")),
        Key(MakeAttribute<&R::maxRadius>(L"maxRadius", L"半径上限", L"m")),
    };
    return kFields;
}

std::span<const Field> SuperElevSpeedRow::Fields()
{
    using R = SuperElevSpeedRow;
    static constexpr Field kFields[] = {
        In(GridPlace::Column, Key(MakeAttribute<&R::speed>(L"speed", L"车速", L"km/h"))),
        MakeRows<&R::ranges>(L"ranges", L"圆曲线半径范围", L"m", L"", L"Item"),
    };
    return kFields;
}

std::span<const Field> SuperElevDefinition::Fields()
{
    using D = SuperElevDefinition;
    static constexpr Field kFields[] = {
        In(GridPlace::Heading,
           Key(MakeAttribute<&D::maxSuperElev>(L"maxSuperElev", L"最大超高", L"%")),
           L"最大超高 %s%%"),
        MakeRows<&D::rows>(L"rows", L"各车速的超高", L"%", L"", L"Items", RowOrder::Descending),
    };
    return kFields;
}

std::span<const Field> CDSSuperElevation::Fields()
{
    using C = CDSSuperElevation;
    static constexpr Field kFields[] = {
        MakeField<&C::Criterion>(L"Criterion", L"数据来源"),
        MakeRows<&C::definitions>(L"definitions", L"超高", L"%", L"SuperElevDefs", L"SuperElevDef"),
    };
    return kFields;
}

void CDSSuperElevation::DoPropExchange(CXTPPropExchange* pPX)
{
    ExchangeFields(pPX, this, Fields());
}

SuperElevationAnswer designspec::AskSuperElevation(const CDSSuperElevation& tables,
                                                   int maxSuperElev, int speed,
                                                   QueryValue::QueryMode mode, int speedTolerance,
                                                   int radius)
{
    constexpr int kUnwritten = std::numeric_limits<int>::min();
    int written = kUnwritten;
    const int code =
        tables.QuerySuperElevation(maxSuperElev, speed, mode, speedTolerance, radius, written);
    if (code != 0 || written == kUnwritten) return {code, {}};
    return {code, written};
}
