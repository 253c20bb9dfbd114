#include "search/SpecificationIndex.h"

#include <gtest/gtest.h>

#include "tests/support/RandomSpecification.h"

using namespace designspec;

namespace {

using Kind = SearchHit::Kind;

// What a list of hits shows: page, place and text.
CStringArray Shown(const std::vector<SearchHit>& hits)
{
    CStringArray shown;
    for (const SearchHit& hit : hits) {
        CString line = hit.page->label;
        for (const CString& part : {hit.Place(), hit.text})
            if (!part.empty()) line += L" | " + part;
        shown.push_back(line);
    }
    return shown;
}

CStringArray Found(const CDesignSpecification& specification, const wchar_t* query)
{
    return Shown(SpecificationIndex(specification).Find(SearchWords(query)));
}

TEST(SpecificationIndex, FindsTitlesAndCaptionsInTheOrderOfThePages)
{
    EXPECT_EQ(Found({}, L"圆曲线最"),
              (CStringArray{L"圆曲线半径 | 圆曲线最大半径(m) | 10000 m", L"平曲线与圆曲线最小长度",
                            L"平曲线与圆曲线最小长度 | 圆曲线最小长度(m)"}));
    EXPECT_EQ(Found({}, L"zdpc").front(), L"纵坡最大坡长");
    EXPECT_EQ(Found({}, L"zdpc").back(), L"纵坡最大坡长 | 坡度8% 最大坡长(m)");
}

TEST(SpecificationIndex, FindsAValueWithRowAndSpeed)
{
    CDesignSpecification one;
    one.CircularCurveRad.SuperelevationMinRad = {{80, 251}, {60, 7777}};
    one.MaxSuperElev.GradualChangeRatio1 = {{60, 777}};
    EXPECT_EQ(Found(one, L"777"),
              (CStringArray{L"圆曲线半径 | 设超高最小半径(m) · 60 km/h | 7777 m",
                            L"超高规范 | 旋转轴在中线的超高渐变率(1/n) · 60 km/h | 1/777"}));
    const auto hit = SpecificationIndex(one).First(SearchWords(L"7777"));
    ASSERT_TRUE(hit);
    EXPECT_EQ(hit->kind, Kind::Cell);
    EXPECT_EQ(hit->row, L"设超高最小半径(m)");
    EXPECT_EQ(hit->column, L"60");
}

TEST(SpecificationIndex, FindsSourcesAndLimitsThatStandAlone)
{
    CDesignSpecification one;
    one.CircularCurveRad.MaxRad = 12345;
    one.CircularCurveRad.MaxRadCriterion = L"地方标准 DB 42－99";
    EXPECT_EQ(Found(one, L"12345"), (CStringArray{L"圆曲线半径 | 圆曲线最大半径(m) | 12345 m"}));
    EXPECT_EQ(Found(one, L"db 42-99"),
              (CStringArray{L"圆曲线半径 | 圆曲线最大半径的数据来源 | 地方标准 DB 42－99"}));
    const auto hit = SpecificationIndex(one).First(SearchWords(L"dfbz"));
    ASSERT_TRUE(hit);
    EXPECT_EQ(hit->kind, Kind::Source);
    EXPECT_EQ(CString(hit->field->key), L"MaxRadCriterion");
}

TEST(SpecificationIndex, FindsNoValueOfALimitThatIsOff)
{
    CDesignSpecification one;
    one.CircularCurveRad.MaxRad = 0;
    for (const SearchHit& hit : SpecificationIndex(one).Find(SearchWords(L"0")))
        EXPECT_NE(hit.row, L"圆曲线最大半径(m)");
}

TEST(SpecificationIndex, FindsWhatStandsUnderASpeed)
{
    CDesignSpecification one;
    one.CircularCurveRad.SuperelevationMinRad = {{80, 250}, {60, 150}};
    one.CircularCurveRad.SuperelevationRecommendRad = {{80, 400}, {60, 300}};
    one.CircularCurveRad.noSuperelevationMinRad = {{80, 1000}};
    EXPECT_EQ(Found(one, L"设超高 半径 60"),
              (CStringArray{L"圆曲线半径 | 设超高推荐半径(m) · 60 km/h | 300 m",
                            L"圆曲线半径 | 设超高最小半径(m) · 60 km/h | 150 m"}));
    EXPECT_EQ(Found(one, L"设超高最 150"),
              (CStringArray{L"圆曲线半径 | 设超高最小半径(m) · 60 km/h | 150 m"}));
    for (const SearchHit& hit : SpecificationIndex(one).Find(SearchWords(L"60")))
        EXPECT_TRUE(hit.kind != Kind::Cell || hit.text.find(L"60") != CString::npos)
            << "one word alone";
}

TEST(SpecificationIndex, FindsInTablesWithinTables)
{
    CDesignSpecification one;
    one.SuperElevation.definitions = {{6, {{80, {{300, 777, 5}}}}}, {4, {{60, {{777, 800, 3}}}}}};
    EXPECT_EQ(
        Found(one, L"777"),
        (CStringArray{L"超高 | 最大超高 6% · 超高 5% 时圆曲线半径范围(m) · 80 km/h | 300~777",
                      L"超高 | 最大超高 4% · 超高 3% 时圆曲线半径范围(m) · 60 km/h | 777~800"}));
    EXPECT_EQ(Found(one, L"最大超高4%"), (CStringArray{L"超高 | 最大超高 4%"}));
    one.CurveWidening.ranges = {{100, 999, {{L"大型客车", 0.35}}}};
    EXPECT_EQ(Found(one, L"0.35"), (CStringArray{L"加宽 | 大型客车(m) · 100 < R ≤ 999 | 0.35 m"}));
}

TEST(SpecificationIndex, TellsOfACaptionNothingThatStandsInCells)
{
    int captions = 0;
    for (const SearchHit& hit : SpecificationIndex(CDesignSpecification{}).Find(SearchWords(L"6")))
        if (hit.kind == Kind::Row) {
            ++captions;
            EXPECT_EQ(hit.column + hit.text, L"");
        }
    EXPECT_GT(captions, 0);
}

TEST(SpecificationIndex, FindsNothingForNoWordsAndWithoutAHit)
{
    const SpecificationIndex index(CDesignSpecification{});
    EXPECT_TRUE(index.Find({}).empty());
    EXPECT_TRUE(index.Find(SearchWords(L"没有这个")).empty());
    EXPECT_FALSE(index.First(SearchWords(L"没有这个")));
}

TEST(SpecificationIndex, StopsWhenThereAreEnough)
{
    const SpecificationIndex index(CDesignSpecification{});
    const auto all = Shown(index.Find(SearchWords(L"1")));
    ASSERT_GT(all.size(), 20U);
    const auto some = Shown(index.Find(SearchWords(L"1"), 20));
    EXPECT_EQ(some, CStringArray(all.begin(), all.begin() + 20));
    EXPECT_EQ(Shown({*index.First(SearchWords(L"1"))}), (CStringArray{all.front()}));
}

// Each value of whatever specification is found by its own text.
TEST(SpecificationIndex, FindsEveryValue)
{
    for (unsigned seed = 0; seed < 20; ++seed) {
        const CDesignSpecification made = RandomSpecification(seed).Make();
        const SpecificationIndex index(made);
        for (const PageLayout& page : LayOut(made))
            for (const TableLayout& table : page.tables)
                for (const TableLayout::Line& line : table.lines)
                    for (const auto& cell : line.cells) {
                        if (!cell || ValueText(*cell).front() == L'-') continue;
                        const auto hits = index.Find(SearchWords(ValueText(*cell)));
                        EXPECT_TRUE(std::any_of(hits.begin(), hits.end(),
                                                [&](const SearchHit& hit) {
                                                    return hit.page == page.criterion &&
                                                           hit.row == line.caption;
                                                }))
                            << seed;
                    }
    }
}

} // namespace
