#include "cli/JsonText.h"
#include "library/LibraryCheck.h"

using namespace designspec;

namespace {

// What loading said belongs to the findings.
std::vector<LibraryFinding> AllFindings(const Project& project)
{
    std::vector<LibraryFinding> all;
    for (const Problem& problem : project.LoadProblems())
        all.push_back({problem, {}});
    for (LibraryFinding& finding : CheckLibrary(project.Folder()))
        all.push_back(std::move(finding));
    return all;
}

CString LineOf(const LibraryFinding& finding)
{
    Problem line = finding;
    if (!finding.path.empty()) line.text = finding.path + L": " + finding.text;
    return line.Text();
}

Json JsonOf(const LibraryFinding& finding)
{
    return {{"file", ToJson(finding.file)},
            {"line", finding.line},
            {"level", finding.severity == Severity::Error ? "error" : "note"},
            {"path", ToJson(finding.path)},
            {"text", ToJson(finding.text)}};
}

} // namespace

Status RunCheck(const Arguments& arguments, Teller& teller)
{
    const Project project(arguments, teller);
    const std::vector<LibraryFinding> findings = AllFindings(project);
    if (arguments.json) {
        Json json = Json::array();
        for (const LibraryFinding& finding : findings)
            json.push_back(JsonOf(finding));
        PrintJson(json);
        return kDone;
    }
    for (const LibraryFinding& finding : findings)
        PrintLine(LineOf(finding));
    if (findings.empty()) Complain(L"未发现异常");
    return kDone;
}
