#include "tests/cli/CommandTest.h"

namespace {

using DiffColours = CommandTest;

TEST_F(DiffColours, AreForATerminalAlone)
{
    New("城市");
    Done({"new", "干线", "--from", "城市"});
    const std::string program = DESIGNSPEC_PROGRAM;
    const auto typed = [&](const std::string& before) {
        return RunProcess(
                   {"/usr/bin/script", "-qec", before + program + " diff 城市 干线", "/dev/null"},
                   m_folder.Native())
            .out;
    };
    EXPECT_THAT(typed(""), HasSubstr("\x1b[31m城市\x1b[0m"));
    EXPECT_THAT(typed(""), HasSubstr("\x1b[32m干线\x1b[0m"));
    EXPECT_THAT(typed("NO_COLOR=1 "), Not(HasSubstr("\x1b[")));
    EXPECT_THAT(Call({"diff", "城市", "干线"}).out, Not(HasSubstr("\x1b")));
}

} // namespace
