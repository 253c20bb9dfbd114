#include "tests/gui/Modal.h"

#include <deque>

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include "base/Text.h"
#include "platform/mfc/QtText.h"

using namespace designspec;

struct ExpectModal::State {
    ModalAction action;
    bool came = false;
};

namespace {

constexpr int kPollMs = 2;
constexpr int kStayOpenMs = 5000;

bool HasSubMenu(const QMenu* menu, const QMenu* sub)
{
    for (const QAction* action : menu->actions()) {
        if (!action->menu()) continue;
        if (action->menu() == sub || HasSubMenu(action->menu(), sub)) return true;
    }
    return false;
}

// Sees modal windows come and hands them to the expectations.
class ModalWatch : public QObject {
public:
    static ModalWatch& Get()
    {
        static ModalWatch watch;
        return watch;
    }

    // A window that is closed may be opened again at once: it is a new one then.
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Hide)
            std::erase_if(m_open, [watched](const Open& open) { return open.window == watched; });
        return false;
    }

    void Start()
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { Look(); });
        m_timer.start(kPollMs);
    }
    void Pause() { m_timer.stop(); }
    void Resume() { m_timer.start(kPollMs); }
    void Add(const std::shared_ptr<ExpectModal::State>& state) { m_pending.push_back(state); }
    void Drop(const std::shared_ptr<ExpectModal::State>& state) { std::erase(m_pending, state); }

private:
    struct Open {
        QPointer<QWidget> window;
        bool acted = false;
        QElapsedTimer sinceAction;
    };

    void Look()
    {
        std::erase_if(m_open, [](const Open& open) { return !open.window; });
        QWidget* const window = TopModal();
        if (!window || IsSubMenuOfOpen(window)) return;
        for (Open& open : m_open) {
            if (open.window != window) continue;
            if (open.acted && open.sinceAction.elapsed() > kStayOpenMs) {
                ADD_FAILURE() << "a modal window is still open after its action: "
                              << Describe(window);
                Close(window);
            }
            return;
        }
        m_open.push_back({window, false, {}});
        window->installEventFilter(this);
        if (m_pending.empty()) {
            ADD_FAILURE() << "nobody expects this modal window: " << Describe(window);
            Close(window);
            return;
        }
        // Not in here: a timer stands still as long as its own slot runs, and the action may
        // wait for further windows.
        const QPointer<QWidget> guard = window;
        QMetaObject::invokeMethod(
            &m_timer, [this, guard] { Answer(guard); }, Qt::QueuedConnection);
    }

    void Answer(const QPointer<QWidget>& window)
    {
        if (!window || m_pending.empty()) return;
        const auto state = m_pending.front();
        m_pending.pop_front();
        state->came = true;
        if (!qobject_cast<QMenu*>(window)) (void)QTest::qWaitForWindowActive(window, 1000);
        state->action(window);
        for (Open& open : m_open) {
            if (!window || open.window != window) continue;
            open.acted = true;
            open.sinceAction.start();
        }
    }

    bool IsSubMenuOfOpen(const QWidget* window) const
    {
        const auto* const menu = qobject_cast<const QMenu*>(window);
        return menu && std::any_of(m_open.begin(), m_open.end(), [menu](const Open& open) {
                   const auto* const parent = qobject_cast<const QMenu*>(open.window);
                   return parent && HasSubMenu(parent, menu);
               });
    }

    static QWidget* TopModal()
    {
        // A pop-up that is no menu (the list of a combo box) is its control's own matter.
        if (QWidget* const popup = QApplication::activePopupWidget())
            return qobject_cast<QMenu*>(popup);
        return QApplication::activeModalWidget();
    }

    static std::string Describe(QWidget* window)
    {
        if (const auto* const box = qobject_cast<QMessageBox*>(window))
            return "message box \"" + box->text().toStdString() + '"';
        if (qobject_cast<QMenu*>(window)) return "a menu";
        return "window \"" + window->windowTitle().toStdString() + '"';
    }

    static void Close(QWidget* window)
    {
        if (auto* const dialog = qobject_cast<QDialog*>(window))
            dialog->done(QDialog::Rejected);
        else
            window->close();
    }

    QTimer m_timer;
    std::vector<Open> m_open;
    std::deque<std::shared_ptr<ExpectModal::State>> m_pending;
};

UINT IconFlag(QMessageBox::Icon icon)
{
    switch (icon) {
    case QMessageBox::Information:
        return MB_ICONINFORMATION;
    case QMessageBox::Warning:
        return MB_ICONWARNING;
    case QMessageBox::Critical:
        return MB_ICONERROR;
    case QMessageBox::Question:
        return MB_ICONQUESTION;
    default:
        return 0;
    }
}

// The button that gives an answer, by its text.
CString ButtonText(int answer)
{
    switch (answer) {
    case IDOK:
        return L"确定";
    case IDCANCEL:
        return L"取消";
    case IDYES:
        return L"是";
    default:
        return L"否";
    }
}

