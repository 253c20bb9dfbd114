// Files that nobody means well with: each is refused, and soon.
#include <ctime>

#include <sys/resource.h>

#include "tests/sheets/SheetTest.h"
#include "tests/support/Process.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class HostileFile : public SheetTest {
protected:
    // Makes files with the archive module of Python, which asks no questions.
    void Make(const std::string& script) const
    {
        m_folder.Write("make.py",
                       "import zipfile\n"
                       "def book(name, parts):\n"
                       "    with zipfile.ZipFile(name, 'w', zipfile.ZIP_DEFLATED) as z:\n"
                       "        for part, text in parts:\n"
                       "            z.writestr(part, text)\n" +
                           script);
        const auto made = RunProcess({"/usr/bin/python3", "make.py"}, m_folder.Native());
        ASSERT_EQ(made.status, 0) << made.err;
    }
    // What is wrong with a file that takes no longer than others.
    std::vector<std::string> WrongSoon(const std::string& file) const
    {
        const std::clock_t start = std::clock();
        const auto wrong = Wrong(m_folder.Read(file));
        EXPECT_LT(static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC, kSoon) << file;
        return wrong;
    }
    static constexpr double kSoon = 20; // seconds of the processor, with sanitizers too
};

TEST_F(HostileFile, IsRefusedWhereverItEnds)
{
    CDesignSpecification one;
    Write("a.xlsx", {&one});
    const std::string whole = m_folder.Read("a.xlsx");
    for (std::size_t size = 0; size < whole.size(); size += 1 + whole.size() / 97)
        EXPECT_FALSE(Wrong(whole.substr(0, size)).empty()) << size;
}

TEST_F(HostileFile, IsReadOrRefusedWithAnyByteChanged)
{
    CDesignSpecification one;
    Write("a.xlsx", {&one});
    std::string bytes = m_folder.Read("a.xlsx");
    int refused = 0;
    for (std::size_t at = 0; at < bytes.size(); at += 1 + bytes.size() / 211) {
        const char before = std::exchange(bytes[at], static_cast<char>(~bytes[at]));
        CDesignSpecification read;
        SpreadsheetReading reading(bytes, L"a");
        reading.ApplyTo(read);
        if (HasError(reading.Problems())) ++refused;
        bytes[at] = before;
    }
    EXPECT_GT(refused, 100) << "what is compressed has a checksum";
}

TEST_F(HostileFile, TakesNoMoreThanIsInProportion)
{
    Make(R"(
sheet = '<worksheet><sheetData>%s</sheetData></worksheet>'
head = [('xl/workbook.xml', '<workbook><sheets><sheet name="a" id="1"/></sheets></workbook>'),
        ('xl/_rels/workbook.xml.rels',
         '<Relationships><Relationship Id="1" Target="worksheets/1.xml"/></Relationships>')]
book('big.xlsx', head + [('xl/worksheets/1.xml', sheet % ('<row/>' * 20000000))])
book('cells.xlsx', head + [('xl/worksheets/1.xml', sheet % (('<row>' + '<c><v>1</v></c>' * 100 + '</row>') * 2200))])
book('strings.xlsx', head + [('xl/sharedStrings.xml', '<sst>' + '<si><t>x</t></si>' * 240000 + '</sst>'),
     ('xl/worksheets/1.xml', sheet % '')])
table = '<d><body><spreadsheet><table name="a">%s</table></spreadsheet></body></d>'
cell = '<table-cell value-type="float" value="1" number-columns-repeated="16384"/>'
book('repeated.ods', [('content.xml', table % ('<table-row number-rows-repeated="1048576">' + cell + '</table-row>'))])
book('empty.ods', [('content.xml', table % ('<table-row number-rows-repeated="1048576">' +
     '<table-cell number-columns-repeated="16384"/></table-row>' * 1) * 1)])
)");
    for (const char* file : {"big.xlsx", "cells.xlsx", "strings.xlsx", "repeated.ods"}) {
        const auto wrong = WrongSoon(file);
        ASSERT_EQ(wrong.size(), 1U) << file;
        EXPECT_TRUE(wrong[0].find("不相称") != std::string::npos ||
                    wrong[0].find("不是完整的") != std::string::npos)
            << file << ": " << wrong[0];
    }
    EXPECT_THAT(WrongSoon("empty.ods"), ElementsAre(HasSubstr("没有认出任何一页")));
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    RecordProperty("peak memory, MiB", static_cast<int>(usage.ru_maxrss / 1024));
#if !defined(__SANITIZE_ADDRESS__)
    EXPECT_LT(usage.ru_maxrss / 1024, 1024);
#endif
}

TEST_F(HostileFile, IsRefusedForWrongParts)
{
    Make(R"(
sheets = '<workbook><sheets><sheet name="a" id="1"/></sheets></workbook>'
rels = '<Relationships><Relationship Id="1" Target="%s"/></Relationships>'
def parts(target, sheet):
    return [('xl/workbook.xml', sheets), ('xl/_rels/workbook.xml.rels', rels % target), ('xl/worksheets/1.xml', sheet)]
book('none.xlsx', [])
book('others.xlsx', [('../../etc/passwd', 'x'), ('xl/', ''), ('a' * 60000, 'x')])
book('away.xlsx', parts('../../../etc/passwd', '<worksheet/>'))
book('itself.xlsx', parts('workbook.xml', '<worksheet/>'))
book('entities.xlsx', parts('worksheets/1.xml', '<!DOCTYPE a [<!ENTITY b "x">]><worksheet>&b;</worksheet>'))
book('deep.xlsx', parts('worksheets/1.xml', '<a>' * 100000))
book('noxml.xlsx', parts('worksheets/1.xml', '\xff\x00not'))
book('far.xlsx', parts('worksheets/1.xml', '<worksheet><sheetData><row r="99999999999"><c r="ZZZZZZZ99999999"><v>1</v></c>'
     '<c r="A1" t="s"><v>-7</v></c><c r="B1" t="s" s="99999999"><v>99999</v></c></row></sheetData>'
     '<mergeCells><mergeCell ref="A1:"/><mergeCell ref="Z9:A1"/></mergeCells></worksheet>'))
import os
os.system('head -c 5000 /dev/zero > zero.xlsx; printf "PK\\003\\004" > pk.xlsx')
)");
    for (const char* file :
         {"none.xlsx", "others.xlsx", "away.xlsx", "itself.xlsx", "entities.xlsx", "deep.xlsx",
          "noxml.xlsx", "far.xlsx", "zero.xlsx", "pk.xlsx"})
        EXPECT_FALSE(WrongSoon(file).empty()) << file;
    EXPECT_THAT(Wrong(m_folder.Read("entities.xlsx")),
                ElementsAre(HasSubstr("xl/worksheets/1.xml: ")));
    EXPECT_THAT(Wrong("\xD0\xCF\x11\xE0" + std::string(600, 'x')),
                ElementsAre(HasSubstr("请另存为 .xlsx")));
    EXPECT_THAT(Wrong(std::string("a\0b", 3)), ElementsAre(HasSubstr("不是电子表格")));
}

TEST_F(HostileFile, IsReadSoonHoweverManyRowsItHas)
{
    std::string text = "最大超高 6%\n";
    for (int i = 0; i < 60000; ++i)
        text += "超高 6%,\"" + std::to_string(i) + "\n";
    m_folder.Write("a.csv", text);
    WrongSoon("a.csv");
    m_folder.Write("b.csv", "加宽\n100~200" + std::string(100000, ',') + "\n");
    WrongSoon("b.csv");
}

} // namespace
