#include "pages/TransitionCurveDialog.h"

#include <gtest/gtest.h>

#include "tests/pages/PageTest.h"

namespace {

constexpr char kNoLengths[] = "缓和曲线最小长度不能为空!";
constexpr char kNoRadii[] = "不设缓和曲线的最小圆曲线半径条件不能为空!";

class TransitionCurveDialog : public PageTest<CTransitionCurveDialog> {
protected:
    static constexpr int kBySuperelevation = 111;
    static constexpr int kByMinRad = 112;
    static constexpr int kRadiusGrid = 10002;

    void Load(const CTransitionCurveMinLen& criterion)
    {
        PageTest::Load(&CDesignSpecification::TransitionCurveMinLen, criterion);
    }
    static CTransitionCurveMinLen& Stored() { return Specification().TransitionCurveMinLen; }
    static CTransitionCurveMinLen Make(BOOL flag, const SpeedToIntValues& lengths,
                                       const SpeedToIntValues& radii)
    {
        CTransitionCurveMinLen criterion;
        criterion.NoTCBySuperelevation = flag;
        criterion.MinLen = lengths;
        criterion.NoTCByMinRad = radii;
        criterion.Criterion = L"来源";
        return criterion;
    }
    CXTPReportControl* Lengths() { return Grid(&m_page, CDSPage::kGrid); }
    CXTPReportControl* Radii() { return Grid(&m_page, kRadiusGrid); }
    // Which of the two conditions is chosen, as a person sees it.
    void ExpectBySuperelevation(bool chosen)
    {
        EXPECT_EQ(m_page.IsDlgButtonChecked(kBySuperelevation), chosen);
        EXPECT_EQ(m_page.IsDlgButtonChecked(kByMinRad), !chosen);
        EXPECT_EQ(IsEnabled(kRadiusGrid), !chosen);
    }
};

} // namespace

TEST_F(TransitionCurveDialog, ShowsTheBuiltInLimitsBeforeAnythingIsLoaded)
{
    Show();
    EXPECT_EQ(Columns(Lengths()), "设计车速(km/h) 80 60 50 40 30 20");
    EXPECT_EQ(CellText(Lengths(), 0, 0), L"缓和曲线最小长度(m)");
    EXPECT_EQ(Row(Lengths(), 0), "70 50 45 35 25 20");
    EXPECT_EQ(Columns(Radii()), "设计车速(km/h) 80 60 50 40");
    EXPECT_EQ(CellText(Radii(), 0, 0), L"最小圆曲线半径(m)");
    EXPECT_EQ(Row(Radii(), 0), "2000 1000 700 500");
    ExpectBySuperelevation(false);
    EXPECT_EQ(Lengths()->ShownColumn(0)->GetWidth(), 135);
    EXPECT_EQ(Radii()->ShownColumn(0)->GetWidth(), 140);
    EXPECT_EQ(Lengths()->ShownColumn(1)->GetWidth(), 40);
    EXPECT_EQ(Radii()->ShownColumn(1)->GetWidth(), 40);
}

TEST_F(TransitionCurveDialog, HasItsCaptions)
{
    Show();
    EXPECT_EQ(TextOf(kBySuperelevation), "圆曲线半径大于不设超高最小半径");
    EXPECT_EQ(TextOf(kByMinRad), "圆曲线半径大于下值");
    EXPECT_EQ(TextOf(119), "在右键菜单中添加或删除车速");
    EXPECT_EQ(TextOf(125), "在右键菜单中添加或删除车速");
    EXPECT_EQ(TextOf(118), "");
    EXPECT_EQ(Labels(), "缓和曲线最小长度|不设缓和曲线的条件");
    EXPECT_FALSE(IsShown(106));
    EXPECT_FALSE(IsShown(113));
}

TEST_F(TransitionCurveDialog, StoresWhatItLoaded)
{
    const auto criterion = Make(0, {{80, 70}, {60, 50}}, {{100, 3000}});
    Show();
    Load(criterion);
    Stored() = CTransitionCurveMinLen();
    EXPECT_EQ(Fault(), "");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored(), criterion);
}

TEST_F(TransitionCurveDialog, TheRadiiCanBeUsedWhileTheyDecide)
{
    Show();
    Click(&m_page, kBySuperelevation);
    ExpectBySuperelevation(true);
    EXPECT_TRUE(IsEnabled(CDSPage::kGrid));
    Click(&m_page, kByMinRad);
    ExpectBySuperelevation(false);
}

TEST_F(TransitionCurveDialog, LengthsAreNeeded)
{
    Show();
    Load(Make(0, {{80, 70}}, {{80, 2000}}));
    EditCell(Lengths(), 0, 1, L"");
    EXPECT_EQ(Fault(), kNoLengths);
    m_page.FocusRefused();
    EXPECT_TRUE(Lengths()->hasFocus() || Lengths()->isAncestorOf(QApplication::focusWidget()));
    ChooseFromMenu(Lengths(), 0, 1, L"80 km/h");
    EXPECT_EQ(Columns(Lengths()), "设计车速(km/h)");
    EXPECT_EQ(Fault(), kNoLengths);
    EXPECT_FALSE(Save());
}

