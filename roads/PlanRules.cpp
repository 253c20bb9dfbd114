// What the plan must keep: straights, radii, lengths of curves, transitions, widening.
#include <algorithm>
#include <cmath>

#include "base/Format.h"
#include "roads/Checking.h"
#include "roads/RuleFunctions.h"

using namespace designspec;

namespace roadcheck {

namespace {

Stretch StretchOf(const PlanElement& element)
{
    const wchar_t* const kind = element.kind == PlanKind::Line  ? L"line"
                                : element.kind == PlanKind::Arc ? L"curve"
                                                                : L"spiral";
    return {{kind, element.index}, element.from, element.To()};
}

Stretch StretchOf(const Curve& curve)
{
    return {{L"wholeCurve", curve.index}, curve.from, curve.to};
}

// Calls `check` with each element of that kind, its stretch and its design speed.
template <class Check> void ForEach(PlanKind kind, Checking& checking, Check check)
{
    for (const PlanElement& element : checking.road.plan) {
        if (element.kind != kind) continue;
        const Stretch stretch = StretchOf(element);
        if (const auto speed = checking.SpeedOf(stretch)) check(element, stretch, *speed);
    }
}

template <class Check> void ForEachCurve(Checking& checking, Check check)
{
    for (const Curve& curve : checking.curves) {
        const Stretch stretch = StretchOf(curve);
        if (const auto speed = checking.SpeedOf(stretch)) check(curve, stretch, *speed);
    }
}

// A factor of the design speed.
Limit TimesSpeed(double factor, int speed, const wchar_t* path, const CString& source)
{
    Limit limit = AskField(factor, path, source);
    limit.value *= speed;
    return limit;
}

// The straight between two curves, when they turn alike or opposite as asked for.
void CheckStraightBetween(Checking& checking, bool same, double factor, const wchar_t* path,
                          const CString& source)
{
    const std::vector<PlanElement>& plan = checking.road.plan;
    for (size_t i = 1; i < checking.curves.size(); ++i) {
        const Curve &before = checking.curves[i - 1], &after = checking.curves[i];
        if ((before.turn == after.turn) != same || before.last + 1 == after.first) continue;
        const auto isLine = [&](const PlanElement& one) { return one.kind == PlanKind::Line; };
        // What has no known shape between them is told by itself.
        if (!std::all_of(&plan[before.last + 1], &plan[after.first], isLine)) continue;
        Stretch stretch = StretchOf(plan[before.last + 1]);
        stretch.to = after.from;
        const auto speed = checking.SpeedOf(stretch);
        if (!speed) continue;
        const double length = stretch.to - stretch.from;
        const Limit limit = TimesSpeed(factor, *speed, path, source);
        if (checking.IsBelow(stretch, *speed, length, limit))
            checking.Tell(stretch, *speed, length, limit, L"m",
                          Format(L"%s曲线间直线长 %s m, 小于 %s m(%s 倍设计车速)",
                                 CString(same ? L"同向" : L"反向"), NumberText(length),
                                 NumberText(limit.value), NumberText(factor)));
    }
}

// Whether two neighbours meet as straight and arc, or as arcs of different turn.
bool NeedsTransition(const PlanElement& arc, const PlanElement& beside)
{
    if (beside.kind == PlanKind::Line) return true;
    return beside.kind == PlanKind::Arc && beside.turn != arc.turn;
}

} // namespace

void CheckStraightMax(Checking& checking)
{
    const CDSBeelineLen& limits = checking.specification.BeelineLen;
    ForEach(PlanKind::Line, checking, [&](const auto& line, const Stretch& stretch, int speed) {
        const Limit limit =
            TimesSpeed(limits.MaxLen, speed, L"BeelineLen.MaxLen", limits.MaxLenCriterion);
        if (checking.IsAbove(stretch, speed, line.length, limit))
            checking.Tell(stretch, speed, line.length, limit, L"m",
                          Format(L"直线长 %s m, 大于 %s m(%s 倍设计车速)", NumberText(line.length),
                                 NumberText(limit.value), NumberText(limits.MaxLen)));
    });
}

void CheckStraightMinSame(Checking& checking)
{
    const CDSBeelineLen& limits = checking.specification.BeelineLen;
    CheckStraightBetween(checking, true, limits.MinLenInOneDir, L"BeelineLen.MinLenInOneDir",
                         limits.MinLenInOneDirCriterion);
}

void CheckStraightMinReverse(Checking& checking)
{
    const CDSBeelineLen& limits = checking.specification.BeelineLen;
    CheckStraightBetween(checking, false, limits.MinLenReverseCurve,
                         L"BeelineLen.MinLenReverseCurve", limits.MinLenReverseCurveCriterion);
}

void CheckRadiusMax(Checking& checking)
{
    const CDSCircularCurveRad& limits = checking.specification.CircularCurveRad;
    const Limit limit = AskField(limits.MaxRad, L"CircularCurveRad.MaxRad", limits.MaxRadCriterion);
    for (const PlanElement& arc : checking.road.plan) {
        if (arc.kind != PlanKind::Arc) continue;
        const Stretch stretch = StretchOf(arc);
        // The limit holds for every speed, one that is not known too.
        if (checking.IsAbove(stretch, 0, arc.radiusStart, limit))
            checking.Tell(stretch, checking.speeds.Highest(arc.from, arc.To()).value_or(0),
                          arc.radiusStart, limit, L"m",
                          Format(L"圆曲线半径 %s m, 大于最大半径 %s m", NumberText(arc.radiusStart),
                                 NumberText(limit.value)));
    }
}

void CheckRadiusMin(Checking& checking)
{
    const CDSCircularCurveRad& limits = checking.specification.CircularCurveRad;
    ForEach(PlanKind::Arc, checking, [&](const auto& arc, const Stretch& stretch, int speed) {
        const Limit limit =
            checking.Ask(limits.SuperelevationMinRad, speed,
                         L"CircularCurveRad.SuperelevationMinRad", limits.MinRadCriterion);
        checking.TellIfShort(stretch, speed, arc.radiusStart, limit, L"圆曲线半径",
                             L"设超高最小半径");
    });
}

void CheckRadiusRecommended(Checking& checking)
{
    const CDSCircularCurveRad& limits = checking.specification.CircularCurveRad;
    ForEach(PlanKind::Arc, checking, [&](const auto& arc, const Stretch& stretch, int speed) {
        const Limit least =
            checking.Ask(limits.SuperelevationMinRad, speed, L"", limits.MinRadCriterion);
        if (least && arc.radiusStart < least.value - kTolerance) return; // is told by that
        const Limit limit =
            checking.Ask(limits.SuperelevationRecommendRad, speed,
                         L"CircularCurveRad.SuperelevationRecommendRad", limits.MinRadCriterion);
        checking.TellIfShort(stretch, speed, arc.radiusStart, limit, L"圆曲线半径",
                             L"设超高推荐半径");
    });
}

void CheckCurveLength(Checking& checking)
{
    const CDSCurveMinLen& limits = checking.specification.CurveMinLen;
    ForEachCurve(checking, [&](const Curve& curve, const Stretch& stretch, int speed) {
        const Limit limit = checking.Ask(limits.HorizontalCurveMinLen, speed,
                                         L"CurveMinLen.HorizontalCurveMinLen", limits.Criterion);
        checking.TellIfShort(stretch, speed, curve.Length(), limit, L"平曲线长", L"最小长度");
    });
}

void CheckArcLength(Checking& checking)
{
    const CDSCurveMinLen& limits = checking.specification.CurveMinLen;
    ForEachCurve(checking, [&](const Curve& curve, const Stretch& stretch, int speed) {
        const Limit limit = checking.Ask(limits.CircularCurveMinLen, speed,
                                         L"CurveMinLen.CircularCurveMinLen", limits.Criterion);
        checking.TellIfShort(stretch, speed, curve.arcs, limit, L"圆曲线长", L"最小长度");
    });
}

// A deflection of at most 7° is a small angle; one below 2° is taken as 2°.
void CheckSmallAngle(Checking& checking)
{
    constexpr double kSmall = 7, kLeast = 2; // degrees
    const CSmallAngleCurveMinLen& limits = checking.specification.SmallAngleCurveMinLen;
    ForEachCurve(checking, [&](const Curve& curve, const Stretch& stretch, int speed) {
        // Rounding of what the angle is computed from.
        if (curve.deflection > kSmall * (1 + 1e-9)) return;
        Limit limit =
            checking.Ask(limits.HorizontalCurveMinLen, speed,
                         L"SmallAngleCurveMinLen.HorizontalCurveMinLen", limits.Criterion);
        limit.value /= std::max(curve.deflection, kLeast);
        if (checking.IsBelow(stretch, speed, curve.Length(), limit))
            checking.Tell(stretch, speed, curve.Length(), limit, L"m",
                          Format(L"偏角 %s° 的平曲线长 %s m, 小于 %s m",
                                 NumberText(curve.deflection), NumberText(curve.Length()),
                                 NumberText(limit.value)));
    });
}

void CheckTransitionLength(Checking& checking)
{
    const CTransitionCurveMinLen& limits = checking.specification.TransitionCurveMinLen;
    ForEach(PlanKind::Spiral, checking, [&](const auto& spiral, const Stretch& stretch, int speed) {
        const Limit limit =
            checking.Ask(limits.MinLen, speed, L"TransitionCurveMinLen.MinLen", limits.Criterion);
        checking.TellIfShort(stretch, speed, spiral.length, limit, L"缓和曲线长", L"最小长度");
    });
}

void CheckTransitionMissing(Checking& checking)
{
    const CDesignSpecification& specification = checking.specification;
    const bool bySuperelevation = specification.TransitionCurveMinLen.NoTCBySuperelevation != 0;
    const std::vector<PlanElement>& plan = checking.road.plan;
    for (size_t i = 0; i < plan.size(); ++i) {
        const PlanElement& arc = plan[i];
        if (arc.kind != PlanKind::Arc) continue;
        const bool before = i > 0 && NeedsTransition(arc, plan[i - 1]);
        const bool after = i + 1 < plan.size() && NeedsTransition(arc, plan[i + 1]);
        if (!before && !after) continue;
        const Stretch stretch = StretchOf(arc);
        const auto speed = checking.SpeedOf(stretch);
        if (!speed) continue;
        const Limit limit =
            bySuperelevation ? checking.Ask(specification.CircularCurveRad.noSuperelevationMinRad,
                                            *speed, L"CircularCurveRad.noSuperelevationMinRad",
                                            specification.CircularCurveRad.MinRadCriterion)
                             : checking.Ask(specification.TransitionCurveMinLen.NoTCByMinRad,
                                            *speed, L"TransitionCurveMinLen.NoTCByMinRad",
                                            specification.TransitionCurveMinLen.Criterion);
        if (checking.IsBelow(stretch, *speed, arc.radiusStart, limit))
            checking.Tell(stretch, *speed, arc.radiusStart, limit, L"m",
                          Format(L"半径 %s m 的圆曲线%s没有缓和曲线, 不设缓和曲线的半径为 %s m",
                                 NumberText(arc.radiusStart),
                                 CString(before && after ? L"两端"
                                         : before        ? L"起点"
                                                         : L"终点"),
                                 NumberText(limit.value)));
    }
}

void CheckWideningNeeded(Checking& checking)
{
    const CheckOptions& options = checking.options;
    const CDSCurveWidening& limits = checking.specification.CurveWidening;
    if (options.car.empty()) return;
    for (const PlanElement& arc : checking.road.plan) {
        if (arc.kind != PlanKind::Arc) continue;
        const Stretch stretch = StretchOf(arc);
        Limit limit = {Limit::Given, 0, L"CurveWidening", &limits.Criterion};
        const int code =
            limits.QueryWidening(options.car.c_str(), WholeRadius(arc.radiusStart), limit.value);
        // Above the ranges no widening is needed.
        if (code == -2) continue;
        if (code != 0) {
            checking.Skip(stretch, Format(L"加宽表没有车型“%s”、半径 %s m 的加宽", options.car,
                                          NumberText(arc.radiusStart)));
            continue;
        }
        checking.Tell(stretch, checking.speeds.Highest(arc.from, arc.To()).value_or(0),
                      arc.radiusStart, limit, L"m",
                      Format(L"半径 %s m 的圆曲线, “%s”每车道加宽 %s m",
                             NumberText(arc.radiusStart), options.car, NumberText(limit.value)));
    }
}

} // namespace roadcheck
