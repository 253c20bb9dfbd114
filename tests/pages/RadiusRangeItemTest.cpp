#include "pages/RadiusRangeItem.h"

#include <QTest>

#include <gtest/gtest.h>

#include "base/Text.h"
#include "platform/xtp/report/ReportControl.h"
#include "tests/gui/Modal.h"

using namespace designspec;

namespace {

class RadiusRangeItem : public testing::Test {
protected:
    RadiusRangeItem() { m_grid.show(); } // one that nobody sees tells nothing
    void Enter(const wchar_t* text) { m_cell.OnEditChanged(&m_grid, text); }
    void ExpectRange(int min, int max, const wchar_t* caption)
    {
        EXPECT_FALSE(m_cell.IsEmpty());
        EXPECT_EQ(m_cell.GetMinRadius(), min);
        EXPECT_EQ(m_cell.GetMaxRadius(), max);
        EXPECT_EQ(ToUtf8(m_cell.GetCaption()), ToUtf8(caption));
    }
    void ExpectEmpty()
    {
        EXPECT_TRUE(m_cell.IsEmpty());
        EXPECT_EQ(m_cell.GetMinRadius(), 0);
        EXPECT_EQ(m_cell.GetMaxRadius(), 0);
        EXPECT_EQ(m_cell.GetCaption(), L"");
    }

    CXTPReportControl m_grid;
    CRadiusRangeItem m_cell;
};

} // namespace

TEST_F(RadiusRangeItem, ANewCellIsEmpty)
{
    ExpectEmpty();
}

TEST_F(RadiusRangeItem, ShowsItsRange)
{
    m_cell.SetRange(250, 300);
    ExpectRange(250, 300, L"250~300");
}

TEST_F(RadiusRangeItem, EndsAreSplitByWaveBlankOrComma)
{
    for (const wchar_t* text : {L"250~300", L"300~250", L"250 300", L"250,300", L" 250 , 300 ",
                                L"250~ 300", L"~250~300", L"250.9~300.1"}) {
        SCOPED_TRACE(ToUtf8(text));
        m_cell.SetEmpty();
        Enter(text);
        ExpectRange(250, 300, L"250~300");
    }
}

TEST_F(RadiusRangeItem, NothingEmptiesItWithoutAWord)
{
    for (const wchar_t* text : {L"", L"   "}) {
        m_cell.SetRange(250, 300);
        Enter(text);
        ExpectEmpty();
    }
    QTest::qWait(50); // a message box would fail the test
}

TEST_F(RadiusRangeItem, TellsWhatIsWrongAndIsEmptyThen)
{
    const std::pair<const wchar_t*, const wchar_t*> kCases[] = {
        {L"300", L"圆曲线半径范围的输入格式为 最小半径~最大半径 !"},
        {L"~", L"圆曲线半径范围的输入格式为 最小半径~最大半径 !"},
        {L"1 2 3", L"圆曲线半径范围的输入格式为 最小半径~最大半径 !"},
        {L"0~300", L"圆曲线半径必须大于0!"},
        {L"-5~300", L"圆曲线半径必须大于0!"},
        {L"abc~300", L"圆曲线半径必须大于0!"},
    };
    for (const auto& [text, message] : kCases) {
        SCOPED_TRACE(ToUtf8(text));
        m_cell.SetRange(250, 300);
        const ExpectMessage box(message);
        Enter(text);
        ExpectEmpty();
    }
}

TEST_F(RadiusRangeItem, TellsItWithoutAGridToo)
{
    const ExpectMessage box(L"圆曲线半径必须大于0!");
    m_cell.SetRange(1, 2);
    m_cell.OnEditChanged(nullptr, L"0~300");
    ExpectEmpty();
}

TEST_F(RadiusRangeItem, ItsStateHoldsBothEnds)
{
    m_cell.SetRange(250, 300);
    const designspec::ReportItemState state = m_cell.SaveState();
    m_cell.SetEmpty();
    m_cell.RestoreState(state);
    ExpectRange(250, 300, L"250~300");
}

TEST_F(RadiusRangeItem, ReadsPastedRanges)
{
    const CRadiusRangeItem cell;
    for (const wchar_t* text : {L"200-300", L"200～300", L"200至300", L"200m—300m"})
        EXPECT_EQ(cell.ReadPasted(text), L"200~300");
    EXPECT_EQ(cell.ReadPasted(L"250,300"), L"250,300");
}
