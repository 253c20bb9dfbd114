// Files that no library should meet, and that every library meets: what is wrong is told with
// file, line and cause, and the rest of the library is loaded.
#include "tests/library/BadInputTest.h"

#include "base/Encoding.h"

TEST_F(BadInput, AnEmptyFile)
{
    ExpectRefused("", 0, L"文件是空的");
}

TEST_F(BadInput, AFileThatIsNotXml)
{
    ExpectRefused("a diary\nof two lines\n", 1, L"XML 格式错误: 根元素之外有文字");
    ExpectRefused("PK\x03\x04 binary \xFF\xFE", 1, L"内容不符合文件的编码");
    ExpectRefused(" \n\n", 3, L"XML 格式错误");
}

TEST_F(BadInput, AFileTruncatedAtAnyByte)
{
    const CDesignSpecification whole = Make(L"规范", 3, kIdC);
    Add(whole);
    const CString path = m_project.Path(L"whole.hds");
    ASSERT_TRUE(Library().Export(path.c_str(), {L"规范"}, nullptr));
    const std::string bytes = m_project.Read("whole.hds");
    ASSERT_GT(bytes.size(), 5000U);
    m_project.Write("规范/m.hds", bytes);
    Library().Update();
    ASSERT_EQ(Library().Count(), 3);
    Library().Remove(1, true);
    for (size_t size = bytes.find_last_of('>'); size > 0; --size) {
        fs::resize_file(m_project.Native("规范/m.hds"), size);
        m_trace.Clear();
        if (size % 101 == 0) {
            Library().Update();
            ASSERT_TRUE(OthersAreLoaded()) << size;
        } else {
            ASSERT_FALSE(Library().Import(m_project.Path(L"规范/m.hds").c_str(), {}, nullptr, true))
                << size;
        }
        ASSERT_EQ(Library().Count(), 2) << size;
        ASSERT_EQ(m_trace.Lines().size(), 1U) << size;
        ASSERT_EQ(m_trace.Lines()[0].file, m_project.Path(L"规范/m.hds"));
        ASSERT_GT(m_trace.Lines()[0].line, 0) << size;
        ASSERT_FALSE(m_trace.Lines()[0].text.empty());
    }
    m_project.Write("规范/m.hds", bytes);
    EXPECT_EQ(Reload().Count(), 3);
}

TEST_F(BadInput, AnotherRoot)
{
    ExpectRefused("<?xml version='1.0'?>\n<Library/>", 2, L"根元素为 Library,应为 StyleLibrary");
    ExpectRefused("<StyleLibrary/>\n<StyleLibrary/>", 2, L"有多个根元素");
    ExpectRefused("<!-- nothing else -->", 1, L"XML 格式错误");
}

TEST_F(BadInput, AFileOfAnotherLibrary)
{
    ExpectRefused("<StyleLibrary>\n<Group Name='其它'/></StyleLibrary>", 1,
                  L"文件中没有“设计规范”的样式");
}

TEST_F(BadInput, AnotherEncodingThanDeclared)
{
    const std::string body = "\n" + Envelope(Style("城市", kIdC)).substr(39);
    std::string gb;
    ASSERT_TRUE(EncodeText(body, TextEncoding::Gb18030, gb));
    ExpectRefused("<?xml version=\"1.0\" encoding=\"UTF-8\"?>" + gb, 3, L"内容不符合文件的编码");
    ExpectRefused("<?xml version=\"1.0\" encoding=\"UTF-16\"?>" + body, 1,
                  L"内容不是声明的编码“UTF-16”");
    ExpectRefused("<?xml version=\"1.0\" encoding=\"EBCDIC\"?>" + body, 1,
                  L"声明的编码“EBCDIC”不受支持");
}

TEST_F(BadInput, ANul)
{
    std::string bytes = Envelope(Style("m", kIdC));
    bytes.insert(bytes.find("<Styles"), 1, '\0');
    ExpectRefused(bytes, 4, L"含有空字符(NUL)");
    ExpectRefused(std::string(100, '\0'), 1, L"含有空字符(NUL)");
    for (const char* reference : {"m&#0;", "m&#000;x", "&#x0;", "a&#12;&#x00;"})
        ExpectRefused(Envelope(Style(reference, kIdC)), 5, L"“&”之后不是允许的字符引用");
}

