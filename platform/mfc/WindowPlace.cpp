#include "platform/mfc/WindowPlace.h"

#include <algorithm>

#include <QEvent>
#include <QScreen>
#include <QSettings>
#include <QStyle>
#include <QWidget>

using namespace designspec;

namespace {

// From `low` on, and no further than that `length` ends at `high`.
int Within(int at, int length, int low, int high)
{
    return std::max(low, std::min(at, high - length + 1));
}

} // namespace

WindowPlace::WindowPlace(QWidget* window, const QString& name, QWidget* owner)
    : QObject(window), m_window(window), m_owner(owner), m_sizeKey(name + QStringLiteral("/size")),
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

// As long as it can be seen.
const QWidget* WindowPlace::Owner() const
{
    const QWidget* const owner = m_owner ? m_owner.data() : m_window->parentWidget();
    return owner && owner->window()->isVisible() ? owner->window() : nullptr;
}

QScreen* WindowPlace::Screen() const
{
    const QWidget* const owner = Owner();
    return owner ? owner->screen() : m_window->screen();
}

QPoint WindowPlace::MiddleOfOwner() const
{
    const QWidget* const owner = Owner();
    const QRect free = Screen()->availableGeometry();
    return (owner ? owner->frameGeometry() & free : free).center();
}

// What the window system puts around a window is not known before it is shown: as much as around
// the owner.
QMargins WindowPlace::Frame() const
{
    const QWidget* const owner = Owner();
    if (!owner || owner->isMaximized())
        return {0, m_window->style()->pixelMetric(QStyle::PM_TitleBarHeight), 0, 0};
    const QRect outer = owner->frameGeometry();
    const QRect inner = owner->geometry();
    // With large text a pixel is several of the screen's: what is lost in rounding is added.
    return QMargins(inner.left() - outer.left(), inner.top() - outer.top(),
                    outer.right() - inner.right(), outer.bottom() - inner.bottom()) +
           1;
}

// Both go by what is inside the frame: that is where a window system puts a window before it gives
// it one, and by anything else it would creep.
void WindowPlace::Restore()
{
    const QSettings settings;
    const QRect free = Screen()->availableGeometry();
    const QMargins frame = Frame();
    const QSize wanted = settings.value(m_sizeKey, m_window->size()).toSize();
    m_window->resize(wanted.boundedTo(free.marginsRemoved(frame).size()));

    QRect outer = QRect(QPoint(), m_window->size()).marginsAdded(frame);
    outer.moveCenter(MiddleOfOwner() + settings.value(m_offsetKey).toPoint());
    outer.moveTo(Within(outer.x(), outer.width(), free.left(), free.right()),
                 Within(outer.y(), outer.height(), free.top(), free.bottom()));
    m_window->setGeometry(outer.marginsRemoved(frame));
}

void WindowPlace::Keep() const
{
    if (m_window->isMaximized()) return;
    const QRect outer = m_window->geometry().marginsAdded(Frame());
    QSettings settings;
    settings.setValue(m_sizeKey, m_window->size());
    settings.setValue(m_offsetKey, outer.center() - MiddleOfOwner());
}
