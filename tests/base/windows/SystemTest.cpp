// What Windows tells of the user, the program and the time.
#include <set>

#include <gtest/gtest.h>

#include "base/LocalTime.h"
#include "base/Process.h"
#include "base/Text.h"
#include "base/UserName.h"
#include "base/windows/Windows.h"

using namespace designspec;

TEST(System, NamesUserHostAndProgram)
{
    EXPECT_FALSE(UserName().empty());
    EXPECT_NE(UserName(), L"?");
    EXPECT_FALSE(Process::HostName().empty());
    EXPECT_EQ(Process::ProgramName(), L"base_test");
    EXPECT_EQ(Process::ProgramFolder().substr(1, 2), L":\\");
    EXPECT_EQ(Process::CurrentFolder().substr(1, 2), L":\\");
}

TEST(System, KnowsWhichProcessesRun)
{
    EXPECT_TRUE(Process::IsRunning(Process::Id()));
    EXPECT_FALSE(Process::IsRunning(0x7FFFFFFC));
}

TEST(System, GivesIdentitiesThatAreRandom)
{
    std::set<std::array<std::uint8_t, 16>> seen;
    for (int i = 0; i < 1000; ++i) {
        const auto identity = Process::NewIdentity();
        EXPECT_EQ(identity[6] >> 4, 4);
        EXPECT_EQ(identity[8] >> 6, 2);
        seen.insert(identity);
    }
    EXPECT_EQ(seen.size(), 1000U);
}

TEST(System, TurnsTimesIntoThoseOfItsZoneAndBack)
{
    for (const wchar_t* text : {L"2026-01-15 12:25:10", L"2026-07-15 23:59:59",
                                L"1999-12-31 00:00:00", L"2400-02-29 06:30:00"}) {
        const auto moment = ParseLocalTime(text);
        ASSERT_TRUE(moment);
        EXPECT_EQ(ToUtf8(LocalTime(*moment)), ToUtf8(text));
    }
    TIME_ZONE_INFORMATION zone;
    if (GetTimeZoneInformation(&zone) != TIME_ZONE_ID_UNKNOWN) return; // has summer time
    EXPECT_EQ(*ParseLocalTime(L"2026-01-15 12:00:00") - *ParseCompactUtc(L"20260115T120000Z"),
              std::chrono::minutes(zone.Bias));
}
