// What must not change the findings of a road: the unit of length, elements that are cut in two,
// the station at which it begins, the direction in which it is driven.
#include <algorithm>
#include <cmath>
#include <random>

#include <gtest/gtest.h>

#include "base/Number.h"
#include "tests/roads/RoadMaking.h"
#include "tests/roads/RoadText.h"

namespace roadcheck {

namespace {

class Dice {
public:
    explicit Dice(unsigned seed) : m_engine(seed) {}
    // Whole numbers, so that nothing lies just at a limit by rounding alone.
    double Whole(int low, int high)
    {
        return std::uniform_int_distribution<>(low, high)(m_engine) + 0.25;
    }
    bool Chance(double part) { return std::bernoulli_distribution(part)(m_engine); }

private:
    std::mt19937 m_engine;
};

// Straights and curves with or without transitions, grades with vertical curves, superelevation.
Alignment RandomRoad(unsigned seed)
{
    Dice dice(seed);
    std::vector<PlanElement> pieces = {Line(dice.Whole(10, 1500))};
    std::vector<CrossSlopes> slopes;
    double at = pieces[0].length;
    for (int i = 0; i < 6; ++i) {
        const Turn turn = dice.Chance(0.5) ? Turn::Left : Turn::Right;
        const double radius = dice.Whole(30, dice.Chance(0.2) ? 12000 : 1500);
        const double arc = dice.Whole(10, 400), in = dice.Whole(20, 90), out = dice.Whole(20, 90);
        const bool spirals = dice.Chance(0.7);
        if (spirals) pieces.push_back(Spiral(kStraight, radius, in, turn));
        pieces.push_back(Arc(radius, arc, turn));
        if (spirals) pieces.push_back(Spiral(radius, kStraight, out, turn));
        if (spirals && dice.Chance(0.6)) {
            const double slope = dice.Whole(1, 6);
            slopes.push_back(
                {{at, 0}, {at + in, slope}, {at + in + arc, slope}, {at + in + arc + out, 0}});
        }
        at += arc + (spirals ? in + out : 0);
        pieces.push_back(Line(dice.Whole(10, 700)));
        at += pieces.back().length;
    }
    Alignment road = RoadOf(pieces);
    road.superelevations = slopes;
    road.lanes = {{0, road.length, 7, Turn::Left}, {0, road.length, 7, Turn::Right}};
    double place = 0, elevation = 100;
    while (place < road.length) {
        road.vertical.push_back(
            {.at = place, .elevation = elevation, .length = dice.Whole(20, 90)});
        const double length = std::min(dice.Whole(100, 700), road.length - place);
        place = length < 100 ? road.length : place + length;
        elevation += (place - road.vertical.back().at) * (dice.Whole(-9, 9) / 100);
    }
    road.vertical.push_back({.at = road.length, .elevation = elevation});
    return road;
}

struct Writing {
    double unit = 1; // m
    double start = 0;
    bool cut = false;
};

std::string Number(double metres, const Writing& how)
{
    return DoubleToText(metres / how.unit);
}

std::string Radius(double radius, const Writing& how)
{
    return radius == kStraight ? "INF" : Number(radius, how);
}

std::string Text(const PlanElement& one, const Writing& how)
{
    const std::string length = " length=\"" + Number(one.length, how) + "\"";
    const std::string turn = one.turn == Turn::Left ? " rot=\"ccw\"" : " rot=\"cw\"";
    if (one.kind == PlanKind::Line) return "<Line" + length + "/>";
    if (one.kind == PlanKind::Arc)
        return "<Curve" + turn + length + " radius=\"" + Radius(one.radiusStart, how) + "\"/>";
    return "<Spiral" + turn + length + " radiusStart=\"" + Radius(one.radiusStart, how) +
           "\" radiusEnd=\"" + Radius(one.radiusEnd, how) + "\"/>";
}

// The element as two, a third of the way along.
std::string Cut(const PlanElement& one, const Writing& how)
{
    PlanElement first = one, second = one;
    first.length = one.length / 3;
    second.length = one.length - first.length;
    if (one.kind == PlanKind::Spiral) {
        const double curvature =
            1 / one.radiusStart + (1 / one.radiusEnd - 1 / one.radiusStart) / 3;
        first.radiusEnd = second.radiusStart = 1 / curvature;
    }
    return Text(first, how) + Text(second, how);
}

std::string FileOf(const Alignment& road, const Writing& how)
{
    const auto station = [&](double at) { return Number(at + how.start, how); };
    std::string plan, profile, more;
    for (const PlanElement& one : road.plan)
        plan += how.cut ? Cut(one, how) : Text(one, how);
    for (size_t i = 0; i < road.vertical.size(); ++i) {
        const VerticalPoint& one = road.vertical[i];
        if (how.cut && i > 0) {
            const VerticalPoint& before = road.vertical[i - 1];
            profile += "<PVI>" + station((before.at + one.at) / 2) + " " +
                       Number((before.elevation + one.elevation) / 2, how) + "</PVI>";
        }
        profile += "<ParaCurve length=\"" + Number(one.length, how) + "\">" + station(one.at) +
                   " " + Number(one.elevation, how) + "</ParaCurve>";
    }
    for (const CrossSlopes& slopes : road.superelevations)
        more += "<Superelevation><BeginRunoffSta>" + station(slopes[0].at) +
                "</BeginRunoffSta><FullSuperSta>" + station(slopes[1].at) +
                "</FullSuperSta><FullSuperelev>" + DoubleToText(slopes[1].slope) +
                "</FullSuperelev><RunoffSta>" + station(slopes[2].at) +
                "</RunoffSta><StartofRunoutSta>" + station(slopes[3].at) +
                "</StartofRunoutSta></Superelevation>";
    const std::string units =
        how.unit == 1 ? "<Metric linearUnit=\"meter\"/>" : "<Imperial linearUnit=\"foot\"/>";
    return LandXml("<Units>" + units + "</Units>" +
                   AlignmentText(plan,
                                 "<Profile><ProfAlign>" + profile + "</ProfAlign></Profile>" + more,
                                 "name=\"A\" staStart=\"" + Number(how.start, how) + "\"") +
                   "<Roadways><Roadway><Lanes><ThruLane side=\"both\" width=\"" + Number(7, how) +
                   "\"/></Lanes></Roadway></Roadways>");
}

// The same road driven the other way.
Alignment Reversed(const Alignment& road)
{
    std::vector<PlanElement> pieces(road.plan.rbegin(), road.plan.rend());
    for (PlanElement& one : pieces) {
        std::swap(one.radiusStart, one.radiusEnd);
        one.turn = one.turn == Turn::Left    ? Turn::Right
                   : one.turn == Turn::Right ? Turn::Left
                                             : Turn::None;
    }
    Alignment reversed = RoadOf(pieces);
    for (auto one = road.vertical.rbegin(); one != road.vertical.rend(); ++one) {
        reversed.vertical.push_back(*one);
        reversed.vertical.back().at = road.length - one->at;
    }
    for (auto slopes = road.superelevations.rbegin(); slopes != road.superelevations.rend();
         ++slopes) {
        CrossSlopes& other = reversed.superelevations.emplace_back();
        for (auto one = slopes->rbegin(); one != slopes->rend(); ++one)
            other.push_back({road.length - one->at, one->slope});
    }
    return reversed;
}

struct Known {
    std::wstring rule;
    double from = 0, to = 0, value = 0, limit = 0;
};

// What is found in the file of the road, by rule and place.
std::vector<Known> Findings(const std::string& text, double mirror = 0)
{
    const RoadFile file = ReadText(text);
    EXPECT_FALSE(HasError(file.problems));
    std::vector<Known> all;
    CheckOptions options = AtSpeed(60);
    options.car = L"普通汽车";
    const AlignmentReport report =
        CheckAlignment(file.alignments.at(0), CDesignSpecification(), options);
    for (const Finding& one : report.findings) {
        const bool turned = mirror > 0;
        all.push_back({one.rule->id, turned ? mirror - one.to : one.from,
                       turned ? mirror - one.from : one.to, one.value, one.limit});
    }
    std::sort(all.begin(), all.end(), [](const Known& a, const Known& b) {
        return std::pair(a.rule, std::round(a.from * 100)) <
               std::pair(b.rule, std::round(b.from * 100));
    });
    return all;
}

void ExpectSame(const std::vector<Known>& a, const std::vector<Known>& b)
{
    ASSERT_EQ(a.size(), b.size());
    for (size_t i = 0; i < a.size(); ++i) {
        EXPECT_EQ(a[i].rule, b[i].rule);
        EXPECT_NEAR(a[i].from, b[i].from, 1e-3);
        EXPECT_NEAR(a[i].to, b[i].to, 1e-3);
        EXPECT_NEAR(a[i].value, b[i].value, 1e-3);
        EXPECT_NEAR(a[i].limit, b[i].limit, 1e-3);
    }
}

class Properties : public testing::TestWithParam<unsigned> {
protected:
    const Alignment m_road = RandomRoad(GetParam());
    const std::vector<Known> m_plain = Findings(FileOf(m_road, {}));
};

} // namespace

TEST_P(Properties, FeetFindWhatMetresFind)
{
    EXPECT_FALSE(m_plain.empty());
    ExpectSame(m_plain, Findings(FileOf(m_road, {.unit = 0.3048})));
}

TEST_P(Properties, CutElementsFindWhatWholeOnesFind)
{
    ExpectSame(m_plain, Findings(FileOf(m_road, {.cut = true})));
}

TEST_P(Properties, TheFirstStationChangesNothing)
{
    ExpectSame(m_plain, Findings(FileOf(m_road, {.start = 98765.4321})));
    ExpectSame(m_plain, Findings(FileOf(m_road, {.start = -500})));
}

TEST_P(Properties, TheDirectionChangesNothingButThePlace)
{
    ExpectSame(m_plain, Findings(FileOf(Reversed(m_road), {}), m_road.length));
}

INSTANTIATE_TEST_SUITE_P(RandomRoads, Properties, testing::Range(1U, 41U));

} // namespace roadcheck
