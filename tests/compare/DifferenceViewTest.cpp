#include "compare/DifferenceView.h"

#include <QCheckBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <QTreeWidget>

#include <gtest/gtest.h>

#include "base/Text.h"
#include "compare/ControlIds.h"
#include "platform/mfc/QtText.h"
#include "tests/gui/Controls.h"

using namespace designspec;

namespace {

using S = CDesignSpecification;
using Lines = std::vector<std::string>;

class DifferenceViewTest : public ::testing::Test {
protected:
    DifferenceViewTest()
    {
        m_left.SetName(L"甲");
        m_right.SetName(L"乙");
        m_right.BeelineLen.MaxLen = 30;
        for (int i = 0; i < 2; ++i)
            m_right.CircularCurveRad.SuperelevationMinRad[i].value += 10;
        m_right.CircularCurveRad.MaxRad = 9000;
        m_right.LonGradMinLen.MinLens[0].value = 310;
        m_view.resize(1000, 600);
        QObject::connect(&m_view, &DifferenceView::Chosen, &m_view, [this] { ++m_told; });
    }

    void ShowTwo(DifferenceChoices::Changeable changeable = {})
    {
        m_view.ShowTwo(m_left, m_right, {QStringLiteral("甲"), QStringLiteral("乙"), changeable});
        Activate();
    }
    void Activate()
    {
        m_view.show();
        m_view.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_view));
    }

    QTreeWidget* Tree() { return Control<QTreeWidget>(&m_view, CompareId::Tree); }
    QTableView* Table() { return Control<QTableView>(&m_view, CompareId::Values); }
    QTableWidget* Cells() { return Control<QTableWidget>(&m_view, CompareId::Cells); }
    std::string ScopeText()
    {
        return Control<QLabel>(&m_view, CompareId::Scope)->text().toStdString();
    }
    void ClickItem(const char* text)
    {
        auto items =
            Tree()->findItems(QString::fromUtf8(text), Qt::MatchExactly | Qt::MatchRecursive);
        items.removeIf([](const QTreeWidgetItem* item) { return item->isHidden(); });
        ASSERT_EQ(items.size(), 1) << text;
        if (items[0]->parent()) items[0]->parent()->setExpanded(true);
        Tree()->scrollToItem(items[0]);
        QTest::mouseClick(Tree()->viewport(), Qt::LeftButton, {},
                          Tree()->visualItemRect(items[0]).center());
    }
    void ClickValue(int row, int column)
    {
        const QModelIndex index = Table()->model()->index(row, column);
        Table()->scrollTo(index);
        QTest::mouseClick(Table()->viewport(), Qt::LeftButton, {},
                          Table()->visualRect(index).center());
    }
    Lines Values()
    {
        Lines lines;
        const QAbstractItemModel& model = *Table()->model();
        for (int row = 0; row < model.rowCount(); ++row) {
            QStringList texts;
            for (int column = 0; column < model.columnCount(); ++column)
                texts << model.index(row, column).data().toString();
            lines.push_back(texts.join(u'|').toStdString());
        }
        return lines;
    }
    // "  圆曲线半径 3" of what is not hidden
    Lines Items()
    {
        Lines lines;
        AddItems(Tree()->invisibleRootItem(), "", lines);
        return lines;
    }
    static void AddItems(const QTreeWidgetItem* parent, const std::string& before, Lines& lines)
    {
        for (int i = 0; i < parent->childCount(); ++i) {
            const QTreeWidgetItem* const item = parent->child(i);
            if (item->isHidden()) continue;
            lines.push_back(before + item->text(0).toStdString() + " " +
                            item->text(1).toStdString());
            AddItems(item, before + " ", lines);
        }
    }

    S m_left;
    S m_right = m_left;
    DifferenceView m_view;
    int m_told = 0;
};

} // namespace

TEST_F(DifferenceViewTest, TellsHowMuchDiffersOnEachPage)
{
    ShowTwo();
    EXPECT_EQ(Items(),
              (Lines{"全部 6", " 平面 4", "  直线长度 1", "  圆曲线半径 3", "   设超高最小半径 2",
                     " 纵断 1", "  纵坡最小坡长 1", "   最小坡长 1"}));
    EXPECT_EQ(Values()[0], "名称||甲|≠|乙");
    EXPECT_EQ(ScopeText(), "全部: 6 个不同的值");
}

TEST_F(DifferenceViewTest, ShowsTheValuesOfThePageOnBothSides)
{
    ShowTwo();
    ClickItem("圆曲线半径");
    EXPECT_EQ(Values(), (Lines{"圆曲线最大半径||10000 m|≠|9000 m",
                               "设超高最小半径|车速 80 km/h|250 m|≠|260 m",
                               "设超高最小半径|车速 60 km/h|150 m|≠|160 m"}));
    const QAbstractItemModel& model = *Table()->model();
    EXPECT_EQ(model.headerData(2, Qt::Horizontal).toString(), QStringLiteral("甲"));
    EXPECT_EQ(model.headerData(4, Qt::Horizontal).toString(), QStringLiteral("乙"));
}

