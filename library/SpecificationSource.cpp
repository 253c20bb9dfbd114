#include "library/SpecificationSource.h"

#include <filesystem>

#include "base/File.h"
#include "base/Text.h"
#include "library/StyleStore.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

namespace designspec {

namespace {

std::unique_ptr<SpecificationFolder> ReadProject(const CString& path, Problems& problems)
{
    CString styles = StylesFolderOf(path);
    if (!IsFolder(styles)) {
        std::error_code unseen;
        const std::string native = NativePath(path);
        const std::filesystem::path given = std::u8string(native.begin(), native.end());
        const auto itself = std::filesystem::weakly_canonical(given, unseen);
        const std::u8string name = itself.filename().u8string();
        if (ToWide({reinterpret_cast<const char*>(name.data()), name.size()}) != kStylesFolder) {
            Refuse(path, L"不是项目文件夹,其中没有“规范”文件夹", problems);
            return nullptr;
        }
        styles = path;
    }
    auto folder = std::make_unique<SpecificationFolder>(styles);
    Append(problems, folder->Load().problems);
    return folder;
}

} // namespace

std::unique_ptr<SpecificationFolder> ReadSpecificationsAt(const CString& path, Problems& problems)
{
    if (IsFolder(path)) return ReadProject(path, problems);
    // One without a folder: nothing can be saved in it.
    auto folder = std::make_unique<SpecificationFolder>(CString());
    ImportOutcome outcome = folder->TakeIn(path, {}, true);
    Append(problems, std::move(outcome.problems));
    return outcome.read ? std::move(folder) : nullptr;
}

std::unique_ptr<SpecificationFolder> ReadSpecificationsIn(std::string_view text,
                                                          const CString& name, Problems& problems)
{
    auto folder = std::make_unique<SpecificationFolder>(CString());
    ImportOutcome outcome = folder->TakeInText(text, name);
    Append(problems, std::move(outcome.problems));
    return outcome.read ? std::move(folder) : nullptr;
}

std::string FileTextOf(const CDesignSpecification& specification)
{
    StyleStore store;
    store.Store(specification);
    return store.Root().SaveToBytes();
}

CDesignSpecification* FindSpecification(const SpecificationFolder& folder, const CString& nameOrId)
{
    if (nameOrId.empty()) {
        if (folder.Count() == 1) return folder.Item(0);
        Problems unheard;
        const auto id = folder.Default(unheard);
        return id ? folder.Find(*id) : nullptr;
    }
    if (CDesignSpecification* const found = folder.Find(nameOrId.c_str())) return found;
    GUID id;
    return VMRDPub::ParseGUID(nameOrId, id) ? folder.Find(id) : nullptr;
}

CStringArray NamesOf(const SpecificationFolder& folder)
{
    CStringArray names;
    for (int i = 0; i < folder.Count(); ++i)
        names.push_back(folder.Item(i)->Name());
    return names;
}

} // namespace designspec
