#include "platform/xtp/report/ReportPaintManager.h"

#include <QPainter>

#include "platform/mfc/QtText.h"
#include "platform/xtp/report/ReportControl.h"

using namespace designspec;

namespace {

constexpr int kCellPadding = 8; // above and below a line of text together
constexpr int kTextMargin = 2;

int LineHeight(const QFont& font)
{
    return QFontMetrics(font).height();
}

// Solid lines are filled rather than drawn: at 200 % a drawn line lies beside its pixels.
void DrawLine(QPainter& painter, const QRect& line, const QColor& colour, XTPReportGridStyle style)
{
    if (style == xtpReportGridSolid) painter.fillRect(line, colour);
    if (style != xtpReportGridDotted) return;
    painter.setPen(QPen(colour, 1, Qt::DotLine));
    painter.drawLine(line.topLeft(), line.bottomRight());
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
    const QColor colour = m_control->palette().color(QPalette::Mid);
    DrawLine(painter, QRect(rect.right(), rect.top(), 1, rect.height()), colour, m_vertical);
    DrawLine(painter, QRect(rect.left(), rect.bottom(), rect.width(), 1), colour, m_horizontal);
}

void CXTPReportPaintManager::DrawHeaderBackground(QPainter& painter, const QRect& rect) const
{
    const QPalette palette = m_control ? m_control->palette() : QPalette();
    painter.fillRect(rect, palette.button());
    const QColor line = palette.color(QPalette::Mid);
    painter.fillRect(QRect(rect.right(), rect.top(), 1, rect.height()), line);
    painter.fillRect(QRect(rect.left(), rect.bottom(), rect.width(), 1), line);
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
