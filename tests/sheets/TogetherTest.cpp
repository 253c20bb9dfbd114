#include "sheets/Together.h"

#include <gtest/gtest.h>

using namespace designspec;

namespace {

std::vector<TogetherTable> Page(const CDesignSpecification& a, const CDesignSpecification& b,
                                std::size_t page)
{
    const auto left = LayOut(a);
    const auto right = LayOut(b);
    return PutTogether({&left[page], &right[page]});
}

TEST(Together, PutsTheSpeedsOfBothIntoOrder)
{
    CDesignSpecification a;
    CDesignSpecification b;
    a.LonGradMinLen.MinLens = {{100, 1}, {60, 2}};
    b.LonGradMinLen.MinLens = {{80, 3}, {60, 4}};
    const auto tables = Page(a, b, 8);
    ASSERT_EQ(tables.size(), 1U);
    EXPECT_EQ(tables[0].columns, (std::vector<Value>{100, 80, 60}));
    ASSERT_EQ(tables[0].lines.size(), 1U);
    const auto& parts = tables[0].lines[0].parts;
    ASSERT_EQ(parts.size(), 2U);
    using Cells = std::vector<std::optional<Value>>;
    EXPECT_EQ(parts[0].cells, (Cells{1, std::nullopt, 2}));
    EXPECT_EQ(parts[1].cells, (Cells{std::nullopt, 3, 4}));
}

TEST(Together, FindsWhatDiffers)
{
    CDesignSpecification a;
    CDesignSpecification b;
    b.LonGradMinLen.MinLens[0].value = 1;
    const auto line = Page(a, b, 8)[0].lines[0];
    EXPECT_TRUE(TogetherTable::Differs(line, 0, 2));
    EXPECT_FALSE(TogetherTable::Differs(line, 1, 2));
    EXPECT_TRUE(TogetherTable::Differs(line, 1, 3)) << "the third one has no such line";
}

TEST(Together, KeepsTablesOfOneOnly)
{
    CDesignSpecification a;
    CDesignSpecification b;
    b.SuperElevation.definitions = {{8, {{60, {{100, 200, 8}}}}}};
    const auto tables = Page(a, b, 11);
    ASSERT_EQ(tables.size(), 4U);
    EXPECT_EQ(tables[0].heading, L"最大超高 8%");
    EXPECT_EQ(tables[0].lines[0].parts[0].of, 1U);
}

} // namespace
