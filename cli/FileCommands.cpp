#include <algorithm>

#include "base/Text.h"
#include "cli/JsonText.h"
#include "cli/TextTable.h"
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
    return project.StatusOf(project.Folder().Import(file, Names(arguments), arguments.overwrite));
}

Status RunNames(const Arguments& arguments, Teller& teller)
{
    CXTPPropExchangeXMLNode root(true, kStyleLibraryRoot);
    if (!root.LoadFromFile(PathArgument(arguments.file).c_str())) {
        teller.Tell(root.TakeProblems());
        return kFileFailed;
    }
    TextTable table(false);
    Json json = Json::array();
    for (const StyleEntry& entry : StyleEntries(root, kLibraryName)) {
        const CString id = VMRDPub::GUIDToStr(entry.id);
        table.AddRow({entry.name, id});
        json.push_back({{"name", ToJson(entry.name)}, {"id", ToJson(id)}});
    }
    if (arguments.json) {
        PrintJson(json);
        return kDone;
    }
    for (const CString& line : table.Lines(0))
        PrintLine(line);
    return kDone;
}

Status RunTemplate(const Arguments& arguments, Teller& teller)
{
    const CString folder = PathArgument(arguments.file);
    Project project(arguments, teller);
    return project.StatusOf(project.Folder().SaveAsTemplate(folder));
}
