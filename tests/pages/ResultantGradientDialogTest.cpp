#include "pages/ResultantGradientDialog.h"

#include <gtest/gtest.h>

#include "base/Text.h"
#include "tests/pages/CellKeys.h"
#include "tests/pages/PageTest.h"

using namespace designspec;

namespace {

using C = CDSMaxResultantGrad;

class ResultantGradientDialog : public PageTest<CResultantGradientDialog> {
protected:
    void Load(const C& criterion)
    {
        PageTest::Load(&CDesignSpecification::MaxResultantGrad, criterion);
    }
    static C& Stored() { return Specification().MaxResultantGrad; }
    static C Empty()
    {
        C criterion;
        criterion.Item(C::CityRoad).RemoveAll();
        return criterion;
    }
    static C TwoClasses()
    {
        C criterion = Empty();
        criterion.Item(C::FreeWay) = {{120, 9.5}, {80, 10}};
        criterion.Item(C::HighwayClass1) = {{100, 8}, {80, 5.5}};
        return criterion;
    }
    CXTPReportControl* TheGrid() { return Grid(&m_page, CDSPage::kGrid); }
    std::string Headers()
    {
        std::string texts;
        for (int row = 0; row < TheGrid()->GetRecords().GetCount(); ++row)
            texts += (row ? " " : "") + ToUtf8(CellText(TheGrid(), row, 0));
        return texts;
    }
};

} // namespace

TEST_F(ResultantGradientDialog, ShowsTheBuiltInCityRoadsBeforeAnythingIsLoaded)
{
    Show();
    EXPECT_EQ(Headers(), "城市道路");
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 80 60 50 40 30 20");
    EXPECT_EQ(Row(TheGrid(), 0), "7 6.5 6.5 7 7 8");
    EXPECT_EQ(TextOf(108), "6.0");
    EXPECT_EQ(TextOf(118), "");
    EXPECT_EQ(TextOf(119), "在右键菜单中添加或删除车速和道路等级");
    EXPECT_EQ(Labels(), "最大合成坡度(%):|积雪冰冻地区最大合成坡度(%):");
    EXPECT_FALSE(IsShown(106));
    EXPECT_EQ(TheGrid()->ShownColumn(0)->GetWidth(), 140);
    EXPECT_EQ(TheGrid()->ShownColumn(1)->GetWidth(), 40);
}

TEST_F(ResultantGradientDialog, ASpeedOfOneRoadClassLeavesTheOthersEmpty)
{
    Show();
    Load(TwoClasses());
    EXPECT_EQ(Headers(), "高速公路 一级公路");
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 120 100 80");
    EXPECT_EQ(Row(TheGrid(), 0), "9.5 - 10");
    EXPECT_EQ(Row(TheGrid(), 1), "- 8 5.5");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored(), TwoClasses());
}

TEST_F(ResultantGradientDialog, TheMenuListsSpeedsAndRoadClasses)
{
    Show();
    Load(TwoClasses());
    EXPECT_EQ(MenuOf(TheGrid(), 0, 1),
              (std::vector<std::string>{"[x] 120 km/h", "[x] 100 km/h", "[x] 80 km/h", "60 km/h",
                                        "50 km/h", "40 km/h", "30 km/h", "20 km/h", "输入车速...",
                                        "---", "城市道路", "[x] 高速公路", "[x] 一级公路",
                                        "二级公路", "三级公路", "四级公路", "其它道路"}));
}

TEST_F(ResultantGradientDialog, TheMenuListsOtherSpeedsInTheirPlace)
{
    C criterion;
    criterion.Item(C::CityRoad) = {{120, 1}, {100, 1}, {90, 1}, {80, 1}, {60, 1},
                                   {50, 1},  {40, 1},  {30, 1}, {20, 1}, {10, 1}};
    for (int type = 1; type < C::kRoadTypes; ++type)
        criterion.tables[type] = {{20, 2}};
    Show();
    Load(criterion);
    const std::vector<std::string> menu = {
        "[x] 120 km/h", "[x] 100 km/h", "[x] 90 km/h",  "[x] 80 km/h",  "[x] 60 km/h",
        "[x] 50 km/h",  "[x] 40 km/h",  "[x] 30 km/h",  "[x] 20 km/h",  "[x] 10 km/h",
        "输入车速...",  "---",          "[x] 城市道路", "[x] 高速公路", "[x] 一级公路",
        "[x] 二级公路", "[x] 三级公路", "[x] 四级公路", "[x] 其它道路"};
    EXPECT_EQ(MenuOf(TheGrid(), 6, 0), menu);
    EXPECT_EQ(HeaderMenuOf(TheGrid(), 3), menu);
}

