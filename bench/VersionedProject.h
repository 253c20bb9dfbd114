// A project with a history: so many specifications, so many versions of each.
#pragma once

#include <filesystem>
#include <fstream>
#include <string>

#include "base/Format.h"
#include "base/Text.h"
#include "bench/Bench.h"
#include "bench/MemoryFolder.h"
#include "library/SpecificationFolder.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

using namespace designspec;

// A project's folder of styles, with as many specifications and versions of each.
class VersionedProject {
public:
    VersionedProject(std::int64_t specifications, std::int64_t versions)
    {
        std::filesystem::create_directory(m_folder / "规范");
        for (std::int64_t i = 0; i < specifications; ++i)
            Make(Format(L"城市道路设计规范%d", i), versions);
    }
    ~VersionedProject() { std::filesystem::remove_all(m_folder); }
    VersionedProject(const VersionedProject&) = delete;
    VersionedProject& operator=(const VersionedProject&) = delete;

    const std::filesystem::path& Folder() const { return m_folder; }
    CString Path() const { return ToWide((m_folder / "规范").string()); }

private:
    // As saves have left them, each with another value.
    void Make(const CString& name, std::int64_t versions) const
    {
        CDesignSpecification made;
        made.SetName(name.c_str());
        SpecificationFolder one{L""};
        one.Add(std::make_unique<CDesignSpecification>(made));
        const CString id = VMRDPub::GUIDToStr(made.ID());
        const std::filesystem::path history = m_folder / "规范/历史" / ToUtf8(id);
        std::filesystem::create_directories(history);
        const std::filesystem::path now = m_folder / "规范" / (ToUtf8(name + id) + ".hds");
        Require(one.Export(ToWide(now.string()), {}).done, "a file could not be written");
        const std::string bytes = Read(now);
        const std::string value = "MaxLen=\"20\"";
        const size_t at = bytes.find(value);
        Require(at != std::string::npos, "another file");
        for (std::int64_t i = 1; i <= versions; ++i) {
            const CString file = Format(L"%06d-20990101T000000Z-%016x-%016x-a.hds", i, i, i + 1);
            std::string version = bytes;
            version.replace(at, value.size(), "MaxLen=\"" + std::to_string(100 + i) + "\"");
            std::ofstream(history / ToUtf8(file)) << version;
        }
    }
    static std::string Read(const std::filesystem::path& path)
    {
        std::ifstream stream(path);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    std::filesystem::path m_folder = MakeMemoryFolder();
};
