#include "base/UserName.h"

#include <cstdlib>

#include "base/windows/Windows.h"

namespace designspec {

std::wstring UserName()
{
    wchar_t name[257] = {};
    DWORD size = static_cast<DWORD>(std::size(name));
    if (GetUserNameW(name, &size) && *name) return name;
    const wchar_t* const known = _wgetenv(L"USERNAME");
    return known && *known ? known : L"?";
}

} // namespace designspec