TEST_F(ResultantGradientDialog, WhenItsRowsHaveGoneItsSpeedsStayAndAreGreyed)
{
    Show();
    ChooseFromMenu(TheGrid(), 0, 1, L"城市道路");
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 80 60 50 40 30 20");
    EXPECT_EQ(HeaderMenuOf(TheGrid(), 1)[2], "[x] (80 km/h)");
    ChooseFromHeaderMenu(TheGrid(), 1, L"高速公路");
    EXPECT_EQ(Row(TheGrid(), 0), "- - - - - -");
}

TEST_F(ResultantGradientDialog, TheSnowValueStandsBesideItsLabel)
{
    Show();
    const QWidget* const edit = Control(&m_page, 108);
    const auto labels = m_page.findChildren<QLabel*>();
    const auto label = std::find_if(labels.begin(), labels.end(),
                                    [edit](const QLabel* one) { return one->buddy() == edit; });
    ASSERT_NE(label, labels.end());
    EXPECT_EQ((*label)->text().toStdString(), "积雪冰冻地区最大合成坡度(%):");
    EXPECT_LT(edit->x() - (*label)->geometry().right(), 20);
}

TEST_F(ResultantGradientDialog, WithoutARowOnlyARoadClassCanBeAdded)
{
    Show();
    Load(Empty());
    EXPECT_EQ(HeaderMenuOf(TheGrid(), 0),
              (std::vector<std::string>{"(120 km/h)", "(100 km/h)", "(80 km/h)", "(60 km/h)",
                                        "(50 km/h)", "(40 km/h)", "(30 km/h)", "(20 km/h)",
                                        "(输入车速...)", "---", "城市道路", "高速公路", "一级公路",
                                        "二级公路", "三级公路", "四级公路", "其它道路"}));
    ChooseFromHeaderMenu(TheGrid(), 0, L"二级公路");
    ChooseFromHeaderMenu(TheGrid(), 0, L"60 km/h");
    EditCell(TheGrid(), 0, 1, L"9.5");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().Item(C::HighwayClass2), (SpeedToDoubleValues{{60, 9.5}}));
}

TEST_F(ResultantGradientDialog, ARemovedRoadClassIsStoredEmpty)
{
    Show();
    Load(TwoClasses());
    ChooseFromMenu(TheGrid(), 0, 1, L"一级公路");
    EXPECT_EQ(Headers(), "高速公路");
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 120 100 80");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().Item(C::HighwayClass1).count, 0);
    EXPECT_EQ(Stored().Item(C::FreeWay), TwoClasses().Item(C::FreeWay));
    m_page.Callback().Load(L"甲");
    EXPECT_EQ(Headers(), "高速公路");
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 120 80");
}

TEST_F(ResultantGradientDialog, AnAddedRoadClassStandsLastUntilItIsLoadedAgain)
{
    Show();
    Load(TwoClasses());
    ChooseFromMenu(TheGrid(), 0, 1, L"其它道路");
    ChooseFromMenu(TheGrid(), 0, 1, L"城市道路");
    EXPECT_EQ(Headers(), "高速公路 一级公路 其它道路 城市道路");
    EXPECT_EQ(Row(TheGrid(), 2), "- - -");
    EditCell(TheGrid(), 2, 1, L"4");
    EditCell(TheGrid(), 3, 3, L"7.5");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().Item(C::OtherRoad), (SpeedToDoubleValues{{120, 4}}));
    EXPECT_EQ(Stored().Item(C::CityRoad), (SpeedToDoubleValues{{80, 7.5}}));
    m_page.Callback().Load(L"甲");
    EXPECT_EQ(Headers(), "城市道路 高速公路 一级公路 其它道路");
    EXPECT_EQ(Row(TheGrid(), 0), "- - 7.5");
}

TEST_F(ResultantGradientDialog, ARoadClassWithoutValuesIsGoneAfterTheNextLoad)
{
    Show();
    Load(TwoClasses());
    ChooseFromMenu(TheGrid(), 0, 1, L"四级公路");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored(), TwoClasses());
    m_page.Callback().Load(L"甲");
    EXPECT_EQ(Headers(), "高速公路 一级公路");
}

TEST_F(ResultantGradientDialog, AnAddedSpeedIsNarrowerAndTakesDecimals)
{
    Show();
    Load(TwoClasses());
    ChooseFromMenu(TheGrid(), 0, 1, L"60 km/h");
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 120 100 80 60");
    EXPECT_EQ(TheGrid()->ShownColumn(4)->GetWidth(), 35);
    EXPECT_EQ(Row(TheGrid(), 1), "- 8 5.5 -");
    EditCell(TheGrid(), 0, 4, L"6.50");
    EXPECT_EQ(Row(TheGrid(), 0), "9.5 - 10 6.5");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().Item(C::FreeWay), (SpeedToDoubleValues{{120, 9.5}, {80, 10}, {60, 6.5}}));
    EXPECT_EQ(Stored().Item(C::HighwayClass1), TwoClasses().Item(C::HighwayClass1));
    m_page.Callback().Load(L"甲");
    EXPECT_EQ(TheGrid()->ShownColumn(4)->GetWidth(), 40);
}

