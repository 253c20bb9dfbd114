#include "host/Guide.h"

#include <QApplication>
#include <QDir>
#include <QKeyEvent>

#include "host/InstalledFolders.h"
#include "platform/mfc/GuideSection.h"

using namespace designspec;

Guide::Guide(QWidget* frame) : QObject(frame), m_frame(frame)
{
    qApp->installEventFilter(this);
}

QString Guide::File()
{
    return GuideFolder() + QStringLiteral("/user-guide.zh-CN.md");
}

// A dialog that waits lets only its own windows be used.
void Guide::BelongTo(QWidget* owner)
{
    if (m_owner == owner) return;
    const bool isShown = m_window->isVisible();
    const QRect place = m_window->geometry();
    m_owner = owner;
    m_window->setParent(owner, Qt::Window);
    if (!isShown) return;
    m_window->setGeometry(place);
    m_window->show();
}

void Guide::Show(const QString& heading)
{
    QWidget* const modal = QApplication::activeModalWidget();
    QWidget* const owner = modal ? modal : m_frame;
    if (!m_window) {
        m_window = new GuideWindow(owner);
        m_owner = owner;
        if (!m_window->Load(File())) {
            delete m_window;
            return emit Missing(File());
        }
    }
    BelongTo(owner);
    m_window->show();
    m_window->raise();
    m_window->activateWindow();
    m_window->GoTo(heading);
}

bool Guide::eventFilter(QObject* watched, QEvent* event)
{
    // The guide stays when the dialog goes that it was opened from.
    if (event->type() == QEvent::Hide && m_window && watched == m_owner && watched != m_frame)
        BelongTo(m_frame);
    if (event->type() != QEvent::KeyPress) return false;
    const auto* const key = static_cast<QKeyEvent*>(event);
    if (key->key() != Qt::Key_F1 || key->modifiers() != Qt::NoModifier) return false;
    const auto* const widget = qobject_cast<QWidget*>(watched);
    if (!widget) return false;
    if (widget->window() != m_window) Show(GuideSectionOf(widget));
    return true;
}
