// Curves beside the grids of the product's pages, with keys and the mouse.
#include "pages/framework/GridCurves.h"

#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QSettings>

#include "pages/CurveWideningPage.h"
#include "pages/LonGradLenDialog.h"
#include "pages/MaxSuperElevPage.h"
#include "pages/PageTable.h"
#include "pages/RadiusDialog.h"
#include "pages/SuperElevationPage.h"
#include "pages/TransitionCurveDialog.h"
#include "pages/framework/CurveView.h"
#include "tests/pages/CellKeys.h"
#include "tests/pages/PageTest.h"

namespace {

constexpr int kRadii = 1001;

template <class Page> class CurvesOfPage : public PageTest<Page> {
protected:
    CurvesOfPage() { QSettings().remove(QStringLiteral("DSMainDialog/curves")); }

    CurveView* View(int place = 0)
    {
        return this->m_page.template findChildren<CurveView*>()[place];
    }
    void SwitchOn() { Click(&this->m_page, CDSPage::kCurves); }

    // The values of the curve of that name, from left to right.
    std::string Values(const wchar_t* name)
    {
        std::string values;
        for (const CurveView* view : this->m_page.template findChildren<CurveView*>())
            for (const CurveChart& chart : view->Content().charts)
                for (const Curve& curve : chart.curves)
                    for (const CurvePoint& point : curve.points)
                        if (curve.name == name)
                            values += (values.empty() ? "" : " ") +
                                      QString::number(point.value).toStdString();
        return values;
    }
    static CString MarkAt(const CXTPReportControl* grid, int row, int column)
    {
        return grid->ItemAt(grid->IndexOf(row, column))->GetMark();
    }
    // What the grid shows of a cell's corner.
    static QColor CornerOf(CXTPReportControl* grid, int row, int column)
    {
        const QRect cell = grid->visualRect(grid->IndexOf(row, column));
        return grid->viewport()->grab().toImage().pixelColor(cell.topRight() - QPoint(3, -2));
    }
};

using CurvesOfRadii = CurvesOfPage<CRadiusDialog>;
constexpr wchar_t kLeast[] = L"设超高最小半径"; // its third row

TEST_F(CurvesOfRadii, AreShownByTheButtonAndByItsKey)
{
    Show();
    EXPECT_FALSE(View()->isVisible());
    SwitchOn();
    EXPECT_TRUE(View()->isVisible());
    PressKey(&m_frame, Qt::Key_G, Qt::AltModifier); // presses the button for a moment
    EXPECT_TRUE(QTest::qWaitFor([this] { return !View()->isVisible(); }));
    PressKey(&m_frame, Qt::Key_G, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return View()->isVisible(); }));
    EXPECT_EQ(Values(kLeast), "20 40 70 100 150 250");
}

TEST_F(CurvesOfRadii, AreRememberedForOtherPages)
{
    Show();
    SwitchOn();
    m_page.hide();
    CMaxSuperElevPage other;
    ASSERT_TRUE(other.Create(&m_frame));
    m_frame.layout()->addWidget(&other);
    other.show();
    EXPECT_TRUE(Control<QPushButton>(&other, CDSPage::kCurves)->isChecked());
    EXPECT_TRUE(other.findChild<CurveView*>()->isVisible());
    Click(&other, CDSPage::kCurves);
    m_page.show();
    EXPECT_FALSE(View()->isVisible());
}

TEST_F(CurvesOfRadii, FollowEachKeystroke)
{
    Show();
    SwitchOn();
    CXTPReportControl* const grid = Grid(&m_page, kRadii);
    ClickCell(grid, 2, 2); // 60 km/h
    Type(grid, L"1");
    EXPECT_EQ(Values(kLeast), "20 40 70 100 1 250");
    Type(grid, L"4");
    EXPECT_EQ(Values(kLeast), "20 40 70 100 14 250");
    Type(grid, L"x"); // no number
    EXPECT_EQ(Values(kLeast), "20 40 70 100 250");
    PressKey(grid, Qt::Key_Escape);
    EXPECT_EQ(Values(kLeast), "20 40 70 100 150 250");
    EditCell(grid, 2, 2, L"140");
    EXPECT_EQ(Values(kLeast), "20 40 70 100 140 250");
    PressKey(grid, Qt::Key_Escape);
    PressKey(grid, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Values(kLeast), "20 40 70 100 150 250");
    PasteAt(grid, 2, 1, L"260\t160\t110");
    EXPECT_EQ(Values(kLeast), "20 40 70 110 160 260");
    PressKey(grid, Qt::Key_Delete);
    ChooseFromMenu(grid, 2, 1, L"20 km/h"); // its column goes
    EXPECT_EQ(Values(L"不设超高最小半径"), "150 300 400 600 1000");
}

