#include "model/Findings.h"

#include <limits>

#include <gtest/gtest.h>

#include "base/Text.h"
#include "model/DesignSpecification.h"
#include "model/ValuePath.h"
#include "tests/support/ValidSpecification.h"

namespace designspec {

void PrintTo(const Finding& finding, std::ostream* out)
{
    *out << (finding.severity == Severity::Error ? "Error " : "Note ") << ToUtf8(finding.path)
         << ": " << ToUtf8(finding.text);
}

} // namespace designspec

using namespace designspec;

namespace {

using S = CDesignSpecification;

// One rule: what breaks it in a specification that is clean otherwise, and what is found.
struct Broken {
    const char* name;
    void (*make)(S& made);
    std::vector<Finding> expected;
};

void PrintTo(const Broken& broken, std::ostream* out)
{
    *out << broken.name;
}

Finding Error(const wchar_t* path, const wchar_t* text)
{
    return {Severity::Error, path, text};
}

Finding Note(const wchar_t* path, const wchar_t* text)
{
    return {Severity::Note, path, text};
}

Finding OnlyFromFile(const wchar_t* path, const wchar_t* text)
{
    return {Severity::Note, path, text, true};
}

constexpr double kInfinite = std::numeric_limits<double>::infinity();
constexpr wchar_t kSpeed[] = L"车速 必须大于等于 10 并且小于等于 150";
constexpr wchar_t kNegative[] = L"值不能小于 0";
constexpr wchar_t kReverse[] = L"反向曲线间最小直线长度必须是正数,且最多只有一位小数!";
constexpr wchar_t kMinGrad[] = L"最小纵坡必须大于等于0,并且最多只有一位小数!";
constexpr wchar_t kRowGradient[] = L"坡度必须是正数,并且最多只能有一位小数!";
constexpr wchar_t kRadius[] = L"圆曲线半径必须大于0!";
constexpr wchar_t kEmptyRange[] = L"最小半径不小于最大半径, 没有半径在这个范围内";

const Broken kStraights[] = {
    {"AFactorThatRoundsToNothing",
     [](S& made) { made.BeelineLen.MinLenReverseCurve = 0.04; },
     {Error(L"BeelineLen.MinLenReverseCurve", kReverse)}},
    {"AnInfiniteFactor",
     [](S& made) { made.BeelineLen.MaxLen = kInfinite; },
     {Error(L"BeelineLen.MaxLen", L"最大直线长度必须是正数,且最多只有一位小数!")}},
    {"AFactorWithTwoDecimals",
     [](S& made) { made.BeelineLen.MinLenReverseCurve = 1.25; },
     {OnlyFromFile(L"BeelineLen.MinLenReverseCurve", kReverse)}},
    {"AFactorBelowZero",
     [](S& made) { made.BeelineLen.MinLenReverseCurve = -2; },
     {OnlyFromFile(L"BeelineLen.MinLenReverseCurve", kReverse)}},
    {"ASourceWithoutAFactor",
     [](S& made) {
         made.BeelineLen.MinLenInOneDir = 0;
         made.BeelineLen.MinLenInOneDirCriterion = L"来源";
     },
     {Note(L"BeelineLen.MinLenInOneDirCriterion",
           L"同向曲线间最小直线长度没有限值, 它的数据来源编辑后不保存")}},
    {"FactorsInTheWrongOrder",
     [](S& made) { made.BeelineLen.MinLenReverseCurve = 20.5; },
     {Note(L"BeelineLen.MinLenReverseCurve", L"反向曲线间最小直线长度为 20.5, 大于最大直线长度 20"),
      Note(L"BeelineLen.MinLenReverseCurve",
           L"反向曲线间最小直线长度为 20.5, 大于同向曲线间最小直线长度 6")}},
    {"AFactorAboveTheLongest",
     [](S& made) { made.BeelineLen.MinLenInOneDir = 21; },
     {Note(L"BeelineLen.MinLenInOneDir", L"同向曲线间最小直线长度为 21, 大于最大直线长度 20")}},
    {"BlanksAroundASource",
     [](S& made) { made.CurveMinLen.Criterion = L"来源 "; },
     {Note(L"CurveMinLen.Criterion", L"首尾的空白不会保存")}},
};

const Broken kTables[] = {
    {"ASpeedTooLow",
     [](S& made) {
         made.SmallAngleCurveMinLen.HorizontalCurveMinLen.Add({9, 100});
     },
     {OnlyFromFile(L"SmallAngleCurveMinLen.HorizontalCurveMinLen[9]", kSpeed)}},
    {"ASpeedTooHigh",
     [](S& made) {
         made.LonGradMinLen.MinLens.Insert(0, {151, 400});
     },
     {OnlyFromFile(L"LonGradMinLen.MinLens[151]", kSpeed)}},
    {"ASpeedThatStandsThreeTimes",
     [](S& made) {
         made.LonGradMinLen.MinLens.Insert(0, {80, 1});
         made.LonGradMinLen.MinLens.Insert(0, {80, 2});
     },
     {Note(L"LonGradMinLen.MinLens[80]", L"车速 80 不止一次, 编辑后只留最后一个值")}},
    {"ASpeedTooLowTwice",
     [](S& made) {
         made.SmallAngleCurveMinLen.HorizontalCurveMinLen.Add({9, 100});
         made.SmallAngleCurveMinLen.HorizontalCurveMinLen.Add({9, 100});
     },
     {OnlyFromFile(L"SmallAngleCurveMinLen.HorizontalCurveMinLen[9]", kSpeed),
      Note(L"SmallAngleCurveMinLen.HorizontalCurveMinLen[9]",
           L"车速 9 不止一次, 编辑后只留最后一个值")}},
    {"ANegativeValue",
     [](S& made) { made.LonGradMinLen.MinLens[5].value = -1; },
     {OnlyFromFile(L"LonGradMinLen.MinLens[20]", kNegative)}},
    {"ANegativeDecimal",
     [](S& made) { made.MaxResultantGrad.tables[CDSMaxResultantGrad::CityRoad][1].value = -0.5; },
     {OnlyFromFile(L"MaxResultantGrad.CityRoad[60]", kNegative)}},
    {"SpeedsInAnotherOrder",
     [](S& made) { std::swap(made.LonGradMinLen.MinLens[0], made.LonGradMinLen.MinLens[1]); },
     {Note(L"LonGradMinLen.MinLens", L"车速没有从高到低排列, 编辑后重新排列")}},
    {"ALimitThatFallsWithTheSpeed",
     [](S& made) { made.LonGradMinLen.MinLens[0].value = 169; },
     {Note(L"LonGradMinLen.MinLens[80]", L"最小坡长在车速 80 时为 169, 小于车速 60 时的 170")}},
    {"AGradientThatRisesWithTheSpeed",
     [](S& made) { made.LonGrad.MaxGradLimitedValues[0].value = 7.5; },
     {Note(L"LonGrad.MaxGradLimitedValues[80]",
           L"最大纵坡限制值在车速 80 时为 7.5, 大于车速 60 时的 7")}},
    {"ASpeedMissingInOneTable",
     [](S& made) { made.CurveMinLen.CircularCurveMinLen.RemoveAt(1); },
     {Note(L"CurveMinLen.CircularCurveMinLen[60]", L"圆曲线最小长度没有车速 60 的值")}},
    {"ATableWithoutValues",
     [](S& made) { made.VerticalCurveMinRadAndLen.MinLens.RemoveAll(); },
     {Note(L"VerticalCurveMinRadAndLen.MinLens", L"竖曲线最小长度没有任何车速的值")}},
    {"AGradientOfNoRoad",
     [](S& made) { made.LonGrad.MaxGradLimitedValues[5].value = 95; },
     {Note(L"LonGrad.MaxGradLimitedValues[20]",
           L"最大纵坡限制值在车速 20 时为 95, 大于 30, 不像道路的坡度")}},
    {"ATableOutOfUse",
     [](S& made) { made.TransitionCurveMinLen.NoTCBySuperelevation = 1; },
     {Note(L"TransitionCurveMinLen.NoTCByMinRad",
           L"不设缓和曲线的最小圆曲线半径在当前设置下不用, 也不会保存")}},
    {"ALimitAboveTheGeneralOne",
     [](S& made) { made.VerticalCurveMinRadAndLen.ConvexLimitMinRad[0].value = 4600; },
     {Note(L"VerticalCurveMinRadAndLen.ConvexLimitMinRad[80]",
           L"凸竖曲线极限最小半径在车速 80 时为 4600, 大于凸竖曲线一般最小半径 4500")}},
    {"ASagLimitAboveTheGeneralOne",
     [](S& made) { made.VerticalCurveMinRadAndLen.ConcaveLimitMinRad[0].value = 2701; },
     {Note(L"VerticalCurveMinRadAndLen.ConcaveLimitMinRad[80]",
           L"凹竖曲线极限最小半径在车速 80 时为 2701, 大于凹竖曲线一般最小半径 2700")}},
    {"ARecommendedGradientAboveItsLimit",
     [](S& made) { made.LonGrad.MaxGradRecommendedValues[5].value = 9.5; },
     {Note(L"LonGrad.MaxGradRecommendedValues[20]",
           L"最大纵坡推荐值在车速 20 时为 9.5, 大于最大纵坡限制值 9")}},
    {"ACircularPartLongerThanItsCurve",
     [](S& made) { made.CurveMinLen.CircularCurveMinLen[0].value = 141; },
     {Note(L"CurveMinLen.CircularCurveMinLen[80]",
           L"圆曲线最小长度在车速 80 时为 141, 大于平曲线最小长度 140")}},
    {"RadiiInTheWrongOrder",
     [](S& made) {
         made.CircularCurveRad.SuperelevationRecommendRad[5].value = 71;
         made.CircularCurveRad.SuperelevationMinRad[0].value = 401;
     },
     {Note(L"CircularCurveRad.SuperelevationRecommendRad[20]",
           L"设超高推荐半径在车速 20 时为 71, 大于不设超高最小半径 70"),
      Note(L"CircularCurveRad.SuperelevationMinRad[80]",
           L"设超高最小半径在车速 80 时为 401, 大于设超高推荐半径 400")}},
};

const Broken kLimits[] = {
    {"AMaximumRadiusBelowZero",
     [](S& made) { made.CircularCurveRad.MaxRad = -5; },
     {OnlyFromFile(L"CircularCurveRad.MaxRad", L"圆曲线最大半径必须是正整数!")}},
    {"AMinimumRadiusAboveTheMaximum",
     [](S& made) { made.CircularCurveRad.MaxRad = 999; },
     {Note(L"CircularCurveRad.noSuperelevationMinRad[80]",
           L"不设超高最小半径在车速 80 时为 1000, 大于圆曲线最大半径 999")}},
    {"NoTransitionLengths",
     [](S& made) { made.TransitionCurveMinLen.MinLen.RemoveAll(); },
     {Error(L"TransitionCurveMinLen.MinLen", L"缓和曲线最小长度不能为空!")}},
    {"NoTransitionRadii",
     [](S& made) { made.TransitionCurveMinLen.NoTCByMinRad.RemoveAll(); },
     {Error(L"TransitionCurveMinLen.NoTCByMinRad", L"不设缓和曲线的最小圆曲线半径条件不能为空!")}},
    {"GradientsBelowZeroInTheOrderOfThePage",
     [](S& made) {
         made.LonGrad.MinGrad = -0.04;
         made.LonGrad.GradeCompensationOnPlateau = -1;
         made.LonGrad.MaxGradeOnSnowFrozenRegion = -6;
     },
     {Error(L"LonGrad.GradeCompensationOnPlateau",
            L"高原地区最大纵坡折减必须大于等于0,并且最多只有一位小数!"),
      Error(L"LonGrad.MaxGradeOnSnowFrozenRegion",
            L"积雪冰冻地区最大纵坡必须大于等于0,并且最多只有一位小数!"),
      Error(L"LonGrad.MinGrad", kMinGrad)}},
    {"AGradientWithTwoDecimals",
     [](S& made) { made.LonGrad.MinGrad = 0.35; },
     {OnlyFromFile(L"LonGrad.MinGrad", kMinGrad)}},
    {"GradientsInTheWrongOrder",
     [](S& made) {
         made.LonGrad.MaxGradeOnSnowFrozenRegion = 9.5;
         made.LonGrad.MinGrad = 4.5;
     },
     {Note(L"LonGrad.MaxGradeOnSnowFrozenRegion",
           L"积雪冰冻地区最大纵坡为 9.5, 大于各车速最大纵坡限制值中最大的 9"),
      Note(L"LonGrad.MinGrad", L"最小纵坡为 4.5, 大于各车速最大纵坡推荐值中最小的 4")}},
    {"AReductionOfNoRoad",
     [](S& made) { made.LonGrad.GradeCompensationOnPlateau = 30.1; },
     {Note(L"LonGrad.GradeCompensationOnPlateau",
           L"高原地区最大纵坡折减为 30.1, 大于 30, 不像道路的坡度")}},
    {"AResultantGradientBelowZero",
     [](S& made) { made.MaxResultantGrad.MaxResultantGradOnSnowFrozenRegion = -1; },
     {Error(L"MaxResultantGrad.MaxResultantGradOnSnowFrozenRegion",
            L"积雪冰冻地区最大合成坡度必须大于等于0,并且最多只有一位小数!")}},
    {"AResultantGradientOnSnowAboveAllOthers",
     [](S& made) { made.MaxResultantGrad.MaxResultantGradOnSnowFrozenRegion = 8.5; },
     {Note(L"MaxResultantGrad.MaxResultantGradOnSnowFrozenRegion",
           L"积雪冰冻地区最大合成坡度为 8.5, 大于各车速最大合成坡度中最大的 8")}},
};

const Broken kGrades[] = {
    {"AGradientBetweenTenths",
     [](S& made) { made.LonGradMaxLen.rows[0].Grad = 4.25; },
     {OnlyFromFile(L"LonGradMaxLen.rows[4.25].Grad", kRowGradient)}},
    {"AGradientOfARowOfNoRoad",
     [](S& made) {
         made.LonGradMaxLen.rows.Add({31, {{40, 200}}});
     },
     {Note(L"LonGradMaxLen.rows[31].Grad", L"坡度为 31, 大于 30, 不像道路的坡度")}},
    {"AGradientOfARowBelowZero",
     [](S& made) { made.LonGradMaxLen.rows[0].Grad = -1; },
     {OnlyFromFile(L"LonGradMaxLen.rows[-1].Grad", kRowGradient)}},
    {"ARowWithoutLengths",
     [](S& made) {
         made.LonGradMaxLen.rows.Add({9, {}});
     },
     {Note(L"LonGradMaxLen.rows[9].lengths", L"没有任何车速的坡长, 不会保存")}},
    {"AGradientTwice",
     [](S& made) {
         made.LonGradMaxLen.rows.Add({8, {{40, 250}}});
     },
     {Note(L"LonGradMaxLen.rows[8]", L"坡度 8% 不止一次, 查询只用第一个")}},
    {"GradientsInAnotherOrder",
     [](S& made) {
         made.LonGradMaxLen.rows.Add({7.5, {{30, 200}}});
     },
     {Note(L"LonGradMaxLen.rows[7.5]", L"坡度没有从小到大排列, 读入时重新排列")}},
    {"ASpeedOfARowTooLow",
     [](S& made) {
         made.LonGradMaxLen.rows[5].lengths.Add({5, 200});
     },
     {OnlyFromFile(L"LonGradMaxLen.rows[8].lengths[5]", kSpeed)}},
    {"ASteeperGradeThatMayBeLonger",
     [](S& made) { made.LonGradMaxLen.rows[5].lengths[0].value = 260; },
     {Note(L"LonGradMaxLen.rows[8].lengths[40]",
           L"坡度 8% 的最大坡长在车速 40 时为 260, 大于坡度 7% 的 250")}},
    {"AGradeShorterThanTheShortest",
     [](S& made) { made.LonGradMaxLen.rows[5].lengths[0].value = 109; },
     {Note(L"LonGradMaxLen.rows[8].lengths[40]",
           L"坡度 8% 的最大坡长在车速 40 时为 109, 小于最小坡长 110")}},
};

const Broken kMaxima[] = {
    {"AMaximumOfTwenty",
     [](S& made) {
         made.MaxSuperElev.MaxSuperElev[0].value = 20;
         made.SuperElevation.definitions.RemoveAt(0);
     },
     {Error(L"MaxSuperElev.MaxSuperElev[80]",
            L"设计车速 80 对应的 最大超高 值不合法, 必须在0~20之间!")}},
    {"EachMissingValueInTheOrderOfThePage",
     [](S& made) {
         made.MaxSuperElev.GradualChangeRatio2.RemoveAt(0);
         made.MaxSuperElev.GradualChangeRatio1.RemoveAt(5);
         made.MaxSuperElev.MaxSuperElev.RemoveAt(5);
     },
     {Error(L"MaxSuperElev.GradualChangeRatio2[80]",
            L"设计车速 80 对应的 旋转轴在边线的超高渐变率 不能为空!"),
      Error(L"MaxSuperElev.GradualChangeRatio1[20]",
            L"设计车速 20 对应的 旋转轴在中线的超高渐变率 不能为空!"),
      Error(L"MaxSuperElev.MaxSuperElev[20]", L"设计车速 20 对应的 最大超高 不能为空!")}},
    {"ARunoffTooSteep",
     [](S& made) { made.MaxSuperElev.GradualChangeRatio1[5].value = 1; },
     {OnlyFromFile(L"MaxSuperElev.GradualChangeRatio1[20]", L"超高渐变率必须在 1/2~1/999 之间")}},
    {"ARunoffTooGentle",
     [](S& made) { made.MaxSuperElev.GradualChangeRatio2[0].value = 1000; },
     {OnlyFromFile(L"MaxSuperElev.GradualChangeRatio2[80]", L"超高渐变率必须在 1/2~1/999 之间")}},
    {"SnowBelowZero",
     [](S& made) { made.MaxSuperElev.MaxSuperElevOnSFR = -3; },
     {OnlyFromFile(L"MaxSuperElev.MaxSuperElevOnSFR",
                   L"积雪冰冻地区最大超高必须为大于0的正整数!")}},
    {"SnowAboveAllOthersAndWithoutATable",
     [](S& made) { made.MaxSuperElev.MaxSuperElevOnSFR = 7; },
     {Note(L"MaxSuperElev.MaxSuperElevOnSFR",
           L"积雪冰冻地区最大超高为 7, 大于各车速最大超高中最大的 6"),
      Error(L"SuperElevation.definitions[7]", L"最大超高 7% 的超高表未设置!")}},
};

const Broken kSuperElevations[] = {
    {"ACellOfTheHighestTableTwice",
     [](S& made) {
         made.SuperElevation.definitions[0].rows[0].ranges.Insert(0, {5000, 6000, 6});
     },
     {Note(L"SuperElevation.definitions[6].rows[80].ranges[200~300]",
           L"超高没有从大到小排列, 或不止一次")}},
    {"AMaximumWithoutATable",
     [](S& made) { made.SuperElevation.definitions.RemoveAt(1); },
     {Error(L"SuperElevation.definitions[4]", L"最大超高 4% 的超高表未设置!")}},
    {"AnEmptyTable",
     [](S& made) { made.SuperElevation.definitions[1].rows.RemoveAll(); },
     {Error(L"SuperElevation.definitions[4]", L"最大超高 4% 的超高表未设置!")}},
    {"AGap",
     [](S& made) { made.SuperElevation.definitions[1].rows[1].ranges[0].maxRadius = 149; },
     {Error(
         L"SuperElevation.definitions[4].rows[50].ranges[110~149]",
         L"最大超高 4% 在 车速 50km/h 时, 超高 4% 的最大\n圆曲线半径应该为 3% 的最小圆曲线半径!")}},
    {"ATableOutOfUse",
     [](S& made) {
         made.SuperElevation.definitions.Add({8, {{80, {{100, 200, 8}}}}});
     },
     {Note(L"SuperElevation.definitions[8]", L"最大超高 8% 没有使用, 它的超高表编辑后不保存")}},
    {"TwoTablesForOneMaximum",
     [](S& made) {
         made.SuperElevation.definitions.Add({2, {{40, {{70, 300, 2}}}}});
     },
     {Note(L"SuperElevation.definitions[2]", L"最大超高 2% 的超高表不止一个, 只用第一个")}},
    {"TablesInAnotherOrder",
     [](S& made) {
         std::swap(made.SuperElevation.definitions[0], made.SuperElevation.definitions[2]);
     },
     {Note(L"SuperElevation.definitions", L"超高表没有按使用的先后排列, 编辑后重新排列")}},
    {"ASpeedOfATableTooLow",
     [](S& made) {
         made.SuperElevation.definitions[2].rows.Add({5, {{10, 20, 2}}});
     },
     {OnlyFromFile(L"SuperElevation.definitions[2].rows[5]", kSpeed)}},
    {"ASpeedOfATableTwice",
     [](S& made) {
         made.SuperElevation.definitions[2].rows.Add({20, {{20, 70, 2}}});
     },
     {Note(L"SuperElevation.definitions[2].rows[20]", L"车速 20 不止一次, 查询只用其中一个")}},
    {"SpeedsOfATableInAnotherOrder",
     [](S& made) {
         made.SuperElevation.definitions[2].rows.Add({25, {{20, 70, 2}}});
     },
     {Note(L"SuperElevation.definitions[2].rows[25]", L"车速没有从高到低排列, 查询会用错行")}},
    {"ASpeedWithoutRanges",
     [](S& made) {
         made.SuperElevation.definitions[2].rows.Add({15, {}});
     },
     {Note(L"SuperElevation.definitions[2].rows[15]", L"没有半径范围")}},
    {"ASpeedOfItsMaximumMissing",
     [](S& made) { made.SuperElevation.definitions[2].rows.RemoveAt(1); },
     {Note(L"SuperElevation.definitions[2].rows[30]", L"最大超高 2% 的超高表没有车速 30")}},
    {"ARangeFromZero",
     [](S& made) { made.SuperElevation.definitions[2].rows[2].ranges[0].minRadius = 0; },
     {OnlyFromFile(L"SuperElevation.definitions[2].rows[20].ranges[0~70]", kRadius)}},
    {"ARangeUpsideDown",
     [](S& made) {
         made.SuperElevation.definitions[2].rows[2].ranges[0] = {70, 20, 2};
     },
     {Note(L"SuperElevation.definitions[2].rows[20].ranges[70~20]", kEmptyRange)}},
    {"ARangeWithoutARadius",
     [](S& made) {
         made.SuperElevation.definitions[2].rows[2].ranges[0] = {70, 70, 2};
     },
     {Note(L"SuperElevation.definitions[2].rows[20].ranges[70~70]", kEmptyRange)}},
    {"ASuperElevationAboveTheMaximum",
     [](S& made) { made.SuperElevation.definitions[2].rows[2].ranges[0].superElev = 3; },
     {OnlyFromFile(L"SuperElevation.definitions[2].rows[20].ranges[20~70].superElev",
                   L"超高 3% 不在 2%~2% 之间")}},
    {"ASuperElevationOfOne",
     [](S& made) { made.SuperElevation.definitions[2].rows[2].ranges[0].superElev = 1; },
     {OnlyFromFile(L"SuperElevation.definitions[2].rows[20].ranges[20~70].superElev",
                   L"超高 1% 不在 2%~2% 之间")}},
    {"ASuperElevationTwice",
     [](S& made) { made.SuperElevation.definitions[1].rows[0].ranges[1].superElev = 4; },
     {Note(L"SuperElevation.definitions[4].rows[60].ranges[230~360]",
           L"超高没有从大到小排列, 或不止一次")}},
};

const Broken kWidenings[] = {
    {"RangesFromTheNarrowest",
     [](S& made) {
         auto& ranges = made.CurveWidening.ranges;
         ranges = {ranges[8], ranges[7]};
     },
     {Error(L"CurveWidening.ranges[20~30]", L"圆曲线半径范围 20~30 和前一组不连续!")}},
    {"RangesThatDoNotJoin",
     [](S& made) { made.CurveWidening.ranges.RemoveAt(1); },
     {Error(L"CurveWidening.ranges[100~150]", L"圆曲线半径范围 100~150 和前一组不连续!")}},
    {"AGapOfTwoInACategory",
     [](S& made) {
         made.CurveWidening.ranges[1].widenings.RemoveAt(2);
         made.CurveWidening.ranges[2].widenings.RemoveAt(2);
     },
     {Error(L"CurveWidening.ranges[150~200].widenings[铰接车].widening",
            L"加宽类别 铰接车 的加宽值设置不连续，不同圆曲线半径范围之间不能空缺!"),
      Error(L"CurveWidening.ranges[100~150].widenings[铰接车].widening",
            L"加宽类别 铰接车 的加宽值设置不连续，不同圆曲线半径范围之间不能空缺!")}},
    {"ARangeOfWideningsFromZero",
     [](S& made) { made.CurveWidening.ranges[8].min = 0; },
     {OnlyFromFile(L"CurveWidening.ranges[0~20]", kRadius)}},
    {"ARangeOfWideningsWithoutARadius",
     [](S& made) { made.CurveWidening.ranges[8].min = 20; },
     {Note(L"CurveWidening.ranges[20~20]", kEmptyRange)}},
    {"ARangeWithoutWidenings",
     [](S& made) { made.CurveWidening.ranges[8].widenings.RemoveAll(); },
     {Note(L"CurveWidening.ranges[15~20]", L"没有加宽值, 编辑后不保存")}},
    {"ACategoryWithoutAName",
     [](S& made) {
         made.CurveWidening.ranges[8].widenings.Add({L"", 1});
     },
     {OnlyFromFile(L"CurveWidening.ranges[15~20].widenings[].widening", L"加宽类别不能为空!")}},
    {"ANegativeWidening",
     [](S& made) { made.CurveWidening.ranges[0].widenings[0].widening = -0.1; },
     {OnlyFromFile(L"CurveWidening.ranges[200~250].widenings[小型汽车].widening", kNegative)}},
    {"ACategoryTwiceInARange",
     [](S& made) {
         made.CurveWidening.ranges[8].widenings.Add({L"小型汽车", 0.1});
     },
     {Note(L"CurveWidening.ranges[15~20].widenings[小型汽车].widening",
           L"加宽类别 小型汽车 不止一次, 只用第一个值")}},
    {"ACategoryInAnotherCase",
     [](S& made) {
         made.CurveWidening.ranges[7].widenings.Add({L"Bus", 1});
         made.CurveWidening.ranges[8].widenings.Add({L"BUS", 1});
     },
     {Note(L"CurveWidening.ranges[15~20].widenings[BUS].widening",
           L"加宽类别 BUS 编辑后改写为 Bus")}},
    {"CategoriesInAnotherOrder",
     [](S& made) {
         auto& widenings = made.CurveWidening.ranges[8].widenings;
         std::swap(widenings[0], widenings[1]);
     },
     {Note(L"CurveWidening.ranges[15~20]", L"加宽类别的次序和前面的范围不同, 编辑后重新排列")}},
    {"ANarrowerCurveThatIsWidenedLess",
     [](S& made) { made.CurveWidening.ranges[8].widenings[0].widening = 0.59; },
     {Note(L"CurveWidening.ranges[15~20].widenings[小型汽车].widening",
           L"加宽类别 小型汽车 在半径 15~20 的加宽为 0.59, 小于半径 20~30 的 0.6")}},
};

class FindingsOf : public testing::TestWithParam<Broken> {};

std::string NameOf(const testing::TestParamInfo<Broken>& info)
{
    return info.param.name;
}

} // namespace

