#include "platform/xtp/report/ReportNotices.h"

#include <memory>

#include <QTest>
#include <QWindow>

#include "tests/platform/xtp/report/TestGrid.h"

namespace {

// Tells what it does not like, and empties itself.
class CStrictItem : public CTestNumberItem {
public:
    void OnEditChanged(CXTPReportControl* control, const CString& newText) override
    {
        CTestNumberItem::OnEditChanged(control, newText);
        if (empty && !newText.empty()) control->Tell(L"不行!");
    }
};

class ReportNoticesTest : public TestGrid {
protected:
    void SetUp() override
    {
        TestGrid::SetUp();
        Fill(m_grid);
    }
    // Two rows that hold one strict cell each.
    static void Fill(CXTPReportControl& grid)
    {
        grid.GetRecords().RemoveAll();
        grid.GetColumns().RemoveAll();
        grid.GetColumns().Add(new CXTPReportColumn(0, L"值", 100));
        for (int row : {0, 1}) {
            CXTPReportRecord* const record = grid.GetRecords().Add(new CXTPReportRecord);
            record->AddItem(new CStrictItem)->Set(row);
        }
        grid.AllowEdit(true);
        grid.Populate();
    }
    // A window that holds a grid with a bad text in its open editor.
    static std::unique_ptr<QWidget> WindowWithABadEdit()
    {
        auto window = std::make_unique<QWidget>();
        auto* const grid = new CXTPReportControl(window.get());
        grid->resize(300, 200);
        Fill(*grid);
        window->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
        ClickCell(grid, 0, 0);
        Type(grid, L"abc");
        return window;
    }
    // No box may come; one that does fails the test.
    static void ExpectNothing() { QTest::qWait(50); }
};

} // namespace

TEST_F(ReportNoticesTest, TellsWhatACellRefusesBeforeTheNextOneIsEdited)
{
    {
        const ExpectMessage box(L"不行!");
        EditCell(&m_grid, 0, 0, L"abc", Qt::Key_Return);
    }
    EXPECT_EQ(Item(0, 0)->entered, CStringArray{L"abc"});
    EXPECT_EQ(Current(), std::pair(1, 0));
    EXPECT_TRUE(IsEditing());
}

TEST_F(ReportNoticesTest, TellsWhatACellRefusesWhenTheEditorLosesTheFocus)
{
    ClickCell(&m_grid, 1, 0);
    Type(&m_grid, L"xyz");
    {
        const ExpectMessage box(L"不行!");
        ClickCell(&m_grid, 0, 0);
    }
    EXPECT_EQ(Item(1, 0)->entered, CStringArray{L"xyz"});
    EXPECT_EQ(Text(1, 0), L"");
}

TEST_F(ReportNoticesTest, TellsEachThingOnceWhenTheChangeIsDone)
{
    for (const wchar_t* notice : {L"甲", L"乙", L"甲"})
        m_grid.Tell(notice);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr); // nothing is told yet
    {
        const ExpectMessage box(L"甲\n乙");
    }
    ExpectNothing(); // nor again
}

TEST_F(ReportNoticesTest, CommitEditTellsAtOnce)
{
    ClickCell(&m_grid, 0, 0);
    Type(&m_grid, L"abc");
    bool told = false;
    const ExpectModal box([&told](QWidget* window) {
        told = true;
        PressKey(window, Qt::Key_Escape);
    });
    m_grid.CommitEdit();
    EXPECT_TRUE(told);
}

TEST_F(ReportNoticesTest, TellsNothingWhileAWindowEnds)
{
    WindowWithABadEdit().reset();
    const auto closed = WindowWithABadEdit();
    closed->close();
    const auto kept = WindowWithABadEdit();
    delete kept->findChild<CXTPReportControl*>();
    ExpectNothing();
}

TEST_F(ReportNoticesTest, ADestroyedGridAsksNoCell)
{
    const auto window = WindowWithABadEdit();
    auto* const grid = window->findChild<CXTPReportControl*>();
    const auto record = grid->GetRecords().All().front(); // outlives the grid
    delete grid;
    EXPECT_TRUE(dynamic_cast<CStrictItem*>(record->GetItem(0))->entered.empty());
}

TEST_F(ReportNoticesTest, WaitsForAMouseButtonThatIsDown)
{
    const QPoint place(5, 5);
    QTest::mousePress(m_grid.windowHandle(), Qt::LeftButton, {}, place);
    ASSERT_NE(QGuiApplication::mouseButtons(), Qt::NoButton);
    m_grid.Tell(L"甲");
    ExpectNothing();
    const ExpectMessage box(L"甲");
    QTest::mouseRelease(m_grid.windowHandle(), Qt::LeftButton, {}, place);
}

TEST_F(ReportNoticesTest, NamesTheCellsOfSeveralThatWerePasted)
{
    const ExpectMessage box(L"不行!\n    值、值");
    for (int row : {0, 1})
        m_grid.EnterPasted(m_grid.IndexOf(row, 0), L"abc", true);
}

TEST_F(ReportNoticesTest, WhatIsTakenIsNotShown)
{
    ClickCell(&m_grid, 0, 0);
    Type(&m_grid, L"abc");
    EXPECT_EQ(m_grid.CommitEditQuietly(), L"不行!");
    EXPECT_EQ(m_grid.CommitEditQuietly(), L"");
    ExpectNothing();
}
