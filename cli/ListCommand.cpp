#include "cli/JsonText.h"
#include "cli/TextTable.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

using namespace designspec;

Status RunList(const Arguments& arguments, Teller& teller)
{
    Project project(arguments, teller);
    const SpecificationFolder& folder = project.Folder();
    TextTable table(false);
    Json json = Json::array();
    for (int i = 0; i < folder.Count(); ++i) {
        const CDesignSpecification& item = *folder.Item(i);
        const bool isDefault = &item == project.Default();
        const CString file = folder.FileOf(item);
        table.AddRow({std::to_wstring(i), isDefault ? L"*" : L" ", item.Name(),
                      VMRDPub::GUIDToStr(item.ID()), file});
        Json entry = {{"index", i}, {"default", isDefault}};
        entry.update(ToJson(folder, item));
        json.push_back(entry);
    }
    if (arguments.json) {
        PrintJson(json);
        return kDone;
    }
    for (const CString& line : table.Lines(0))
        PrintLine(line);
    return kDone;
}
