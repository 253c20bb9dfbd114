// A grid with a column for each design speed, highest speed first, and the right-click menu that
// adds and removes speeds.
#pragma once

#include "model/SpeedTable.h"
#include "pages/framework/HeaderedGrid.h"

// Control ids, and widths in pixels at 100 % scale.
struct SpeedGridLayout {
    int placeholder = CDSPage::kGridPlaceholder;
    int gridId = CDSPage::kGrid;
    int headerWidth = 120; // of the column of row headers
    int speedWidth = 40;   // of the speeds that the page was loaded with
    int addedWidth = 40;   // of the speeds that the user adds
};

// More for the menu than speeds. Its items stand below the speeds and a separator; while the grid
// has no row, the speeds are greyed.
struct SpeedMenuExtension {
    // Appends the items, with ids from `firstId` on.
    std::function<void(CMenu& menu, UINT firstId)> append;
    // The user chose the item of id `firstId` + `index`. What it changes is one step of undo; the
    // grid is populated afterwards.
    std::function<void(int index)> choose;
    // False: there is no menu now. May be left out.
    std::function<bool()> isOffered = nullptr;
};

// One item of the speed menu.
struct SpeedChoice {
    int speed = 0; // km/h
    bool present = false;
};
// The standard speeds and the present ones, highest first.
std::vector<SpeedChoice> SpeedChoices(const CArray<int>& present);

// Adds the speeds of a table that are not in the list yet; the list is in ascending order then.
template <class T> void MergeSpeeds(CArray<int>& speeds, const GrowArray<SpeedEntry<T>>& table)
{
    for (const SpeedEntry<T>& entry : table)
        speeds.push_back(entry.speed);
    std::sort(speeds.begin(), speeds.end());
    speeds.erase(std::unique(speeds.begin(), speeds.end()), speeds.end());
}

class CSpeedGrid : public CHeaderedGrid {
public:
    // In the page's InitPage.
    void Create(CDSPage& page, const AddedCell& addedCell, const SpeedGridLayout& layout = {});
    void ExtendMenu(const SpeedMenuExtension& extension) { m_extension = extension; }

    // The speeds of the columns from left to right.
    CArray<int> Speeds() const;
    // Replaces the columns by one for each speed, highest first, bound to cells 1, 2 …
    // The rows keep their headers alone; their value cells are the caller's to add.
    void SetSpeeds(CArray<int> speeds);
    // Before the first lower speed, with a new empty cell in each row.
    void AddSpeed(int speed);
    // The first column of that speed; the cells stay in their rows, out of sight.
    void RemoveSpeed(int speed);

    // The cell of a row and a speed; null when there is none.
    CMyRecordItemValue* Cell(int row, int speed) const;
    void GoTo(int row, int speed) { CHeaderedGrid::GoTo(row, FindColumn(speed)); }

    // A row's cells take the values of a table, whose speeds are all columns.
    template <class T> void SetRow(int row, const GrowArray<SpeedEntry<T>>& table)
    {
        for (const SpeedEntry<T>& entry : table)
            Cell(row, entry.speed)->SetNumber(entry.value);
    }
    // Adds the row's cells that are not empty to a table, left to right.
    template <class T> void AppendRowTo(int row, GrowArray<SpeedEntry<T>>& table) const
    {
        int column = 0;
        for (int speed : Speeds()) {
            const auto* const cell =
                CHeaderedGrid::Cell(row, Control().GetColumns().GetAt(++column));
            if (cell && !cell->IsEmpty())
                designspec::AddSpeed(table, speed, static_cast<T>(cell->GetNumber()));
        }
    }

protected:
    CMenu MakeMenu(const CXTPReportColumn* column) const override;
    void Choose(int index, const CXTPReportColumn* column) override;

private:
    CXTPReportColumn* FindColumn(int speed) const;
    CXTPReportColumn* NewColumn(int itemIndex, int speed, int width) const;
    void AskForSpeed();

    SpeedGridLayout m_layout;
    SpeedMenuExtension m_extension;
};
