#include "platform/xtp/PropExchangeXMLNode.h"

#include <algorithm>
#include <ctime>
#include <memory>

#include <gtest/gtest.h>
#include <libxml/parser.h>

#include "base/Encoding.h"
#include "base/File.h"
#include "base/Text.h"
#include "tests/support/Memory.h"
#include "tests/support/TemporaryFolder.h"

using namespace designspec;

using namespace std::string_literals;
using namespace std::string_view_literals;

namespace {

constexpr wchar_t kRoot[] = L"StyleLibrary";

class PropExchange : public testing::Test {
protected:
    // A document that holds `content` in its root, open for loading.
    CXTPPropExchangeXMLNode Loaded(const std::string& content)
    {
        CXTPPropExchangeXMLNode root(true, kRoot);
        EXPECT_TRUE(root.LoadFromBytes("<StyleLibrary>" + content + "</StyleLibrary>", L"a.hds"))
            << Told(root);
        return root;
    }
    // Expects `bytes` to be refused at that line of the file, for that cause.
    void ExpectRefused(std::string_view bytes, int line, const CString& cause)
    {
        const CString path = m_folder.Write("a.hds", bytes);
        CXTPPropExchangeXMLNode root(true, kRoot);
        EXPECT_FALSE(root.LoadFromFile(path.c_str()));
        const Problems problems = root.TakeProblems();
        ASSERT_EQ(problems.size(), 1U);
        EXPECT_EQ(problems[0].severity, Severity::Error);
        EXPECT_EQ(problems[0].file, path);
        EXPECT_EQ(problems[0].line, line);
        EXPECT_EQ(ToUtf8(problems[0].text), ToUtf8(cause));
        EXPECT_FALSE(root.IsSectionExists());
        EXPECT_FALSE(root.GetSection(L"Style").IsSectionExists());
    }
    // Expects the file to be read, with that text as the root's attribute "n".
    void ExpectName(std::string_view bytes, const CString& name)
    {
        const CString path = m_folder.Write("a.hds", bytes);
        CXTPPropExchangeXMLNode root(true, kRoot);
        EXPECT_TRUE(root.LoadFromFile(path.c_str())) << Told(root);
        EXPECT_EQ(ToUtf8(root.Attribute(L"n")), ToUtf8(name));
    }
    // What another parser says against the bytes; empty when they are well-formed.
    static std::string Complaint(const std::string& bytes)
    {
        xmlResetLastError();
        const std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)> document(
            xmlReadMemory(bytes.data(), static_cast<int>(bytes.size()), "a.xml", nullptr,
                          XML_PARSE_NOERROR | XML_PARSE_NOWARNING),
            xmlFreeDoc);
        const xmlErrorPtr error = xmlGetLastError();
        return error ? error->message : "";
    }

    // What the document's problems are, taken out of it.
    static std::string Told(const CXTPPropExchange& root)
    {
        std::string told;
        for (const Problem& problem : root.TakeProblems())
            told += (told.empty() ? "" : "\n") + ToUtf8(problem.Text());
        return told;
    }

    TemporaryFolder m_folder;
};

std::string Encoded(TextEncoding encoding, const std::string& utf8)
{
    std::string bytes;
    EXPECT_TRUE(EncodeText(utf8, encoding, bytes));
    return bytes;
}

// Processor time that the process has used since; unlike a clock on the wall it does not count what
// else the machine does.
double Seconds(std::clock_t since)
{
    return static_cast<double>(std::clock() - since) / CLOCKS_PER_SEC;
}
// Ten times what the slowest takes with sanitizers; what grows out of proportion takes minutes.
constexpr double kBounded = 20;

} // namespace

// ---- values

TEST_F(PropExchange, StoresAttributesInCompactModeAndElementsWithoutIt)
{
    CXTPPropExchangeXMLNode root(false, kRoot);
    CXTPPropExchange section = root.GetSection(L"Style");
    int whole = 60;
    double real = 2.5;
    int yes = 5;
    CString text = L"城市道路";
    section.EnableCompactMode(true);
    EXPECT_TRUE(section.ExchangeInt(L"speed", whole));
    EXPECT_TRUE(section.ExchangeDouble(L"value", real));
    EXPECT_TRUE(section.ExchangeBool(L"used", yes));
    section.EnableCompactMode(false);
    PX_String(&section, L"Note", text);
    PX_Int(&section, L"Count", whole);
    EXPECT_EQ(root.SaveToBytes(), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                  "<StyleLibrary>\n"
                                  "  <Style speed=\"60\" value=\"2.5\" used=\"1\">\n"
                                  "    <Note>城市道路</Note>\n"
                                  "    <Count>60</Count>\n"
                                  "  </Style>\n"
                                  "</StyleLibrary>\n");
}

TEST_F(PropExchange, LoadsAttributesInCompactModeAndElementsWithoutIt)
{
    const auto root =
        Loaded("<Style a='1' b=' 2.5 '><a>3</a><b>x<!-- y --></b><c> true </c></Style>");
    CXTPPropExchange section = root.GetSection(L"Style");
    int whole = 0;
    double real = 0;
    int yes = 0;
    CString text;
    section.EnableCompactMode(true);
    PX_Int(&section, L"a", whole);
    PX_Double(&section, L"b", real);
    EXPECT_EQ(whole, 1);
    EXPECT_EQ(real, 2.5);
    section.EnableCompactMode(false);
    PX_Int(&section, L"a", whole);
    PX_String(&section, L"b", text);
    PX_Bool(&section, L"c", yes);
    EXPECT_EQ(whole, 3);
    EXPECT_EQ(text, L"x");
    EXPECT_EQ(yes, 1);
    EXPECT_TRUE(root.TakeProblems().empty());
}

