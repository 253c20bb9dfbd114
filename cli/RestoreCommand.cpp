#include <algorithm>

#include "base/Format.h"
#include "base/NoCase.h"
#include "base/Text.h"
#include "cli/JsonText.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

using namespace designspec;

namespace {

CString Choice(const std::vector<DeletedStyle>& deleted)
{
    CString text = L"可选:";
    for (const DeletedStyle& one : deleted)
        text += Format(L"\n  %s  %s", one.name, one.file);
    return text;
}

// The one that was removed of that file name, identity or name. Of several the user chooses by the
// file.
DeletedStyle Chosen(const std::vector<DeletedStyle>& deleted, const CString& word)
{
    GUID id;
    const bool isId = VMRDPub::ParseGUID(word, id);
    std::vector<DeletedStyle> chosen;
    for (const DeletedStyle& one : deleted) {
        if (one.file == word) return one;
        if (EqualNoCase(one.name, word) || (isId && one.id == id)) chosen.push_back(one);
    }
    if (chosen.size() == 1) return chosen.front();
    if (!chosen.empty())
        Refuse(Format(L"已删除的“%s”不止一个,请写文件名。%s", word, Choice(chosen)));
    Refuse(deleted.empty() ? CString(L"没有已删除的设计规范")
                           : Format(L"没有已删除的设计规范“%s”。%s", word, Choice(deleted)));
}

} // namespace

Status RunRestore(const Arguments& arguments, Teller& teller)
{
    Project project(arguments, teller, ProjectUse::Change);
    SpecificationFolder& folder = project.Folder();
    Problems problems;
    const DeletedStyle chosen = Chosen(folder.Files().Deleted(problems), ToWide(arguments.name));
    if (const CDesignSpecification* const present = folder.Find(chosen.id))
        Refuse(Format(L"库中已有同一标识的“%s”,先删除它才能恢复 %s", present->Name(), chosen.file));
    Outcome outcome;
    outcome.done = folder.Files().BringBack(chosen.file, outcome.problems);
    const Status status = project.StatusOf(outcome);
    if (status != kDone) return status;
    teller.Tell(folder.Load().problems);
    const CDesignSpecification* const restored = folder.Find(chosen.id);
    if (arguments.json && restored) PrintJson(ToJson(folder, *restored));
    return kDone;
}
