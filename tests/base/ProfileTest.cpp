#include "base/Profile.h"

#include <gtest/gtest.h>

#include "base/Encoding.h"
#include "base/File.h"
#include "base/Text.h"
#include "tests/support/ProblemList.h"
#include "tests/support/TemporaryFolder.h"

using namespace designspec;

using namespace std::string_view_literals;

namespace {

class Profile : public testing::Test {
protected:
    CString Path() const { return m_folder.Path(L"setting.ini"); }
    CString Has(std::string_view bytes) { return m_folder.Write("setting.ini", bytes); }
    CString Get(const wchar_t* section = L"设置", const wchar_t* key = L"默认样式")
    {
        return GetPrivateProfileString(section, key, L"(missing)", Path(), m_problems);
    }
    bool Set(const wchar_t* value, const wchar_t* section = L"设置",
             const wchar_t* key = L"默认样式")
    {
        return WritePrivateProfileString(section, key, value, Path(), m_problems);
    }
    std::string Bytes() { return m_folder.Read("setting.ini"); }

    // Sets a value in a file of `before` and expects the file to hold `after` then.
    void ExpectEdit(std::string_view before, const wchar_t* value, std::string_view after)
    {
        Has(before);
        EXPECT_TRUE(Set(value)) << before;
        EXPECT_EQ(Bytes(), after) << before;
        EXPECT_EQ(Get(), value) << before;
        EXPECT_EQ(ToUtf8(m_problems.Text()), "");
    }

    TemporaryFolder m_folder;
    ProblemList m_problems;
};

std::string Encoded(std::string_view utf8, TextEncoding encoding, std::string_view mark)
{
    std::string bytes;
    EXPECT_TRUE(EncodeText(utf8, encoding, bytes));
    return std::string(mark) + bytes;
}

} // namespace

TEST_F(Profile, ANewFileIsUtf16WithAByteOrderMark)
{
    EXPECT_EQ(Get(), L"(missing)");
    EXPECT_TRUE(Set(L"A", L"设", L"k"));
    EXPECT_EQ(Bytes(), "\xFF\xFE[\0\xBE\x8B]\0\r\0\n\0k\0=\0A\0\r\0\n\0"sv);
    EXPECT_EQ(Get(L"设", L"k"), L"A");
    EXPECT_EQ(m_folder.Count(), 1);
    EXPECT_EQ(m_problems.Text(), L"");
}

TEST_F(Profile, AnEmptyFileIsAsGoodAsNew)
{
    m_folder.Write("setting.ini", "");
    EXPECT_EQ(Get(), L"(missing)");
    EXPECT_TRUE(Set(L"A", L"设", L"k"));
    EXPECT_EQ(Bytes(), "\xFF\xFE[\0\xBE\x8B]\0\r\0\n\0k\0=\0A\0\r\0\n\0"sv);
    EXPECT_EQ(m_problems.Text(), L"");
}

TEST_F(Profile, KeepsEncodingKeysCommentsBlankLinesAndStrayLines)
{
    const std::string before =
        "; 注释\r\n\r\nstray line\r\n[设置]\r\n# 另一个\r\n  其他 = 1 ; x\r\n"
        "默认样式=旧\r\nno key here\r\n\r\n[另]\r\n默认样式=别\r\n";
    std::string after = before;
    after.replace(after.find("旧"), 3, "新的");
    const std::pair<TextEncoding, std::string_view> encodings[] = {
        {TextEncoding::Utf8, ""sv},
        {TextEncoding::Utf8, "\xEF\xBB\xBF"sv},
        {TextEncoding::Utf16LE, "\xFF\xFE"sv},
        {TextEncoding::Utf16BE, "\xFE\xFF"sv},
        {TextEncoding::Gb18030, ""sv},
    };
    for (const auto& [encoding, mark] : encodings)
        ExpectEdit(Encoded(before, encoding, mark), L"新的", Encoded(after, encoding, mark));
}

TEST_F(Profile, KeepsEveryLineEnd)
{
    ExpectEdit("[设置]\n默认样式=a\n其他=1\r\nx=2\r", L"b", "[设置]\n默认样式=b\n其他=1\r\nx=2\r");
    ExpectEdit("[设置]\n默认样式=a", L"b", "[设置]\n默认样式=b");
}

