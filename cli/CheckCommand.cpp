
#include "cli/JsonText.h"
#include "library/LibraryCheck.h"

using namespace designspec;

Status RunCheck(const Arguments& arguments, Teller& teller)
{
    Project project(arguments, teller);
    // What loading said belongs to the findings.
    Problems findings = project.LoadProblems();
    for (const Problem& finding : CheckFiles(project.Folder().Files()))
        findings.push_back(finding);

    Json json = Json::array();
    for (const Problem& finding : findings)
        json.push_back({{"file", ToJson(finding.file)},
                        {"line", finding.line},
                        {"level", finding.severity == Severity::Error ? "error" : "note"},
                        {"text", ToJson(finding.text)}});
    if (arguments.json) {
        PrintJson(json);
        return kDone;
    }
    for (const Problem& finding : findings)
        PrintLine(finding.Text());
    if (findings.empty()) Complain(L"未发现异常");
    return kDone;
}
