
#include "cli/JsonText.h"
#include "library/LibraryCheck.h"
#include "platform/vmrd/VmHFCBaseU/Trace.h"

Status RunCheck(const Arguments& arguments)
{
    // What loading the library says belongs to the findings, besides going to standard error.
    std::vector<TraceLine> findings;
    TraceSink before;
    before = SetTraceSink([&](const TraceLine& line) {
        findings.push_back(line);
        before(line);
    });
    OpenProject(arguments);
    SetTraceSink(before);
    for (const TraceLine& finding : CheckLibraryFiles())
        findings.push_back(finding);

    Json json = Json::array();
    for (const TraceLine& finding : findings)
        json.push_back({{"file", ToJson(finding.file)},
                        {"line", finding.line},
                        {"level", finding.level == TraceLevel::Error ? "error" : "note"},
                        {"text", ToJson(finding.text)}});
    if (arguments.json) {
        PrintJson(json);
        return kDone;
    }
    for (const TraceLine& finding : findings)
        PrintLine(finding.Text());
    if (findings.empty()) Complain(L"未发现异常");
    return kDone;
}