TEST_F(DifferenceViewTest, ShowsEqualValuesWhenWanted)
{
    ShowTwo();
    ClickItem("直线长度");
    EXPECT_EQ(Values().size(), 1U);
    Click(&m_view, CompareId::OnlyDifferent);
    EXPECT_EQ(Values().size(), 6U);
    EXPECT_EQ(Values()[1].find("="), Values()[1].find("|=|") + 1);
    EXPECT_EQ(Items()[0], "全部 6") << "equal ones are not counted";
}

TEST_F(DifferenceViewTest, TheFilterLooksIntoLabelsPlacesAndValues)
{
    ShowTwo();
    PressKey(&m_view, Qt::Key_F, Qt::ControlModifier);
    Type(&m_view, L"260");
    EXPECT_EQ(Values(), (Lines{"圆曲线半径 · 设超高最小半径|车速 80 km/h|250 m|≠|260 m"}));
    EXPECT_EQ(Items(), (Lines{"全部 1", " 平面 1", "  圆曲线半径 1", "   设超高最小半径 1"}));
    TypeInto(&m_view, CompareId::Filter, L"没有这样的");
    EXPECT_EQ(Values(), Lines{});
    EXPECT_EQ(Items(), Lines{"全部 "});
    TypeInto(&m_view, CompareId::Filter, L"坡长");
    EXPECT_EQ(Values().size(), 1U);
}

TEST_F(DifferenceViewTest, ATableIsSeenAsAGridWithItsSpeeds)
{
    ShowTwo();
    ClickItem("设超高最小半径");
    ASSERT_TRUE(Cells()->isVisible());
    ASSERT_EQ(Cells()->rowCount(), 2) << "a line for each side of the only row that differs";
    EXPECT_EQ(Cells()->verticalHeaderItem(0)->text(), QStringLiteral("设超高最小半径 左"));
    EXPECT_EQ(Cells()->verticalHeaderItem(1)->text(), QStringLiteral("右"));
    EXPECT_EQ(Cells()->horizontalHeaderItem(0)->text(), QStringLiteral("80 km/h"));
    EXPECT_EQ(Cells()->horizontalHeaderItem(1)->text(), QStringLiteral("60 km/h"));
    EXPECT_EQ(Cells()->item(0, 1)->text(), QStringLiteral("150 m"));
    EXPECT_EQ(Cells()->item(1, 1)->text(), QStringLiteral("160 m"));
    ClickItem("直线长度");
    EXPECT_FALSE(Cells()->isVisible());
}

TEST_F(DifferenceViewTest, ArrowsTakeOneValueToEitherSide)
{
    ShowTwo();
    ClickItem("圆曲线半径");
    ClickValue(2, 0);
    EXPECT_EQ(ScopeText(), "圆曲线半径 · 设超高最小半径 · 车速 60 km/h");
    PressKey(&m_view, Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(Values()[2], "设超高最小半径|车速 60 km/h|160 m|←|160 m");
    EXPECT_EQ(Values()[1], "设超高最小半径|车速 80 km/h|250 m|≠|260 m");
    EXPECT_EQ(m_view.Choices().MadeLeft().CircularCurveRad.SuperelevationMinRad[1].value, 160);
    Click(&m_view, CompareId::ToRight);
    EXPECT_EQ(Values()[2], "设超高最小半径|车速 60 km/h|150 m|→|150 m");
    EXPECT_EQ(m_view.Choices().MadeRight().CircularCurveRad.SuperelevationMinRad[1].value, 150);
    Click(&m_view, CompareId::TakeBack);
    EXPECT_EQ(Values()[2], "设超高最小半径|车速 60 km/h|150 m|≠|160 m");
    EXPECT_EQ(m_told, 3);
}

TEST_F(DifferenceViewTest, ArrowsTakeARowThatIsSelectedInTheGrid)
{
    ShowTwo();
    ClickItem("设超高最小半径");
    QHeaderView* const header = Cells()->verticalHeader();
    Cells()->setFocus();
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                      QPoint(5, header->sectionViewportPosition(0) + 5));
    EXPECT_EQ(ScopeText(), "选中的 2 个不同的值");
    Click(&m_view, CompareId::ToLeft);
    EXPECT_EQ(Cells()->item(0, 0)->text(), QStringLiteral("260 m"));
    EXPECT_EQ(Items()[0], "全部 2/6");
    EXPECT_EQ(Values()[0], "设超高最小半径|车速 80 km/h|260 m|←|260 m");
}

