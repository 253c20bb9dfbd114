#include "pages/framework/WheelGuard.h"

#include <QEvent>
#include <QWidget>

CWheelGuard::CWheelGuard(QWidget* control) : QObject(control)
{
    control->setFocusPolicy(Qt::StrongFocus);
    control->installEventFilter(this);
}

bool CWheelGuard::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Wheel || static_cast<QWidget*>(watched)->hasFocus()) return false;
    event->ignore();
    return true;
}