TEST_F(TransitionCurveDialog, RadiiAreNeededOnlyWhileTheyDecide)
{
    Show();
    Load(Make(0, {{80, 70}}, {}));
    EXPECT_EQ(Fault(), kNoRadii);
    Click(&m_page, kBySuperelevation);
    EXPECT_EQ(Fault(), "");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored(), Make(1, {{80, 70}}, {}));
}

TEST_F(TransitionCurveDialog, TheLengthsAreToldFirst)
{
    Show();
    Load(Make(0, {}, {}));
    EXPECT_EQ(Fault(), kNoLengths);
}

TEST_F(TransitionCurveDialog, AFailureKeepsWhatCameBeforeIt)
{
    Show();
    Load(Make(0, {{80, 70}}, {}));
    CTransitionCurveMinLen criterion;
    CString message;
    EXPECT_FALSE(m_page.StoreStep(criterion, message));
    EXPECT_EQ(criterion, Make(0, {{80, 70}}, {}));

    Load(Make(0, {}, {{80, 1}}));
    criterion = Make(0, {{60, 1}}, {{60, 2}});
    criterion.Criterion.clear();
    EXPECT_FALSE(m_page.StoreStep(criterion, message));
    EXPECT_EQ(criterion, Make(0, {}, {{60, 2}}));
}

TEST_F(TransitionCurveDialog, RadiiThatDoNotDecideAreNotStored)
{
    Show();
    Load(Make(0, {{80, 70}}, {{80, 2000}}));
    Click(&m_page, kBySuperelevation);
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored(), Make(1, {{80, 70}}, {}));
}

TEST_F(TransitionCurveDialog, AFlagThatIsSetStaysSetBesideNewRadii)
{
    Show();
    Load(Make(1, {{80, 70}}, {}));
    ExpectBySuperelevation(true);
    Click(&m_page, kByMinRad);
    {
        ExpectModal menu([](QWidget* window) { ChooseMenuItem(window, L"80 km/h"); });
        RightClickHeader(Radii(), 0);
    }
    EditCell(Radii(), 0, 1, L"2000");
    EXPECT_EQ(Fault(), "");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored(), Make(1, {{80, 70}}, {{80, 2000}}));
    m_page.Callback().Load(L"甲");
    ExpectBySuperelevation(true);
    EXPECT_EQ(Row(Radii(), 0), "2000");
}

TEST_F(TransitionCurveDialog, RadiiThatDoNotDecideHaveNoMenuAndNoEditor)
{
    Show();
    Load(Make(1, {{80, 70}}, {{80, 2000}}));
    RightClickCell(Radii(), 0, 1);
    RightClickHeader(Radii(), 1);
    WaitForNothing();
    EditCell(Radii(), 0, 1, L"5");
    EXPECT_EQ(Row(Radii(), 0), "2000");
}

TEST_F(TransitionCurveDialog, EachGridHasSpeedsOfItsOwn)
{
    Show();
    Load(Make(0, {{80, 70}}, {{60, 1000}}));
    const std::vector<std::string> menu = {"120 km/h", "100 km/h",   "80 km/h", "[x] 60 km/h",
                                           "50 km/h",  "40 km/h",    "30 km/h", "20 km/h",
                                           "---",      "输入车速..."};
    EXPECT_EQ(MenuOf(Radii(), 0, 1), menu);
    EXPECT_EQ(HeaderMenuOf(Radii(), 0), menu);
    EXPECT_EQ(HeaderMenuOf(Lengths(), 1)[2], "[x] 80 km/h");
    ChooseFromMenu(Lengths(), 0, 1, L"100 km/h");
    EXPECT_EQ(Columns(Lengths()), "设计车速(km/h) 100 80");
    EXPECT_EQ(Columns(Radii()), "设计车速(km/h) 60");
    ChooseFromMenu(Radii(), 0, 1, L"40 km/h");
    EXPECT_EQ(Columns(Lengths()), "设计车速(km/h) 100 80");
    EXPECT_EQ(Columns(Radii()), "设计车速(km/h) 60 40");
    EditCell(Lengths(), 0, 1, L"90");
    EditCell(Radii(), 0, 2, L"0");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored(), Make(0, {{100, 90}, {80, 70}}, {{60, 1000}, {40, 0}}));
}

TEST_F(TransitionCurveDialog, KeepsItsSource)
{
    ExpectKeepsSource(118, &CDesignSpecification::TransitionCurveMinLen);
}

TEST_F(TransitionCurveDialog, ViewModeLocksAllButTheSource)
{
    Load(Make(0, {{80, 70}}, {{60, 1000}}));
    Show(true);
    EXPECT_FALSE(IsEnabled(kBySuperelevation));
    EXPECT_FALSE(IsEnabled(kByMinRad));
    EXPECT_FALSE(IsShown(119));
    EXPECT_FALSE(IsShown(125));
    for (CXTPReportControl* grid : {Lengths(), Radii()}) {
        const std::string shown = Row(grid, 0);
        EditCell(grid, 0, 1, L"5");
        EXPECT_EQ(Row(grid, 0), shown);
        RightClickCell(grid, 0, 1);
        RightClickHeader(grid, 1);
    }
    WaitForNothing();
    EXPECT_EQ(ReadLockedSource(118), "来源");
}