TEST(Findings, AreNoneInTheBuiltInLimits)
{
    EXPECT_EQ(Findings({}), std::vector<Finding>());
}

TEST(Findings, AreNoneWhereLimitsAreEqual)
{
    CDesignSpecification made;
    made.BeelineLen.MinLenReverseCurve = made.BeelineLen.MinLenInOneDir = made.BeelineLen.MaxLen;
    made.CircularCurveRad.MaxRad = 1000;
    made.CircularCurveRad.SuperelevationMinRad = made.CircularCurveRad.SuperelevationRecommendRad;
    made.LonGrad.MaxGradeOnSnowFrozenRegion = 9;
    made.LonGrad.MinGrad = 4;
    made.LonGradMaxLen.rows[5].lengths[0].value = 110;
    made.LonGradMaxLen.rows[4].lengths[2].value = 110;
    made.MaxSuperElev.MaxSuperElevOnSFR = 6;
    EXPECT_EQ(Findings(made), std::vector<Finding>());
}

TEST_P(FindingsOf, ABrokenRuleAreThese)
{
    CDesignSpecification made;
    GetParam().make(made);
    EXPECT_EQ(Findings(made), GetParam().expected);
    for (const Finding& finding : Findings(made)) {
        const ParsedPath parsed = ParseValuePath(finding.path);
        EXPECT_EQ(parsed.problem, L"");
        EXPECT_EQ(parsed.path.Text(), finding.path);
    }
}

