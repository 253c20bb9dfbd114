#include "pages/framework/MyReportPaintManager.h"

#include <QPainter>

#include "pages/framework/XTPReportRecordItemHeard.h"
#include "platform/mfc/QtText.h"
#include "platform/xtp/report/ReportColumn.h"
#include "platform/xtp/report/ReportRecord.h"

using namespace designspec;

int CMyReportPaintManager::GetRowHeight(const CXTPReportRecord* record) const
{
    const auto* const header =
        record ? dynamic_cast<const CXTPReportRecordItemHeard*>(record->GetItem(0)) : nullptr;
    if (header && header->GetRowHeight() > 0) return header->GetRowHeight();
    return CXTPReportPaintManager::GetRowHeight(record);
}

int CMyReportPaintManager::GetTwoLineHeight() const
{
    return CXTPReportPaintManager::GetRowHeight(nullptr) + QFontMetrics(GetCaptionFont()).height();
}

void CMyReportPaintManager::DrawColumnHeader(QPainter& painter, const QRect& rect,
                                             const CXTPReportColumn* column) const
{
    const CString caption = column ? column->GetCaption() : CString();
    const size_t split = caption.find(L'\\');
    if (split == CString::npos) {
        CXTPReportPaintManager::DrawColumnHeader(painter, rect, column);
        return;
    }
    DrawHeaderBackground(painter, rect);
    painter.setPen(GetHeaderTextColor());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.drawLine(rect.topLeft() + QPoint(2, 2), rect.bottomRight() - QPoint(4, 4));

    painter.setFont(GetCaptionFont());
    const QRect text = rect.adjusted(4, 4, -4, -4);
    painter.drawText(text, Qt::AlignTop | Qt::AlignRight | Qt::TextSingleLine,
                     ToQString(caption.substr(0, split)));
    painter.drawText(text, Qt::AlignBottom | Qt::AlignLeft | Qt::TextSingleLine,
                     ToQString(caption.substr(split + 1)));
}