TEST_F(Profile, NewLinesEndAsTheFirstLineOfTheFileDoes)
{
    ExpectEdit("[设置]\n其他=1\n", L"b", "[设置]\n其他=1\n默认样式=b\n");
    ExpectEdit("其他=1\n", L"b", "其他=1\n[设置]\n默认样式=b\n");
    ExpectEdit("[设置]\r\n其他=1\r\n", L"b", "[设置]\r\n其他=1\r\n默认样式=b\r\n");
}

TEST_F(Profile, AKeyThatIsMissingGoesBehindTheLastTextOfItsSection)
{
    ExpectEdit("[设置]\r\n其他=1\r\n\r\n\r\n[另]\r\n默认样式=x\r\n", L"b",
               "[设置]\r\n其他=1\r\n默认样式=b\r\n\r\n\r\n[另]\r\n默认样式=x\r\n");
    ExpectEdit("[设置]\r\n[另]\r\n", L"b", "[设置]\r\n默认样式=b\r\n[另]\r\n");
}

TEST_F(Profile, ASectionThatIsMissingGoesToTheEnd)
{
    ExpectEdit("[另]\r\n默认样式=x\r\n", L"b", "[另]\r\n默认样式=x\r\n[设置]\r\n默认样式=b\r\n");
}

TEST_F(Profile, ALastLineWithoutALineEndGetsOneBeforeANewLine)
{
    ExpectEdit("[设置]\r\n其他=1", L"b", "[设置]\r\n其他=1\r\n默认样式=b\r\n");
    ExpectEdit("[另]\n其他=1", L"b", "[另]\n其他=1\n[设置]\n默认样式=b\n");
    ExpectEdit("[设置]", L"b", "[设置]\r\n默认样式=b\r\n");
}

TEST_F(Profile, SectionsAndKeysAreFoundIgnoringCaseAndBlanks)
{
    Has("[ Settings ]\r\n  Default Style = A \r\n");
    EXPECT_EQ(Get(L"SETTINGS", L"default style"), L"A");
    EXPECT_TRUE(Set(L"B", L"settings", L"DEFAULT STYLE"));
    EXPECT_EQ(Bytes(), "[ Settings ]\r\n  Default Style =B\r\n");
}

TEST_F(Profile, OnePairOfQuotesIsTakenOff)
{
    Has("[设置]\na=\" x \"\nb='y'\nc=\"\"z\"\"\nd=\"\ne='x\"\nf=\"\"\n");
    EXPECT_EQ(Get(L"设置", L"a"), L" x ");
    EXPECT_EQ(Get(L"设置", L"b"), L"y");
    EXPECT_EQ(Get(L"设置", L"c"), L"\"z\"");
    EXPECT_EQ(Get(L"设置", L"d"), L"\"");
    EXPECT_EQ(Get(L"设置", L"e"), L"'x\"");
    EXPECT_EQ(Get(L"设置", L"f"), L"");
}

TEST_F(Profile, AValueMayHoldAnEqualsSign)
{
    Has("[设置]\n默认样式=a=b=\n");
    EXPECT_EQ(Get(), L"a=b=");
    EXPECT_TRUE(Set(L"c=d"));
    EXPECT_EQ(Bytes(), "[设置]\n默认样式=c=d\n");
}

TEST_F(Profile, AnEmptyValueIsNotAMissingOne)
{
    Has("[设置]\n默认样式=\n其他\n");
    EXPECT_EQ(Get(), L"");
    EXPECT_EQ(Get(L"设置", L"其他"), L"(missing)");
    EXPECT_EQ(Get(L"无", L"其他"), L"(missing)");
}

TEST_F(Profile, CommentsAndOtherSectionsAreNotRead)
{
    Has("默认样式=0\n[另]\n默认样式=1\n[设置]\n;默认样式=2\n#默认样式=3\n默认样式=4\n默认样式=5\n");
    EXPECT_EQ(Get(), L"4");
}

TEST_F(Profile, ASectionThatComesTwiceIsItsFirst)
{
    Has("[设置]\n甲=1\n[设置]\n默认样式=2\n");
    EXPECT_EQ(Get(), L"(missing)");
}

TEST_F(Profile, AnOpenBracketIsASectionToTheEndOfItsLine)
{
    Has("[\n[]\n[设置\n默认样式=1\n");
    EXPECT_EQ(Get(), L"1");
}

