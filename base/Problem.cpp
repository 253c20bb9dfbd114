#include "base/Problem.h"

#include <algorithm>
#include <iterator>

#include "base/File.h"
#include "base/Text.h"

namespace designspec {

std::wstring Problem::Text() const
{
    if (file.empty()) return text;
    const std::wstring where = Printable(file);
    return line > 0 ? where + L':' + std::to_wstring(line) + L": " + text : where + L": " + text;
}

bool HasError(const Problems& problems)
{
    return std::any_of(problems.begin(), problems.end(),
                       [](const Problem& one) { return one.severity == Severity::Error; });
}

void Append(Problems& problems, Problems more)
{
    std::move(more.begin(), more.end(), std::back_inserter(problems));
}

void AddProblem(Problems& problems, Severity severity, const std::wstring& path, int line,
                const std::wstring& text)
{
    problems.push_back({severity, ToWide(NativePath(path)), line, Printable(text)});
}

} // namespace designspec
