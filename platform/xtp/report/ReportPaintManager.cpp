#include "platform/xtp/report/ReportPaintManager.h"

#include <QPainter>

#include "platform/mfc/QtText.h"
#include "platform/xtp/report/ReportControl.h"

namespace {

constexpr int kCellPadding = 8; // above and below a line of text together
constexpr int kTextMargin = 2;

int LineHeight(const QFont& font)
{
    return QFontMetrics(font).height();
}

QPen GridPen(const QPalette& palette, XTPReportGridStyle style)
{
    const Qt::PenStyle line = style == xtpReportGridSolid    ? Qt::SolidLine
                              : style == xtpReportGridDotted ? Qt::DotLine
                                                             : Qt::NoPen;
    return QPen(palette.color(QPalette::Mid), 1, line);
}

} // namespace

int CXTPReportPaintManager::GetRowHeight(const CXTPReportRecord*) const
{
    return LineHeight(m_control ? m_control->font() : QFont()) + kCellPadding;
}

int CXTPReportPaintManager::GetHeaderHeight() const
{
    return m_headerHeight > 0 ? m_headerHeight : LineHeight(GetCaptionFont()) + kCellPadding;
}

QFont CXTPReportPaintManager::GetCaptionFont() const
{
    if (m_hasCaptionFont) return m_captionFont;
    return m_control ? m_control->font() : QFont();
}

void CXTPReportPaintManager::SetCaptionFont(const QFont& font)
{
    m_captionFont = font;
    m_hasCaptionFont = true;
}

QColor CXTPReportPaintManager::GetHeaderTextColor() const
{
    return (m_control ? m_control->palette() : QPalette()).color(QPalette::ButtonText);
}

XTPReportGridStyle CXTPReportPaintManager::GetGridStyle(bool vertical) const
{
    return vertical ? m_vertical : m_horizontal;
}

void CXTPReportPaintManager::SetGridStyle(bool vertical, XTPReportGridStyle style)
{
    (vertical ? m_vertical : m_horizontal) = style;
}

void CXTPReportPaintManager::DrawGrid(QPainter& painter, const QRect& rect) const
{
    if (!m_control) return;
    painter.setPen(GridPen(m_control->palette(), m_vertical));
    painter.drawLine(rect.topRight(), rect.bottomRight());
    painter.setPen(GridPen(m_control->palette(), m_horizontal));
    painter.drawLine(rect.bottomLeft(), rect.bottomRight());
}

void CXTPReportPaintManager::DrawHeaderBackground(QPainter& painter, const QRect& rect) const
{
    const QPalette palette = m_control ? m_control->palette() : QPalette();
    painter.fillRect(rect, palette.button());
    painter.setPen(palette.color(QPalette::Mid));
    painter.drawLine(rect.topRight(), rect.bottomRight());
    painter.drawLine(rect.bottomLeft(), rect.bottomRight());
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