TEST_F(PropExchange, ASectionIsInTheModeOfTheOneItWasAskedFrom)
{
    CXTPPropExchangeXMLNode root(false, kRoot);
    root.EnableCompactMode(true);
    EXPECT_TRUE(root.GetSection(L"A").IsCompactMode());
    EXPECT_TRUE(root.AppendSection(L"B").IsCompactMode());
    EXPECT_TRUE(root.ReplaceSection(L"C").IsCompactMode());
    EXPECT_TRUE(root.GetEnumerator(L"B").GetNext().IsCompactMode());
    root.EnableCompactMode(false);
    EXPECT_FALSE(root.GetSection(L"A").IsCompactMode());
}

TEST_F(PropExchange, AMissingValueKeepsTheField)
{
    const auto root = Loaded("<Style/>");
    const CXTPPropExchange none = root.GetSection(L"None");
    EXPECT_FALSE(none.IsSectionExists());
    for (CXTPPropExchange section : {root.GetSection(L"Style"), none}) {
        for (const bool compact : {true, false}) {
            section.EnableCompactMode(compact);
            int whole = 7;
            int yes = 5;
            double real = 7.5;
            CString text = L"kept";
            EXPECT_FALSE(section.ExchangeInt(L"a", whole));
            EXPECT_FALSE(section.ExchangeDouble(L"a", real));
            EXPECT_FALSE(section.ExchangeBool(L"a", yes));
            EXPECT_FALSE(section.ExchangeText(L"a", text));
            EXPECT_EQ(whole, 7);
            EXPECT_EQ(yes, 5);
            EXPECT_EQ(real, 7.5);
            EXPECT_EQ(text, L"kept");
        }
    }
    EXPECT_TRUE(root.TakeProblems().empty());
}

TEST_F(PropExchange, AMissingOrWrongValueGetsTheDefaultWhereOneIsGiven)
{
    const auto root = Loaded("<Style a='x' b='8'/>");
    CXTPPropExchange section = root.GetSection(L"Style");
    section.EnableCompactMode(true);
    int whole = 7;
    double real = 7;
    PX_Int(&section, L"none", whole, 3);
    PX_Double(&section, L"none", real, 0.5);
    EXPECT_EQ(whole, 3);
    EXPECT_EQ(real, 0.5);
    PX_Int(&section, L"a", whole, 4);
    EXPECT_EQ(whole, 4);
    PX_Int(&section, L"b", whole, 4);
    EXPECT_EQ(whole, 8);
}

TEST_F(PropExchange, ADefaultIsNotTakenWhenStoring)
{
    CXTPPropExchangeXMLNode root(false, kRoot);
    root.EnableCompactMode(true);
    int whole = 7;
    double real = 0.1;
    PX_Int(&root, L"a", whole, 3);
    PX_Double(&root, L"b", real, 3);
    EXPECT_EQ(whole, 7);
    EXPECT_EQ(root.Attribute(L"a"), L"7");
    EXPECT_EQ(root.Attribute(L"b"), L"0.1");
}

TEST_F(PropExchange, AnEmptyTextIsNotAMissingOne)
{
    const auto root = Loaded("<Style a=''><b></b><c/></Style>");
    CXTPPropExchange section = root.GetSection(L"Style");
    for (const wchar_t* key : {L"b", L"c"}) {
        CString text = L"old";
        EXPECT_TRUE(section.ExchangeText(key, text));
        EXPECT_EQ(text, L"");
    }
    section.EnableCompactMode(true);
    CString text = L"old";
    EXPECT_TRUE(section.ExchangeText(L"a", text));
    EXPECT_EQ(text, L"");
}

TEST_F(PropExchange, AStoredValueReplacesTheOneBefore)
{
    CXTPPropExchangeXMLNode root(false, kRoot);
    for (const bool compact : {true, false}) {
        root.EnableCompactMode(compact);
        for (int value : {1, 2})
            root.ExchangeInt(L"a", value);
    }
    const std::string bytes = root.SaveToBytes();
    EXPECT_NE(bytes.find("<StyleLibrary a=\"2\">\n  <a>2</a>\n</StyleLibrary>"), std::string::npos)
        << bytes;
}

TEST_F(PropExchange, EveryTextComesBack)
{
    const CString texts[] = {L"<&>\"'", L"规范 \U0001D11E α", L"甲\n乙", L"]]>", L"a--b",
                             L"&amp;",  L"\u00A0x\u3000"};
    for (const bool compact : {true, false}) {
        for (CString text : texts) {
            CXTPPropExchangeXMLNode stored(false, kRoot);
            stored.EnableCompactMode(compact);
            stored.ExchangeText(L"t", text);
            EXPECT_EQ(Complaint(stored.SaveToBytes()), "");
            CXTPPropExchangeXMLNode loaded(true, kRoot);
            ASSERT_TRUE(loaded.LoadFromBytes(stored.SaveToBytes(), L"a"));
            loaded.EnableCompactMode(compact);
            CString back;
            EXPECT_TRUE(loaded.ExchangeText(L"t", back));
            EXPECT_EQ(ToUtf8(back), ToUtf8(text));
        }
    }
}