TEST_F(CurvesOfRadii, TakeAClickToTheCell)
{
    Show();
    SwitchOn();
    CXTPReportControl* const grid = Grid(&m_page, kRadii);
    QTest::mouseClick(View(), Qt::LeftButton, {}, View()->PlaceOf({2, 0}));
    EXPECT_EQ(grid->currentIndex(), grid->IndexOf(2, 1));
    EXPECT_TRUE(grid->hasFocus());
    EXPECT_EQ(View()->Content().current, (CurveCell{2, 0}));
    Type(grid, L"255"); // ready to be typed over
    PressKey(grid, Qt::Key_Return);
    EXPECT_EQ(Values(kLeast), "20 40 70 100 150 255");
}

// A click beside it takes what is being typed in, as a click on the grid does.
TEST_F(CurvesOfRadii, TakeInWhatIsTypedBeforeAClick)
{
    Show();
    SwitchOn();
    CXTPReportControl* const grid = Grid(&m_page, kRadii);
    ClickCell(grid, 2, 2);
    Type(grid, L"145");
    QTest::mouseClick(View(), Qt::LeftButton, {}, View()->PlaceOf({0, 0}));
    EXPECT_EQ(CellText(grid, 2, 2), L"145");
    EXPECT_EQ(grid->currentIndex(), grid->IndexOf(0, 1));
}

TEST_F(CurvesOfRadii, AreReachedByTabAndShowTheCellOfTheKeys)
{
    Show();
    SwitchOn();
    CXTPReportControl* const grid = Grid(&m_page, kRadii);
    GoToCell(grid, 1, 3);
    EXPECT_EQ(View()->Content().current, (CurveCell{1, 2}));
    View()->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(View()->Readout().toStdString(), "设计车速 50 km/h\n不设超高最小半径: 400 m\n"
                                               "设超高推荐半径: 200 m\n设超高最小半径: 100 m");
    PressKey(&m_frame, Qt::Key_Right);
    EXPECT_EQ(grid->currentIndex(), grid->IndexOf(1, 2));
    EXPECT_FALSE(grid->hasFocus());
    PressKey(&m_frame, Qt::Key_Down);
    PressKey(&m_frame, Qt::Key_Return);
    EXPECT_EQ(grid->currentIndex(), grid->IndexOf(2, 2));
    EXPECT_TRUE(grid->hasFocus());
    // Where Tab comes by.
    QWidget* next = grid;
    while (next != View() && next != Control(&m_page, CDSPage::kCurves))
        next = next->nextInFocusChain();
    EXPECT_EQ(next, View());
}

