#include "platform/arx/Modules.h"

#include <list>
#include <utility>

#include <QMetaType>
#include <dlfcn.h>

#include "base/File.h"
#include "base/Format.h"
#include "base/NoCase.h"
#include "base/Text.h"
#include "platform/arx/AppMessages.h"
#include "platform/arx/Commands.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"
#include "platform/vmrd/VmHFCBaseU/Trace.h"

using namespace designspec;

namespace {

using EntryPoint = AcRx::AppRetCode (*)(AcRx::AppMsgCode, void*);

struct Module {
    ModuleInfo shown;
    CString path;
    void* handle = nullptr;
    EntryPoint entry = nullptr;

    AcRx::AppRetCode Send(AcRx::AppMsgCode message) { return entry(message, shown.name.data()); }
};

// A module may load others while it is told that it is loaded, so entries never move.
std::list<Module>& Modules()
{
    static std::list<Module> modules;
    return modules;
}

CString FileName(const CString& name)
{
    const size_t separator = name.find_last_of(L"/\\");
    return separator == CString::npos ? name : name.substr(separator + 1);
}

Module* Find(const CString& name)
{
    const CString file = FileName(name);
    for (Module& module : Modules())
        if (EqualNoCase(module.shown.name, file)) return &module;
    return nullptr;
}

Module& FindOrMake(const CString& name)
{
    if (Module* module = Find(name)) return *module;
    Module module;
    module.shown.name = FileName(name);
    return Modules().emplace_back(std::move(module));
}

void Close(Module& module)
{
    if (module.handle) {
        RemoveCommandsOf(module.handle);
        dlclose(module.handle);
    }
    module.handle = nullptr;
    module.entry = nullptr;
    module.shown.count = 0;
}

bool Fail(Module& module, const CString& reason)
{
    Close(module);
    module.shown.state = ModuleState::Failed;
    module.shown.reason = reason;
    TraceFile(TraceLevel::Error, module.path, 0, L"模块未加载: " + reason);
    ModulesChanged().Tell();
    return false;
}

// Qt keeps what it knows of a type where that is used in a variant first. In a module, that would
// be gone with it.
void KeepTypesOfModules()
{
    qRegisterMetaType<Qt::Alignment>();
}

bool Load(Module& module)
{
    KeepTypesOfModules();
    if (!PathFileExists(module.path)) return Fail(module, L"文件不存在");
    module.handle = dlopen(NativePath(module.path).c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!module.handle) return Fail(module, ToWide(dlerror()));
    module.entry = reinterpret_cast<EntryPoint>(dlsym(module.handle, "acrxEntryPoint"));
    if (!module.entry) return Fail(module, L"不是模块: 没有导出 acrxEntryPoint");

    module.shown.state = ModuleState::Loaded;
    module.shown.count = 1;
    module.shown.reason.clear();
    const int answer = module.Send(AcRx::kInitAppMsg);
    if (answer != AcRx::kRetOK) return Fail(module, Format(L"模块拒绝初始化 (返回值 %d)", answer));
    ModulesChanged().Tell();
    return true;
}

} // namespace

bool acrxLoadModule(const wchar_t* name, bool printIt, bool)
{
    Module& module = FindOrMake(name);
    if (module.shown.count > 0) {
        ++module.shown.count;
        ModulesChanged().Tell();
        return true;
    }
    const CString given = name;
    module.path = FileName(given) == given ? VMRDPub::GetInstallPath() + L"\\" + given : given;
    if (!Load(module)) return false;
    if (printIt) TraceFile(TraceLevel::Note, module.path, 0, L"模块已加载");
    return true;
}

bool acrxUnloadModule(const wchar_t* name, bool)
{
    Module* module = Find(name);
    if (!module || module->shown.count == 0) {
        TraceFile(TraceLevel::Error, name, 0, L"模块未卸载: 没有加载");
        return false;
    }
    if (module->shown.count == 1) {
        const int answer = module->Send(AcRx::kUnloadAppMsg);
        if (answer != AcRx::kRetOK) {
            TraceFile(TraceLevel::Error, module->path, 0,
                      Format(L"模块未卸载: 模块拒绝卸载 (返回值 %d)", answer));
            return false;
        }
        Close(*module);
        module->shown.state = ModuleState::Unloaded;
    } else {
        --module->shown.count;
    }
    ModulesChanged().Tell();
    return true;
}

bool designspec::IsModuleLoaded(const wchar_t* name)
{
    const Module* module = Find(name);
    return module && module->shown.count > 0;
}

void* designspec::FindModuleFunction(const wchar_t* module, const char* name)
{
    const Module* const found = Find(module);
    return found && found->handle ? dlsym(found->handle, name) : nullptr;
}

std::vector<ModuleInfo> designspec::KnownModules()
{
    std::vector<ModuleInfo> shown;
    for (const Module& module : Modules())
        shown.push_back(module.shown);
    return shown;
}

Signal<>& designspec::ModulesChanged()
{
    static Signal<> changed;
    return changed;
}
