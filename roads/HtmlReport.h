// The report of a road check as a page to read and to print.
#pragma once

#include "roads/RoadVerification.h"

namespace roadcheck {

struct Diagram;

// One file in itself: findings, what was not checked, and diagrams with the findings on them.
AFX_EXT_API std::string HtmlReport(const std::vector<CheckedFile>& files,
                                   const CDesignSpecification& specification,
                                   const CheckOptions& options);
// One diagram of a road as SVG, UTF-8.
AFX_EXT_API std::string SvgDiagram(const Alignment& road, const AlignmentReport& report,
                                   const Diagram& diagram);

} // namespace roadcheck