TEST_F(BadInput, AMillionLevels)
{
    ExpectRefused(Repeat("<a>\n", 1000000), 65, L"元素嵌套超过 64 层");
    ExpectRefused(Repeat("<a>", 1000000) + Repeat("</a>", 1000000), 1, L"元素嵌套超过 64 层");
    ExpectRefused(Envelope(Repeat("\n<a>", 1000000)), 67, L"元素嵌套超过 64 层");
}

TEST_F(BadInput, SixtyMegabytesOfNesting)
{
    {
        const std::string megabyte = Repeat("<Group>\n", 1 << 17);
        fs::create_directories(m_project.Native("规范"));
        std::ofstream file(m_project.Native("规范/m.hds"), std::ios::binary);
        for (int i = 0; i < 60; ++i)
            file << megabyte;
        ASSERT_TRUE(file.flush());
    }
    ExpectRefusedAsItIs(65, L"元素嵌套超过 64 层");
}

TEST_F(BadInput, AFileThatIsLargerThanTheMachine)
{
    m_project.Write("规范/m.hds", "");
    fs::resize_file(m_project.Native("规范/m.hds"), std::uintmax_t{1} << 40); // a hole
    ExpectRefusedAsItIs(0, L"无法读取: 文件大于");
}

TEST_F(BadInput, ThirtyThousandStylesWithNothingInThem)
{
    ExpectRefused(Envelope(Repeat("<Style/>", 30000)), 2,
                  L"30000 个样式都未载入: 需要的内存与文件大小不成比例");
}

TEST_F(BadInput, ABillionEntities)
{
    std::string bytes = "<?xml version='1.0'?>\n<!DOCTYPE StyleLibrary [\n<!ENTITY a0 \"ha\">\n";
    for (int i = 1; i < 30; ++i) {
        const std::string before = "&a" + std::to_string(i - 1) + ";";
        bytes += "<!ENTITY a" + std::to_string(i) + " \"" + before + before + "\">\n";
    }
    ExpectRefused(bytes + "]>\n<StyleLibrary>&a29;</StyleLibrary>", 2,
                  L"不允许文档类型声明(DOCTYPE)");
    ExpectRefused("<!DOCTYPE a SYSTEM 'file:///etc/passwd'><StyleLibrary/>", 1,
                  L"不允许文档类型声明(DOCTYPE)");
}

TEST_F(BadInput, ValuesThatAreNoNumbers)
{
    const auto style = [](const std::string& criteria) {
        return Envelope(std::string("<Style Name=\"m\" ID=\"") + kIdC + "\">\n" + criteria +
                        "</Style>");
    };
    for (const char* text :
         {"1e999", "-1e999", "12abc", "２０", "0x10", "1,5", "nan", "inf", "1 2"}) {
        const CString shown = CString(L"“") + ToWide(text) + L"”";
        ExpectRefused(style(std::string("<BeelineLen\nMaxLen=\"") + text + "\"/>"), 7,
                      L"样式“m”未载入: BeelineLen 的 MaxLen 为" + shown + L",不是数");
    }
    for (const char* text : {"1e9", "2147483648", "-2147483649", "12abc", "２０", "1.5"}) {
        const CString shown = CString(L"“") + ToWide(text) + L"”";
        ExpectRefused(style(std::string("<CurveMinLen>\n<HorizontalCurveMinLen>\n<Item speed=\"") +
                            text + "\" value=\"1\"/></HorizontalCurveMinLen></CurveMinLen>"),
                      8, L"样式“m”未载入: Item 的 speed 为" + shown + L",不是整数");
    }
    ExpectRefused(style("<TransitionCurveMinLen>\n<NoTCBySuperelevation>maybe"
                        "</NoTCBySuperelevation></TransitionCurveMinLen>"),
                  7, L"NoTCBySuperelevation 为“maybe”,不是是非值(0 或 1)");
}

