#include "cli/CommandLine.h"

#include <new>
#include <sstream>

#include <CLI/CLI.hpp>

#include "base/Format.h"
#include "base/Text.h"
#include "cli/Console.h"
#include "cli/Language.h"
#include "cli/Project.h"
#include "cli/Suggestion.h"

using namespace designspec;

namespace {

using Run = Status (*)(const Arguments&, Teller&);

constexpr char kVersion[] = "designspec " DESIGNSPEC_VERSION;

// A text of the help in both languages.
struct HelpText {
    const char* chinese;
    const char* english;
};

constexpr HelpText kDescription = {
    "查询和编辑道路设计规范。\n"
    "项目文件夹中的“规范”文件夹保存各设计规范,每个一个 .hds 文件。\n"
    "值写到标准输出,其余写到标准错误。",
    "Queries and edits road design specifications.\n"
    "The folder 规范 of a project keeps them, one .hds file for each.\n"
    "Values go to standard output, everything else to standard error."};

constexpr HelpText kFooter = {
    "退出状态: 0 完成或有答案; 1 查询没有答案,没有导入任何内容,两者不同,有冲突,或检核发现错误;\n"
    "2 命令用法有误,或会带入编辑器不接受的值; 3 文件或项目无法读写\n"
    "(库中只要有一个文件无法读取,即使其余部分已有答案,也为 3)。\n\n"
    "例:\n",
    "Exit status: 0 done or answered; 1 no answer, nothing imported, two differ or conflict, or an "
    "error of a "
    "road;\n"
    "2 the call is wrong, or would bring in what the editor refuses; 3 a file or the project could "
    "not be read or written\n"
    "(one unreadable file of the library is enough, even where the others gave an answer).\n\n"
    "Examples:\n"};

constexpr char kExamples[] =
    "  designspec --project 路线 list\n"
    "  designspec query CircularCurveRad.SuperelevationMinRad --speed 70 --mode interpolate\n"
    "  designspec query LonGradMaxLen --grad 6 --speed 60\n"
    "  designspec query SuperElevation --max-super 6 --speed 80 --radius 500\n"
    "  designspec query CurveWidening --car 普通汽车 --radius 200\n"
    "  designspec set CircularCurveRad.SuperelevationMinRad --speed 80 260\n"
    "  designspec diff 城市道路 旧版.hds\n"
    "  designspec report 公路二级 --compare 城市道路 -o 规范.html\n"
    "  designspec merge 原来.hds 我方.hds 对方.hds -o 合并.hds\n"
    "  designspec verify 路线.xml --speed 60 --car 普通汽车 --report 报告.html";

constexpr HelpText kPathHelp = {
    "条目.字段,例如 CircularCurveRad.MaxRad;一行写作 [键],例如 "
    "LonGradMaxLen.rows[6].lengths[60];全部名称见下",
    "CRITERION.FIELD, as in CircularCurveRad.MaxRad; a row is named by its [key], as in "
    "LonGradMaxLen.rows[6].lengths[60]; all names stand below"};

// What CLI11 says by itself.
constexpr HelpText kLabels[] = {{"用法", "Usage"},       {"选项", "OPTIONS"},
                                {"命令", "SUBCOMMAND"},  {"命令", "SUBCOMMANDS"},
                                {"参数", "Positionals"}, {"(必需)", "REQUIRED"},
                                {"命令", "Subcommands"}};

// An empty word where leaving it out has a meaning is a script's slip.
std::string NotEmpty(const std::string& word)
{
    return word.empty() ? "不能为空" : "";
}

std::string CriteriaHelp(const char* heading, bool withFields)
{
    CString text = ToWide(heading);
    for (const CriterionInfo& criterion : Criteria()) {
        text += Format(L"\n  %s  %s", CString(criterion.name), CString(criterion.label));
        if (withFields) text += FieldList(criterion, 4);
    }
    return ToUtf8(text);
}

// CLI11 takes a word in brackets for a list; with this before it, it does not.
constexpr char kAsItStands = '\x01';

// The words of the command line, the last one first.
std::vector<std::string> Words(int argc, const char* const* argv)
{
    std::vector<std::string> words;
    const std::vector<std::string> called = Console::Words(argc, argv);
    for (size_t i = called.size() - 1; i > 0; --i) {
        std::string& word = words.emplace_back(called[i]);
        if (word.starts_with('[') && word.ends_with(']')) word.insert(0, 1, kAsItStands);
    }
    return words;
}

template <class Function> void ForEachWord(Arguments& arguments, const Function& function)
{
    for (std::string* word : {&arguments.project, &arguments.path, &arguments.name,
                              &arguments.newName, &arguments.file})
        function(*word);
    for (auto* word :
         {&arguments.value, &arguments.from, &arguments.newSpec, &arguments.car, &arguments.output})
        if (*word) function(**word);
    for (auto* words : {&arguments.names, &arguments.specs, &arguments.verify.files,
                        &arguments.verify.alignments})
        for (std::string& word : *words)
            function(word);
}

class CommandLine {
public:
    CommandLine()
    {
        m_app.description(In(kDescription));
        m_app.allow_windows_style_options(false); // "/" begins a path
        for (const HelpText& label : kLabels)
            m_app.get_formatter()->label(label.english, In(label));
        m_app.option_defaults()->group(In({"选项", "Options"}));
        m_app.set_help_flag("-h,--help", In({"显示帮助并退出", "Show help and exit"}));
        m_app.set_version_flag("--version", kVersion,
                               In({"显示版本并退出", "Show the version and exit"}));
        m_app.require_subcommand(1);
        m_app.fallthrough();
        m_app
            .add_option("--project", m_arguments.project,
                        In({"项目文件夹,即“规范”所在的文件夹(默认为当前文件夹)",
                            "The folder that holds 规范; the current folder if not given"}))
            ->type_name("DIR")
            ->check(NotEmpty);
        m_app
            .add_option("--spec", m_arguments.specs,
                        In({"设计规范的名称或 GUID;不写则用默认的,没有默认的则用唯一的",
                            "Name or GUID of the specification; the default one, or the only one, "
                            "if not given"}))
            ->type_name("NAME")
            ->allow_extra_args(false);
        m_app.add_flag("--json", m_arguments.json, In({"以 JSON 输出", "Print data as JSON"}));
        m_app
            .add_option("--wait", m_arguments.wait,
                        In({"另一程序正在修改项目时最多等待的秒数,默认 30",
                            "How long to wait, in seconds, while another program changes the "
                            "project; 30 if not given"}))
            ->type_name("SECONDS");
        AddReading();
        AddComparing();
        AddQuery();
        AddChanging();
        AddSet();
        AddApply();
        AddFiles();
        AddSheet();
        AddVerify();
        m_app.footer(In(kFooter) + std::string(kExamples));
    }

