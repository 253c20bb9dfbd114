#include "pages/framework/HeaderedGrid.h"

#include <gtest/gtest.h>

#include "pages/framework/MyRecordItemPositiveInt.h"
#include "pages/framework/PageCallback.h"
#include "tests/pages/PageTest.h"

namespace {

constexpr UINT kFormWithGrid = 104;
using C = CDSCurveMinLen;

class CTestCallback : public CDSPageCallback<&CDesignSpecification::CurveMinLen> {
    using CDSPageCallback::CDSPageCallback;
};

// Its menu adds rows 甲 and 乙 and a column, and can be switched off.
class CTestGrid : public CHeaderedGrid {
public:
    using CHeaderedGrid::kFirstCommand;
    using CHeaderedGrid::RemoveValueColumns;

    void Create(CDSPage& page)
    {
        CreateGrid(
            page, [](int) { return MakeCell<CMyRecordItemPositiveInt>(); },
            CDSPage::kGridPlaceholder, CDSPage::kGrid, L"角", 90);
    }
    void AddColumn() { Control().GetColumns().Add(new CXTPReportColumn(AddCells(), L"列", 40)); }
    bool m_offered = true;
    std::vector<const CXTPReportColumn*> m_clicked;

protected:
    CMenu MakeMenu(const CXTPReportColumn*) const override
    {
        CMenu menu;
        if (!m_offered) return menu;
        menu.AppendMenu(MF_STRING, kFirstCommand, L"甲");
        menu.AppendMenu(MF_STRING, kFirstCommand + 1, L"乙");
        menu.AppendMenu(MF_STRING, kFirstCommand + 2, L"加一列");
        return menu;
    }
    void Choose(int index, const CXTPReportColumn* column) override
    {
        m_clicked.push_back(column);
        if (index == 2)
            AddColumn();
        else
            AddRow(index == 0 ? L"甲" : L"乙", static_cast<unsigned>(index) + 7);
    }
};

class CTestPage : public CCriterionPage<C> {
public:
    CTestPage() : CCriterionPage(kFormWithGrid) {}
    CDSCallback& Callback() override { return m_callback; }
    void LoadStep(const C&) override {}
    bool StoreStep(C&, CString&) override { return true; }
    CTestGrid m_grid;

protected:
    void InitPage() override { m_grid.Create(*this); }

private:
    CTestCallback m_callback{this};
};

class HeaderedGrid : public PageTest<CTestPage> {
protected:
    CXTPReportControl* TheGrid() { return Grid(&m_page, CDSPage::kGrid); }
    CTestGrid& Tested() { return m_page.m_grid; }
};

} // namespace

TEST_F(HeaderedGrid, FindsRowsByCaptionAndByNumber)
{
    Show();
    Tested().AddRow(L"Car", 5);
    Tested().AddRow(L"Bus", 6);
    Tested().InsertRow(0, L"Bike", 7);
    EXPECT_EQ(Tested().GetRowCount(), 3);
    EXPECT_EQ(Tested().RowHeader(0)->GetCaption(), L"Bike");
    EXPECT_FALSE(Tested().RowHeader(0)->IsEditable());
    EXPECT_EQ(Tested().FindRow(L"BUS"), 2);
    EXPECT_EQ(Tested().FindRow(L"Van"), -1);
    EXPECT_EQ(Tested().FindRow(5U), 1);
    EXPECT_EQ(Tested().FindRow(8U), -1);
    EXPECT_EQ(Tested().RowHeader(3), nullptr);
    Tested().RemoveRow(1);
    EXPECT_EQ(Tested().FindRow(L"bus"), 1);
}

TEST_F(HeaderedGrid, ARowHasACellForEachColumn)
{
    Show();
    Tested().AddColumn();
    Tested().AddRow(L"早");
    Tested().AddColumn();
    Tested().AddRow(L"晚");
    for (int row = 0; row < 2; ++row)
        for (int column = 1; column < 3; ++column) {
            const CXTPReportColumn* const shown = TheGrid()->GetColumns().GetAt(column);
            ASSERT_TRUE(Tested().Cell(row, shown)) << row << ' ' << column;
            EXPECT_TRUE(Tested().Cell(row, shown)->IsEmpty());
        }
    EXPECT_EQ(Tested().Cell(0, nullptr), nullptr);
    EXPECT_EQ(Tested().Cell(2, TheGrid()->GetColumns().GetAt(1)), nullptr);
    EXPECT_EQ(Tested().Cell(0, TheGrid()->GetColumns().GetAt(0)), nullptr); // a header
}

TEST_F(HeaderedGrid, ARowWithATwoLineHeaderIsHigher)
{
    Show();
    Tested().AddRow(L"一行");
    Tested().AddRow(L"一行\n二行");
    Tested().ShowLoaded();
    EXPECT_GT(TheGrid()->rowHeight(1), TheGrid()->rowHeight(0));
}

TEST_F(HeaderedGrid, EmptiesItselfSaveForTheFirstColumn)
{
    Show();
    Tested().AddRow(L"行");
    Tested().AddColumn();
    Tested().RemoveValueColumns();
    Tested().ShowLoaded();
    EXPECT_EQ(Columns(TheGrid()), "角");
    EXPECT_EQ(Tested().GetRowCount(), 1);
    EXPECT_EQ(TheGrid()->GetRecords().GetAt(0)->GetItemCount(), 1);
    Tested().AddColumn();
    Tested().RemoveRows();
    Tested().ShowLoaded();
    EXPECT_EQ(Columns(TheGrid()), "角");
    EXPECT_EQ(Tested().GetRowCount(), 0);
}

TEST_F(HeaderedGrid, WhatTheMenuDoesIsOneStepOfUndo)
{
    Show();
    ChooseFromHeaderMenu(TheGrid(), 0, L"乙");
    ChooseFromHeaderMenu(TheGrid(), 0, L"加一列");
    ChooseFromMenu(TheGrid(), 0, 1, L"甲");
    EXPECT_EQ(Tested().m_clicked.back(), TheGrid()->GetColumns().GetAt(1));
    EXPECT_EQ(Tested().GetRowCount(), 2);
    EXPECT_EQ(Tested().FindRow(8U), 0);
    TheGrid()->GetUndo().Undo();
    EXPECT_EQ(Tested().GetRowCount(), 1);
    EXPECT_EQ(Columns(TheGrid()), "角 列");
    TheGrid()->GetUndo().Undo();
    EXPECT_EQ(Columns(TheGrid()), "角");
}

TEST_F(HeaderedGrid, HasNoMenuInViewModeOrWithoutAnItem)
{
    Show(true);
    RightClickHeader(TheGrid(), 0);
    WaitForNothing();
    Show(false);
    Tested().m_offered = false;
    RightClickHeader(TheGrid(), 0);
    WaitForNothing();
    EXPECT_TRUE(Tested().m_clicked.empty());
}

TEST_F(HeaderedGrid, WhatTheMenuAddsHasTheFocus)
{
    Show();
    auto* const grid = &m_page.m_grid.Control();
    ChooseFromHeaderMenu(grid, 0, L"甲");
    ChooseFromHeaderMenu(grid, 0, L"加一列");
    EXPECT_TRUE(grid->hasFocus());
    EXPECT_EQ(grid->currentIndex(), grid->IndexOf(0, 1));
    ChooseFromHeaderMenu(grid, 0, L"加一列");
    EXPECT_EQ(grid->currentIndex(), grid->IndexOf(0, 2));
    ChooseFromHeaderMenu(grid, 0, L"乙");
    EXPECT_EQ(grid->currentIndex(), grid->IndexOf(1, 1));
}
