#include <algorithm>

#include "base/Text.h"
#include "cli/JsonText.h"
#include "cli/TextTable.h"
#include "library/SpecificationEdit.h"
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

Status RunExport(const Arguments& arguments)
{
    const CString file = PathArgument(arguments.file);
    return StatusOf(OpenProject(arguments).Export(file.c_str(), Names(arguments), nullptr));
}

Status RunImport(const Arguments& arguments)
{
    const CString file = PathArgument(arguments.file);
    CDesignSpecifications& library = OpenProject(arguments, ProjectUse::Create);
    return StatusOf(ImportAndSave(library, file.c_str(), Names(arguments), arguments.overwrite));
}

Status RunNames(const Arguments& arguments)
{
    const CString file = PathArgument(arguments.file);
    CStringArray names;
    CArray<GUID> ids;
    if (!CDesignSpecifications::GetInstance()->StyleNames(file.c_str(), names, ids))
        return kFileFailed;
    TextTable table(false);
    Json json = Json::array();
    for (size_t i = 0; i < names.size(); ++i) {
        const CString id = VMRDPub::GUIDToStr(ids[i]);
        table.AddRow({names[i], id});
        json.push_back({{"name", ToJson(names[i])}, {"id", ToJson(id)}});
    }
    if (arguments.json) {
        PrintJson(json);
        return kDone;
    }
    for (const CString& line : table.Lines(0))
        PrintLine(line);
    return kDone;
}

Status RunTemplate(const Arguments& arguments)
{
    const CString folder = PathArgument(arguments.file);
    return StatusOf(OpenProject(arguments).SaveAsTemplate(folder.c_str()));
}