    int Parse(int argc, const char* const* argv, Teller& teller)
    {
        try {
            m_app.parse(Words(argc, argv));
            ForEachWord(m_arguments, [](std::string& word) {
                if (word.starts_with(kAsItStands)) word.erase(0, 1);
            });
            if (m_arguments.specs.size() > 1 && m_run != &RunSet)
                return Wrong(L"--spec 只能给一次");
            if (!m_arguments.specs.empty()) m_arguments.spec = m_arguments.specs.front();
        } catch (const CLI::Success& help) {
            if (m_app.remaining(true).empty()) return PrintHelp(help);
            return Wrong(UnknownWord());
        } catch (const CLI::ParseError& error) {
            return Wrong(CauseOf(error));
        }
        return m_run(m_arguments, teller);
    }

private:
    const char* In(const HelpText& text) const
    {
        return m_language == Language::English ? text.english : text.chinese;
    }

    // Also the version.
    Status PrintHelp(const CLI::Success& help) const
    {
        std::ostringstream out;
        const int status = m_app.exit(help, out);
        Console::Write(out.str());
        return static_cast<Status>(status);
    }

    Status Wrong(const CString& cause) const
    {
        Complain(Format(L"命令行有误: %s\n用 %s --help 查看用法", cause, HelpCall()));
        return kWrongCall;
    }

