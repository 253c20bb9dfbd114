#include "base/Text.h"
#include "cli/DifferenceText.h"
#include "cli/HistoryArgument.h"
#include "cli/Listing.h"
#include "model/DifferenceLine.h"

using namespace designspec;

namespace {

CString NumberText(const SpecificationState& state, bool isThere)
{
    if (state.number > 0) return std::to_wstring(state.number);
    return isThere ? L"现在" : L"删除前";
}

// Of one of which nobody knows when it came, when it went.
CString TimeText(const SpecificationState& state)
{
    if (state.saved) return LocalTime(*state.saved);
    return state.replaced ? LocalTime(*state.replaced) + L" 以前" : CString();
}

Json ToJson(const std::optional<Moment>& moment)
{
    return moment ? ::ToJson(IsoUtc(*moment)) : Json();
}

Json ToJson(const SpecificationState& state)
{
    Json changes = Json::array();
    for (const Difference& one : state.changes)
        changes.push_back(::ToJson(one));
    return {{"version", state.number > 0 ? Json(state.number) : Json()},
            {"name", ::ToJson(state.specification.Name())},
            {"saved", ToJson(state.saved)},
            {"by", state.saved ? ::ToJson(state.savedBy) : Json()},
            {"replaced", ToJson(state.replaced)},
            {"changes", changes}};
}

} // namespace

Status RunHistory(const Arguments& arguments, Teller& teller)
{
    const Project project(arguments, teller);
    const SpecificationFolder& folder = project.Folder();
    const GUID id =
        arguments.name.empty() ? project.Chosen(arguments).ID() : IdentityOf(project, arguments);
    Problems problems;
    const std::vector<SpecificationState> states = StatesOf(folder, id, problems);
    teller.Tell(problems);
    const bool isThere = folder.Find(id) != nullptr;
    Listing list;
    for (const SpecificationState& state : states) {
        list.table.AddRow(
            {NumberText(state, isThere), TimeText(state), state.savedBy, InOneLine(state.changes)});
        list.json.push_back(ToJson(state));
    }
    list.Print(arguments.json);
    return kDone;
}
