// A small grid of the product's kind: a header column that cannot be edited, and numbers.
#pragma once

#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

#include "base/Format.h"
#include "base/Number.h"
#include "base/Text.h"
#include "platform/mfc/String.h"
#include "platform/vmrd/VmHFCBaseU/Text.h"
#include "platform/xtp/report/ReportControl.h"
#include "tests/gui/Controls.h"
#include "tests/gui/Modal.h"

using namespace designspec;

// A whole number or nothing.
class CTestNumberItem : public CXTPReportRecordItem {
public:
    bool empty = true;
    int value = 0;

    void Set(int number)
    {
        empty = false;
        value = number;
        SetCaption(Format(L"%d", number));
    }
    void OnEditChanged(CXTPReportControl*, const CString& newText) override
    {
        const CString text = Trim(newText);
        entered.push_back(newText);
        if (IsNumericText(text)) return Set(Wtoi(text));
        empty = true;
        value = 0;
        SetCaption({});
    }
    designspec::ReportItemState SaveState() const override
    {
        auto state = CXTPReportRecordItem::SaveState();
        state.values = {empty ? 1.0 : 0.0, static_cast<double>(value)};
        return state;
    }
    void RestoreState(const designspec::ReportItemState& state) override
    {
        CXTPReportRecordItem::RestoreState(state);
        empty = state.values[0] != 0;
        value = static_cast<int>(state.values[1]);
    }

    CStringArray entered; // every text that the cell was given
};

inline QRgb PixelAt(QWidget& widget, const QPoint& place)
{
    return widget.grab().toImage().pixelColor(place).rgb();
}

// Columns 设计车速, 120, 100, 80 over three rows; the cell of row r and column c is r * 10 + c.
class TestGrid : public ::testing::Test {
protected:
    void SetUp() override
    {
        m_grid.GetColumns().Add(new CXTPReportColumn(0, L"设计车速(km/h)", 120));
        for (int c = 1; c <= 3; ++c)
            m_grid.GetColumns().Add(new CXTPReportColumn(c, Format(L"%d", 140 - 20 * c), 40));
        for (int r = 0; r < 3; ++r) {
            CXTPReportRecord* const record = m_grid.GetRecords().Add(new CXTPReportRecord);
            record->AddItem(new CXTPReportRecordItem(Format(L"行%d", r)))->SetEditable(false);
            for (int c = 1; c <= 3; ++c)
                record->AddItem(new CTestNumberItem)->Set(10 * r + c);
        }
        m_grid.AllowEdit(true);
        m_grid.Populate();
        m_grid.resize(400, 200);
        m_grid.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_grid));
    }

    CTestNumberItem* Item(int row, int index) const
    {
        return dynamic_cast<CTestNumberItem*>(m_grid.GetRecords().GetAt(row)->GetItem(index));
    }
    CString Text(int row, int column) const { return CellText(&m_grid, row, column); }
    // All cells as "行0 1 2 3|行1 11 12 13|...".
    CString Content() const
    {
        CString content;
        for (int r = 0; r < m_grid.model()->rowCount(); ++r) {
            for (int c = 0; c < m_grid.model()->columnCount(); ++c)
                content += (c == 0 ? L"" : L" ") + Text(r, c);
            content += L"|";
        }
        return content;
    }
    // The open editor; a closed one may still wait for its end.
    QLineEdit* Editor() const
    {
        for (auto* edit : m_grid.viewport()->findChildren<QLineEdit*>())
            if (edit->isVisible()) return edit;
        return nullptr;
    }
    bool IsEditing() const { return Editor() != nullptr; }
    // The current cell as (row, column).
    std::pair<int, int> Current() const
    {
        return {m_grid.currentIndex().row(), m_grid.currentIndex().column()};
    }
    void SelectBlock(int row, int column, int toRow, int toColumn)
    {
        DragCells(&m_grid, row, column, toRow, toColumn);
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        PressKey(&m_grid, key, modifiers);
    }

    CXTPReportControl m_grid;
    const CString m_initial = L"行0 1 2 3|行1 11 12 13|行2 21 22 23|";
};
