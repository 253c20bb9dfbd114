// The commands of the style manager for selected specifications, and the files that come of them.
#include "app/WriteSheetsDialog.h"

#include <gtest/gtest.h>

#include "app/DSEditor.h"
#include "base/File.h"
#include "sheets/SpreadsheetReading.h"
#include "tests/app/AppTest.h"

namespace {

using D = CWriteSheetsDialog;

class WriteSheetsDialog : public AppTest {
protected:
    WriteSheetsDialog()
    {
        AddSaved(Make(L"甲", 21));
        AddSaved(Make(L"乙", 22));
    }

    static CString Run(const CStringArray& names)
    {
        CArray<GUID> ids;
        for (const CString& name : names)
            ids.push_back(Library().Item(name.c_str())->ID());
        CDSEditor editor;
        return editor.RunOwn(editor.OwnCommands()[3].id, ids);
    }
    static ModalAction Choose(int radio)
    {
        return [radio](QWidget* window) {
            Click(window, radio);
            Click(window, IDOK);
        };
    }
    CString PathOf(const char* file) const { return m_folder.Path(ToWide(file)); }
    // The longest straight that a workbook gives; -1 when it cannot be read.
    double Written(const char* file) const
    {
        auto reading = SpreadsheetReading::OfFile(PathOf(file));
        CDesignSpecification read;
        reading.ApplyTo(read);
        return HasError(reading.Problems()) ? -1 : read.BeelineLen.MaxLen;
    }

    const TemporaryFolder m_folder;
};

} // namespace

TEST_F(WriteSheetsDialog, ASingleOneGoesIntoTheFileThatIsNamed)
{
    const ExpectModal asking(ChooseFile(PathOf("一个")));
    EXPECT_EQ(Run({L"甲"}), L"已导出: " + PathOf("一个.xlsx"));
    EXPECT_EQ(Written("一个.xlsx"), 21);
}

TEST_F(WriteSheetsDialog, SeveralGoIntoAFolderEachUnderItsName)
{
    const ExpectModal choice(Choose(D::kEach));
    const ExpectModal asking(ChooseFile(m_folder.Path()));
    EXPECT_EQ(Run({L"甲", L"乙"}), L"已导出: " + m_folder.Path());
    EXPECT_EQ(Written("甲.xlsx"), 21);
    EXPECT_EQ(Written("乙.xlsx"), 22);
}

TEST_F(WriteSheetsDialog, SeveralTogetherStandInOneWorkbookThatIsToBeLookedAt)
{
    const ExpectModal choice(Choose(D::kTogether));
    const ExpectModal asking(ChooseFile(PathOf("对照.xlsx")));
    EXPECT_EQ(Run({L"甲", L"乙"}), L"已导出: " + PathOf("对照.xlsx"));
    const auto reading = SpreadsheetReading::OfFile(PathOf("对照.xlsx"));
    ASSERT_EQ(reading.Problems().size(), 1U);
    EXPECT_NE(reading.Problems()[0].text.find(L"对照"), CString::npos);
}

TEST_F(WriteSheetsDialog, FilesThatAreThereAreReplacedAfterAQuestion)
{
    m_folder.Write("乙.xlsx", "mine");
    const auto write = [&](int answer) {
        const ExpectModal choice(Choose(D::kEach));
        const ExpectModal asking(ChooseFile(m_folder.Path()));
        const ExpectMessage box(L"文件夹中已有其中 1 个文件, 要覆盖吗?\n乙.xlsx", L"提示",
                                MB_ICONQUESTION, answer);
        return Run({L"甲", L"乙"});
    };
    EXPECT_EQ(write(IDNO), L"");
    EXPECT_EQ(m_folder.Read("乙.xlsx"), "mine");
    EXPECT_FALSE(m_folder.Has("甲.xlsx"));
    EXPECT_EQ(write(IDYES), L"已导出: " + m_folder.Path());
    EXPECT_EQ(Written("乙.xlsx"), 22);
}

TEST_F(WriteSheetsDialog, EscInAnyWindowWritesNothing)
{
    const auto esc = [](QWidget* window) { PressKey(window, Qt::Key_Escape); };
    {
        const ExpectModal choice(esc);
        EXPECT_EQ(Run({L"甲", L"乙"}), L"");
    }
    const ExpectModal choice(Choose(D::kEach));
    const ExpectModal asking(esc);
    EXPECT_EQ(Run({L"甲", L"乙"}), L"");
    EXPECT_TRUE(std::filesystem::is_empty(m_folder.Native()));
}

TEST_F(WriteSheetsDialog, WhatCannotBeWrittenIsTold)
{
    const ExpectModal asking(ChooseFile(PathOf("没有/一个.xlsx")));
    const ExpectModal failed([this](QWidget* window) {
        const CString text = ReadMessage(window).text;
        EXPECT_TRUE(text.starts_with(L"没有全部导出到: " + PathOf("没有/一个.xlsx")))
            << ToUtf8(text);
        PressKey(window, Qt::Key_Return);
    });
    EXPECT_EQ(Run({L"甲"}), L"");
}