TEST_F(Profile, AValueThatIsThereAlreadyIsNotWritten)
{
    Has("[设置]\n默认样式 = \"A\"\n");
    const CString file = m_folder.Path(L"setting.ini");
    const CString same = m_folder.Path(L"same"); // until one of them is written
    ASSERT_TRUE(LinkFile(file, same));
    EXPECT_TRUE(Set(L"A"));
    EXPECT_EQ(IsSameFile(file, same, m_problems), true);
    EXPECT_TRUE(Set(L"B"));
    EXPECT_EQ(IsSameFile(file, same, m_problems), false);
}

TEST_F(Profile, AnUnreadableEncodingIsToldWithItsLineAndTheFileStays)
{
    for (const std::string_view bytes :
         {"[a]\nb=1\n\xFF\xFF\n"sv, "\xEF\xBB\xBF[a]\nb=1\n\xB9\xE6\n"sv,
          "\xFF\xFE[\0a\0\n\0b\0\n\0\x34\xD8"sv, "[a]\nb=1\nc\0d=1\n"sv}) {
        Has(bytes);
        EXPECT_EQ(Get(), L"(missing)");
        EXPECT_EQ(ToUtf8(m_problems.Text()), ToUtf8(Path() + L":3: 设置文件的编码无法识别"));
        m_problems.Clear();
        EXPECT_FALSE(Set(L"A"));
        EXPECT_EQ(ToUtf8(m_problems.Text()), ToUtf8(Path() + L":3: 设置文件的编码无法识别"));
        m_problems.Clear();
        EXPECT_EQ(Bytes(), bytes);
    }
}

TEST_F(Profile, Utf16WithoutAMarkIsNotTakenForAnotherText)
{
    const std::string bytes = Encoded("[a]\nb=1\n", TextEncoding::Utf16LE, "");
    Has(bytes);
    EXPECT_FALSE(Set(L"A"));
    EXPECT_EQ(ToUtf8(m_problems.Text()), ToUtf8(Path() + L":1: 设置文件的编码无法识别"));
    EXPECT_EQ(Bytes(), bytes);
}

TEST_F(Profile, AValueThatWouldBreakItsLineIsRefused)
{
    const std::string before = "[设置]\n默认样式=a\n";
    Has(before);
    for (const wchar_t* value : {L"a\nb=1", L"a\r[x]"}) {
        EXPECT_FALSE(Set(value));
        EXPECT_EQ(ToUtf8(m_problems.Text()), ToUtf8(Path() + L": 设置的内容不能含有换行"));
        m_problems.Clear();
        EXPECT_EQ(Bytes(), before);
    }
}

TEST_F(Profile, ATextThatCannotBeEncodedIsRefused)
{
    Has("[设置]\n默认样式=a\n");
    EXPECT_FALSE(Set(L"a\xDCFF")); // stands for a byte that is no text
    EXPECT_EQ(ToUtf8(m_problems.Text()), ToUtf8(Path() + L": 设置文件的编码无法表示新的内容"));
    EXPECT_EQ(Bytes(), "[设置]\n默认样式=a\n");
}

TEST_F(Profile, AFolderOrAHugeFileOfThatNameIsTold)
{
    std::filesystem::create_directory(m_folder.Native("setting.ini"));
    EXPECT_EQ(Get(), L"(missing)");
    EXPECT_EQ(ToUtf8(m_problems.Text()), ToUtf8(Path() + L": 无法读取: 是文件夹,不是文件"));
    EXPECT_FALSE(Set(L"A"));
    std::filesystem::remove(m_folder.Native("setting.ini"));
    m_problems.Clear();
    Has(std::string((1 << 20) + 1, 'x'));
    EXPECT_FALSE(Set(L"A"));
    EXPECT_EQ(ToUtf8(m_problems.Text()), ToUtf8(Path() + L": 无法读取: 文件大于 1 MiB"));
}

TEST_F(Profile, AFolderThatIsMissingIsTold)
{
    const CString path = m_folder.Path(L"none/setting.ini");
    EXPECT_FALSE(WritePrivateProfileString(L"a", L"b", L"c", path, m_problems));
    EXPECT_EQ(ToUtf8(m_problems.Text()), ToUtf8(path + L": 无法写入: 不存在"));
}
