#include "model/RowUnion.h"

#include <gtest/gtest.h>

#include "model/Criteria.h"

using namespace designspec;

namespace {

using Rows = std::vector<std::size_t>;

class RowUnionTest : public testing::Test {
protected:
    RowUnion Of(const CDSLonGradMinLen& base, const CDSLonGradMinLen& mine,
                const CDSLonGradMinLen& theirs)
    {
        return {*FindField(CDSLonGradMinLen::Fields(), L"MinLens"), {&base, &mine, &theirs}};
    }
    static CDSLonGradMinLen Table(const SpeedToIntValues& values)
    {
        CDSLonGradMinLen made;
        made.MinLens = values;
        return made;
    }
    // The speeds in that sequence.
    static std::vector<int> Speeds(const RowUnion& rows, const Rows& sequence)
    {
        std::vector<int> speeds;
        for (const std::size_t row : sequence)
            speeds.push_back(std::get<std::int32_t>(rows[row].keys.front()));
        return speeds;
    }
};

} // namespace

TEST_F(RowUnionTest, HasEachRowOnce)
{
    const CDSLonGradMinLen base = Table({{80, 1}, {60, 2}});
    const CDSLonGradMinLen mine = Table({{60, 3}});
    const CDSLonGradMinLen theirs = Table({{80, 1}, {70, 4}});
    const RowUnion rows = Of(base, mine, theirs);
    EXPECT_EQ(rows.Sequence(kMine, kTheirs).size(), 3u);
    EXPECT_EQ(rows[1].of, (Objects{&base.MinLens[1], &mine.MinLens[0], nullptr}));
    EXPECT_EQ(rows[2].of, (Objects{nullptr, nullptr, &theirs.MinLens[1]}));
}

TEST_F(RowUnionTest, RowsOfOneKeyAreToldApartByTheirNumber)
{
    const CDSLonGradMinLen base = Table({});
    const CDSLonGradMinLen mine = Table({{80, 1}, {80, 2}, {60, 5}});
    const CDSLonGradMinLen theirs = Table({{80, 3}, {60, 5}, {80, 4}, {80, 6}});
    const RowUnion rows = Of(base, mine, theirs);
    EXPECT_EQ(rows[1].number, 1);
    EXPECT_EQ(rows[1].of, (Objects{nullptr, &mine.MinLens[1], &theirs.MinLens[2]}));
    EXPECT_EQ(Speeds(rows, rows.Order(kTheirs)), (std::vector{80, 60, 80, 80}));
}

TEST_F(RowUnionTest, ATableInOrderStaysInOrder)
{
    const CDSLonGradMinLen base = Table({{65, 1}, {10, 1}});
    const CDSLonGradMinLen mine = Table({{80, 1}, {75, 1}, {60, 1}, {50, 1}});
    const CDSLonGradMinLen theirs = Table({{90, 1}, {80, 1}, {70, 1}, {55, 1}, {20, 1}});
    const RowUnion rows = Of(base, mine, theirs);
    EXPECT_EQ(Speeds(rows, rows.Sequence(kMine, kTheirs)),
              (std::vector{90, 80, 75, 70, 65, 60, 55, 50, 20, 10}));
    EXPECT_FALSE(rows.IsMoved(kMine, kTheirs));
}

TEST_F(RowUnionTest, InAnotherOrderOneStandsBehindTheSameAsBefore)
{
    const CDSLonGradMinLen base = Table({});
    const CDSLonGradMinLen mine = Table({{20, 1}, {60, 1}, {80, 1}});
    const CDSLonGradMinLen theirs = Table({{80, 1}, {20, 1}, {70, 1}});
    const RowUnion rows = Of(base, mine, theirs);
    EXPECT_EQ(Speeds(rows, rows.Sequence(kMine, kTheirs)), (std::vector{20, 70, 60, 80}));
    EXPECT_EQ(Speeds(rows, rows.Sequence(kTheirs, kMine)), (std::vector{80, 20, 70, 60}));
    EXPECT_TRUE(rows.IsMoved(kMine, kTheirs));
}

TEST_F(RowUnionTest, NothingIsMovedWithoutTwoCommonRows)
{
    const CDSLonGradMinLen base = Table({});
    const CDSLonGradMinLen mine = Table({{20, 1}, {60, 1}});
    const CDSLonGradMinLen theirs = Table({{60, 1}, {80, 1}});
    const RowUnion rows = Of(base, mine, theirs);
    EXPECT_FALSE(rows.IsMoved(kMine, kTheirs));
    EXPECT_FALSE(rows.IsMoved(kMine, kBase));
}

TEST(RowUnion, ASideWithoutTheTableHasNoRows)
{
    const CDSLonGradMinLen mine;
    const RowUnion rows(*FindField(CDSLonGradMinLen::Fields(), L"MinLens"),
                        {nullptr, &mine, nullptr});
    EXPECT_EQ(rows.Sequence(kTheirs, kMine).size(), 6u);
    EXPECT_TRUE(rows.Order(kTheirs).empty());
}
