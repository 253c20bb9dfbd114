#include "roads/ReportFile.h"

#include "base/NoCase.h"
#include "roads/HtmlReport.h"
#include "roads/RoadJson.h"

using namespace designspec;

namespace roadcheck {

WriteReport ReportOf(std::wstring_view file)
{
    static constexpr std::pair<std::wstring_view, WriteReport> kReports[] = {
        {L".html", HtmlReport},
        {L".csv", [](const auto& files, const auto&, const auto&) { return CsvReport(files); }},
        {L".json", [](const auto& files, const auto&, const auto&) { return JsonReport(files); }},
    };
    for (const auto& [ending, write] : kReports)
        if (file.size() > ending.size() &&
            EqualNoCase(file.substr(file.size() - ending.size()), ending))
            return write;
    return nullptr;
}

} // namespace roadcheck
