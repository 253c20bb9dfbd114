// A speed grid whose rows are the speed tables of a criterion.
#pragma once

#include <span>

#include "pages/framework/MyRecordItemPositiveInt.h"
#include "pages/framework/SpeedGrid.h"

template <class Criterion, class T = std::int32_t> struct SpeedTableRow {
    GrowArray<SpeedEntry<T>> Criterion::*table;
    const wchar_t* caption;                            // of the row; may have a line break
    NewCell cell = MakeCell<CMyRecordItemPositiveInt>; // for speeds that are loaded
    NewCell addedCell = nullptr;                       // for speeds that the user adds; null: same
};

template <class Criterion, class T = std::int32_t> class CSpeedTableGrid : public CSpeedGrid {
public:
    using Row = SpeedTableRow<Criterion, T>;

    // In the page's InitPage; `rows` are a table that stays.
    void Create(CDSPage& page, std::span<const Row> rows, const SpeedGridLayout& layout = {})
    {
        m_rows = rows;
        CSpeedGrid::Create(
            page,
            [rows](int index) {
                const Row& row = rows[static_cast<size_t>(index)];
                return (row.addedCell ? row.addedCell : row.cell)();
            },
            layout);
        for (const Row& row : m_rows)
            AddRow(row.caption);
    }

    // A column for each speed of the tables; a speed that a table has not leaves its cell empty.
    void Load(const Criterion& criterion)
    {
        CArray<int> speeds;
        for (const Row& row : m_rows)
            MergeSpeeds(speeds, criterion.*row.table);
        SetSpeeds(speeds);
        for (int i = 0; i < GetRowCount(); ++i) {
            const Row& row = m_rows[static_cast<size_t>(i)];
            for (size_t n = 0; n < speeds.size(); ++n)
                Control().GetRecords().GetAt(i)->AddItem(row.cell());
            for (const SpeedEntry<T>& entry : criterion.*row.table)
                Cell(i, entry.speed)->SetNumber(entry.value);
        }
        ShowLoaded();
    }

    // The tables hold the cells that are not empty, left to right.
    void Store(Criterion& criterion) const
    {
        for (int i = 0; i < GetRowCount(); ++i) {
            auto& table = criterion.*m_rows[static_cast<size_t>(i)].table;
            table.RemoveAll();
            for (int speed : Speeds())
                if (const auto* cell = Cell(i, speed); cell && !cell->IsEmpty())
                    ::AddSpeed(table, speed, static_cast<T>(cell->GetNumber()));
        }
    }

private:
    std::span<const Row> m_rows;
};
