#include "roads/Diagram.h"

#include <algorithm>
#include <cmath>

#include "roads/Limit.h"
#include "roads/SpeedStretches.h"

namespace roadcheck {

namespace {

class DiagramMaker {
public:
    DiagramMaker(const Alignment& road, const CDesignSpecification& specification,
                 const CheckOptions& options, const AlignmentReport& report)
        : m_road(road), m_specification(specification), m_options(options), m_report(report),
          m_speeds(road, options.speeds)
    {
    }

    Diagram Curvature() const
    {
        Diagram diagram = {L"平曲线曲率", L"1/km", {}, {}, {}};
        std::vector<DiagramPoint>& line = diagram.lines.emplace_back();
        for (const PlanElement& one : m_road.plan) {
            const double sign = one.turn == Turn::Left ? -1000 : 1000;
            line.push_back({one.from, sign / one.radiusStart});
            line.push_back({one.To(), sign / one.radiusEnd});
        }
        Band(diagram, [&](int speed) {
            const CDSCircularCurveRad& limits = m_specification.CircularCurveRad;
            const Limit least = AskTable(limits.SuperelevationMinRad, speed, m_options.mode, L"",
                                         limits.MinRadCriterion);
            return least && least.value > 0 ? 1000 / least.value : 0;
        });
        Mark(diagram, {RuleNeed::Plan});
        return diagram;
    }

    Diagram Gradient() const
    {
        Diagram diagram = {L"纵坡", L"%", {}, {}, {}};
        std::vector<DiagramPoint>& line = diagram.lines.emplace_back();
        const std::vector<Grade> grades = m_road.Grades();
        for (size_t i = 0; i < grades.size(); ++i) {
            // On a parabola the gradient goes from one grade's to the other's in proportion.
            const double before = m_road.vertical[i].length / 2;
            const double after = m_road.vertical[i + 1].length / 2;
            Add(line, grades[i].from + before, grades[i].gradient);
            Add(line, grades[i].to - after, grades[i].gradient);
        }
        Band(diagram, [&](int speed) {
            const CDSLonGrad& limits = m_specification.LonGrad;
            const Limit most =
                AskTable(limits.MaxGradLimitedValues, speed, m_options.mode, L"", limits.Criterion);
            return most ? most.value : 0;
        });
        Mark(diagram, {RuleNeed::Profile, RuleNeed::PlanAndProfile});
        return diagram;
    }

    Diagram Superelevation() const
    {
        Diagram diagram = {L"超高", L"%", {}, {}, {}};
        for (const CrossSlopes& slopes : m_road.superelevations) {
            std::vector<DiagramPoint>& line = diagram.lines.emplace_back();
            for (const CrossSlope& one : slopes)
                line.push_back({one.at, one.slope});
        }
        Band(diagram, [&](int speed) {
            const CDSMaxSuperElevation& limits = m_specification.MaxSuperElev;
            const Limit most =
                AskTable(limits.MaxSuperElev, speed, m_options.mode, L"", limits.Criterion);
            return most ? most.value : 0;
        });
        for (DiagramBand& band : diagram.bands)
            band.low = 0;
        Mark(diagram, {RuleNeed::Superelevation, RuleNeed::Runoff});
        return diagram;
    }

private:
    // Vertical curves may overlap; a line never goes back.
    static void Add(std::vector<DiagramPoint>& line, double at, double value)
    {
        line.push_back({line.empty() ? at : std::max(at, line.back().at), value});
    }

    // A band of that height either side of 0, for each stretch of one speed; 0 is no limit.
    template <class Height> void Band(Diagram& diagram, Height height) const
    {
        for (const DesignSpeed& stretch : m_speeds.Stretches())
            if (const double high = height(stretch.speed); high > 0)
                diagram.bands.push_back({stretch.from, stretch.to, -high, high});
    }

    void Mark(Diagram& diagram, std::initializer_list<RuleNeed> needs) const
    {
        for (size_t i = 0; i < m_report.findings.size(); ++i)
            if (std::find(needs.begin(), needs.end(), m_report.findings[i].rule->need) !=
                needs.end())
                diagram.findings.push_back(i);
    }

    const Alignment& m_road;
    const CDesignSpecification& m_specification;
    const CheckOptions& m_options;
    const AlignmentReport& m_report;
    const SpeedStretches m_speeds;
};

template <class Choose> double Extreme(const Diagram& diagram, Choose choose)
{
    double extreme = 0;
    for (const auto& line : diagram.lines)
        for (const DiagramPoint& point : line)
            extreme = choose(extreme, point.value);
    for (const DiagramBand& band : diagram.bands)
        extreme = choose(choose(extreme, band.low), band.high);
    return extreme;
}

} // namespace

double Diagram::Low() const
{
    return Extreme(*this, [](double a, double b) { return std::min(a, b); });
}

double Diagram::High() const
{
    return Extreme(*this, [](double a, double b) { return std::max(a, b); });
}

ValueSpan Diagram::Span() const
{
    const double low = Low(), high = High();
    const double room = std::max((high - low) * 0.08, 1e-6);
    return {low - room, high + room};
}

std::optional<double> Diagram::ValueAt(double at) const
{
    for (const auto& line : lines) {
        if (line.empty() || at < line.front().at || at > line.back().at) continue;
        const auto next = std::upper_bound(
            line.begin(), line.end(), at,
            [](double place, const DiagramPoint& point) { return place < point.at; });
        if (next == line.end()) return line.back().value;
        return Between(*(next - 1), *next, at);
    }
    return {};
}

const DiagramBand* Diagram::BandAt(double at) const
{
    const auto band =
        std::lower_bound(bands.begin(), bands.end(), at,
                         [](const DiagramBand& one, double place) { return one.to < place; });
    return band != bands.end() && band->from <= at ? &*band : nullptr;
}

double Between(const DiagramPoint& a, const DiagramPoint& b, double at)
{
    return a.value + (b.value - a.value) * (at - a.at) / (b.at - a.at);
}

std::vector<Diagram> DiagramsOf(const Alignment& road, const CDesignSpecification& specification,
                                const CheckOptions& options, const AlignmentReport& report)
{
    const DiagramMaker maker(road, specification, options, report);
    std::vector<Diagram> diagrams;
    if (!road.plan.empty()) diagrams.push_back(maker.Curvature());
    if (road.vertical.size() > 1) diagrams.push_back(maker.Gradient());
    if (!road.superelevations.empty()) diagrams.push_back(maker.Superelevation());
    return diagrams;
}

} // namespace roadcheck
