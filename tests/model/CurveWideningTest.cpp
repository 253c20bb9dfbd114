#include "model/CurveWidening.h"

#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "tests/support/Exchanged.h"

namespace {

constexpr double kUntouched = -12345;

struct Answer {
    int code;
    double widening;
    bool operator==(const Answer&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Answer& answer)
{
    return out << "code " << answer.code << ", widening " << answer.widening;
}

Answer Ask(const CDSCurveWidening& criterion, const wchar_t* carType, int radius)
{
    Answer answer{0, kUntouched};
    answer.code = criterion.QueryWidening(carType, radius, answer.widening);
    return answer;
}

constexpr Answer Refused(int code)
{
    return {code, kUntouched};
}

Answer Walk(const CDSCurveWidening& criterion, int radius)
{
    if (criterion.ranges.count == 0) return Refused(-4);
    int smallest = 1000000;
    int largest = 0;
    for (const auto& range : criterion.ranges) {
        if (range.min < smallest) smallest = range.min;
        if (range.max > largest) largest = range.max;
        const bool holds = criterion.IsGMinAndLEMaxMode != 0
                               ? range.min < radius && radius <= range.max
                               : range.min <= radius && radius < range.max;
        if (!holds) continue;
        return range.widenings.IsEmpty() ? Refused(-1) : Answer{0, range.widenings[0].widening};
    }
    if (largest == 0) return Refused(-4);
    if (radius >= largest) return Refused(-2);
    return smallest >= radius ? Refused(-3) : Refused(-4);
}

} // namespace

TEST(CurveWidening, ANewOneHoldsTheBuiltInRanges)
{
    const CDSCurveWidening criterion;
    const struct {
        int min, max;
        double small, ordinary, articulated;
    } expected[] = {
        {200, 250, 0.28, 0.4, 0.45}, {150, 200, 0.3, 0.45, 0.55}, {100, 150, 0.32, 0.6, 0.75},
        {60, 100, 0.35, 0.7, 0.95},  {50, 60, 0.39, 0.9, 1.25},   {40, 50, 0.4, 1.0, 1.5},
        {30, 40, 0.45, 1.3, 1.9},    {20, 30, 0.6, 1.8, 2.8},     {15, 20, 0.7, 2.4, 3.5},
    };
    ASSERT_EQ(criterion.ranges.count, 9);
    for (int i = 0; i < 9; ++i) {
        const auto& row = expected[i];
        EXPECT_EQ(criterion.ranges[i], (WideningRange{row.min,
                                                      row.max,
                                                      {{L"小型汽车", row.small},
                                                       {L"普通汽车", row.ordinary},
                                                       {L"铰接车", row.articulated}}}));
    }
    EXPECT_EQ(criterion.IsGMinAndLEMaxMode, 1);
    EXPECT_EQ(criterion.Criterion, L"");
    EXPECT_EQ(Loaded<CDSCurveWidening>(Stored(criterion)), criterion);
}

TEST(CurveWidening, StoresRangesAndVehiclesInOrder)
{
    CDSCurveWidening criterion;
    criterion.ranges = {{9, 3, {{L"a&b", 0.1}, {L"", -2}}}, {1, 2, {}}};
    criterion.IsGMinAndLEMaxMode = 0;
    EXPECT_EQ(Stored(criterion), R"(<Root>
  <Criterion></Criterion>
  <IsGMinAndLEMaxMode>0</IsGMinAndLEMaxMode>
  <Radiuses>
    <Radius min="9" max="3">
      <Item carType="a&amp;b" widening="0.1" />
      <Item carType="" widening="-2" />
    </Radius>
    <Radius min="1" max="2" />
  </Radiuses>
</Root>
)");
    EXPECT_EQ(Loaded<CDSCurveWidening>(Stored(criterion)), criterion);
}

TEST(CurveWidening, WhatIsMissingKeepsItsDefaultSaveTheRanges)
{
    const auto loaded = Loaded<CDSCurveWidening>("<Root><Criterion> a </Criterion></Root>");
    EXPECT_TRUE(loaded.ranges.IsEmpty());
    EXPECT_EQ(loaded.IsGMinAndLEMaxMode, 1);
    EXPECT_EQ(loaded.Criterion, L"a");
    const auto part =
        Loaded<CDSCurveWidening>("<Root><Radiuses><Radius max='5'><Item carType='x'/><Item/>"
                                 "</Radius></Radiuses></Root>");
    EXPECT_EQ(part.ranges, (GrowArray<WideningRange>{{0, 5, {{L"x", 0}, {L"", 0}}}}));
}

TEST(CurveWidening, ALoadedOneHasNoMoreRoomThanItsFileTakes)
{
    const auto loaded = Loaded<CDSCurveWidening>(Stored(CDSCurveWidening()));
    for (const WideningRange& range : loaded.ranges) {
        EXPECT_EQ(range.widenings.count, 3);
        EXPECT_EQ(range.widenings.capacity, 3);
        EXPECT_EQ(range.widenings.growBy, 8);
    }
}

TEST(CurveWideningQuery, ARangeHoldsItsUpperBoundByDefault)
{
    const CDSCurveWidening criterion;
    EXPECT_EQ(Ask(criterion, L"普通汽车", 200), (Answer{0, 0.45}));
    EXPECT_EQ(Ask(criterion, L"普通汽车", 250), (Answer{0, 0.4}));
    EXPECT_EQ(Ask(criterion, L"普通汽车", 251), Refused(-2));
    EXPECT_EQ(Ask(criterion, L"普通汽车", 15), Refused(-3));
    EXPECT_EQ(Ask(criterion, L"普通汽车", 14), Refused(-3));
    EXPECT_EQ(Ask(criterion, L"普通汽车", 16), (Answer{0, 2.4}));
}

TEST(CurveWideningQuery, OrItsLowerBound)
{
    CDSCurveWidening criterion;
    criterion.IsGMinAndLEMaxMode = 0;
    EXPECT_EQ(Ask(criterion, L"普通汽车", 200), (Answer{0, 0.4}));
    EXPECT_EQ(Ask(criterion, L"普通汽车", 250), Refused(-2));
    EXPECT_EQ(Ask(criterion, L"普通汽车", 15), (Answer{0, 2.4}));
    EXPECT_EQ(Ask(criterion, L"普通汽车", 14), Refused(-3));
}

TEST(CurveWideningQuery, VehiclesAreFoundIgnoringCase)
{
    CDSCurveWidening criterion;
    criterion.ranges = {{0, 100, {{L"Bus Ä", 1.5}, {L"BUS ä", 2.5}}}};
    EXPECT_EQ(Ask(criterion, L"bUS ä", 50), (Answer{0, 1.5}));
    EXPECT_EQ(Ask(criterion, L"Tram", 50), Refused(-1));
    EXPECT_EQ(Ask(criterion, L"", 50), Refused(-1));
    criterion.ranges[0].widenings.RemoveAll();
    EXPECT_EQ(Ask(criterion, L"Bus Ä", 50), Refused(-1));
}

TEST(CurveWideningQuery, TheFirstRangeCountsEvenWithoutTheVehicle)
{
    CDSCurveWidening criterion;
    criterion.ranges = {{0, 100, {{L"a", 1}}}, {0, 100, {{L"b", 2}}}};
    EXPECT_EQ(Ask(criterion, L"b", 50), Refused(-1));
}

TEST(CurveWideningQuery, WithoutARangeForTheRadius)
{
    CDSCurveWidening criterion;
    criterion.ranges = {{10, 20, {}}, {30, 40, {}}};
    EXPECT_EQ(Ask(criterion, L"a", 25), Refused(-4)); // a gap
    EXPECT_EQ(Ask(criterion, L"a", 10), Refused(-3));
    EXPECT_EQ(Ask(criterion, L"a", 41), Refused(-2));
    criterion.ranges = {{-20, 0, {}}};
    EXPECT_EQ(Ask(criterion, L"a", 5), Refused(-4)); // the largest max is 0
    criterion.ranges = {{2000000, 3000000, {}}};
    EXPECT_EQ(Ask(criterion, L"a", 1000001),
              Refused(-4)); // the smallest min counts up to 1,000,000
    EXPECT_EQ(Ask(criterion, L"a", 1000000), Refused(-3));
    criterion.ranges.RemoveAll();
    EXPECT_EQ(Ask(criterion, L"a", 5), Refused(-4));
}

TEST(CurveWideningQuery, IsWhatWalkingTheRangesGives)
{
    std::mt19937 engine(5);
    const auto number = [&] {
        constexpr int kEnds[] = {std::numeric_limits<int>::min(), std::numeric_limits<int>::max(),
                                 1000000, 0};
        return engine() % 12 == 0 ? kEnds[engine() % 4] : static_cast<int>(engine() % 60) - 10;
    };
    for (int round = 0; round < 20000; ++round) {
        CDSCurveWidening criterion;
        criterion.ranges.RemoveAll();
        criterion.IsGMinAndLEMaxMode = static_cast<int>(engine() % 3);
        for (auto left = engine() % 6; left > 0; --left) {
            auto& range = criterion.ranges.Add({number(), number(), {}});
            if (engine() % 4) range.widenings.Add({L"x", number() / 7.0});
        }
        const int radius = number();
        ASSERT_EQ(Ask(criterion, L"X", radius), Walk(criterion, radius)) << round;
    }
}
