// What stands in a project's library folder and cannot be read: the command says which file and
// why, ends with 3, and works with the rest.
#include "tests/cli/BadInputTest.h"

#include <fstream>
#include <regex>

namespace {

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
}

TEST_F(BadInput, AFileThatIsLargerThanTheMachine)
{
    m_folder.Write("规范/bad.hds", "<a>");
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

} // namespace
