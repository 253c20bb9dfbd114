// What stands in a project's library folder and cannot be read: the command says which file and
// why, ends with 3, and works with the rest.
#include <algorithm>
#include <fstream>
#include <regex>

#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <linux/capability.h>

#include "tests/cli/CommandTest.h"

namespace {

class BadInput : public CommandTest {
protected:
    void SetUp() override
    {
        New("城市");
        m_file = FileOf("城市");
        m_content = m_folder.Read(m_file);
        m_id = IdOf("城市");
    }

    // Puts the bytes into the library and expects the file to be refused for that cause, at that
    // line (0: the file as a whole), and the good file to be listed and queried all the same.
    void Refused(const std::string& bytes, int line, const std::string& cause) const
    {
        m_folder.Write("规范/bad.hds", bytes);
        RefusedAsItIs(line, cause);
    }
    void RefusedAsItIs(int line, const std::string& cause,
                       const std::function<void()>& inChild = {}) const
    {
        const std::string place = line > 0 ? ":" + std::to_string(line) : "";
        const ProcessResult list = Call({"list", "--json"}, inChild);
        EXPECT_EQ(list.status, 3);
        EXPECT_THAT(list.err, HasSubstr("规范/bad.hds" + place + ": "));
        EXPECT_THAT(list.err, HasSubstr(cause));
        const Json listed = Json::parse(list.out, nullptr, false);
        ASSERT_EQ(listed.size(), 1U) << list.out;
        EXPECT_EQ(listed[0]["name"], "城市");
        const ProcessResult query = Call({"query", "CircularCurveRad.MaxRad"}, inChild);
        EXPECT_EQ(query.status, 3);
        EXPECT_EQ(query.out, "10000\n");
        EXPECT_EQ(query.err, list.err);
    }

    // The good file as another specification, with one thing changed.
    std::string Other(const std::string& what, const std::string& by) const
    {
        const std::string other =
            Replaced(Replaced(m_content, m_id, "00000000-0000-0000-0000-000000000001"),
                     "Name=\"城市\"", "Name=\"乡村\"");
        return Replaced(other, what, by);
    }
    int LineOf(const std::string& bytes, const std::string& what) const
    {
        const size_t at = bytes.find(what);
        EXPECT_NE(at, std::string::npos) << what;
        if (at == std::string::npos) return 0;
        return 1 + static_cast<int>(std::count(
                       bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(at), '\n'));
    }
    // A wrong value in the middle of the file.
    void RefusedValue(const std::string& what, const std::string& by,
                      const std::string& cause) const
    {
        const std::string bytes = Other(what, by);
        Refused(bytes, LineOf(bytes, by), cause);
    }

