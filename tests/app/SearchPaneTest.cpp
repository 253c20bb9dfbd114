#include "app/SearchPane.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <gtest/gtest.h>

#include "app/DSMainDialog.h"
#include "tests/app/AppTest.h"

namespace {

constexpr int kSearch = 302;
constexpr int kFound = 303;
constexpr int kNote = 304;

class SearchPane : public AppTest {
protected:
    // Runs the dialog with the product's pages for a specification that was saved; `action` must
    // close it, which Leave does.
    void Run(const CDesignSpecification& specification, const ModalAction& action,
             bool isView = false)
    {
        AddSaved(specification);
        CDSMainDialog dialog(specification.Name(), false, nullptr, &m_frame);
        if (isView) dialog.SetViewMode(L"");
        const ExpectModal modal([&](QWidget* window) {
            m_window = window;
            action(window);
            Click(window, IDCANCEL);
        });
        dialog.DoModal();
    }
    void Search(const CString& text) const
    {
        PressKey(m_window, Qt::Key_F, Qt::ControlModifier);
        Type(m_window, text);
    }
    QTreeWidget* Found() const { return Control<QTreeWidget>(m_window, kFound); }
    // What is listed: "圆曲线半径", "  设超高最小半径(m) · 60 km/h|7777".
    std::vector<std::string> Lines() const
    {
        std::vector<std::string> lines;
        for (QTreeWidgetItemIterator item(Found()); *item; ++item)
            lines.push_back(((*item)->parent() ? "  " : "") +
                            (*item)->text(0).replace(u'\n', u'|').toStdString());
        return lines;
    }
    std::string Selected() const { return Found()->currentItem()->text(0).toStdString(); }
    std::string Note() const { return Control<QLabel>(m_window, kNote)->text().toStdString(); }
    bool IsListed() const { return Found()->isVisible() && !Tree(m_window)->isVisible(); }
    bool IsTree() const
    {
        return Tree(m_window)->isVisible() && !Found()->isVisible() &&
               !Control(m_window, kNote)->isVisible();
    }
    CDSPage* Page(const char* name) const
    {
        return m_window->findChild<CDSPage*>(QString::fromLatin1(name));
    }
    // The text of the current cell of the grid that is shown, where rows and columns can be seen.
    static std::string CurrentCell(const CXTPReportControl* grid)
    {
        const QModelIndex cell = grid->currentIndex();
        EXPECT_TRUE(grid->viewport()->rect().intersects(grid->visualRect(cell)));
        return cell.data().toString().toStdString();
    }

