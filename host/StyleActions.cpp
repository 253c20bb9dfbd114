#include "host/StyleActions.h"

#include <QToolBar>

#include "host/Icons.h"
#include "platform/mfc/QtText.h"

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
    {kCommandEditStyle, L"编辑", "Return;Enter", "edit", true},
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

QString FirstKey(const Command& command)
{
    return QString::fromLatin1(command.keys).section(u';', 0, 0);
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

CMenu StyleActions::MakeContextMenu(const StyleCommands::Selection& selected) const
{
    CMenu menu;
    for (const Command& command : kCommands) {
        if (command.id == 0) {
            menu.AppendMenu(MF_SEPARATOR);
            continue;
        }
        const UINT state = m_commands.IsEnabled(command.id, selected) ? MF_ENABLED : MF_GRAYED;
        menu.AppendMenu(
            MF_STRING | state, command.id,
            Format(
                L"%s\t%s", command.caption,
                FromQString(QKeySequence(FirstKey(command)).toString(QKeySequence::NativeText))));
    }
    if (CStyleEditor* const editor = m_commands.Editor()) editor->AdjustContextMenu(&menu);
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
    for (const Command& command : kCommands) {
        if (command.id == 0)
            bar->addSeparator();
        else if (command.onToolBar)
            bar->addAction(Action(command.id));
    }
}

void StyleActions::RenewIcons()
{
    for (const Command& command : kCommands)
        if (command.icon) Action(command.id)->setIcon(HostIcon(command.icon));
}
