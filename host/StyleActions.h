// The style manager's commands as menu items, tool buttons and keys; their captions are the
// editor's where it changes them.
#pragma once

#include <map>

#include <QAction>

#include "host/StyleCommands.h"
#include "platform/mfc/Menu.h"

class QToolBar;

class StyleActions : public QObject {
    Q_OBJECT

public:
    StyleActions(const StyleCommands& commands, QWidget* window);

    // Captions and what can be given, for the editor of now and that selection.
    void Adjust(const StyleCommands::Selection& selected);
    // The context menu, in the same state.
    CMenu MakeContextMenu(const StyleCommands::Selection& selected) const;

    QAction* Action(unsigned command) const { return m_actions.at(command); }
    // All, in their order, groups parted by separators.
    void AddTo(QWidget* menu);
    // Those that are used most.
    void AddToToolBar(QToolBar* bar) const;
    void RenewIcons();

signals:
    void Triggered(unsigned command);

private:
    QAction* Add(unsigned command, const wchar_t* caption, const char* keys);
    void ShowOwn();
    std::vector<unsigned> Order() const;

    const StyleCommands& m_commands;
    std::map<unsigned, QAction*> m_actions;
    std::map<unsigned, CString> m_captions; // before the editor changes them
    std::vector<unsigned> m_own;            // the commands of the editor's own
    // The menus, with what the editor's own commands stand before.
    std::vector<std::pair<QWidget*, QAction*>> m_places;
};
