// The editor is open; a page, its group or everything is filled from another specification.
#include "app/TakeFromDialog.h"

#include <QComboBox>
#include <QLineEdit>
#include <QTableView>

#include <gtest/gtest.h>

#include "app/DSMainDialog.h"
#include "compare/ControlIds.h"
#include "pages/framework/DSPage.h"
#include "tests/app/AppTest.h"
#include "tests/support/ValidSpecification.h"

namespace {

using D = CTakeFromDialog;
using S = CDesignSpecification;

constexpr int kTakeFrom = 301;
constexpr int kUndoTake = 309;
constexpr int kRadii = 1001; // the grid of radii
enum Range { kThisPage, kItsGroup, kEverything };

class TakeFromDialog : public AppTest {
protected:
    TakeFromDialog() : m_edited(AddSaved(Make(L"甲"))), m_source(AddSaved(MakeSource())) {}

    static S MakeSource()
    {
        S source = Make(L"乙", 30);
        source.CircularCurveRad.SuperelevationMinRad[0].value = 270;
        source.CircularCurveRad.SuperelevationMinRad[1].value = 170;
        source.LonGradMinLen.MinLens[0].value = 310;
        return source;
    }
    // The editor of 甲, with that page shown.
    int Edit(const char* page, const ModalAction& action)
    {
        CDSMainDialog dialog(L"甲", false, nullptr, &m_frame);
        const ExpectModal modal([&](QWidget* window) {
            ClickItem(window, page);
            action(window);
        });
        return dialog.DoModal();
    }
    static void Take(QWidget* editor, const ModalAction& action)
    {
        const ExpectModal modal(action);
        Click(editor, kTakeFrom);
    }
    static ModalAction TakeAll(Range range)
    {
        return [range](QWidget* window) {
            Choose(window, range);
            Click(window, IDOK);
        };
    }
    static void Choose(QWidget* window, Range range)
    {
        auto* const list = Control<QComboBox>(window, D::kRange);
        list->setFocus();
        PressKey(window, Qt::Key_Home);
        for (int i = 0; i < range; ++i)
            PressKey(window, Qt::Key_Down);
        EXPECT_EQ(list->currentIndex(), range);
    }
    static QWidget* PageOf(QWidget* editor)
    {
        for (auto* const page : editor->findChildren<CDialog*>())
            if (page->isVisible()) return page;
        ADD_FAILURE() << "no page is shown";
        return editor;
    }
    static CXTPReportControl* Radii(QWidget* editor) { return Grid(PageOf(editor), kRadii); }
    static int Listed(QWidget* window)
    {
        return Control<QTableView>(window, CompareId::Values)->model()->rowCount();
    }
    S Stored()
    {
        SpecificationFolder folder(m_project.Path(L"规范"));
        EXPECT_TRUE(folder.Load().done);
        return *folder.Find(L"甲");
    }

    const S m_edited;
    const S m_source;
};

} // namespace

TEST_F(TakeFromDialog, FillsThePageThatIsShown)
{
    EXPECT_EQ(Edit("圆曲线半径",
                   [this](QWidget* window) {
                       EXPECT_EQ(CellText(Radii(window), 2, 1), L"250");
                       Take(window, [](QWidget* dialog) {
                           EXPECT_EQ(Control<QComboBox>(dialog, D::kRange)->currentText(),
                                     QStringLiteral("本页: 圆曲线半径"));
                           EXPECT_EQ(Control<QComboBox>(dialog, D::kSource)->currentText(),
                                     QStringLiteral("乙"));
                           EXPECT_EQ(Listed(dialog), 2);
                           Click(dialog, IDOK);
                       });
                       EXPECT_EQ(CellText(Radii(window), 2, 1), L"270");
                       EXPECT_EQ(CellText(Radii(window), 2, 2), L"170");
                       EXPECT_TRUE(Stored() == m_edited) << "nothing is written before 确定";
                       Click(window, IDOK);
                   }),
              IDOK);
    S expected = m_edited;
    expected.CircularCurveRad = m_source.CircularCurveRad;
    EXPECT_TRUE(Stored() == expected);
}

TEST_F(TakeFromDialog, FillsTheGroup)
{
    Edit("圆曲线半径", [](QWidget* window) {
        Take(window, TakeAll(kItsGroup));
        Click(window, IDOK);
    });
    EXPECT_EQ(Stored().BeelineLen.MaxLen, 30);
    EXPECT_EQ(Stored().CircularCurveRad.SuperelevationMinRad[0].value, 270);
    EXPECT_EQ(Stored().LonGradMinLen.MinLens[0].value, 290) << "of another group";
}

TEST_F(TakeFromDialog, FillsEverything)
{
    ValidSpecification random(11);
    S source = random.Make(L"乙");
    S& second = *Library().Item(L"乙");
    second.CopyCriteria(source);
    ASSERT_TRUE(Library().Save(&second));
    Edit("加宽", [](QWidget* window) {
        Take(window, TakeAll(kEverything));
        Click(window, IDOK);
    });
    S expected = m_edited;
    expected.CopyCriteria(source);
    expected.MaxSuperElev.Criterion = m_edited.MaxSuperElev.Criterion; // no page shows it
    for (const Difference& one : Differences(Stored(), expected))
        ADD_FAILURE() << ToUtf8(one.path + L" " + one.key);
}

