// Road files as programs write them.
#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>
#include <numbers>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "TreePaths.h"
#include "tests/roads/RoadText.h"

namespace roadcheck {

namespace {

using std::numbers::pi;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::string Example(const std::string& name)
{
    std::ifstream file(Utf8Path(SOURCE_DIR "/examples/roads/" + name), std::ios::binary);
    std::string text(std::istreambuf_iterator<char>(file), {});
    EXPECT_FALSE(text.empty()) << name;
    return text;
}

// The only alignment of a file that has nothing odd in it.
Alignment Only(const std::string& content)
{
    const RoadFile file = ReadText(LandXml(content));
    EXPECT_THAT(Told(file), IsEmpty());
    EXPECT_EQ(file.alignments.size(), 1U);
    return file.alignments.empty() ? Alignment() : file.alignments[0];
}

std::vector<PlanElement> Plan(const std::string& elements)
{
    return Only(AlignmentText(elements)).plan;
}

void Expect(const PlanElement& element, PlanKind kind, double from, double length,
            double radiusStart, double radiusEnd, Turn turn)
{
    EXPECT_EQ(element.kind, kind);
    EXPECT_NEAR(element.from, from, 1e-6);
    EXPECT_NEAR(element.length, length, 1e-6);
    // Infinities have no difference.
    EXPECT_TRUE(element.radiusStart == radiusStart ||
                std::fabs(element.radiusStart - radiusStart) < 1e-6)
        << element.radiusStart;
    EXPECT_TRUE(element.radiusEnd == radiusEnd || std::fabs(element.radiusEnd - radiusEnd) < 1e-6)
        << element.radiusEnd;
    EXPECT_EQ(element.turn, turn);
}

} // namespace

TEST(RoadFile, GivesLinesCurvesAndSpirals)
{
    const auto plan = Plan("<Line length=\"100\"/>"
                           "<Spiral length=\"50\" radiusStart=\"INF\" radiusEnd=\"200\" rot=\"cw\" "
                           "spiType=\"clothoid\"/>"
                           "<Curve rot=\"cw\" radius=\"200\" length=\"80\"/>"
                           "<Spiral length=\"50\" radiusStart=\"200\" radiusEnd=\"INF\" rot=\"cw\" "
                           "spiType=\"clothoid\"/>");
    ASSERT_EQ(plan.size(), 4U);
    Expect(plan[0], PlanKind::Line, 0, 100, kStraight, kStraight, Turn::None);
    Expect(plan[1], PlanKind::Spiral, 100, 50, kStraight, 200, Turn::Right);
    Expect(plan[2], PlanKind::Arc, 150, 80, 200, 200, Turn::Right);
    Expect(plan[3], PlanKind::Spiral, 230, 50, 200, kStraight, Turn::Right);
    EXPECT_EQ(plan[2].index, 3);
    EXPECT_EQ(plan[2].line, 3);
}

TEST(RoadFile, TakesEveryWayToWriteAStraightsRadius)
{
    for (const char* const radius : {"INF", "inf", "Infinity", "1E+308", "0", "0.0"}) {
        const auto plan = Plan("<Spiral length=\"50\" radiusStart=\"" + std::string(radius) +
                               "\" radiusEnd=\"200\" rot=\"ccw\"/>");
        ASSERT_EQ(plan.size(), 1U) << radius;
        Expect(plan[0], PlanKind::Spiral, 0, 50, kStraight, 200, Turn::Left);
    }
}

TEST(RoadFile, TakesTheLengthOfALineFromItsPoints)
{
    const auto plan = Plan("<Line><Start>10 20</Start><End>40 60</End></Line>");
    ASSERT_EQ(plan.size(), 1U);
    EXPECT_NEAR(plan[0].length, 50, 1e-9);
}

TEST(RoadFile, TakesRadiusTurnAndLengthOfACurveFromItsPoints)
{
    // From the west point of a circle over its north point: to the right, a quarter.
    const auto plan =
        Plan("<Curve><Start>0 -100</Start><Center>0 0</Center><End>100 0</End></Curve>");
    ASSERT_EQ(plan.size(), 1U);
    Expect(plan[0], PlanKind::Arc, 0, 50 * pi, 100, 100, Turn::Right);
}

TEST(RoadFile, TakesTheLongWayRoundWhenTheFileTurnsThatWay)
{
    const auto plan = Plan(
        "<Curve rot=\"ccw\"><Start>0 -100</Start><Center>0 0</Center><End>100 0</End></Curve>");
    // The one curve shows that the file writes eastings first, so the quarter is to the left.
    Expect(plan[0], PlanKind::Arc, 0, 50 * pi, 100, 100, Turn::Left);
    const auto two = Plan(
        "<Curve rot=\"cw\"><Start>0 -100</Start><Center>0 0</Center><End>100 0</End></Curve>"
        "<Curve rot=\"cw\"><Start>100 0</Start><Center>0 0</Center><End>0 100</End></Curve>"
        "<Curve rot=\"cw\" radius=\"100\"><Start>0 100</Start><Center>0 0</Center><End>100 0</End>"
        "</Curve>");
    ASSERT_EQ(two.size(), 1U); // one circle
    EXPECT_NEAR(two[0].length, 50 * pi + 50 * pi + 150 * pi, 1e-6);
}

TEST(RoadFile, TakesTheLengthOfACurveFromItsAngleOrItsChord)
{
    auto plan = Plan("<Curve rot=\"cw\" radius=\"180\" delta=\"10\"/>");
    EXPECT_NEAR(plan[0].length, 10 * pi, 1e-9);
    plan = Plan("<Curve rot=\"cw\" radius=\"100\"><Start>0 0</Start><End>100 0</End></Curve>");
    EXPECT_NEAR(plan[0].length, 100 * pi / 3, 1e-9);
    plan = Plan("<Curve rot=\"cw\" length=\"31.41592653589793\" delta=\"10\"/>");
    EXPECT_NEAR(plan[0].radiusStart, 180, 1e-9);
}

TEST(RoadFile, FindsOutWhichCoordinateComesFirst)
{
    // Eastings first, as the curve with a turn shows; the other one's turn follows.
    const auto plan = Plan(
        "<Curve rot=\"cw\" length=\"157.07963267948966\"><Start>-100 0</Start><Center>0 0</Center>"
        "<End>0 100</End></Curve>"
        "<Curve><Start>0 100</Start><Center>0 200</Center><End>100 200</End></Curve>");
    ASSERT_EQ(plan.size(), 2U);
    EXPECT_EQ(plan[0].turn, Turn::Right);
    EXPECT_EQ(plan[1].turn, Turn::Left);
}

TEST(RoadFile, TakesRadiusAndTurnOfASpiralFromItsNeighbours)
{
    const auto plan =
        Plan("<Line length=\"9\"/><Spiral length=\"50\"/>"
             "<Curve rot=\"ccw\" radius=\"300\" length=\"20\"/>"
             "<Spiral length=\"40\"/><Curve rot=\"ccw\" radius=\"150\" length=\"20\"/>"
             "<Spiral length=\"30\"/>");
    ASSERT_EQ(plan.size(), 6U);
    Expect(plan[1], PlanKind::Spiral, 9, 50, kStraight, 300, Turn::Left);
    Expect(plan[3], PlanKind::Spiral, 79, 40, 300, 150, Turn::Left);
    Expect(plan[5], PlanKind::Spiral, 139, 30, 150, kStraight, Turn::Left);
}

TEST(RoadFile, TakesTheLengthOfASpiralFromItsChord)
{
    // x = L - L^3/(40 R^2) + ..., y = L^2/(6 R) - ...: of L = 100, R = 200.
    const double chord = ClothoidChord(100, 0, 1.0 / 200);
    const auto plan =
        Plan("<Spiral radiusStart=\"INF\" radiusEnd=\"200\" rot=\"cw\"><Start>0 0</Start>"
             "<End>" +
             std::to_string(chord) + " 0</End></Spiral>");
    ASSERT_EQ(plan.size(), 1U);
    EXPECT_NEAR(plan[0].length, 100, 1e-4); // of a chord with six decimals
}

TEST(RoadFile, TakesASpiralOfOneRadiusForAnArcAndOneWithoutForALine)
{
    const auto plan =
        Plan("<Spiral length=\"50\" radiusStart=\"200\" radiusEnd=\"200\" rot=\"cw\"/>"
             "<Spiral length=\"50\" radiusStart=\"INF\" radiusEnd=\"INF\" rot=\"cw\"/>");
    ASSERT_EQ(plan.size(), 2U);
    Expect(plan[0], PlanKind::Arc, 0, 50, 200, 200, Turn::Right);
    Expect(plan[1], PlanKind::Line, 50, 50, kStraight, kStraight, Turn::None);
}

TEST(RoadFile, PutsTogetherWhatWasCut)
{
    const auto plan =
        Plan("<Line length=\"10\"/><Line length=\"20\"/>"
             "<Spiral length=\"50\" radiusStart=\"INF\" radiusEnd=\"400\" rot=\"cw\"/>"
             "<Spiral length=\"50\" radiusStart=\"400\" radiusEnd=\"200\" rot=\"cw\"/>"
             "<Curve rot=\"cw\" radius=\"200\" length=\"30\"/>"
             "<Curve rot=\"cw\" radius=\"200\" length=\"40\"/>");
    ASSERT_EQ(plan.size(), 3U);
    EXPECT_NEAR(plan[0].length, 30, 1e-9);
    Expect(plan[1], PlanKind::Spiral, 30, 100, kStraight, 200, Turn::Right);
    EXPECT_NEAR(plan[2].length, 70, 1e-9);
}

TEST(RoadFile, LeavesOutElementsOfNoLength)
{
    const auto plan = Plan("<Line length=\"0\"/><Line length=\"10\"/><Spiral length=\"0\" "
                           "radiusStart=\"INF\" radiusEnd=\"100\" rot=\"cw\"/>"
                           "<Curve rot=\"cw\" radius=\"100\" length=\"30\"/>");
    ASSERT_EQ(plan.size(), 2U);
    EXPECT_EQ(plan[0].index, 2);
    EXPECT_EQ(plan[1].index, 4);
}

TEST(RoadFile, KeepsALineThatBendsApartAndTellsIt)
{
    const RoadFile file =
        ReadText(LandXml(AlignmentText("<Line><Start>0 0</Start><End>100 0</End></Line>\n"
                                       "<Line><Start>100 0</Start><End>200 10</End></Line>")));
    EXPECT_THAT(Told(file), ElementsAre(L"4: 第 2 个平面单元与前一直线之间有折角 5.711°"));
    ASSERT_EQ(file.alignments.size(), 1U);
    EXPECT_EQ(file.alignments[0].plan.size(), 2U);
}

TEST(RoadFile, CountsTheLengthOfWhatHasNoKnownShape)
{
    const RoadFile file = ReadText(LandXml(AlignmentText(
        "<IrregularLine length=\"10\"/><Chain length=\"20\"/>"
        "<Spiral length=\"30\" radiusStart=\"INF\" radiusEnd=\"100\" rot=\"cw\" spiType=\"bloss\"/>"
        "<Curve length=\"5\"/><Curve length=\"6\" radius=\"100\"/>"
        "<Spiral length=\"7\" radiusStart=\"INF\" radiusEnd=\"50\"/>")));
    ASSERT_EQ(file.alignments.size(), 1U);
    const auto& plan = file.alignments[0].plan;
    std::vector<std::wstring> why;
    for (const PlanElement& one : plan) {
        EXPECT_EQ(one.kind, PlanKind::Other);
        why.push_back(one.why);
    }
    EXPECT_THAT(why, ElementsAre(L"不支持 IrregularLine", L"不支持 Chain",
                                 L"缓和曲线的线型“bloss”不是回旋线", L"圆曲线没有半径",
                                 L"圆曲线没有转向", L"缓和曲线没有转向"));
    EXPECT_NEAR(file.alignments[0].length, 78, 1e-9);
}

TEST(RoadFile, TellsAnElementWithoutLength)
{
    const RoadFile file =
        ReadText(LandXml(AlignmentText("<Line length=\"9\"/>\n<Line/>\n<Line length=\"x\"/>")));
    EXPECT_THAT(Told(file),
                ElementsAre(L"5: Line 的 length=“x”不是数", L"4: 第 2 个平面单元没有长度",
                            L"5: 第 3 个平面单元没有长度"));
    EXPECT_TRUE(HasError(file.problems));
}

TEST(RoadFile, FillsGapsBetweenStationsAndTellsOverlapsAndDisorder)
{
    RoadFile file = ReadText(LandXml(AlignmentText(
        "<Line length=\"10\" staStart=\"100\"/>\n<Line length=\"10\" staStart=\"115\"/>", "",
        "name=\"A\" staStart=\"100\"")));
    EXPECT_THAT(Told(file), ElementsAre(L"4: 第 2 个平面单元前桩号间断 5.000 m"));
    ASSERT_EQ(file.alignments[0].plan.size(), 3U);
    EXPECT_EQ(file.alignments[0].plan[1].kind, PlanKind::Other);
    EXPECT_EQ(file.alignments[0].plan[1].why, L"桩号间断");
    EXPECT_NEAR(file.alignments[0].length, 25, 1e-9);

    file = ReadText(LandXml(AlignmentText(
        "<Line length=\"10\" staStart=\"0\"/>\n<Line length=\"10\" staStart=\"8\"/>")));
    EXPECT_THAT(Told(file), ElementsAre(L"4: 第 2 个平面单元与前一单元的桩号重叠 2.000 m"));

    file =
        ReadText(LandXml(AlignmentText("<Curve rot=\"cw\" radius=\"90\" length=\"10\" "
                                       "staStart=\"10\"/><Line length=\"10\" staStart=\"0\"/>")));
    EXPECT_THAT(Told(file), ElementsAre(L"3: 平面单元不按桩号排列,已按桩号排列"));
    EXPECT_EQ(file.alignments[0].plan[0].kind, PlanKind::Line);
}

TEST(RoadFile, TellsElementsThatDoNotMeet)
{
    const RoadFile file =
        ReadText(LandXml(AlignmentText("<Line><Start>0 0</Start><End>100 0</End></Line>\n"
                                       "<Line><Start>103 4</Start><End>203 4</End></Line>")));
    EXPECT_THAT(Told(file), ElementsAre(L"4: 第 2 个平面单元与前一单元不相接,相距 5.000 m"));
}

TEST(RoadFile, GivesProfilesWithEveryKindOfCurve)
{
    const Alignment road = Only(AlignmentText(
        "", "<Profile><ProfAlign name=\"设计线\"><PVI>0 100</PVI><ParaCurve length=\"100\">500 110"
            "</ParaCurve><CircCurve length=\"80\" radius=\"-2000\">1000 100</CircCurve>"
            "<UnsymParaCurve lengthIn=\"40\" lengthOut=\"60\">1500 110</UnsymParaCurve>"
            "<PVI>2000 100</PVI></ProfAlign></Profile>"));
    EXPECT_EQ(road.profile, L"设计线");
    ASSERT_EQ(road.vertical.size(), 5U);
    EXPECT_NEAR(road.vertical[1].radius, 100 / 0.04, 1e-6);
    EXPECT_NEAR(road.vertical[2].radius, 2000, 1e-6);
    EXPECT_NEAR(road.vertical[2].length, 80, 1e-6);
    // Two parabolas of 40 and 60 m that change by 4 % together; the shorter is the sharper.
    EXPECT_NEAR(road.vertical[3].radius, 40 * 100 / (0.04 * 60), 1e-6);
    EXPECT_NEAR(road.vertical[3].length, 100, 1e-6);
    EXPECT_EQ(road.vertical[4].length, 0);
    ASSERT_EQ(road.Grades().size(), 4U);
    EXPECT_NEAR(road.Grades()[1].gradient, -2, 1e-9);
    EXPECT_NEAR(road.length, 2000, 1e-9);
}

TEST(RoadFile, CompletesACircularVerticalCurve)
{
    const Alignment road = Only(AlignmentText(
        "", "<Profile><ProfAlign><PVI>0 0</PVI><CircCurve radius=\"3000\">500 10</CircCurve>"
            "<CircCurve length=\"60\">1000 0</CircCurve><PVI>1500 10</PVI></ProfAlign></Profile>"));
    ASSERT_EQ(road.vertical.size(), 4U);
    const double turn = 2 * std::atan(0.02);
    EXPECT_NEAR(road.vertical[1].length, 3000 * turn, 1e-9);
    EXPECT_NEAR(road.vertical[2].radius, 60 / turn, 1e-9);
}

TEST(RoadFile, LeavesOutPointsOnAGradeAndTellsDisorder)
{
    const RoadFile file = ReadText(LandXml(AlignmentText(
        "", "<Profile><ProfAlign><PVI>0 0</PVI>\n<PVI>1000 0</PVI>\n<PVI>500 5</PVI><PVI>250 2.5"
            "</PVI>\n<PVI>250 2.5</PVI>\n<PVI>7</PVI></ProfAlign></Profile>")));
    EXPECT_THAT(Told(file), ElementsAre(L"7: 第 6 个变坡点没有桩号和高程",
                                        L"3: 变坡点不按桩号排列,已按桩号排列",
                                        L"6: 第 5 个变坡点与前一变坡点在同一处,不予采用"));
    ASSERT_EQ(file.alignments.size(), 1U);
    ASSERT_EQ(file.alignments[0].vertical.size(), 3U);
    EXPECT_EQ(file.alignments[0].vertical[1].at, 500);
}

TEST(RoadFile, TakesTheFirstOfSeveralProfilesAndSaysSo)
{
    const RoadFile file = ReadText(LandXml(AlignmentText(
        "", "<Profile><ProfSurf name=\"地面\"><PntList2D>0 0 9 9</PntList2D></ProfSurf>"
            "<ProfAlign name=\"甲\"><PVI>0 0</PVI><PVI>9 1</PVI></ProfAlign>"
            "<ProfAlign name=\"乙\"><PVI>0 0</PVI><PVI>9 2</PVI></ProfAlign></Profile>")));
    EXPECT_THAT(Told(file), ElementsAre(L"3: 路线“A”有 2 个设计纵断面,采用第一个“甲”"));
    EXPECT_EQ(file.alignments[0].profile, L"甲");
}

TEST(RoadFile, GivesStationsThatBeginBelowNoughtAndAreCountedAnew)
{
    const Alignment road =
        Only(AlignmentText("<Line length=\"1000\"/>",
                           "<StaEquation staInternal=\"400\" staBack=\"400\" staAhead=\"500\"/>"
                           "<StaEquation staInternal=\"600\" staBack=\"700\" staAhead=\"2000\" "
                           "staIncrement=\"decreasing\"/>",
                           "name=\"A\" staStart=\"-100\""));
    EXPECT_EQ(road.stations.Text(0), L"-K0+100.000");
    EXPECT_EQ(road.stations.Text(499), L"K0+399.000");
    EXPECT_EQ(road.stations.Text(500), L"K0+500.000");
    EXPECT_EQ(road.stations.Text(700), L"K2+000.000");
    EXPECT_EQ(road.stations.Text(800), L"K1+900.000");
}

TEST(RoadFile, GivesSpeedsOfTheRoadwaysThatMeanTheAlignment)
{
    const Alignment road = Only(
        "<Roadways><Roadway alignmentRefs=\"A\"><Speeds><DesignSpeed speed=\"60\" staEnd=\"400\"/>"
        "<DesignSpeed speed=\"80\" staStart=\"400\"/></Speeds></Roadway><Roadway "
        "alignmentRefs=\"B\"><Speeds><DesignSpeed speed=\"20\"/></Speeds></Roadway></Roadways>" +
        AlignmentText("<Line length=\"1000\"/>"));
    ASSERT_EQ(road.speeds.size(), 2U);
    EXPECT_EQ(road.speeds[0].speed, 60);
    EXPECT_EQ(road.speeds[0].to, 400);
    EXPECT_EQ(road.speeds[1].from, 400);
    EXPECT_EQ(road.speeds[1].to, 1000);
}

TEST(RoadFile, FindsItsSpeedsByANameWithBlanksOrInAList)
{
    for (const char* const refs : {"A 线 1", "B A线 C"}) {
        const bool blanks = std::string(refs) == "A 线 1";
        const Alignment road =
            Only(AlignmentText("<Line length=\"10\"/>", "",
                               blanks ? "name=\"A 线 1\"" : "name=\"A线\"") +
                 "<Roadways><Roadway alignmentRefs=\"" + refs +
                 "\"><Speeds><DesignSpeed speed=\"60\"/></Speeds></Roadway></Roadways>");
        EXPECT_EQ(road.speeds.size(), 1U) << refs;
    }
}

TEST(RoadFile, ConvertsUnits)
{
    const auto feet = [](const std::string& units) {
        return Only("<Units><Imperial " + units + "/></Units>" +
                    AlignmentText("<Curve rot=\"cw\" radius=\"1000\" delta=\"45.3000\"/>") +
                    "<Roadways><Roadway><Speeds><DesignSpeed speed=\"50\"/></Speeds></Roadway>"
                    "</Roadways>");
    };
    Alignment road = feet("linearUnit=\"foot\" angularUnit=\"decimal dd.mm.ss\"");
    EXPECT_NEAR(road.plan[0].radiusStart, 304.8, 1e-9);
    EXPECT_NEAR(road.plan[0].length, 304.8 * 45.5 * pi / 180, 1e-6);
    EXPECT_EQ(road.speeds[0].speed, 80);
    road = feet("linearUnit=\"USSurveyFoot\" angularUnit=\"grads\" velocityUnit=\"feetPerSecond\"");
    EXPECT_NEAR(road.plan[0].radiusStart, 1200000.0 / 3937, 1e-9);
    EXPECT_NEAR(road.plan[0].length, road.plan[0].radiusStart * 45.3 * pi / 200, 1e-6);
    EXPECT_EQ(road.speeds[0].speed, 55);
    road = feet("linearUnit=\"foot\" angularUnit=\"radians\" speedUnit=\"kilometersPerHour\"");
    EXPECT_NEAR(road.plan[0].length, 304.8 * 45.3, 1e-6);
    EXPECT_EQ(road.speeds[0].speed, 50);
}

TEST(RoadFile, RefusesUnitsThatItDoesNotKnow)
{
    const RoadFile file = ReadText(LandXml("<Units><Metric linearUnit=\"丈\"/></Units>\n" +
                                           AlignmentText("<Line length=\"9\"/>")));
    EXPECT_THAT(Told(file), ElementsAre(L"3: 单位 linearUnit=“丈”无法识别"));
    EXPECT_TRUE(HasError(file.problems));
}

TEST(RoadFile, GivesSuperelevationAndLanes)
{
    const Alignment road = Only(
        AlignmentText("<Line length=\"1000\"/>",
                      "<Superelevation staStart=\"100\" staEnd=\"500\">"
                      "<BeginRunoutSta>100</BeginRunoutSta><BeginRunoffSta>120</BeginRunoffSta>"
                      "<FullSuperSta>200</FullSuperSta><FullSuperelev>-4</FullSuperelev>"
                      "<RunoffSta>400</RunoffSta><StartofRunoutSta>480</StartofRunoutSta>"
                      "<EndofRunoutSta>500</EndofRunoutSta></Superelevation>"
                      "<Superelevation staStart=\"700\" staEnd=\"710\"/>") +
        "<Roadways><Roadway alignmentRefs=\"A\"><Lanes><ThruLane width=\"3.5\" side=\"right\"/>"
        "<ThruLane width=\"3.75\" side=\"both\"/><ThruLane width=\"3\"/></Lanes></Roadway>"
        "</Roadways>");
    ASSERT_EQ(road.superelevations.size(), 1U);
    const CrossSlopes& slopes = road.superelevations[0];
    ASSERT_EQ(slopes.size(), 4U);
    EXPECT_EQ(slopes[0].at, 120);
    EXPECT_EQ(slopes[0].slope, 0);
    EXPECT_EQ(slopes[1].slope, 4);
    EXPECT_EQ(slopes[2].at, 400);
    EXPECT_EQ(slopes[3].slope, 0);
    double left = 0, right = 0;
    for (const Lane& lane : road.lanes)
        (lane.side == Turn::Left ? left : right) += lane.width;
    EXPECT_NEAR(left, 5.25, 1e-9);
    EXPECT_NEAR(right, 8.75, 1e-9);
}

TEST(RoadFile, GoesByNamesWhateverTheNamespace)
{
    const RoadFile file = ReadText(
        "<l:LandXML xmlns:l=\"http://example.org/profile\"><l:Alignments><l:Alignment name=\"&amp;"
        "&#x8def;\"><l:CoordGeom><l:Line length=\"9\"/></l:CoordGeom></l:Alignment>"
        "</l:Alignments></l:LandXML>");
    EXPECT_THAT(Told(file), IsEmpty());
    ASSERT_EQ(file.alignments.size(), 1U);
    EXPECT_EQ(file.alignments[0].name, L"&路");
}

TEST(RoadFile, ReadsUtf16AndGb18030)
{
    const std::string text = "<LandXML><Alignments><Alignment name=\"N\"><CoordGeom>"
                             "<Line length=\"9\"/></CoordGeom></Alignment></Alignments></LandXML>";
    std::string utf16 = "\xFF\xFE";
    for (const char c : "<?xml version=\"1.0\" encoding=\"UTF-16\"?>" + text) {
        utf16 += c == 'N' ? '\xEF' : c; // 路 is U+8DEF
        utf16 += c == 'N' ? '\x8D' : '\0';
    }
    std::string gb18030 = "<?xml version=\"1.0\" encoding=\"GB18030\"?>" + text;
    gb18030.replace(gb18030.find("N\""), 1, "\xC2\xB7");
    for (const std::string& bytes : {utf16, gb18030}) {
        const RoadFile file = ReadText(bytes);
        EXPECT_THAT(Told(file), IsEmpty());
        ASSERT_EQ(file.alignments.size(), 1U);
        EXPECT_EQ(file.alignments[0].name, L"路");
    }
}

TEST(RoadFile, PassesOverTerrainAndTellsAlignmentsWithoutGeometry)
{
    const RoadFile file = ReadText(LandXml(
        "<Surfaces><Surface><Definition><Pnts><P id=\"1\">1 2 3</P></Pnts><Faces><F>1 2 3</F>"
        "</Faces></Definition></Surface></Surfaces>\n<Alignments><Alignment name=\"空\"/>"
        "<Alignment name=\"B\"><CoordGeom><Line length=\"9\"/></CoordGeom></Alignment>"
        "</Alignments>"));
    EXPECT_THAT(Told(file), ElementsAre(L"4: 路线“空”没有线形"));
    EXPECT_FALSE(HasError(file.problems));
    ASSERT_EQ(file.alignments.size(), 1U);
    EXPECT_EQ(file.alignments[0].name, L"B");
}

TEST(RoadFile, WithoutAnAlignmentIsAnError)
{
    const RoadFile file = ReadText(LandXml("<Units/>"));
    EXPECT_THAT(Told(file), ElementsAre(L"0: 文件中没有路线"));
    EXPECT_TRUE(HasError(file.problems));
    EXPECT_THAT(Told(ReadText("<html/>")), ElementsAre(L"0: 不是 LandXML 文件"));
}

TEST(RoadFile, TakesNoDocumentTypeAndNoEntity)
{
    const RoadFile file = ReadText("<!DOCTYPE LandXML [<!ENTITY a SYSTEM \"/etc/passwd\">]>\n"
                                   "<LandXML>&a;</LandXML>");
    EXPECT_THAT(Told(file), ElementsAre(L"1: 文件含有文档类型声明(DTD),不予读取"));
    EXPECT_THAT(Told(ReadText("<LandXML>\n&b;</LandXML>")),
                ElementsAre(testing::StartsWith(L"2: XML 有误: ")));
}

TEST(RoadFile, GoesNoDeeperThanTwoHundredAndFiftySixElements)
{
    std::string deep = "<LandXML>";
    for (int i = 0; i < 300; ++i)
        deep += "<a>";
    const auto told = Told(ReadText(deep));
    ASSERT_EQ(told.size(), 1U);
    EXPECT_THAT(told[0], testing::StartsWith(L"1: XML 有误: "));
}

// What is left of a road that an export did not finish: where it ends is told, whatever was read.
TEST(RoadFile, ThatIsCutOffAnywhereTellsWhere)
{
    for (const char* const name : {"合格.xml", "违规.xml"}) {
        const std::string whole = Example(name);
        const size_t end = whole.rfind('>');
        const TemporaryFolder folder;
        const CString path = folder.Path(L"road.xml");
        std::ofstream growing(folder.Native("road.xml"), std::ios::binary);
        for (size_t length = 0; length <= end; ++length) {
            const RoadFile file = ReadRoadFile(path);
            ASSERT_TRUE(HasError(file.problems)) << name << ": " << length;
            const auto error =
                std::find_if(file.problems.begin(), file.problems.end(),
                             [](const Problem& one) { return one.severity == Severity::Error; });
            const auto lines =
                std::count(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length),
                           '\n') +
                1;
            EXPECT_EQ(error->file, path);
            EXPECT_THAT(error->text, testing::StartsWith(L"XML 有误: ")) << length;
            EXPECT_GE(error->line, 1) << name << ": " << length;
            EXPECT_LE(error->line, lines) << name << ": " << length;
            growing.put(whole[length]).flush();
        }
        EXPECT_THAT(Told(ReadRoadFile(path)), IsEmpty());
    }
}

