// Pop-up menus whose items are known by command ids.
#pragma once

#include <memory>

#include <QPoint>

#include "platform/mfc/Dialog.h"
#include "base/Export.h"
#include "platform/mfc/String.h"

class QAction;
class QMenu;
class QWidget;

constexpr UINT MF_STRING = 0x000;
constexpr UINT MF_ENABLED = 0x000;
constexpr UINT MF_GRAYED = 0x001;
constexpr UINT MF_CHECKED = 0x008;
constexpr UINT MF_BYCOMMAND = 0x000;
constexpr UINT MF_POPUP = 0x010;
constexpr UINT MF_SEPARATOR = 0x800;

class AFX_EXT_CLASS CMenu {
public:
    CMenu();
    ~CMenu();
    CMenu(CMenu&&) noexcept;
    CMenu& operator=(CMenu&&) noexcept;

    // Adds an item below the others. `id` is above 0; an "&" in `text` marks the key of the
    // item, see Escape.
    void AppendMenu(UINT flags, UINT id = 0, const CString& text = {});
    // Adds a sub-menu, which this menu owns from now on. `flags` may grey it.
    void AppendMenu(UINT flags, CMenu subMenu, const CString& text);

    int GetMenuItemCount() const;
    // Gives the item of that id, in sub-menus too, another text, id and state. False when there is
    // none.
    bool ModifyMenu(UINT id, UINT flags, UINT newId, const CString& text);
    // MF_GRAYED and MF_CHECKED of the item of that id; 0 when there is none.
    UINT GetMenuState(UINT id) const;
    // The text of the item of that id; empty when there is none.
    CString GetMenuString(UINT id) const;

    // Shows the menu at that place of the screen and waits; the chosen id, 0 without a choice.
    UINT TrackPopupMenu(const QPoint& globalPos, QWidget* owner);

    // Text that is shown as it is, whatever "&" it holds.
    static CString Escape(const CString& text);

private:
    static void SetItem(QAction& action, UINT flags, UINT id, const CString& text);

    std::unique_ptr<QMenu> m_menu;
};