TEST_F(PropExchange, WhatXmlForbidsBecomesAReplacementCharacter)
{
    CString text = L"a";
    for (wchar_t c = 1; c < 0x20; ++c)
        text.push_back(c);
    text += CString(L"\0\xDC80\xDFFF\xFFFE\xFFFF\xD800", 6);
    text.push_back(static_cast<wchar_t>(0x110000)); // of 16 bits, once more a NUL
    text.push_back(L'z');
    CXTPPropExchangeXMLNode root(false, kRoot);
    for (const bool compact : {true, false}) {
        root.EnableCompactMode(compact);
        root.ExchangeText(L"t", text);
    }
    root.GetSection(L"Group[@Name=\"a\x01\xDC80\"]");
    EXPECT_TRUE(root.FindSection(L"Group[@Name=\"a\x01\xDC80\"]").IsSectionExists());
    const std::string bytes = root.SaveToBytes();
    EXPECT_EQ(Complaint(bytes), "");
    CXTPPropExchangeXMLNode loaded(true, kRoot);
    ASSERT_TRUE(loaded.LoadFromBytes(bytes, L"a")) << Told(loaded);
    EXPECT_EQ(loaded.GetSection(L"Group").Attribute(L"Name"), L"a\xFFFD\xFFFD");
    CString back;
    EXPECT_TRUE(loaded.ExchangeText(L"t", back));
    EXPECT_EQ(std::count(back.begin(), back.end(), L'\xFFFD'), 28 + 7);
    EXPECT_TRUE(back.ends_with(L"z"));
}

// ---- sections

TEST_F(PropExchange, GetSectionMakesWhatIsMissingOnlyWhenStoring)
{
    CXTPPropExchangeXMLNode root(false, kRoot);
    EXPECT_FALSE(root.FindSection(L"A/B").IsSectionExists());
    EXPECT_EQ(root.SaveToBytes().find("<A"), std::string::npos);
    EXPECT_TRUE(root.GetSection(L"A/B").IsSectionExists());
    EXPECT_TRUE(root.FindSection(L"A/B").IsSectionExists());
    EXPECT_NE(root.SaveToBytes().find("<A>\n    <B />\n  </A>"), std::string::npos);

    const auto loaded = Loaded("<A/>");
    EXPECT_TRUE(loaded.GetSection(L"A").IsSectionExists());
    EXPECT_FALSE(loaded.GetSection(L"A/B").IsSectionExists());
    EXPECT_FALSE(loaded.GetSection(L"A/B/C").IsSectionExists());
    EXPECT_EQ(loaded.SaveToBytes().find("<B"), std::string::npos);
}

TEST_F(PropExchange, AStepMayNameTheValueOfAnAttribute)
{
    constexpr wchar_t kPath[] =
        L"Group[@Name=\"道路/平面\"]/Group[@Name=\"[a] = 'b'\"]/Styles[@Name=\"a\\\"b\"]";
    CXTPPropExchangeXMLNode root(false, kRoot);
    root.GetSection(L"Group[@Name=\"另\"]");
    EXPECT_TRUE(root.GetSection(kPath).IsSectionExists());
    EXPECT_TRUE(root.GetSection(kPath).IsSectionExists());
    const std::string bytes = root.SaveToBytes();
    EXPECT_EQ(Complaint(bytes), "");
    EXPECT_NE(bytes.find("  <Group Name=\"另\" />\n"
                         "  <Group Name=\"道路/平面\">\n"
                         "    <Group Name=\"[a] = 'b'\">\n"
                         "      <Styles Name=\"a\\&quot;b\" />\n"
                         "    </Group>\n"
                         "  </Group>\n"),
              std::string::npos)
        << bytes;

    CXTPPropExchangeXMLNode loaded(true, kRoot);
    ASSERT_TRUE(loaded.LoadFromBytes(bytes, L"a"));
    EXPECT_TRUE(loaded.GetSection(kPath).IsSectionExists());
    EXPECT_EQ(loaded.GetSection(kPath).Attribute(L"Name"), L"a\\\"b");
    EXPECT_FALSE(loaded.GetSection(L"Group[@Name=\"道路\"]").IsSectionExists());
    EXPECT_EQ(loaded.GetSection(L"Group").Attribute(L"Name"), L"另");
}

TEST_F(PropExchange, APathThatIsNoneEndsWhereItCannotBeRead)
{
    for (const wchar_t* path : {L"A[", L"A[B]", L"A[@", L"A[@N=\"", L"A[@N=\"x", L"A[@\"]=\"",
                                L"[x", L"A[@N]/B", L"/", L"//", L"A[@N=\"]"}) {
        CXTPPropExchangeXMLNode root(false, kRoot);
        root.GetSection(path);
        root.FindSection(path);
        EXPECT_LT(root.SaveToBytes().size(), 150U) << ToUtf8(path);
        EXPECT_EQ(Complaint(root.SaveToBytes()), "") << ToUtf8(path);
    }
}

TEST_F(PropExchange, AnEmptyStepStaysWhereItIs)
{
    CXTPPropExchangeXMLNode root(false, kRoot);
    root.GetSection(L"/A//B/");
    EXPECT_TRUE(root.FindSection(L"A/B").IsSectionExists());
    EXPECT_TRUE(root.GetSection(L"").IsSectionExists());
    EXPECT_NE(root.SaveToBytes().find("<StyleLibrary>\n  <A>\n    <B />\n  </A>"),
              std::string::npos);
}

TEST_F(PropExchange, AppendSectionAddsBehindTheOthers)
{
    CXTPPropExchangeXMLNode root(false, kRoot);
    root.EnableCompactMode(true);
    for (int i = 1; i <= 2; ++i)
        root.AppendSection(L"Item").ExchangeInt(L"speed", i);
    const std::string bytes = root.SaveToBytes();
    EXPECT_NE(bytes.find("  <Item speed=\"1\" />\n  <Item speed=\"2\" />\n"), std::string::npos);
}

