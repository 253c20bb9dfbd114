#include "roads/SpeedStretches.h"

#include <algorithm>
#include <random>

#include <gtest/gtest.h>

namespace roadcheck {

namespace {

Alignment Road(std::vector<DesignSpeed> speeds)
{
    Alignment road;
    road.length = 1000;
    road.speeds = std::move(speeds);
    return road;
}

} // namespace

TEST(SpeedStretches, AreTheFilesAndThoseOfTheOptions)
{
    const SpeedStretches file(Road({{0, 500, 60}, {500, 1000, 80}}), {});
    EXPECT_EQ(file.Highest(0, 500), 60);
    EXPECT_EQ(file.Highest(0, 501), 80);
    EXPECT_EQ(file.Highest(500, 600), 80);
    EXPECT_EQ(file.Highest(100, 100), 60);

    const SpeedStretches whole(Road({{0, 500, 60}}), {{{}, 40}});
    EXPECT_EQ(whole.Highest(0, 1000), 40);

    // A stretch overrides the file there alone, and a later choice an earlier one.
    const SpeedStretches some(Road({{0, 1000, 60}}), {{SpeedChoice::Stretch{200, 400}, 80},
                                                      {SpeedChoice::Stretch{300, 400}, 30}});
    EXPECT_EQ(some.Highest(0, 200), 60);
    EXPECT_EQ(some.Highest(200, 300), 80);
    EXPECT_EQ(some.Highest(300, 400), 30);
    EXPECT_EQ(some.Highest(250, 450), 80);
    ASSERT_EQ(some.Stretches().size(), 4U);
}

TEST(SpeedStretches, TakeTheHighestOfSeveralInTheFile)
{
    const SpeedStretches speeds(Road({{0, 1000, 60}, {300, 600, 80}, {400, 500, 20}}), {});
    EXPECT_EQ(speeds.Highest(410, 420), 80);
    EXPECT_EQ(speeds.Highest(700, 800), 60);
}

TEST(SpeedStretches, MayLeavePlacesWithoutASpeed)
{
    const SpeedStretches speeds(Road({{0, 100, 60}}), {});
    EXPECT_EQ(speeds.Highest(200, 300), std::nullopt);
    EXPECT_EQ(speeds.Highest(50, 300), 60);
    EXPECT_FALSE(speeds.IsEmpty());
    EXPECT_TRUE(SpeedStretches(Road({}), {}).IsEmpty());
}

TEST(SpeedStretches, TakeStationsBeyondTheRoadForItsEnds)
{
    const SpeedStretches speeds(Road({}), {{SpeedChoice::Stretch{-500, 5000}, 60}});
    EXPECT_EQ(speeds.Highest(0, 1000), 60);
    EXPECT_TRUE(SpeedStretches(Road({}), {{SpeedChoice::Stretch{2000, 3000}, 60}}).IsEmpty());
}

// The same as asking every place of everything.
TEST(SpeedStretches, AreWhatHoldsAtEachPlace)
{
    std::mt19937 random(1);
    const auto number = [&](int most) {
        return std::uniform_int_distribution<int>(0, most)(random);
    };
    for (int round = 0; round < 200; ++round) {
        std::vector<DesignSpeed> speeds;
        for (int i = number(6); i > 0; --i) {
            const double from = number(1100) - 50.0;
            speeds.push_back({from, from + number(400) - 20.0, 20 + 10 * number(8)});
        }
        std::vector<SpeedChoice> choices;
        for (int i = number(4); i > 0; --i) {
            const double from = number(900);
            choices.push_back(
                {SpeedChoice::Stretch{from, from + number(300)}, 20 + 10 * number(8)});
        }
        const SpeedStretches stretches(Road(speeds), choices);
        for (double at = 0.5; at < 1000; ++at) {
            int expected = 0;
            for (const DesignSpeed& one : speeds)
                if (one.from <= at && at <= one.to) expected = std::max(expected, one.speed);
            for (const SpeedChoice& one : choices)
                if (one.stretch->from <= at && at <= one.stretch->to) expected = one.speed;
            ASSERT_EQ(stretches.Highest(at, at).value_or(0), expected) << round << ": " << at;
        }
    }
}

} // namespace roadcheck
