#include <algorithm>

#include "base/Format.h"
#include "base/Text.h"
#include "cli/Faults.h"
#include "cli/JsonText.h"
#include "cli/Listing.h"
#include "library/SpecificationReading.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

using namespace designspec;

namespace {

CStringArray Names(const Arguments& arguments)
{
    CStringArray names;
    std::transform(arguments.names.begin(), arguments.names.end(), std::back_inserter(names),
                   [](const std::string& name) { return ToWide(name); });
    return names;
}

// What is wrong with those of a file that would come in.
std::vector<Finding> FaultsOf(const SpecificationFolder& coming, const SpecificationFolder& there,
                              bool overwrite)
{
    std::vector<Finding> faults;
    for (int i = 0; i < coming.Count(); ++i) {
        const CDesignSpecification& one = *coming.Item(i);
        const CDesignSpecification* const present = there.Find(one.ID());
        if (present && !overwrite) continue; // it stays as it is
        std::vector<Finding> before;
        if (present) before = Findings(*present);
        for (Finding& fault : ErrorsAmong(NewFindings(before, Findings(one)))) {
            fault.path = Format(L"“%s” %s", one.Name(), fault.path);
            faults.push_back(std::move(fault));
        }
    }
    return faults;
}

// Before anything is changed: refuses what the editor would not store, tells names that the file
// does not have.
void CheckImport(const Arguments& arguments, Teller& teller, const CString& file,
                 const SpecificationFolder& there)
{
    SpecificationFolder coming({});
    const ImportOutcome outcome = coming.TakeIn(file, Names(arguments), true);
    RefuseFaults(arguments, teller, L"没有导入", FaultsOf(coming, there, arguments.overwrite));
    if (HasError(outcome.problems)) return; // the import tells which could not be read
    for (const CString& name : Names(arguments))
        if (!coming.Find(name.c_str())) Complain(Format(L"文件中没有名为“%s”的样式", name));
}

// What was taken, in the file's order.
Json JsonOf(const SpecificationFolder& folder, const ImportOutcome& outcome)
{
    Json all = Json::array();
    for (const TakenSpecification& taken : outcome.specifications) {
        Json one = ToJson(folder, *folder.Find(taken.id));
        one["how"] = taken.how == Taken::Added         ? "added"
                     : taken.how == Taken::Overwritten ? "overwritten"
                                                       : "left";
        one["saved"] = taken.saved;
        all.push_back(one);
    }
    return all;
}

} // namespace

Status RunExport(const Arguments& arguments, Teller& teller)
{
    const CString file = PathArgument(arguments.file);
    Project project(arguments, teller);
    return project.StatusOf(project.Folder().Export(file, Names(arguments)));
}

Status RunImport(const Arguments& arguments, Teller& teller)
{
    const CString file = PathArgument(arguments.file);
    Project project(arguments, teller, ProjectUse::Create);
    CheckImport(arguments, teller, file, project.Folder());
    const ImportOutcome outcome =
        project.Folder().Import(file, Names(arguments), arguments.overwrite);
    const Status status = project.StatusOf(outcome);
    if (arguments.json && outcome.read) PrintJson(JsonOf(project.Folder(), outcome));
    if (status != kDone || !outcome.specifications.empty()) return status;
    Complain(L"没有导入任何设计规范");
    return kNoAnswer;
}

Status RunNames(const Arguments& arguments, Teller& teller)
{
    CXTPPropExchangeXMLNode root(true, kStyleLibraryRoot);
    if (!root.LoadFromFile(PathArgument(arguments.file).c_str())) {
        teller.Tell(root.TakeProblems());
        return kFileFailed;
    }
    Listing list;
    for (const StyleEntry& entry : StyleEntries(root, kLibraryName)) {
        const CString id = VMRDPub::GUIDToStr(entry.id);
        list.table.AddRow({entry.name, id});
        list.json.push_back({{"name", ToJson(entry.name)}, {"id", ToJson(id)}});
    }
    list.Print(arguments.json);
    return kDone;
}

Status RunTemplate(const Arguments& arguments, Teller& teller)
{
    const CString folder = PathArgument(arguments.file);
    Project project(arguments, teller);
    return project.StatusOf(project.Folder().SaveAsTemplate(folder));
}
