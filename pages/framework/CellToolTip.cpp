#include "pages/framework/CellToolTip.h"

#include <QHelpEvent>
#include <QToolTip>

#include "platform/mfc/QtText.h"

using namespace designspec;

CCellToolTip::CCellToolTip(CXTPReportControl* grid, Text text)
    : QObject(grid), m_grid(grid), m_text(std::move(text))
{
    grid->viewport()->installEventFilter(this);
}

bool CCellToolTip::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::ToolTip) return QObject::eventFilter(watched, event);
    const auto& help = static_cast<const QHelpEvent&>(*event);
    const QModelIndex cell = m_grid->indexAt(help.pos());
    const CString text = cell.isValid() ? m_text(cell) : CString();
    if (text.empty()) return false;
    QToolTip::showText(help.globalPos(), ToToolTip(ToQString(text)), m_grid->viewport(),
                       m_grid->visualRect(cell));
    return true;
}