TEST_F(PropExchange, ReplaceSectionTakesAllOfThatNameAway)
{
    CXTPPropExchangeXMLNode root(false, kRoot);
    root.AppendSection(L"Items").AppendSection(L"Item");
    root.AppendSection(L"Other");
    root.AppendSection(L"Items");
    EXPECT_TRUE(root.ReplaceSection(L"Items").IsSectionExists());
    EXPECT_NE(root.SaveToBytes().find("<StyleLibrary>\n  <Other />\n  <Items />\n</StyleLibrary>"),
              std::string::npos);
}

TEST_F(PropExchange, RemoveSectionTakesItOut)
{
    CXTPPropExchangeXMLNode root(false, kRoot);
    CXTPPropExchange section = root.GetSection(L"A/B");
    section.RemoveSection();
    EXPECT_FALSE(section.IsSectionExists());
    section.RemoveSection();
    EXPECT_FALSE(root.FindSection(L"A/B").IsSectionExists());
    EXPECT_TRUE(root.FindSection(L"A").IsSectionExists());
}

TEST_F(PropExchange, TheEnumeratorGivesTheSectionsOfOneNameInTheirOrder)
{
    const auto root = Loaded("<T><Item n='1'/><Other n='x'/>text<!-- c --><Item n='2'/>"
                             "<item n='y'/><Item n='3'><Item n='z'/></Item></T>");
    CString seen;
    auto items = root.GetEnumerator(L"T/Item");
    while (items.HasNext())
        seen += items.GetNext().Attribute(L"n");
    EXPECT_EQ(seen, L"123");
    EXPECT_FALSE(items.GetNext().IsSectionExists());
    EXPECT_FALSE(items.HasNext());
    EXPECT_FALSE(root.GetEnumerator(L"T/None").HasNext());
    EXPECT_FALSE(root.GetEnumerator(L"None/Item").HasNext());
}

TEST_F(PropExchange, ASectionMovesOverThoseOfItsNameAndEndsBehindThem)
{
    CXTPPropExchange section = Loaded("<A n='1'/><B n='2'/>text<A n='3'/>").FindSection(L"A");
    EXPECT_EQ(section.Attribute(L"n"), L"1");
    section.MoveToNext();
    EXPECT_EQ(section.Attribute(L"n"), L"3");
    section.MoveToNext();
    EXPECT_FALSE(section.IsSectionExists());
    section.MoveToNext();
    EXPECT_FALSE(section.IsSectionExists());
}

TEST_F(PropExchange, CountsTheSectionsOfItsNameFromASectionOn)
{
    const CXTPPropExchange root = Loaded("<A/><B/>text<A/><A/>");
    CXTPPropExchange section = root.FindSection(L"A");
    const size_t found = root.FoundCount();
    EXPECT_EQ(section.CountFromHere(), 3);
    EXPECT_EQ(root.FoundCount(), found); // counted, not read
    section.MoveToNext();
    EXPECT_EQ(section.CountFromHere(), 2);
    EXPECT_EQ(root.FindSection(L"B").CountFromHere(), 1);
    EXPECT_EQ(root.FindSection(L"C").CountFromHere(), 0);
}

TEST_F(PropExchange, TheEnumeratorOutlivesTheSectionItGave)
{
    CXTPPropExchangeXMLNode root(false, kRoot);
    for (int i = 0; i < 3; ++i)
        root.AppendSection(L"Item");
    auto items = root.GetEnumerator(L"Item");
    int count = 0;
    for (; items.HasNext(); ++count)
        items.GetNext().RemoveSection();
    EXPECT_EQ(count, 3);
    EXPECT_FALSE(root.FindSection(L"Item").IsSectionExists());
}

TEST_F(PropExchange, ASectionKeepsItsDocumentAlive)
{
    CXTPPropExchange section;
    {
        const auto root = Loaded("<A n='1'/>");
        section = root.GetSection(L"A");
    }
    EXPECT_EQ(section.Attribute(L"n"), L"1");
}

TEST_F(PropExchange, ASectionOfNothingTakesEveryCall)
{
    CXTPPropExchange none;
    CXTPPropExchangeXMLNode noDocument;
    int value = 3;
    for (CXTPPropExchange* section : {&none, static_cast<CXTPPropExchange*>(&noDocument)}) {
        EXPECT_TRUE(section->IsLoading());
        EXPECT_FALSE(section->GetSection(L"A").IsSectionExists());
        EXPECT_FALSE(section->AppendSection(L"A").IsSectionExists());
        EXPECT_FALSE(section->GetEnumerator(L"A").HasNext());
        EXPECT_FALSE(section->ExchangeInt(L"a", value));
        EXPECT_EQ(section->Attribute(L"a"), L"");
        EXPECT_EQ(section->Line(), 0);
        EXPECT_TRUE(section->TakeProblems().empty());
        section->RemoveSection();
    }
    EXPECT_EQ(value, 3);
}

// ---- problems

