#include "app/PictureTour.h"

#include <algorithm>

#include <QApplication>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>

#include "app/NameWaitDialog.h"
#include "platform/arx/Frame.h"
#include "platform/mfc/QtText.h"

namespace {

constexpr int kTree = 100;
constexpr int kName = 108;
constexpr wchar_t kOpensDialog[] = L"..."; // what an item ends in that asks for something

// The menu's own items and those of its sub-menus.
std::vector<QAction*> ItemsOf(const QWidget* menu)
{
    std::vector<QAction*> items;
    for (QAction* action : menu->actions()) {
        items.push_back(action);
        if (!action->menu()) continue;
        const std::vector<QAction*> sub = ItemsOf(action->menu());
        items.insert(items.end(), sub.begin(), sub.end());
    }
    return items;
}

CStringArray TextsOf(const QWidget* menu)
{
    CStringArray texts;
    for (const QAction* item : ItemsOf(menu))
        texts.push_back(FromQString(item->text()));
    return texts;
}

void ChooseItem(QWidget* window, const CString& text)
{
    auto* const menu = qobject_cast<QMenu*>(window);
    if (!menu) return;
    for (QAction* item : ItemsOf(menu))
        if (FromQString(item->text()) == text) {
            ChooseMenuItem(menu, item);
            return;
        }
}

// The menu key on the first cell that holds a value.
void PressMenuKey(CXTPReportControl* grid)
{
    grid->setCurrentIndex(grid->IndexOf(0, 1));
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QApplication::sendEvent(grid, &event);
}

template <class Widget> std::vector<Widget*> Visible(const QWidget& window)
{
    std::vector<Widget*> found;
    for (Widget* one : window.findChildren<Widget*>())
        if (one->isVisible() && one->isEnabled()) found.push_back(one);
    return found;
}

} // namespace

CPictureTour::CPictureTour(const CString& name, const Picture& picture)
    : m_name(name), m_picture(picture), m_dialog(name, false, nullptr, acedGetAcadFrame())
{
}

void CPictureTour::Run()
{
    m_dialog.show();
    ShowPages();
    ShowMessage();
    m_dialog.hide();
    ShowViewMode();
    ShowNameWait();
}

void CPictureTour::Show(QWidget* window, const CString& name)
{
    if (m_seen.insert(name).second) m_picture(window, name);
}

ModalVisit CPictureTour::ShowByTitle()
{
    return [this](QWidget* window) { Show(window, FromQString(window->windowTitle())); };
}

void CPictureTour::ShowPages()
{
    for (int i = 0; i < m_dialog.PageCount(); ++i) {
        m_dialog.SelectPage(i);
        m_dialog.GetDlgItem(kTree)->setFocus(); // where a click that selects the page puts it
        m_page = m_dialog.PagePath(i);
        std::replace(m_page.begin(), m_page.end(), L'\\', L'-');
        Show(&m_dialog, m_page);
        ShowMenus();
        ShowSource();
    }
}

// Menus

void CPictureTour::ShowMenus()
{
    for (CXTPReportControl* grid : Visible<CXTPReportControl>(m_dialog))
        ShowMenu(grid);
}

void CPictureTour::ShowMenu(CXTPReportControl* grid)
{
    CStringArray asking;
    const auto look = [this, &asking](QWidget* menu) {
        const CStringArray texts = TextsOf(menu);
        CString all;
        for (const CString& text : texts) {
            all += text + L"\n";
            if (text.ends_with(kOpensDialog) && m_seen.insert(text).second) asking.push_back(text);
        }
        if (m_seen.insert(all).second) Show(menu, m_page + L"-右键菜单");
    };
    VisitModals([grid] { PressMenuKey(grid); }, {look});
    ShowInputDialogs(grid, asking);
}

void CPictureTour::ShowInputDialogs(CXTPReportControl* grid, const CStringArray& items)
{
    for (const CString& item : items)
        VisitModals([grid] { PressMenuKey(grid); },
                    {[&item](QWidget* menu) { ChooseItem(menu, item); }, ShowByTitle()});
}

// Dialogs and messages

// The button with a picture alone opens the data source of the page.
void CPictureTour::ShowSource()
{
    for (QPushButton* button : Visible<QPushButton>(m_dialog)) {
        if (!button->text().isEmpty() || button->icon().isNull()) continue;
        VisitModals([button] { button->click(); }, {ShowByTitle()});
        return;
    }
}

// An empty name is refused before anything is stored.
void CPictureTour::ShowMessage()
{
    m_dialog.SetDlgItemText(kName, {});
    VisitModals([this] { m_dialog.accept(); }, {ShowByTitle()});
}

void CPictureTour::ShowViewMode()
{
    CDSMainDialog dialog(m_name, false, nullptr, acedGetAcadFrame());
    dialog.SetViewMode(L"");
    dialog.show();
    Show(&dialog, L"查看模式");
}

void CPictureTour::ShowNameWait()
{
    CNameWaitDialog dialog(m_name, acedGetAcadFrame());
    dialog.show();
    Show(&dialog, L"等待名称");
}
