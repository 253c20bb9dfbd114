#include "pages/RadiusRangeText.h"

#include <algorithm>

#include "base/Number.h"
#include "base/Text.h"
#include "model/Rules.h"

using namespace designspec;

CString ReadRadiusRange(const CString& text, RadiusRange& range)
{
    const CStringArray parts = SplitText(text, L"~");
    if (parts.size() != 2) return L"圆曲线半径范围的输入格式为 最小半径~最大半径 !";
    const auto [smaller, larger] = std::minmax({Wtoi(parts[0]), Wtoi(parts[1])});
    if (!IsRadius(smaller)) return kRadiusText;
    range = {smaller, larger};
    return {};
}
