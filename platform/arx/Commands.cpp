#include "platform/arx/Commands.h"

#include <algorithm>
#include <exception>
#include <new>

#include <dlfcn.h>
#include <link.h>

#include "base/Format.h"
#include "base/NoCase.h"
#include "base/Text.h"
#include "platform/vmrd/VmHFCBaseU/Trace.h"

using namespace designspec;

namespace {

std::vector<ModuleCommand>& Registered()
{
    static std::vector<ModuleCommand> commands;
    return commands;
}

template <class Is> const ModuleCommand* FindIf(Is is)
{
    const auto& all = Registered();
    const auto found = std::find_if(all.begin(), all.end(), is);
    return found == all.end() ? nullptr : &*found;
}

const ModuleCommand* Find(const CString& name)
{
    return FindIf([&](const ModuleCommand& one) { return EqualNoCase(one.name, name); });
}

const ModuleCommand* FindOpening(const CString& path)
{
    return FindIf([&](const ModuleCommand& one) {
        return one.open &&
               std::any_of(one.endings.begin(), one.endings.end(), [&](const CString& ending) {
                   return path.size() > ending.size() && EndsInNoCase(path, ending);
               });
    });
}

template <class Is> void RemoveIf(Is is)
{
    if (std::erase_if(Registered(), is) > 0) CommandsChanged().Tell();
}

bool Fail(const CString& caption, const CString& cause)
{
    const CString shown = caption.substr(0, caption.find(L"(&")); // without its key
    TraceFile(TraceLevel::Error, {}, 0, Format(L"命令“%s”没有完成: %s", shown, cause));
    return false;
}

// A module's command must not end the host. The caption is the caller's own: the command may take
// itself away.
template <class Work> bool Survive(const CString& caption, const Work& work)
try {
    work();
    return true;
} catch (const std::bad_alloc&) {
    return Fail(caption, L"内存不足");
} catch (const std::exception& error) {
    return Fail(caption, ToWide(error.what()));
} catch (...) {
    return Fail(caption, L"原因不明");
}

} // namespace

bool designspec::AddCommand(const ModuleCommand& command)
{
    if (command.name.empty() || !command.run || Find(command.name)) return false;
    auto& all = Registered();
    const auto last = std::find_if(all.rbegin(), all.rend(), [&](const ModuleCommand& one) {
        return one.group == command.group;
    });
    all.insert(last == all.rend() ? all.end() : last.base(), command);
    CommandsChanged().Tell();
    return true;
}

void designspec::RemoveCommands(const wchar_t* group)
{
    RemoveIf([&](const ModuleCommand& one) { return one.group == group; });
}

void designspec::RemoveCommandsOf(void* module)
{
    link_map* map = nullptr;
    if (dlinfo(module, RTLD_DI_LINKMAP, &map) != 0) return;
    RemoveIf([&](const ModuleCommand& one) {
        Dl_info unused;
        void* its = nullptr;
        return dladdr1(reinterpret_cast<void*>(one.run), &unused, &its, RTLD_DL_LINKMAP) != 0 &&
               its == map;
    });
}

std::vector<ModuleCommand> designspec::Commands()
{
    return Registered();
}

Signal<>& designspec::CommandsChanged()
{
    static Signal<> changed;
    return changed;
}

bool designspec::RunCommand(const wchar_t* name)
{
    const ModuleCommand* const found = Find(name);
    if (!found) return false;
    const ModuleCommand command = *found;
    return Survive(command.caption, [&] { command.run(); });
}

bool designspec::OpenWithCommand(const wchar_t* path)
{
    const ModuleCommand* const found = FindOpening(path);
    if (!found) return false;
    const ModuleCommand command = *found;
    return Survive(command.caption, [&] { command.open(path); });
}

bool designspec::CanOpenWithCommand(const wchar_t* path)
{
    return FindOpening(path) != nullptr;
}
