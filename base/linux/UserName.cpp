#include "base/UserName.h"

#include <cerrno>
#include <cstdlib>
#include <vector>

#include <pwd.h>
#include <unistd.h>

#include "base/Text.h"

namespace designspec {

namespace {

std::string FindName(uid_t user)
{
    // Into memory of this call: other threads, of other libraries, may ask at the same time.
    std::vector<char> texts(1024);
    passwd entry = {};
    passwd* known = nullptr;
    while (getpwuid_r(user, &entry, texts.data(), texts.size(), &known) == ERANGE)
        texts.resize(2 * texts.size());
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
