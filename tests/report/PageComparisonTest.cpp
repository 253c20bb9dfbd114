#include "report/PageComparison.h"

#include <gtest/gtest.h>

#include "base/Text.h"
#include "model/Differences.h"
#include "tests/support/RandomSpecification.h"

namespace {

const ComparedPage& PageOf(const std::vector<ComparedPage>& pages, const wchar_t* criterion)
{
    for (const ComparedPage& page : pages)
        if (page.criterion == FindCriterion(criterion)) return page;
    throw std::runtime_error("no such page");
}

int CountAll(const std::vector<ComparedPage>& pages)
{
    int count = 0;
    for (const ComparedPage& page : pages)
        count += page.CountDifferences();
    return count;
}

} // namespace

TEST(PageComparison, WithoutAnotherAllIsTheSame)
{
    const CDesignSpecification one;
    const auto pages = ComparePages(one, nullptr);
    EXPECT_EQ(pages.size(), Criteria().size());
    EXPECT_EQ(CountAll(pages), 0);
    EXPECT_EQ(CountAll(ComparePages(one, &one)), 0);
}

TEST(PageComparison, SpeedsOfBothStandInTheirOrder)
{
    CDesignSpecification one;
    CDesignSpecification other = one;
    one.LonGradMinLen.MinLens = {{80, 290}, {60, 170}};
    other.LonGradMinLen.MinLens = {{100, 400}, {80, 290}, {70, 200}, {60, 171}, {40, 9}};
    const auto pages = ComparePages(one, &other);
    const ComparedTable& table = PageOf(pages, L"LonGradMinLen").tables.at(0);
    EXPECT_EQ(table.columns, (CStringArray{L"100", L"80", L"70", L"60", L"40"}));
    const auto& cells = table.lines.at(0).cells;
    EXPECT_EQ(cells[0].value, std::nullopt);
    EXPECT_EQ(cells[0].other, L"400");
    EXPECT_TRUE(cells[1].IsSame());
    EXPECT_EQ(cells[3].value, L"170");
    EXPECT_EQ(cells[3].other, L"171");
    EXPECT_EQ(PageOf(pages, L"LonGradMinLen").CountDifferences(), 4);
    EXPECT_EQ(CountAll(pages), 4);
}

TEST(PageComparison, TablesAndLinesOfTheOtherAloneAreThere)
{
    CDesignSpecification one;
    const CDesignSpecification other = one;
    one.SuperElevation.definitions.RemoveAt(0);
    one.LonGradMaxLen.rows.RemoveAt(0);
    const auto pages = ComparePages(one, &other);
    const ComparedPage& superElevation = PageOf(pages, L"SuperElevation");
    EXPECT_EQ(superElevation.tables.size(), 3U);
    EXPECT_EQ(superElevation.CountDifferences(), 5);
    const ComparedTable& lengths = PageOf(pages, L"LonGradMaxLen").tables.at(0);
    EXPECT_EQ(lengths.lines.size(), 6U);
    EXPECT_EQ(lengths.lines.front().cells.front().other, L"600");
}

// Whatever a file can hold: no difference goes missing.
TEST(PageComparison, IsTheSameOnlyWhereNothingDiffers)
{
    for (unsigned seed = 1; seed <= 40; ++seed) {
        RandomSpecification random(seed);
        const CDesignSpecification one = random.Make();
        EXPECT_EQ(CountAll(ComparePages(one, &one)), 0) << seed;
        EXPECT_GT(CountAll(ComparePages(one, &static_cast<const CDesignSpecification&>(
                                                 RandomSpecification(seed + 100).Make()))),
                  0)
            << seed;
    }
}
