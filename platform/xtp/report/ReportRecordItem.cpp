#include "platform/xtp/report/ReportRecordItem.h"

#include <QPainter>
#include <QPalette>

#include "platform/mfc/QtText.h"

using namespace designspec;

IMPLEMENT_DYNCREATE(CXTPReportRecordItem, CObject)

void CXTPReportRecordItem::OnEditChanged(CXTPReportControl*, const CString& newText)
{
    SetCaption(newText);
}

ReportItemState CXTPReportRecordItem::SaveState() const
{
    return {m_caption, m_itemData, {}};
}

void CXTPReportRecordItem::RestoreState(const ReportItemState& state)
{
    m_caption = state.caption;
    m_itemData = state.itemData;
}

void CXTPReportRecordItem::Draw(QPainter& painter, const QRect& rect, const QPalette& palette,
                                bool selected) const
{
    constexpr int kMargin = 2;
    const QRect place = rect.adjusted(kMargin, 0, -kMargin, 0);
    // A number that is cut off would read as another one.
    const QString text =
        painter.fontMetrics().elidedText(ToQString(GetCaption()), Qt::ElideRight, place.width());
    painter.fillRect(rect, selected ? palette.highlight() : palette.base());
    painter.setPen(palette.color(selected ? QPalette::HighlightedText : QPalette::Text));
    painter.drawText(place, Qt::AlignCenter, text);
}