    QWidget* m_window = nullptr;
};

TEST_F(SearchPane, ListsWhatIsFoundByPageAsOneTypes)
{
    CDesignSpecification one = Make(L"甲");
    one.CircularCurveRad.SuperelevationMinRad = {{60, 7777}};
    one.MaxSuperElev.GradualChangeRatio1 = {{60, 777}};
    Run(one, [&](QWidget* window) {
        EXPECT_TRUE(IsTree());
        const int width = Tree(window)->width();
        Search(L"77");
        EXPECT_TRUE(IsListed());
        EXPECT_EQ(Lines(), (std::vector<std::string>{
                               "圆曲线半径", "  设超高最小半径(m) · 60 km/h|7777", "超高规范",
                               "  旋转轴在中线的超高渐变率 · 60 km/h|1/777"}));
        EXPECT_EQ(Note(), "2 处; Enter 转到, Esc 清空");
        Type(window, L"77");
        EXPECT_EQ(Lines().size(), 2U);
        PressKey(window, Qt::Key_Backspace);
        PressKey(window, Qt::Key_Backspace);
        EXPECT_EQ(Lines().size(), 4U);
        EXPECT_EQ(Found()->width(), width) << "the page stays where it is";
        PressKey(window, Qt::Key_Escape);
        EXPECT_TRUE(IsTree());
    });
}

TEST_F(SearchPane, TakesTheLettersThatCharactersBeginWith)
{
    Run(Make(L"甲"), [&](QWidget*) {
        Search(L"bscg");
        EXPECT_EQ(Lines(),
                  (std::vector<std::string>{"圆曲线半径", "  不设超高最小半径(m)",
                                            "缓和曲线最小长度", "  不设超高时不设缓和曲线"}));
    });
}

TEST_F(SearchPane, EnterGoesToPageAndCell)
{
    CDesignSpecification one = Make(L"甲");
    one.CircularCurveRad.SuperelevationMinRad = {{80, 250}, {60, 7777}};
    one.CircularCurveRad.noSuperelevationMinRad = {{120, 1}, {100, 1}, {80, 1}, {60, 1}};
    one.CircularCurveRad.SuperelevationRecommendRad = {};
    Run(one, [&](QWidget* window) {
        Search(L"设超高最 60");
        PressKey(window, Qt::Key_Return);
        EXPECT_EQ(SelectedItem(window), "圆曲线半径");
        const auto* const grid = Page("CRadiusDialog")->Grids().front();
        EXPECT_TRUE(grid->hasFocus());
        EXPECT_EQ(CurrentCell(grid), "1"); // 不设超高最小半径
        PressKey(window, Qt::Key_F, Qt::ControlModifier);
        PressKey(window, Qt::Key_Down);
        PressKey(window, Qt::Key_Down);
        PressKey(window, Qt::Key_Enter);
        EXPECT_TRUE(grid->hasFocus());
        EXPECT_EQ(CurrentCell(grid), "7777");
    });
}

// The page shows it before one goes there.
TEST_F(SearchPane, WalkingDownShowsEachHitOnItsPage)
{
    Run(Make(L"甲"), [&](QWidget* window) {
        Search(L"3");
        PressKey(window, Qt::Key_Down);
        int cells = 0;
        std::string last;
        while (last != Selected()) {
            last = Selected();
            const size_t line = last.find('\n');
            if (line != std::string::npos && last.find(" · ") != std::string::npos) {
                const auto pages = window->findChildren<CDSPage*>();
                const auto shown = std::find_if(pages.begin(), pages.end(),
                                                [](auto* page) { return page->isVisible(); });
                ASSERT_NE(shown, pages.end());
                EXPECT_EQ(CurrentCell((*shown)->Grids().front()), last.substr(line + 1)) << last;
                ++cells;
            }
            PressKey(window, Qt::Key_Down);
        }
        EXPECT_GT(cells, 15);
        EXPECT_TRUE(Found()->hasFocus());
    });
}

TEST_F(SearchPane, EscReturnsToWhereOneWas)
{
    Run(Make(L"甲"), [&](QWidget* window) {
        ClickItem(window, "纵坡坡度");
        Control(Page("CLonGradDialog"), 104)->setFocus();
        QWidget* const before = window->focusWidget();
        Search(L"半径");
        PressKey(window, Qt::Key_Down);
        EXPECT_TRUE(Found()->hasFocus());
        PressKey(window, Qt::Key_Up);
        EXPECT_TRUE(Control(window, kSearch)->hasFocus());
        PressKey(window, Qt::Key_Escape);
        EXPECT_TRUE(IsTree());
        ClickItem(window, "纵坡坡度");
        before->setFocus();
        Search(L"zp");
        PressKey(window, Qt::Key_Escape);
        EXPECT_EQ(window->focusWidget(), before);
        EXPECT_TRUE(Control<QLineEdit>(window, kSearch)->text().isEmpty());
    });
}

TEST_F(SearchPane, AClickGoesToItsCell)
{
    CDesignSpecification one = Make(L"甲");
    one.CurveMinLen.CircularCurveMinLen = {{60, 7777}};
    Run(one, [&](QWidget* window) {
        Search(L"7777");
        QTreeWidgetItem* const hit = Found()->topLevelItem(0)->child(0);
        QTest::mouseClick(Found()->viewport(), Qt::LeftButton, {},
                          Found()->visualItemRect(hit).center());
        EXPECT_EQ(SelectedItem(window), "平曲线与圆曲线最小长度");
        EXPECT_TRUE(Page("CCurveLenDialog")->Grids().front()->hasFocus());
        EXPECT_EQ(CurrentCell(Page("CCurveLenDialog")->Grids().front()), "7777");
    });
}

TEST_F(SearchPane, SaysWhatToDoWhenNothingIsFound)
{
    Run(Make(L"甲"), [&](QWidget* window) {
        Search(L" 没有的 ");
        EXPECT_TRUE(IsListed());
        EXPECT_TRUE(Lines().empty());
        EXPECT_TRUE(Control(window, kNote)->isVisible());
        EXPECT_TRUE(Note().starts_with("没有找到“没有的”。\n\n可以查页名、行名、数值和数据来源。"))
            << Note();
        PressKey(window, Qt::Key_Return);
        PressKey(window, Qt::Key_Down);
        EXPECT_TRUE(window->isVisible());
        EXPECT_TRUE(Control(window, kSearch)->hasFocus());
        PressKey(window, Qt::Key_Escape);
        EXPECT_TRUE(IsTree());
    });
}

TEST_F(SearchPane, FindsWhatIsNotSavedYet)
{
    Run(Make(L"甲"), [&](QWidget* window) {
        ClickItem(window, "圆曲线半径");
        CXTPReportControl* const grid = Page("CRadiusDialog")->Grids().front();
        EditCell(grid, 1, 1, L"98765");
        TypeInto(Page("CRadiusDialog"), 108, L"0"); // which 确定 would refuse
        Search(L"98765");
        EXPECT_EQ(Lines().size(), 2U);
        PressKey(window, Qt::Key_Escape);
        ClickCell(grid, 1, 1); // and what is being typed
        PressKey(grid, Qt::Key_A, Qt::ControlModifier);
        Type(grid, L"56789");
        Search(L"56789");
        ASSERT_EQ(Lines().size(), 2U);
        EXPECT_NE(Lines()[1].find("设超高推荐半径(m)"), std::string::npos);
    });
}

TEST_F(SearchPane, FindsATableBehindTheOneThatIsShown)
{
    CDesignSpecification one = Make(L"甲");
    one.MaxSuperElev.MaxSuperElev = {{80, 6}, {60, 4}};
    one.MaxSuperElev.GradualChangeRatio1 =
        one.MaxSuperElev.GradualChangeRatio2 = {{80, 150}, {60, 150}};
    one.SuperElevation.definitions = {{6, {{80, {{300, 777, 5}}}}}, {4, {{60, {{888, 900, 3}}}}}};
    Run(one, [&](QWidget* window) {
        Search(L"888");
        ASSERT_EQ(Lines(),
                  (std::vector<std::string>{
                      "超高", "  最大超高 4% · 超高 3% 时圆曲线半径范围(m) · 60 km/h|888~900"}));
        PressKey(window, Qt::Key_Return);
        EXPECT_EQ(CurrentCell(Page("CSuperElevationPage")->Grids().front()), "888~900");
    });
}

// Limits by their edit boxes or switches, sources by their buttons, on all pages.
TEST_F(SearchPane, GoesToEveryLimitAndSource)
{
    CDesignSpecification one = Make(L"甲");
    int number = 0;
    for (const CriterionInfo& criterion : Criteria())
        for (const Field& field : criterion.fields)
            if (field.kind == FieldKind::Text)
                SetValue(field, criterion.get(one), Value(L"来自" + std::to_wstring(++number)));
    Run(one, [&](QWidget* window) {
        int sources = 0;
        for (const PageLayout& page : LayOut(one)) {
            for (const PageLayout::Limit& limit : page.limits) {
                Search(limit.caption);
                PressKey(window, Qt::Key_Return);
                EXPECT_EQ(SelectedItem(window), ToUtf8(page.criterion->label));
                EXPECT_FALSE(Control(window, kSearch)->hasFocus()) << ToUtf8(limit.caption);
                PressKey(window, Qt::Key_F, Qt::ControlModifier);
            }
            for (const PageLayout::Limit& source : page.sources) {
                Search(ValueText(source.value));
                if (page.criterion->name == CString(L"MaxSuperElev")) continue; // never shown
                PressKey(window, Qt::Key_Return);
                EXPECT_EQ(SelectedItem(window), ToUtf8(page.criterion->label));
                EXPECT_NE(qobject_cast<QPushButton*>(window->focusWidget()), nullptr)
                    << ToUtf8(source.caption);
                ++sources;
            }
        }
        EXPECT_EQ(sources, number - 1);
        PressKey(window, Qt::Key_F, Qt::ControlModifier);
        PressKey(window, Qt::Key_Escape);
    });
}

TEST_F(SearchPane, FindsWhereNothingCanBeChanged)
{
    CDesignSpecification one = Make(L"甲");
    one.CircularCurveRad.SuperelevationMinRad = {{60, 7777}};
    Run(
        one,
        [&](QWidget* window) {
            Search(L"7777");
            PressKey(window, Qt::Key_Return);
            EXPECT_EQ(CurrentCell(Page("CRadiusDialog")->Grids().front()), "7777");
            EXPECT_TRUE(window->isVisible());
        },
        true);
}

TEST_F(SearchPane, TellsWhenThereAreMoreThanItLists)
{
    CDesignSpecification one = Make(L"甲");
    one.CurveMinLen.HorizontalCurveMinLen = {};
    for (int speed = 10; speed <= 150; ++speed)
        one.CurveMinLen.HorizontalCurveMinLen.Add({speed, 7777});
    one.CurveMinLen.CircularCurveMinLen = one.CurveMinLen.HorizontalCurveMinLen;
    one.SmallAngleCurveMinLen.HorizontalCurveMinLen = one.CurveMinLen.HorizontalCurveMinLen;
    Run(one, [&](QWidget*) {
        Search(L"7777");
        EXPECT_EQ(Lines().size(), 302U); // two pages
        EXPECT_EQ(Note(), "不止 300 处, 再写一个词会少一些");
    });
}

} // namespace
