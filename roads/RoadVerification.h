// Road files held against a specification, several at once.
#pragma once

#include <atomic>
#include <functional>

#include "roads/RoadCheck.h"

namespace roadcheck {

struct CheckedRoad {
    Alignment road;
    bool hasSpeed = false; // false: no design speed anywhere on it; nothing was checked
    AlignmentReport report;
};

struct CheckedFile {
    std::wstring path;
    designspec::Problems problems;
    std::vector<CheckedRoad> roads;
};

// The roads that have no design speed, each as an error of its file.
AFX_EXT_API designspec::Problems RoadsWithoutSpeed(const CheckedFile& file);

// How many findings there are of each severity.
struct FindingCounts {
    int errors = 0, warnings = 0, notes = 0;
};
AFX_EXT_API FindingCounts CountFindings(const std::vector<Finding>& findings);
AFX_EXT_API FindingCounts CountFindings(const std::vector<CheckedFile>& files);

// Checks a road; nothing is checked where no design speed holds anywhere on it. Asks no further
// rule once `cancel` is true.
AFX_EXT_API CheckedRoad CheckRoad(Alignment road, const CDesignSpecification& specification,
                                  const CheckOptions& options,
                                  const std::atomic<bool>* cancel = nullptr);

// Reads a file and checks those of its alignments that are named, or all when none is. Ends early
// once `cancel` is true.
AFX_EXT_API CheckedFile CheckRoadFile(const std::wstring& path,
                                      const std::vector<std::wstring>& alignments,
                                      const CDesignSpecification& specification,
                                      const CheckOptions& options,
                                      const std::atomic<bool>* cancel = nullptr);

// The same for many, `jobs` (at least 1) at once, in the order of the paths. `onDone` is called
// after each with how many are done, from one thread at a time; it may be empty. What a file throws
// goes on to the caller when all threads have ended. A name that no file has is an error among the
// problems of the first.
AFX_EXT_API std::vector<CheckedFile> CheckRoadFiles(const std::vector<std::wstring>& paths,
                                                    const std::vector<std::wstring>& alignments,
                                                    const CDesignSpecification& specification,
                                                    const CheckOptions& options, int jobs,
                                                    const std::function<void(size_t)>& onDone = {},
                                                    const std::atomic<bool>* cancel = nullptr);

} // namespace roadcheck
