#include "base/File.h"
#include "base/Format.h"
#include "base/NoCase.h"
#include "base/Text.h"
#include "cli/Operands.h"
#include "report/SpecificationReport.h"

using namespace designspec;

namespace {

CString ReportFile(const Arguments& arguments)
{
    CString file = PathArgument(*arguments.output);
    const CString ending = file.substr(std::min(file.find_last_of(L'.'), file.size()));
    if (!EqualNoCase(ending, L".html") && !EqualNoCase(ending, L".htm"))
        Refuse(Format(L"报告“%s”的扩展名不是 .html", file));
    return file;
}

} // namespace

Status RunReport(const Arguments& arguments, Teller& teller)
{
    const CString file = ReportFile(arguments);
    Operands operands(arguments, teller);
    std::vector<const CDesignSpecification*> reported;
    for (const std::string& word : arguments.names)
        for (const CDesignSpecification* const one : operands.FindAll(word))
            reported.push_back(one);
    if (reported.empty()) reported.push_back(&operands.Library().Chosen(arguments));
    ReportOptions options;
    if (arguments.from) options.comparedWith = &operands.Find(*arguments.from);
    Problems problems;
    const bool written = WriteWholeFile(file, HtmlReport(reported, options), problems);
    teller.Tell(problems);
    return written ? kDone : kFileFailed;
}
