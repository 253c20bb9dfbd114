#include "platform/xtp/report/ReportHeader.h"

#include <QPainter>

#include "platform/xtp/report/ReportControl.h"
#include "platform/xtp/report/ReportRightClick.h"

using namespace designspec;

ReportHeader::ReportHeader(CXTPReportControl* control)
    : QHeaderView(Qt::Horizontal, control), m_control(control)
{
    setSectionsClickable(true);
    setHighlightSections(false);
    setMinimumSectionSize(8);
    connect(this, &QHeaderView::sectionResized, this, [this](int index, int, int size) {
        if (CXTPReportColumn* const column = m_control->ShownColumn(index)) column->SetWidth(size);
    });
    new ReportRightClick(viewport(), [this](const QPoint& pos, const QPoint& globalPos) {
        m_control->CommitEdit();
        emit m_control->HeaderRightClick(m_control->ShownColumn(logicalIndexAt(pos)), globalPos);
    });
}

void ReportHeader::ApplyColumns()
{
    for (int i = 0; i < count(); ++i)
        resizeSection(i, m_control->ShownColumn(i)->GetWidth());
}

void ReportHeader::Leave()
{
    m_control = nullptr;
    disconnect();
}

QSize ReportHeader::sizeHint() const
{
    if (!m_control) return {};
    return {QHeaderView::sizeHint().width(), m_control->GetPaintManager()->GetHeaderHeight()};
}

void ReportHeader::paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const
{
    painter->save();
    m_control->GetPaintManager()->DrawColumnHeader(*painter, rect,
                                                   m_control->ShownColumn(logicalIndex));
    painter->restore();
}
