// What the profile must keep: gradients, lengths of grades, vertical curves.
#include <algorithm>
#include <cmath>

#include "base/Format.h"
#include "roads/Checking.h"
#include "roads/RuleFunctions.h"

using namespace designspec;

namespace roadcheck {

namespace {

Stretch StretchOf(const Grade& grade)
{
    return {{L"grade", grade.index}, grade.from, grade.to};
}

template <class Check> void ForEachGrade(Checking& checking, Check check)
{
    for (const Grade& grade : checking.grades) {
        const Stretch stretch = StretchOf(grade);
        if (const auto speed = checking.SpeedOf(stretch)) check(grade, stretch, *speed);
    }
}

// Calls `check` with each vertical curve, its stretch, its design speed and whether it is a crest.
template <class Check> void ForEachVerticalCurve(Checking& checking, Check check)
{
    const std::vector<VerticalPoint>& points = checking.road.vertical;
    for (size_t i = 1; i + 1 < points.size(); ++i) {
        const VerticalPoint& point = points[i];
        if (point.length <= kNoLength) continue;
        const bool isCrest = checking.grades[i].gradient < checking.grades[i - 1].gradient;
        const Stretch stretch = {{L"verticalCurve", point.index},
                                 point.at - point.length / 2,
                                 point.at + point.length / 2};
        if (const auto speed = checking.SpeedOf(stretch)) check(point, stretch, *speed, isCrest);
    }
}

void CheckGradient(Checking& checking, const SpeedToDoubleValues& table, const wchar_t* path,
                   const wchar_t* what)
{
    const CheckOptions& options = checking.options;
    const CDSLonGrad& limits = checking.specification.LonGrad;
    ForEachGrade(checking, [&](const Grade& grade, const Stretch& stretch, int speed) {
        Limit limit = checking.Ask(table, speed, path, limits.Criterion);
        if (options.plateau) limit.value -= limits.GradeCompensationOnPlateau;
        const Limit snow = options.snow
                               ? AskField(limits.MaxGradeOnSnowFrozenRegion,
                                          L"LonGrad.MaxGradeOnSnowFrozenRegion", limits.Criterion)
                               : Limit();
        // The stricter one holds; in such regions there is one even where the table has none.
        if (snow && (!limit || snow.value < limit.value)) limit = snow;
        const double steepness = std::fabs(grade.gradient);
        if (checking.IsAbove(stretch, speed, steepness, limit))
            checking.Tell(stretch, speed, steepness, limit, L"%",
                          Format(L"纵坡 %s%%, 大于%s %s%%", NumberText(grade.gradient),
                                 CString(what), NumberText(limit.value)));
    });
}

void CheckVerticalRadius(Checking& checking, const SpeedToIntValues& crests,
                         const wchar_t* crestPath, const SpeedToIntValues& sags,
                         const wchar_t* sagPath, const wchar_t* what)
{
    const CString& source = checking.specification.VerticalCurveMinRadAndLen.Criterion;
    ForEachVerticalCurve(
        checking, [&](const VerticalPoint& point, const Stretch& stretch, int speed, bool isCrest) {
            const Limit limit = isCrest ? checking.Ask(crests, speed, crestPath, source)
                                        : checking.Ask(sags, speed, sagPath, source);
            checking.TellIfShort(stretch, speed, point.radius, limit,
                                 isCrest ? L"凸形竖曲线半径" : L"凹形竖曲线半径", what);
        });
}

} // namespace

void CheckGradeMax(Checking& checking)
{
    CheckGradient(checking, checking.specification.LonGrad.MaxGradLimitedValues,
                  L"LonGrad.MaxGradLimitedValues", L"最大纵坡限制值");
}

void CheckGradeRecommended(Checking& checking)
{
    CheckGradient(checking, checking.specification.LonGrad.MaxGradRecommendedValues,
                  L"LonGrad.MaxGradRecommendedValues", L"最大纵坡推荐值");
}

void CheckGradeMin(Checking& checking)
{
    const CDSLonGrad& limits = checking.specification.LonGrad;
    const Limit limit = AskField(limits.MinGrad, L"LonGrad.MinGrad", limits.Criterion);
    for (const Grade& grade : checking.grades) {
        const Stretch stretch = StretchOf(grade);
        const double steepness = std::fabs(grade.gradient);
        // The limit holds for every speed, one that is not known too.
        if (checking.IsBelow(stretch, 0, steepness, limit))
            checking.Tell(stretch, checking.speeds.Highest(grade.from, grade.to).value_or(0),
                          steepness, limit, L"%",
                          Format(L"纵坡 %s%%, 小于最小纵坡 %s%%", NumberText(grade.gradient),
                                 NumberText(limit.value)));
    }
}

// The file cuts the first and the last grade: how long they are is not known.
void CheckGradeLengthMin(Checking& checking)
{
    const CDSLonGradMinLen& limits = checking.specification.LonGradMinLen;
    ForEachGrade(checking, [&](const Grade& grade, const Stretch& stretch, int speed) {
        if (grade.index == 1 || grade.index == static_cast<int>(checking.grades.size())) return;
        const Limit limit =
            checking.Ask(limits.MinLens, speed, L"LonGradMinLen.MinLens", limits.Criterion);
        checking.TellIfShort(stretch, speed, grade.Length(), limit, L"坡长", L"最小坡长");
    });
}

void CheckGradeLengthMax(Checking& checking)
{
    constexpr double kSameGradient = 0.01; // %, as the query takes rows
    const CDSLonGradMaxLen& limits = checking.specification.LonGradMaxLen;
    if (limits.rows.count == 0) return;
    double gentlest = limits.rows[0].Grad;
    for (const GradientRow& row : limits.rows)
        gentlest = std::min(gentlest, row.Grad);
    ForEachGrade(checking, [&](const Grade& grade, const Stretch& stretch, int speed) {
        const double steepness = std::fabs(grade.gradient);
        if (steepness <= gentlest - kSameGradient) return;
        int length = 0;
        if (!limits.QueryVal(steepness, speed, checking.options.mode, length))
            return checking.Skip(stretch,
                                 Format(L"LonGradMaxLen 没有纵坡 %s%%、车速 %d km/h 的最大坡长",
                                        NumberText(steepness), speed));
        const Limit limit = {Limit::Given, static_cast<double>(length), L"LonGradMaxLen",
                             &limits.Criterion};
        if (checking.IsAbove(stretch, speed, grade.Length(), limit))
            checking.Tell(stretch, speed, grade.Length(), limit, L"m",
                          Format(L"纵坡 %s%% 的坡长 %s m, 大于最大坡长 %s m",
                                 NumberText(grade.gradient), NumberText(grade.Length()),
                                 NumberText(limit.value)));
    });
}

void CheckVerticalRadiusMin(Checking& checking)
{
    const CDSVerticalCurveMinRadAndLen& limits = checking.specification.VerticalCurveMinRadAndLen;
    CheckVerticalRadius(checking, limits.ConvexLimitMinRad,
                        L"VerticalCurveMinRadAndLen.ConvexLimitMinRad", limits.ConcaveLimitMinRad,
                        L"VerticalCurveMinRadAndLen.ConcaveLimitMinRad", L"极限最小半径");
}

void CheckVerticalRadiusGeneral(Checking& checking)
{
    const CDSVerticalCurveMinRadAndLen& limits = checking.specification.VerticalCurveMinRadAndLen;
    CheckVerticalRadius(checking, limits.ConvexGeneralMinRad,
                        L"VerticalCurveMinRadAndLen.ConvexGeneralMinRad",
                        limits.ConcaveGeneralMinRad,
                        L"VerticalCurveMinRadAndLen.ConcaveGeneralMinRad", L"一般最小半径");
}

void CheckVerticalLength(Checking& checking)
{
    const CDSVerticalCurveMinRadAndLen& limits = checking.specification.VerticalCurveMinRadAndLen;
    ForEachVerticalCurve(checking, [&](const VerticalPoint& point, const Stretch& stretch,
                                       int speed, bool) {
        const Limit limit = checking.Ask(limits.MinLens, speed,
                                         L"VerticalCurveMinRadAndLen.MinLens", limits.Criterion);
        checking.TellIfShort(stretch, speed, point.length, limit, L"竖曲线长", L"最小长度");
    });
}

} // namespace roadcheck
