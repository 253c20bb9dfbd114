// What the readers of both kinds of workbooks share: elements by their names without a prefix, and
// values as cells have them.
#pragma once

#include <algorithm>
#include <string_view>

#include <pugixml.hpp>

#include "sheets/ContentBudget.h"
#include "sheets/SheetGrid.h"

namespace designspec {

// "table" of "table:table": prefixes are the writer's own choice.
std::string_view LocalName(const char* name);
bool Is(const pugi::xml_node& node, std::string_view name);
// The first child of that name, or an empty node; the value of that attribute, or an empty text.
pugi::xml_node Child(const pugi::xml_node& node, std::string_view name);
std::string_view Attribute(const pugi::xml_node& node, std::string_view name);
// A whole number that an attribute has, held between 0 and `most`; `missing` without one.
int Number(const pugi::xml_node& node, std::string_view name, int missing, int most);

// The text of a cell that has a number, in the digits that spreadsheet programs keep; "5%" of 0.05
// where it is shown so. What is no number comes back as it is.
CString NumberText(std::string_view number, bool isPercent);
CString BoolText(bool value);
// What stands in a cell whose formula nobody has reckoned.
inline constexpr wchar_t kNoResult[] = L"(公式没有结果)";

// The size of a sheet.
inline constexpr int kMostRows = 1048576;
inline constexpr int kMostColumns = 16384;
// Rows or columns that one cell goes over.
inline constexpr int kMostMerged = 64;

// A sheet that is filled within a budget. What lies outside a sheet is left out.
class SheetFilling {
public:
    SheetFilling(CString name, ContentBudget& budget) : m_grid(std::move(name)), m_budget(budget) {}

    void Set(int row, int column, const CString& text)
    {
        if (text.empty() || row < 0 || column < 0 || row >= kMostRows || column >= kMostColumns)
            return;
        m_budget.Take(text.size());
        m_grid.Set(row, column, text);
    }
    // The cells from one corner to the other are one, as far as anybody merges values.
    void Merge(int top, int left, int bottom, int right)
    {
        for (int row = top; row <= std::min(bottom, top + kMostMerged); ++row)
            for (int column = left; column <= std::min(right, left + kMostMerged); ++column) {
                m_budget.Take(0);
                m_grid.Merge(row, column, {top, left});
            }
    }
    SheetGrid TakeGrid() { return std::move(m_grid); }

private:
    SheetGrid m_grid;
    ContentBudget& m_budget;
};

} // namespace designspec
