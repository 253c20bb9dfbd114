#include "roads/Rules.h"

#include "roads/RuleFunctions.h"

namespace roadcheck {

namespace {

using enum RuleSeverity;
using enum RuleNeed;

constexpr Rule kRules[] = {
    {L"straight-max", Warning, L"直线最大长度", Plan, CheckStraightMax},
    {L"straight-min-same", Warning, L"同向曲线间直线最小长度", Plan, CheckStraightMinSame},
    {L"straight-min-reverse", Warning, L"反向曲线间直线最小长度", Plan, CheckStraightMinReverse},
    {L"radius-max", Warning, L"圆曲线最大半径", Plan, CheckRadiusMax},
    {L"radius-min", Error, L"圆曲线最小半径", Plan, CheckRadiusMin},
    {L"radius-recommended", Warning, L"圆曲线推荐半径", Plan, CheckRadiusRecommended},
    {L"superelevation-needed", Note, L"需设超高", Plan, CheckSuperelevationNeeded},
    {L"curve-length", Error, L"平曲线最小长度", Plan, CheckCurveLength},
    {L"arc-length", Error, L"圆曲线最小长度", Plan, CheckArcLength},
    {L"small-angle", Error, L"小偏角平曲线长度", Plan, CheckSmallAngle},
    {L"transition-length", Error, L"缓和曲线最小长度", Plan, CheckTransitionLength},
    {L"transition-missing", Error, L"缺少缓和曲线", Plan, CheckTransitionMissing},
    {L"superelevation-max", Error, L"最大超高", Superelevation, CheckSuperelevationMax},
    {L"superelevation-low", Warning, L"超高不足", Superelevation, CheckSuperelevationLow},
    {L"runoff", Error, L"超高渐变率", Runoff, CheckRunoff},
    {L"grade-max", Error, L"最大纵坡", Profile, CheckGradeMax},
    {L"grade-recommended", Warning, L"最大纵坡推荐值", Profile, CheckGradeRecommended},
    {L"grade-min", Warning, L"最小纵坡", Profile, CheckGradeMin},
    {L"grade-length-min", Error, L"最小坡长", Profile, CheckGradeLengthMin},
    {L"grade-length-max", Error, L"最大坡长", Profile, CheckGradeLengthMax},
    {L"vertical-radius-min", Error, L"竖曲线极限最小半径", Profile, CheckVerticalRadiusMin},
    {L"vertical-radius-general", Warning, L"竖曲线一般最小半径", Profile,
     CheckVerticalRadiusGeneral},
    {L"vertical-length", Error, L"竖曲线最小长度", Profile, CheckVerticalLength},
    {L"resultant-gradient", Error, L"合成坡度", PlanAndProfile, CheckResultantGradient},
    {L"widening-needed", Note, L"需加宽", Plan, CheckWideningNeeded},
};

} // namespace

std::span<const Rule> Rules()
{
    return kRules;
}

const Rule* FindRule(std::wstring_view id)
{
    for (const Rule& rule : kRules)
        if (rule.id == id) return &rule;
    return nullptr;
}

const wchar_t* SeverityLabel(RuleSeverity severity)
{
    constexpr const wchar_t* kLabels[] = {L"错误", L"警告", L"提示"};
    return kLabels[static_cast<size_t>(severity)];
}

const char* SeverityName(RuleSeverity severity)
{
    constexpr const char* kNames[] = {"error", "warning", "note"};
    return kNames[static_cast<size_t>(severity)];
}

} // namespace roadcheck
