// The style manager's commands, by the numbers under which its context menu knows them.
#pragma once

namespace designspec {

enum StyleCommand : unsigned {
    kCommandNewStyle = 4101,
    kCommandNewStyleFrom = 4102, // a copy of the selected one
    kCommandEditStyle = 4103,
    kCommandRenameStyle = 4104,
    kCommandDeleteStyle = 4105,
    kCommandSetAsDefaultStyle = 4106,
    kCommandExportStyles = 4107,
    kCommandImportStyles = 4108,
    kCommandViewStyle = 4109,
    kCommandSaveAsTemplate = 4110,
    kCommandDeletedStyles = 4111,
    kCommandReload = 4112,
};

} // namespace designspec
