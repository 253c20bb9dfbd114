#include "roads/RoadVerification.h"

#include <algorithm>
#include <mutex>

#include "base/Format.h"
#include "base/SideBySide.h"
#include "roads/Checking.h"
#include "roads/RoadFileReading.h"

using namespace designspec;

namespace roadcheck {

Problems RoadsWithoutSpeed(const CheckedFile& file)
{
    Problems problems;
    for (const CheckedRoad& one : file.roads)
        if (!one.hasSpeed)
            AddProblem(problems, Severity::Error, file.path, 0,
                       Format(L"路线“%s”没有设计车速", one.road.name));
    return problems;
}

FindingCounts CountFindings(const std::vector<Finding>& findings)
{
    FindingCounts counts;
    for (const Finding& finding : findings)
        ++(finding.rule->severity == RuleSeverity::Error     ? counts.errors
           : finding.rule->severity == RuleSeverity::Warning ? counts.warnings
                                                             : counts.notes);
    return counts;
}

FindingCounts CountFindings(const std::vector<CheckedFile>& files)
{
    FindingCounts all;
    for (const CheckedFile& file : files)
        for (const CheckedRoad& one : file.roads) {
            const FindingCounts counts = CountFindings(one.report.findings);
            all.errors += counts.errors;
            all.warnings += counts.warnings;
            all.notes += counts.notes;
        }
    return all;
}

namespace {

bool HasRoad(const CheckedFile& file, const std::wstring& name)
{
    return std::any_of(file.roads.begin(), file.roads.end(),
                       [&](const CheckedRoad& one) { return one.road.name == name; });
}

// Names that none of the files has, as an error of the first.
void TellMissing(const std::vector<std::wstring>& names, std::vector<CheckedFile>& files)
{
    for (const std::wstring& name : names) {
        if (files.empty() || std::any_of(files.begin(), files.end(), [&](const CheckedFile& file) {
                return HasRoad(file, name);
            }))
            continue;
        const bool isOne = files.size() == 1;
        AddProblem(files[0].problems, Severity::Error, isOne ? files[0].path : L"", 0,
                   Format(L"%s没有路线“%s”", CString(isOne ? L"文件中" : L"各文件中都"), name));
    }
}

} // namespace

CheckedRoad CheckRoad(Alignment road, const CDesignSpecification& specification,
                      const CheckOptions& options, const std::atomic<bool>* cancel)
{
    CheckedRoad one;
    one.road = std::move(road);
    Checking checking(one.road, specification, options);
    one.hasSpeed = !checking.speeds.IsEmpty();
    if (one.hasSpeed) one.report = checking.Run(cancel);
    return one;
}

CheckedFile CheckRoadFile(const std::wstring& path, const std::vector<std::wstring>& alignments,
                          const CDesignSpecification& specification, const CheckOptions& options,
                          const std::atomic<bool>* cancel)
{
    RoadFile read = ReadRoadFile(path, cancel);
    CheckedFile file = {path, std::move(read.problems), {}};
    for (Alignment& road : read.alignments) {
        const bool isMeant = alignments.empty() || std::find(alignments.begin(), alignments.end(),
                                                             road.name) != alignments.end();
        if (isMeant)
            file.roads.push_back(CheckRoad(std::move(road), specification, options, cancel));
    }
    return file;
}

std::vector<CheckedFile>
CheckRoadFiles(const std::vector<std::wstring>& paths, const std::vector<std::wstring>& alignments,
               const CDesignSpecification& specification, const CheckOptions& options, int jobs,
               const std::function<void(size_t)>& onDone, const std::atomic<bool>* cancel)
{
    std::vector<CheckedFile> files(paths.size());
    size_t done = 0;
    std::mutex telling;
    SideBySide(paths.size(), static_cast<size_t>(std::max(jobs, 1)), [&](size_t i) {
        files[i] = CheckRoadFile(paths[i], alignments, specification, options, cancel);
        const std::lock_guard lock(telling);
        ++done;
        if (onDone) onDone(done);
    });
    TellMissing(alignments, files);
    return files;
}

} // namespace roadcheck
