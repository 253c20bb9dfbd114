#include "host/ToolMenu.h"

#include "platform/arx/Commands.h"
#include "platform/mfc/QtText.h"

using namespace designspec;

ToolMenu::ToolMenu(QWidget* window) : QMenu(tr("工具(&T)"), window)
{
    m_commandsChanged = CommandsChanged().Connect([this] { Fill(); });
    Fill();
}

void ToolMenu::Fill()
{
    clear();
    CString group;
    for (const ModuleCommand& command : Commands()) {
        if (isEmpty() || command.group != group) addSection(ToQString(command.group));
        group = command.group;
        addAction(ToQString(command.caption), this,
                  [name = command.name] { RunCommand(name.c_str()); });
    }
    menuAction()->setVisible(!isEmpty());
}