TEST_F(CurvesOfRadii, MarkAValueThatMayBeASlipInTheGrid)
{
    Show(); // also while the curves are not shown
    CXTPReportControl* const grid = Grid(&m_page, kRadii);
    const QColor plain = CornerOf(grid, 2, 2);
    EditCell(grid, 2, 2, L"15");
    PressKey(grid, Qt::Key_Escape);
    EXPECT_EQ(MarkAt(grid, 2, 2), kOddValueText);
    EXPECT_TRUE(MarkAt(grid, 2, 1).empty());
    EXPECT_TRUE(MarkAt(grid, 2, 3).empty());
    EXPECT_NE(CornerOf(grid, 2, 2), plain);
    EXPECT_EQ(CornerOf(grid, 1, 2), plain);
    const QString tip = grid->IndexOf(2, 2).data(Qt::ToolTipRole).toString();
    EXPECT_TRUE(tip.contains(ToQString(kOddValueText))) << tip.toStdString();
    PressKey(grid, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(MarkAt(grid, 2, 2).empty());
    EXPECT_EQ(CornerOf(grid, 2, 2), plain);
    PressKey(grid, Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(MarkAt(grid, 2, 2), kOddValueText);
}

TEST_F(CurvesOfRadii, StandBelowOrBesideOrNotAtAll)
{
    Show();
    SwitchOn();
    CXTPReportControl* const grid = Grid(&m_page, kRadii);
    const auto size = [&](int width, int height) {
        m_frame.resize(width, height);
        QTest::qWait(1);
        return grid->geometry().united(View()->geometry());
    };
    size(600, 700);
    EXPECT_TRUE(View()->isVisible());
    EXPECT_GT(View()->y(), grid->geometry().bottom());
    EXPECT_EQ(View()->width(), grid->width());
    size(1200, 330);
    EXPECT_TRUE(View()->isVisible());
    EXPECT_GT(View()->x(), grid->geometry().right());
    EXPECT_EQ(View()->height(), grid->height());
    // All cells are to be seen in either case.
    EXPECT_FALSE(grid->verticalScrollBar()->isVisible());
    EXPECT_FALSE(grid->horizontalScrollBar()->isVisible());
    size(480, 240);
    EXPECT_FALSE(View()->isVisible());
    EXPECT_EQ(grid->size(), grid->parentWidget()->size());
    size(600, 700);
    EXPECT_TRUE(View()->isVisible());
}

TEST_F(CurvesOfRadii, AreThereWhereNothingCanBeChanged)
{
    Show(true);
    EXPECT_TRUE(IsShown(CDSPage::kCurves));
    SwitchOn();
    EXPECT_TRUE(View()->isVisible());
    QTest::mouseClick(View(), Qt::LeftButton, {}, View()->PlaceOf({2, 0}));
    Type(Grid(&m_page, kRadii), L"9");
    EXPECT_EQ(Values(kLeast), "20 40 70 100 150 250");
}

using CurvesOfTransition = CurvesOfPage<CTransitionCurveDialog>;

TEST_F(CurvesOfTransition, AreShownForTheTableThatCounts)
{
    m_frame.resize(760, 900);
    Show();
    SwitchOn();
    Click(&m_page, 112);
    EXPECT_TRUE(View(0)->isVisible());
    EXPECT_TRUE(View(1)->isVisible());
    EXPECT_NE(Values(L"不设缓和曲线的最小圆曲线半径"), "");
    Click(&m_page, 111);
    EXPECT_TRUE(View(0)->isVisible());
    EXPECT_FALSE(View(1)->isVisible());
}

using CurvesOfGradeLengths = CurvesOfPage<CLonGradLenDialog>;

TEST_F(CurvesOfGradeLengths, FollowRowsThatComeAndGo)
{
    m_frame.resize(760, 800);
    CDSLonGradMaxLen lengths;
    lengths.rows = {{3, {{80, 900}, {60, 1000}}}, {5, {{80, 700}}}};
    Load(&CDesignSpecification::LonGradMaxLen, lengths);
    Show();
    SwitchOn();
    EXPECT_EQ(Values(L"80 km/h"), "900 700");
    CXTPReportControl* const grid = Grid(&m_page, CDSPage::kGrid);
    EditCell(grid, 1, 2, L"800");
    PressKey(grid, Qt::Key_Escape);
    EXPECT_EQ(Values(L"60 km/h"), "1000 800");
    ChooseFromMenu(grid, 0, 1, L"4%");
    EditCell(grid, 1, 1, L"750");
    EXPECT_EQ(Values(L"80 km/h"), "900 750 700");
}

using CurvesOfWidening = CurvesOfPage<CCurveWideningPage>;

TEST_F(CurvesOfWidening, AreStepsOverTheRadius)
{
    m_frame.resize(760, 600);
    Show();
    SwitchOn();
    EXPECT_EQ(Values(L"铰接车"), "3.5 2.8 1.9 1.5 1.25 0.95 0.75 0.55 0.45");
    EXPECT_TRUE(View()->Content().charts[0].isSteps);
    CXTPReportControl* const grid = Grid(&m_page, CDSPage::kGrid);
    EditCell(grid, 2, 4, L"9.5");
    PressKey(grid, Qt::Key_Escape);
    EXPECT_EQ(MarkAt(grid, 2, 4), kOddValueText);
    EXPECT_TRUE(MarkAt(grid, 2, 5).empty());
}

// The page of superelevations asks that of their maxima.
class SuperElevationAlone : public CSuperElevationPage {
public:
    SuperElevationAlone() : CSuperElevationPage(nullptr) {}
};
using CurvesOfSuperElevation = CurvesOfPage<SuperElevationAlone>;

TEST_F(CurvesOfSuperElevation, FollowTheTableThatIsChosenAndRangesThatAreTyped)
{
    m_frame.resize(760, 700);
    Show();
    SwitchOn();
    EXPECT_EQ(Values(L"80 km/h"), "6 5 4 3 2");
    CXTPReportControl* const grid = Grid(&m_page, CDSPage::kGrid);
    const auto first = [this] { return View()->Content().charts[0].curves[0].points[0]; };
    ClickCell(grid, 0, 1);
    Type(grid, L"25");
    EXPECT_EQ(Values(L"80 km/h"), "5 4 3 2"); // half a range is none, and nobody complains
    Type(grid, L"0 300");
    EXPECT_EQ(first().at, 250);
    EXPECT_EQ(first().end, 300);
    PressKey(grid, Qt::Key_Escape);
    EXPECT_EQ(first().at, 200);
    QListWidget* const list = m_page.findChild<QListWidget*>();
    list->setFocus();
    PressKey(list, Qt::Key_Down);
    EXPECT_EQ(Values(L"80 km/h"), "");
    EXPECT_EQ(Values(L"50 km/h"), "4 3 2");
}

TEST_F(CurvesOfSuperElevation, AreComparedWithTheSameTable)
{
    Show();
    CDesignSpecification other;
    other.SuperElevation.definitions[1].rows[0].ranges[0].maxRadius = 500;
    m_page.CompareCurves(&other, L"乙");
    ASSERT_EQ(View()->Content().compared.size(), 1U);
    EXPECT_EQ(View()->Content().compared[0].heading, L"最大超高 6%");
    QListWidget* const list = m_page.findChild<QListWidget*>();
    list->setFocus();
    PressKey(list, Qt::Key_Down);
    ASSERT_EQ(View()->Content().compared.size(), 1U);
    EXPECT_EQ(View()->Content().compared[0].heading, L"最大超高 4%");
    EXPECT_EQ(View()->Content().compared[0].curves[0].points[0].end, 500);
    m_page.CompareCurves(nullptr, L"");
    EXPECT_TRUE(View()->Content().compared.empty());
}

// Every page with tables has the button, and its curves say what they are.
TEST(GridCurves, AreOnEveryPageWithTables)
{
    QWidget frame;
    int pages = 0;
    CDSPage* before = nullptr;
    std::vector<std::unique_ptr<CDSPage>> all;
    for (const PageEntry& entry : PageTable()) {
        all.push_back(entry.make(before));
        before = all.back().get();
        ASSERT_TRUE(before->Create(&frame));
        const auto views = before->findChildren<CurveView*>();
        EXPECT_EQ(views.isEmpty(), before->GetDlgItem(CDSPage::kCurves) == nullptr);
        pages += views.isEmpty() ? 0 : 1;
        for (const CurveView* view : views)
            for (const CurveChart& chart : view->Content().charts) {
                EXPECT_FALSE(chart.across.unit.empty() || chart.up.unit.empty())
                    << ToUtf8(entry.label);
                for (const Curve& curve : chart.curves) {
                    EXPECT_FALSE(curve.name.empty());
                    EXPECT_FALSE(curve.points.empty()) << ToUtf8(entry.label);
                    for (const CurvePoint& point : curve.points)
                        EXPECT_FALSE(point.isOdd) << ToUtf8(entry.label); // built-in limits
                }
            }
    }
    EXPECT_EQ(pages, 12);
}

} // namespace
