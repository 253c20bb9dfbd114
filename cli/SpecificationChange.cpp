#include "cli/SpecificationChange.h"

#include "base/Text.h"
#include "cli/DifferenceText.h"
#include "cli/Faults.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

using namespace designspec;

namespace {

void Print(const std::vector<Difference>& differences, const Arguments& arguments)
{
    if (arguments.json) return PrintJson(ListJson(differences));
    PrintDifferences(differences);
}

} // namespace

void RefuseReading(const Problems& problems, Teller& teller)
{
    teller.Tell(problems);
    throw CommandFailure{kFileFailed, L"未作任何修改"};
}

CDesignSpecification& TargetOf(const Project& project, const Arguments& arguments,
                               const std::optional<CString>& identity,
                               const std::optional<CString>& name)
{
    if (arguments.spec) return project.Chosen(arguments);
    GUID id;
    if (identity && VMRDPub::ParseGUID(*identity, id))
        if (CDesignSpecification* const found = project.Folder().Find(id)) return *found;
    return name ? project.Find(ToUtf8(*name)) : project.Chosen(arguments);
}

Status ChangeTo(Project& project, CDesignSpecification& specification,
                const CDesignSpecification& changed, const Arguments& arguments, Teller& teller)
{
    const std::vector<Difference> differences = Differences(specification, changed);
    if (arguments.dryRun) Print(differences, arguments);
    RefuseFaults(arguments, teller, L"没有修改",
                 FaultsAmong(NewFindings(Findings(specification), Findings(changed))));
    if (arguments.dryRun || differences.empty()) return kDone;
    specification.CopyCriteria(changed);
    return project.StatusOf(project.Folder().Save(specification));
}

Status AddNew(Project& project, std::unique_ptr<CDesignSpecification> made,
              const Arguments& arguments, Teller& teller)
{
    if (arguments.dryRun) {
        CDesignSpecification builtIn(*made);
        builtIn.CopyCriteria({});
        Print(Differences(builtIn, *made), arguments);
    }
    RefuseFaults(arguments, teller, L"没有新建", FaultsAmong(Findings(*made)));
    if (arguments.dryRun) return kDone;
    const CDesignSpecification& added = project.Folder().Add(std::move(made));
    return project.StatusOf(project.Folder().Save(added));
}
