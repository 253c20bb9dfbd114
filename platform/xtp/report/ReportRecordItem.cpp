#include "platform/xtp/report/ReportRecordItem.h"

#include <QPainter>

#include "platform/mfc/QtText.h"

using namespace designspec;

IMPLEMENT_DYNCREATE(CXTPReportRecordItem, CObject)

void CXTPReportRecordItem::OnEditChanged(CXTPReportControl*, const CString& newText)
{
    SetCaption(newText);
}

CXTPReportItemState CXTPReportRecordItem::SaveState() const
{
    return {m_caption, m_itemData, {}};
}

void CXTPReportRecordItem::RestoreState(const CXTPReportItemState& state)
{
    m_caption = state.caption;
    m_itemData = state.itemData;
}

void CXTPReportRecordItem::Draw(QPainter& painter, const CXTPReportItemDraw& draw) const
{
    constexpr int kMargin = 2;
    const QRect place = draw.rect.adjusted(kMargin, 0, -kMargin, 0);
    // A number that is cut off would read as another one.
    const QString text =
        painter.fontMetrics().elidedText(ToQString(GetCaption()), Qt::ElideRight, place.width());
    painter.fillRect(draw.rect, draw.selected ? draw.palette.highlight() : draw.palette.base());
    const QPalette::ColorRole role = draw.selected ? QPalette::HighlightedText : QPalette::Text;
    painter.setPen(draw.palette.color(role));
    painter.drawText(place, Qt::AlignCenter, text);
}
