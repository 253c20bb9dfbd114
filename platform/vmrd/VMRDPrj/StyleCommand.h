// The style manager's commands, by the numbers under which its context menu knows them, and what
// an editor brings for it: commands and columns.
#pragma once

#include <cstddef>

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
    kCommandImportProject = 4113, // all styles of another project's folder
    kCommandsOfEditor = 4201,     // and those above
};

// A column that an editor brings for the list of the style manager.
struct StyleColumn {
    const wchar_t* caption;
    int characters; // about so many are in it
    // What its texts name, with 、 between, sorts the styles: the style manager offers to show
    // those of one alone.
    bool isGroup = false;
};

// A command of an editor's own, for menu and keys of the style manager.
struct EditorCommand {
    unsigned id; // from kCommandsOfEditor on
    const wchar_t* caption;
    const char* keys;         // Ctrl+Shift+X; no other command has them
    std::size_t fewest = 0;   // so many styles are selected at least
    std::size_t most = 10000; // and so many at most
};

} // namespace designspec
