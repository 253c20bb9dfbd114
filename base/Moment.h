// Moments as text: in UTC for files and programs, in local time for people.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace designspec {

using Moment = std::chrono::sys_seconds;

Moment Now();

// The same time of day so many calendar months before; the last day of a month that is too short.
Moment MonthsBefore(Moment moment, int months);

// 20261122T042510Z, as it can stand in the name of a file. Reading gives nothing for anything else.
std::wstring CompactUtc(Moment moment);
std::optional<Moment> ParseCompactUtc(std::wstring_view text);

// 2026-11-22T04:25:10Z.
std::wstring IsoUtc(Moment moment);

// 2026-11-22 12:25:10 where the clocks are eight hours ahead. Reading takes one without seconds,
// and a day alone, which is its beginning; nothing for anything else.
std::wstring LocalTime(Moment moment);
std::optional<Moment> ParseLocalTime(std::wstring_view text);

} // namespace designspec
