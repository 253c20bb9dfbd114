// Keeps the mouse wheel from changing a control that only lies under the mouse.
#pragma once

#include <QObject>

class QWidget;

// A control takes the focus by a click or by Tab, and the wheel only with the focus; without it
// the wheel is for what scrolls around it.
class CWheelGuard : public QObject {
public:
    // Lives as long as `control`, which owns it.
    explicit CWheelGuard(QWidget* control);

    bool eventFilter(QObject* watched, QEvent* event) override;
};