    // What of the command line has no place, and what it may have been meant to be.
    CString UnknownWord() const
    {
        const std::string word = m_app.remaining(true).front();
        const bool isOption = word.starts_with('-');
        const bool isCommand = m_app.get_subcommands().empty() && !isOption;
        CString text = Format(isCommand  ? L"没有命令“%s”"
                              : isOption ? L"没有选项“%s”"
                                         : L"多余的参数“%s”",
                              ToWide(word));
        if (!isCommand && !isOption) return text;
        const std::string meant =
            SuggestionFor(word.substr(0, word.find('=')), isCommand ? Commands() : Options());
        return meant.empty() ? text : text + Format(L",是不是 %s?", ToWide(meant));
    }

    std::vector<std::string> Commands() const
    {
        std::vector<std::string> names = {"--help", "--version"};
        for (const CLI::App* command : m_app.get_subcommands([](const CLI::App*) { return true; }))
            names.push_back(command->get_name());
        return names;
    }

    // Those of the program and of the command that was named.
    std::vector<std::string> Options() const
    {
        std::vector<const CLI::App*> apps = {&m_app};
        for (std::size_t i = 0; i < apps.size(); ++i) // those of commands of commands too
            for (const CLI::App* command : apps[i]->get_subcommands())
                apps.push_back(command);
        std::vector<std::string> names;
        for (const CLI::App* app : apps)
            for (const CLI::Option* option : app->get_options())
                for (const std::string& name : option->get_lnames())
                    names.push_back("--" + name);
        return names;
    }

    CString CauseOf(const CLI::ParseError& error) const
    {
        if (!m_app.remaining(true).empty()) return UnknownWord();
        if (m_app.get_subcommands().empty()) return L"没有命令";
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
        CString call = L"designspec";
        for (auto commands = m_app.get_subcommands(); !commands.empty();
             commands = commands.front()->get_subcommands())
            call += L" " + ToWide(commands.front()->get_name());
        return call;
    }

    CLI::App* Add(const char* name, const HelpText& help, Run run)
    {
        CLI::App* command = Add(m_app, name, help);
        command->callback([this, run] { m_run = run; });
        return command;
    }
    CLI::App* Add(CLI::App& above, const char* name, const HelpText& help)
    {
        CLI::App* command = above.add_subcommand(name, In(help));
        command->group(In({"命令", "Commands"}));
        command->get_help_ptr()->group(In({"选项", "Options"}));
        return command;
    }

    // A word behind the command.
    CLI::Option* AddWord(CLI::App* command, const char* name, std::string& word,
                         const HelpText& help)
    {
        return command->add_option(name, word, In(help))->type_name("");
    }

    CLI::Option* AddOption(CLI::App* command, const char* name, const char* type,
                           std::optional<std::string>& word, const HelpText& help)
    {
        return command->add_option(name, word, In(help))->type_name(type);
    }

    void AddPath(CLI::App* command)
    {
        AddWord(command, "PATH", m_arguments.path, kPathHelp)->required();
        command->footer([this] {
            return CriteriaHelp(In({"条目和字段:", "Criteria and fields:"}), true);
        });
    }

    void AddReading()
    {
        CLI::App* list = Add("list",
                             {"列出设计规范: 序号、默认标记、名称、GUID、文件",
                              "List the specifications: index, default mark, name, GUID, file"},
                             RunList);
        list->add_flag("--deleted", m_arguments.deleted,
                       In({"列出已删除的: 名称、GUID、文件", "Those removed: name, GUID, file"}));
        CLI::App* show = Add(
            "show", {"显示设计规范或其中一个条目", "Show a specification, or one criterion of it"},
            RunShow);
        show->footer([this] { return CriteriaHelp(In({"条目:", "Criteria:"}), false); });
        AddWord(show, "FILE", m_arguments.file,
                {"文件、“文件#名称”、名称或 GUID;不写则显示库中的,见 --spec",
                 "A file, FILE#NAME, name or GUID; of the library (see --spec) if not given"})
            ->check(NotEmpty);
        AddWord(show, "CRITERION", m_arguments.path,
                {"条目,例如 CircularCurveRad;不写则显示全部",
                 "The criterion, as in CircularCurveRad; all if not given"})
            ->check(NotEmpty);
        Add("check",
            {"检查库中的每个文件和其中的限值,指出异常之处",
             "Say what is wrong or odd in each file of the library and its limits"},
            RunCheck);
    }

