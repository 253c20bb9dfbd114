// Paths of the project and of the program, as Linux tells them.
#include "platform/vmrd/VMRDPub/VMRDPub.h"

#include <gtest/gtest.h>

#include "base/Text.h"
#include "tests/support/TemporaryFolder.h"

using namespace designspec;

// It is the right folder then, whatever stands in its name.
TEST(VMRDPub, ACurrentFolderWithoutAUsablePathIsADot)
{
    const TemporaryFolder folder;
    const std::filesystem::path before = std::filesystem::current_path();
    for (const char* name : {"a\\b", "gone"}) {
        std::filesystem::create_directory(folder.Native(name));
        std::filesystem::current_path(folder.Native(name));
        if (std::string_view(name) == "gone") std::filesystem::remove(folder.Native(name));
        EXPECT_EQ(VMRDPub::GetCurPrjPath(), L".") << name;
        std::filesystem::current_path(before);
    }
}

TEST(VMRDPub, InstallPathIsThatOfTheProgramUntilItIsSet)
{
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe");
    EXPECT_EQ(VMRDPub::GetInstallPath(), ToWide(program.parent_path().string()));
}
