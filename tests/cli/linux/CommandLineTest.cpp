// Standard output that takes nothing.
#include <fcntl.h>
#include <unistd.h>

#include "tests/cli/CommandTest.h"

namespace {

using CommandLine = CommandTest;

TEST_F(CommandLine, FailsWhenStandardOutputCannotBeWritten)
{
    New("a");
    for (const Words& words : std::vector<Words>{{"list"}, {"show"}, {"show", "--json"}}) {
        const ProcessResult result = Call(words, [] {
            const int full = open("/dev/full", O_WRONLY);
            dup2(full, STDOUT_FILENO);
        });
        EXPECT_EQ(result.status, 3);
        EXPECT_EQ(result.err, "designspec: 标准输出无法写入\n");
    }
}

} // namespace
