#include "app/ShownPages.h"

#include <algorithm>
#include <utility>

#include <QLineEdit>

#include "platform/mfc/QtText.h"
#include "platform/xtp/report/ReportPaste.h"

using namespace designspec;

namespace {

TableLayout TableOf(const CXTPReportControl& grid)
{
    const TableCaptions captions = CaptionsOf(grid);
    TableLayout table{{}, captions.corner, {}, {}};
    for (const CString& column : captions.columns)
        table.columns.emplace_back(OneLine(column));
    for (int row = 0; const CString& caption : captions.rows) {
        TableLayout::Line line{OneLine(caption), {}};
        for (int column = 1; column <= std::ssize(captions.columns); ++column) {
            const CXTPReportRecordItem* const item = grid.ItemAt(grid.IndexOf(row, column));
            auto& cell = line.cells.emplace_back();
            if (item && !item->GetCaption().empty()) cell = item->GetCaption();
        }
        table.lines.push_back(std::move(line));
        ++row;
    }
    return table;
}

// One grid shows one table after the other.
bool HasTablesBehindTheGrid(const PageLayout& layout)
{
    return std::any_of(layout.tables.begin(), layout.tables.end(),
                       [](const TableLayout& table) { return !table.heading.empty(); });
}

} // namespace

PageLayout AsShown(const CDSPage& page, PageLayout layout)
{
    if (!HasTablesBehindTheGrid(layout)) {
        layout.tables.clear();
        for (const CXTPReportControl* const grid : page.Grids())
            if (grid->isEnabled()) layout.tables.push_back(TableOf(*grid));
    }
    for (PageLayout::Limit& limit : layout.limits)
        if (const auto* const edit =
                qobject_cast<const QLineEdit*>(page.LimitControl(limit.field->label)))
            limit.value = edit->isEnabled() ? FromQString(edit->text()) : CString();
    const auto sources = std::min(layout.sources.size(), static_cast<size_t>(page.SourceCount()));
    for (size_t i = 0; i < sources; ++i)
        layout.sources[i].value = page.SourceText(static_cast<int>(i));
    return layout;
}
