#include "cli/SpecificationChange.h"

#include "cli/DifferenceText.h"
#include "cli/Faults.h"

using namespace designspec;

Status ChangeTo(Project& project, CDesignSpecification& specification,
                const CDesignSpecification& changed, const Arguments& arguments, Teller& teller)
{
    const std::vector<Difference> differences = Differences(specification, changed);
    if (arguments.dryRun && arguments.json)
        PrintJson(ListJson(differences));
    else if (arguments.dryRun)
        PrintDifferences(differences);
    RefuseFaults(arguments, teller, L"没有修改",
                 FaultsAmong(NewFindings(Findings(specification), Findings(changed))));
    if (arguments.dryRun || differences.empty()) return kDone;
    specification.CopyCriteria(changed);
    return project.StatusOf(project.Folder().Save(specification));
}