    void AddComparing()
    {
        CLI::App* diff =
            Add("diff", {"逐值比较两个设计规范", "Compare two specifications, value by value"},
                RunDiff);
        AddWord(diff, "A", m_arguments.name,
                {"名称、GUID、文件,或“文件#名称”;其后没有 B 时与内置限值比较",
                 "Name, GUID, file, or FILE#NAME; compared with the built-in limits without B"})
            ->required()
            ->check(NotEmpty);
        AddWord(diff, "B", m_arguments.newName, {"同 A", "Likewise"})->check(NotEmpty);
        CLI::App* merge =
            Add("merge", {"逐值三方合并 .hds 文件", "Merge three .hds files, value by value"},
                RunMerge);
        AddWord(merge, "BASE", m_arguments.name,
                {"双方修改之前的文件", "The file before both changed it"})
            ->required()
            ->check(NotEmpty);
        AddWord(merge, "OURS", m_arguments.newName,
                {"我方的文件;没有 -o 时结果写入其中",
                 "Our file, which the result replaces unless -o is given"})
            ->required()
            ->check(NotEmpty);
        AddWord(merge, "THEIRS", m_arguments.file, {"对方的文件", "Their file"})
            ->required()
            ->check(NotEmpty);
        AddOption(merge, "-o,--output", "FILE", m_arguments.output,
                  {"结果写入该文件", "The file that the result goes into"})
            ->check(NotEmpty);
        AddOption(
            merge, "--prefer", "SIDE", m_arguments.prefer,
            {"有冲突时取哪一方的值: ours theirs", "Whose values settle conflicts: ours theirs"});
        CLI::App* report =
            Add("report",
                {"把设计规范写成可打印的网页", "Write specifications as a page that prints well"},
                RunReport);
        report
            ->add_option("NAME", m_arguments.names,
                         In({"名称、GUID、文件,或“文件#名称”;不写则为 --spec 的",
                             "Name, GUID, file, or FILE#NAME; that of --spec if not given"}))
            ->type_name("");
        AddOption(report, "-o,--output", "FILE", m_arguments.output,
                  {"网页文件 .html", "The page, .html"})
            ->required()
            ->check(NotEmpty);
        AddOption(report, "--compare", "NAME", m_arguments.from,
                  {"标出与这个设计规范不同的值", "Mark the values that differ from this one"})
            ->check(NotEmpty);
    }

    void AddQuery()
    {
        CLI::App* query =
            Add("query", {"查询一个限值,输出该值本身", "Ask for a limit; prints just the value"},
                RunQuery);
        AddPath(query);
        AddOption(query, "--speed", "V", m_arguments.speed,
                  {"设计车速(km/h)", "The design speed (km/h)"});
        AddOption(query, "--mode", "M", m_arguments.mode,
                  {"表中没有该车速时的取值方式: nearest(默认) upper lower interpolate exact",
                   "What to take for a speed that is not in the table: nearest (the default) upper "
                   "lower interpolate exact"});
        AddOption(query, "--grad", "G", m_arguments.grad,
                  {"坡度(%),用于 LonGradMaxLen", "The grade (%), for LonGradMaxLen"});
        AddOption(query, "--max-super", "M", m_arguments.maxSuper,
                  {"最大超高(%),用于 SuperElevation",
                   "The maximum superelevation (%), for SuperElevation"});
        AddOption(query, "--radius", "R", m_arguments.radius,
                  {"圆曲线半径(m),用于 SuperElevation 和 CurveWidening",
                   "The radius of the curve (m), for SuperElevation and CurveWidening"});
        AddOption(query, "--tolerance", "T", m_arguments.tolerance,
                  {"车速可超出表中车速多少(km/h,默认 0),用于 SuperElevation",
                   "How far the speed may lie outside the table (km/h, 0 by default), for "
                   "SuperElevation"});
        AddOption(query, "--car", "TYPE", m_arguments.car,
                  {"设计车型,用于 CurveWidening", "The design vehicle, for CurveWidening"});
    }

