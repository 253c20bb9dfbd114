#include "base/XmlPath.h"

namespace designspec {

PathStep TakeStep(std::wstring_view& path)
{
    PathStep step;
    size_t nameEnd = 0;
    while (nameEnd < path.size() && path[nameEnd] != L'/' && path[nameEnd] != L'[')
        ++nameEnd;
    step.name = path.substr(0, nameEnd);
    path.remove_prefix(nameEnd);
    if (path.starts_with(L"[@")) {
        const size_t equals = path.find(L"=\"");
        const size_t end =
            equals == std::wstring_view::npos ? equals : path.find(L"\"]", equals + 2);
        if (end == std::wstring_view::npos) {
            path = {};
            return step;
        }
        step.attribute = path.substr(2, equals - 2);
        step.value = path.substr(equals + 2, end - equals - 2);
        path.remove_prefix(end + 2);
    } else if (path.starts_with(L'[')) {
        path = {};
    }
    if (path.starts_with(L'/')) path.remove_prefix(1);
    return step;
}

} // namespace designspec
