#include "app/BuiltInMarks.h"

#include <QLabel>
#include <QLineEdit>

#include <gtest/gtest.h>

#include "app/DSMainDialog.h"
#include "tests/app/AppTest.h"

namespace {

const std::string kLine = "○ 本页的值还都是内置限值";

class BuiltInMarks : public AppTest {
protected:
    void Run(const CString& name, bool isNew, const ModalAction& action)
    {
        CDSMainDialog dialog(name, isNew, nullptr, &m_frame);
        const ExpectModal modal([&](QWidget* window) {
            m_window = window;
            action(window);
            Click(window, IDCANCEL);
        });
        dialog.DoModal();
    }
    std::string Line() const { return Control<QLabel>(m_window, 305)->text().toStdString(); }
    // Of the page of that name in the tree.
    bool IsMarked(const char* page) const
    {
        QCoreApplication::processEvents();
        const QTreeWidgetItem* const item = Item(m_window, page);
        EXPECT_EQ(item->text(1).isEmpty(), item->toolTip(0).isEmpty());
        return item->text(1) == QStringLiteral("○");
    }
    int Marked() const
    {
        QCoreApplication::processEvents();
        return static_cast<int>(
            Tree(m_window)
                ->findItems(QStringLiteral("○"), Qt::MatchExactly | Qt::MatchRecursive, 1)
                .size());
    }
    CXTPReportControl* GridOf(const char* page) const
    {
        return m_window->findChild<CDSPage*>(QString::fromLatin1(page))->Grids().front();
    }

    QWidget* m_window = nullptr;
};

TEST_F(BuiltInMarks, StandAtAllPagesOfANewOne)
{
    Run(L"新", true, [&](QWidget*) {
        EXPECT_EQ(Marked(), 13);
        EXPECT_EQ(Line(), kLine);
    });
}

TEST_F(BuiltInMarks, StandWhereALoadedOneHasTheBuiltInLimits)
{
    CDesignSpecification one = Make(L"甲", 25);
    one.CurveMinLen.CircularCurveMinLen[0].value += 1;
    one.LonGrad.Criterion = L"另一个来源";
    AddSaved(one);
    Run(L"甲", false, [&](QWidget* window) {
        EXPECT_EQ(Marked(), 11);
        EXPECT_FALSE(IsMarked("直线长度"));
        EXPECT_FALSE(IsMarked("平曲线与圆曲线最小长度"));
        EXPECT_TRUE(IsMarked("纵坡坡度")); // a source is no value
        EXPECT_EQ(Line(), "");
        ClickItem(window, "纵坡坡度");
        EXPECT_EQ(Line(), kLine);
    });
}

TEST_F(BuiltInMarks, FollowCellsAndTheirUndo)
{
    AddSaved(Make(L"甲"));
    Run(L"甲", false, [&](QWidget* window) {
        ClickItem(window, "圆曲线半径");
        EXPECT_TRUE(IsMarked("圆曲线半径"));
        CXTPReportControl* const grid = GridOf("CRadiusDialog");
        EditCell(grid, 1, 1, L"98765");
        EXPECT_FALSE(IsMarked("圆曲线半径"));
        EXPECT_EQ(Line(), "");
        EXPECT_EQ(Marked(), 12);
        PressKey(grid, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_TRUE(IsMarked("圆曲线半径"));
        EXPECT_EQ(Line(), kLine);
    });
}

TEST_F(BuiltInMarks, FollowEditBoxesAndSwitches)
{
    AddSaved(Make(L"甲"));
    Run(L"甲", false, [&](QWidget* window) {
        ClickItem(window, "圆曲线半径");
        auto* const page = window->findChild<CDSPage*>(QStringLiteral("CRadiusDialog"));
        TypeInto(page, 108, L"9");
        EXPECT_FALSE(IsMarked("圆曲线半径"));
        TypeInto(page, 108, L"10000");
        EXPECT_TRUE(IsMarked("圆曲线半径"));
        Click(page, 107);
        EXPECT_FALSE(IsMarked("圆曲线半径"));
        Click(page, 107);
        EXPECT_TRUE(IsMarked("圆曲线半径"));
    });
}

// What one page has decides which tables the other one needs.
TEST_F(BuiltInMarks, FollowTheTableThatTheGridShows)
{
    AddSaved(Make(L"甲"));
    Run(L"甲", false, [&](QWidget* window) {
        ClickItem(window, "超高");
        EXPECT_TRUE(IsMarked("超高"));
        CXTPReportControl* const grid = GridOf("CSuperElevationPage");
        ClickCell(grid, 0, 1);
        const CString before = CellText(grid, 0, 1);
        EditCell(grid, 0, 1, L"1~2");
        EXPECT_FALSE(IsMarked("超高"));
        EditCell(grid, 0, 1, before);
        EXPECT_TRUE(IsMarked("超高"));
        ClickItem(window, "超高规范");
        EditCell(GridOf("CMaxSuperElevPage"), 2, 1, L"9");
        EXPECT_FALSE(IsMarked("超高规范"));
    });
}

// A cell that is being edited stays so while others are looked at.
TEST_F(BuiltInMarks, LeaveAnOpenEditorAlone)
{
    AddSaved(Make(L"甲"));
    Run(L"甲", false, [&](QWidget* window) {
        ClickItem(window, "超高");
        CXTPReportControl* const grid = GridOf("CSuperElevationPage");
        EditCell(grid, 0, 1, L"1~2", Qt::Key_Return);
        ClickCell(grid, 1, 1);
        Type(grid, L"7");
        EXPECT_FALSE(IsMarked("超高"));
        EXPECT_NE(qobject_cast<QLineEdit*>(window->focusWidget()), nullptr);
        PressKey(grid, Qt::Key_Escape);
    });
}

// The focus goes where 确定 found fault, whatever is asked meanwhile.
TEST_F(BuiltInMarks, LeaveTheRefusedPlaceAlone)
{
    AddSaved(Make(L"甲"));
    Run(L"甲", false, [&](QWidget* window) {
        ClickItem(window, "超高规范");
        CXTPReportControl* const grid = GridOf("CMaxSuperElevPage");
        EditCell(grid, 2, 2, L"50", Qt::Key_Return);
        ClickCell(grid, 0, 1);
        PressKey(grid, Qt::Key_A, Qt::ControlModifier);
        Type(grid, L"90"); // taken in by 确定
        {
            const ExpectModal box([&](QWidget* message) {
                QCoreApplication::processEvents();
                ClickMessageButton(message, L"确定");
            });
            Click(window, IDOK);
        }
        EXPECT_EQ(grid->currentIndex().row(), 2);
        EXPECT_EQ(grid->currentIndex().column(), 2);
    });
}

} // namespace
