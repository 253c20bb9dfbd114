#include "cli/Listing.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

using namespace designspec;

namespace {

Listing Specifications(const Project& project)
{
    Listing list;
    const SpecificationFolder& folder = project.Folder();
    for (int i = 0; i < folder.Count(); ++i) {
        const CDesignSpecification& item = *folder.Item(i);
        const bool isDefault = &item == project.Default();
        list.table.AddRow({std::to_wstring(i), isDefault ? L"*" : L" ", item.Name(),
                           VMRDPub::GUIDToStr(item.ID()), folder.FileOf(item)});
        Json entry = {{"index", i}, {"default", isDefault}};
        entry.update(ToJson(folder, item));
        list.json.push_back(entry);
    }
    return list;
}

Listing Deleted(const Project& project, Teller& teller)
{
    Listing list;
    Problems problems;
    for (const DeletedStyle& one : project.Folder().Files().Deleted(problems)) {
        const CString id = VMRDPub::GUIDToStr(one.id);
        list.table.AddRow({one.name, id, one.file});
        list.json.push_back(
            {{"name", ToJson(one.name)}, {"id", ToJson(id)}, {"file", ToJson(one.file)}});
    }
    teller.Tell(problems);
    return list;
}

} // namespace

Status RunList(const Arguments& arguments, Teller& teller)
{
    const Project project(arguments, teller);
    const Listing list = arguments.deleted ? Deleted(project, teller) : Specifications(project);
    list.Print(arguments.json);
    return kDone;
}
