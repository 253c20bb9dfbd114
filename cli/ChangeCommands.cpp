#include <algorithm>

#include "base/File.h"
#include "base/Format.h"
#include "base/Number.h"
#include "base/Text.h"
#include "cli/JsonText.h"
#include "library/SpecificationEdit.h"
#include "library/StyleName.h"
#include "model/Rules.h"
#include "platform/vmrd/VMRDEnv/DeletedStyles.h"

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

int LimitArgument(const std::string& text, std::int32_t)
{
    const int value = IntArgument(text, L"值");
    if (!IsTableValue(value)) Refuse(kTableValueText);
    return value;
}

double LimitArgument(const std::string& text, double)
{
    const double value = DoubleArgument(text, L"值");
    if (!IsTableValue(value)) Refuse(kTableValueText);
    return value + 0.0; // no negative zero
}

template <class T>
void SetSpeed(GrowArray<SpeedEntry<T>>& table, int speed, const Arguments& arguments)
{
    const auto find = [&] {
        return std::find_if(table.begin(), table.end(),
                            [&](const auto& entry) { return entry.speed == speed; });
    };
    const bool present = find() != table.end();
    if (arguments.unset && !present) Refuse(Format(L"表中没有车速 %d", speed));
    if (!present && !IsSpeed(speed)) Refuse(SpeedText());
    const T value = arguments.unset ? T() : LimitArgument(*arguments.value, T());
    // A file may hold the speed twice; a query could find either.
    while (find() != table.end())
        table.RemoveAt(static_cast<std::int32_t>(find() - table.begin()));
    if (arguments.unset) return;
    AddSpeed(table, speed, value);
    SortDescending(table);
}

void SetTable(const Field& field, void* object, const Arguments& arguments)
{
    if (!arguments.speed) Refuse(L"表中的值按车速设置,请用 --speed 指定");
    const int speed = IntArgument(*arguments.speed, L"车速");
    if (field.isUsed && !field.isUsed(object))
        Refuse(Format(L"%s 在当前条件下不用,也不会保存", CString(field.key)));
    if (field.kind == FieldKind::IntTable)
        SetSpeed(field.Of<SpeedToIntValues>(object), speed, arguments);
    else
        SetSpeed(field.Of<SpeedToDoubleValues>(object), speed, arguments);
}

void SetScalar(const Field& field, void* object, const Arguments& arguments)
{
    if (arguments.speed) Refuse(Format(L"%s 不按车速设置", CString(field.key)));
    if (arguments.unset) Refuse(L"--unset 只用于表中的值");
    const std::string& text = *arguments.value;
    switch (field.kind) {
    case FieldKind::Int:
        field.Of<std::int32_t>(object) = LimitArgument(text, std::int32_t());
        break;
    case FieldKind::Double:
        field.Of<double>(object) = LimitArgument(text, double());
        break;
    case FieldKind::Bool:
        if (!ParseBool(text, field.Of<BOOL>(object))) Refuse(L"值应为 0 或 1");
        break;
    default: {
        const CString wide = Trim(ToWide(text));
        if (!IsXmlText(wide)) Refuse(L"值中有文件无法记录的字符");
        field.Of<CString>(object) = wide;
    }
    }
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
    const FieldPath path = ParseFieldPath(arguments.path);
    if (!path.field)
        Refuse(Format(L"请指定 %s 的字段:", CString(path.criterion->name)) +
               FieldList(*path.criterion));
    if (arguments.unset == arguments.value.has_value()) Refuse(L"请给出一个值,或用 --unset 去掉它");
    CDesignSpecifications& library = OpenProject(arguments);
    CDesignSpecification& specification = ChosenSpecification(library, arguments);
    void* object = path.criterion->get(specification);
    if (path.field->IsTable())
        SetTable(*path.field, object, arguments);
    else
        SetScalar(*path.field, object, arguments);
    return StatusOf(library.Save(&specification));
}
