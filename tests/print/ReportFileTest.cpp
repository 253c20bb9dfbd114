#include "print/ReportFile.h"

#include <list>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/Format.h"
#include "tests/print/PdfReading.h"
#include "tests/support/ValidSpecification.h"

using testing::HasSubstr;
using testing::Not;

namespace {

class ReportFileTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (!CanReadPdf()) GTEST_SKIP() << "poppler-utils is not installed";
    }

    CDesignSpecification& Add(const wchar_t* name)
    {
        specifications.emplace_back().SetName(name);
        return specifications.back();
    }
    void Write(const CDesignSpecification* other = nullptr)
    {
        std::vector<const CDesignSpecification*> reported;
        for (const CDesignSpecification& one : specifications)
            reported.push_back(&one);
        ReportOptions options;
        options.comparedWith = other;
        Problems problems;
        ASSERT_TRUE(WriteReport(folder.Path(L"report.pdf"), reported, options, problems));
        EXPECT_TRUE(problems.empty());
        pdf = folder.Read("report.pdf");
        pages = PdfPages(pdf);
    }
    // The lines of all pages that have the text, without white space, each behind the number of its
    // page.
    std::vector<std::pair<int, std::wstring>> Lines(const CString& text) const
    {
        std::vector<std::pair<int, std::wstring>> found;
        for (std::size_t i = 0; i < pages.size(); ++i)
            for (const std::wstring& line : SplitText(pages[i], L"\n"))
                if (const std::wstring dense = WithoutSpace(line);
                    dense.find(text) != std::wstring::npos)
                    found.emplace_back(static_cast<int>(i) + 1, dense);
        return found;
    }

    TemporaryFolder folder;
    std::list<CDesignSpecification> specifications;
    std::string pdf;
    std::vector<std::wstring> pages;
};

} // namespace

TEST_F(ReportFileTest, EachPageTellsItsNumber)
{
    Add(L"公路二级");
    Add(L"城市道路");
    Write();
    ASSERT_GT(pages.size(), 4U);
    for (std::size_t i = 0; i < pages.size(); ++i)
        EXPECT_NE(WithoutSpace(pages[i]).find(Format(L"第%d页共%d页", i + 1, pages.size())),
                  std::wstring::npos)
            << i + 1;
}

TEST_F(ReportFileTest, TheNumbersOfTheContentsAreRight)
{
    for (int i = 1; i <= 6; ++i)
        Add(Format(L"规范 %d", i).c_str());
    Write();
    std::size_t chapter = 0;
    for (const CriterionInfo& criterion : Criteria()) {
        const CString label = criterion.label;
        int entries = 0, last = 0;
        for (const auto& [page, line] : Lines(label)) {
            if (line == label ||
                line.find_first_not_of(L"0123456789", label.size()) != CString::npos)
                continue; // the title of a page, or that of another one
            const int number = std::stoi(line.substr(label.size()));
            EXPECT_GT(number, last);
            last = number;
            ++entries;
            const auto titles = Lines(label);
            EXPECT_TRUE(std::count(titles.begin(), titles.end(), std::pair(number, label)))
                << ToUtf8(label) << " is not on " << number;
        }
        EXPECT_EQ(entries, 6) << ToUtf8(label);
        chapter += static_cast<std::size_t>(entries);
    }
    EXPECT_EQ(chapter, 6 * Criteria().size());
}

// A table of 200 lines, and one of 60 speeds beside each other.
TEST_F(ReportFileTest, NoLineOfATableIsCutAndCaptionsStandAgain)
{
    CDesignSpecification& one = Add(L"长表");
    GrowArray<GradientRow>& rows = one.LonGradMaxLen.rows;
    rows.RemoveAll();
    for (int i = 0; i < 200; ++i) {
        GradientRow row;
        row.Grad = 3 + i / 100.0;
        row.lengths = {{120, 10000 + i}, {80, 20000 + i}, {20, 30000 + i}};
        rows.Add(row);
    }
    Write();
    std::set<int> sheets;
    for (int i = 0; i < 200; ++i) {
        const auto lines = Lines(Format(L"%d%d%d", 10000 + i, 20000 + i, 30000 + i));
        ASSERT_EQ(lines.size(), 1U) << i;
        sheets.insert(lines.front().first);
    }
    EXPECT_GE(sheets.size(), 4U);
    std::set<int> captions;
    for (const auto& [page, line] : Lines(L"1208020"))
        captions.insert(page);
    EXPECT_EQ(captions, sheets);
}

TEST_F(ReportFileTest, AWideTableGoesOnBelowWithItsCaptions)
{
    CDesignSpecification& one = Add(L"宽表");
    one.LonGradMinLen.MinLens.RemoveAll();
    for (int speed = 1; speed <= 120; ++speed)
        one.LonGradMinLen.MinLens.Add({speed, 5000 + speed});
    Write();
    std::wstring all;
    const auto parts = Lines(L"最小坡长(m)");
    EXPECT_GE(parts.size(), 6U);
    for (const auto& [page, line] : parts)
        all += line.substr(line.find(L')') + 1);
    std::wstring wanted;
    for (int speed = 120; speed >= 1; --speed)
        wanted += std::to_wstring(5000 + speed);
    EXPECT_EQ(all, wanted);
}