TEST_F(ResultantGradientDialog, ASpeedCanBeEnteredAndRemoved)
{
    Show();
    Load(TwoClasses());
    {
        ExpectModal menu([](QWidget* window) { ChooseMenuItem(window, L"输入车速..."); });
        ExpectModal dialog([](QWidget* window) {
            TypeInto(window, 108, L"90");
            Click(window, IDOK);
        });
        RightClickCell(TheGrid(), 0, 1);
    }
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 120 100 90 80");
    ChooseFromMenu(TheGrid(), 0, 1, L"120 km/h");
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 100 90 80");
}

TEST_F(ResultantGradientDialog, PastedRoadClassesThatAreMissingAreOffered)
{
    Show();
    Load(TwoClasses());
    {
        const ExpectMessage box(L"表格中没有道路等级 二级公路。添加后粘贴?", L"提示",
                                MB_ICONQUESTION, IDYES);
        PasteAt(TheGrid(), 0, 1, L"\t100\t80\n二级公路\t10\t9.5%\n高速公路\t-\t8\n村道\t7\t7");
    }
    EXPECT_EQ(Headers(), "高速公路 一级公路 二级公路");
    EXPECT_EQ(Row(TheGrid(), 0), "9.5 - 8");
    EXPECT_EQ(Row(TheGrid(), 2), "- 10 9.5");
    EXPECT_TRUE(HasLabel("3 个值, 按标题填入, 1 个不合格: 高速公路 100 “-”, 1 行没有对应: 村道"));
}

TEST_F(ResultantGradientDialog, TheSnowValueHasAtMostOneDecimal)
{
    Show();
    Load(TwoClasses());
    for (const wchar_t* text : {L"6.55", L"-1", L"x", L"."}) {
        TypeInto(&m_page, 108, text);
        EXPECT_EQ(Fault(), "积雪冰冻地区最大合成坡度必须大于等于0,并且最多只有一位小数!")
            << ToUtf8(text);
    }
    for (const wchar_t* text : {L"", L"  "}) {
        TypeInto(&m_page, 108, text);
        EXPECT_EQ(Fault(), "积雪冰冻地区最大合成坡度不能是空!");
    }
    m_page.FocusRefused();
    EXPECT_TRUE(Control(&m_page, 108)->hasFocus());
    const std::pair<const wchar_t*, double> kAccepted[] = {
        {L"6", 6}, {L" 6.5 ", 6.5}, {L"0", 0}, {L"7.", 7}};
    for (const auto& [text, value] : kAccepted) {
        TypeInto(&m_page, 108, text);
        EXPECT_EQ(Fault(), "") << ToUtf8(text);
        ASSERT_TRUE(Save());
        EXPECT_EQ(Stored().MaxResultantGradOnSnowFrozenRegion, value);
    }
}

TEST_F(ResultantGradientDialog, AFailureLeavesWhatComesAfterIt)
{
    Show();
    Load(TwoClasses());
    C criterion;
    CString message;
    TypeInto(&m_page, 108, L"6.55");
    EXPECT_FALSE(m_page.StoreStep(criterion, message));
    EXPECT_EQ(criterion.MaxResultantGradOnSnowFrozenRegion, 6.55);
    EXPECT_EQ(criterion.Item(C::CityRoad), C().Item(C::CityRoad));
    EXPECT_EQ(criterion.Item(C::FreeWay).count, 0);

    criterion = C();
    TypeInto(&m_page, 108, L" ");
    EXPECT_FALSE(m_page.StoreStep(criterion, message));
    EXPECT_EQ(criterion, C());
}

TEST_F(ResultantGradientDialog, KeepsItsSource)
{
    ExpectKeepsSource(118, &CDesignSpecification::MaxResultantGrad);
}

TEST_F(ResultantGradientDialog, ViewModeLocksAllButTheSource)
{
    C criterion;
    criterion.Criterion = L"来源";
    Load(criterion);
    Show(true);
    EXPECT_FALSE(IsEnabled(108));
    EXPECT_FALSE(IsShown(119));
    EditCell(TheGrid(), 0, 1, L"5");
    EXPECT_EQ(Row(TheGrid(), 0), "7 6.5 6.5 7 7 8");
    ExpectNoMenu(TheGrid());
    EXPECT_EQ(ReadLockedSource(118), "来源");
}
