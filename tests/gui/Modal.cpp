#include "tests/gui/Modal.h"

#include <deque>

#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include "base/Text.h"
#include "platform/mfc/ModalWatch.h"
#include "platform/mfc/QtText.h"

using namespace designspec;

struct ExpectModal::State {
    ModalAction action;
    bool came = false;
};

namespace {

constexpr int kStayOpenMs = 5000;

std::deque<std::shared_ptr<ExpectModal::State>> g_pending;

std::string Describe(QWidget* window)
{
    if (const auto* const box = qobject_cast<QMessageBox*>(window))
        return "message box \"" + box->text().toStdString() + '"';
    if (qobject_cast<QMenu*>(window)) return "a menu";
    return "window \"" + window->windowTitle().toStdString() + '"';
}

void Close(QWidget* window)
{
    if (auto* const dialog = qobject_cast<QDialog*>(window))
        dialog->done(QDialog::Rejected);
    else
        window->close();
}

void CloseIfItStays(QWidget* window)
{
    auto* const late = new QTimer(window);
    late->setSingleShot(true);
    QObject::connect(late, &QTimer::timeout, window, [window] {
        ADD_FAILURE() << "a modal window is still open after its action: " << Describe(window);
        Close(window);
    });
    if (auto* const dialog = qobject_cast<QDialog*>(window))
        QObject::connect(dialog, &QDialog::finished, late, &QTimer::stop);
    if (auto* const menu = qobject_cast<QMenu*>(window))
        QObject::connect(menu, &QMenu::aboutToHide, late, &QTimer::stop);
    late->start(kStayOpenMs);
}

void Answer(QWidget* window)
{
    if (g_pending.empty()) {
        ADD_FAILURE() << "nobody expects this modal window: " << Describe(window);
        return Close(window);
    }
    const auto state = g_pending.front();
    g_pending.pop_front();
    state->came = true;
    const QPointer<QWidget> shown = window;
    if (!qobject_cast<QMenu*>(window)) (void)QTest::qWaitForWindowActive(window, 1000);
    state->action(window);
    if (shown && shown->isVisible()) CloseIfItStays(shown);
}

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

// What a button says, without the key behind it.
CString Caption(const QAbstractButton* button)
{
    return FromQString(button->text().section(QStringLiteral("(&"), 0, 0));
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
    static const designspec::ModalWatch watch(Answer);
}

ExpectModal::ExpectModal(ModalAction action, int limitMs)
    : m_state(std::make_shared<State>(State{std::move(action)})), m_limitMs(limitMs)
{
    g_pending.push_back(m_state);
}

ExpectModal::~ExpectModal()
{
    if (!QTest::qWaitFor([this] { return m_state->came; }, m_limitMs))
        ADD_FAILURE() << "the expected modal window never came";
    std::erase(g_pending, m_state);
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
        shown.buttons.push_back(Caption(button));
    return shown;
}

ModalAction ChooseFile(const CString& path)
{
    return [path](QWidget* window) {
        auto* const dialog = dynamic_cast<QFileDialog*>(window);
        ASSERT_NE(dialog, nullptr);
        auto* const name = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        ASSERT_NE(name, nullptr);
        name->setFocus();
        name->selectAll();
        name->setText(ToQString(path));
        QTest::keyClick(name, Qt::Key_Return);
    };
}

void ClickMessageButton(QWidget* window, const CString& text)
{
    for (QPushButton* button : window->findChildren<QPushButton*>()) {
        if (Caption(button) != text) continue;
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
