#include "library/SpecificationHistory.h"

#include <algorithm>

#include "base/File.h"
#include "library/SpecificationReading.h"

namespace designspec {

std::vector<SpecificationVersion> VersionsOf(const SpecificationFolder& folder, const GUID& id,
                                             Problems& problems)
{
    const StyleHistory history = folder.Files().History();
    std::vector<SpecificationVersion> versions;
    const StyleVersion* before = nullptr;
    const std::vector<StyleVersion> all = history.Versions(id, problems);
    for (const StyleVersion& one : all) {
        SpecificationVersion version{one.number, one.replaced, one.user,
                                     {},         {},           history.PathOf(id, one)};
        if (before && before->next == one.content) {
            version.saved = before->replaced;
            version.savedBy = before->user;
        }
        versions.push_back(std::move(version));
        before = &one;
    }
    std::reverse(versions.begin(), versions.end());
    return versions;
}

std::optional<SavedBy> LastSaveOf(const SpecificationFolder& folder,
                                  const CDesignSpecification& specification)
{
    Problems unheard;
    const CString path = folder.Files().PathOf(folder.FileOf(specification));
    const std::vector<StyleVersion> all =
        folder.Files().History().Versions(specification.ID(), unheard);
    std::string bytes;
    if (all.empty() || !ReadWholeFile(path, bytes, unheard) ||
        all.back().next != StyleHistory::HashOf(bytes))
        return std::nullopt;
    return SavedBy{all.back().replaced, all.back().user};
}

std::optional<CDesignSpecification> ReadVersion(const SpecificationVersion& version, const GUID& id,
                                                Problems& problems)
{
    CXTPPropExchangeXMLNode root(true, kStyleLibraryRoot);
    if (!root.LoadFromFile(version.path.c_str())) {
        Append(problems, root.TakeProblems());
        return std::nullopt;
    }
    const auto all = [](const CString&) { return true; };
    Problems found;
    ReadDocument document = ReadSpecifications(root, version.path, all, found);
    for (ReadSpecification& read : document.specifications)
        if (read.specification->HasID(id)) return std::move(*read.specification);
    Append(problems, std::move(found));
    Refuse(version.path, L"历史版本无法读取", problems);
    return std::nullopt;
}

std::vector<GUID> IdentitiesWithHistory(const SpecificationFolder& folder, Problems& problems)
{
    return folder.Files().History().Identities(problems);
}

} // namespace designspec
