// Numbers as text, without the locale.
#pragma once

#include <string_view>

#include <string>

namespace designspec {

// The run-time library's lenient readings: blanks, then as much of a number as stands there.
// 0 when there is none. A whole number outside 32 bits is held at the nearer end; a double outside
// its range, an infinity and "nan" read as 0.
int Wtoi(std::wstring_view text);
double Wtof(std::wstring_view text);

// Strict readings: the whole text, blanks around it aside, is one number in range. False leaves
// `value` as it was. Doubles must be finite; a leading plus sign is allowed. A whole number may
// have a fraction of zeros behind it: "120.0".
bool ParseInt(std::string_view text, int& value);
bool ParseDouble(std::string_view text, double& value);
// "true", "false", ignoring case, or a whole number, of which 0 is false; gives 1 or 0.
bool ParseBool(std::string_view text, int& value);

// True for one or more digits with at most one point among or around them; no sign, no blanks.
bool IsPlainNumber(std::wstring_view text);

// The shortest text that reads back to the same double.
std::string DoubleToText(double value);

} // namespace designspec
