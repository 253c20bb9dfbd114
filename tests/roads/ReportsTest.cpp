// Reports of names and texts as hostile as a file can hold.
#include <map>
#include <regex>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "roads/Diagram.h"
#include "roads/HtmlReport.h"
#include "roads/RoadJson.h"
#include "tests/roads/RoadMaking.h"

namespace roadcheck {

namespace {

using testing::HasSubstr;
using testing::Not;

const CheckOptions kOptions = AtSpeed(60);

std::vector<CheckedFile> Checked(Alignment road, const CDesignSpecification& specification)
{
    CheckedRoad one;
    one.hasSpeed = true;
    one.report = CheckAlignment(road, specification, kOptions);
    one.road = std::move(road);
    CheckedFile file;
    file.path = L"r.xml";
    file.roads.push_back(std::move(one));
    return {std::move(file)};
}

} // namespace

TEST(HtmlReport, ShowsTextsAsTexts)
{
    Alignment road = CurveRoad(140);
    road.name = L"<b>&\"\x1b[31m";
    CDesignSpecification specification;
    specification.SetName(L"</p><script>");
    specification.CircularCurveRad.MinRadCriterion = L"<img src=x>";
    const std::string html = HtmlReport(Checked(road, specification), specification, kOptions);
    EXPECT_THAT(html, HasSubstr("&lt;b&gt;&amp;&quot;\\x1B[31m"));
    EXPECT_THAT(html, HasSubstr("&lt;/p&gt;&lt;script&gt;"));
    EXPECT_THAT(html, HasSubstr("&lt;img src=x&gt;"));
    EXPECT_THAT(html, Not(HasSubstr("<script")));
    EXPECT_THAT(html, Not(HasSubstr("\x1b")));
}

TEST(HtmlReport, HasADiagramForWhatTheRoadHas)
{
    const CDesignSpecification specification;
    EXPECT_THAT(HtmlReport(Checked(CurveRoad(140), specification), specification, kOptions),
                HasSubstr("平曲线曲率 (1/km)"));
    EXPECT_THAT(
        HtmlReport(Checked(ProfileRoad({{500, 1}}), specification), specification, kOptions),
        HasSubstr("纵坡 (%)"));
}

TEST(HtmlReport, MarksFindingsInARowForEachSeverity)
{
    const CDesignSpecification specification;
    const std::string html =
        HtmlReport(Checked(CurveRoad(140), specification), specification, kOptions);
    const std::regex mark("y=\"([0-9.]+)\" [^>]*fill=\"(#[0-9a-f]{6})\"><title>");
    std::map<std::string, std::string> rows;
    for (std::sregex_iterator one(html.begin(), html.end(), mark), end; one != end; ++one)
        EXPECT_EQ(rows.emplace((*one)[2], (*one)[1]).first->second, (*one)[1]);
    ASSERT_EQ(rows.size(), 2U); // an error and a note
    EXPECT_NE(rows.begin()->second, rows.rbegin()->second);
}

TEST(CsvReport, GivesNoFormulasAndKeepsQuotes)
{
    Alignment road = CurveRoad(140);
    road.name = L"=1+1";
    CDesignSpecification specification;
    specification.CircularCurveRad.MinRadCriterion = L"a \"b\", c";
    const std::string csv = CsvReport(Checked(road, specification));
    EXPECT_THAT(csv, HasSubstr("r.xml,'=1+1,"));
    EXPECT_THAT(csv, HasSubstr("\"a \"\"b\"\", c\""));
}

TEST(JsonReport, HoldsBytesThatAreNoText)
{
    Alignment road = CurveRoad(1000);
    road.name = L"a\xDC80";
    EXPECT_THAT(JsonReport(Checked(road, {})), HasSubstr("a\xEF\xBF\xBD"));
}

TEST(Diagram, ShowsCurvatureRightUpAndTheBandOfTheLimits)
{
    const Alignment road = RoadOf({Line(100), Arc(200, 50, Turn::Right), Arc(500, 50, Turn::Left)});
    const AlignmentReport report = CheckAlignment(road, CDesignSpecification(), kOptions);
    const auto diagrams = DiagramsOf(road, CDesignSpecification(), kOptions, report);
    ASSERT_EQ(diagrams.size(), 1U);
    ASSERT_EQ(diagrams[0].lines.size(), 1U);
    const auto& line = diagrams[0].lines[0];
    ASSERT_EQ(line.size(), 6U);
    EXPECT_EQ(line[1].value, 0);
    EXPECT_EQ(line[2].at, 100);
    EXPECT_EQ(line[2].value, 5);
    EXPECT_EQ(line[5].value, -2);
    ASSERT_EQ(diagrams[0].bands.size(), 1U);
    EXPECT_NEAR(diagrams[0].bands[0].high, 1000.0 / 150, 1e-9);
    EXPECT_EQ(diagrams[0].bands[0].to, 200);
    EXPECT_FALSE(diagrams[0].findings.empty());
}

TEST(Diagram, ShowsTheGradientThroughVerticalCurves)
{
    const Alignment road = ProfileRoad({{500, 2, 100}, {500, -2}});
    const auto diagrams = DiagramsOf(road, CDesignSpecification(), kOptions, {});
    ASSERT_EQ(diagrams.size(), 1U);
    const auto& line = diagrams[0].lines[0];
    ASSERT_EQ(line.size(), 4U);
    EXPECT_EQ(line[1].at, 450);
    EXPECT_NEAR(line[1].value, 2, 1e-9);
    EXPECT_EQ(line[2].at, 550);
    EXPECT_NEAR(line[2].value, -2, 1e-9);
    EXPECT_EQ(diagrams[0].Low(), -7);
    EXPECT_EQ(diagrams[0].High(), 7);
}

TEST(Diagram, TellsValueAndLimitsOfAPlace)
{
    Diagram diagram;
    diagram.lines = {{{0, 1}, {100, 3}, {100, 5}, {200, 5}}, {{300, 7}, {400, 9}}};
    diagram.bands = {{0, 150, -2, 2}, {150, 350, -4, 4}};
    EXPECT_EQ(diagram.ValueAt(0), 1);
    EXPECT_EQ(diagram.ValueAt(50), 2);
    EXPECT_EQ(diagram.ValueAt(100), 5);
    EXPECT_EQ(diagram.ValueAt(200), 5);
    EXPECT_EQ(diagram.ValueAt(250), std::nullopt);
    EXPECT_EQ(diagram.ValueAt(350), 8);
    EXPECT_EQ(diagram.ValueAt(-1), std::nullopt);
    ASSERT_NE(diagram.BandAt(100), nullptr);
    EXPECT_EQ(diagram.BandAt(100)->high, 2);
    EXPECT_EQ(diagram.BandAt(151)->high, 4);
    EXPECT_EQ(diagram.BandAt(351), nullptr);
    EXPECT_EQ(diagram.BandAt(-1), nullptr);
}

TEST(Diagram, NeverGoesBackWhereVerticalCurvesOverlap)
{
    const Alignment road = ProfileRoad({{500, 2, 800}, {300, -2, 800}, {500, 2}});
    const auto diagrams = DiagramsOf(road, CDesignSpecification(), kOptions, {});
    const auto& line = diagrams.at(0).lines.at(0);
    for (size_t i = 1; i < line.size(); ++i)
        EXPECT_LE(line[i - 1].at, line[i].at);
}

} // namespace roadcheck