std::vector<ShownMenuItem> ReadItems(const QMenu* menu)
{
    std::vector<ShownMenuItem> items;
    for (const QAction* action : menu->actions()) {
        items.push_back({FromQString(action->text()),
                         action->data().toUInt(),
                         action->isChecked(),
                         action->isEnabled(),
                         action->isSeparator(),
                         {}});
        if (action->menu()) items.back().subMenu = ReadItems(action->menu());
    }
    return items;
}

// The menus from `menu` down to the one that holds the item; the item itself in `found`.
std::vector<QAction*> PathTo(const QMenu* menu, const QString& text)
{
    for (QAction* action : menu->actions()) {
        if (action->text() == text && !action->menu()) return {action};
        if (!action->menu()) continue;
        std::vector<QAction*> path = PathTo(action->menu(), text);
        if (path.empty()) continue;
        path.insert(path.begin(), action);
        return path;
    }
    return {};
}

} // namespace

void WatchModals()
{
    ModalWatch::Get().Start();
}

ExpectModal::ExpectModal(ModalAction action, int limitMs)
    : m_state(std::make_shared<State>(State{std::move(action)})), m_limitMs(limitMs)
{
    ModalWatch::Get().Add(m_state);
}

ExpectModal::~ExpectModal()
{
    if (!QTest::qWaitFor([this] { return m_state->came; }, m_limitMs))
        ADD_FAILURE() << "the expected modal window never came";
    ModalWatch::Get().Drop(m_state);
}

bool ExpectModal::Came() const
{
    return m_state->came;
}

ExpectMessage::ExpectMessage(const CString& text, const CString& caption, UINT icon, int answer)
    : m_modal([=](QWidget* window) {
          const ShownMessage shown = ReadMessage(window);
          EXPECT_EQ(ToUtf8(shown.text), ToUtf8(text));
          EXPECT_EQ(ToUtf8(shown.caption), ToUtf8(caption));
          EXPECT_EQ(shown.icon, icon);
          ClickMessageButton(window, ButtonText(answer));
      })
{
}

UnwatchedModals::UnwatchedModals()
{
    ModalWatch::Get().Pause();
}

UnwatchedModals::~UnwatchedModals()
{
    ModalWatch::Get().Resume();
}

ShownMessage ReadMessage(QWidget* window)
{
    const auto* const box = qobject_cast<QMessageBox*>(window);
    if (!box) {
        ADD_FAILURE() << "no message box: " << window->windowTitle().toStdString();
        return {};
    }
    ShownMessage shown{
        FromQString(box->text()), FromQString(box->windowTitle()), IconFlag(box->icon()), {}};
    for (const QAbstractButton* button : box->buttons())
        shown.buttons.push_back(FromQString(button->text()));
    return shown;
}

void ClickMessageButton(QWidget* window, const CString& text)
{
    for (QPushButton* button : window->findChildren<QPushButton*>()) {
        if (button->text() != ToQString(text)) continue;
        QTest::mouseClick(button, Qt::LeftButton);
        return;
    }
    ADD_FAILURE() << "no button " << ToUtf8(text);
}

std::vector<ShownMenuItem> ReadMenu(QWidget* window)
{
    if (const auto* const menu = qobject_cast<QMenu*>(window)) return ReadItems(menu);
    ADD_FAILURE() << "no menu: " << window->windowTitle().toStdString();
    return {};
}

std::vector<unsigned> MenuIds(const std::vector<ShownMenuItem>& items)
{
    std::vector<unsigned> ids;
    for (const ShownMenuItem& item : items) {
        const std::vector<unsigned> inner = MenuIds(item.subMenu);
        ids.insert(ids.end(), inner.begin(), inner.end());
        if (item.id != 0) ids.push_back(item.id);
    }
    return ids;
}

CStringArray MenuLines(QWidget* window)
{
    CStringArray lines;
    for (const ShownMenuItem& item : ReadMenu(window)) {
        CString line = item.separator ? L"---" : item.text;
        if (!item.enabled && !item.separator) line = L"(" + line + L")";
        if (item.checked) line = L"[x] " + line;
        if (!item.subMenu.empty()) line += L" >";
        lines.push_back(line);
    }
    return lines;
}

void ChooseMenuItem(QWidget* window, const CString& text)
{
    auto* menu = qobject_cast<QMenu*>(window);
    const auto path = menu ? PathTo(menu, ToQString(text)) : std::vector<QAction*>();
    if (path.empty()) ADD_FAILURE() << "no menu item " << ToUtf8(text);
    for (QAction* action : path) {
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
        if (!action->menu()) return;
        menu = action->menu();
        if (QTest::qWaitFor([menu] { return menu->isVisible(); }, 2000)) continue;
        ADD_FAILURE() << "the sub-menu does not open: " << action->text().toStdString();
        return;
    }
}
