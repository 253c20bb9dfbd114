#include "cli/HistoryArgument.h"

#include <algorithm>

#include "base/Format.h"
#include "base/NoCase.h"
#include "base/Number.h"
#include "base/Text.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

using namespace designspec;

namespace {

CString VersionChoice(const std::vector<SpecificationState>& states)
{
    CString text;
    for (const SpecificationState& state : states)
        if (state.replaced)
            text += Format(L"\n  %d  %s 以前", state.number, LocalTime(*state.replaced));
    return text.empty() ? CString(L"没有以前的版本") : L"可选:" + text;
}

const SpecificationState* FindVersion(const std::vector<SpecificationState>& states,
                                      const CString& word)
{
    int number = 0;
    if (ParseInt(ToUtf8(word), number)) {
        const auto found = std::find_if(states.begin(), states.end(), [&](const auto& one) {
            return one.replaced && one.number == number;
        });
        return found == states.end() ? nullptr : &*found;
    }
    const auto moment = ParseLocalTime(word);
    if (!moment) Refuse(Format(L"--version “%s”既不是版本号,也不是时间(2026-11-22 08:30)", word));
    // The last one behind: the oldest of those that were replaced after that.
    const auto found = std::find_if(states.rbegin(), states.rend(), [&](const auto& one) {
        return !one.replaced || *one.replaced > *moment;
    });
    return found == states.rend() || !found->replaced ? nullptr : &*found;
}

} // namespace

std::optional<GUID> IdentityAlone(const SpecificationFolder& folder, const CString& word)
{
    GUID id;
    Problems unheard;
    if (!VMRDPub::ParseGUID(word, id) || VersionsOf(folder, id, unheard).empty())
        return std::nullopt;
    return id;
}

std::vector<DeletedStyle> RemovedOf(const std::vector<DeletedStyle>& all, const CString& word)
{
    GUID id;
    const bool isId = VMRDPub::ParseGUID(word, id);
    std::vector<DeletedStyle> chosen;
    for (const DeletedStyle& one : all) {
        if (one.file == word) return {one};
        if (EqualNoCase(one.name, word) || (isId && one.id == id)) chosen.push_back(one);
    }
    return chosen;
}

CString ChoiceOf(const std::vector<DeletedStyle>& removed)
{
    CString text = L"可选:";
    for (const DeletedStyle& one : removed)
        text += Format(L"\n  %s  %s", one.name, one.file);
    return text;
}

GUID IdentityOf(const Project& project, const Arguments& arguments)
{
    const CString word = ToWide(arguments.name);
    if (const CDesignSpecification* const present = project.FindIfThere(arguments.name))
        return present->ID();
    Problems unread;
    const auto removed = RemovedOf(project.Folder().Files().Deleted(unread), word);
    const auto isIt = [&](const DeletedStyle& one) { return one.id == removed.front().id; };
    if (!removed.empty() && std::all_of(removed.begin(), removed.end(), isIt))
        return removed.front().id;
    if (!removed.empty())
        Refuse(Format(L"已删除的“%s”不止一个,请写 GUID。%s", word, ChoiceOf(removed)));
    if (const auto id = IdentityAlone(project.Folder(), word)) return *id;
    return project.Find(arguments.name).ID(); // which says what there is
}

CDesignSpecification VersionMeant(const SpecificationFolder& folder, const GUID& id,
                                  const Arguments& arguments, Teller& teller)
{
    Problems problems;
    const std::vector<SpecificationState> states = StatesOf(folder, id, problems);
    teller.Tell(problems);
    if (arguments.version) {
        const CString word = ToWide(*arguments.version);
        const SpecificationState* const found = FindVersion(states, word);
        if (!found) Refuse(Format(L"没有版本“%s”。%s", word, VersionChoice(states)));
        return found->specification;
    }
    const CDesignSpecification* const now = folder.Find(id);
    for (const SpecificationState& state : states)
        if (!now || !(state.specification == *now)) return state.specification;
    Refuse(Format(L"“%s”没有以前的版本", now ? now->Name() : VMRDPub::GUIDToStr(id)));
}
