#include "base/UserName.h"

#include <cstdlib>

#include <pwd.h>
#include <unistd.h>

#include "base/Text.h"

namespace designspec {

namespace {

std::string FindName(uid_t user)
{
    const passwd* const known = getpwuid(user);
    for (const char* name :
         {known ? known->pw_name : nullptr, std::getenv("LOGNAME"), std::getenv("USER")})
        if (name && *name) return name;
    return std::to_string(user);
}

// Kept, as the system may have to ask another machine.
struct Known {
    uid_t user = geteuid();
    std::wstring name = ToWide(FindName(user));
};

} // namespace

std::wstring UserName()
{
    thread_local Known known;
    if (known.user != geteuid()) known = Known();
    return known.name;
}

} // namespace designspec
