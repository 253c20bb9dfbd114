#include "cli/CommandLine.h"

#include <CLI/CLI.hpp>

#include "base/Format.h"
#include "base/Text.h"
#include "cli/Project.h"

using namespace designspec;

namespace {

using Run = Status (*)(const Arguments&, Teller&);

constexpr char kVersion[] = "designspec " DESIGNSPEC_VERSION;

constexpr char kDescription[] = "查询和编辑道路设计规范。\n"
                                "项目文件夹中的“规范”文件夹保存各设计规范,每个一个 .hds 文件。\n"
                                "值写到标准输出,其余写到标准错误。";

constexpr char kFooter[] =
    "退出状态: 0 完成或有答案; 1 查询没有答案,或没有导入任何内容; 2 命令用法有误,或会带入\n"
    "编辑器不接受的值; 3 文件或项目无法读写\n"
    "(库中只要有一个文件无法读取,即使其余部分已有答案,也为 3)。\n\n"
    "例:\n"
    "  designspec --project 路线 list\n"
    "  designspec query CircularCurveRad.SuperelevationMinRad --speed 70 --mode interpolate\n"
    "  designspec query LonGradMaxLen --grad 6 --speed 60\n"
    "  designspec query SuperElevation --max-super 6 --speed 80 --radius 500\n"
    "  designspec query CurveWidening --car 普通汽车 --radius 200\n"
    "  designspec set CircularCurveRad.SuperelevationMinRad --speed 80 260";

constexpr char kPathHelp[] = "条目.字段,例如 CircularCurveRad.MaxRad;一行写作 [键],例如 "
                             "LonGradMaxLen.rows[6].lengths[60];全部名称见下";

// An empty word where leaving it out has a meaning is a script's slip.
std::string NotEmpty(const std::string& word)
{
    return word.empty() ? "不能为空" : "";
}

std::string CriteriaHelp(bool withFields)
{
    CString text = withFields ? L"条目和字段:" : L"条目:";
    for (const CriterionInfo& criterion : Criteria()) {
        text += Format(L"\n  %s  %s", CString(criterion.name), CString(criterion.label));
        if (withFields) text += FieldList(criterion, 4);
    }
    return ToUtf8(text);
}

class CommandLine {
public:
    CommandLine()
    {
        m_app.get_formatter()->label("Usage", "用法");
        m_app.get_formatter()->label("OPTIONS", "选项");
        m_app.get_formatter()->label("SUBCOMMAND", "命令");
        m_app.get_formatter()->label("SUBCOMMANDS", "命令");
        m_app.get_formatter()->label("Positionals", "参数");
        m_app.get_formatter()->label("REQUIRED", "(必需)");
        m_app.get_formatter()->label("Subcommands", "命令");
        m_app.option_defaults()->group("选项");
        m_app.set_help_flag("-h,--help", "显示帮助并退出");
        m_app.set_version_flag("--version", kVersion, "显示版本并退出");
        m_app.require_subcommand(1);
        m_app.fallthrough();
        m_app
            .add_option("--project", m_arguments.project,
                        "项目文件夹,即“规范”所在的文件夹(默认为当前文件夹)")
            ->type_name("DIR")
            ->check(NotEmpty);
        m_app
            .add_option("--spec", m_arguments.spec,
                        "设计规范的名称或 GUID;不写则用默认的,没有默认的则用唯一的")
            ->type_name("NAME");
        m_app.add_flag("--json", m_arguments.json, "以 JSON 输出");
        AddReading();
        AddChanging();
        AddFiles();
        m_app.footer(kFooter);
    }

    int Parse(int argc, const char* const* argv, Teller& teller)
    {
        try {
            m_app.parse(argc, argv);
        } catch (const CLI::Success& help) {
            return m_app.exit(help);
        } catch (const CLI::ParseError& error) {
            Complain(Format(L"命令行有误: %s\n用 %s --help 查看用法", CauseOf(error), HelpCall()));
            return kWrongCall;
        }
        return m_run(m_arguments, teller);
    }

private:
    CString CauseOf(const CLI::ParseError& error) const
    {
        const std::vector<std::string> rest = m_app.remaining(true);
        if (m_app.get_subcommands().empty())
            return rest.empty() ? L"没有命令" : Format(L"没有命令“%s”", ToWide(rest.front()));
        if (!rest.empty())
            return Format(rest.front().starts_with('-') ? L"没有选项“%s”" : L"多余的参数“%s”",
                          ToWide(rest.front()));
        // CLI11 tells the rest in English, "NAME is required" and "NAME: 1 required V missing".
        const std::string what = error.what();
        const CString name = ToWide(what.substr(0, what.find_first_of(": ")));
        if (dynamic_cast<const CLI::RequiredError*>(&error)) return L"缺少 " + name;
        if (!dynamic_cast<const CLI::ArgumentMismatch*>(&error)) return ToWide(what);
        return name + (what.ends_with("missing") ? L" 后缺少值" : L" 只能给一次");
    }

    // The name of the command whose help tells more.
    CString HelpCall() const
    {
        const auto commands = m_app.get_subcommands();
        return commands.empty() ? L"designspec"
                                : L"designspec " + ToWide(commands.front()->get_name());
    }

