#include "base/Format.h"
#include "base/Text.h"
#include "cli/Faults.h"
#include "cli/JsonText.h"
#include "model/SpecificationValue.h"

using namespace designspec;

namespace {

// The path of the value to set or of the row to take out.
ValuePath ChangedPath(const Arguments& arguments)
{
    ValuePath path = ParsePath(arguments.path);
    if (path.steps.empty())
        Refuse(Format(L"请指定 %s 的字段:", path.Text()) + FieldList(*path.criterion));
    const bool isTable = path.LastField()->IsTable() && path.steps.back().keys.empty();
    if (arguments.unset == arguments.value.has_value()) Refuse(L"请给出一个值,或用 --unset 去掉它");
    if (isTable && !arguments.speed) Refuse(L"表中的值按车速设置,请用 --speed 指定");
    if (!isTable && arguments.speed)
        Refuse(Format(L"%s 不按车速设置", CString(path.LastField()->key)));
    if (!arguments.speed) return path;
    const CString problem = path.AddKey(ToWide(*arguments.speed));
    if (!problem.empty()) Refuse(problem);
    return path;
}

} // namespace

Status RunNew(const Arguments& arguments, Teller& teller)
{
    Project project(arguments, teller, ProjectUse::Create);
    const CString name = NameArgument(project.Folder(), arguments.name, {});
    auto made = std::make_unique<CDesignSpecification>();
    if (arguments.from) {
        made->CopyCriteria(project.Find(*arguments.from));
        RefuseFaults(arguments, teller, L"没有新建", ErrorsAmong(Findings(*made)));
    }
    made->SetName(name.c_str());
    const CDesignSpecification& added = project.Folder().Add(std::move(made));
    const Status status = project.StatusOf(project.Folder().Save(added));
    if (status == kDone && arguments.json) PrintJson(ToJson(project.Folder(), added));
    return status;
}

Status RunRename(const Arguments& arguments, Teller& teller)
{
    Project project(arguments, teller, ProjectUse::Change);
    CDesignSpecification& specification = project.Find(arguments.name);
    const CString name = NameArgument(project.Folder(), arguments.newName, specification.Name());
    if (name == specification.Name()) return kDone;
    return project.StatusOf(project.Folder().Rename(specification, name));
}

Status RunRemove(const Arguments& arguments, Teller& teller)
{
    Project project(arguments, teller, ProjectUse::Change);
    return project.StatusOf(project.Folder().Remove(project.Find(arguments.name)));
}

Status RunDefault(const Arguments& arguments, Teller& teller)
{
    Project project(arguments, teller,
                    arguments.name.empty() ? ProjectUse::Read : ProjectUse::Change);
    if (!arguments.name.empty())
        return project.StatusOf(project.Folder().SetDefault(project.Find(arguments.name)));
    const CDesignSpecification* const standard = project.Default();
    if (!standard) {
        Complain(L"没有默认的设计规范");
        return kNoAnswer;
    }
    if (arguments.json)
        PrintJson(ToJson(*standard));
    else
        PrintLine(Printable(standard->Name()));
    return kDone;
}

Status RunSet(const Arguments& arguments, Teller& teller)
{
    const ValuePath path = ChangedPath(arguments);
    if (arguments.unset && path.steps.back().keys.empty()) Refuse(L"--unset 只用于表中的值");
    Project project(arguments, teller, ProjectUse::Change);
    CDesignSpecification& specification = project.Chosen(arguments);
    const ValueChange change(specification, path);
    const CString problem = arguments.unset
                                ? RemoveRow(specification, path)
                                : WriteValue(specification, path, ToWide(*arguments.value));
    if (!problem.empty()) Refuse(problem);
    change.Check(arguments, teller);
    return project.StatusOf(project.Folder().Save(specification));
}
