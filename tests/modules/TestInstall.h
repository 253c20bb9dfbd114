// An install folder of a test's own: the modules and the configuration that it wants to be there,
// and no others.
#pragma once

#include <initializer_list>
#include <string>

#include "TreePaths.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TraceCapture.h"

inline constexpr char kFakeGroups[] =
    R"({"groups": [{"name": "CFakeGroup", "editors": ["CFakeEditor"]}]})";

class TestInstall : public TemporaryFolder {
public:
    explicit TestInstall(std::initializer_list<const char*> modules)
    {
        for (const std::string module : modules)
            Add(module);
        VMRDPub::SetInstallPath(Path());
    }
    ~TestInstall() { VMRDPub::SetInstallPath({}); }

    void Add(const std::string& module) const
    {
        const std::filesystem::path built(BINARY_DIR);
        const bool real = std::filesystem::exists(built / "bin" / module);
        std::filesystem::create_symlink((real ? built / "bin" : built / "tests/modules") / module,
                                        Native(module));
    }
};
