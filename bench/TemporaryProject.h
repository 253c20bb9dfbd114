// A project whose library holds specifications with the built-in limits; its folder goes with it.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "base/Format.h"
#include "base/Text.h"
#include "bench/Bench.h"
#include "library/DesignSpecifications.h"
#include "platform/mfc/String.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

using namespace designspec;

class TemporaryProject {
public:
    // Makes it the current project as well.
    explicit TemporaryProject(int specifications)
    {
        std::string folder =
            (std::filesystem::temp_directory_path() / "core_bench-XXXXXX").string();
        Require(mkdtemp(folder.data()) != nullptr, "no temporary folder");
        m_folder = folder;
        CDesignSpecifications& library = Open();
        for (int i = 0; i < specifications; ++i) {
            auto* made = new CDesignSpecification;
            made->SetName(NameOf(i).c_str());
            library.Add(made);
            Require(library.Save(made), "a specification could not be saved");
        }
        for (const auto& entry : std::filesystem::directory_iterator(Library()))
            m_files.push_back(entry.path().string());
    }
    ~TemporaryProject() { std::filesystem::remove_all(m_folder); }
    TemporaryProject(const TemporaryProject&) = delete;
    TemporaryProject& operator=(const TemporaryProject&) = delete;

    static CString NameOf(int i) { return Format(L"城市道路设计规范%d", i + 1); }

    // The process's library, empty, in this project.
    CDesignSpecifications& Open() const
    {
        VMRDPub::SetCurPrjPath(ToWide(m_folder.string()));
        CDesignSpecifications::Destroy();
        return *CDesignSpecifications::GetInstance();
    }

    const std::filesystem::path& Folder() const { return m_folder; }
    std::filesystem::path Library() const { return m_folder / "规范"; }
    const std::vector<std::string>& Files() const { return m_files; }

private:
    std::filesystem::path m_folder;
    std::vector<std::string> m_files;
};