TEST_F(ReportFileTest, LongTextsAreThereWhole)
{
    CString name, source;
    for (int i = 0; i < 60; ++i)
        name += Format(L"名%d", 100 + i);
    for (int i = 0; i < 4000; ++i)
        source += Format(L"条%d", 10000 + i);
    CDesignSpecification& one = Add(name.c_str());
    one.LonGrad.Criterion = source;
    Write();
    // A page begins with the name, as far as it fits there, and ends with its number.
    CString all;
    for (const CString& page : pages) {
        const auto lines = SplitText(page, L"\n");
        for (std::size_t i = 1; i + 1 < lines.size(); ++i)
            all += WithoutSpace(lines[i]);
    }
    EXPECT_NE(all.find(name), CString::npos);
    for (int i = 0; i < 4000; ++i)
        EXPECT_NE(all.find(Format(L"条%d", 10000 + i)), CString::npos) << i;
}

TEST_F(ReportFileTest, MarksWhatDiffers)
{
    CDesignSpecification& one = Add(L"甲");
    CDesignSpecification other = one;
    other.SetName(L"国标");
    one.LonGrad.MinGrad = 0.5;
    Write(&other);
    EXPECT_FALSE(Lines(L"与“国标”比较").empty());
    EXPECT_EQ(Lines(L"0.5[0.3]").size(), 1U);
    EXPECT_EQ(Lines(L"纵坡坡度1处不同").size(), 1U);
}

TEST_F(ReportFileTest, HasItsFontsWithItself)
{
    Add(L"甲");
    Write();
    const auto lines = SplitText(ToWide(AskPdf(pdf, "pdffonts", {})), L"\n");
    ASSERT_GT(lines.size(), 2U);
    for (std::size_t i = 2; i < lines.size(); ++i) {
        const auto words = SplitText(lines[i], L" ");
        EXPECT_EQ(words[words.size() - 5], L"yes") << ToUtf8(lines[i]); // emb
        EXPECT_EQ(words[words.size() - 3], L"yes") << ToUtf8(lines[i]); // uni: text can be read
    }
}

// Whatever the editor's pages take: every value is there to be read.
TEST_F(ReportFileTest, HasEveryValue)
{
    for (unsigned seed = 1; seed <= 3; ++seed) {
        specifications.clear();
        specifications.push_back(ValidSpecification(seed).Make(L"任意"));
        Write();
        std::wstring all;
        for (const std::wstring& page : pages)
            all += WithoutSpace(page);
        for (const ComparedPage& page : ComparePages(specifications.front(), nullptr)) {
            EXPECT_NE(all.find(page.criterion->label), std::wstring::npos)
                << ToUtf8(page.criterion->label);
            for (const ComparedTable& table : page.tables)
                for (const ComparedTable::Line& line : table.lines)
                    for (const ComparedValue& cell : line.cells)
                        EXPECT_NE(all.find(WithoutSpace(CellText(cell))), std::wstring::npos)
                            << seed << " " << ToUtf8(CellText(cell));
        }
    }
}

TEST_F(ReportFileTest, EndingsAreThoseOfTheTwoKinds)
{
    const CDesignSpecification one;
    Problems problems;
    EXPECT_TRUE(WriteReport(folder.Path(L"a.HTML"), {&one}, {}, problems));
    EXPECT_THAT(folder.Read("a.HTML"), HasSubstr("<!DOCTYPE html>"));
    EXPECT_TRUE(WriteReport(folder.Path(L"a.Pdf"), {&one}, {}, problems));
    EXPECT_EQ(folder.Read("a.Pdf").substr(0, 5), "%PDF-");
    EXPECT_TRUE(problems.empty());
    EXPECT_FALSE(WriteReport(folder.Path(L"a.doc"), {&one}, {}, problems));
    ASSERT_EQ(problems.size(), 1U);
    EXPECT_THAT(ToUtf8(problems[0].Text()), HasSubstr("扩展名不是 .pdf 或 .html"));
    EXPECT_FALSE(folder.Has("a.doc"));
}

TEST_F(ReportFileTest, WhatCannotBeWrittenLeavesNothing)
{
    const CDesignSpecification one;
    Problems problems;
    std::filesystem::create_directory(folder.Native("is.pdf"));
    EXPECT_FALSE(WriteReport(folder.Path(L"is.pdf"), {&one}, {}, problems));
    EXPECT_FALSE(WriteReport(folder.Path(L"没有/a.pdf"), {&one}, {}, problems));
    EXPECT_EQ(problems.size(), 2U);
    EXPECT_EQ(folder.Count(), 1);
}
