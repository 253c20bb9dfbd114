#include "cli/Project.h"

#include <cstdio>

#include "base/File.h"
#include "base/Format.h"
#include "base/Number.h"
#include "base/Text.h"
#include "cli/TextTable.h"
#include "platform/vmrd/VMRDEnv/DeletedStyles.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

using namespace designspec;

namespace {

CString NamesToChooseFrom(const CDesignSpecifications& library)
{
    if (library.Count() == 0) return L"项目中没有设计规范";
    CString text = L"可选:";
    for (int i = 0; i < library.Count(); ++i)
        text += L"\n  " + library.Item(i)->Name();
    return text;
}

} // namespace

CDesignSpecifications& OpenProject(const Arguments& arguments, ProjectUse use)
{
    if (!arguments.project.empty()) VMRDPub::SetCurPrjPath(PathArgument(arguments.project));
    const CString project = VMRDPub::GetCurPrjPath();
    if (!PathFileExists(project))
        throw CommandFailure{kFileFailed, Format(L"%s: 项目文件夹不存在", project)};
    if (use == ProjectUse::Read && !PathFileExists(StylesFolder()))
        throw CommandFailure{kFileFailed,
                             Format(L"%s: 不是项目文件夹,其中没有“规范”文件夹", project)};
    CDesignSpecifications& library = *CDesignSpecifications::GetInstance();
    library.Update();
    return library;
}

CDesignSpecification& SpecificationAt(const CDesignSpecifications& library, int index)
{
    return static_cast<CDesignSpecification&>(*library.Item(index));
}

CDesignSpecification& FindSpecification(CDesignSpecifications& library, const std::string& name)
{
    const CString wide = ToWide(name);
    if (CDesignSpecification* found = library.Item(wide.c_str())) return *found;
    GUID id;
    if (VMRDPub::ParseGUID(wide, id))
        if (CStyle* found = library.Item(id)) return static_cast<CDesignSpecification&>(*found);
    Refuse(Format(L"没有设计规范“%s”。%s", wide, NamesToChooseFrom(library)));
}

int IndexOf(const CDesignSpecifications& library, const CStyle& style)
{
    int index = 0;
    while (library.Item(index) != &style)
        ++index;
    return index;
}

CDesignSpecification& ChosenSpecification(CDesignSpecifications& library,
                                          const Arguments& arguments)
{
    if (arguments.spec) return FindSpecification(library, *arguments.spec);
    if (CStyle* style = library.DefaultItem()) return static_cast<CDesignSpecification&>(*style);
    if (library.Count() == 1) return SpecificationAt(library, 0);
    Refuse(L"没有默认的设计规范,请用 --spec 指定。" + NamesToChooseFrom(library));
}

CString PathArgument(const std::string& path)
{
    if (path.find('\\') != std::string::npos)
        Refuse(Format(L"路径“%s”含有反斜线,无法使用", ToWide(path)));
    return ToWide(path);
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
    const std::string utf8 = ToUtf8(text) + '\n';
    std::fwrite(utf8.data(), 1, utf8.size(), stdout);
}

void Complain(const CString& text)
{
    std::fprintf(stderr, "designspec: %s\n", ToUtf8(text).c_str());
}