    std::string m_file;
    std::string m_content;
    std::string m_id;
};

TEST_F(BadInput, EmptyFile)
{
    Refused("", 0, "文件是空的");
}

TEST_F(BadInput, NotXml)
{
    Refused("设计规范\n", 1, "XML");
    Refused("\n\n<a><b></a>", 3, "XML");
    Refused(std::string("PK\x03\x04\xFF\xFE", 6), 1, "内容不符合文件的编码");
}

TEST_F(BadInput, TruncatedAnywhere)
{
    // Whole again from where nothing but white space is missing.
    const size_t end = m_content.find_last_of('>');
    for (size_t size = 1; size <= end; size += 97) {
        m_folder.Write("规范/bad.hds", m_content.substr(0, size));
        const ProcessResult result = Call({"list"});
        EXPECT_EQ(result.status, 3) << size;
        EXPECT_TRUE(std::regex_search(result.err, std::regex("bad\\.hds:[0-9]+: "))) << size;
        EXPECT_EQ(Lines(result.out).size(), 1U) << size;
        EXPECT_THAT(result.out, HasSubstr("城市")) << size;
    }
}

TEST_F(BadInput, WrongRoot)
{
    Refused("<?xml version=\"1.0\"?>\n<Library/>", 2, "Library");
    Refused("<StyleLibrary/>", 1, "文件中没有“设计规范”的样式");
}

TEST_F(BadInput, WrongEncodingDeclared)
{
    Refused("<?xml version=\"1.0\" encoding=\"GB18030\"?>\n<StyleLibrary>\n\xFF</StyleLibrary>", 3,
            "内容不符合文件的编码");
    Refused(Other("UTF-8", "UTF-16"), 1, "内容不是声明的编码“UTF-16”");
    Refused(Other("UTF-8", "KOI-9"), 1, "声明的编码“KOI-9”不受支持");
    Refused(Other("乡村", "\xB3\xC7"), LineOf(m_content, "Name=\"城市\""), "编码");
}

TEST_F(BadInput, NulBytes)
{
    Refused(Other("乡村", std::string("乡\0村", 7)), LineOf(m_content, "Name=\"城市\""),
            "含有空字符(NUL)");
    Refused(std::string(4096, '\0'), 1, "含有空字符(NUL)");
}

TEST_F(BadInput, FortyMegabytesOfNesting)
{
    {
        std::ofstream file(m_folder.Native("规范/bad.hds"), std::ios::binary);
        std::string part;
        for (int i = 0; i < 1 << 18; ++i)
            part += "<a>\n";
        for (int i = 0; i < 40; ++i)
            file.write(part.data(), static_cast<std::streamsize>(part.size()));
        ASSERT_TRUE(file.flush());
    }
    RefusedAsItIs(65, "元素嵌套超过 64 层");
    std::filesystem::resize_file(m_folder.Native("规范/bad.hds"), std::uintmax_t{1} << 40);
    RefusedAsItIs(0, "无法读取: 文件大于");
}

TEST_F(BadInput, ABillionEntities)
{
    std::string bytes = "<?xml version=\"1.0\"?>\n<!DOCTYPE StyleLibrary [\n<!ENTITY a0 \"ha\">\n";
    for (int i = 1; i < 30; ++i) {
        const std::string before = "&a" + std::to_string(i - 1) + ";";
        bytes += "<!ENTITY a" + std::to_string(i) + " \"" + before + before + "\">\n";
    }
    Refused(bytes + "]>\n<StyleLibrary>&a29;</StyleLibrary>", 2, "不允许文档类型声明(DOCTYPE)");
}

TEST_F(BadInput, Numbers)
{
    for (const std::string value : {"1e999", "12abc", "２０", "99999999999", "6.5"}) {
        RefusedValue("<MaxRad>10000</MaxRad>", "<MaxRad>" + value + "</MaxRad>",
                     "样式“乡村”未载入: ");
        RefusedValue(R"(speed="80")", "speed=\"" + value + "\"", "speed 为“" + value + "”");
        RefusedValue(R"(value="1000")", "value=\"" + value + "\"", "value 为“" + value + "”");
    }
    for (const std::string value : {"1e999", "12abc", "２０", "nan"}) {
        RefusedValue("<MinGrad>0.3</MinGrad>", "<MinGrad>" + value + "</MinGrad>", "未载入");
        RefusedValue(R"(MaxLen="20")", "MaxLen=\"" + value + "\"", "MaxLen 为“" + value + "”");
        RefusedValue(R"(Grad="5.5")", "Grad=\"" + value + "\"", "Grad 为“" + value + "”");
    }
    RefusedValue("<NoTCBySuperelevation>0<", "<NoTCBySuperelevation>maybe<", "未载入");
}

// Such a name is told, but the specification is there: only its file's name would be impossible.
TEST_F(BadInput, NamesThatNoFileCanBear)
{
    for (const std::string name : {"", "a/b", "a\\b", "..", "../../x", "250"}) {
        const std::string given = name == "250" ? std::string(250, 'a') : name;
        const std::string bytes = Other("Name=\"乡村\"", "Name=\"" + given + "\"");
        m_folder.Write("规范/bad.hds", bytes);
        const ProcessResult list = Call({"list", "--json"});
        EXPECT_EQ(list.status, 3) << name;
        EXPECT_THAT(
            list.err,
            HasSubstr("bad.hds:" + std::to_string(LineOf(m_content, "<Style Name")) + ": 样式"))
            << name;
        EXPECT_THAT(list.out, HasSubstr("城市"));
        if (given.empty()) continue;
        const int entries = m_folder.Count();
        EXPECT_EQ(Call({"set", "--spec", given, "LonGrad.MinGrad", "1"}).status, 3) << name;
        EXPECT_EQ(m_folder.Count(), entries) << name;
        EXPECT_EQ(m_folder.Read("规范/bad.hds"), bytes) << name;
        // It can be given a name that is possible.
        EXPECT_EQ(Call({"rename", given, "新名"}).status, 3) << name;
        EXPECT_TRUE(m_folder.Has("规范/新名00000000-0000-0000-0000-000000000001.hds")) << name;
        const ProcessResult after = Call({"list"});
        EXPECT_EQ(after.status, 0) << name << after.err;
        Call({"remove", "新名"});
        std::filesystem::remove_all(m_folder.Native("规范/已删除"));
    }
}

// One of 3 MB would take the memory of the machine.
TEST_F(BadInput, NamesLongerThanAnyFilesAre)
{
    for (const size_t size : {size_t{256}, size_t{3} << 20}) {
        const std::string name(size, 'a');
        RefusedValue("Name=\"乡村\"", "Name=\"" + name + "\"",
                     "未载入: 名称过长(" + std::to_string(size) + " 字节,最多 255 字节)");
    }
}

TEST_F(BadInput, TheSameIdentityTwice)
{
    m_folder.Write("规范/z.hds", Replaced(m_content, "Name=\"城市\"", "Name=\"乡村\""));
    const ProcessResult list = Call({"list", "--json"});
    EXPECT_EQ(list.status, 3);
    EXPECT_THAT(list.err, HasSubstr("标识相同(" + m_id + ")"));
    EXPECT_EQ(Json::parse(list.out).size(), 1U);
}

TEST_F(BadInput, NoIdentity)
{
    const std::string other = "00000000-0000-0000-0000-000000000001";
    for (const std::string& bytes :
         {Other(" ID=\"" + other + "\"", ""), Other(other, ""), Other(other, "xyz")}) {
        m_folder.Write("规范/bad.hds", bytes);
        const ProcessResult list = Call({"list", "--json"});
        EXPECT_EQ(list.status, 3);
        EXPECT_TRUE(
            std::regex_search(list.err, std::regex("bad\\.hds:[0-9]+: 样式“乡村”.*已给予新的标识")))
            << list.err;
        const Json listed = Json::parse(list.out);
        ASSERT_EQ(listed.size(), 2U);
        EXPECT_NE(listed[0]["id"], listed[1]["id"]);
    }
}

TEST_F(BadInput, AFolderOfAFilesName)
{
    std::filesystem::create_directory(m_folder.Native("规范/bad.hds"));
    RefusedAsItIs(0, "无法读取: 是文件夹,不是文件");
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

// Permissions bind the superuser too once these capabilities are gone.
void DropPrivilege()
{
    if (geteuid() != 0) return;
    if (prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE) != 0) _exit(126);
    if (prctl(PR_CAPBSET_DROP, CAP_DAC_READ_SEARCH) != 0) _exit(126);
}

TEST_F(BadInput, AFileWithoutPermission)
{
    m_folder.Write("规范/bad.hds", Other("乡村", "乡村"));
    std::filesystem::permissions(m_folder.Native("规范/bad.hds"), std::filesystem::perms::none);
    RefusedAsItIs(0, "无法读取: ", DropPrivilege);
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

// A command may read it several times.
TEST_F(BadInput, IsToldOnce)
{
    m_folder.Write("规范/bad.hds", "<StyleLibrary>");
    for (const Words& words : {Words{"list"}, Words{"check"}, Words{"remove", "城市"}}) {
        const ProcessResult result = Call(words);
        EXPECT_EQ(result.status, 3) << words[0];
        const std::vector<std::string> lines = Lines(result.err);
        EXPECT_EQ(std::count_if(lines.begin(), lines.end(),
                                [](const std::string& line) {
                                    return line.find("bad.hds:") != std::string::npos;
                                }),
                  1)
            << result.err;
    }
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
