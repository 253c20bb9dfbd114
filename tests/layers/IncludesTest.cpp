// Which folder of the sources includes which: nothing but what the table allows, and never in a
// circle.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "TreePaths.h"
#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;
using Folders = std::set<std::string>;

// What each folder may include besides itself. What it may include without saying so there, is not
// taken over by those above: each says for itself what it uses.
const std::map<std::string, Folders> kMayInclude = {
    {"base", {}},
    {"base/linux", {"base"}},
    {"base/windows", {"base"}},
    {"platform/vmrd/VmHFCBaseU", {"base"}},
    {"platform/mfc", {"base", "platform/vmrd/VmHFCBaseU"}},
    {"platform/drawing", {"base", "platform/mfc"}},
    {"platform/windows", {"base"}},
    {"platform/windows/gui", {"base", "platform/mfc", "platform/vmrd/VmHFCBaseU"}},
    {"platform/xtp", {"base", "platform/mfc"}},
    {"platform/xtp/report", {"base", "platform/mfc", "platform/vmrd/VmHFCBaseU"}},
    {"platform/vmrd/VMRDPub", {"base", "platform/mfc", "platform/windows"}},
    {"platform/vmrd/VMRDEnv",
     {"base", "platform/mfc", "platform/windows", "platform/xtp", "platform/vmrd/VMRDPub"}},
    {"platform/vmrd/VMRDControls", {"base", "platform/mfc"}},
    {"platform/arx", {"base", "platform/mfc", "platform/vmrd/VMRDPub", "platform/vmrd/VmHFCBaseU"}},
    {"platform/vmrd/VMRDPrj",
     {"base", "platform/arx", "platform/mfc", "platform/vmrd/VMRDEnv", "platform/vmrd/VMRDPub",
      "platform/vmrd/VmHFCBaseU"}},
    {"model",
     {"base", "platform/mfc", "platform/xtp", "platform/vmrd/VMRDEnv", "platform/vmrd/VMRDPub"}},
    {"library",
     {"base", "model", "platform/vmrd/VMRDEnv", "platform/vmrd/VMRDPub",
      "platform/vmrd/VmHFCBaseU", "platform/windows"}},
    {"report", {"base", "model", "platform/vmrd/VMRDPub"}},
    {"roads", {"base", "model"}},
    {"roads/linux", {"roads"}},
    {"roads/windows", {"base/windows", "roads"}},
    {"search", {"base", "model", "platform/windows"}},
    {"c", {"base", "library", "model", "platform/mfc", "platform/vmrd/VMRDPub", "roads"}},
    {"c/linux", {"c"}},
    {"c/windows", {"base/windows", "c"}},
    {"sheets", {"base", "model", "platform/mfc", "platform/vmrd/VMRDPub"}},
    {"cli",
     {"base", "library", "model", "platform/mfc", "platform/vmrd/VMRDPub", "report", "roads",
      "sheets"}},
    {"cli/linux", {"base", "cli"}},
    {"cli/windows", {"base", "base/windows", "cli"}},
    {"app/input",
     {"base", "model", "platform/mfc", "platform/vmrd/VMRDControls", "platform/vmrd/VmHFCBaseU"}},
    {"pages/framework",
     {"app/input", "base", "library", "model", "platform/mfc", "platform/windows/gui",
      "platform/drawing", "platform/xtp/report", "platform/vmrd/VMRDPub",
      "platform/vmrd/VmHFCBaseU"}},
    {"pages",
     {"app/input", "base", "model", "pages/framework", "platform/mfc", "platform/xtp/report",
      "platform/vmrd/VmHFCBaseU"}},
    {"compare", {"base", "library", "model", "platform/mfc"}},
    {"print", {"base", "platform/mfc", "report"}},
    {"app",
     {"base", "compare", "library", "model", "pages", "pages/framework", "platform/arx",
      "platform/mfc", "platform/vmrd/VMRDPrj", "platform/vmrd/VMRDPub", "platform/vmrd/VmHFCBaseU",
      "platform/xtp/report", "print", "report", "search", "sheets"}},
    {"roadcheck",
     {"base", "library", "model", "platform/arx", "platform/drawing", "platform/mfc",
      "platform/xtp/report", "platform/vmrd/VMRDPub", "roads"}},
    {"host",
     {"base", "platform/arx", "platform/mfc", "platform/vmrd/VMRDEnv", "platform/vmrd/VMRDPrj",
      "platform/vmrd/VMRDPub", "platform/vmrd/VmHFCBaseU"}},
};

const char* const kTopFolders[] = {"app",       "base",  "c",      "cli",      "compare", "host",
                                   "library",   "model", "pages",  "platform", "print",   "report",
                                   "roadcheck", "roads", "search", "sheets"};

std::string FolderOf(const std::string& path)
{
    return fs::path(path).parent_path().generic_string();
}

// What the sources of each folder include of the tree, without their own folder.
std::map<std::string, Folders> Includes()
{
    const fs::path source = SOURCE_DIR;
    const std::regex include("#include \"([^\"]+)\"");
    std::map<std::string, Folders> includes;
    for (const char* top : kTopFolders) {
        for (const auto& entry : fs::recursive_directory_iterator(source / top)) {
            const std::string ending = entry.path().extension().string();
            if (ending != ".h" && ending != ".cpp") continue;
            const std::string folder =
                FolderOf(fs::relative(entry.path(), source).generic_string());
            includes[folder];
            std::ifstream file(entry.path());
            std::smatch match;
            for (std::string line; std::getline(file, line);)
                if (std::regex_match(line, match, include) && FolderOf(match[1]) != folder)
                    includes[folder].insert(FolderOf(match[1]));
        }
    }
    return includes;
}

// The folders that can be reached from one along the table.
Folders Below(const std::string& folder)
{
    Folders below;
    std::vector<std::string> open = {folder};
    while (!open.empty()) {
        const std::string next = open.back();
        open.pop_back();
        for (const std::string& one : kMayInclude.at(next))
            if (below.insert(one).second) open.push_back(one);
    }
    return below;
}

} // namespace

TEST(Includes, AreThoseOfTheTable)
{
    const auto includes = Includes();
    ASSERT_GE(includes.size(), kMayInclude.size());
    for (const auto& [folder, included] : includes) {
        const auto allowed = kMayInclude.find(folder);
        ASSERT_NE(allowed, kMayInclude.end()) << folder << " is not in the table";
        for (const std::string& one : included)
            EXPECT_TRUE(allowed->second.contains(one)) << folder << " includes " << one;
    }
}

TEST(Includes, AreAllUsed)
{
    const auto includes = Includes();
    for (const auto& [folder, allowed] : kMayInclude)
        for (const std::string& one : allowed)
            EXPECT_TRUE(includes.contains(folder) && includes.at(folder).contains(one))
                << folder << " no longer includes " << one;
}

TEST(Includes, GoInNoCircle)
{
    for (const auto& [folder, allowed] : kMayInclude)
        EXPECT_FALSE(Below(folder).contains(folder)) << folder;
}

// The host knows no criterion, the core no window.
TEST(Includes, KeepTheLayersApart)
{
    const Folders host = Below("host");
    for (const char* folder : {"app", "library", "model", "pages"})
        EXPECT_FALSE(host.contains(folder)) << folder;
    const Folders core = Below("library");
    for (const char* folder : {"app", "host", "pages", "platform/arx", "platform/windows/gui",
                               "platform/xtp/report", "platform/vmrd/VMRDPrj"})
        EXPECT_FALSE(core.contains(folder)) << folder;
}