TEST_F(PropExchange, AProblemNamesItsLine)
{
    const auto root = Loaded("\n<Style\n  Name='甲\n乙'\n  speed='12abc'\r\n  value='1e999'>"
                             "\n<Count>\n2.5\n</Count><Used>maybe</Used></Style>");
    CXTPPropExchange section = root.GetSection(L"Style");
    int whole = 7;
    double real = 7;
    section.EnableCompactMode(true);
    EXPECT_FALSE(section.ExchangeDouble(L"value", real));
    EXPECT_FALSE(section.ExchangeInt(L"speed", whole));
    section.EnableCompactMode(false);
    EXPECT_FALSE(section.ExchangeInt(L"Count", whole));
    EXPECT_FALSE(section.ExchangeBool(L"Used", whole));
    EXPECT_EQ(whole, 7);
    EXPECT_EQ(real, 7);
    EXPECT_EQ(section.Line(), 2);

    const auto problems = root.TakeProblems();
    ASSERT_EQ(problems.size(), 4U);
    EXPECT_EQ(problems[0].line, 6);
    EXPECT_EQ(ToUtf8(problems[0].text), "Style 的 value 为“1e999”,不是数");
    EXPECT_EQ(problems[1].line, 5);
    EXPECT_EQ(ToUtf8(problems[1].text), "Style 的 speed 为“12abc”,不是整数");
    EXPECT_EQ(problems[2].line, 7);
    EXPECT_EQ(ToUtf8(problems[2].text), "Style 的 Count 为“\\n2.5\\n”,不是整数");
    EXPECT_EQ(problems[3].line, 9);
    EXPECT_EQ(ToUtf8(problems[3].text), "Style 的 Used 为“maybe”,不是是非值(0 或 1)");
    EXPECT_TRUE(root.TakeProblems().empty());
}

TEST_F(PropExchange, LinesCountAlsoInWideAndChineseEncodings)
{
    const std::string text =
        "<StyleLibrary>\n<!-- 规范 -->\n\n<S\n a='甲'\n b='x'/></StyleLibrary>";
    for (const std::string& bytes :
         {text, "\xFF\xFE" + Encoded(TextEncoding::Utf16LE, text),
          Encoded(TextEncoding::Gb18030, "<?xml version='1.0' encoding='GBK'?>" + text)}) {
        CXTPPropExchangeXMLNode root(true, kRoot);
        ASSERT_TRUE(root.LoadFromBytes(bytes, L"a")) << Told(root);
        CXTPPropExchange section = root.GetSection(L"S");
        section.EnableCompactMode(true);
        int value = 0;
        section.ExchangeInt(L"b", value);
        EXPECT_EQ(section.Line(), 4);
        const auto problems = root.TakeProblems();
        ASSERT_EQ(problems.size(), 1U);
        EXPECT_EQ(problems[0].line, 6);
    }
}

TEST_F(PropExchange, WhatWasNotReadFromAFileHasNoLine)
{
    CXTPPropExchangeXMLNode root(false, kRoot);
    EXPECT_EQ(root.Line(), 0);
    EXPECT_EQ(root.GetSection(L"A").Line(), 0);
    ASSERT_TRUE(root.LoadFromBytes("\n<StyleLibrary/>", L"a"));
    EXPECT_EQ(root.Line(), 2);
    EXPECT_EQ(root.GetSection(L"A").Line(), 0);
}

TEST_F(PropExchange, ALongWrongValueIsQuotedInPart)
{
    const auto root = Loaded("<S a='" + std::string(1 << 20, 'x') + "'/>");
    CXTPPropExchange section = root.GetSection(L"S");
    section.EnableCompactMode(true);
    int value = 0;
    EXPECT_FALSE(section.ExchangeInt(L"a", value));
    EXPECT_EQ(ToUtf8(root.TakeProblems().at(0).text),
              "S 的 a 为“" + std::string(60, 'x') + "…”,不是整数");
}

TEST_F(PropExchange, AMillionProblemsAreToldAsAThousandInBoundedTime)
{
    std::string items;
    for (int i = 0; i < 1000000; ++i)
        items += "<I v='x'/>\n";
    const auto root = Loaded(items);
    const auto start = std::clock();
    auto all = root.GetEnumerator(L"I");
    while (all.HasNext()) {
        CXTPPropExchange item = all.GetNext();
        item.EnableCompactMode(true);
        int value = 0;
        item.ExchangeInt(L"v", value);
        item.Line();
    }
    EXPECT_LT(Seconds(start), kBounded);
    const auto problems = root.TakeProblems();
    ASSERT_EQ(problems.size(), 1001U);
    EXPECT_EQ(problems[999].line, 1000);
    EXPECT_EQ(ToUtf8(problems[1000].text), "其余的问题不再列出");
}

// ---- files that are refused

TEST_F(PropExchange, AFileThatCannotBeReadIsTold)
{
    CXTPPropExchangeXMLNode root(true, kRoot);
    const CString path = m_folder.Path(L"none.hds");
    EXPECT_FALSE(root.LoadFromFile(path.c_str()));
    EXPECT_EQ(Told(root), ToUtf8(path + L": 无法读取: 不存在"));
}

TEST_F(PropExchange, AnEmptyFileIsTold)
{
    ExpectRefused("", 0, L"文件是空的");
    ExpectRefused("\xEF\xBB\xBF", 0, L"XML 格式错误: 没有根元素");
    ExpectRefused(" \n ", 2, L"XML 格式错误: 没有根元素");
}

TEST_F(PropExchange, WhatIsNoXmlIsTold)
{
    ExpectRefused("\n\nhello", 3, L"XML 格式错误: 根元素之外有文字");
    ExpectRefused("{\"a\": 1}", 1, L"XML 格式错误: 根元素之外有文字");
    ExpectRefused("<StyleLibrary/>\n tail", 2, L"XML 格式错误: 根元素之外有文字");
    ExpectRefused("<StyleLibrary>\n<a>\n</b></StyleLibrary>", 3,
                  L"XML 格式错误: 开始标记与结束标记不配对");
    ExpectRefused("<StyleLibrary>\n<a b=1/></StyleLibrary>", 2, L"XML 格式错误: 属性有错");
}

