#include "roads/Checking.h"

#include <algorithm>
#include <cmath>

#include "base/Format.h"
#include "base/Text.h"

using namespace designspec;

namespace roadcheck {

Checking::Checking(const Alignment& theRoad, const CDesignSpecification& theSpecification,
                   const CheckOptions& theOptions)
    : road(theRoad), specification(theSpecification), options(theOptions),
      curves(CurvesOf(road.plan)), grades(road.Grades()), speeds(road, options.speeds)
{
    for (const CrossSlopes& slopes : road.superelevations) {
        const double end = slopes.back().at;
        m_reach.push_back(m_reach.empty() ? end : std::max(m_reach.back(), end));
    }
}

AlignmentReport Checking::Run(const std::atomic<bool>* cancel)
{
    TellElementsWithoutShape();
    for (const Rule& rule : Rules()) {
        if (cancel && *cancel) break;
        m_rule = &rule;
        std::wstring why;
        if (CanAsk(rule.need, why))
            rule.check(*this);
        else
            Skip({{}, 0, road.length}, why);
    }
    const auto before = [](const auto& a, const auto& b) { return a.from < b.from; };
    std::stable_sort(m_report.findings.begin(), m_report.findings.end(), before);
    std::stable_sort(m_report.unchecked.begin(), m_report.unchecked.end(), before);
    return std::move(m_report);
}

bool Checking::CanAsk(RuleNeed need, std::wstring& why) const
{
    const bool plan = !road.plan.empty(), profile = road.vertical.size() > 1;
    switch (need) {
    case RuleNeed::Plan:
        why = plan ? L"" : L"文件没有给出平面线形";
        break;
    case RuleNeed::Profile:
        why = profile ? L"" : L"文件没有给出设计纵断面";
        break;
    case RuleNeed::PlanAndProfile:
        why = !plan ? L"文件没有给出平面线形" : !profile ? L"文件没有给出设计纵断面" : L"";
        break;
    case RuleNeed::Superelevation:
        why = FileGivesSuperelevation() ? L"" : L"文件没有给出超高";
        break;
    case RuleNeed::Runoff:
        why = !FileGivesSuperelevation() ? L"文件没有给出超高"
              : road.lanes.empty()       ? L"文件没有给出车道宽度"
                                         : L"";
        break;
    }
    return why.empty();
}

void Checking::TellElementsWithoutShape()
{
    for (const PlanElement& element : road.plan)
        if (element.kind == PlanKind::Other)
            Skip({{}, element.from, element.To()},
                 Format(L"第 %d 个平面单元(第 %d 行): %s", element.index, element.line,
                        element.why));
}

std::optional<int> Checking::SpeedOf(const Stretch& stretch)
{
    const std::optional<int> speed = speeds.Highest(stretch.from, stretch.to);
    if (!speed) Skip(stretch, L"没有设计车速");
    return speed;
}

bool Checking::IsBelow(const Stretch& stretch, int speed, double value, const Limit& limit)
{
    if (limit.state == Limit::Unanswered)
        Skip(stretch, Format(L"%s 没有车速 %d km/h 的限值", std::wstring(limit.path), speed));
    return limit && value < limit.value - kTolerance;
}

bool Checking::IsAbove(const Stretch& stretch, int speed, double value, const Limit& limit)
{
    if (limit.state == Limit::Unanswered)
        Skip(stretch, Format(L"%s 没有车速 %d km/h 的限值", std::wstring(limit.path), speed));
    return limit && value > limit.value + kTolerance;
}

void Checking::Tell(const Stretch& stretch, int speed, double value, const Limit& limit,
                    const wchar_t* unit, const std::wstring& message)
{
    m_report.findings.push_back({m_rule, stretch.element, stretch.from, stretch.to, speed, value,
                                 limit.value, unit, limit.path,
                                 limit.source ? *limit.source : std::wstring(), message});
}

void Checking::TellIfShort(const Stretch& stretch, int speed, double value, const Limit& limit,
                           const std::wstring& what, const std::wstring& least)
{
    if (IsBelow(stretch, speed, value, limit))
        Tell(stretch, speed, value, limit, L"m",
             Format(L"%s %s m, 小于%s %s m", what, NumberText(value), least,
                    NumberText(limit.value)));
}

void Checking::Skip(const Stretch& stretch, const std::wstring& why)
{
    m_report.unchecked.push_back({m_rule, why, stretch.from, stretch.to});
}

Limit Checking::TableSuperelevation(int speed, double radius, std::wstring& why) const
{
    const CDSSuperElevation& tables = specification.SuperElevation;
    Limit limit = {Limit::Absent, 0, L"SuperElevation", &tables.Criterion};
    if (tables.definitions.count == 0) return limit;
    const auto& free = specification.CircularCurveRad.noSuperelevationMinRad;
    const Limit none = Ask(free, speed, L"", tables.Criterion);
    if (none && radius >= none.value - kTolerance) return limit;

    int maximum = options.maxSuper.value_or(0);
    limit.state = Limit::Unanswered;
    if (!options.maxSuper) {
        const Limit of = Ask(specification.MaxSuperElev.MaxSuperElev, speed, L"", tables.Criterion);
        if (!of) {
            why = Format(L"MaxSuperElev.MaxSuperElev 没有车速 %d km/h 的最大超高", speed);
            return limit;
        }
        maximum = static_cast<int>(of.value);
    }
    // The mode is for speeds between two rows: at the top row itself the query refuses Upper.
    QueryValue::QueryMode mode = options.mode;
    for (const SuperElevDefinition& definition : tables.definitions)
        if (definition.maxSuperElev == maximum)
            for (const SuperElevSpeedRow& row : definition.rows)
                if (row.speed == speed) mode = QueryValue::Nearest;
    const auto found = AskSuperElevation(tables, maximum, speed, mode, 0, WholeRadius(radius));
    if (found.superElev) {
        limit.state = Limit::Given;
        limit.value = *found.superElev;
    } else {
        why = Format(L"超高表(最大超高 %d%%)没有车速 %d km/h、半径 %s m 的超高", maximum, speed,
                     NumberText(radius));
    }
    return limit;
}

namespace {

// The highest of one curve's slopes between two places.
double HighestOf(const CrossSlopes& slopes, double from, double to)
{
    double highest = 0;
    for (size_t i = 0; i < slopes.size(); ++i) {
        const CrossSlope& a = slopes[i];
        if (a.at >= from - kNoLength && a.at <= to + kNoLength)
            highest = std::max(highest, a.slope);
        if (i + 1 == slopes.size()) continue;
        const CrossSlope& b = slopes[i + 1];
        for (const double at : {from, to})
            if (a.at < at && at < b.at)
                highest =
                    std::max(highest, a.slope + (b.slope - a.slope) * (at - a.at) / (b.at - a.at));
    }
    return highest;
}

} // namespace

double Checking::FileSuperelevation(double from, double to) const
{
    const auto first = std::partition_point(m_reach.begin(), m_reach.end(),
                                            [&](double reach) { return reach < from - kNoLength; });
    double highest = 0;
    auto slopes = road.superelevations.begin() + (first - m_reach.begin());
    for (; slopes != road.superelevations.end() && slopes->front().at <= to + kNoLength; ++slopes)
        highest = std::max(highest, HighestOf(*slopes, from, to));
    return highest;
}

int WholeRadius(double radius)
{
    return static_cast<int>(std::floor(std::min(radius, 2e9) + kTolerance));
}

std::wstring NumberText(double number)
{
    std::wstring text = Format(L"%.3f", number);
    text = TrimRight(text, L"0");
    text = TrimRight(text, L".");
    return text == L"-0" ? L"0" : text;
}

} // namespace roadcheck
