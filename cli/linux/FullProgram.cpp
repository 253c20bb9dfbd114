#include "cli/linux/FullProgram.h"

#include <cerrno>
#include <filesystem>
#include <system_error>

#include <unistd.h>

#include "base/FileSystem.h"
#include "base/Format.h"
#include "base/Text.h"
#include "cli/Command.h"
#include "cli/Project.h"

Status RunSheetRead(const Arguments&, Teller&)
{
    throw NeedsFullProgram{};
}

Status RunSheetWrite(const Arguments&, Teller&)
{
    throw NeedsFullProgram{};
}

Status RunVerify(const Arguments&, Teller&)
{
    throw NeedsFullProgram{};
}

std::string RulesHelp(const char*)
{
    throw NeedsFullProgram{};
}

int BecomeFullProgram(char** argv)
{
    std::error_code unreadable;
    const auto folder = std::filesystem::read_symlink("/proc/self/exe", unreadable).parent_path();
    const auto installed = folder.parent_path() / FULL_PROGRAM;
    for (const auto& program : {folder / "designspec-full", installed})
        execv(program.c_str(), argv);
    Complain(designspec::Format(L"程序“%s”无法运行: %s", designspec::ToWide(installed.native()),
                                designspec::FileSystem::TextOf(errno)));
    return kFileFailed;
}
