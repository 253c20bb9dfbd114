#include "model/Outliers.h"

#include <random>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace designspec;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

std::vector<std::size_t> InRow(const std::vector<double>& values)
{
    std::vector<RowValue> row;
    for (const double value : values)
        row.push_back({10.0 * static_cast<double>(row.size()), value});
    return Outliers(row);
}

TEST(Outliers, AreTheOneValueThatBreaksTheOrder)
{
    EXPECT_THAT(InRow({20, 40, 70, 1000, 150, 250}), ElementsAre(3));
    EXPECT_THAT(InRow({20, 40, 7, 100, 150, 250}), ElementsAre(2));
    EXPECT_THAT(InRow({9, 8, 7, 60, 5, 4}), ElementsAre(3));
    EXPECT_THAT(InRow({9, 8, 7, 0.6, 5, 4}), ElementsAre(3));
}

TEST(Outliers, MayStandAtEitherEnd)
{
    EXPECT_THAT(InRow({200, 40, 70, 100, 150, 250}), ElementsAre(0));
    EXPECT_THAT(InRow({20, 40, 70, 100, 150, 25}), ElementsAre(5));
}

TEST(Outliers, AreNoneWhereTheRowKeepsItsOrder)
{
    EXPECT_THAT(InRow({20, 40, 70, 100, 150, 2500}), IsEmpty());
    EXPECT_THAT(InRow({9, 8, 7, 7, 7, 1}), IsEmpty());
    EXPECT_THAT(InRow({2, 2, 2, 4, 4, 6}), IsEmpty());
}

TEST(Outliers, AreNoneWhereTheRowHasNoClearDirection)
{
    EXPECT_THAT(InRow({5, 5, 5, 5, 5, 5}), IsEmpty());
    EXPECT_THAT(InRow({5, 5, 5, 9, 5, 5}), IsEmpty()); // neither rises nor falls otherwise
    EXPECT_THAT(InRow({1, 5, 2, 6, 3, 7}), IsEmpty());
    EXPECT_THAT(InRow({1, 2, 3, 2, 1}), IsEmpty());
}

TEST(Outliers, AreNoneInARowThatIsTooShortToTell)
{
    EXPECT_THAT(InRow({}), IsEmpty());
    EXPECT_THAT(InRow({1}), IsEmpty());
    EXPECT_THAT(InRow({1, 0}), IsEmpty());
    EXPECT_THAT(InRow({1, 0, 2}), IsEmpty());
    EXPECT_THAT(InRow({1, 2, 0, 3}), ElementsAre(2));
}

// Either of two neighbours could go.
TEST(Outliers, OfTwoNeighboursIsTheOneThatIsFurtherOff)
{
    EXPECT_THAT(InRow({60, 40, 70, 100, 150, 250}), ElementsAre(0));
    EXPECT_THAT(InRow({10, 20, 55, 40, 50, 60}), ElementsAre(2));
    EXPECT_THAT(InRow({10, 20, 30, 25, 50, 60}), ElementsAre(3));
}

TEST(Outliers, MayBeAQuarterOfTheRow)
{
    EXPECT_THAT(InRow({1, 2, 30, 4, 5, 6, 0.7, 8}), ElementsAre(2, 6));
    EXPECT_THAT(InRow({1, 2, 30, 4, 5, 0.6, 7}), IsEmpty()); // two of seven
}

TEST(Outliers, CountTheLastOfSeveralValuesAtOnePlace)
{
    EXPECT_THAT(Outliers({{20, 1}, {30, 99}, {30, 2}, {40, 3}, {50, 4}}), IsEmpty());
    EXPECT_THAT(Outliers({{20, 1}, {30, 2}, {30, 99}, {40, 3}, {50, 4}}), ElementsAre(2));
}

TEST(Outliers, AreNotLookedForInVeryLongRows)
{
    std::vector<double> values;
    for (int i = 0; i < 200; ++i)
        values.push_back(i == 100 ? 1000 : i);
    EXPECT_THAT(InRow(values), ElementsAre(100));
    values.push_back(200);
    EXPECT_THAT(InRow(values), IsEmpty());
}

TEST(Outliers, AreWhatWasPutIntoARowInOrder)
{
    std::mt19937 random(1);
    const auto below = [&random](int limit) {
        return std::uniform_int_distribution<int>(0, limit - 1)(random);
    };
    for (int round = 0; round < 500; ++round) {
        const bool falls = below(2) == 1;
        std::vector<RowValue> row;
        double at = 10, value = 100;
        for (int i = 5 + below(8); i > 0; --i) {
            row.push_back({at, falls ? -value : value});
            at += 10 * (1 + below(2));
            value += 1 + below(30);
        }
        EXPECT_THAT(Outliers(row), IsEmpty());
        // Beyond both neighbours of its neighbours, only it can be the one.
        const auto place = static_cast<std::size_t>(below(static_cast<int>(row.size())));
        const bool upwards = place < row.size() / 2;
        row[place].value = (falls ? -1 : 1) * (upwards ? 10000.0 : 1.0);
        EXPECT_THAT(Outliers(row), ElementsAre(place)) << round;
        for (RowValue& one : row) // the unit does not matter, nor which way is up
            one.value *= -1000;
        EXPECT_THAT(Outliers(row), ElementsAre(place)) << round;
    }
}

} // namespace
