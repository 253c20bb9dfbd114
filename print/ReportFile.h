// Reports of specifications as files.
#pragma once

#include "base/Problem.h"
#include "print/PaperReport.h"

namespace designspec {

// With links and the fonts. Throws std::exception when it could not be made.
std::string PdfOf(const PaperReport& report, const QString& title);

// Writes a report, by the ending of the file's name as PDF or as HTML, whole or not at all. False
// with the cause among the problems.
bool WriteReport(const CString& path,
                 const std::vector<const CDesignSpecification*>& specifications,
                 const ReportOptions& options, Problems& problems);

} // namespace designspec
