#include "library/StyleName.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "base/CodePoint.h"
#include "base/FileSystem.h"
#include "base/NoCase.h"
#include "base/Text.h"
#include "base/XmlCheck.h"

namespace designspec {

namespace {

constexpr wchar_t kForbidden[] = L"<>/\\\":;=|,*?'";
constexpr size_t kLongestFileName = 255;   // bytes
constexpr size_t kAroundName = 36 + 2 + 4; // identity, braces, ".hds"

bool IsStorable(char32_t c)
{
    return c >= U' ' && IsXmlCharacter(c) &&
           std::none_of(std::begin(kForbidden), std::end(kForbidden),
                        [&](wchar_t one) { return static_cast<char32_t>(one) == c; });
}

} // namespace

CString StyleNameProblem(const CString& name)
{
    if (name.empty()) return L"样式名不能为空!";
    if (name.find_first_of(kForbidden) != CString::npos)
        return CString(L"样式名中不允许出现如下字符: ") + kForbidden;
    if (std::any_of(name.begin(), name.end(), IsActing)) return L"样式名中不允许出现控制字符和换行";
    if (!IsXmlText(name)) return L"样式名中有文件无法记录的字符";
    return FileNameProblem(name);
}

CString StyleNameProblem(const SpecificationFolder& folder, const CString& name,
                         const CString& openedName)
{
    CString problem = StyleNameProblem(name);
    const bool keepsItsName = !openedName.empty() && EqualNoCase(name, openedName);
    if (problem.empty() && !keepsItsName && folder.Find(name.c_str())) problem = L"和已有样式重名!";
    return problem;
}

CString StorableName(CString name, const CString& ending)
{
    const CString given = std::exchange(name, {});
    for (std::wstring_view left = given; !left.empty();) {
        const char32_t c = TakeCodePoint(left);
        AppendCodePoint(IsStorable(c) ? c : U'-', name);
    }
    for (size_t at = 0; (at = name.find(L"..", at)) != CString::npos;)
        name.erase(at, 1);
    while (!name.empty() && !FileNameProblem(name + ending).empty()) {
        const size_t last = name.size() - 1;
        name.resize(IsWithinPair<wchar_t>(name, last) ? last - 1 : last);
    }
    return name + ending;
}

CString FileNameProblem(const CString& name)
{
    if (name.find_first_of(std::wstring_view(L"/\\\0", 3)) != CString::npos ||
        name.find(L"..") != CString::npos)
        return L"名称含有路径分隔符、“..”或空字符,不能用作文件名";
    if (!std::all_of(name.begin(), name.end(), FileSystem::IsNameCharacter))
        return L"名称含有文件名中不允许的字符,不能用作文件名";
    if (ToUtf8(name).size() + kAroundName > kLongestFileName) return L"名称过长,不能用作文件名";
    return {};
}

} // namespace designspec
