#include "host/StyleActions.h"

#include <algorithm>

#include <QToolBar>

#include "host/Icons.h"
#include "platform/mfc/QtText.h"

using namespace designspec;

namespace {

struct Command {
    unsigned id; // 0: a separator; kCommandsOfEditor: the editor's own, if any, and a separator
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
    {kCommandsOfEditor},
    {kCommandImportStyles, L"导入…", "Ctrl+I", "import", true},
    {kCommandImportProject, L"从项目导入…", "Ctrl+Shift+J", nullptr, false},
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

bool IsHosts(const Command& command)
{
    return command.id != 0 && command.id != kCommandsOfEditor;
}

// The first of the command's keys, as menus show it.
CString ShownKey(const QAction* action)
{
    return FromQString(action->shortcut().toString(QKeySequence::NativeText));
}

QAction* MakeSeparator(QWidget* menu)
{
    auto* const separator = new QAction(menu);
    separator->setSeparator(true);
    return separator;
}

} // namespace

StyleActions::StyleActions(const StyleCommands& commands, QWidget* window)
    : QObject(window), m_commands(commands)
{
    for (const Command& command : kCommands) {
        if (!IsHosts(command)) continue;
        QAction* const action = Add(command.id, command.caption, command.keys);
        if (IsTableKey(command.id)) action->setShortcutContext(Qt::WidgetShortcut);
    }
    RenewIcons();
}

QAction* StyleActions::Add(unsigned command, const wchar_t* caption, const char* keys)
{
    auto* const action = new QAction(ToQString(caption), this);
    action->setData(command);
    action->setShortcuts(QKeySequence::listFromString(QString::fromLatin1(keys)));
    connect(action, &QAction::triggered, this, [this, command] { emit Triggered(command); });
    m_actions.emplace(command, action);
    m_captions.insert_or_assign(command, caption);
    return action;
}

// The editor's own commands in place of those of the editor before.
void StyleActions::ShowOwn()
{
    std::span<const EditorCommand> own;
    if (const CStyleEditor* const editor = m_commands.Editor()) own = editor->OwnCommands();
    const bool isSame = std::equal(own.begin(), own.end(), m_own.begin(), m_own.end(),
                                   [](const auto& a, unsigned b) { return a.id == b; });
    if (isSame) return;
    for (const unsigned command : m_own) {
        m_actions.at(command)->deleteLater(); // one of them may be at work
        m_actions.at(command)->setShortcuts(QList<QKeySequence>());
        for (const auto& [menu, place] : m_places)
            menu->removeAction(m_actions.at(command));
        m_actions.erase(command);
        m_captions.erase(command);
    }
    m_own.clear();
    for (const EditorCommand& one : own) {
        m_own.push_back(one.id);
        QAction* const action = Add(one.id, one.caption, one.keys);
        for (const auto& [menu, place] : m_places)
            menu->insertAction(place, action);
    }
    for (const auto& [menu, place] : m_places)
        place->setVisible(!m_own.empty());
}

// The places of all commands in a menu, from top to bottom; 0 for a separator.
std::vector<unsigned> StyleActions::Order() const
{
    std::vector<unsigned> order;
    for (const Command& command : kCommands) {
        if (command.id != kCommandsOfEditor) {
            order.push_back(command.id);
        } else if (!m_own.empty()) {
            order.insert(order.end(), m_own.begin(), m_own.end());
            order.push_back(0);
        }
    }
    return order;
}

// An editor that changes a caption sets the item anew, so that keys and state come after that.
CMenu StyleActions::MakeContextMenu(const StyleCommands::Selection& selected) const
{
    CMenu menu;
    for (const unsigned command : Order())
        menu.AppendMenu(command == 0 ? MF_SEPARATOR : MF_STRING, command,
                        command == 0 ? CString() : m_captions.at(command));
    if (CStyleEditor* const editor = m_commands.Editor()) editor->AdjustContextMenu(&menu);
    for (const auto& [command, action] : m_actions) {
        CString text = menu.GetMenuString(command);
        if (text.find(L'\t') == CString::npos) text += L"\t" + ShownKey(action);
        const bool enabled = m_commands.IsEnabled(command, selected);
        menu.ModifyMenu(command, enabled ? MF_ENABLED : MF_GRAYED, command, text);
    }
    return menu;
}

void StyleActions::Adjust(const StyleCommands::Selection& selected)
{
    ShowOwn();
    const CMenu menu = MakeContextMenu(selected);
    for (const auto& [command, action] : m_actions) {
        action->setText(ToQString(menu.GetMenuString(command)).section(u'\t', 0, 0));
        action->setEnabled(m_commands.IsEnabled(command, selected));
    }
}

void StyleActions::AddTo(QWidget* menu)
{
    for (const Command& command : kCommands) {
        QAction* const action = IsHosts(command) ? Action(command.id) : MakeSeparator(menu);
        if (command.id == kCommandsOfEditor) {
            m_places.emplace_back(menu, action);
            action->setVisible(false);
        }
        menu->addAction(action);
    }
}

void StyleActions::AddToToolBar(QToolBar* bar) const
{
    bool separate = false;
    for (const Command& command : kCommands) {
        separate = separate || !IsHosts(command);
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