TEST_F(PropExchange, WhatIsNotFinishedIsTold)
{
    const std::pair<const char*, const wchar_t*> kCases[] = {
        {"<?xml version='1.0'", L"声明或处理指令没有写完"},
        {"<StyleLibrary><!-- a </StyleLibrary>", L"注释没有写完"},
        {"<StyleLibrary><![CDATA[ a </StyleLibrary>", L"CDATA 段没有写完"},
        {"<StyleLibrary><a", L"开始标记有错"},
        {"<StyleLibrary a='1></StyleLibrary>", L"属性有错"},
        {"<StyleLibrary></StyleLibrary", L"结束标记有错"},
        {"<StyleLibrary><1/></StyleLibrary>", L"无法识别的标记"},
    };
    for (const auto& [text, cause] : kCases)
        ExpectRefused(text, 1, CString(L"XML 格式错误: ") + cause);
}

TEST_F(PropExchange, AnotherRootIsTold)
{
    ExpectRefused("<!-- c -->\n<svg/>", 2, L"根元素为 svg,应为 StyleLibrary");
    ExpectRefused("<stylelibrary/>", 1, L"根元素为 stylelibrary,应为 StyleLibrary");
}

TEST_F(PropExchange, TwoRootsAreTold)
{
    ExpectRefused("<StyleLibrary/>\n<!-- c -->\n<StyleLibrary/>", 3, L"XML 格式错误: 有多个根元素");
}

TEST_F(PropExchange, AFileThatEndsTooEarlyIsRefusedWhereverItEnds)
{
    const std::string sample = "\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                               "<!-- 规范 -->\n<StyleLibrary n='1'>\n  <Group Name=\"道路&amp;\">\n"
                               "    <![CDATA[ < ]]><a/><?pi x?>\n  </Group>\n</StyleLibrary>";
    for (size_t size = 0; size < sample.size(); ++size) {
        CXTPPropExchangeXMLNode root(true, kRoot);
        EXPECT_FALSE(root.LoadFromBytes(sample.substr(0, size), L"a.hds")) << size;
        EXPECT_FALSE(root.IsSectionExists()) << size;
        const Problems problems = root.TakeProblems();
        ASSERT_EQ(problems.size(), 1U) << size;
        EXPECT_EQ(problems[0].file, L"a.hds");
    }
    CXTPPropExchangeXMLNode root(true, kRoot);
    EXPECT_TRUE(root.LoadFromBytes(sample, L"a.hds"));
    EXPECT_TRUE(root.LoadFromBytes(sample + "\r\n", L"a.hds"));
}

TEST_F(PropExchange, AFailedLoadLeavesNothingOfTheDocumentBefore)
{
    auto root = Loaded("<A v='x'/>");
    CXTPPropExchange section = root.GetSection(L"A");
    EXPECT_FALSE(root.LoadFromBytes("<StyleLibrary><B>", L"a"));
    EXPECT_FALSE(root.GetSection(L"A").IsSectionExists());
    EXPECT_FALSE(root.FindSection(L"B").IsSectionExists());
    EXPECT_TRUE(root.LoadFromBytes("<StyleLibrary><C/></StyleLibrary>", L"a"));
    EXPECT_TRUE(root.GetSection(L"C").IsSectionExists());
}

TEST_F(PropExchange, NulsAndControlCharactersAreRefusedWithTheirLine)
{
    ExpectRefused("<StyleLibrary>\n<a b='\0'/></StyleLibrary>"sv, 2, L"含有空字符(NUL)");
    ExpectRefused("<StyleLibrary/>\n\0\0\0"sv, 2, L"含有空字符(NUL)");
    ExpectRefused("\0\0\0"sv, 1, L"含有空字符(NUL)");
    ExpectRefused("<StyleLibrary>\n\n\x01</StyleLibrary>", 3, L"含有 XML 不允许的控制字符");
}

TEST_F(PropExchange, AReferenceToAnythingButACharacterIsRefused)
{
    for (const char* reference :
         {"&#0;", "&#1;", "&#xD800;", "&#xFFFF;", "&#x110000;", "&#;", "&#x;", "&#-1;", "&nbsp;",
          "&a;", "& ", "&", "&amp", "&#99999999999;"}) {
        const CString cause = L"XML 格式错误: “&”之后不是允许的字符引用";
        ExpectRefused("<StyleLibrary>\n<a b='"s + reference + "'/></StyleLibrary>", 2, cause);
        ExpectRefused("<StyleLibrary>\n\n甲"s + reference + "</StyleLibrary>", 3, cause);
    }
    ExpectName("<StyleLibrary n='&#x89C4;&#33539;&amp;&lt;&gt;&quot;&apos;&#x1D11E;'>"
               "<!-- &nbsp; & --><![CDATA[&a;]]></StyleLibrary>",
               L"规范&<>\"'\U0001D11E");
}