TEST_F(BadInput, AWrongValueIsQuotedUpToSixtyCharacters)
{
    for (const char* character : {"x", "规", "\U0002070E"}) {
        const auto file = [&](size_t times) {
            return Envelope("<Style Name=\"m\">\n<BeelineLen MaxLen=\"" + Repeat(character, times) +
                            "\"/></Style>");
        };
        const CString quoted = L"“" + ToWide(Repeat(character, 60));
        ExpectRefused(file(60), 6, quoted + L"”,不是数");
        ExpectRefused(file(61), 6, quoted + L"…”,不是数");
        ExpectRefused(file(1000), 6, quoted + L"…”,不是数");
    }
}

TEST_F(BadInput, AStyleWithABadValueDoesNotTakeItsNeighboursAlong)
{
    m_project.Write("规范/m.hds", Envelope("<Style Name='bad'><BeelineLen MaxLen='x'/></Style>\n" +
                                           Style("m", kIdC, 3)));
    Library().Update();
    EXPECT_EQ(Names(), L"first m last");
    EXPECT_TRUE(Traced("规范/m.hds", 5, L"样式“bad”未载入"));
}

TEST_F(BadInput, NumbersAtTheEndsOfTheirRange)
{
    m_project.Write("规范/m.hds",
                    Envelope(std::string("<Style Name='m' ID='") + kIdC +
                             "'><BeelineLen MaxLen=' +1.5 '/><CircularCurveRad><MaxRad>-2147483648"
                             "</MaxRad></CircularCurveRad></Style>"));
    Library().Update();
    ASSERT_NE(Library().Item(L"m"), nullptr);
    EXPECT_EQ(Library().Item(L"m")->BeelineLen.MaxLen, 1.5);
    EXPECT_EQ(Library().Item(L"m")->CircularCurveRad.MaxRad, INT32_MIN);
    EXPECT_TRUE(m_trace.Lines().empty());
}

TEST_F(BadInput, NamesThatNoFileCanBear)
{
    ExpectTold(Envelope("\n" + Style("", kIdC)), 6, L"样式没有名称");
    ExpectTold(Envelope(std::string("<Style ID='") + kIdC + "'/>"), 5, L"样式没有名称");
    for (const char* name : {"a/b", "a\\b", "..", "../../x"})
        ExpectTold(Envelope(Style(name, kIdC)), 5, L"不能用作文件名");
    ExpectTold(Envelope(Style(std::string(250, 'x'), kIdC)), 5, L"名称过长,不能用作文件名");
}

TEST_F(BadInput, TheSameIdentityTwice)
{
    m_project.Write("规范/m.hds", Envelope(Style("first", kIdA, 1)));
    Library().Update();
    EXPECT_EQ(Names(), L"first last");
    EXPECT_TRUE(OthersAreLoaded());
    EXPECT_TRUE(Traced("规范/m.hds", 5, L"标识相同"));
    EXPECT_EQ(m_trace.Lines()[0].severity, TraceLevel::Error);
}

TEST_F(BadInput, NoIdentity)
{
    ExpectTold(Envelope("<Style Name='m'/>"), 5, L"样式“m”没有 ID");
    ExpectTold(Envelope("<Style Name='m' ID='12'/>"), 5, L"样式“m”的 ID“12”无效");
}

TEST_F(BadInput, AFolderInPlaceOfAFile)
{
    fs::create_directory(m_project.Native("规范/m.hds"));
    ExpectRefusedAsItIs(0, L"无法读取: 是文件夹,不是文件");
}

TEST_F(BadInput, SettingsThatAreNoText)
{
    m_project.Write("规范/setting.ini", std::string("[\x81\xFF\x00\x80", 5));
    Library().Update();
    EXPECT_TRUE(OthersAreLoaded());
    EXPECT_TRUE(Traced("规范/setting.ini", 1, L"设置文件的编码无法识别"));
    fs::remove(m_project.Native("规范/setting.ini"));
    fs::create_directory(m_project.Native("规范/setting.ini"));
    m_trace.Clear();
    Library().Update();
    EXPECT_TRUE(OthersAreLoaded());
    EXPECT_TRUE(Traced("规范/setting.ini", 0, L"是文件夹"));
}