    void AddChanging()
    {
        const HelpText nameOrId = {"名称或 GUID", "Name or GUID"};
        CLI::App* made = Add("new", {"新建设计规范", "Make a specification"}, RunNew);
        AddWord(made, "NAME", m_arguments.name, {"名称", "Its name"})->required();
        AddOption(made, "--from", "NAME", m_arguments.from,
                  {"复制这个设计规范的内容", "Copy the content of this one"});
        made->add_flag("--force", m_arguments.force,
                       In({"复制编辑器不接受的值", "Copy also what the editor refuses"}));
        CLI::App* renamed =
            Add("rename", {"重命名设计规范", "Give a specification another name"}, RunRename);
        AddWord(renamed, "OLD", m_arguments.name, {"现名称或 GUID", "Its name or GUID"})
            ->required();
        AddWord(renamed, "NEW", m_arguments.newName, {"新名称", "The new name"})->required();
        CLI::App* removed = Add("remove",
                                {"删除设计规范,其文件移至“规范/已删除”",
                                 "Delete a specification; its file goes to 规范/已删除"},
                                RunRemove);
        AddWord(removed, "NAME", m_arguments.name, nameOrId)->required();
        AddHistory();
        CLI::App* standard = Add(
            "default", {"显示或设定默认的设计规范", "Show the default specification, or choose it"},
            RunDefault);
        AddWord(
            standard, "NAME", m_arguments.name,
            {"名称或 GUID;不写则显示现在的", "Name or GUID; shows the present one if not given"})
            ->check(NotEmpty);
    }

    void AddHistory()
    {
        CLI::App* history = Add("history",
                                {"列出设计规范以前的版本: 版本号、时间、保存的人、改了什么",
                                 "List what a specification was before: version, time, who saved "
                                 "it, what was changed"},
                                RunHistory);
        AddWord(history, "NAME", m_arguments.name,
                {"名称或 GUID,已删除的也可以;不写则同 --spec",
                 "Name or GUID, also of one that was removed; as --spec if not given"})
            ->check(NotEmpty);
        CLI::App* restored =
            Add("restore",
                {"恢复已删除的设计规范,或把设计规范恢复成以前的版本",
                 "Bring back a specification that was removed, or what one was before"},
                RunRestore);
        AddWord(restored, "NAME", m_arguments.name,
                {"名称、GUID 或文件名,见 list --deleted",
                 "Name, GUID or file, as list --deleted shows them"})
            ->required();
        AddOption(restored, "--version", "V", m_arguments.version,
                  {"版本号,见 history,或时间: 那时的内容,如 \"2026-11-22 08:30\";不写则为前一版本",
                   "The number, as history shows it, or a time: what it was then, as in "
                   "\"2026-11-22 08:30\"; the one before if not given"});
    }

    void AddSet()
    {
        CLI::App* set = Add("set",
                            {"修改一个或多个设计规范的一个值并保存,--spec 可重复",
                             "Change one value of one or, --spec repeated, of several, and save"},
                            RunSet);
        AddPath(set);
        set->add_option("VALUE", m_arguments.value, In({"新的值", "The new value"}))->type_name("");
        AddOption(
            set, "--speed", "V", m_arguments.speed,
            {"设计车速(km/h),用于表中的值", "The design speed (km/h), for a value of a table"});
        AddOption(set, "--add", "N", m_arguments.add,
                  {"加上 N,可为负数;表中不写 --speed 则为所有车速的值",
                   "Add N, which may be negative; in a table at all speeds without --speed"});
        AddOption(set, "--scale", "N", m_arguments.scale,
                  {"乘以 N,同上", "Multiply by N, likewise"});
        set->add_flag("--all", m_arguments.all,
                      In({"修改全部设计规范", "Change all specifications"}));
        set->add_flag("--dry-run", m_arguments.dryRun,
                      In({"只列出不同之处,不修改", "List what would differ and change nothing"}));
        set->add_flag("--unset", m_arguments.unset,
                      In({"从表中去掉该车速或该行", "Take the speed or the row out of the table"}));
        set->add_flag("--force", m_arguments.force,
                      In({"保存编辑器不接受的值", "Save also what the editor refuses"}));
    }

