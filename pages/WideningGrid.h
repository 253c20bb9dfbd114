// The grid of curve widenings: a row for each category of vehicles, a column for each range of
// radii, and the right-click menu that adds and removes both.
#pragma once

#include "pages/MyRadiusRangeColumn.h"
#include "pages/RadiusRangeText.h"
#include "pages/framework/HeaderedGrid.h"

class CWideningGrid : public CHeaderedGrid {
public:
    // In the page's InitPage.
    void Create(CDSPage& page);

    // Whether ranges exclude their lower end or their upper one; all captions say so. A step of
    // undo.
    void SetExcludesMin(bool excludesMin);
    bool ExcludesMin() const { return m_excludesMin; }
    // For undo, which tells of it by UndoDone; the captions follow then.
    void RestoreExcludesMin(bool excludesMin) { m_excludesMin = excludesMin; }

    // The columns from left to right.
    std::vector<CMyRadiusRangeColumn*> Ranges() const;
    // Adds a column behind the others, with a new empty cell in each row.
    void AddRange(int min, int max);

protected:
    CMenu MakeMenu(const CXTPReportColumn* column) const override;
    void Choose(int index, const CXTPReportColumn* column) override;

private:
    void Recaption();
    void InsertRange(int at, int min, int max);
    std::vector<CString> Categories() const;

    void ToggleCategory(const CString& category);
    void AskForCategory();
    void AskForRange();
    // One end that is there already is enough to refuse a range.
    bool CanAdd(const RadiusRange& added) const;
    void InsertInOrder(const RadiusRange& added);
    CString RangeName(const CString& caption) const;
    void AddRanges(const CStringArray& names);

    bool m_excludesMin = true;
};
