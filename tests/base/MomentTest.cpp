#include "base/Moment.h"

#include <gtest/gtest.h>

using namespace designspec;
using namespace std::chrono;

namespace {

constexpr Moment kMoment = sys_days(2026y / November / 22) + 4h + 25min + 10s;

} // namespace

TEST(Moment, IsWrittenInUtcAndReadAsItIsWritten)
{
    EXPECT_EQ(CompactUtc(kMoment), L"20261122T042510Z");
    EXPECT_EQ(IsoUtc(kMoment), L"2026-11-22T04:25:10Z");
    EXPECT_EQ(ParseCompactUtc(L"20261122T042510Z"), kMoment);
    EXPECT_EQ(ParseCompactUtc(L"19700101T000000Z"), Moment());
}

TEST(Moment, MayBeFarAway)
{
    for (const wchar_t* text : {L"00010101T000000Z", L"99991231T235959Z"})
        EXPECT_EQ(CompactUtc(*ParseCompactUtc(text)), text);
    EXPECT_EQ(LocalTime(*ParseLocalTime(L"2999-01-01 12:00:00")), L"2999-01-01 12:00:00");
}

TEST(Moment, IsNothingElse)
{
    for (const wchar_t* text : {L"", L"20261122T042510", L"20261122T042510Z ", L"20261322T042510Z",
                                L"20260230T042510Z", L"20261122T242510Z", L"20261122T046010Z",
                                L"20261122T042560Z", L"2026112２T042510Z", L"2026-11-22T04:25:10Z"})
        EXPECT_FALSE(ParseCompactUtc(text)) << text;
    for (const wchar_t* text : {L"", L"2026", L"2026-11-31", L"2026-11-22 24:00",
                                L"2026-11-22 12:25:10Z", L"12:25", L"20261122T042510Z"})
        EXPECT_FALSE(ParseLocalTime(text)) << text;
}

TEST(Moment, GoesBackByCalendarMonths)
{
    EXPECT_EQ(MonthsBefore(kMoment, 12), sys_days(2025y / November / 22) + 4h + 25min + 10s);
    EXPECT_EQ(MonthsBefore(sys_days(2028y / February / 29), 12), sys_days(2027y / February / 28));
    EXPECT_EQ(MonthsBefore(sys_days(2027y / March / 31) + 1h, 1),
              sys_days(2027y / February / 28) + 1h);
}

TEST(Moment, OfNowIsThatOfTheClock)
{
    const auto before = floor<seconds>(system_clock::now());
    const Moment now = Now();
    EXPECT_LE(before, now);
    EXPECT_LE(now, system_clock::now());
}
