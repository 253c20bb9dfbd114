#include "roadcheck/StationRange.h"

#include <gtest/gtest.h>

namespace roadcheck {

namespace {

StationRange RangeOf(double length)
{
    StationRange range;
    range.SetLength(length);
    return range;
}

void ExpectShown(const StationRange& range, double from, double to)
{
    EXPECT_DOUBLE_EQ(range.From(), from);
    EXPECT_DOUBLE_EQ(range.To(), to);
}

} // namespace

TEST(StationRange, KeepsThePlaceItIsZoomedAbout)
{
    StationRange range = RangeOf(1000);
    range.Zoom(2, 200);
    ExpectShown(range, 100, 600);
    range.Zoom(0.5, 200);
    ExpectShown(range, 0, 1000);
}

TEST(StationRange, GoesNeitherBeyondTheRoadNorBelowAMetre)
{
    StationRange range = RangeOf(1000);
    range.Zoom(2, 0);
    range.Pan(-100);
    ExpectShown(range, 0, 500);
    range.MoveTo(900);
    ExpectShown(range, 500, 1000);
    range.Zoom(1e6, 700);
    EXPECT_DOUBLE_EQ(range.Length(), 1);
    range.Zoom(1e-9, 700);
    ExpectShown(range, 0, 1000);
}

TEST(StationRange, ShowsAShortRoadWhole)
{
    StationRange range = RangeOf(0.5);
    range.Zoom(4, 0.2);
    ExpectShown(range, 0, 0.5);
}

TEST(StationRange, MovesOnlyToWhatIsNotSeen)
{
    StationRange range = RangeOf(1000);
    range.Zoom(10, 0);
    range.Reveal(20, 80);
    ExpectShown(range, 0, 100);
    range.Reveal(440, 460);
    ExpectShown(range, 400, 500);
    range.Reveal(450, 950); // longer: with a tenth of it on each side
    ExpectShown(range, 400, 1000);
    range.Zoom(10, 1000);
    range.Reveal(0, 10);
    ExpectShown(range, 0, 60);
}

TEST(StationRange, StaysOnARoadOfTheSameLength)
{
    StationRange range = RangeOf(1000);
    range.Zoom(2, 0);
    range.SetLength(1000);
    ExpectShown(range, 0, 500);
    range.SetLength(1001);
    ExpectShown(range, 0, 1001);
}

} // namespace roadcheck