TEST_F(PropExchange, BytesThatAreNotInTheEncodingAreToldWithTheirLine)
{
    const std::string gbk =
        Encoded(TextEncoding::Gb18030, "<StyleLibrary>\n\n<a b='规范'/></StyleLibrary>");
    ExpectRefused(gbk, 3, L"内容不符合文件的编码");
    ExpectRefused("<?xml version='1.0' encoding='utf-8'?>" + gbk, 3, L"内容不符合文件的编码");
    ExpectRefused("<?xml version='1.0' encoding='GBK'?>\n<a b='\xFF'/>", 2,
                  L"内容不符合文件的编码");
    ExpectRefused("\xFF", 1, L"内容不符合文件的编码");
    ExpectRefused("\xFF\xFE<\0a"sv, 1, L"内容不符合文件的编码");
}

TEST_F(PropExchange, AnUnknownOrWrongDeclaredEncodingIsTold)
{
    ExpectRefused("<?xml version='1.0' encoding='Big5'?><StyleLibrary/>", 1,
                  L"声明的编码“Big5”不受支持");
    ExpectRefused("<?xml version='1.0' encoding='UTF-16'?><StyleLibrary/>", 1,
                  L"内容不是声明的编码“UTF-16”");
}

TEST_F(PropExchange, ADocumentTypeIsRefused)
{
    ExpectRefused("<!DOCTYPE StyleLibrary>\n<StyleLibrary/>", 1, L"不允许文档类型声明(DOCTYPE)");
    m_folder.Write("secret.txt", "secret");
    ExpectRefused("<?xml version='1.0'?>\n<!DOCTYPE a [<!ENTITY x SYSTEM 'secret.txt'>]>"
                  "<StyleLibrary n='1'>&x;</StyleLibrary>",
                  2, L"不允许文档类型声明(DOCTYPE)");
    std::string laughs = "<!DOCTYPE a [<!ENTITY e0 'ha'>";
    for (int i = 1; i < 30; ++i) {
        const std::string before = "&e" + std::to_string(i - 1) + ";";
        laughs += "<!ENTITY e" + std::to_string(i) + " '";
        for (int k = 0; k < 10; ++k)
            laughs += before;
        laughs += "'>";
    }
    const auto start = std::clock();
    ExpectRefused("\n" + laughs + "]><StyleLibrary>&e29;</StyleLibrary>", 2,
                  L"不允许文档类型声明(DOCTYPE)");
    EXPECT_LT(Seconds(start), kBounded);
}

TEST_F(PropExchange, NestingHasALimit)
{
    const auto nested = [](int depth) {
        std::string text = "<StyleLibrary>";
        for (int i = 1; i < depth; ++i)
            text += "\n<a>";
        for (int i = 1; i < depth; ++i)
            text += "</a>";
        return text + "</StyleLibrary>";
    };
    CXTPPropExchangeXMLNode root(true, kRoot);
    EXPECT_TRUE(root.LoadFromBytes(nested(64), L"a"));
    ExpectRefused(nested(65), 65, L"元素嵌套超过 64 层");
}

TEST_F(PropExchange, WhatLooksLikeNestingButIsNoneDoesNotCount)
{
    std::string content;
    for (int i = 0; i < 100; ++i)
        content += "<a b='/>'/><!-- <a> --><![CDATA[<a>]]><?p <a> ?><c d=\"'>\"></c >";
    Loaded(content);
}

TEST_F(PropExchange, AHugeFileIsRefusedUnread)
{
    const CString path = m_folder.Write("a.hds", "");
    std::filesystem::resize_file(m_folder.Native("a.hds"), std::uintmax_t{1} << 40); // a hole
    const auto start = std::clock();
    CXTPPropExchangeXMLNode root(true, kRoot);
    EXPECT_FALSE(root.LoadFromFile(path.c_str()));
    EXPECT_LT(Seconds(start), kBounded);
    EXPECT_EQ(Told(root), ToUtf8(path) + ": 无法读取: 文件大于 " +
                              std::to_string(LargestWholeFile() >> 20) + " MiB");
}

TEST_F(PropExchange, AFileThatWasWrittenIsReadWhateverItsSize)
{
    const CString path = m_folder.Path(L"large.xml");
    CXTPPropExchangeXMLNode written(false, kRoot);
    CString text(40 << 20, L'x');
    PX_String(&written, L"Note", text);
    ASSERT_TRUE(written.SaveToFile(path.c_str()));
    CXTPPropExchangeXMLNode root(true, kRoot);
    ASSERT_TRUE(root.LoadFromFile(path.c_str())) << Told(root);
    EXPECT_EQ(root.SourceSize(), std::filesystem::file_size(m_folder.Native("large.xml")));
    CString read;
    PX_String(&root, L"Note", read);
    EXPECT_TRUE(read == text);
}

TEST_F(PropExchange, WhatWouldTakeMemoryOutOfProportionIsRefusedBeforeATreeIsMadeOfIt)
{
    const auto tags = [](size_t size) {
        std::string bytes = "<StyleLibrary n='a'>";
        while (bytes.size() < size)
            bytes += "<a/>";
        return bytes + "</StyleLibrary>";
    };
    ExpectName(tags(3 << 20), L"a");
    const long before = PeakMemory();
    ExpectRefused(tags(48 << 20), 0, L"标记过密,读取它需要的内存与文件大小不成比例");
#ifdef __SANITIZE_ADDRESS__
    constexpr int kTimes = 12; // what is freed stays a while, and all has its surroundings
#else
    constexpr int kTimes = 6;
#endif
    EXPECT_LT(PeakMemory() - before, 48 * kTimes);
}

