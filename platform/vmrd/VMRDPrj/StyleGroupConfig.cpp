#include "platform/vmrd/VMRDPrj/StyleGroupConfig.h"

#include <nlohmann/json.hpp>

#include "base/File.h"
#include "base/Text.h"
#include "platform/vmrd/VmHFCBaseU/Trace.h"

using namespace designspec;

namespace {
constexpr size_t kLargestFile = 1 << 20; // bytes
}

struct StyleGroupConfig::Json {
    // Throws nlohmann::json::exception for a value of the wrong kind.
    static StyleGroupConfig Read(const nlohmann::json& object)
    {
        StyleGroupConfig config(ToWide(object.value("name", std::string())));
        for (const nlohmann::json& group : object.value("groups", nlohmann::json::array()))
            config.m_entries.push_back(Read(group));
        for (const nlohmann::json& editor : object.value("editors", nlohmann::json::array()))
            config.m_entries.emplace_back(ToWide(editor.get<std::string>()));
        return config;
    }
};

bool StyleGroupConfig::Load(const CString& path)
{
    *this = StyleGroupConfig();
    std::string bytes;
    Problems problems;
    const bool read = ReadWholeFile(path, bytes, kLargestFile, problems);
    TraceProblems(problems);
    if (!read) return false;
    try {
        *this = Json::Read(nlohmann::json::parse(bytes));
        return true;
    } catch (const nlohmann::json::exception& error) {
        TraceFile(TraceLevel::Error, path, 0, L"样式组配置无法读取: " + ToWide(error.what()));
        return false;
    }
}

const StyleGroupConfig* StyleGroupConfig::FindStyleGroup(const wchar_t* name, bool deep) const
{
    for (const StyleGroupConfig& entry : m_entries)
        if (entry.m_name == name) return &entry;
    if (!deep) return nullptr;
    for (const StyleGroupConfig& entry : m_entries)
        if (const StyleGroupConfig* found = entry.FindStyleGroup(name, true)) return found;
    return nullptr;
}
