#include "pages/framework/PageCallback.h"

#include <gtest/gtest.h>

#include "pages/MinLonGradLenDialog.h"
#include "tests/pages/PageTest.h"

namespace {

// A page that has nothing of its own.
class PageCallback : public PageTest<CMinLonGradLenDialog> {
protected:
    PageCallback()
    {
        Specification().LonGradMinLen.MinLens = {{80, 290}};
        Add(Make(L"乙")).LonGradMinLen.MinLens = {{60, 170}};
    }
    static SpeedToIntValues& StoredIn(const wchar_t* name)
    {
        return Library().Item(name)->LonGradMinLen.MinLens;
    }
    CXTPReportControl* TheGrid() { return Grid(&m_page, CDSPage::kGrid); }
    CDSCallback& Callback() { return m_page.Callback(); }
};

} // namespace

TEST_F(PageCallback, LoadFillsThePage)
{
    Show();
    Callback().Load(L"甲");
    EXPECT_EQ(Row(TheGrid(), 0), "290");
    Callback().Load(L"乙");
    EXPECT_EQ(Row(TheGrid(), 0), "170");
}

TEST_F(PageCallback, LoadOfAnUnknownNameLeavesThePage)
{
    Show();
    Callback().Load(L"甲");
    Callback().Load(L"丙");
    EXPECT_EQ(Row(TheGrid(), 0), "290");
    EXPECT_FALSE(Save());
    EXPECT_EQ(StoredIn(L"甲"), (SpeedToIntValues{{80, 290}}));
}

TEST_F(PageCallback, SaveWritesIntoTheSpecificationThatWasLoaded)
{
    Show();
    Callback().Load(L"甲");
    EditCell(TheGrid(), 0, 1, L"300");
    EXPECT_TRUE(Save());
    EXPECT_EQ(StoredIn(L"甲"), (SpeedToIntValues{{80, 300}}));
    EXPECT_EQ(StoredIn(L"乙"), (SpeedToIntValues{{60, 170}}));
}

TEST_F(PageCallback, SaveWithoutASpecificationOfTheNameFails)
{
    EXPECT_FALSE(Save()); // nothing is loaded yet
    Callback().Load(L"甲");
    Callback().Rename(L"丙");
    EXPECT_FALSE(Save());
    EXPECT_FALSE(Callback().RenameAndSave(L"丁"));
}

TEST_F(PageCallback, RenameLeavesThePageAndSavesUnderTheNewName)
{
    Show();
    Callback().Load(L"甲");
    Callback().Rename(L"乙");
    EXPECT_EQ(Row(TheGrid(), 0), "290");
    EXPECT_EQ(StoredIn(L"乙"), (SpeedToIntValues{{60, 170}}));
    EXPECT_TRUE(Save());
    EXPECT_EQ(StoredIn(L"乙"), (SpeedToIntValues{{80, 290}}));
}

TEST_F(PageCallback, RenameAndSaveKeepsTheNewName)
{
    Show();
    Callback().Load(L"甲");
    EXPECT_TRUE(Callback().RenameAndSave(L"乙"));
    EXPECT_EQ(StoredIn(L"乙"), (SpeedToIntValues{{80, 290}}));
    EditCell(TheGrid(), 0, 1, L"5");
    EXPECT_TRUE(Save());
    EXPECT_EQ(StoredIn(L"乙"), (SpeedToIntValues{{80, 5}}));
    EXPECT_EQ(StoredIn(L"甲"), (SpeedToIntValues{{80, 290}}));
}

TEST_F(PageCallback, ValidateTakesWhatIsBeingTypedAndStoresNothing)
{
    Show();
    Callback().Load(L"甲");
    ClickCell(TheGrid(), 0, 1);
    PressKey(TheGrid(), Qt::Key_A, Qt::ControlModifier);
    Type(TheGrid(), L"45");
    EXPECT_EQ(Fault(), "");
    EXPECT_EQ(Row(TheGrid(), 0), "45");
    EXPECT_EQ(StoredIn(L"甲"), (SpeedToIntValues{{80, 290}}));
}

TEST_F(PageCallback, ThePageIsLockedInViewModeAlone)
{
    Show();
    EXPECT_TRUE(TheGrid()->IsAllowEdit());
    EXPECT_TRUE(IsShown(CDSPage::kHint));
    m_viewMode = true;
    Callback().OnShow();
    EXPECT_FALSE(TheGrid()->IsAllowEdit());
    EXPECT_FALSE(IsShown(CDSPage::kHint));
}