INSTANTIATE_TEST_SUITE_P(Straights, FindingsOf, testing::ValuesIn(kStraights), NameOf);
INSTANTIATE_TEST_SUITE_P(Tables, FindingsOf, testing::ValuesIn(kTables), NameOf);
INSTANTIATE_TEST_SUITE_P(Limits, FindingsOf, testing::ValuesIn(kLimits), NameOf);
INSTANTIATE_TEST_SUITE_P(Grades, FindingsOf, testing::ValuesIn(kGrades), NameOf);
INSTANTIATE_TEST_SUITE_P(Maxima, FindingsOf, testing::ValuesIn(kMaxima), NameOf);
INSTANTIATE_TEST_SUITE_P(SuperElevations, FindingsOf, testing::ValuesIn(kSuperElevations), NameOf);
INSTANTIATE_TEST_SUITE_P(Widenings, FindingsOf, testing::ValuesIn(kWidenings), NameOf);

TEST(Findings, HavePathsInArbitraryContent)
{
    for (unsigned seed = 0; seed < 20; ++seed)
        for (const Finding& finding : Findings(RandomSpecification(seed).Make()))
            EXPECT_EQ(ParseValuePath(finding.path).problem, L"") << ToUtf8(finding.path);
}

// What is left empty on purpose in real standards.
TEST(Findings, AreNoneWhereALimitIsSwitchedOff)
{
    CDesignSpecification made;
    made.BeelineLen.MaxLen = 0;
    made.BeelineLen.MinLenInOneDir = 0;
    made.CircularCurveRad.MaxRad = 0;
    made.TransitionCurveMinLen.NoTCBySuperelevation = 1;
    made.TransitionCurveMinLen.NoTCByMinRad.RemoveAll();
    made.LonGradMaxLen.rows.RemoveAll();
    made.MaxResultantGrad.tables[CDSMaxResultantGrad::CityRoad].RemoveAll();
    made.MaxSuperElev.MaxSuperElevOnSFR = 4;
    std::swap(made.SuperElevation.definitions[0], made.SuperElevation.definitions[1]);
    made.CurveWidening.ranges.RemoveAll();
    EXPECT_EQ(Findings(made), std::vector<Finding>());
}

