// One page of a specification read from a sheet: the layout that is written, in any order of
// columns and rows, or a bare table with captions, whichever way it lies.
#pragma once

#include <memory>
#include <set>

#include "base/CaptionIndex.h"
#include "base/Problem.h"
#include "model/Criteria.h"
#include "sheets/CellValue.h"
#include "sheets/SheetGrid.h"

namespace designspec {

class PageReading {
public:
    // The page that the sheet is of, by its name, its title or its captions; null when it is none.
    static std::unique_ptr<PageReading> Of(const SheetGrid& sheet);
    virtual ~PageReading() = default;
    PageReading(const PageReading&) = delete;
    PageReading& operator=(const PageReading&) = delete;

    const CriterionInfo& Criterion() const { return m_criterion; }

    // Gives the specification what the sheet has; a table is as it is there, whole. Each cell that
    // cannot be read is a problem with the file at `path`, which the specification is of no use
    // after.
    void ApplyTo(CDesignSpecification& specification, const CString& path, Problems& problems);

protected:
    explicit PageReading(const CriterionInfo& criterion);

    // What a page has besides single values and tables by speed. True when the row is that.
    virtual bool TakesCaption(const CString& /*caption*/) const { return false; }
    virtual bool TakeHeading(int /*row*/, const CString& /*caption*/) { return false; }
    virtual bool TakeLine(int /*row*/, const CString& /*caption*/) { return false; }
    // After the row that has the speeds.
    virtual void SpeedsChanged() {}

    const Field* FindField(const CString& caption) const;
    void* Object() const { return m_object; }
    // The columns that have a speed.
    const std::map<int, std::int32_t>& Speeds() const { return m_speeds; }
    void ForgetSpeeds() { m_speeds.clear(); }
    void Wrong(int row, int column, const CString& text);
    // Reads the row as a table by speed, in place of what that has.
    void ReadTable(int row, const Field& table, void* object);
    // The cells of a row with something in them, without that of its caption.
    std::map<int, CString> Values(int row) const;
    int CaptionColumn() const { return m_captionColumn; }
    // Calls `read(column, what the column has, text)` for each cell of a row that holds something
    // under one of the columns; tells the others.
    template <class Has, class Read>
    void ReadLine(int row, const std::map<int, Has>& columns, Read read)
    {
        for (const auto& [column, text] : m_grid->Line(row)) {
            if (column == m_captionColumn || IsBlank(text)) continue;
            const auto found = columns.find(column);
            if (found != columns.end())
                read(column, found->second, text);
            else if (!m_grid->At(row, column).empty())
                Wrong(row, column, L"这一列上面没有标题");
        }
    }

    // Whether the sheet lies across: what stands in rows on the page stands in columns.
    virtual bool LiesAcross(const SheetGrid& sheet) const;

private:
    static std::unique_ptr<PageReading> Make(const CriterionInfo& criterion);
    static const CriterionInfo* CriterionByName(const CString& name);

    bool IsCaption(const CString& text) const;
    int CountCaptions(const SheetGrid& sheet) const;
    int FindCaptionColumn(const SheetGrid& sheet) const;
    bool IsSpeedCorner(const CString& text) const;
    bool IsSpeedRow(int row, const CString& caption) const;
    bool IsAlone(int row) const;
    CString CaptionOf(int row) const;
    void ReadRow(int row);
    void ReadSpeeds(int row);
    void ReadField(int row, const Field& field);
    void ReadValue(int row, const Field& field);
    void TellUnused();

    const CriterionInfo& m_criterion;
    std::vector<const Field*> m_fields;
    CaptionIndex m_captions;

    // While it is read.
    std::unique_ptr<SheetGrid> m_grid;
    void* m_object = nullptr;
    const CString* m_path = nullptr;
    Problems* m_problems = nullptr;
    int m_captionColumn = 0;
    std::map<int, std::int32_t> m_speeds;
    std::map<const Field*, int> m_read; // fields and their rows
};

} // namespace designspec
