// The functions that modules export beside their entry point.
#pragma once

#include <dlfcn.h>

#include "base/File.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

// A function of a module, by its path or, in the install path, its name; null when the module is
// not in memory, or has none of that name.
template <class Function> Function* ModuleFunction(const CString& module, const char* name)
{
    const bool isName = module.find(L'/') == CString::npos;
    const CString path = isName ? VMRDPub::GetInstallPath() + L"\\" + module : module;
    void* const handle = dlopen(designspec::NativePath(path).c_str(), RTLD_NOW | RTLD_NOLOAD);
    if (!handle) return nullptr;
    void* const function = dlsym(handle, name);
    dlclose(handle); // the module's users hold it
    return reinterpret_cast<Function*>(function);
}
