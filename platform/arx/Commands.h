// Commands: what modules offer to the user. The host shows them in a menu, and hands them the files
// that they open.
#pragma once

#include "base/Export.h"
#include "base/Signal.h"
#include "platform/mfc/String.h"

namespace designspec {

// Its functions lie in the module that registers it: with that one it goes.
struct ModuleCommand {
    CString group;           // commands of one group stand together
    CString name;            // global: no two commands have the same, in any case
    CString caption;         // as the menu shows it
    void (*run)() = nullptr; // never null

    // The files that it opens, by how their names end (".xml", in any case); null: none.
    CStringArray endings;
    void (*open)(const wchar_t* path) = nullptr;
};

// False when there is a command of that name, or when this one has no name or nothing to run.
AFX_EXT_API bool AddCommand(const ModuleCommand& command);
// Takes the commands of a group away, as its module does before it is unloaded.
AFX_EXT_API void RemoveCommands(const wchar_t* group);
// Group after group as they came, and so the commands of a group.
AFX_EXT_API std::vector<ModuleCommand> Commands();
// Tells after each change of that list.
AFX_EXT_API Signal<>& CommandsChanged();

// False when there is no such command or none that opens such a file, and, with a trace line, when
// the command has thrown.
AFX_EXT_API bool RunCommand(const wchar_t* name);
AFX_EXT_API bool OpenWithCommand(const wchar_t* path);
// Whether there is a command that opens such a file; the file is not looked at.
AFX_EXT_API bool CanOpenWithCommand(const wchar_t* path);

// For whoever unloads modules: takes away the commands that one has left whose handle (dlopen) this
// is.
void RemoveCommandsOf(void* module);

} // namespace designspec
