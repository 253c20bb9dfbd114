// A specification read from a spreadsheet file: each sheet is a page of it.
#pragma once

#include <optional>
#include <string_view>

#include "base/Problem.h"
#include "model/DesignSpecification.h"
#include "sheets/SheetGrid.h"

namespace designspec {

class SpreadsheetReading {
public:
    // Reads the bytes of the file at `path`: .xlsx, .ods or .csv, by content.
    SpreadsheetReading(std::string_view bytes, CString path);
    static SpreadsheetReading OfFile(const CString& path);

    // Of the specification that a workbook was written from; nothing when the file does not say.
    const std::optional<CString>& Name() const { return m_name; }
    const std::optional<CString>& Identity() const { return m_identity; }

    // Gives the specification what the sheets have; values that are in none stay, tables are as
    // they are there, whole. When there is an error among the problems it is of no use afterwards.
    void ApplyTo(CDesignSpecification& specification);

    // Everything that is wrong, with sheet and cell; sheets that are no page are notes.
    const designspec::Problems& Problems() const { return m_problems; }

private:
    SpreadsheetReading() = default;
    void ReadFirstSheet(const SheetGrid& sheet);

    CString m_path;
    std::vector<SheetGrid> m_pages;
    std::optional<CString> m_name, m_identity;
    designspec::Problems m_problems;
};

} // namespace designspec
