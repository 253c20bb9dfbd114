// Findings in speed tables, of whatever criterion.
#include <algorithm>
#include <set>

#include "base/Format.h"
#include "model/FindingList.h"
#include "model/Rules.h"

namespace designspec {
namespace {

enum class Trend { Rises, Falls }; // with the speed

struct TableRule {
    const wchar_t* criterion;
    Trend trend;
    bool sameSpeeds; // its tables have values for the same speeds, and there are some
};
// Transition curves may be needed at any radius below some speed, and for superelevations it is an
// error when a value is missing.
constexpr TableRule kTableRules[] = {
    {L"CircularCurveRad", Trend::Rises, true},
    {L"CurveMinLen", Trend::Rises, true},
    {L"SmallAngleCurveMinLen", Trend::Rises, true},
    {L"TransitionCurveMinLen", Trend::Rises, false},
    {L"LonGrad", Trend::Falls, true},
    {L"LonGradMinLen", Trend::Rises, true},
    {L"VerticalCurveMinRadAndLen", Trend::Rises, true},
    {L"MaxSuperElev", Trend::Rises, false},
};

// At no speed is the lesser one's value above the greater one's.
struct OrderRule {
    const wchar_t* criterion;
    const wchar_t* lesser;
    const wchar_t* greater;
};
constexpr OrderRule kOrderRules[] = {
    {L"CircularCurveRad", L"SuperelevationRecommendRad", L"noSuperelevationMinRad"},
    {L"CircularCurveRad", L"SuperelevationMinRad", L"SuperelevationRecommendRad"},
    {L"CurveMinLen", L"CircularCurveMinLen", L"HorizontalCurveMinLen"},
    {L"LonGrad", L"MaxGradRecommendedValues", L"MaxGradLimitedValues"},
    {L"VerticalCurveMinRadAndLen", L"ConvexLimitMinRad", L"ConvexGeneralMinRad"},
    {L"VerticalCurveMinRadAndLen", L"ConcaveLimitMinRad", L"ConcaveGeneralMinRad"},
};

bool HoldsGradients(const CriterionInfo& criterion, const Field& field)
{
    return field.unit == std::wstring_view(L"%") &&
           criterion.name != std::wstring_view(L"MaxSuperElev");
}

SpeedValues FieldValues(const Field& field, const void* object)
{
    return field.kind == FieldKind::IntTable ? ValuesOf(field.Of<SpeedToIntValues>(object))
                                             : ValuesOf(field.Of<SpeedToDoubleValues>(object));
}

void FindTrend(const SpeedTable& table, Trend trend, FindingList& found)
{
    if (table.values.empty()) return;
    for (auto lower = std::next(table.values.begin()); lower != table.values.end(); ++lower) {
        const auto& [speed, value] = *std::prev(lower);
        if (trend == Trend::Rises ? value >= lower->second : value <= lower->second) continue;
        found.Note(At(table.path, speed),
                   Format(L"%s在车速 %d 时为 %s, %s于车速 %d 时的 %s", table.label, speed,
                          NumberText(value), CString(trend == Trend::Rises ? L"小" : L"大"),
                          lower->first, NumberText(lower->second)));
    }
}

void FindMissing(const std::vector<SpeedTable>& tables, FindingList& found)
{
    std::set<int, std::greater<>> speeds;
    for (const SpeedTable& table : tables)
        for (const auto& [speed, value] : table.values)
            speeds.insert(speed);
    for (const SpeedTable& table : tables) {
        if (table.values.empty()) found.Note(table.path, table.label + L"没有任何车速的值");
        for (const int speed : speeds)
            if (!table.values.empty() && !table.values.contains(speed))
                found.Note(At(table.path, speed),
                           Format(L"%s没有车速 %d 的值", table.label, speed));
    }
}

void FindOrder(const SpeedTable& lesser, const SpeedTable& greater, FindingList& found)
{
    for (const auto& [speed, value] : lesser.values)
        if (const auto other = greater.values.find(speed);
            other != greater.values.end() && value > other->second)
            found.Note(At(lesser.path, speed),
                       AboveText(Format(L"%s在车速 %d 时", lesser.label, speed), value,
                                 greater.label, other->second));
}

} // namespace

void FindSteep(const std::wstring& path, const std::wstring& what, double gradient,
               FindingList& found)
{
    if (gradient > kSteepestGradient)
        found.Note(path, Format(L"%s为 %s, 大于 %d, 不像道路的坡度", what, NumberText(gradient),
                                kSteepestGradient));
}

SpeedTable TableOf(const CriterionInfo& criterion, const wchar_t* key, const void* object)
{
    const Field& field = *FindField(criterion.fields, key);
    SpeedTable table{CString(criterion.name) + L"." + field.key, field.label, {}};
    for (const auto& [speed, value] : FieldValues(field, object))
        table.values[speed] = value;
    return table;
}

void FindInTable(const SpeedValues& values, const std::wstring& path, FindingList& found)
{
    std::map<int, int> times;
    for (const auto& [speed, value] : values) {
        if (!IsTableValue(value)) found.OnlyFromFile(At(path, speed), kTableValueText);
        if (++times[speed] == 2)
            found.Note(At(path, speed), Format(L"车速 %d 不止一次, 编辑后只留最后一个值", speed));
        if (!IsSpeed(speed) && times[speed] == 1) found.OnlyFromFile(At(path, speed), SpeedText());
    }
    if (!std::is_sorted(values.begin(), values.end(),
                        [](const auto& a, const auto& b) { return a.speed > b.speed; }))
        found.Note(path, L"车速没有从高到低排列, 编辑后重新排列");
}

void FindInTables(const CriterionInfo& criterion, const void* object, FindingList& found)
{
    std::vector<SpeedTable> tables;
    for (const Field& field : criterion.fields) {
        if (!field.IsTable()) continue;
        const SpeedValues values = FieldValues(field, object);
        const SpeedTable table = TableOf(criterion, field.key, object);
        if (field.isUsed && !field.isUsed(object)) {
            if (!values.empty())
                found.Note(table.path, table.label + L"在当前设置下不用, 也不会保存");
            continue;
        }
        FindInTable(values, table.path, found);
        if (HoldsGradients(criterion, field))
            for (const auto& [speed, value] : values)
                FindSteep(At(table.path, speed), Format(L"%s在车速 %d 时", table.label, speed),
                          value, found);
        tables.push_back(table);
    }
    const auto isOfCriterion = [&criterion](const auto& rule) {
        return std::wstring_view(rule.criterion) == criterion.name;
    };
    if (const auto* rule =
            std::find_if(std::begin(kTableRules), std::end(kTableRules), isOfCriterion);
        rule != std::end(kTableRules)) {
        for (const SpeedTable& table : tables)
            FindTrend(table, rule->trend, found);
        if (rule->sameSpeeds) FindMissing(tables, found);
    }
    for (const OrderRule& rule : kOrderRules)
        if (isOfCriterion(rule))
            FindOrder(TableOf(criterion, rule.lesser, object),
                      TableOf(criterion, rule.greater, object), found);
}

} // namespace designspec
