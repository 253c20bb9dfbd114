#include "platform/mfc/Menu.h"

#include <QMenu>

#include "platform/mfc/QtText.h"

using namespace designspec;

namespace {

QAction* FindItem(const QMenu& menu, UINT id)
{
    for (QAction* action : menu.actions()) {
        if (action->data().toUInt() == id) return action;
        if (!action->menu()) continue;
        if (QAction* const found = FindItem(*action->menu(), id)) return found;
    }
    return nullptr;
}

} // namespace

CMenu::CMenu() : m_menu(std::make_unique<QMenu>()) {}
CMenu::~CMenu() = default;
CMenu::CMenu(CMenu&&) noexcept = default;
CMenu& CMenu::operator=(CMenu&&) noexcept = default;

void CMenu::AppendMenu(UINT flags, UINT id, const CString& text)
{
    if (flags & MF_SEPARATOR) {
        m_menu->addSeparator();
        return;
    }
    SetItem(*m_menu->addAction(QString()), flags, id, text);
}

void CMenu::AppendMenu(UINT flags, CMenu subMenu, const CString& text)
{
    QMenu* const menu = subMenu.m_menu.release();
    menu->setParent(m_menu.get(), menu->windowFlags());
    menu->setTitle(ToQString(text));
    m_menu->addMenu(menu)->setEnabled(!(flags & MF_GRAYED));
}

void CMenu::SetItem(QAction& action, UINT flags, UINT id, const CString& text)
{
    action.setText(ToQString(text));
    action.setData(id);
    action.setEnabled(!(flags & MF_GRAYED));
    action.setCheckable(flags & MF_CHECKED);
    action.setChecked(flags & MF_CHECKED);
}

bool CMenu::ModifyMenu(UINT id, UINT flags, UINT newId, const CString& text)
{
    QAction* const action = FindItem(*m_menu, id);
    if (action) SetItem(*action, flags, newId, text);
    return action != nullptr;
}

UINT CMenu::GetMenuState(UINT id) const
{
    const QAction* const action = FindItem(*m_menu, id);
    if (!action) return 0;
    return (action->isEnabled() ? MF_ENABLED : MF_GRAYED) | (action->isChecked() ? MF_CHECKED : 0);
}

CString CMenu::GetMenuString(UINT id) const
{
    const QAction* const action = FindItem(*m_menu, id);
    return action ? FromQString(action->text()) : CString();
}

int CMenu::GetMenuItemCount() const
{
    return static_cast<int>(m_menu->actions().size());
}

UINT CMenu::TrackPopupMenu(const QPoint& globalPos, QWidget* owner)
{
    if (owner) m_menu->setParent(owner, m_menu->windowFlags());
    const QAction* const chosen = m_menu->exec(globalPos);
    m_menu->setParent(nullptr, m_menu->windowFlags());
    return chosen ? chosen->data().toUInt() : 0;
}

CString CMenu::Escape(const CString& text)
{
    return FromQString(ToQString(text).replace(u'&', QStringLiteral("&&")));
}
