#include <algorithm>

#include "base/Format.h"
#include "base/Text.h"
#include "cli/DifferenceText.h"
#include "cli/Faults.h"
#include "cli/JsonText.h"
#include "model/ManyChange.h"
#include "model/SpecificationValue.h"

using namespace designspec;

namespace {

bool IsReckoned(const Arguments& arguments)
{
    if (arguments.add && arguments.scale) Refuse(L"--add 与 --scale 只能写一个");
    return arguments.add || arguments.scale;
}

// The path of the value to set or of the row to take out.
ValuePath ChangedPath(const Arguments& arguments)
{
    ValuePath path = ParsePath(arguments.path);
    if (path.steps.empty())
        Refuse(Format(L"请指定 %s 的字段:", path.Text()) + FieldList(*path.criterion));
    const bool isTable = path.LastField()->IsTable() && path.steps.back().keys.empty();
    if (arguments.unset + arguments.value.has_value() + IsReckoned(arguments) != 1)
        Refuse(L"请给出一个值,或用 --unset 去掉它,或用 --add、--scale 改变它");
    if (arguments.force && IsReckoned(arguments)) Refuse(L"--force 不用于 --add 和 --scale");
    if (isTable && !arguments.speed && !IsReckoned(arguments))
        Refuse(L"表中的值按车速设置,请用 --speed 指定");
    if (!isTable && arguments.speed)
        Refuse(Format(L"%s 不按车速设置", CString(path.LastField()->key)));
    if (!arguments.speed) return path;
    const CString problem = path.AddKey(ToWide(*arguments.speed));
    if (!problem.empty()) Refuse(problem);
    return path;
}

// A specification with the value changed. What is refused names it when it is one of several.
class Setting {
public:
    Setting(const Arguments& arguments, const ValuePath& path, bool isOneOfSeveral, Teller& teller)
        : m_arguments(arguments), m_path(path), m_isOneOfSeveral(isOneOfSeveral), m_teller(teller)
    {
    }

    CDesignSpecification Of(const CDesignSpecification& before) const
    try {
        return IsReckoned(m_arguments) ? Reckoned(before) : Set(before);
    } catch (CommandFailure& failure) {
        if (m_isOneOfSeveral) failure.text = Format(L"“%s”: %s", before.Name(), failure.text);
        throw;
    }

private:
    CDesignSpecification Set(const CDesignSpecification& before) const
    {
        CDesignSpecification made = before;
        const ValueChange change(made, m_path);
        const CString problem = m_arguments.unset
                                    ? RemoveRow(made, m_path)
                                    : WriteValue(made, m_path, ToWide(*m_arguments.value));
        if (!problem.empty()) Refuse(problem);
        change.Check(m_arguments, m_teller);
        return made;
    }

    CDesignSpecification Reckoned(const CDesignSpecification& before) const
    {
        const auto kind = m_arguments.add ? ManyChange::Kind::Add : ManyChange::Kind::Scale;
        const std::string& operand = m_arguments.add ? *m_arguments.add : *m_arguments.scale;
        const Changed changed = MadeChange(before, {m_path, kind, ToWide(operand)});
        if (!changed.problem.empty()) Refuse(changed.problem);
        return changed.made;
    }

    const Arguments& m_arguments;
    const ValuePath& m_path;
    bool m_isOneOfSeveral;
    Teller& m_teller;
};

// Those that --spec names or --all means, each once.
std::vector<CDesignSpecification*> ChosenToSet(const Project& project, const Arguments& arguments)
{
    std::vector<CDesignSpecification*> chosen;
    if (arguments.all && arguments.spec) Refuse(L"--all 与 --spec 只能写一个");
    for (int i = 0; arguments.all && i < project.Folder().Count(); ++i)
        chosen.push_back(project.Folder().Item(i));
    if (arguments.all && chosen.empty()) Refuse(L"项目中没有设计规范");
    for (const std::string& name : arguments.specs) {
        CDesignSpecification* const found = &project.Find(name);
        if (std::find(chosen.begin(), chosen.end(), found) == chosen.end()) chosen.push_back(found);
    }
    if (chosen.empty()) chosen.push_back(&project.Chosen(arguments));
    return chosen;
}

void PrintSettings(const std::vector<CDesignSpecification*>& chosen,
                   const std::vector<CDesignSpecification>& made, bool asJson)
{
    Json all = Json::array();
    for (size_t i = 0; i < chosen.size(); ++i) {
        const std::vector<Difference> differences = Differences(*chosen[i], made[i]);
        Json one = ToJson(*chosen[i]);
        one["differences"] = ListJson(differences);
        all.push_back(one);
        if (asJson || differences.empty()) continue;
        PrintLine(Format(L"“%s”", Printable(chosen[i]->Name())));
        PrintDifferences(differences);
    }
    if (asJson) PrintJson(all);
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
    Project project(arguments, teller, arguments.dryRun ? ProjectUse::Read : ProjectUse::Change);
    const std::vector<CDesignSpecification*> chosen = ChosenToSet(project, arguments);
    const Setting setting(arguments, path, chosen.size() > 1, teller);
    std::vector<CDesignSpecification> made;
    for (const CDesignSpecification* const one : chosen)
        made.push_back(setting.Of(*one)); // all of them before any is changed
    if (arguments.dryRun) {
        PrintSettings(chosen, made, arguments.json);
        return kDone;
    }
    Status status = kDone;
    for (size_t i = 0; i < chosen.size(); ++i) {
        chosen[i]->CopyCriteria(made[i]);
        status = std::max(status, project.StatusOf(project.Folder().Save(*chosen[i])));
    }
    return status;
}
