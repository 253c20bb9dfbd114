#include "base/Moment.h"

#include <algorithm>

#include "base/Format.h"
#include "base/LocalTime.h"

namespace designspec {

namespace {

using namespace std::chrono;

// What a pattern of "0" for each digit finds in the text; nothing when that is another one.
std::optional<std::wstring> Digits(std::wstring_view text, std::wstring_view pattern)
{
    if (text.size() != pattern.size()) return std::nullopt;
    std::wstring digits;
    for (size_t i = 0; i < text.size(); ++i) {
        const bool isDigit = text[i] >= L'0' && text[i] <= L'9';
        if (pattern[i] == L'0' ? !isDigit : text[i] != pattern[i]) return std::nullopt;
        if (isDigit) digits += text[i];
    }
    return digits;
}

// Year, month and day, then hour, minute and second as far as they are there.
struct Calendar {
    year_month_day day{};
    int hour = 0, minute = 0, second = 0;
};

std::optional<Calendar> ReadCalendar(const std::wstring& digits)
{
    const auto number = [&](size_t at, size_t size) {
        return at < digits.size() ? std::stoi(digits.substr(at, size)) : 0;
    };
    const Calendar read{year(number(0, 4)) / number(4, 2) / number(6, 2), number(8, 2),
                        number(10, 2), number(12, 2)};
    const bool isTime = read.hour < 24 && read.minute < 60 && read.second < 60;
    return read.day.ok() && isTime ? std::optional(read) : std::nullopt;
}

std::wstring Text(const std::tm& time, const wchar_t* format)
{
    return Format(format, time.tm_year + 1900, time.tm_mon + 1, time.tm_mday, time.tm_hour,
                  time.tm_min, time.tm_sec);
}

} // namespace

std::tm InUtc(Moment moment)
{
    const sys_days day = floor<days>(moment);
    const year_month_day date(day);
    const hh_mm_ss time(moment - day);
    std::tm broken{};
    broken.tm_year = static_cast<int>(date.year()) - 1900;
    broken.tm_mon = static_cast<int>(static_cast<unsigned>(date.month())) - 1;
    broken.tm_mday = static_cast<int>(static_cast<unsigned>(date.day()));
    broken.tm_hour = static_cast<int>(time.hours().count());
    broken.tm_min = static_cast<int>(time.minutes().count());
    broken.tm_sec = static_cast<int>(time.seconds().count());
    return broken;
}

Moment Now()
{
    return floor<seconds>(system_clock::now());
}

Moment MonthsBefore(Moment moment, int count)
{
    const sys_days day = floor<days>(moment);
    const year_month_day before = year_month_day(day) - months(count);
    const sys_days found = before.ok() ? sys_days(before) : before.year() / before.month() / last;
    return found + (moment - day);
}

std::wstring CompactUtc(Moment moment)
{
    return Text(InUtc(moment), L"%04d%02d%02dT%02d%02d%02dZ");
}

std::optional<Moment> ParseCompactUtc(std::wstring_view text)
{
    const auto digits = Digits(text, L"00000000T000000Z");
    const auto read = digits ? ReadCalendar(*digits) : std::nullopt;
    if (!read) return std::nullopt;
    return sys_days(read->day) + hours(read->hour) + minutes(read->minute) + seconds(read->second);
}

std::wstring IsoUtc(Moment moment)
{
    return Text(InUtc(moment), L"%04d-%02d-%02dT%02d:%02d:%02dZ");
}

std::wstring LocalTime(Moment moment)
{
    return Text(InLocalTime(moment), L"%04d-%02d-%02d %02d:%02d:%02d");
}

std::optional<Moment> ParseLocalTime(std::wstring_view text)
{
    for (const wchar_t* pattern : {L"0000-00-00 00:00:00", L"0000-00-00 00:00", L"0000-00-00"}) {
        const auto digits = Digits(text, pattern);
        const auto read = digits ? ReadCalendar(*digits) : std::nullopt;
        if (!read) continue;
        std::tm broken{};
        broken.tm_year = static_cast<int>(read->day.year()) - 1900;
        broken.tm_mon = static_cast<int>(static_cast<unsigned>(read->day.month())) - 1;
        broken.tm_mday = static_cast<int>(static_cast<unsigned>(read->day.day()));
        broken.tm_hour = read->hour;
        broken.tm_min = read->minute;
        broken.tm_sec = read->second;
        return FromLocalTime(broken);
    }
    return std::nullopt;
}

} // namespace designspec
