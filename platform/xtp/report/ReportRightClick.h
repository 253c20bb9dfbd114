// Tells of a right click on the viewport of a grid or a header that is enabled, once for each
// click.
#pragma once

#include <functional>

#include <QObject>
#include <QPoint>

class QWidget;

namespace designspec {

// The window system asks for a context menu when the button goes down; where nobody asks, the
// button's release counts.
class ReportRightClick : public QObject {
public:
    using Callback = std::function<void(const QPoint& pos, const QPoint& globalPos)>;

    // Lives as long as `viewport`, which owns it.
    ReportRightClick(QWidget* viewport, Callback callback);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Callback m_callback;
    bool m_pressed = false;
};

} // namespace designspec
