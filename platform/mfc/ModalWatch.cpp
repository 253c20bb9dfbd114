#include "platform/mfc/ModalWatch.h"

#include <algorithm>

#include <QApplication>
#include <QEvent>
#include <QMenu>

using namespace designspec;

namespace {

constexpr int kPollMs = 2;

ModalWatch* g_newest = nullptr;

// A pop-up that is no menu (the list of a combo box) is its control's own matter.
QWidget* WaitingWindow()
{
    if (QWidget* const popup = QApplication::activePopupWidget())
        return qobject_cast<QMenu*>(popup);
    return QApplication::activeModalWidget();
}

bool HasSubMenu(const QMenu* menu, const QWidget* sub)
{
    if (!menu) return false;
    const QList<QAction*> items = menu->actions();
    return std::any_of(items.begin(), items.end(), [sub](const QAction* item) {
        return item->menu() && (item->menu() == sub || HasSubMenu(item->menu(), sub));
    });
}

} // namespace

ModalWatch::ModalWatch(Came came) : m_came(std::move(came)), m_before(g_newest)
{
    g_newest = this;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible() && (window->isModal() || window->windowType() == Qt::Popup))
            Remember(window);
    QObject::connect(&m_timer, &QTimer::timeout, this, [this] { Look(); });
    m_timer.start(kPollMs);
}

ModalWatch::~ModalWatch()
{
    g_newest = m_before;
}

void ModalWatch::Remember(QWidget* window)
{
    m_open.emplace_back(window);
    window->installEventFilter(this);
}

// A window that is closed may be opened again at once: it is a new one then.
bool ModalWatch::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Hide)
        std::erase_if(m_open, [watched](const auto& window) { return window == watched; });
    return false;
}

bool ModalWatch::IsKnown(const QWidget* window) const
{
    return std::any_of(m_open.begin(), m_open.end(), [window](const auto& open) {
        return open == window || HasSubMenu(qobject_cast<const QMenu*>(open.data()), window);
    });
}

void ModalWatch::Look()
{
    if (g_newest != this) return;
    std::erase_if(m_open, [](const auto& window) { return window.isNull(); });
    QWidget* const window = WaitingWindow();
    if (!window || IsKnown(window)) return;
    Remember(window);
    // Not in here: a timer stands still as long as its own slot runs.
    const auto tell = [this, shown = QPointer(window)] {
        if (shown) m_came(shown);
    };
    QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
}

size_t designspec::VisitModals(const std::function<void()>& open,
                               const std::vector<ModalVisit>& visits)
{
    size_t paid = 0;
    const ModalWatch watch([&](QWidget* window) {
        const QPointer<QWidget> shown = window;
        if (paid < visits.size()) visits[paid++](window);
        if (shown && shown->isVisible()) shown->close();
    });
    open();
    return paid;
}
