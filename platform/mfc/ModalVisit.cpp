#include "platform/mfc/ModalVisit.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QPointer>
#include <QTimer>

namespace {

QWidget* WaitingWindow()
{
    QWidget* const popup = QApplication::activePopupWidget();
    return popup ? popup : QApplication::activeModalWidget();
}

void PressReturn(QMenu* menu)
{
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QApplication::sendEvent(menu, &press);
}

} // namespace

size_t VisitModals(const std::function<void()>& open, const std::vector<ModalVisit>& visits)
{
    const QPointer<QWidget> before = WaitingWindow();
    size_t paid = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        const QPointer<QWidget> window = WaitingWindow();
        if (!window || window == before) return;
        timer.stop(); // what the visit opens is its own matter
        if (paid < visits.size()) visits[paid++](window);
        if (window && window->isVisible()) window->close();
        timer.start();
    });
    timer.start(0);
    open();
    return paid;
}

bool ChooseMenuItem(QMenu* menu, QAction* item)
{
    if (!item->isEnabled()) return false;
    if (menu->actions().contains(item)) {
        menu->setActiveAction(item);
        PressReturn(menu);
        return true;
    }
    for (QAction* action : menu->actions()) {
        QMenu* const sub = action->menu();
        if (!sub || !sub->actions().contains(item)) continue;
        menu->setActiveAction(action);
        PressReturn(menu); // opens it
        return sub->isVisible() && ChooseMenuItem(sub, item);
    }
    return false;
}
