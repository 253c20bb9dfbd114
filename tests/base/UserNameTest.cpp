#include "base/UserName.h"

#include <gtest/gtest.h>
#include <pwd.h>
#include <sys/wait.h>
#include <unistd.h>

#include "base/Text.h"

using namespace designspec;

namespace {

// What another process finds as that user, where the environment names these.
std::string NameOf(uid_t user, const char* logName, const char* name)
{
    int ends[2];
    if (pipe(ends) != 0) return "no pipe";
    if (fork() == 0) {
        logName ? setenv("LOGNAME", logName, 1) : unsetenv("LOGNAME");
        name ? setenv("USER", name, 1) : unsetenv("USER");
        if (seteuid(user) != 0) _exit(1);
        const std::string found = ToUtf8(UserName());
        _exit(write(ends[1], found.data(), found.size()) < 0 ? 1 : 0);
    }
    close(ends[1]);
    char text[256];
    const ssize_t size = read(ends[0], text, sizeof text);
    close(ends[0]);
    wait(nullptr);
    return size > 0 ? std::string(text, static_cast<size_t>(size)) : "nothing";
}

} // namespace

TEST(UserName, IsTheLoginName)
{
    const passwd* const known = getpwuid(geteuid());
    if (!known) GTEST_SKIP() << "the system does not know who runs this";
    EXPECT_EQ(NameOf(geteuid(), "other", nullptr), known->pw_name);
}

TEST(UserName, IsThatOfTheEnvironmentWhereTheSystemKnowsNone)
{
    constexpr uid_t kNobodyElse = 54321;
    if (geteuid() != 0 || getpwuid(kNobodyElse)) GTEST_SKIP() << "needs an unknown user";
    EXPECT_EQ(NameOf(kNobodyElse, "张三", "other"), "张三");
    EXPECT_EQ(NameOf(kNobodyElse, "", "李四"), "李四");
    EXPECT_EQ(NameOf(kNobodyElse, nullptr, nullptr), "54321");
}
