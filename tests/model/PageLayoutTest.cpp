#include "model/PageLayout.h"

#include <gtest/gtest.h>

#include "model/Lineup.h"

using namespace designspec;

namespace {

CStringArray Captions(const TableLayout& table)
{
    CStringArray captions;
    for (const TableLayout::Line& line : table.lines)
        captions.push_back(line.caption);
    return captions;
}

TEST(PageLayout, HasThePagesInOrder)
{
    const auto pages = LayOut({});
    ASSERT_EQ(pages.size(), 13U);
    EXPECT_EQ(pages[0].criterion->label, CString(L"直线长度"));
    EXPECT_EQ(pages[0].limits.size(), 3U);
    EXPECT_EQ(pages[0].sources.size(), 3U);
    EXPECT_TRUE(pages[0].tables.empty());
    EXPECT_EQ(pages[1].limits[0].caption, L"圆曲线最大半径(m)");
    EXPECT_EQ(Captions(pages[1].tables[0]),
              (CStringArray{L"不设超高最小半径(m)", L"设超高推荐半径(m)", L"设超高最小半径(m)"}));
}

TEST(PageLayout, LeavesOutATableThatDoesNotCount)
{
    CDesignSpecification one;
    EXPECT_EQ(LayOut(one)[4].tables[0].lines.size(), 2U);
    one.TransitionCurveMinLen.NoTCBySuperelevation = 1;
    EXPECT_EQ(LayOut(one)[4].tables[0].lines.size(), 1U);
}

TEST(PageLayout, GivesASpeedThatStandsTwiceTwoColumns)
{
    CDesignSpecification one;
    one.CurveMinLen.HorizontalCurveMinLen = {{60, 1}, {60, 2}, {40, 3}};
    one.CurveMinLen.CircularCurveMinLen = {{80, 4}, {60, 5}};
    const TableLayout table = LayOut(one)[2].tables[0];
    EXPECT_EQ(table.columns, (std::vector<Value>{80, 60, 60, 40}));
    using Cells = std::vector<std::optional<Value>>;
    EXPECT_EQ(table.lines[0].cells, (Cells{std::nullopt, 1, 2, 3}));
    EXPECT_EQ(table.lines[1].cells, (Cells{4, 5, std::nullopt, std::nullopt}));
}

TEST(PageLayout, PutsSuperElevationsUnderTheirMaximum)
{
    CDesignSpecification one;
    one.SuperElevation.definitions = {
        {6, {{80, {{300, 400, 5}, {400, 500, 3}}}, {60, {{200, 300, 6}, {300, 400, 4}}}}}};
    const auto tables = LayOut(one)[11].tables;
    ASSERT_EQ(tables.size(), 1U);
    EXPECT_EQ(tables[0].heading, L"最大超高 6%");
    EXPECT_EQ(Captions(tables[0]),
              (CStringArray{L"超高 6% 时圆曲线半径范围(m)", L"超高 5% 时圆曲线半径范围(m)",
                            L"超高 4% 时圆曲线半径范围(m)", L"超高 3% 时圆曲线半径范围(m)"}));
    EXPECT_EQ(tables[0].lines[0].cells[0], std::nullopt);
    EXPECT_EQ(tables[0].lines[0].cells[1], Value(CString(L"200~300")));
    one.SuperElevation.definitions.RemoveAll();
    EXPECT_TRUE(LayOut(one)[11].tables[0].IsNone());
}

TEST(PageLayout, PutsRangesOfRadiiAboveTheCategories)
{
    CDesignSpecification one;
    one.CurveWidening.ranges = {{200, 250, {{L"甲", 0.4}, {L"丙", 0.5}}},
                                {150, 200, {{L"乙", 0.6}, {L"丙", 0.7}}}};
    const TableLayout table = LayOut(one)[12].tables[0];
    EXPECT_EQ(table.columns[0], Value(CString(L"200 < R ≤ 250")));
    // What the ranges share stands in their order; of the others either may come first.
    EXPECT_EQ(Captions(table), (CStringArray{L"乙(m)", L"甲(m)", L"丙(m)"}));
    using Cells = std::vector<std::optional<Value>>;
    EXPECT_EQ(table.lines[0].cells, (Cells{std::nullopt, 0.6}));
    EXPECT_EQ(table.lines[2].cells, (Cells{0.5, 0.7}));
}

TEST(PageLayout, FindsTheKeyInACaption)
{
    const Field& rows = *FindField(FindCriterion(L"LonGradMaxLen")->fields, L"rows");
    const Field& gradient = *FindField(rows.RowFields(), L"Grad");
    EXPECT_EQ(InForm(gradient, L"5.5"), L"坡度5.5% 最大坡长(m)");
    EXPECT_EQ(OutOfForm(gradient, L"坡度5.5% 最大坡长(m)"), L"5.5");
    EXPECT_EQ(OutOfForm(gradient, L"坡度5.5%"), std::nullopt);
    EXPECT_EQ(OutOfForm(gradient, L"坡度"), std::nullopt);
}

TEST(Lineup, HasEachSequenceInItsOrder)
{
    Lineup<int> line;
    const std::vector<std::vector<int>> sequences = {{6, 4, 2}, {5, 4, 3}, {1, 2}, {4, 4}, {}};
    for (const auto& one : sequences)
        line.Add(one, std::greater<>());
    for (const auto& one : sequences) {
        const auto places = line.Places(one);
        ASSERT_EQ(places.size(), one.size());
        for (std::size_t i = 0; i < one.size(); ++i) {
            EXPECT_EQ(line.Items()[places[i]], one[i]);
            EXPECT_TRUE(i == 0 || places[i - 1] < places[i]);
        }
    }
}

} // namespace
