// What a pasted block does to the cells, and what the grid says about it.
#include "platform/xtp/report/ReportPaste.h"

#include <QApplication>
#include <QClipboard>

#include "platform/mfc/MessageBox.h"
#include "platform/xtp/report/TabText.h"
#include "tests/platform/xtp/report/TestGrid.h"

using namespace designspec;

namespace {

class ReportPasteTest : public TestGrid {
protected:
    void SetUp() override
    {
        TestGrid::SetUp();
        m_grid.SetColumnOffer(
            {L"车速",
             L" km/h",
             [](const CString& caption) { return Wtoi(caption) >= 10 ? caption : CString(); },
             [this](const CStringArray& names) { Add(names); },
             {L"120", L"100", L"80", L"60"}});
    }
    // Rows 坡度1%, 坡度2% ... can be added.
    void OfferRows()
    {
        m_grid.SetRowOffer({L"坡度", L"",
                            [](const CString& caption) {
                                const auto number = CaptionParts(caption).OnlyNumber(L"坡度");
                                return number && *number < 10
                                           ? Format(L"%d%%", static_cast<int>(*number))
                                           : CString();
                            },
                            [this](const CStringArray& names) {
                                for (const CString& name : names)
                                    AddRow(L"坡度" + name);
                            }});
    }
    void Paste(std::wstring_view text, int row = 0, int column = 1)
    {
        ReportPaste(m_grid).Block(PastedTable(ParseTabText(text), CaptionsOf(m_grid)),
                                  m_grid.IndexOf(row, column));
    }
    // The same where the user is asked about what is missing.
    void PasteAsked(const CString& question, int answer, std::wstring_view text)
    {
        const ExpectMessage box(question, L"提示", MB_ICONQUESTION, answer);
        Paste(text);
    }
    void Add(const CStringArray& captions)
    {
        for (const CString& caption : captions) {
            int item = 0;
            for (const auto& record : m_grid.GetRecords().All()) {
                item = record->GetItemCount();
                record->AddItem(new CTestNumberItem);
            }
            m_grid.GetColumns().Add(new CXTPReportColumn(item, caption, 40));
        }
    }
    void AddRow(const CString& caption)
    {
        CXTPReportRecord* const record = m_grid.GetRecords().Add(new CXTPReportRecord);
        record->AddItem(new CXTPReportRecordItem(caption))->SetEditable(false);
        while (record->GetItemCount() <= 3)
            record->AddItem(new CTestNumberItem);
    }
    void ExpectUndoneInOneStep()
    {
        Key(Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(Content(), m_initial);
        EXPECT_FALSE(m_grid.GetUndo().CanUndo());
        EXPECT_EQ(m_grid.GetRemark(), L"");
    }
};

} // namespace

TEST_F(ReportPasteTest, FindsRowsAndColumnsByTheirCaptions)
{
    Paste(L"车速\t80\t120\n行2\t803\t1203\n行0\t801\t1201", 1, 2);
    EXPECT_EQ(Content(), L"行0 1201 2 801|行1 11 12 13|行2 1203 22 803|");
    EXPECT_EQ(m_grid.GetRemark(), L"4 个值, 按标题填入");
    ExpectUndoneInOneStep();
}

TEST_F(ReportPasteTest, TurnsABlockThatLiesTheOtherWay)
{
    Paste(L"车速\t行2\t行0\n80\t803\t801\n120\t1203\t1201", 1, 2);
    EXPECT_EQ(Content(), L"行0 1201 2 801|行1 11 12 13|行2 1203 22 803|");
}

TEST_F(ReportPasteTest, PutsUnknownRowsWhereTheUserPoints)
{
    Paste(L"\t100\t80\n一般值\t700\t400\n极限值\t400\t250", 1, 1);
    EXPECT_EQ(Content(), L"行0 1 2 3|行1 11 700 400|行2 21 400 250|");
    EXPECT_EQ(m_grid.GetRemark(),
              L"4 个值, 按标题填入, 表格中没有这些行, 依次填入: 一般值、极限值");
}

TEST_F(ReportPasteTest, OffersColumnsThatAreMissing)
{
    PasteAsked(L"表格中没有车速 85 km/h。添加后粘贴?", IDYES, L"\t120\t85\t5\n行0\t7\t8\t9");
    EXPECT_EQ(Content(), L"行0 7 2 3 8|行1 11 12 13 |行2 21 22 23 |");
    EXPECT_EQ(m_grid.GetRemark(), L"2 个值, 按标题填入, 1 列没有对应: 5");
    ExpectUndoneInOneStep();
}

TEST_F(ReportPasteTest, LeavesColumnsOutThatNobodyWants)
{
    PasteAsked(L"表格中没有车速 85、70 km/h。添加后粘贴?", IDNO, L"\t120\t85\t70\n行0\t7\t8\t9");
    EXPECT_EQ(Content(), L"行0 7 2 3|行1 11 12 13|行2 21 22 23|");
    EXPECT_EQ(m_grid.GetRemark(), L"1 个值, 按标题填入, 2 列没有对应: 85、70");
}

TEST_F(ReportPasteTest, OffersRowsThatAreMissing)
{
    OfferRows();
    PasteAsked(L"表格中没有坡度 4%、3%。添加后粘贴?", IDYES,
               L"车速\t100\t120\n4%\t7\t8\n坡度 3%\t5\t6\n4\t9\t9\n行9\t1\t1");
    EXPECT_EQ(Content(), L"行0 1 2 3|行1 11 12 13|行2 21 22 23|坡度4% 9 9 |坡度3% 6 5 |");
    EXPECT_EQ(m_grid.GetRemark(), L"6 个值, 按标题填入, 1 行没有对应: 行9");
    ExpectUndoneInOneStep();
}

TEST_F(ReportPasteTest, AsksOnceAboutRowsAndColumns)
{
    OfferRows();
    PasteAsked(L"表格中没有坡度 3%, 没有车速 85 km/h。添加后粘贴?", IDYES, L"车速\t85\n3%\t7");
    EXPECT_EQ(Content(), L"行0 1 2 3 |行1 11 12 13 |行2 21 22 23 |坡度3%    7|");
    ExpectUndoneInOneStep();
}

TEST_F(ReportPasteTest, PutsRowsThatNobodyWantsNowhereElse)
{
    OfferRows();
    PasteAsked(L"表格中没有坡度 3%、4%。添加后粘贴?", IDNO, L"车速\t100\n坡度3%\t7\n坡度4%\t8");
    EXPECT_EQ(Content(), m_initial);
    EXPECT_EQ(m_grid.GetRemark(), L"0 个值, 按标题填入, 2 行没有对应: 坡度3%、坡度4%");
}

TEST_F(ReportPasteTest, ATableMakesTheRowsOfAnEmptyGrid)
{
    m_grid.GetRecords().RemoveAll();
    m_grid.Populate();
    OfferRows();
    QApplication::clipboard()->setText(QStringLiteral("车速\t100\n3%\t7"));
    {
        const ExpectMessage box(L"表格中没有坡度 3%。添加后粘贴?", L"提示", MB_ICONQUESTION, IDYES);
        Key(Qt::Key_V, Qt::ControlModifier);
    }
    EXPECT_EQ(Content(), L"坡度3%  7 |");
    EXPECT_EQ(m_grid.GetRemark(), L"1 个值, 按标题填入");
}

TEST_F(ReportPasteTest, AnEmptyGridTakesNoValues)
{
    m_grid.GetRecords().RemoveAll();
    m_grid.Populate();
    OfferRows();
    Paste(L"5\t6", -1, -1);
    EXPECT_EQ(Content(), L"");
    EXPECT_EQ(m_grid.GetRemark(), L"0 个值, 1 行超出");
}

TEST_F(ReportPasteTest, ShowsWhatActsOnALine)
{
    Paste(L"5\t\x1b[1m", 0, 1);
    EXPECT_EQ(m_grid.GetRemark(), L"1 个值, 1 个不合格: 行0 100 “\\x1B[1m”");
}

TEST_F(ReportPasteTest, SaysWhatWasLeftOutAndWhatIsNoValue)
{
    Paste(L"abc\t7.5\n\t8\n5\t6", 1, 2);
    EXPECT_EQ(Content(), L"行0 1 2 3|行1 11  7|行2 21  8|");
    EXPECT_EQ(
        m_grid.GetRemark(),
        L"2 个值, 1 个不合格: 行1 100 “abc”, 1 个舍去了小数: 行1 80 “7.5”, 1 个清空, 1 行超出");
    Paste(L"5\t6", 0, 3);
    EXPECT_EQ(m_grid.GetRemark(), L"1 个值, 1 列超出");
}

TEST_F(ReportPasteTest, NamesALineOnTopThatWasTakenForCaptions)
{
    Paste(L"一般值\t极限值\n5\t6", 1, 1);
    EXPECT_EQ(Content(), L"行0 1 2 3|行1 5 6 13|行2 21 22 23|");
    EXPECT_EQ(m_grid.GetRemark(), L"2 个值, 第一行当作标题: 一般值、极限值");
}

TEST_F(ReportPasteTest, NamesRowsThatTheGridHasNot)
{
    Paste(L"行1\t5\n行8\t6\n行9\t7");
    EXPECT_EQ(Content(), L"行0 1 2 3|行1 5 12 13|行2 21 22 23|");
    EXPECT_EQ(m_grid.GetRemark(), L"1 个值, 按标题填入, 2 行没有对应: 行8、行9");
}

TEST_F(ReportPasteTest, NamesNoMoreThanALineHolds)
{
    Paste(L"1\ta\tb\n1\tc\td", 1, 1);
    EXPECT_EQ(m_grid.GetRemark(), L"2 个值, 4 个不合格: 行1 100 “a”、行1 80 “b”、行2 100 “c” 等");
}

TEST_F(ReportPasteTest, TheNextChangeEndsTheRemark)
{
    Paste(L"abc\t5", 0, 0);
    ASSERT_EQ(m_grid.GetRemark(), L"1 个值, 表格中没有这些行, 依次填入: abc");
    m_grid.EnterText(m_grid.IndexOf(0, 1), L"5"); // what it holds already
    EXPECT_NE(m_grid.GetRemark(), L"");
    m_grid.EnterText(m_grid.IndexOf(0, 1), L"6");
    EXPECT_EQ(m_grid.GetRemark(), L"");
}

TEST_F(ReportPasteTest, SaysNothingWhenAllWentIn)
{
    Paste(L"5\t6\n7\t8");
    EXPECT_EQ(m_grid.GetRemark(), L"");
}

TEST_F(ReportPasteTest, EntersNoWords)
{
    Paste(L"一般值\n极限值");
    EXPECT_EQ(Content(), m_initial);
    EXPECT_EQ(m_grid.GetRemark(), L"没有粘贴: 剪贴板上没有数值");
    EXPECT_FALSE(m_grid.GetUndo().CanUndo());
}

TEST_F(ReportPasteTest, ATextForSeveralCellsIsJudgedForEach)
{
    ReportPaste(m_grid).Fill(L"abc",
                             {m_grid.IndexOf(0, 0), m_grid.IndexOf(0, 1), m_grid.IndexOf(1, 1)});
    EXPECT_EQ(Content(), L"行0  2 3|行1  12 13|行2 21 22 23|");
    EXPECT_EQ(m_grid.GetRemark(), L"0 个值, 2 个不合格: 行0 120 “abc”、行1 120 “abc”");
    ExpectUndoneInOneStep();
}

TEST_F(ReportPasteTest, AReadOnlyGridTakesNothing)
{
    m_grid.AllowEdit(false);
    Paste(L"5\t6");
    ReportPaste(m_grid).Fill(L"7", {m_grid.IndexOf(0, 1)});
    EXPECT_EQ(Content(), m_initial);
    EXPECT_EQ(m_grid.GetRemark(), L"");
}
