#include "library/SpecificationHistory.h"

#include <algorithm>

#include "base/File.h"
#include "base/Format.h"
#include "library/SpecificationReading.h"
#include "library/SpecificationSource.h"

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

namespace {

// Name of the file in the folder; of several that were removed the last one. Empty when there is
// none.
CString RemovedFile(const SpecificationFolder& folder, const GUID& id)
{
    Problems unread; // is told where the removed ones are listed
    CString file;
    const CString path = folder.Files().DeletedPath().substr(folder.Files().Path().size() + 1);
    for (const DeletedStyle& one : folder.Files().Deleted(unread))
        if (one.id == id) file = path + L'\\' + one.file;
    return file;
}

std::optional<CDesignSpecification> Removed(const SpecificationFolder& folder, const GUID& id)
{
    Problems unread;
    const CString file = RemovedFile(folder, id);
    SpecificationVersion last;
    last.path = folder.Files().PathOf(file);
    return file.empty() ? std::nullopt : ReadVersion(last, id, unread);
}

// What was removed is a version, too, when another one comes in its place.
void KeepRemoved(const SpecificationFolder& folder, const CDesignSpecification& next,
                 Problems& problems)
{
    const CString file = RemovedFile(folder, next.ID());
    if (file.empty()) return;
    folder.Files().KeepVersions({next.ID(), {file}}, FileTextOf(next), problems);
}

void AddNow(const SpecificationFolder& folder, const GUID& id,
            std::vector<SpecificationState>& states)
{
    const CDesignSpecification* const present = folder.Find(id);
    const auto now = present ? std::optional(*present) : Removed(folder, id);
    if (!now) return;
    const auto saved = present ? LastSaveOf(folder, *present) : std::nullopt;
    SpecificationState state{0, {}, {}, {}, *now, {}};
    if (saved) {
        state.saved = saved->time;
        state.savedBy = saved->user;
    }
    states.push_back(std::move(state));
}

// The first name that no other specification has.
CString FreeNameFor(const SpecificationFolder& folder, const CDesignSpecification& version)
{
    CString name = version.Name();
    for (int k = 1;; ++k) {
        const CDesignSpecification* const other = folder.Find(name.c_str());
        if (!other || other->HasID(version.ID())) return name;
        name = Format(L"%s(%d)", version.Name(), k);
    }
}

} // namespace

std::vector<SpecificationState> StatesOf(const SpecificationFolder& folder, const GUID& id,
                                         Problems& problems)
{
    std::vector<SpecificationState> states;
    AddNow(folder, id, states);
    Problems passedOver;
    for (const SpecificationVersion& version : VersionsOf(folder, id, passedOver))
        if (auto read = ReadVersion(version, id, passedOver))
            states.push_back(
                {version.number, version.saved, version.savedBy, version.replaced, *read, {}});
    for (Problem& one : passedOver) {
        one.severity = Severity::Note;
        problems.push_back(std::move(one));
    }
    for (size_t i = 0; i + 1 < states.size(); ++i)
        states[i].changes = Differences(states[i + 1].specification, states[i].specification);
    return states;
}

Outcome BringBack(SpecificationFolder& folder, const CDesignSpecification& version)
{
    Outcome outcome;
    const auto held = folder.Hold(outcome.problems);
    if (!held) return outcome;
    const CString name = FreeNameFor(folder, version);
    if (name != version.Name())
        AddProblem(outcome.problems, Severity::Note, {}, 0,
                   Format(L"样式“%s”重名,改称“%s”", version.Name(), name));
    CDesignSpecification* now = folder.Find(version.ID());
    const bool isNew = !now;
    const CDesignSpecification before = now ? *now : version;
    if (now)
        *now = version;
    else
        now = &folder.Add(std::make_unique<CDesignSpecification>(version));
    now->SetName(name.c_str());
    if (isNew) KeepRemoved(folder, *now, outcome.problems);
    Outcome saved = isNew || before.Name() == name ? folder.Save(*now)
                                                   : folder.SaveRenamed(*now, before.Name());
    if (!saved.done) {
        if (isNew)
            folder.TakeOut(folder.IndexOf(*now));
        else
            *now = before;
    }
    outcome.done = saved.done;
    Append(outcome.problems, std::move(saved.problems));
    return outcome;
}

std::vector<GUID> IdentitiesWithHistory(const SpecificationFolder& folder, Problems& problems)
{
    return folder.Files().History().Identities(problems);
}

} // namespace designspec
