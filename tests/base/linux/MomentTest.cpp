// Times by the clocks of a place, which a variable of the environment names here.
#include "base/Moment.h"

#include <cstdlib>
#include <ctime>

#include <gtest/gtest.h>

using namespace designspec;
using namespace std::chrono;

namespace {

constexpr Moment kMoment = sys_days(2026y / November / 22) + 4h + 25min + 10s;

// The clocks of a place, as long as a test runs.
class Place {
public:
    explicit Place(const char* zone)
    {
        setenv("TZ", zone, 1);
        tzset();
    }
    ~Place()
    {
        unsetenv("TZ");
        tzset();
    }
    Place(const Place&) = delete;
    Place& operator=(const Place&) = delete;
};

} // namespace

TEST(Moment, IsWrittenInLocalTime)
{
    const Place china("CST-8");
    EXPECT_EQ(LocalTime(kMoment), L"2026-11-22 12:25:10");
}

TEST(Moment, IsReadInLocalTime)
{
    const Place china("CST-8");
    EXPECT_EQ(ParseLocalTime(L"2026-11-22 12:25:10"), kMoment);
    EXPECT_EQ(ParseLocalTime(L"2026-11-22 12:25"), kMoment - 10s);
    EXPECT_EQ(ParseLocalTime(L"2026-11-22"), sys_days(2026y / November / 21) + 16h);
}
