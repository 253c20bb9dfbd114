// What cross slopes must keep: superelevation, runoff, resultant gradient.
#include <algorithm>
#include <cmath>

#include "base/Format.h"
#include "roads/Checking.h"
#include "roads/RuleFunctions.h"

using namespace designspec;

namespace roadcheck {

namespace {

template <class Check> void ForEachArc(Checking& checking, Check check)
{
    for (const PlanElement& arc : checking.road.plan) {
        if (arc.kind != PlanKind::Arc) continue;
        const Stretch stretch = {{L"curve", arc.index}, arc.from, arc.To()};
        if (const auto speed = checking.SpeedOf(stretch)) check(arc, stretch, *speed);
    }
}

// The width between the axis that the carriageway turns about and its outer edge, m; 0 when the
// file gives none there.
double RunoffWidth(const Checking& checking, double from, double to)
{
    double left = 0, right = 0;
    for (const Lane& lane : checking.road.lanes)
        if (lane.from < to - kNoLength && lane.to > from + kNoLength)
            (lane.side == Turn::Left ? left : right) += lane.width;
    return checking.options.axis == RunoffAxis::Edge ? left + right : std::max(left, right);
}

// The steepest gradient of a stretch, %. On a vertical curve the gradient is between those of the
// grades that it joins, and at its ends one of them, so the grades alone count.
double SteepestGradient(const Checking& checking, double from, double to)
{
    double steepest = 0;
    const auto before = [&](const Grade& grade) { return grade.to <= from + kNoLength; };
    auto grade = std::partition_point(checking.grades.begin(), checking.grades.end(), before);
    for (; grade != checking.grades.end() && grade->from < to - kNoLength; ++grade)
        steepest = std::max(steepest, std::fabs(grade->gradient));
    return steepest;
}

} // namespace

void CheckSuperelevationNeeded(Checking& checking)
{
    const CDSCircularCurveRad& limits = checking.specification.CircularCurveRad;
    ForEachArc(checking, [&](const PlanElement& arc, const Stretch& stretch, int speed) {
        const Limit limit =
            checking.Ask(limits.noSuperelevationMinRad, speed,
                         L"CircularCurveRad.noSuperelevationMinRad", limits.MinRadCriterion);
        if (!checking.IsBelow(stretch, speed, arc.radiusStart, limit)) return;
        std::wstring why;
        const Limit table = checking.TableSuperelevation(speed, arc.radiusStart, why);
        std::wstring message = Format(L"圆曲线半径 %s m, 小于不设超高最小半径 %s m",
                                      NumberText(arc.radiusStart), NumberText(limit.value));
        if (table)
            message += Format(L", 超高 %s%%", NumberText(table.value));
        else if (!why.empty())
            message += L"; " + why;
        checking.Tell(stretch, speed, arc.radiusStart, limit, L"m", message);
    });
}

void CheckSuperelevationMax(Checking& checking)
{
    const CDSMaxSuperElevation& limits = checking.specification.MaxSuperElev;
    int index = 0;
    for (const CrossSlopes& slopes : checking.road.superelevations) {
        const Stretch stretch = {{L"superelevation", ++index}, slopes.front().at, slopes.back().at};
        const auto speed = checking.SpeedOf(stretch);
        if (!speed) continue;
        double highest = 0;
        for (const CrossSlope& one : slopes)
            highest = std::max(highest, one.slope);
        Limit limit = checking.Ask(limits.MaxSuperElev, *speed, L"MaxSuperElev.MaxSuperElev",
                                   limits.Criterion);
        if (checking.options.snow && limits.MaxSuperElevOnSFR != 0)
            limit = AskField(limits.MaxSuperElevOnSFR, L"MaxSuperElev.MaxSuperElevOnSFR",
                             limits.Criterion);
        if (checking.IsAbove(stretch, *speed, highest, limit))
            checking.Tell(stretch, *speed, highest, limit, L"%",
                          Format(L"超高 %s%%, 大于最大超高 %s%%", NumberText(highest),
                                 NumberText(limit.value)));
    }
}

void CheckSuperelevationLow(Checking& checking)
{
    ForEachArc(checking, [&](const PlanElement& arc, const Stretch& stretch, int speed) {
        std::wstring why;
        const Limit limit = checking.TableSuperelevation(speed, arc.radiusStart, why);
        if (limit.state == Limit::Unanswered) return checking.Skip(stretch, why);
        const double given = checking.FileSuperelevation(arc.from, arc.To());
        if (checking.IsBelow(stretch, speed, given, limit))
            checking.Tell(stretch, speed, given, limit, L"%",
                          Format(L"超高 %s%%, 小于半径 %s m 的超高 %s%%", NumberText(given),
                                 NumberText(arc.radiusStart), NumberText(limit.value)));
    });
}

// The outer edge rises by width times change of slope; the ratio is 1 to length over that rise.
void CheckRunoff(Checking& checking)
{
    const CDSMaxSuperElevation& limits = checking.specification.MaxSuperElev;
    const bool edge = checking.options.axis == RunoffAxis::Edge;
    int index = 0;
    for (const CrossSlopes& slopes : checking.road.superelevations) {
        ++index;
        for (size_t i = 1; i < slopes.size(); ++i) {
            const CrossSlope &a = slopes[i - 1], &b = slopes[i];
            const double change = std::fabs(b.slope - a.slope) / 100;
            if (change * 100 <= kTolerance) continue;
            const Stretch stretch = {{L"superelevation", index}, a.at, b.at};
            const auto speed = checking.SpeedOf(stretch);
            if (!speed) continue;
            const double width = RunoffWidth(checking, a.at, b.at);
            if (width == 0) {
                checking.Skip(stretch, L"文件没有给出此处的车道宽度");
                continue;
            }
            const Limit limit =
                edge ? checking.Ask(limits.GradualChangeRatio2, *speed,
                                    L"MaxSuperElev.GradualChangeRatio2", limits.Criterion)
                     : checking.Ask(limits.GradualChangeRatio1, *speed,
                                    L"MaxSuperElev.GradualChangeRatio1", limits.Criterion);
            const double ratio = (b.at - a.at) / (width * change);
            // Of a length of a hundred metres a millimetre is that part of the ratio.
            if (checking.IsBelow(stretch, *speed, ratio * (1 + 1e-5), limit))
                checking.Tell(stretch, *speed, ratio, limit, L"1:n",
                              Format(L"超高渐变率 1/%s, 大于 1/%s", NumberText(ratio),
                                     NumberText(limit.value)));
        }
    }
}

void CheckResultantGradient(Checking& checking)
{
    const CheckOptions& options = checking.options;
    const CDSMaxResultantGrad& limits = checking.specification.MaxResultantGrad;
    static constexpr const wchar_t* kPaths[CDSMaxResultantGrad::kRoadTypes] = {
        L"MaxResultantGrad.CityRoad",      L"MaxResultantGrad.FreeWay",
        L"MaxResultantGrad.HighwayClass1", L"MaxResultantGrad.HighwayClass2",
        L"MaxResultantGrad.HighwayClass3", L"MaxResultantGrad.HighwayClass4",
        L"MaxResultantGrad.OtherRoad",
    };
    ForEachArc(checking, [&](const PlanElement& arc, const Stretch& stretch, int speed) {
        Limit limit = checking.Ask(limits.Item(options.roadType), speed, kPaths[options.roadType],
                                   limits.Criterion);
        if (options.snow && limits.MaxResultantGradOnSnowFrozenRegion != 0)
            limit =
                AskField(limits.MaxResultantGradOnSnowFrozenRegion,
                         L"MaxResultantGrad.MaxResultantGradOnSnowFrozenRegion", limits.Criterion);
        if (limit.state == Limit::Absent) return;
        const bool fromFile = checking.FileGivesSuperelevation();
        double cross = 0;
        if (fromFile) {
            cross = checking.FileSuperelevation(arc.from, arc.To());
        } else {
            std::wstring why;
            const Limit table = checking.TableSuperelevation(speed, arc.radiusStart, why);
            if (table.state == Limit::Unanswered) return checking.Skip(stretch, why);
            cross = table.value;
        }
        const double along = SteepestGradient(checking, arc.from, arc.To());
        const double resultant = std::hypot(along, cross);
        if (checking.IsAbove(stretch, speed, resultant, limit))
            checking.Tell(stretch, speed, resultant, limit, L"%",
                          Format(L"合成坡度 %s%%, 大于 %s%%(纵坡 %s%%, %s的超高 %s%%)",
                                 NumberText(resultant), NumberText(limit.value), NumberText(along),
                                 CString(fromFile ? L"文件" : L"超高表"), NumberText(cross)));
    });
}

} // namespace roadcheck
