// Specifications on paper: all their pages with tables, units and data sources.
#pragma once

#include <string>

#include "report/ReportContents.h"

namespace designspec {

// One file of HTML, UTF-8, without anything from elsewhere: a table of contents, then each
// specification, each on sheets of its own when it is printed (A4, with page numbers where the
// browser writes them). A table too wide for a sheet goes on below, with its captions again.
std::string HtmlReport(const std::vector<const CDesignSpecification*>& specifications,
                       const ReportOptions& options = {});

} // namespace designspec