TEST_F(PropExchange, ReturnsAreKeptInTimeThatGrowsWithTheText)
{
    CXTPPropExchangeXMLNode root(false, kRoot);
    CString text(400000, L'\r');
    PX_String(&root, L"Note", text);
    const auto start = std::clock();
    const std::string bytes = root.SaveToBytes();
    EXPECT_LT(Seconds(start), kBounded);
    CXTPPropExchangeXMLNode read(true, kRoot);
    ASSERT_TRUE(read.LoadFromBytes(bytes, L"a"));
    CString back;
    PX_String(&read, L"Note", back);
    EXPECT_TRUE(back == text);
}

TEST_F(PropExchange, AFileFullOfNestingIsRefusedBeforeATreeIsMadeOfIt)
{
    std::string bytes = "<StyleLibrary>";
    while (bytes.size() < 31U << 20)
        bytes += "<a>";
    const long before = PeakMemory();
    const auto start = std::clock();
    ExpectRefused(bytes, 1, L"元素嵌套超过 64 层");
    EXPECT_LT(Seconds(start), kBounded);
    EXPECT_LT(PeakMemory() - before, 300);
}

// ---- encodings that are read

TEST_F(PropExchange, ReadsEachEncoding)
{
    const std::string body = "<StyleLibrary n='规范'/>";
    const auto declared = [&](const char* name) {
        return "<?xml version=\"1.0\" encoding=\""s + name + "\"?>\n" + body;
    };
    ExpectName(body, L"规范");
    ExpectName("\xEF\xBB\xBF" + body, L"规范");
    ExpectName(declared("utf-8"), L"规范");
    for (const char* name : {"GB2312", "gbk", "GB18030"}) {
        ExpectName(Encoded(TextEncoding::Gb18030, declared(name)), L"规范");
        ExpectName("\xEF\xBB\xBF" + declared(name), L"规范"); // the mark tells more than the name
    }
    for (const char* name : {"UTF-16", "UTF-8"}) {
        ExpectName("\xFF\xFE" + Encoded(TextEncoding::Utf16LE, declared(name)), L"规范");
        ExpectName("\xFE\xFF" + Encoded(TextEncoding::Utf16BE, declared(name)), L"规范");
        ExpectName(Encoded(TextEncoding::Utf16LE, declared(name)), L"规范");
        ExpectName(Encoded(TextEncoding::Utf16BE, declared(name)), L"规范");
    }
}

TEST_F(PropExchange, ReadsAnEncodingOnlyFromADeclaration)
{
    ExpectName("<?xml-stylesheet encoding='Big5'?><StyleLibrary n='规范'/>", L"规范");
    ExpectName("<?xml version='1.0'?><StyleLibrary n='规范'/><!-- encoding='Big5' -->", L"规范");
    ExpectName("<?xml\tversion='1.0'\nencoding\n=\n'UTF-8'?><StyleLibrary n='规范'/>", L"规范");
}

// ---- saving

TEST_F(PropExchange, SavesWellFormedIndentedUtf8WithADeclaration)
{
    CXTPPropExchangeXMLNode root(false, kRoot);
    root.GetSection(L"Group[@Name=\"<道路 & \\\"\n\"]/Styles");
    const CString path = m_folder.Path(L"规范.hds");
    EXPECT_TRUE(root.SaveToFile(path.c_str()));
    const std::string bytes = m_folder.Read("规范.hds");
    EXPECT_TRUE(
        bytes.starts_with("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<StyleLibrary>\n  <"));
    EXPECT_EQ(bytes, root.SaveToBytes());
    EXPECT_EQ(Complaint(bytes), "");
    size_t offset = 0;
    EXPECT_TRUE(IsUtf8(bytes, offset));
}

TEST_F(PropExchange, SavesNothingWhereItCannot)
{
    const CXTPPropExchangeXMLNode root(false, kRoot);
    const CString path = m_folder.Path(L"none/a.hds");
    EXPECT_FALSE(root.SaveToFile(path.c_str()));
    EXPECT_EQ(Told(root), ToUtf8(path + L": 无法写入: 不存在"));
}

TEST_F(PropExchange, WhatItDoesNotKnowStaysThroughLoadAndSave)
{
    const std::string before = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                               "<!-- 文件头 -->\n"
                               "<StyleLibrary Version=\"3\">\n"
                               "  <!-- 说明 -->\n"
                               "  <?keep this?>\n"
                               "  <Other a=\"&lt;1\"><![CDATA[<raw>]]></Other>\n"
                               "  <Group Name=\"道路\">\n"
                               "    <Style Name=\"甲\" />\n"
                               "  </Group>\n"
                               "</StyleLibrary>\n"
                               "<!-- 文件尾 -->\n";
    const CString path = m_folder.Write("a.hds", before);
    CXTPPropExchangeXMLNode root(false, kRoot);
    ASSERT_TRUE(root.LoadFromFile(path.c_str()));
    EXPECT_TRUE(root.IsStoring());
    root.GetSection(L"Group[@Name=\"道路\"]/Style[@Name=\"乙\"]");
    ASSERT_TRUE(root.SaveToFile(path.c_str()));
    std::string after = before;
    after.replace(after.find("\"甲\" />"), 8, "\"甲\" />\n    <Style Name=\"乙\" />");
    EXPECT_EQ(m_folder.Read("a.hds"), after);
}

TEST_F(PropExchange, SavedTwiceIsTheSame)
{
    CXTPPropExchangeXMLNode root(false, kRoot);
    root.GetSection(L"A/B");
    const std::string once = root.SaveToBytes();
    EXPECT_EQ(root.SaveToBytes(), once);
    CXTPPropExchangeXMLNode again(false, kRoot);
    ASSERT_TRUE(again.LoadFromBytes(once, L"a"));
    EXPECT_EQ(again.SaveToBytes(), once);
}