    void AddApply()
    {
        CLI::App* apply = Add("apply",
                              {"按 JSON 文件修改多个值并保存,要么全部,要么都不",
                               "Change many values as a JSON file has them, all or none, and save"},
                              RunApply);
        AddWord(apply, "FILE", m_arguments.file,
                {"show --json 写出的文件,可以只留一部分;“-”为标准输入",
                 "What show --json writes, whole or in part; - for standard input"})
            ->required();
        AddDryRun(apply);
        apply->add_flag("--force", m_arguments.force,
                        In({"保存编辑器不接受的值", "Save also what the editor refuses"}));
    }

    void AddDryRun(CLI::App* command)
    {
        command->add_flag("--dry-run", m_arguments.dryRun,
                          In({"只列出会有哪些不同,不作修改",
                              "List what would be different, and change nothing"}));
    }

    void AddFiles()
    {
        const HelpText file = {"文件", "The file"};
        const HelpText name = {"名称", "A name"};
        CLI::App* exported =
            Add("export",
                {"导出全部或指定的设计规范", "Write the named specifications, or all, into a file"},
                RunExport);
        AddWord(exported, "FILE", m_arguments.file,
                {"文件;已有的其它设计规范保留", "The file; others that it holds stay in it"})
            ->required();
        exported->add_option("NAME", m_arguments.names, In(name))->type_name("");
        CLI::App* imported = Add("import",
                                 {"导入文件中全部或指定的设计规范",
                                  "Take the named specifications, or all, from a file"},
                                 RunImport);
        AddWord(imported, "FILE", m_arguments.file, file)->required();
        imported->add_option("NAME", m_arguments.names, In(name))->type_name("");
        imported->add_flag("--overwrite", m_arguments.overwrite,
                           In({"覆盖标识相同的设计规范", "Overwrite those of the same GUID"}));
        imported->add_flag("--force", m_arguments.force,
                           In({"导入编辑器不接受的值", "Import also what the editor refuses"}));
        CLI::App* names = Add("names",
                              {"列出文件中设计规范的名称和 GUID",
                               "List name and GUID of each specification in a file"},
                              RunNames);
        AddWord(names, "FILE", m_arguments.file, file)->required();
        CLI::App* copied = Add(
            "template",
            {"把项目的全部设计规范另存为模板", "Copy the library of the project into another one"},
            RunTemplate);
        AddWord(copied, "DIR", m_arguments.file, {"目标文件夹", "The folder to copy to"})
            ->required();
    }

    void AddSheet()
    {
        CLI::App* sheet =
            Add(m_app, "sheet", {"写出、读入电子表格", "Write and read spreadsheets"});
        sheet->require_subcommand(1);
        CLI::App* write =
            Add(*sheet, "write",
                {"把设计规范写成电子表格(.xlsx)", "Write specifications as workbooks (.xlsx)"});
        write->callback([this] { m_run = RunSheetWrite; });
        write
            ->add_option("WORDS", m_arguments.names,
                         In({"[NAME...] FILE: 设计规范的名称或 GUID,不写则同 --spec;"
                             "然后是 .xlsx 文件,或放置各自文件的文件夹",
                             "[NAME...] FILE: names or GUIDs of specifications, that of --spec if "
                             "none is given; then the .xlsx file, or a folder for one each"}))
            ->type_name("")
            ->required();
        write->add_flag("--all", m_arguments.all, In({"全部设计规范", "All specifications"}));
        write->add_flag(
            "--together", m_arguments.together,
            In({"写入一个文件,各规范并列对照", "One workbook with all of them side by side"}));
        AddSheetRead(sheet);
    }

