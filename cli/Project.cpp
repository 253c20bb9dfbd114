#include "cli/Project.h"

#include "base/File.h"
#include "base/FileSystem.h"
#include "base/Format.h"
#include "base/Number.h"
#include "base/Text.h"
#include "cli/Console.h"
#include "cli/TextTable.h"
#include "library/StyleName.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

using namespace designspec;

namespace {

// The folder of the project that the command line names.
CString FolderOf(const Arguments& arguments, ProjectUse use)
{
    const CString project =
        arguments.project.empty() ? VMRDPub::GetCurPrjPath() : PathArgument(arguments.project);
    Problems problems;
    const auto isThere = [&](const CString& path) {
        const auto there = PathFileExists(path, problems);
        if (!there) throw CommandFailure{kFileFailed, problems.back().Text()};
        return *there;
    };
    if (!isThere(project))
        throw CommandFailure{kFileFailed, Format(L"%s: 项目文件夹不存在", project)};
    CString folder = StylesFolderOf(project);
    if (use != ProjectUse::Create && !isThere(folder))
        throw CommandFailure{kFileFailed,
                             Format(L"%s: 不是项目文件夹,其中没有“规范”文件夹", project)};
    return folder;
}

std::chrono::seconds WaitOf(const Arguments& arguments)
{
    constexpr int kUsual = 30;
    constexpr int kLongest = 24 * 60 * 60;
    const int seconds = arguments.wait ? IntArgument(*arguments.wait, L"--wait ") : kUsual;
    if (seconds < 0 || seconds > kLongest)
        Refuse(Format(L"--wait “%d”不在 0 到 %d 秒之间", seconds, kLongest));
    return std::chrono::seconds(seconds);
}

} // namespace

Project::Project(const Arguments& arguments, Teller& teller, ProjectUse use)
    : m_teller(teller), m_folder(FolderOf(arguments, use))
{
    if (use != ProjectUse::Read) Hold(WaitOf(arguments));
    m_loadProblems = m_folder.Load().problems;
    if (const auto id = m_folder.Default(m_loadProblems)) m_default = m_folder.Find(*id);
    m_teller.Tell(m_loadProblems);
}

void Project::Hold(std::chrono::seconds patience)
{
    m_folder.Files().SetPatience(patience, [](const CString& holder) {
        Complain(Format(L"项目正由 %s 修改,请稍候", holder));
    });
    Problems problems;
    m_held.emplace(m_folder.Hold(problems));
    m_teller.Tell(problems);
    if (!*m_held) throw CommandFailure{kFileFailed, L"未作任何修改"};
}

Status Project::StatusOf(const Outcome& outcome)
{
    m_teller.Tell(outcome.problems);
    return outcome.done ? kDone : kFileFailed;
}

CString Project::NamesToChooseFrom() const
{
    if (m_folder.Count() == 0) return L"项目中没有设计规范";
    CString text = L"可选:";
    for (int i = 0; i < m_folder.Count(); ++i)
        text += L"\n  " + Printable(m_folder.Item(i)->Name());
    return text;
}

CDesignSpecification* Project::FindIfThere(const std::string& name) const
{
    const CString wide = ToWide(name);
    if (CDesignSpecification* found = m_folder.Find(wide.c_str())) return found;
    GUID id;
    return VMRDPub::ParseGUID(wide, id) ? m_folder.Find(id) : nullptr;
}

CDesignSpecification& Project::Find(const std::string& name) const
{
    if (CDesignSpecification* found = FindIfThere(name)) return *found;
    Refuse(Format(L"没有设计规范“%s”。%s", ToWide(name), NamesToChooseFrom()));
}

CDesignSpecification& Project::Chosen(const Arguments& arguments) const
{
    if (arguments.spec) return Find(*arguments.spec);
    if (m_default) return *m_default;
    if (m_folder.Count() == 1) return *m_folder.Item(0);
    Refuse(L"没有默认的设计规范,请用 --spec 指定。" + NamesToChooseFrom());
}

CString PathArgument(const std::string& path)
{
    CString wide = ToWide(path);
    if (!FileSystem::IsPath(wide)) Refuse(Format(L"路径“%s”含有反斜线,无法使用", wide));
    return wide;
}

ValuePath ParsePath(const std::string& path)
{
    const ParsedPath parsed = ParseValuePath(ToWide(path));
    if (parsed.problem.empty()) return parsed.path;
    if (!parsed.isWrongName) Refuse(parsed.problem);
    CString text = parsed.problem + L"。可选:";
    if (parsed.path.criterion) Refuse(text + FieldList(*parsed.path.criterion));
    for (const CriterionInfo& criterion : Criteria())
        text += Format(L"\n  %s  %s", CString(criterion.name), CString(criterion.label));
    Refuse(text);
}

CString FieldList(const CriterionInfo& criterion, int indent)
{
    TextTable table(false);
    for (const PathLabel& one : PathsOf(criterion))
        table.AddRow({one.path, one.label});
    CString text;
    for (const CString& line : table.Lines(indent))
        text += L"\n" + line;
    return text;
}

CString NameArgument(const SpecificationFolder& folder, const std::string& text,
                     const CString& openedName)
{
    CString name = Trim(ToWide(text));
    if (const CString problem = StyleNameProblem(folder, name, openedName); !problem.empty())
        Refuse(problem);
    return name;
}

int IntArgument(const std::string& text, const wchar_t* what)
{
    int value = 0;
    if (!ParseInt(text, value)) Refuse(Format(L"%s“%s”不是整数", CString(what), ToWide(text)));
    return value;
}

double DoubleArgument(const std::string& text, const wchar_t* what)
{
    double value = 0;
    if (!ParseDouble(text, value)) Refuse(Format(L"%s“%s”不是数", CString(what), ToWide(text)));
    return value;
}

void PrintLine(const CString& text)
{
    Console::Write(ToUtf8(text) + '\n');
}

void PrintBytes(const std::string& bytes)
{
    Console::Write(bytes);
}

void Complain(const CString& text)
{
    Console::WriteError("designspec: " + ToUtf8(text) + '\n');
}
