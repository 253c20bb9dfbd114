#include "platform/mfc/WindowPlace.h"

#include <algorithm>

#include <QEvent>
#include <QScreen>
#include <QSettings>
#include <QStyle>
#include <QWidget>

using namespace designspec;

namespace {

// The window that `window` belongs to, as long as that can be seen.
const QWidget* OwnerOf(const QWidget& window)
{
    const QWidget* const parent = window.parentWidget();
    return parent && parent->window()->isVisible() ? parent->window() : nullptr;
}

QScreen* ScreenOf(const QWidget& window)
{
    const QWidget* const owner = OwnerOf(window);
    return owner ? owner->screen() : window.screen();
}

QPoint MiddleOfOwner(const QWidget& window)
{
    const QWidget* const owner = OwnerOf(window);
    const QRect free = ScreenOf(window)->availableGeometry();
    return (owner ? owner->frameGeometry() & free : free).center();
}

// What the window system puts around a window is not known before it is shown: as much as around
// the owner.
QMargins FrameOf(const QWidget& window)
{
    const QWidget* const owner = OwnerOf(window);
    if (!owner || owner->isMaximized())
        return {0, window.style()->pixelMetric(QStyle::PM_TitleBarHeight), 0, 0};
    const QRect outer = owner->frameGeometry();
    const QRect inner = owner->geometry();
    // With large text a pixel is several of the screen's: what is lost in rounding is added.
    return QMargins(inner.left() - outer.left(), inner.top() - outer.top(),
                    outer.right() - inner.right(), outer.bottom() - inner.bottom()) +
           1;
}

// From `low` on, and no further than that `length` ends at `high`.
int Within(int at, int length, int low, int high)
{
    return std::max(low, std::min(at, high - length + 1));
}

} // namespace

WindowPlace::WindowPlace(QWidget* window, const QString& name)
    : QObject(window), m_window(window), m_sizeKey(name + QStringLiteral("/size")),
      m_offsetKey(name + QStringLiteral("/offset"))
{
    window->installEventFilter(this);
}

bool WindowPlace::eventFilter(QObject*, QEvent* event)
{
    if (m_window->isWindow() && !event->spontaneous()) {
        if (event->type() == QEvent::Show) Restore();
        if (event->type() == QEvent::Hide) Keep();
    }
    return false;
}

// Both go by what is inside the frame: that is where a window system puts a window before it gives
// it one, and by anything else it would creep.
void WindowPlace::Restore()
{
    const QSettings settings;
    const QRect free = ScreenOf(*m_window)->availableGeometry();
    const QMargins frame = FrameOf(*m_window);
    const QSize wanted = settings.value(m_sizeKey, m_window->size()).toSize();
    m_window->resize(wanted.boundedTo(free.marginsRemoved(frame).size()));

    QRect outer = QRect(QPoint(), m_window->size()).marginsAdded(frame);
    outer.moveCenter(MiddleOfOwner(*m_window) + settings.value(m_offsetKey).toPoint());
    outer.moveTo(Within(outer.x(), outer.width(), free.left(), free.right()),
                 Within(outer.y(), outer.height(), free.top(), free.bottom()));
    m_window->setGeometry(outer.marginsRemoved(frame));
}

void WindowPlace::Keep() const
{
    if (m_window->isMaximized()) return;
    const QRect outer = m_window->geometry().marginsAdded(FrameOf(*m_window));
    QSettings settings;
    settings.setValue(m_sizeKey, m_window->size());
    settings.setValue(m_offsetKey, outer.center() - MiddleOfOwner(*m_window));
}