TEST(NewFindings, AreThoseThatWereNotThere)
{
    const Finding a = Error(L"A", L"a");
    const Finding b = Note(L"B", L"b");
    EXPECT_EQ(NewFindings({}, {a, b, a}), (std::vector<Finding>{a, b, a}));
    EXPECT_EQ(NewFindings({b, a}, {a, b, a}), (std::vector<Finding>{a}));
    EXPECT_EQ(NewFindings({a, a, b}, {a}), std::vector<Finding>());
    EXPECT_EQ(NewFindings({Error(L"A", L"b")}, {a}), (std::vector<Finding>{a}));
}

// The editor shows the highest table in a grid, which puts its ranges in order.
TEST(Findings, TakeTheHighestTableAsTheGridGivesItBack)
{
    CDesignSpecification made;
    for (const int table : {0, 1})
        for (SuperElevSpeedRow& row : made.SuperElevation.definitions[table].rows)
            std::reverse(row.ranges.begin(), row.ranges.end());
    int errors = 0;
    for (const Finding& finding : Findings(made)) {
        EXPECT_FALSE(finding.path.starts_with(L"SuperElevation.definitions[6]") &&
                     finding.severity == Severity::Error)
            << ToUtf8(finding.path);
        errors += finding.severity == Severity::Error;
    }
    EXPECT_EQ(errors, 4);
}

TEST(Findings, HaveNoErrorInWhatThePagesAccept)
{
    for (unsigned seed = 0; seed < 200; ++seed)
        for (const Finding& finding : Findings(ValidSpecification(seed).Make(L"甲")))
            EXPECT_EQ(finding.severity, Severity::Note) << seed << testing::PrintToString(finding);
}
