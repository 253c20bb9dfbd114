#include "base/Number.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <type_traits>

namespace designspec {

namespace {

bool IsBlank(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

std::string_view WithoutBlanks(std::string_view text)
{
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

// from_chars knows no plus sign; "+-1" is no number.
std::string_view WithoutPlus(std::string_view text)
{
    if (text.size() > 1 && text[0] == '+' && text[1] != '-') text.remove_prefix(1);
    return text;
}

// The ASCII start of a wide text, with leading blanks and a plus sign taken off.
std::string NumberStart(std::wstring_view text)
{
    std::string start;
    for (wchar_t c : text) {
        if (static_cast<char32_t>(c) >= 0x80) break;
        start.push_back(static_cast<char>(c));
    }
    return std::string(WithoutPlus(WithoutBlanks(start)));
}

// A whole number may be written as a decimal: 120.0.
bool IsZeroFraction(std::string_view text)
{
    return text.size() > 1 && text[0] == '.' && text.find_first_not_of('0', 1) == text.npos;
}

template <class T> bool ParseWhole(std::string_view text, T& value)
{
    text = WithoutPlus(WithoutBlanks(text));
    T parsed{};
    const auto result = std::from_chars(text.data(), text.data() + text.size(), parsed);
    if (result.ec != std::errc()) return false;
    text.remove_prefix(static_cast<size_t>(result.ptr - text.data()));
    if (!text.empty() && !(std::is_integral_v<T> && IsZeroFraction(text))) return false;
    value = parsed;
    return true;
}

// A few digits, as nearly every whole number is: half the work of the general reading.
bool ParseDigits(std::string_view text, int& value)
{
    if (text.empty() || text.size() > 9) return false;
    int parsed = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') return false;
        parsed = parsed * 10 + (c - '0');
    }
    value = parsed;
    return true;
}

bool EqualAscii(std::string_view text, std::string_view lower)
{
    return std::equal(text.begin(), text.end(), lower.begin(), lower.end(), [](char a, char b) {
        return (a >= 'A' && a <= 'Z' ? a - 'A' + 'a' : a) == b;
    });
}

} // namespace

int Wtoi(std::wstring_view text)
{
    const std::string start = NumberStart(text);
    int value = 0;
    const auto result = std::from_chars(start.data(), start.data() + start.size(), value);
    if (result.ec == std::errc::result_out_of_range)
        return start.front() == '-' ? std::numeric_limits<int>::min()
                                    : std::numeric_limits<int>::max();
    return value;
}

double Wtof(std::wstring_view text)
{
    const std::string start = NumberStart(text);
    double value = 0;
    const auto result = std::from_chars(start.data(), start.data() + start.size(), value);
    if (result.ec != std::errc() || !std::isfinite(value)) return 0;
    return value;
}

bool ParseInt(std::string_view text, int& value)
{
    return ParseDigits(text, value) || ParseWhole(text, value);
}

bool ParseDouble(std::string_view text, double& value)
{
    double parsed = 0;
    if (!ParseWhole(text, parsed) || !std::isfinite(parsed)) return false;
    value = parsed;
    return true;
}

bool ParseBool(std::string_view text, int& value)
{
    int number = 0;
    const std::string_view word = WithoutBlanks(text);
    if (EqualAscii(word, "true"))
        number = 1;
    else if (!EqualAscii(word, "false") && !ParseInt(text, number))
        return false;
    value = number != 0 ? 1 : 0;
    return true;
}

bool IsPlainNumber(std::wstring_view text)
{
    int digits = 0;
    int points = 0;
    for (wchar_t c : text) {
        if (c >= L'0' && c <= L'9')
            ++digits;
        else if (c == L'.')
            ++points;
        else
            return false;
    }
    return digits > 0 && points <= 1;
}

std::string DoubleToText(double value)
{
    char buffer[32];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    return std::string(buffer, result.ptr);
}

} // namespace designspec
