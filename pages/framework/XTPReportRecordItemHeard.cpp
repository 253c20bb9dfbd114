#include "pages/framework/XTPReportRecordItemHeard.h"

#include <QPainter>

#include "platform/mfc/QtText.h"

IMPLEMENT_DYNCREATE(CXTPReportRecordItemHeard, CXTPReportRecordItem)

namespace {

constexpr int kTextIndent = 3;

void DrawRaisedFrame(QPainter& painter, const QRect& rect, const QPalette& palette)
{
    painter.fillRect(rect.adjusted(1, 1, -1, -1), palette.button());
    painter.setPen(palette.color(QPalette::Light));
    painter.drawLine(rect.topLeft(), rect.topRight());
    painter.drawLine(rect.topLeft(), rect.bottomLeft());
    painter.setPen(palette.color(QPalette::Dark));
    painter.drawLine(rect.topRight(), rect.bottomRight());
    painter.drawLine(rect.bottomLeft(), rect.bottomRight());
}

void DrawLine(QPainter& painter, const QRect& rect, const QString& text)
{
    painter.drawText(rect, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
}

} // namespace

void CXTPReportRecordItemHeard::Draw(QPainter& painter, const CXTPReportItemDraw& draw) const
{
    painter.fillRect(draw.rect, draw.palette.button());
    const QRect frame = draw.rect.adjusted(1, 1, -1, -1);
    DrawRaisedFrame(painter, frame, draw.palette);

    QRect text = frame.adjusted(1 + kTextIndent, 1, -1, -1);
    painter.setPen(draw.palette.color(QPalette::ButtonText));
    const CString caption = GetCaption();
    const size_t lineBreak = caption.find(L'\n');
    if (lineBreak == CString::npos) {
        DrawLine(painter, text, ToQString(caption));
        return;
    }
    // The two lines meet in the middle of the cell.
    const int height = painter.fontMetrics().height();
    const int middle = text.top() + text.height() / 2;
    text.setTop(middle - height);
    text.setHeight(height);
    DrawLine(painter, text, ToQString(caption.substr(0, lineBreak)));
    text.translate(0, height);
    DrawLine(painter, text, ToQString(caption.substr(lineBreak + 1)));
}
