// What the value cells of all pages have in common: a cell holds its values, or it is empty.
#pragma once

#include "platform/xtp/report/ReportRecordItem.h"

// A derived cell says how its values read (TextOf) and what an entered text gives (Read).
class CMyRecordItemValue : public CXTPReportRecordItem {
public:
    // Most cells hold one number. 32-bit whole numbers are exact in it.
    using Values = std::vector<double>;

    bool IsEmpty() const { return m_values.empty(); }
    void SetEmpty() { SetValues({}); }
    // The first value; 0 when the cell is empty.
    double GetNumber() const { return IsEmpty() ? 0 : m_values.front(); }
    void SetNumber(double number) { SetValues({number}); }

    // Bad input empties the cell, without a word unless Read has one.
    void OnEditChanged(CXTPReportControl* control, const CString& newText) override;

    const Values& GetValues() const { return m_values; }
    // The values that the cell would have from such a text; nobody is told what is wrong with it.
    virtual Values ValuesFor(const CString& text) const;

    // The unit that may stand behind a pasted number; metres until it is said.
    void SetUnit(const wchar_t* unit) { m_unit = unit; }
    CString ReadPasted(const CString& text) const override;

    // The value with all its decimals and its unit, for people: 4.26%, 250 m; empty for an empty
    // cell.
    virtual CString GetReadableText() const;
    // What a value must be here, in the words that refuse one that is not.
    virtual CString GetRule() const;

    designspec::ReportItemState SaveState() const override;
    void RestoreState(const designspec::ReportItemState& state) override;

protected:
    void SetValues(Values values);
    const wchar_t* GetUnit() const { return m_unit; }

    // The text that shows the values; it is only asked when there are some.
    virtual CString TextOf(const Values& values) const = 0;
    // The values that the user means by `text`, which has no blanks around it; none when it is
    // no good. `control` can tell why.
    virtual Values Read(CXTPReportControl* control, const CString& text) const = 0;

private:
    Values m_values;
    const wchar_t* m_unit = L"m";
};

// An empty cell of that class.
using NewCell = CMyRecordItemValue* (*)();
template <class Cell> CMyRecordItemValue* MakeCell()
{
    return new Cell;
}
// The same for percents.
template <NewCell Make> CMyRecordItemValue* InPercent()
{
    CMyRecordItemValue* const cell = Make();
    cell->SetUnit(L"%");
    return cell;
}
