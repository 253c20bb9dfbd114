#include "app/OthersChangeDialog.h"

#include <QLabel>
#include <QPushButton>
#include <QTableView>

#include <gtest/gtest.h>

#include "base/Text.h"
#include "compare/ControlIds.h"
#include "tests/app/AppTest.h"

namespace {

using D = COthersChangeDialog;
using S = CDesignSpecification;

class OthersChangeDialog : public AppTest {
protected:
    // One value that each has changed in another way, one that they alone have, one that I removed.
    OthersChangeDialog()
    {
        m_mine.LonGradMinLen.MinLens[0].value = 300;
        m_theirs.LonGradMinLen.MinLens[0].value = 310;
        m_theirs.BeelineLen.MaxLenCriterion = L"<b>来源</b>";
        m_mine.CurveMinLen.HorizontalCurveMinLen.RemoveAt(0);
    }

    int Run(const ModalAction& action, std::initializer_list<int> offered, bool compares = true)
    {
        D dialog(L"注意", &m_frame);
        if (compares)
            dialog.Compare(m_base, m_mine, m_theirs, [this](const S&) { return m_refusal; });
        for (const int choice : offered)
            dialog.Offer(choice, L"选择" + std::to_wstring(choice));
        const ExpectModal modal(action);
        const int result = dialog.DoModal();
        m_made = dialog.Choices().Made();
        return result;
    }
    static std::string Line(QWidget* window, int row)
    {
        const QAbstractItemModel& model = *Values(window)->model();
        QStringList texts;
        for (int column = 0; column < model.columnCount(); ++column)
            texts.append(model.index(row, column).data().toString());
        return texts.join(QStringLiteral("|")).toStdString();
    }
    static QTableView* Values(QWidget* window)
    {
        return Control<QTableView>(window, CompareId::Values);
    }
    static void ClickRow(QWidget* window, int row)
    {
        const QModelIndex index = Values(window)->model()->index(row, 0);
        QTest::mouseClick(Values(window)->viewport(), Qt::LeftButton, {},
                          Values(window)->visualRect(index).center());
    }

    const S m_base;
    S m_mine = m_base;
    S m_theirs = m_base;
    S m_made;
    CString m_refusal;
};

} // namespace

TEST_F(OthersChangeDialog, ShowsEachValueAsMineTheirsAndWas)
{
    Run(
        [](QWidget* window) {
            EXPECT_EQ(Control<QLabel>(window, D::kNotice)->text(), QStringLiteral("注意"));
            ASSERT_EQ(Values(window)->model()->rowCount(), 3);
            EXPECT_EQ(Line(window, 0), "直线长度 · 最大直线长度的数据来源||(未填)|对方的 ▶|"
                                       "<b>来源</b>|(未填)|对方");
            EXPECT_EQ(Line(window, 1), "平曲线与圆曲线最小长度 · 平曲线最小长度|车速 80 km/h|—|"
                                       "◀ 我的|140 m|140 m|我");
            EXPECT_EQ(Line(window, 2),
                      "纵坡最小坡长 · 最小坡长|车速 80 km/h|300 m|?|310 m|290 m|冲突");
            EXPECT_TRUE(Values(window)
                            ->model()
                            ->index(0, 4)
                            .data(Qt::ToolTipRole)
                            .toString()
                            .contains(QStringLiteral("&lt;b&gt;来源")));
            PressKey(window, Qt::Key_Escape);
        },
        {D::kKeepMine});
}

TEST_F(OthersChangeDialog, OffersWhatItWasTold)
{
    Run(
        [](QWidget* window) {
            EXPECT_FALSE(Control(window, D::kAsChosen)->isVisible());
            EXPECT_FALSE(Control(window, D::kPlace)->isVisible()) << "nothing is compared";
            EXPECT_TRUE(Control(window, D::kKeepMine)->isVisible());
            EXPECT_TRUE(Control(window, D::kTakeTheirs)->isVisible());
            EXPECT_EQ(Control<QPushButton>(window, D::kTakeTheirs)->text(),
                      QStringLiteral("选择13"));
            Click(window, IDCANCEL);
        },
        {D::kKeepMine, D::kTakeTheirs}, false);
}

TEST_F(OthersChangeDialog, GivesTheChoice)
{
    for (const int choice : {D::kKeepMine, D::kTakeTheirs})
        EXPECT_EQ(Run([choice](QWidget* window) { Click(window, choice); },
                      {D::kKeepMine, D::kTakeTheirs}),
                  choice);
}

TEST_F(OthersChangeDialog, EachConflictIsSettledFirst)
{
    const int result = Run(
        [](QWidget* window) {
            EXPECT_FALSE(Control(window, D::kAsChosen)->isEnabled());
            ClickRow(window, 2);
            Click(window, CompareId::ToRight);
            EXPECT_TRUE(Control(window, D::kAsChosen)->isEnabled());
            ClickRow(window, 1);
            Click(window, CompareId::ToRight);
            Click(window, D::kAsChosen);
        },
        {});
    EXPECT_EQ(result, D::kAsChosen);
    EXPECT_TRUE(m_made == m_theirs) << "their source counts without a choice";
}

TEST_F(OthersChangeDialog, WhatCannotBeStoredIsToldAndCanBeChosenAnew)
{
    m_refusal = L"不行";
    EXPECT_EQ(Run(
                  [this](QWidget* window) {
                      ClickRow(window, 2);
                      Click(window, CompareId::ToLeft);
                      {
                          const ExpectMessage box(L"不行");
                          Click(window, D::kAsChosen);
                      }
                      EXPECT_TRUE(window->isVisible());
                      m_refusal.clear();
                      Click(window, D::kAsChosen);
                  },
                  {}),
              D::kAsChosen);
    EXPECT_EQ(m_made.LonGradMinLen.MinLens[0].value, 300);
}

TEST_F(OthersChangeDialog, EnterStoresWithoutConflictsAndElseGoesBack)
{
    const ModalAction enter = [](QWidget* window) { PressKey(window, Qt::Key_Return); };
    EXPECT_EQ(Run(enter, {D::kKeepMine, D::kTakeTheirs}), IDCANCEL);
    EXPECT_EQ(Run(enter, {D::kKeepMine}, false), IDCANCEL);
    m_mine.LonGradMinLen.MinLens[0].value = m_base.LonGradMinLen.MinLens[0].value;
    EXPECT_EQ(Run(enter, {D::kKeepMine, D::kTakeTheirs}), D::kAsChosen);
    const ModalAction escape = [](QWidget* window) { PressKey(window, Qt::Key_Escape); };
    EXPECT_EQ(Run(escape, {}), IDCANCEL);
}