    CLI::App* Add(const char* name, const char* help, Run run)
    {
        CLI::App* command = m_app.add_subcommand(name, help);
        command->group("命令");
        command->get_help_ptr()->group("选项");
        command->callback([this, run] { m_run = run; });
        return command;
    }

    void AddReading()
    {
        Add("list", "列出设计规范: 序号、默认标记、名称、GUID、文件", RunList);
        CLI::App* show = Add("show", "显示设计规范或其中一个条目", RunShow);
        show->footer([] { return CriteriaHelp(false); });
        show->add_option("CRITERION", m_arguments.path, "条目,例如 CircularCurveRad;不写则显示全部")
            ->type_name("")
            ->check(NotEmpty);
        CLI::App* query = Add("query", "查询一个限值,输出该值本身", RunQuery);
        query->footer([] { return CriteriaHelp(true); });
        query->add_option("PATH", m_arguments.path, kPathHelp)->type_name("")->required();
        query->add_option("--speed", m_arguments.speed, "设计车速(km/h)")->type_name("V");
        query
            ->add_option("--mode", m_arguments.mode,
                         "表中没有该车速时的取值方式: nearest(默认) upper lower interpolate exact")
            ->type_name("M");
        query->add_option("--grad", m_arguments.grad, "坡度(%),用于 LonGradMaxLen")->type_name("G");
        query->add_option("--max-super", m_arguments.maxSuper, "最大超高(%),用于 SuperElevation")
            ->type_name("M");
        query
            ->add_option("--radius", m_arguments.radius,
                         "圆曲线半径(m),用于 SuperElevation 和 CurveWidening")
            ->type_name("R");
        query
            ->add_option("--tolerance", m_arguments.tolerance,
                         "车速可超出表中车速多少(km/h,默认 0),用于 SuperElevation")
            ->type_name("T");
        query->add_option("--car", m_arguments.car, "设计车型,用于 CurveWidening")
            ->type_name("TYPE");
        Add("check", "检查库中的每个文件和其中的限值,指出异常之处", RunCheck);
    }

    void AddChanging()
    {
        CLI::App* made = Add("new", "新建设计规范", RunNew);
        made->add_option("NAME", m_arguments.name, "名称")->type_name("")->required();
        made->add_option("--from", m_arguments.from, "复制这个设计规范的内容")->type_name("NAME");
        made->add_flag("--force", m_arguments.force, "复制编辑器不接受的值");
        CLI::App* renamed = Add("rename", "重命名设计规范", RunRename);
        renamed->add_option("OLD", m_arguments.name, "现名称或 GUID")->type_name("")->required();
        renamed->add_option("NEW", m_arguments.newName, "新名称")->type_name("")->required();
        Add("remove", "删除设计规范,其文件移至“规范/已删除”", RunRemove)
            ->add_option("NAME", m_arguments.name, "名称或 GUID")
            ->type_name("")
            ->required();
        Add("default", "显示或设定默认的设计规范", RunDefault)
            ->add_option("NAME", m_arguments.name, "名称或 GUID;不写则显示现在的")
            ->type_name("")
            ->check(NotEmpty);
        CLI::App* set = Add("set", "修改一个值并保存", RunSet);
        set->footer([] { return CriteriaHelp(true); });
        set->add_option("PATH", m_arguments.path, kPathHelp)->type_name("")->required();
        set->add_option("VALUE", m_arguments.value, "新的值")->type_name("");
        set->add_option("--speed", m_arguments.speed, "设计车速(km/h),用于表中的值")
            ->type_name("V");
        set->add_flag("--unset", m_arguments.unset, "从表中去掉该车速或该行");
        set->add_flag("--force", m_arguments.force, "保存编辑器不接受的值");
    }

    void AddFiles()
    {
        CLI::App* exported = Add("export", "导出全部或指定的设计规范", RunExport);
        exported->add_option("FILE", m_arguments.file, "文件;已有的其它设计规范保留")
            ->type_name("")
            ->required();
        exported->add_option("NAME", m_arguments.names, "名称")->type_name("");
        CLI::App* imported = Add("import", "导入文件中全部或指定的设计规范", RunImport);
        imported->add_option("FILE", m_arguments.file, "文件")->type_name("")->required();
        imported->add_option("NAME", m_arguments.names, "名称")->type_name("");
        imported->add_flag("--overwrite", m_arguments.overwrite, "覆盖标识相同的设计规范");
        imported->add_flag("--force", m_arguments.force, "导入编辑器不接受的值");
        Add("names", "列出文件中设计规范的名称和 GUID", RunNames)
            ->add_option("FILE", m_arguments.file, "文件")
            ->type_name("")
            ->required();
        Add("template", "把项目的全部设计规范另存为模板", RunTemplate)
            ->add_option("DIR", m_arguments.file, "目标文件夹")
            ->type_name("")
            ->required();
    }

    CLI::App m_app{kDescription, "designspec"};
    Arguments m_arguments;
    Run m_run = nullptr;
};

} // namespace

int RunCommandLine(int argc, const char* const* argv)
{
    Teller teller;
    int status = kDone;
    try {
        status = CommandLine().Parse(argc, argv, teller);
    } catch (const CommandFailure& failure) {
        Complain(failure.text);
        status = failure.status;
    }
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
        Complain(L"标准输出无法写入");
        return kFileFailed;
    }
    return teller.HasFailed() ? kFileFailed : status;
}