TEST(RoadFile, ThatCannotBeOpenedTellsWhy)
{
    const TemporaryFolder folder;
    RoadFile file = ReadRoadFile(folder.Path(L"none.xml"));
    ASSERT_EQ(file.problems.size(), 1U);
    EXPECT_EQ(file.problems[0].text, L"无法打开: 不存在");
    EXPECT_EQ(ToUtf8(file.problems[0].file), Utf8(folder.Native("none.xml")));
    file = ReadRoadFile(folder.Path());
    ASSERT_EQ(file.problems.size(), 1U);
    EXPECT_EQ(file.problems[0].text, L"无法打开: 这是文件夹");
    file = ReadRoadFile(L"/dev/zero");
    ASSERT_EQ(file.problems.size(), 1U);
    EXPECT_EQ(file.problems[0].text, L"无法打开: 不是普通文件");
}

TEST(RoadFile, EndsEarlyWhenItIsCancelled)
{
    const TemporaryFolder folder;
    const CString path = folder.Write("road.xml", LandXml(AlignmentText("<Line length=\"9\"/>")));
    const std::atomic<bool> cancel = true;
    const RoadFile file = ReadRoadFile(path, &cancel);
    EXPECT_THAT(Told(file), ElementsAre(L"0: 已取消"));
}

} // namespace roadcheck