TEST_F(DifferenceViewTest, ArrowsTakeWhatStandsBelowAnItemOfTheTree)
{
    ShowTwo();
    ClickItem("平面");
    Click(&m_view, CompareId::ToLeft);
    EXPECT_EQ(Items()[0], "全部 4/6");
    EXPECT_EQ(m_view.Choices().MadeLeft().BeelineLen.MaxLen, 30);
    EXPECT_EQ(m_view.Choices().MadeLeft().LonGradMinLen.MinLens[0].value,
              m_left.LonGradMinLen.MinLens[0].value);
    ClickItem("全部");
    PressKey(&m_view, Qt::Key_Right, Qt::AltModifier);
    EXPECT_TRUE(m_view.Choices().MadeLeft() == m_left);
    S expected = m_right;
    expected.CopyCriteria(m_left);
    EXPECT_TRUE(m_view.Choices().MadeRight() == expected);
}

TEST_F(DifferenceViewTest, OnlyWhatTheFilterShowsIsTaken)
{
    ShowTwo();
    TypeInto(&m_view, CompareId::Filter, L"260");
    ClickItem("全部");
    Click(&m_view, CompareId::ToLeft);
    TypeInto(&m_view, CompareId::Filter, L" ");
    EXPECT_EQ(Items()[0], "全部 1/6");
}

TEST_F(DifferenceViewTest, ChoicesAreUndoneAndRedone)
{
    ShowTwo();
    EXPECT_FALSE(Control(&m_view, CompareId::Undo)->isEnabled());
    ClickItem("全部");
    Click(&m_view, CompareId::ToLeft);
    PressKey(&m_view, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(m_view.Choices().MadeLeft() == m_left);
    EXPECT_EQ(Items()[0], "全部 6");
    PressKey(&m_view, Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(Items()[0], "全部 5/6") << "the name is not taken";
    EXPECT_EQ(m_told, 3);
}

TEST_F(DifferenceViewTest, SpaceAndAClickTurnAValue)
{
    ShowTwo();
    ClickItem("直线长度");
    ClickValue(0, 3);
    EXPECT_EQ(m_view.Choices().MadeLeft().BeelineLen.MaxLen, 30);
    PressKey(&m_view, Qt::Key_Space);
    EXPECT_EQ(m_view.Choices().MadeRight().BeelineLen.MaxLen, m_left.BeelineLen.MaxLen);
    PressKey(&m_view, Qt::Key_Space);
    EXPECT_FALSE(m_view.Choices().IsRightChanged());
}

TEST_F(DifferenceViewTest, ThereIsNoArrowToASideThatCanOnlyBeRead)
{
    ShowTwo({.left = true, .right = false});
    EXPECT_TRUE(Control(&m_view, CompareId::ToLeft)->isVisible());
    EXPECT_FALSE(Control(&m_view, CompareId::ToRight)->isVisible());
    ClickItem("全部");
    PressKey(&m_view, Qt::Key_Right, Qt::AltModifier);
    EXPECT_FALSE(m_view.Choices().IsRightChanged());
    ShowTwo({.left = false, .right = false});
    EXPECT_FALSE(Control(&m_view, CompareId::ToLeft)->isVisible());
    EXPECT_FALSE(Control(&m_view, CompareId::Undo)->isVisible());
}

TEST_F(DifferenceViewTest, EqualSpecificationsSaySo)
{
    m_view.ShowTwo(m_left, m_left, {});
    Activate();
    EXPECT_EQ(ScopeText(), "没有不同的值。");
    EXPECT_EQ(Items(), Lines{"全部 "});
    EXPECT_FALSE(Control(&m_view, CompareId::ToLeft)->isEnabled());
}

TEST_F(DifferenceViewTest, OfThreeEachValueHasASideThatCounts)
{
    S mine = m_left;
    S theirs = m_left;
    mine.BeelineLen.MaxLen = 25;
    mine.LonGradMinLen.MinLens[0].value = 300;
    theirs.LonGradMinLen.MinLens[0].value = 310;
    m_view.ShowThree(m_left, mine, theirs);
    Activate();
    EXPECT_EQ(Values(),
              (Lines{"直线长度 · 最大直线长度||25 倍设计速度(km/h)|◀ 我的|20 倍设计速度(km/h)|"
                     "20 倍设计速度(km/h)|我",
                     "纵坡最小坡长 · 最小坡长|车速 80 km/h|300 m|?|310 m|290 m|冲突"}));
    ClickValue(1, 0);
    EXPECT_EQ(Cells()->rowCount(), 3);
    PressKey(&m_view, Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(m_view.Choices().Unsettled(), 0);
    EXPECT_EQ(m_view.Choices().Made().LonGradMinLen.MinLens[0].value, 310);
    EXPECT_EQ(Values()[1], "纵坡最小坡长 · 最小坡长|车速 80 km/h|300 m|对方的 ▶|310 m|290 m|冲突");
}
