#include "host/StyleActions.h"

#include <QToolBar>

#include "host/Icons.h"
#include "platform/mfc/QtText.h"

using namespace designspec;

namespace {

struct Command {
    unsigned id; // 0: a separator
    const wchar_t* caption = nullptr;
    const char* keys = nullptr; // the first is shown
    const char* icon = nullptr;
    bool onToolBar = false;
};

constexpr Command kCommands[] = {
    {kCommandNewStyle, L"新建", "Ctrl+N", "new", true},
    {kCommandNewStyleFrom, L"复制新建", "Ctrl+Shift+N", "copy", true},
    {0},
    {kCommandEditStyle, L"编辑", "Enter; Return", "edit", true},
    {kCommandViewStyle, L"查看", "F4", "view", true},
    {kCommandRenameStyle, L"重命名", "F2", nullptr, false},
    {kCommandDeleteStyle, L"删除", "Del", "delete", true},
    {0},
    {kCommandSetAsDefaultStyle, L"设为默认", "Ctrl+D", "default", true},
    {0},
    {kCommandImportStyles, L"导入…", "Ctrl+I", "import", true},
    {kCommandExportStyles, L"导出…", "Ctrl+E", "export", true},
    {kCommandSaveAsTemplate, L"另存为模板…", "Ctrl+Shift+S", "template", false},
    {0},
    {kCommandDeletedStyles, L"已删除…", "Ctrl+Shift+D", "deleted", false},
    {kCommandReload, L"重新加载", "F5", "reload", false},
};

// Enter and Delete mean something else in an edit field; they are keys of the table alone.
bool IsTableKey(unsigned command)
{
    return command == kCommandEditStyle || command == kCommandDeleteStyle;
}

// The first of the command's keys, as menus show it.
CString ShownKey(const Command& command)
{
    const auto keys = QKeySequence::listFromString(QString::fromLatin1(command.keys));
    return FromQString(keys.constFirst().toString(QKeySequence::NativeText));
}

} // namespace

StyleActions::StyleActions(const StyleCommands& commands, QWidget* window)
    : QObject(window), m_commands(commands)
{
    for (const Command& command : kCommands) {
        if (command.id == 0) continue;
        auto* action = new QAction(ToQString(command.caption), this);
        action->setData(command.id);
        action->setShortcuts(QKeySequence::listFromString(QString::fromLatin1(command.keys)));
        if (IsTableKey(command.id)) action->setShortcutContext(Qt::WidgetShortcut);
        connect(action, &QAction::triggered, this, [this, command] { emit Triggered(command.id); });
        m_actions.emplace(command.id, action);
    }
    RenewIcons();
}

// An editor that changes a caption sets the item anew, so that keys and state come after that.
CMenu StyleActions::MakeContextMenu(const StyleCommands::Selection& selected) const
{
    CMenu menu;
    for (const Command& command : kCommands)
        menu.AppendMenu(command.id == 0 ? MF_SEPARATOR : MF_STRING, command.id,
                        command.caption ? command.caption : L"");
    if (CStyleEditor* const editor = m_commands.Editor()) editor->AdjustContextMenu(&menu);
    for (const Command& command : kCommands) {
        if (command.id == 0) continue;
        CString text = menu.GetMenuString(command.id);
        if (text.find(L'\t') == CString::npos) text += L"\t" + ShownKey(command);
        const bool enabled = m_commands.IsEnabled(command.id, selected);
        menu.ModifyMenu(command.id, enabled ? MF_ENABLED : MF_GRAYED, command.id, text);
    }
    return menu;
}

void StyleActions::Adjust(const StyleCommands::Selection& selected)
{
    const CMenu menu = MakeContextMenu(selected);
    for (const auto& [command, action] : m_actions) {
        action->setText(ToQString(menu.GetMenuString(command)).section(u'\t', 0, 0));
        action->setEnabled(m_commands.IsEnabled(command, selected));
    }
}

void StyleActions::AddTo(QWidget* menu) const
{
    for (const Command& command : kCommands) {
        if (command.id != 0) {
            menu->addAction(Action(command.id));
            continue;
        }
        auto* separator = new QAction(menu);
        separator->setSeparator(true);
        menu->addAction(separator);
    }
}

void StyleActions::AddToToolBar(QToolBar* bar) const
{
    bool separate = false;
    for (const Command& command : kCommands) {
        separate = separate || command.id == 0;
        if (!command.onToolBar) continue;
        if (separate) bar->addSeparator();
        separate = false;
        bar->addAction(Action(command.id));
    }
}

void StyleActions::RenewIcons()
{
    for (const Command& command : kCommands)
        if (command.icon) Action(command.id)->setIcon(HostIcon(command.icon));
}
