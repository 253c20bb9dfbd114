#include "model/Rules.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "base/Format.h"
#include "base/Number.h"
#include "model/MaxSuperElevation.h"

namespace designspec {

std::wstring SpeedText()
{
    return RangeText(L"车速", kLowestSpeed, kHighestSpeed);
}

std::wstring RangeText(const std::wstring& name, int least, int most)
{
    return Format(L"%s 必须大于等于 %d 并且小于等于 %d", name, least, most);
}

double InOneDecimal(double value)
{
    return Wtof(Format(L"%.1f", value));
}

std::wstring StraightText(const std::wstring& name)
{
    return name + L"必须是正数,且最多只有一位小数!";
}

bool IsGradient(double percent)
{
    return std::isfinite(percent) && !std::signbit(percent);
}

std::wstring GradientText(const std::wstring& name)
{
    return name + L"必须大于等于0,并且最多只有一位小数!";
}

int GradientTenths(double percent)
{
    return std::max(TruncateToInt(percent * 10), 0);
}

std::wstring MaxSuperElevText(int speed, const std::wstring& name)
{
    return Format(L"设计车速 %d 对应的 %s 值不合法, %s!", speed, name,
                  std::wstring(kMaxSuperElevRange));
}

std::wstring NoValueAtSpeedText(int speed, const std::wstring& name)
{
    return Format(L"设计车速 %d 对应的 %s 不能为空!", speed, name);
}

std::vector<int> MaximaInUse(const CDSMaxSuperElevation& criterion)
{
    std::map<int, int, std::greater<>> bySpeed;
    for (const auto& entry : criterion.MaxSuperElev)
        bySpeed[entry.speed] = entry.value;
    std::vector<int> maxima;
    if (IsSnowSuperElev(criterion.MaxSuperElevOnSFR)) maxima.push_back(criterion.MaxSuperElevOnSFR);
    for (const auto& [speed, maximum] : bySpeed)
        if (IsMaxSuperElev(maximum) &&
            std::find(maxima.begin(), maxima.end(), maximum) == maxima.end())
            maxima.push_back(maximum);
    return maxima;
}

std::wstring NoSuperElevTableText(int maximum)
{
    return Format(L"最大超高 %d%% 的超高表未设置!", maximum);
}

std::wstring SuperElevGapText(int maximum, int speed, int superElev, int nextSuperElev)
{
    return Format(L"最大超高 %d%% 在 车速 %dkm/h 时, 超高 %d%% 的最大\n"
                  L"圆曲线半径应该为 %d%% 的最小圆曲线半径!",
                  maximum, speed, superElev, nextSuperElev);
}

std::wstring WideningRangeGapText(int min, int max)
{
    return Format(L"圆曲线半径范围 %d~%d 和前一组不连续!", min, max);
}

std::vector<size_t> Gaps(const std::vector<bool>& filled)
{
    std::vector<size_t> gaps;
    const auto first = std::find(filled.begin(), filled.end(), true);
    const auto last = std::find(filled.rbegin(), filled.rend(), true).base();
    for (auto place = first; place < last; ++place)
        if (!*place) gaps.push_back(static_cast<size_t>(place - filled.begin()));
    return gaps;
}

std::wstring WideningGapText(const std::wstring& category)
{
    return Format(L"加宽类别 %s 的加宽值设置不连续，不同圆曲线半径范围之间不能空缺!", category);
}

} // namespace designspec
