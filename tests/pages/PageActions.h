// What a person does on a page and sees there, wherever the page stands.
#pragma once

#include <QLineEdit>

#include <gtest/gtest.h>

#include "base/Text.h"
#include "platform/mfc/Dialog.h"
#include "platform/mfc/String.h"
#include "platform/xtp/report/ReportControl.h"
#include "tests/gui/Controls.h"
#include "tests/gui/Modal.h"

using namespace designspec;

// Opens the source behind a button and reads it without a change, which it would not allow when
// it is `locked`.
inline std::string ReadSource(QWidget* page, int button, bool locked = false)
{
    std::string text;
    ExpectModal dialog([&text, locked](QWidget* window) {
        EXPECT_EQ(Control<QLineEdit>(window, 108)->isReadOnly(), locked);
        text = ToUtf8(dynamic_cast<CDialog*>(window)->GetDlgItemText(108));
        Click(window, IDCANCEL);
    });
    Click(page, button);
    return text;
}

inline void EnterSource(QWidget* page, int button, const CString& text)
{
    ExpectModal dialog([&text](QWidget* window) {
        TypeInto(window, 108, text);
        Click(window, IDOK);
    });
    Click(page, button);
}

// The texts of a grid's row without its header, joined by blanks; "-" is an empty cell.
inline std::string Row(const CXTPReportControl* grid, int row)
{
    std::string texts;
    for (int column = 1; grid->ShownColumn(column); ++column) {
        const std::string text = ToUtf8(CellText(grid, row, column));
        texts += (column > 1 ? " " : "") + (text.empty() ? "-" : text);
    }
    return texts;
}

// The captions of a grid's columns, joined by blanks.
inline std::string Columns(const CXTPReportControl* grid)
{
    std::string texts;
    for (const CString& caption : ColumnCaptions(grid))
        texts += (texts.empty() ? "" : " ") + ToUtf8(caption);
    return texts;
}

inline void ChooseFromMenu(CXTPReportControl* grid, int row, int column, const CString& item)
{
    ExpectModal menu([&item](QWidget* window) { ChooseMenuItem(window, item); });
    RightClickCell(grid, row, column);
}
