#include "base/File.h"
#include "base/Format.h"
#include "base/NoCase.h"
#include "base/Number.h"
#include "base/Text.h"
#include "cli/JsonText.h"
#include "library/SpecificationEdit.h"
#include "library/StyleName.h"
#include "model/SpecificationValue.h"
#include "platform/vmrd/VMRDEnv/DeletedStyles.h"
#include "platform/xtp/PropExchange.h"

using namespace designspec;

namespace {

// The name that a user gives, by the editor's rules.
CString NameArgument(const CDesignSpecifications& library, const std::string& text,
                     const CString& openedName)
{
    CString name = Trim(ToWide(text));
    if (const CString problem = StyleNameProblem(library, name, openedName); !problem.empty())
        Refuse(problem);
    if (const CString problem = FileNameProblem(name); !problem.empty()) Refuse(problem);
    if (!IsXmlText(name)) Refuse(L"样式名中有文件无法记录的字符");
    return name;
}

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

Status RunNew(const Arguments& arguments)
{
    CDesignSpecifications& library = OpenProject(arguments, ProjectUse::Create);
    const CString name = NameArgument(library, arguments.name, {});
    auto made = std::make_unique<CDesignSpecification>();
    if (arguments.from) made->CopyCriteria(FindSpecification(library, *arguments.from));
    made->SetName(name.c_str());
    const int index = library.Add(made.release());
    return StatusOf(library.Save(&SpecificationAt(library, index)));
}

Status RunRename(const Arguments& arguments)
{
    CDesignSpecifications& library = OpenProject(arguments);
    CDesignSpecification& specification = FindSpecification(library, arguments.name);
    const CString name = NameArgument(library, arguments.newName, specification.Name());
    if (name == specification.Name()) return kDone;
    return StatusOf(RenameSpecification(library, specification, name));
}

Status RunRemove(const Arguments& arguments)
{
    CDesignSpecifications& library = OpenProject(arguments);
    const CDesignSpecification& specification = FindSpecification(library, arguments.name);
    const GUID id = specification.ID();
    const CString file = library.FileOf(specification);
    library.Remove(IndexOf(library, specification), true);
    // The file that it was read from may give no identity to find it by.
    const bool done =
        !PathFileExists(StylesFolder() + L"\\" + file) || SetStyleAside(library, file, id);
    return StatusOf(SetStyleAside(library, id) && done);
}

Status RunDefault(const Arguments& arguments)
{
    CDesignSpecifications& library = OpenProject(arguments);
    if (!arguments.name.empty()) {
        library.SetDefaultItem(&FindSpecification(library, arguments.name));
        return kDone;
    }
    const CStyle* standard = library.DefaultItem();
    if (!standard) {
        Complain(L"没有默认的设计规范");
        return kNoAnswer;
    }
    if (arguments.json)
        PrintJson(ToJson(*standard));
    else
        PrintLine(standard->Name());
    return kDone;
}

Status RunSet(const Arguments& arguments)
{
    const ValuePath path = ChangedPath(arguments);
    if (arguments.unset && path.steps.back().keys.empty()) Refuse(L"--unset 只用于表中的值");
    CDesignSpecifications& library = OpenProject(arguments);
    CDesignSpecification& specification = ChosenSpecification(library, arguments);
    const CString problem = arguments.unset
                                ? RemoveRow(specification, path)
                                : WriteValue(specification, path, ToWide(*arguments.value));
    if (!problem.empty()) Refuse(problem);
    return StatusOf(library.Save(&specification));
}
