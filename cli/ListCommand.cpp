#include "cli/JsonText.h"
#include "cli/TextTable.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

Status RunList(const Arguments& arguments)
{
    const CDesignSpecifications& library = OpenProject(arguments);
    const CStyle* standard = library.DefaultItem();
    TextTable table(false);
    Json json = Json::array();
    for (int i = 0; i < library.Count(); ++i) {
        const CDesignSpecification& item = SpecificationAt(library, i);
        const bool isDefault = &item == standard;
        const CString file = library.FileOf(item);
        table.AddRow({std::to_wstring(i), isDefault ? L"*" : L" ", item.Name(),
                      VMRDPub::GUIDToStr(item.ID()), file});
        Json entry = {{"index", i}, {"default", isDefault}};
        entry.update(ToJson(item));
        entry["file"] = ToJson(file);
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