    void AddSheetRead(CLI::App* sheet)
    {
        CLI::App* read = Add(*sheet, "read",
                             {"读入电子表格(.xlsx、.ods、.csv),要么全部,要么都不",
                              "Read a spreadsheet (.xlsx, .ods, .csv), all of it or nothing"});
        read->callback([this] { m_run = RunSheetRead; });
        AddWord(read, "FILE", m_arguments.file,
                {"写出的电子表格,或一页的带标题的表",
                 "A workbook as it is written, or a table with captions for one page"})
            ->required();
        AddOption(read, "--new", "NAME", m_arguments.newSpec,
                  {"读成这个名称的新设计规范", "Make a new specification of that name of it"});
        AddDryRun(read);
        read->add_flag("--force", m_arguments.force,
                       In({"保存编辑器不接受的值", "Save also what the editor refuses"}));
    }

    void AddVerify()
    {
        VerifyArguments& verify = m_arguments.verify;
        CLI::App* command = Add(
            "verify",
            {"用设计规范检核道路(LandXML 文件)", "Hold roads (LandXML) against a specification"},
            RunVerify);
        command->add_option("FILE", verify.files, In({"道路文件", "Road files"}))
            ->type_name("")
            ->required();
        command
            ->add_option("--speed", verify.speeds,
                         In({"设计车速(km/h),或“起点桩号:终点桩号:车速”;可重复,优先于文件中的",
                             "The design speed (km/h), or FROM:TO:V between two stations; may be "
                             "repeated; overrides the file's"}))
            ->type_name("V")
            ->allow_extra_args(false);
        AddOption(command, "--mode", "M", m_arguments.mode,
                  {"表中没有该车速时的取值方式: nearest upper(默认) lower interpolate exact",
                   "What to take for a speed that is not in the table: nearest upper (the default) "
                   "lower interpolate exact"});
        command
            ->add_option("--alignment", verify.alignments,
                         In({"只检核该路线;可重复", "Only this alignment; may be repeated"}))
            ->type_name("NAME")
            ->allow_extra_args(false);
        AddOption(command, "--road-type", "TYPE", verify.roadType,
                  {"道路类型,用于合成坡度,默认城市道路",
                   "The type of road, for resultant gradients; 城市道路 if not given"});
        command->add_flag("--plateau", verify.plateau,
                          In({"高原地区纵坡折减", "Reduce gradients as on plateaus"}));
        command->add_flag("--snow", verify.snow,
                          In({"积雪冰冻地区的限值", "The limits of snowy and frozen regions"}));
        AddOption(command, "--max-super", "N", m_arguments.maxSuper,
                  {"采用哪个最大超高(%)的超高表;不写则按车速",
                   "The table of superelevations (maximum, %) to take; by speed if not given"});
        AddOption(
            command, "--axis", "AXIS", verify.axis,
            {"超高旋转轴: centre(默认) edge", "The axis of rotation: centre (the default) edge"});
        AddOption(command, "--car", "TYPE", m_arguments.car,
                  {"设计车型;不写则不提示加宽", "The design vehicle; no widening if not given"});
        AddOption(command, "--report", "FILE", verify.report,
                  {"报告文件,.html、.csv 或 .json", "A file for the report, .html, .csv or .json"});
        AddOption(command, "--jobs", "N", verify.jobs,
                  {"同时检核的文件数,默认为处理器核数",
                   "How many files at once; the number of cores if not given"});
        command->footer([this] { return RulesHelp(In({"规则:", "Rules:"})); });
    }

    const Language m_language = HelpLanguage();
    CLI::App m_app{"", "designspec"};
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
    } catch (const std::bad_alloc&) {
        Complain(L"内存不足");
        status = kFileFailed;
    }
    if (!Console::Flush()) {
        Complain(L"标准输出无法写入");
        return kFileFailed;
    }
    return teller.HasFailed() ? kFileFailed : status;
}
