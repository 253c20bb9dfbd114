#include <algorithm>
#include <thread>

#include "base/File.h"
#include "base/Format.h"
#include "base/NoCase.h"
#include "base/Text.h"
#include "cli/Console.h"
#include "cli/JsonText.h"
#include "cli/Mode.h"
#include "cli/TextTable.h"
#include "roads/ReportFile.h"
#include "roads/RoadJson.h"
#include "roads/Rules.h"

using namespace designspec;
using namespace roadcheck;

namespace {

constexpr wchar_t kSpeed[] = L"设计车速";

double Station(const std::wstring& text)
{
    if (const auto station = ParseStation(text)) return *station;
    Refuse(Format(L"“%s”不是桩号", text));
}

// "V" or "FROM:TO:V".
SpeedChoice ParseSpeed(const std::string& word)
{
    const std::wstring text = ToWide(word);
    const size_t first = text.find(L':');
    if (first == std::wstring::npos) return {{}, IntArgument(word, kSpeed)};
    const size_t second = text.find(L':', first + 1);
    if (second == std::wstring::npos) Refuse(Format(L"--speed “%s”不是 V 或 FROM:TO:V", text));
    const double from = Station(text.substr(0, first));
    const double to = Station(text.substr(first + 1, second - first - 1));
    return {SpeedChoice::Stretch{from, to}, IntArgument(ToUtf8(text.substr(second + 1)), kSpeed)};
}

CDSMaxResultantGrad::RoadType ParseRoadType(const std::string& word)
{
    CString choices;
    for (int type = 0; type < CDSMaxResultantGrad::kRoadTypes; ++type) {
        if (ToWide(word) == RoadTypeLabel(type))
            return static_cast<CDSMaxResultantGrad::RoadType>(type);
        choices += CString(L" ") + RoadTypeLabel(type);
    }
    Refuse(Format(L"没有道路类型“%s”。可选:%s", ToWide(word), choices));
}

RunoffAxis ParseAxis(const std::string& word)
{
    if (word == "centre" || word == "center") return RunoffAxis::Centre;
    if (word == "edge") return RunoffAxis::Edge;
    Refuse(Format(L"没有超高旋转轴“%s”。可选: centre edge", ToWide(word)));
}

CheckOptions OptionsOf(const Arguments& arguments)
{
    const VerifyArguments& verify = arguments.verify;
    CheckOptions options;
    for (const std::string& word : verify.speeds)
        options.speeds.push_back(ParseSpeed(word));
    if (arguments.mode) options.mode = ParseMode(*arguments.mode);
    if (verify.roadType) options.roadType = ParseRoadType(*verify.roadType);
    options.plateau = verify.plateau;
    options.snow = verify.snow;
    if (arguments.maxSuper) options.maxSuper = IntArgument(*arguments.maxSuper, L"最大超高");
    if (verify.axis) options.axis = ParseAxis(*verify.axis);
    return options;
}

int JobsOf(const VerifyArguments& verify)
{
    const int jobs = verify.jobs ? IntArgument(*verify.jobs, L"--jobs ")
                                 : static_cast<int>(std::thread::hardware_concurrency());
    if (verify.jobs && (jobs < 1 || jobs > 1024))
        Refuse(Format(L"--jobs “%d”不在 1 到 1024 之间", jobs));
    return std::max(jobs, 1);
}

void PrintRoad(const CheckedRoad& one, const CString& heading)
{
    PrintLine(heading);
    const Stationing& stations = one.road.stations;
    TextTable findings(false);
    for (const Finding& finding : one.report.findings)
        findings.AddRow({stations.Text(finding.from), L"~", stations.Text(finding.to),
                         SeverityLabel(finding.rule->severity), finding.rule->id, finding.message,
                         finding.source});
    for (const CString& line : findings.Lines(2))
        PrintLine(line);
    if (one.report.unchecked.empty()) return;
    PrintLine(L"  未检核:");
    TextTable unchecked(false);
    for (const Unchecked& each : one.report.unchecked)
        unchecked.AddRow({stations.Text(each.from), L"~", stations.Text(each.to),
                          each.rule ? each.rule->id : L"*", each.why});
    for (const CString& line : unchecked.Lines(4))
        PrintLine(line);
}

void PrintText(const std::vector<CheckedFile>& files)
{
    for (const CheckedFile& file : files)
        for (const CheckedRoad& one : file.roads)
            if (one.hasSpeed)
                PrintRoad(one, Format(L"%s: 路线“%s” %s ~ %s", Printable(file.path),
                                      Printable(one.road.name), one.road.stations.Text(0),
                                      one.road.stations.Text(one.road.length)));
    const FindingCounts counts = CountFindings(files);
    PrintLine(Format(L"错误 %d, 警告 %d, 提示 %d", counts.errors, counts.warnings, counts.notes));
}

// Tells roads that nothing could be asked of; whether there are any.
bool TellRoadsWithoutSpeed(const std::vector<CheckedFile>& files)
{
    bool any = false;
    for (const CheckedFile& file : files)
        for (const CheckedRoad& one : file.roads)
            if (!one.hasSpeed) {
                Complain(
                    Format(L"%s: 路线“%s”没有设计车速, 请用 --speed V 或 --speed FROM:TO:V 给出",
                           file.path, one.road.name));
                any = true;
            }
    return any;
}

} // namespace

std::string RulesHelp(const char* heading)
{
    TextTable rules(false);
    for (const Rule& rule : Rules())
        rules.AddRow({rule.id, SeverityLabel(rule.severity), rule.title});
    std::string text = heading;
    for (const CString& line : rules.Lines(2))
        text += "\n" + ToUtf8(line);
    return text;
}

Status RunVerify(const Arguments& arguments, Teller& teller)
{
    const VerifyArguments& verify = arguments.verify;
    CheckOptions options = OptionsOf(arguments);
    const int jobs = JobsOf(verify);
    const WriteReport write = verify.report ? ReportOf(ToWide(*verify.report)) : nullptr;
    if (verify.report && !write)
        Refuse(Format(L"报告“%s”的扩展名不是 .html、.csv 或 .json", ToWide(*verify.report)));
    std::vector<std::wstring> paths, names;
    for (const std::string& file : verify.files)
        paths.push_back(PathArgument(file));
    for (const std::string& name : verify.alignments)
        names.push_back(ToWide(name));

    Project project(arguments, teller);
    const CDesignSpecification& specification = project.Chosen(arguments);
    if (arguments.car) options.car = ToWide(*arguments.car);
    if (const CString problem = OptionsProblem(options, specification); !problem.empty())
        Refuse(problem);

    const bool shown = Console::IsErrorShown();
    const auto progress = [&](size_t done) {
        if (shown && paths.size() > 1)
            Console::WriteError(done < paths.size() ? "\r" + std::to_string(done) + '/' +
                                                          std::to_string(paths.size())
                                                    : "\r\033[K");
    };
    const std::vector<CheckedFile> files =
        CheckRoadFiles(paths, names, specification, options, jobs, progress);

    for (const CheckedFile& file : files)
        teller.Tell(file.problems);
    if (arguments.json)
        PrintBytes(JsonReport(files));
    else
        PrintText(files);
    if (write) {
        Problems problems;
        WriteWholeFile(PathArgument(*verify.report), write(files, specification, options),
                       problems);
        teller.Tell(problems);
    }
    if (TellRoadsWithoutSpeed(files)) return kWrongCall;
    return CountFindings(files).errors > 0 ? kNoAnswer : kDone;
}
