#include "platform/xtp/report/ReportPaintManager.h"

#include <QPainter>

#include "platform/mfc/QtText.h"
#include "platform/xtp/report/ReportControl.h"

using namespace designspec;

namespace {

constexpr int kCellPadding = 8; // above and below a line of text together
constexpr int kTextMargin = 2;

} // namespace

int CXTPReportPaintManager::GetRowHeight(const CXTPReportRecord*) const
{
    return m_control->fontMetrics().height() + kCellPadding;
}

int CXTPReportPaintManager::GetHeaderHeight() const
{
    return m_headerHeight > 0 ? m_headerHeight : CXTPReportPaintManager::GetRowHeight(nullptr);
}

QFont CXTPReportPaintManager::GetCaptionFont() const
{
    return m_control->font();
}

QColor CXTPReportPaintManager::GetHeaderTextColor() const
{
    return m_control->palette().color(QPalette::ButtonText);
}

// Lines are filled rather than drawn: at 200 % a drawn line lies beside its pixels.
void CXTPReportPaintManager::DrawGrid(QPainter& painter, const QRect& rect) const
{
    const QColor colour = m_control->palette().color(QPalette::Mid);
    painter.fillRect(QRect(rect.right(), rect.top(), 1, rect.height()), colour);
    painter.fillRect(QRect(rect.left(), rect.bottom(), rect.width(), 1), colour);
}

void CXTPReportPaintManager::DrawHeaderBackground(QPainter& painter, const QRect& rect) const
{
    painter.fillRect(rect, m_control->palette().button());
    DrawGrid(painter, rect);
}

void CXTPReportPaintManager::DrawColumnHeader(QPainter& painter, const QRect& rect,
                                              const CXTPReportColumn* column) const
{
    DrawHeaderBackground(painter, rect);
    if (!column) return;
    painter.setFont(GetCaptionFont());
    painter.setPen(GetHeaderTextColor());
    painter.drawText(rect.adjusted(kTextMargin, 0, -kTextMargin, 0),
                     Qt::AlignCenter | Qt::TextWordWrap, ToQString(column->GetCaption()));
}
