#include "pages/framework/XTPReportRecordItemHeard.h"

#include <algorithm>

#include <QPainter>
#include <QPalette>

#include "platform/mfc/QtText.h"

using namespace designspec;

IMPLEMENT_DYNCREATE(CXTPReportRecordItemHeard, CXTPReportRecordItem)

namespace {

constexpr int kTextIndent = 3;

// Edges are filled rather than drawn: at 200 % a drawn line lies beside its pixels.
void DrawRaisedFrame(QPainter& painter, const QRect& rect, const QPalette& palette)
{
    painter.fillRect(rect, palette.button());
    const QColor light = palette.color(QPalette::Light);
    const QColor shadow = palette.color(QPalette::Dark);
    painter.fillRect(QRect(rect.left(), rect.top(), rect.width(), 1), light);
    painter.fillRect(QRect(rect.left(), rect.top(), 1, rect.height()), light);
    painter.fillRect(QRect(rect.right(), rect.top(), 1, rect.height()), shadow);
    painter.fillRect(QRect(rect.left(), rect.bottom(), rect.width(), 1), shadow);
}

// A caption that is a little too wide for its column is drawn narrower; one that is much too wide
// ends in an ellipsis.
void DrawLine(QPainter& painter, const QRect& rect, const CString& text)
{
    constexpr int kNarrowest = 85; // per cent
    const QFont font = painter.font();
    QFont narrow = font;
    const int wanted = painter.fontMetrics().horizontalAdvance(ToQString(text));
    if (wanted > rect.width()) {
        narrow.setStretch(std::max(kNarrowest, 100 * rect.width() / wanted));
        painter.setFont(narrow);
    }
    const QString shown =
        painter.fontMetrics().elidedText(ToQString(text), Qt::ElideRight, rect.width());
    painter.drawText(rect, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shown);
    painter.setFont(font);
}

} // namespace

void CXTPReportRecordItemHeard::Draw(QPainter& painter, const QRect& rect, const QPalette& palette,
                                     bool) const
{
    painter.fillRect(rect, palette.button());
    const QRect frame = rect.adjusted(1, 1, -1, -1);
    DrawRaisedFrame(painter, frame, palette);

    QRect text = frame.adjusted(1 + kTextIndent, 1, -1, -1);
    painter.setPen(palette.color(QPalette::ButtonText));
    const CString caption = GetCaption();
    const size_t lineBreak = caption.find(L'\n');
    if (lineBreak == CString::npos) {
        DrawLine(painter, text, caption);
        return;
    }
    // The two lines meet in the middle of the cell.
    const int height = painter.fontMetrics().height();
    const int middle = text.top() + text.height() / 2;
    text.setTop(middle - height);
    text.setHeight(height);
    DrawLine(painter, text, caption.substr(0, lineBreak));
    text.translate(0, height);
    DrawLine(painter, text, caption.substr(lineBreak + 1));
}
