#include "base/LocalTime.h"

#include "base/windows/Windows.h"

namespace designspec {

namespace {

using namespace std::chrono;

SYSTEMTIME ToSystem(const std::tm& time)
{
    SYSTEMTIME system{};
    system.wYear = static_cast<WORD>(time.tm_year + 1900);
    system.wMonth = static_cast<WORD>(time.tm_mon + 1);
    system.wDay = static_cast<WORD>(time.tm_mday);
    system.wHour = static_cast<WORD>(time.tm_hour);
    system.wMinute = static_cast<WORD>(time.tm_min);
    system.wSecond = static_cast<WORD>(time.tm_sec);
    return system;
}

std::tm FromSystem(const SYSTEMTIME& system)
{
    std::tm time{};
    time.tm_year = system.wYear - 1900;
    time.tm_mon = system.wMonth - 1;
    time.tm_mday = system.wDay;
    time.tm_hour = system.wHour;
    time.tm_min = system.wMinute;
    time.tm_sec = system.wSecond;
    return time;
}

} // namespace

// Where the system knows no answer, such as before the year 1601, the time stays in UTC.
std::tm InLocalTime(Moment moment)
{
    const std::tm utc = InUtc(moment);
    const SYSTEMTIME system = ToSystem(utc);
    SYSTEMTIME local{};
    return SystemTimeToTzSpecificLocalTime(nullptr, &system, &local) ? FromSystem(local) : utc;
}

Moment FromLocalTime(std::tm local)
{
    const SYSTEMTIME system = ToSystem(local);
    SYSTEMTIME utc{};
    const std::tm time =
        TzSpecificLocalTimeToSystemTime(nullptr, &system, &utc) ? FromSystem(utc) : local;
    const auto day = year(time.tm_year + 1900) / (time.tm_mon + 1) / time.tm_mday;
    return sys_days(day) + hours(time.tm_hour) + minutes(time.tm_min) + seconds(time.tm_sec);
}

} // namespace designspec
