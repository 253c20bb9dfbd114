#include "platform/xtp/report/ReportHeader.h"

#include <QPainter>

#include "platform/xtp/report/ReportControl.h"
#include "platform/xtp/report/ReportRightClick.h"

CXTPReportHeader::CXTPReportHeader(CXTPReportControl* control)
    : QHeaderView(Qt::Horizontal, control), m_control(control)
{
    setSectionsClickable(true);
    setHighlightSections(false);
    setMinimumSectionSize(8);
    connect(this, &QHeaderView::sectionResized, this,
            [this](int index, int, int size) { OnResized(index, size); });
    connect(this, &QHeaderView::sectionMoved, this,
            [this](int, int from, int to) { OnMoved(from, to); });
    connect(this, &QHeaderView::sectionClicked, this, [this](int index) { OnClicked(index); });
    new CXTPReportRightClick(viewport(), [this](const QPoint& pos, const QPoint& globalPos) {
        m_control->CommitEdit();
        emit m_control->HeaderRightClick(m_control->ShownColumn(logicalIndexAt(pos)), globalPos);
    });
}

void CXTPReportHeader::AllowColumnReorder(bool allow)
{
    setSectionsMovable(allow);
}

void CXTPReportHeader::AllowColumnResize(bool allow)
{
    m_allowResize = allow;
    ApplyColumns();
}

void CXTPReportHeader::AllowColumnSort(bool allow)
{
    m_allowSort = allow;
}

void CXTPReportHeader::SetAutoColumnSizing(bool autoSizing)
{
    m_autoSizing = autoSizing;
    ApplyColumns();
}

void CXTPReportHeader::ApplyColumns()
{
    m_applying = true;
    const CXTPReportColumns& columns = m_control->GetColumns();
    for (int i = 0; i < std::min(count(), columns.GetCount()); ++i) {
        const CXTPReportColumn* const column = columns.GetAt(i);
        const bool stretch = m_autoSizing && column->IsAutoSize();
        setSectionResizeMode(i, stretch ? Stretch : m_allowResize ? Interactive : Fixed);
        setSectionHidden(i, !column->IsVisible());
        if (!stretch) resizeSection(i, column->GetWidth());
    }
    m_applying = false;
}

QSize CXTPReportHeader::sizeHint() const
{
    return {QHeaderView::sizeHint().width(), m_control->GetPaintManager()->GetHeaderHeight()};
}

void CXTPReportHeader::paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const
{
    painter->save();
    m_control->GetPaintManager()->DrawColumnHeader(*painter, rect,
                                                   m_control->ShownColumn(logicalIndex));
    painter->restore();
}

void CXTPReportHeader::OnResized(int logicalIndex, int newSize)
{
    CXTPReportColumn* const column = m_control->ShownColumn(logicalIndex);
    if (m_applying || !column || newSize <= 0) return;
    column->SetWidth(newSize);
}

void CXTPReportHeader::OnMoved(int from, int to)
{
    auto columns = m_control->GetColumns().All();
    if (from < 0 || to < 0 || std::max(from, to) >= std::ssize(columns)) return;
    const auto first = columns.begin();
    if (from < to)
        std::rotate(first + from, first + from + 1, first + to + 1);
    else
        std::rotate(first + to, first + from, first + from + 1);
    // Populating resets the header, which is still at work on the move.
    QMetaObject::invokeMethod(
        this,
        [this, columns] {
            const CXTPReportUserChange change(*m_control, L"移动列");
            m_control->GetColumns().Assign(columns);
            m_control->Populate();
        },
        Qt::QueuedConnection);
}

void CXTPReportHeader::OnClicked(int logicalIndex)
{
    const CXTPReportColumn* const column = m_control->ShownColumn(logicalIndex);
    if (m_allowSort && column && column->IsSortable()) m_control->SortByColumn(logicalIndex);
}
