// A workbook that is written, and a sheet of it that is filled from top to bottom.
#pragma once

#include <map>

#include <xlsxwriter.h>

#include "model/FieldValue.h"

namespace designspec {

enum class Look { Title, Heading, Caption, Cell, Different, Text };

// The first error of writing stays.
class Workbook {
public:
    explicit Workbook(const std::string& path);
    ~Workbook();
    Workbook(const Workbook&) = delete;
    Workbook& operator=(const Workbook&) = delete;

    // Null when there is none.
    lxw_workbook* Book() { return m_book; }
    void Check(lxw_error error)
    {
        if (m_error == LXW_NO_ERROR) m_error = error;
    }
    // Writes the file.
    lxw_error Close();
    // `zero` is what a 0 says besides.
    lxw_format* Format(Look look, const CString& zero = {});

private:
    lxw_format* MakeFormat(Look look, const CString& zero);

    lxw_workbook* m_book;
    lxw_error m_error = LXW_NO_ERROR;
    std::map<std::pair<Look, CString>, lxw_format*> m_formats;
};

// Each cell goes into the present row.
class WorkbookSheet {
public:
    WorkbookSheet(Workbook& book, const CString& name);

    bool IsThere() const { return m_sheet; }
    void NextRow() { ++m_row; }

    void Text(int column, const CString& text, Look look, bool sizes = true);
    void Blank(int column, Look look);
    // A number as a number, where that keeps it; `field` may say what it means.
    void Number(int column, const Value& value, Look look, const Field* field = nullptr);
    // A long text over several columns, as high as it needs.
    void LongText(int column, const CString& text, int lastColumn);
    // Printed again on each page.
    void RepeatRow();
    // What stands above the present row and left of the column stays in sight.
    void Freeze(int column);
    // When all is written; `captions` columns may be wider than the others.
    void SetWidths(int captions);

private:
    lxw_row_t RowNumber() const { return static_cast<lxw_row_t>(m_row); }
    void Widen(int column, int width);

    Workbook& m_book;
    lxw_worksheet* m_sheet;
    int m_row = 0;
    std::map<int, int> m_widths; // in characters, by column
};

} // namespace designspec
