#include <algorithm>

#include "base/Format.h"
#include "base/Text.h"
#include "cli/HistoryArgument.h"
#include "cli/JsonText.h"

using namespace designspec;

namespace {

Status PrintRestored(const Arguments& arguments, const SpecificationFolder& folder, const GUID& id)
{
    const CDesignSpecification* const restored = folder.Find(id);
    if (arguments.json && restored) PrintJson(ToJson(folder, *restored));
    return kDone;
}

// Of several that were removed the user chooses by the file.
Status RestoreRemoved(Project& project, const std::vector<DeletedStyle>& all,
                      const std::vector<DeletedStyle>& chosen, const Arguments& arguments,
                      Teller& teller)
{
    SpecificationFolder& folder = project.Folder();
    const CString word = ToWide(arguments.name);
    if (chosen.size() > 1)
        Refuse(Format(L"已删除的“%s”不止一个,请写文件名。%s", word, ChoiceOf(chosen)));
    if (chosen.empty())
        Refuse(all.empty() ? CString(L"没有已删除的设计规范")
                           : Format(L"没有已删除的设计规范“%s”。%s", word, ChoiceOf(all)));
    const DeletedStyle& one = chosen.front();
    if (const CDesignSpecification* const present = folder.Find(one.id))
        Refuse(Format(L"库中已有同一标识的“%s”,先删除它才能恢复 %s", present->Name(), one.file));
    Outcome outcome;
    outcome.done = folder.Files().BringBack(one.file, outcome.problems);
    const Status status = project.StatusOf(outcome);
    if (status != kDone) return status;
    teller.Tell(folder.Load().problems);
    return PrintRestored(arguments, folder, one.id);
}

Status RestoreVersion(Project& project, const GUID& id, const Arguments& arguments, Teller& teller)
{
    SpecificationFolder& folder = project.Folder();
    const CDesignSpecification version = VersionMeant(folder, id, arguments, teller);
    const Status status = project.StatusOf(BringBack(folder, version));
    return status == kDone ? PrintRestored(arguments, folder, id) : status;
}

// Whether a word that names one that is there means its versions: it may mean a removed one.
bool MeansVersions(const SpecificationFolder& folder, const GUID& present, const CString& word,
                   const std::vector<DeletedStyle>& removed)
{
    Problems unheard;
    const bool isByFile = removed.size() == 1 && removed.front().file == word;
    if (isByFile) return false;
    if (VersionsOf(folder, present, unheard).empty()) return removed.empty();
    const bool isOnlyIt = std::all_of(removed.begin(), removed.end(),
                                      [&](const auto& one) { return one.id == present; });
    if (!isOnlyIt)
        Refuse(Format(L"“%s”有以前的版本,也有已删除的同名规范: 请用 --version "
                      L"指定版本,或写文件名。%s",
                      word, ChoiceOf(removed)));
    return true;
}

} // namespace

Status RunRestore(const Arguments& arguments, Teller& teller)
{
    Project project(arguments, teller, ProjectUse::Change);
    SpecificationFolder& folder = project.Folder();
    const CString word = ToWide(arguments.name);
    if (arguments.version)
        return RestoreVersion(project, IdentityOf(project, arguments), arguments, teller);
    Problems problems;
    const std::vector<DeletedStyle> all = folder.Files().Deleted(problems);
    const std::vector<DeletedStyle> removed = RemovedOf(all, word);
    const CDesignSpecification* const present = project.FindIfThere(arguments.name);
    if (present && MeansVersions(folder, present->ID(), word, removed))
        return RestoreVersion(project, present->ID(), arguments, teller);
    if (!present && removed.empty())
        if (const auto id = IdentityAlone(folder, word))
            return RestoreVersion(project, *id, arguments, teller);
    return RestoreRemoved(project, all, removed, arguments, teller);
}
