#include "pages/BeelineLenDialog.h"

#include <gtest/gtest.h>

#include "base/Text.h"
#include "tests/pages/PageTest.h"

using namespace designspec;

namespace {

struct RowIds {
    int check;
    int edit;
    int source;
    const char* name;
};
constexpr RowIds kRows[] = {{103, 104, 109, "最大直线长度"},
                            {105, 106, 110, "同向曲线间最小直线长度"},
                            {107, 108, 112, "反向曲线间最小直线长度"}};

class BeelineLenDialog : public PageTest<CBeelineLenDialog> {
protected:
    void Load(const CDSBeelineLen& criterion)
    {
        PageTest::Load(&CDesignSpecification::BeelineLen, criterion);
    }
    static CDSBeelineLen& Stored() { return Specification().BeelineLen; }
    static CDSBeelineLen Make(double max, double oneDir, double reverse)
    {
        CDSBeelineLen criterion;
        criterion.MaxLen = max;
        criterion.MinLenInOneDir = oneDir;
        criterion.MinLenReverseCurve = reverse;
        criterion.MaxLenCriterion = L"甲源";
        criterion.MinLenInOneDirCriterion = L"乙源";
        criterion.MinLenReverseCurveCriterion = L"丙源";
        return criterion;
    }
};

} // namespace

TEST_F(BeelineLenDialog, ShowsTheBuiltInLimitsBeforeAnythingIsLoaded)
{
    Show();
    EXPECT_EQ(TextOf(104), "20");
    EXPECT_EQ(TextOf(106), "6");
    EXPECT_EQ(TextOf(108), "2");
    for (const RowIds& row : kRows)
        EXPECT_TRUE(m_page.IsDlgButtonChecked(row.check));
}

TEST_F(BeelineLenDialog, HasItsCaptionsToTheLastBlank)
{
    EXPECT_EQ(TextOf(103), "最大直线长度(m) ≤");
    EXPECT_EQ(TextOf(105), "同向曲线间最小直线长度(m) ≥ ");
    EXPECT_EQ(TextOf(107), "反向曲线间最小直线长度(m) ≥ ");
    EXPECT_EQ(Labels(), "倍设计速度(km/h)|倍设计速度(km/h)|倍设计速度(km/h)");
    for (const RowIds& row : kRows)
        EXPECT_EQ(TextOf(row.source), "");
}

TEST_F(BeelineLenDialog, NoLimitsLoadClearedAndAreStoredAsNone)
{
    Show();
    Load(Make(0, 0, 0));
    for (const RowIds& row : kRows) {
        EXPECT_FALSE(m_page.IsDlgButtonChecked(row.check));
        EXPECT_EQ(TextOf(row.edit), "");
        EXPECT_FALSE(IsEnabled(row.edit));
        EXPECT_FALSE(IsEnabled(row.source));
    }
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().MaxLen, 0);
    EXPECT_EQ(Stored().MinLenInOneDir, 0);
    EXPECT_EQ(Stored().MinLenReverseCurve, 0);
    EXPECT_EQ(Stored().MaxLenCriterion, L"");
    EXPECT_EQ(Stored().MinLenInOneDirCriterion, L"");
    EXPECT_EQ(Stored().MinLenReverseCurveCriterion, L"");
}

TEST_F(BeelineLenDialog, ShowsWholeNumbersWithoutAPoint)
{
    Show();
    Load(Make(20, 2.5, 0));
    EXPECT_EQ(TextOf(104), "20");
    EXPECT_EQ(TextOf(106), "2.5");
    EXPECT_TRUE(IsEnabled(106));
    EXPECT_FALSE(IsEnabled(108));
}

TEST_F(BeelineLenDialog, StoresWhatItLoaded)
{
    Show();
    Load(Make(20, 2.5, 3));
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored(), Make(20, 2.5, 3));
}

TEST_F(BeelineLenDialog, EachRowRefusesWhatIsNoPositiveNumber)
{
    Show();
    for (const RowIds& row : kRows) {
        const std::string name = row.name;
        TypeInto(&m_page, row.edit, L"   ");
        EXPECT_EQ(Fault(), name + "不能是空!");
        for (const wchar_t* text : {L"0", L"-5", L"1.25", L"abc"}) {
            TypeInto(&m_page, row.edit, text);
            EXPECT_EQ(Fault(), name + "必须是正数,且最多只有一位小数!") << ToUtf8(text);
        }
        for (const wchar_t* text : {L"20.", L"20.5", L" 12 ", L"１２．５"}) {
            TypeInto(&m_page, row.edit, text);
            EXPECT_EQ(Fault(), "") << ToUtf8(text);
        }
    }
}

TEST_F(BeelineLenDialog, TheFirstRowThatFailsIsTold)
{
    Show();
    TypeInto(&m_page, 106, L"x");
    TypeInto(&m_page, 108, L"");
    EXPECT_EQ(Fault(), "同向曲线间最小直线长度必须是正数,且最多只有一位小数!");
    m_page.FocusRefused();
    EXPECT_TRUE(Control(&m_page, 106)->hasFocus());
}

TEST_F(BeelineLenDialog, AFailureKeepsTheReadingButNotTheSource)
{
    Show();
    Load(Make(20, 6, 2));
    TypeInto(&m_page, 104, L"30");
    TypeInto(&m_page, 106, L"1.25");
    CDSBeelineLen criterion = Make(1, 1, 1);
    criterion.MaxLenCriterion = criterion.MinLenInOneDirCriterion = L"旧";
    CString message;
    EXPECT_FALSE(m_page.StoreStep(criterion, message));
    EXPECT_EQ(criterion.MaxLen, 30);
    EXPECT_EQ(criterion.MaxLenCriterion, L"甲源");
    EXPECT_EQ(criterion.MinLenInOneDir, 1.25);
    EXPECT_EQ(criterion.MinLenInOneDirCriterion, L"旧");
    EXPECT_EQ(criterion.MinLenReverseCurve, 1);
}

TEST_F(BeelineLenDialog, AClearedRowHasNeitherLimitNorSource)
{
    Show();
    Load(Make(20, 6, 2));
    TypeInto(&m_page, 106, L"abc");
    Click(&m_page, 105);
    EXPECT_FALSE(IsEnabled(106));
    EXPECT_FALSE(IsEnabled(110));
    EXPECT_EQ(Fault(), "");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().MinLenInOneDir, 0);
    EXPECT_EQ(Stored().MinLenInOneDirCriterion, L"");
    EXPECT_EQ(Stored().MaxLenCriterion, L"甲源");
}

TEST_F(BeelineLenDialog, KeepsASourceForEachRow)
{
    Show();
    Load(Make(20, 6, 2));
    EXPECT_EQ(ReadSource(109), "甲源");
    EXPECT_EQ(ReadSource(110), "乙源");
    EXPECT_EQ(ReadSource(112), "丙源");
    EnterSource(112, L"丁源");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().MinLenReverseCurveCriterion, L"丁源");
}

TEST_F(BeelineLenDialog, ViewModeLocksBoxesAndFieldsAndShowsTheSources)
{
    Load(Make(20, 6, 2));
    Show(true);
    for (const RowIds& row : kRows) {
        EXPECT_FALSE(IsEnabled(row.check));
        EXPECT_FALSE(IsEnabled(row.edit));
        EXPECT_TRUE(IsEnabled(row.source));
    }
    EXPECT_EQ(ReadLockedSource(109), "甲源");
    EXPECT_EQ(ReadLockedSource(110), "乙源");
    EXPECT_EQ(ReadLockedSource(112), "丙源");
}
