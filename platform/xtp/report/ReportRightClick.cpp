#include "platform/xtp/report/ReportRightClick.h"

#include <utility>

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QWidget>

using namespace designspec;

ReportRightClick::ReportRightClick(QWidget* viewport, Callback callback)
    : QObject(viewport), m_callback(std::move(callback))
{
    viewport->installEventFilter(this);
}

bool ReportRightClick::eventFilter(QObject* watched, QEvent* event)
{
    // Filters hear the mouse over disabled windows too.
    if (!static_cast<QWidget*>(watched)->isEnabled()) return false;
    if (event->type() == QEvent::ContextMenu) {
        const auto* const menu = static_cast<QContextMenuEvent*>(event);
        m_pressed = false;
        m_callback(menu->pos(), menu->globalPos());
        return true;
    }
    if (event->type() != QEvent::MouseButtonPress && event->type() != QEvent::MouseButtonRelease)
        return false;
    const auto* const mouse = static_cast<QMouseEvent*>(event);
    if (mouse->button() != Qt::RightButton) return false;
    const bool clicked = event->type() == QEvent::MouseButtonRelease && m_pressed;
    m_pressed = event->type() == QEvent::MouseButtonPress;
    if (clicked) m_callback(mouse->position().toPoint(), mouse->globalPosition().toPoint());
    return false;
}
