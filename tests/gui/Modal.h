// Answers to modal windows, for tests that act as a person does.
//
// A dialog, a message box or a menu waits inside the call that opens it, so what is to be done
// with it is said beforehand:
//
//     ExpectModal dialog([](QWidget* window) {
//         TypeInto(window, 108, L"9");
//         ExpectMessage box(L"车速 必须大于等于 10 并且小于等于 150");
//         Click(window, IDOK);
//         PressKey(window, Qt::Key_Escape);
//     });
//     Click(page, 118);
//
// Windows are answered in the order in which their expectations were made. A test fails when an
// expected window never came, when one came that nobody expects, and when one is still open
// some time after its action; the latter two are closed, so that the test can end.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "platform/mfc/MessageBox.h"

class QWidget;

using ModalAction = std::function<void(QWidget* window)>;

class ExpectModal {
public:
    explicit ExpectModal(ModalAction action, int limitMs = 3000);
    // Waits for the window as long as the limit allows and fails the test if it does not come.
    ~ExpectModal();
    ExpectModal(const ExpectModal&) = delete;
    ExpectModal& operator=(const ExpectModal&) = delete;

    bool Came() const;

    struct State;

private:
    std::shared_ptr<State> m_state;
    int m_limitMs;
};

// Expects a message box with just this text, caption and icon, and answers it.
class ExpectMessage {
public:
    explicit ExpectMessage(const CString& text, const CString& caption = L"提示",
                           UINT icon = MB_ICONINFORMATION, int answer = IDOK);

private:
    ExpectModal m_modal;
};

// Types the path of a file or folder into a file dialog, and Enter.
ModalAction ChooseFile(const CString& path);

// Starts to watch for modal windows; the GUI tests' main does it.
void WatchModals();

// What a message box shows; fails the test and gives empty texts when it is none.
struct ShownMessage {
    CString text;
    CString caption;
    UINT icon = 0; // one of MB_ICON..., 0 for none
    CStringArray buttons;
};
ShownMessage ReadMessage(QWidget* window);
// Clicks the button of that text.
void ClickMessageButton(QWidget* window, const CString& text);

struct ShownMenuItem {
    CString text;
    UINT id = 0; // 0 for separators and sub-menus
    bool checked = false;
    bool enabled = true;
    bool separator = false;
    std::vector<ShownMenuItem> subMenu;
};
// The items of a menu, top to bottom; fails the test when the window is no menu.
std::vector<ShownMenuItem> ReadMenu(QWidget* window);
// The ids of the items that can be chosen, top to bottom, those of a sub-menu in its place.
std::vector<unsigned> MenuIds(const std::vector<ShownMenuItem>& items);
// One line each: "120 km/h", "[x] 100 km/h", "(输入车速...)" when disabled, "---", "超高 >".
CStringArray MenuLines(QWidget* window);
// Clicks the item of that text with the mouse, in a sub-menu too, which it opens first.
void ChooseMenuItem(QWidget* window, const CString& text);
