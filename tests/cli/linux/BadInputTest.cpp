// Links, pipes, permissions and limits.
#include "tests/cli/BadInputTest.h"

#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <linux/capability.h>

namespace {

// Permissions bind the superuser too once these capabilities are gone.
void DropPrivilege()
{
    if (geteuid() != 0) return;
    if (prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE) != 0) _exit(126);
    if (prctl(PR_CAPBSET_DROP, CAP_DAC_READ_SEARCH) != 0) _exit(126);
}

TEST_F(BadInput, ALinkToItself)
{
    std::filesystem::create_symlink("bad.hds", m_folder.Native("规范/bad.hds"));
    RefusedAsItIs(0, "无法读取: 符号链接成环");
}

TEST_F(BadInput, ALinkToNothingAndAPipe)
{
    std::filesystem::create_symlink("nowhere", m_folder.Native("规范/bad.hds"));
    RefusedAsItIs(0, "无法读取: 不存在");
    std::filesystem::remove(m_folder.Native("规范/bad.hds"));
    ASSERT_EQ(mkfifo(m_folder.Native("规范/bad.hds").c_str(), 0600), 0);
    RefusedAsItIs(0, "无法读取: 不是普通文件");
}

TEST_F(BadInput, AFileWithoutPermission)
{
    m_folder.Write("规范/bad.hds", Other("乡村", "乡村"));
    std::filesystem::permissions(m_folder.Native("规范/bad.hds"), std::filesystem::perms::none);
    RefusedAsItIs(0,
                  "无法读取: ", [this](const Words& words) { return Call(words, DropPrivilege); });
}

TEST_F(BadInput, AFolderWithoutPermission)
{
    using std::filesystem::perms;
    const auto library = m_folder.Native("规范");
    const auto expect = [&](const Words& words) {
        const ProcessResult result = Call(words, DropPrivilege);
        EXPECT_EQ(result.status, 3) << testing::PrintToString(words);
        EXPECT_EQ(result.out, "") << testing::PrintToString(words);
        EXPECT_THAT(result.err, HasSubstr("规范")) << testing::PrintToString(words);
    };
    std::filesystem::permissions(library, perms::none);
    expect({"list"});
    expect({"new", "a"});
    std::filesystem::permissions(library, perms::owner_read | perms::owner_exec);
    expect({"set", "CircularCurveRad.MaxRad", "5"});
    expect({"new", "a"});
    expect({"rename", "城市", "市区"});
    expect({"remove", "城市"});
    expect({"default", "城市"});
    EXPECT_EQ(Call({"list"}, DropPrivilege).status, 0);
    std::filesystem::permissions(library, perms::owner_all);
    EXPECT_EQ(m_folder.Read(m_file), m_content);
    EXPECT_EQ(Names(), (std::vector<std::string>{"城市"}));
}

TEST_F(BadInput, AFullDisk)
{
    const auto fullDisk = [] {
        const rlimit limit{500, 500};
        if (setrlimit(RLIMIT_FSIZE, &limit) != 0) _exit(126);
    };
    for (const Words& words : std::vector<Words>{{"set", "CircularCurveRad.MaxRad", "5"},
                                                 {"new", "a"},
                                                 {"rename", "城市", "市区"},
                                                 {"export", "x.hds"},
                                                 {"template", "tmpl"}}) {
        const ProcessResult result = Call(words, fullDisk);
        EXPECT_EQ(result.status, 3) << testing::PrintToString(words);
        EXPECT_THAT(result.err, HasSubstr(".hds: ")) << testing::PrintToString(words);
        EXPECT_EQ(m_folder.Read(m_file), m_content) << testing::PrintToString(words);
    }
    EXPECT_FALSE(m_folder.Has("x.hds"));
    EXPECT_EQ(Names(), (std::vector<std::string>{"城市"}));
    EXPECT_EQ(DoneJson({"check"}), Json::array());
}

} // namespace
