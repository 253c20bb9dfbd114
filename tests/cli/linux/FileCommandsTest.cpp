// Limits, pipes and names of files that only Linux has.
#include <sys/resource.h>
#include <sys/stat.h>

#include "tests/cli/CommandTest.h"

namespace {

using LinuxCommand = CommandTest;

TEST_F(LinuxCommand, WithoutMemoryEndsWithAStatus)
{
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizer takes more of the address space than this leaves";
#endif
    New("城市");
    std::string styles;
    for (int i = 0; i < 20000; ++i)
        styles += "<Style Name='" + std::to_string(i) + "'><LonGradMinLen><MinLens>" +
                  std::string("<Item speed='1'/>") + "</MinLens></LonGradMinLen></Style>";
    m_folder.Write("big.hds", "<StyleLibrary><Group Name='设计规范'><Styles Name='设计规范'>" +
                                  styles + "</Styles></Group></StyleLibrary>");
    const ProcessResult result = Call({"import", "big.hds"}, [] {
        const rlimit limit = {150 << 20, 150 << 20};
        setrlimit(RLIMIT_AS, &limit);
    });
    EXPECT_EQ(result.status, 3) << result.err;
    EXPECT_THAT(result.err, HasSubstr("内存不足"));
    EXPECT_EQ(Names(), std::vector<std::string>{"城市"});
}

TEST_F(LinuxCommand, TakesNoNameWithABackslash)
{
    New("城市");
    Fails(2, "反斜线", {"list", "--project", "a\\b"});
    Fails(2, "反斜线", {"export", "a\\b.hds"});
}

// What never ends, or never begins, is no file that a road could be in.
TEST_F(LinuxCommand, ReadsNoRoadFromAPipe)
{
    New("公路");
    ASSERT_EQ(mkfifo(m_folder.Native("pipe.xml").c_str(), 0600), 0);
    const ProcessResult result = Call({"verify", "pipe.xml", "--speed", "60"});
    EXPECT_EQ(result.status, 3);
    EXPECT_EQ(result.err, "designspec: pipe.xml: 无法打开: 不是普通文件\n");
}

} // namespace
