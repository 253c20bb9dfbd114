#include "base/File.h"
#include "base/Format.h"
#include "base/NoCase.h"
#include "base/Text.h"
#include "cli/SpecificationChange.h"
#include "sheets/SpreadsheetReading.h"
#include "sheets/WorkbookWriting.h"

using namespace designspec;

namespace {

using Specifications = std::vector<const CDesignSpecification*>;

bool IsWorkbookName(const CString& file)
{
    const std::size_t length = std::size(kWorkbookEnding) - 1;
    return file.size() > length && EqualNoCase(file.substr(file.size() - length), kWorkbookEnding);
}

// Those that the words before the last one name.
Specifications Named(const Project& project, const Arguments& arguments)
{
    Specifications named;
    if (arguments.all) {
        if (arguments.names.size() > 1) Refuse(L"已有 --all,不要再写名称");
        for (int i = 0; i < project.Folder().Count(); ++i)
            named.push_back(project.Folder().Item(i));
        if (named.empty()) Refuse(L"项目中没有设计规范");
        return named;
    }
    for (std::size_t i = 0; i + 1 < arguments.names.size(); ++i)
        named.push_back(&project.Find(arguments.names[i]));
    if (named.empty()) named.push_back(&project.Chosen(arguments));
    return named;
}

// Before anything is written.
void RefuseBadNames(const CString& folder, const Specifications& specifications)
{
    for (const CDesignSpecification* one : specifications)
        if (WorkbookIn(folder, *one).empty())
            Refuse(Format(L"“%s”不能作文件名", Printable(one->Name() + kWorkbookEnding)));
}

} // namespace

Status RunSheetWrite(const Arguments& arguments, Teller& teller)
{
    const CString target = PathArgument(arguments.names.back());
    const bool isFile = IsWorkbookName(target);
    Project project(arguments, teller);
    const Specifications specifications = Named(project, arguments);
    if (isFile && specifications.size() > 1 && !arguments.together)
        Refuse(L"几个设计规范要写入一个文件夹,或用 --together 写入一个文件");
    const bool isFolder =
        !isFile && !arguments.together && (specifications.size() > 1 || PathFileExists(target));
    if (!isFile && !isFolder) Refuse(Format(L"文件“%s”应以 .xlsx 结尾", target));
    if (isFolder) RefuseBadNames(target, specifications);
    Problems problems;
    const WorkbookStamp stamp = StampOf(ToWide("designspec " DESIGNSPEC_VERSION));
    const bool written = isFile ? WriteWorkbook(target, specifications, stamp, problems)
                                : WriteWorkbooks(target, specifications, stamp, problems);
    teller.Tell(problems);
    return written ? kDone : kFileFailed;
}

Status RunSheetRead(const Arguments& arguments, Teller& teller)
{
    if (arguments.newSpec && arguments.spec) Refuse(L"--spec 与 --new 只能写一个");
    const CString file = PathArgument(arguments.file);
    SpreadsheetReading reading = SpreadsheetReading::OfFile(file);
    if (HasError(reading.Problems())) RefuseReading(reading.Problems(), teller);

    const ProjectUse use = arguments.dryRun    ? ProjectUse::Read
                           : arguments.newSpec ? ProjectUse::Create
                                               : ProjectUse::Change;
    Project project(arguments, teller, use);
    auto changed = std::make_unique<CDesignSpecification>();
    CDesignSpecification* target = nullptr;
    if (arguments.newSpec) {
        changed->SetName(NameArgument(project.Folder(), *arguments.newSpec, {}).c_str());
    } else {
        target = &TargetOf(project, arguments, reading.Identity(), reading.Name());
        *changed = *target;
    }
    reading.ApplyTo(*changed);
    if (HasError(reading.Problems())) RefuseReading(reading.Problems(), teller);
    teller.Tell(reading.Problems());
    return target ? ChangeTo(project, *target, *changed, arguments, teller)
                  : AddNew(project, std::move(changed), arguments, teller);
}
