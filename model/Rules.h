// The rules that limits keep, each stated once: for the pages, cells and dialogs that take limits
// in, for the command, and for Findings. A text is what the editor says when its rule is broken.
#pragma once

#include <string>
#include <vector>

#include "base/Export.h"

class CDSMaxSuperElevation;

namespace designspec {

// Design speeds, km/h.
inline constexpr int kLowestSpeed = 10;
inline constexpr int kHighestSpeed = 150;
inline constexpr int kStandardSpeeds[] = {120, 100, 80, 60, 50, 40, 30, 20};
constexpr bool IsSpeed(int speed)
{
    return speed >= kLowestSpeed && speed <= kHighestSpeed;
}
AFX_EXT_API std::wstring SpeedText();
// The same for any quantity; both ends are allowed.
AFX_EXT_API std::wstring RangeText(const std::wstring& name, int least, int most);

// The values of all tables, in whatever unit.
template <class T> constexpr bool IsTableValue(T value)
{
    return value >= 0;
}
inline constexpr wchar_t kTableValueText[] = L"值不能小于 0";

// What an edit box with one decimal makes of a value.
AFX_EXT_API double InOneDecimal(double value);

// Lengths of straight lines, as multiples of the design speed. One that is not above 0 is no limit.
constexpr bool IsStraightLimit(double factor)
{
    return factor > 0;
}
AFX_EXT_API std::wstring StraightText(const std::wstring& name);

// Radii of circular curves, m. A maximum below 1 is none.
constexpr bool IsRadius(int radius)
{
    return radius >= 1;
}
inline constexpr wchar_t kRadiusText[] = L"圆曲线半径必须大于0!";
inline constexpr wchar_t kMaxRadText[] = L"圆曲线最大半径必须是正整数!";

// Transition curves: neither table may be empty while it counts.
inline constexpr wchar_t kNoTransitionLenText[] = L"缓和曲线最小长度不能为空!";
inline constexpr wchar_t kNoTransitionRadText[] = L"不设缓和曲线的最小圆曲线半径条件不能为空!";

// Gradients that stand by themselves, %. The sign counts: -0.04 would be shown as -0.
AFX_EXT_API bool IsGradient(double percent);
AFX_EXT_API std::wstring GradientText(const std::wstring& name);

// Steeper than any road (%): a slip, as 95 for 9.5. Nothing refuses it.
inline constexpr int kSteepestGradient = 30;

// The gradients of rows of grade lengths, %, which the editor keeps in tenths: 0 or more of them,
// what is beyond is cut off.
AFX_EXT_API int GradientTenths(double percent);
inline constexpr wchar_t kRowGradientText[] = L"坡度必须是正数,并且最多只能有一位小数!";

// Maximum superelevation, %. The text says 0~20: both ends are outside.
constexpr bool IsMaxSuperElev(int percent)
{
    return percent >= 1 && percent <= 19;
}
inline constexpr wchar_t kMaxSuperElevRange[] = L"必须在0~20之间";
AFX_EXT_API std::wstring MaxSuperElevText(int speed, const std::wstring& name);
// In snowy and frozen regions; below 1 there is none.
constexpr bool IsSnowSuperElev(int percent)
{
    return percent >= 1;
}
inline constexpr wchar_t kSnowSuperElevText[] = L"积雪冰冻地区最大超高必须为大于0的正整数!";
// Superelevation runoffs, the n of 1/n.
inline constexpr int kLeastRunoff = 2;
inline constexpr int kMostRunoff = 999;
constexpr bool IsRunoff(int n)
{
    return n >= kLeastRunoff && n <= kMostRunoff;
}
// Each speed of the criterion has a value in all three tables.
AFX_EXT_API std::wstring NoValueAtSpeedText(int speed, const std::wstring& name);
// The maximum superelevations, each once, that need a table: that of snow and ice, then those of
// the speeds from the highest down. Of two values for a speed the last one counts.
AFX_EXT_API std::vector<int> MaximaInUse(const CDSMaxSuperElevation& criterion);

// Superelevation tables: the superelevations (%) of a table run from its maximum down to this.
inline constexpr int kLowestSuperElev = 2;
AFX_EXT_API std::wstring NoSuperElevTableText(int maximum);
AFX_EXT_API std::wstring SuperElevGapText(int maximum, int speed, int superElev, int nextSuperElev);

// Curve widening: each range of radii ends where the one before it begins.
AFX_EXT_API std::wstring WideningRangeGapText(int min, int max);
// The places without a value that have values on both sides; a category of vehicles has none.
AFX_EXT_API std::vector<size_t> Gaps(const std::vector<bool>& filled);
AFX_EXT_API std::wstring WideningGapText(const std::wstring& category);
inline constexpr wchar_t kNoCategoryText[] = L"加宽类别不能为空!";

} // namespace designspec
