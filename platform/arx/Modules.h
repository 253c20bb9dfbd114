// Modules: shared objects that are loaded, told so, counted, and unloaded by file name.
#pragma once

#include "base/Export.h"
#include "base/Signal.h"
#include "platform/mfc/String.h"

// Loads the module, or counts one more user of it when it is loaded. A name without a folder is
// looked for in the install path; two names are the same module when their file names are, in any
// case. `printIt` leaves a trace line when it was loaded. `asCommand` is for the host's command
// line, which this one has not.
// False, with a trace line and the reason kept (see KnownModules), when the file is not there or
// no module, or when the module refused: it answered kInitAppMsg with anything but kRetOK.
AFX_EXT_API bool acrxLoadModule(const wchar_t* name, bool printIt, bool asCommand);

// Takes one user off; the last one unloads the module, and the commands (Commands.h) that it has
// left go with it. False, with a trace line, when it is not
// loaded, or answered kUnloadAppMsg with anything but kRetOK: then it stays.
AFX_EXT_API bool acrxUnloadModule(const wchar_t* name, bool asCommand);

// What this host tells of modules beyond that.
namespace designspec {

enum class ModuleState {
    Loaded,
    Unloaded,
    Failed, // the last load did not succeed
};

struct ModuleInfo {
    CString name; // file name, as first asked for
    ModuleState state = ModuleState::Unloaded;
    int count = 0;  // users
    CString reason; // why it failed
};

// Every module that was ever asked for, in that order.
AFX_EXT_API std::vector<ModuleInfo> KnownModules();
AFX_EXT_API bool IsModuleLoaded(const wchar_t* name);
// A function that a module offers to others; null when it is not loaded or has none of that name.
// It goes with the module: nobody keeps it.
AFX_EXT_API void* FindModuleFunction(const wchar_t* module, const char* name);

// Tells after each change of that list.
AFX_EXT_API Signal<>& ModulesChanged();

} // namespace designspec
