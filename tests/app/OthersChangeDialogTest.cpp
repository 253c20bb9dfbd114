#include "app/OthersChangeDialog.h"

#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTreeWidget>

#include <gtest/gtest.h>

#include "base/Text.h"
#include "tests/app/AppTest.h"

namespace {

using D = COthersChangeDialog;

// One value that each has changed in another way, and one that they alone have.
std::vector<Change> SomeChanges()
{
    const CDesignSpecification base;
    CDesignSpecification mine = base;
    CDesignSpecification theirs = base;
    mine.LonGradMinLen.MinLens[0].value = 300;
    theirs.LonGradMinLen.MinLens[0].value = 310;
    theirs.BeelineLen.MaxLenCriterion = L"<b>来源</b>";
    mine.CurveMinLen.HorizontalCurveMinLen.RemoveAt(0);
    return Changes(base, mine, theirs);
}

class OthersChangeDialog : public AppTest {
protected:
    int Run(const ModalAction& action, std::initializer_list<int> offered,
            const std::vector<Change>& changes = SomeChanges())
    {
        D dialog(L"注意", changes, &m_frame);
        for (const int choice : offered)
            dialog.Offer(choice, L"选择" + std::to_wstring(choice));
        const ExpectModal modal(action);
        return dialog.DoModal();
    }
    static std::string Line(QWidget* window, int row)
    {
        const QTreeWidgetItem* const item =
            Control<QTreeWidget>(window, D::kList)->topLevelItem(row);
        QStringList texts;
        for (int column = 0; column < item->columnCount(); ++column)
            texts.append(item->text(column));
        return texts.join(QStringLiteral(" | ")).toStdString();
    }
};

} // namespace

TEST_F(OthersChangeDialog, ShowsEachValueAsMineTheirsAndWas)
{
    Run(
        [](QWidget* window) {
            EXPECT_EQ(Control<QLabel>(window, D::kNotice)->text(), QStringLiteral("注意"));
            ASSERT_EQ(Control<QTreeWidget>(window, D::kList)->topLevelItemCount(), 3);
            EXPECT_EQ(Line(window, 0), "直线长度 · 最大直线长度的数据来源 | (未填) | "
                                       "<b>来源</b> | (未填) | 对方");
            EXPECT_EQ(Line(window, 1), "平曲线与圆曲线最小长度 · 平曲线最小长度 · 车速 80 km/h | — "
                                       "| 140 m | 140 m | 我");
            EXPECT_EQ(Line(window, 2), "纵坡最小坡长 · 最小坡长 · 车速 80 km/h | 300 m | 310 m | "
                                       "290 m | 冲突");
            const QTreeWidgetItem* const item =
                Control<QTreeWidget>(window, D::kList)->topLevelItem(0);
            EXPECT_TRUE(item->toolTip(2).contains(QStringLiteral("&lt;b&gt;来源")));
            PressKey(window, Qt::Key_Escape);
        },
        {D::kKeepMine});
}

TEST_F(OthersChangeDialog, OffersWhatItWasTold)
{
    Run(
        [](QWidget* window) {
            EXPECT_FALSE(Control(window, D::kKeepBoth)->isVisible());
            EXPECT_TRUE(Control(window, D::kKeepMine)->isVisible());
            EXPECT_TRUE(Control(window, D::kTakeTheirs)->isVisible());
            EXPECT_EQ(Control<QPushButton>(window, D::kTakeTheirs)->text(),
                      QStringLiteral("选择13"));
            Click(window, IDCANCEL);
        },
        {D::kKeepMine, D::kTakeTheirs});
}

TEST_F(OthersChangeDialog, GivesTheChoice)
{
    for (const int choice : {D::kKeepBoth, D::kKeepMine, D::kTakeTheirs})
        EXPECT_EQ(Run([choice](QWidget* window) { Click(window, choice); },
                      {D::kKeepBoth, D::kKeepMine, D::kTakeTheirs}),
                  choice);
}

TEST_F(OthersChangeDialog, EnterKeepsBothAndElseGoesBack)
{
    const ModalAction enter = [](QWidget* window) { PressKey(window, Qt::Key_Return); };
    EXPECT_EQ(Run(enter, {D::kKeepBoth, D::kKeepMine, D::kTakeTheirs}), D::kKeepBoth);
    EXPECT_EQ(Run(enter, {D::kKeepMine, D::kTakeTheirs}), IDCANCEL);
    const ModalAction escape = [](QWidget* window) { PressKey(window, Qt::Key_Escape); };
    EXPECT_EQ(Run(escape, {D::kKeepBoth}), IDCANCEL);
}

TEST_F(OthersChangeDialog, WithoutChangesThereIsNoList)
{
    Run(
        [](QWidget* window) {
            EXPECT_FALSE(Control(window, D::kList)->isVisible());
            Click(window, IDCANCEL);
        },
        {D::kKeepMine}, {});
}

TEST_F(OthersChangeDialog, IsWideEnoughForAllColumns)
{
    Run(
        [](QWidget* window) {
            const auto* const list = Control<QTreeWidget>(window, D::kList);
            EXPECT_EQ(list->horizontalScrollBar()->maximum(), 0);
            Click(window, IDCANCEL);
        },
        {D::kKeepMine});
}