TEST_F(TakeFromDialog, IsOneStepOfUndoInTheGrid)
{
    Edit("圆曲线半径", [](QWidget* window) {
        EditCell(Radii(window), 2, 1, L"260");
        Take(window, TakeAll(kThisPage));
        EXPECT_EQ(CellText(Radii(window), 2, 1), L"270");
        Radii(window)->setFocus();
        PressKey(window, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(CellText(Radii(window), 2, 1), L"260");
        EXPECT_EQ(CellText(Radii(window), 2, 2), L"150");
        PressKey(window, Qt::Key_Y, Qt::ControlModifier);
        EXPECT_EQ(CellText(Radii(window), 2, 1), L"270");
        PressKey(window, Qt::Key_Z, Qt::ControlModifier);
        PressKey(window, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(CellText(Radii(window), 2, 1), L"250") << "what was entered before, as well";
        Click(window, IDCANCEL);
    });
}

// Fields, data sources and tables that no grid shows are taken back as well.
TEST_F(TakeFromDialog, IsTakenBackWhole)
{
    S source = Make(L"丙", 30);
    source.LonGrad.MinGrad = 0.7;
    source.LonGrad.Criterion = L"别的规范";
    for (int i = 0; i < 2; ++i)
        source.SuperElevation.definitions[i].rows[0].ranges[0].minRadius += 3;
    AddSaved(source);
    const S before = m_edited;
    ASSERT_GT(Differences(before, source).size(), 5U);
    Edit("超高", [](QWidget* window) {
        EXPECT_FALSE(Control(window, kUndoTake)->isVisible());
        Take(window, [](QWidget* dialog) {
            auto* const sources = Control<QComboBox>(dialog, D::kSource);
            sources->setCurrentIndex(sources->findText(QStringLiteral("丙")));
            Choose(dialog, kEverything);
            Click(dialog, IDOK);
        });
        EXPECT_TRUE(Control(window, kUndoTake)->isVisible());
        Click(window, kUndoTake);
        EXPECT_FALSE(Control(window, kUndoTake)->isVisible());
        Click(window, IDOK);
    });
    Reload();
    EXPECT_EQ(Differences(before, *Library().Item(L"甲")), std::vector<Difference>());
}

TEST_F(TakeFromDialog, TakingBackKeepsWhatWasEnteredSince)
{
    Edit("圆曲线半径", [](QWidget* window) {
        Take(window, TakeAll(kThisPage));
        EXPECT_EQ(CellText(Radii(window), 2, 1), L"270");
        EditCell(Radii(window), 2, 2, L"999");
        Click(window, kUndoTake);
        EXPECT_EQ(CellText(Radii(window), 2, 1), L"250");
        EXPECT_EQ(CellText(Radii(window), 2, 2), L"999");
        Click(window, IDCANCEL);
    });
}

TEST_F(TakeFromDialog, TwoAreTakenBackOneByOne)
{
    Edit("圆曲线半径", [](QWidget* window) {
        Take(window, TakeAll(kThisPage));
        EditCell(Radii(window), 2, 1, L"260");
        Take(window, TakeAll(kThisPage));
        EXPECT_EQ(CellText(Radii(window), 2, 1), L"270");
        Click(window, kUndoTake);
        EXPECT_EQ(CellText(Radii(window), 2, 1), L"260");
        Click(window, kUndoTake);
        EXPECT_EQ(CellText(Radii(window), 2, 1), L"260") << "was entered since";
        EXPECT_EQ(CellText(Radii(window), 2, 2), L"150");
        EXPECT_FALSE(Control(window, kUndoTake)->isVisible());
        Click(window, IDCANCEL);
    });
}

TEST_F(TakeFromDialog, SingleValuesCanBeLeft)
{
    Edit("圆曲线半径", [](QWidget* window) {
        Take(window, [](QWidget* dialog) {
            Control(dialog, CompareId::Values)->setFocus();
            Click(dialog, CompareId::TakeBack); // the first of the two
            Click(dialog, IDOK);
        });
        EXPECT_EQ(CellText(Radii(window), 2, 1), L"250");
        EXPECT_EQ(CellText(Radii(window), 2, 2), L"170");
        Click(window, IDCANCEL);
    });
}

TEST_F(TakeFromDialog, APageThatIsTheSameHasNoStep)
{
    Edit("纵坡最小坡长", [](QWidget* window) {
        EditCell(Grid(PageOf(window), CDSPage::kGrid), 0, 1, L"300");
        ClickItem(window, "圆曲线半径");
        Take(window, TakeAll(kItsGroup));
        ClickItem(window, "纵坡最小坡长");
        CXTPReportControl* const lengths = Grid(PageOf(window), CDSPage::kGrid);
        EXPECT_EQ(CellText(lengths, 0, 1), L"300") << "what was entered there stays";
        lengths->setFocus();
        PressKey(window, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_NE(CellText(lengths, 0, 1), L"300");
        Click(window, IDCANCEL);
    });
}

TEST_F(TakeFromDialog, CancelChangesNothing)
{
    EXPECT_EQ(Edit("圆曲线半径",
                   [](QWidget* window) {
                       Take(window, [](QWidget* dialog) { Click(dialog, IDCANCEL); });
                       EXPECT_EQ(CellText(Radii(window), 2, 1), L"250");
                       PressKey(window, Qt::Key_Escape); // without a question
                   }),
              IDCANCEL);
}

TEST_F(TakeFromDialog, IsNotOfferedInViewMode)
{
    CDSMainDialog dialog(L"甲", false, nullptr, &m_frame);
    dialog.SetViewMode(L"");
    const ExpectModal modal([](QWidget* window) {
        EXPECT_FALSE(Control(window, kTakeFrom)->isVisible());
        Click(window, IDCANCEL);
    });
    dialog.DoModal();
}
