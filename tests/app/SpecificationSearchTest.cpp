#include "app/SpecificationSearch.h"

#include <gtest/gtest.h>

using namespace designspec;

namespace {

class SpecificationSearchTest : public testing::Test {
protected:
    SpecificationSearchTest()
    {
        one.SetName(L"城市道路");
        one.CircularCurveRad.MaxRad = 12345;
    }
    std::optional<CString> Find(const CString& words)
    {
        return search.Find(one, L"城市道路\n2026-11-22 12:25\n一级公路", words);
    }

    CDesignSpecification one;
    SpecificationSearch search;
};

} // namespace

TEST_F(SpecificationSearchTest, WhatIsToldOfItNeedsNoPlace)
{
    EXPECT_EQ(Find(L"城市"), L"");
    EXPECT_EQ(Find(L"csdl"), L"");
    EXPECT_EQ(Find(L"一级 2026-11"), L"");
}

TEST_F(SpecificationSearchTest, ValuesAreFoundWithTheirPlace)
{
    const auto where = Find(L"12345");
    ASSERT_TRUE(where);
    EXPECT_EQ(*where, L"圆曲线半径 · 圆曲线最大半径(m): 12345 m");
    EXPECT_FALSE(Find(L"54321"));
}

TEST_F(SpecificationSearchTest, WordsMayStandInBoth)
{
    EXPECT_TRUE(Find(L"城市 12345"));
    EXPECT_TRUE(Find(L"  12345   城市 "));
    EXPECT_FALSE(Find(L"乡村 12345"));
}

TEST_F(SpecificationSearchTest, AChangeIsSeenAtOnce)
{
    EXPECT_TRUE(Find(L"12345"));
    one.CircularCurveRad.MaxRad = 54321;
    EXPECT_FALSE(Find(L"12345"));
    EXPECT_TRUE(Find(L"54321"));
}
