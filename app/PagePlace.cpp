#include "app/PagePlace.h"

#include "base/CaptionIndex.h"
#include "base/Number.h"
#include "platform/xtp/report/ReportPaste.h"

using namespace designspec;

namespace {

// A caption, or none, as of the first row and column.
int PlaceOf(const CString& caption, const CStringArray& captions)
{
    return caption.empty() ? 0 : CaptionIndex(captions).Find(caption);
}

QModelIndex FindCell(const CXTPReportControl& grid, const SearchHit& hit)
{
    const TableCaptions captions = CaptionsOf(grid);
    const int row = PlaceOf(hit.row, captions.rows);
    const int column = PlaceOf(hit.column, captions.columns);
    return row < 0 || column < 0 ? QModelIndex() : grid.IndexOf(row, 1 + column);
}

QWidget* GoToCell(CDSPage& page, const SearchHit& hit, bool enter)
{
    if (!hit.heading.empty())
        page.ShowTable(static_cast<int>(Wtof(CaptionParts(hit.heading).numbers)));
    for (CXTPReportControl* const grid : page.Grids()) {
        const QModelIndex cell = FindCell(*grid, hit);
        if (!cell.isValid()) continue;
        if (enter) grid->setFocus();
        grid->setCurrentIndex(cell);
        grid->scrollTo(cell);
        return grid;
    }
    return nullptr;
}

// The n-th text of the criterion.
int SourceNumber(const SearchHit& hit)
{
    int number = 0;
    for (const Field& field : hit.page->fields) {
        if (&field == hit.field) break;
        if (field.kind == FieldKind::Text) ++number;
    }
    return number;
}

// What is switched off is reached by its switch.
QWidget* GoToControl(const CDSPage& page, QWidget* control, bool enter)
{
    if (control && !control->isEnabled()) control = page.CheckOf(control);
    if (control && enter) control->setFocus();
    return control;
}

// Where Tab goes first.
QWidget* FirstOf(CDSPage& page)
{
    QWidget* one = page.nextInFocusChain();
    while (one != &page && !(page.isAncestorOf(one) && one->isEnabled() && one->isVisible() &&
                             (one->focusPolicy() & Qt::TabFocus)))
        one = one->nextInFocusChain();
    return one;
}

} // namespace

QWidget* GoToPlace(CDSPage& page, const SearchHit& hit, bool enter)
{
    switch (hit.kind) {
    case SearchHit::Kind::Page:
        return GoToControl(page, FirstOf(page), enter);
    case SearchHit::Kind::Limit:
        return GoToControl(page, page.LimitControl(hit.field->label), enter);
    case SearchHit::Kind::Source:
        return SourceNumber(hit) < page.SourceCount()
                   ? GoToControl(page, page.SourceButton(SourceNumber(hit)), enter)
                   : nullptr;
    default:
        return GoToCell(page, hit, enter);
    }
}
