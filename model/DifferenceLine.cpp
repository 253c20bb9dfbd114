#include "model/DifferenceLine.h"

#include <algorithm>

#include "base/CodePoint.h"
#include "base/Format.h"
#include "base/Text.h"

namespace designspec {

namespace {

constexpr std::size_t kLongestValue = 24; // characters

CString Short(const std::optional<CString>& value)
{
    if (!value) return L"无";
    const CString text = Printable(*value);
    const CString start(FirstCharacters<wchar_t>(text, kLongestValue));
    return start.size() == text.size() ? text : start + L"…";
}

} // namespace

CString InOneLine(const std::vector<Difference>& differences, std::size_t most)
{
    CString line;
    for (std::size_t i = 0; i < std::min(most, differences.size()); ++i) {
        const Difference& one = differences[i];
        if (i > 0) line += L"; ";
        line += one.label + (one.key.empty() ? L"" : L" ") + one.key + L": " + Short(one.left) +
                L" → " + Short(one.right);
    }
    if (differences.size() > most) line += Format(L" … 共 %d 处", differences.size());
    return line;
}

} // namespace designspec
