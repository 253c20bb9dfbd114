// The reports that files can hold, by the endings of their names.
#pragma once

#include "roads/RoadVerification.h"

namespace roadcheck {

using WriteReport = std::string (*)(const std::vector<CheckedFile>& files,
                                    const CDesignSpecification& specification,
                                    const CheckOptions& options);

// What makes the content of such a file: .html, .csv and .json, in any case; null for others.
AFX_EXT_API WriteReport ReportOf(std::wstring_view file);

} // namespace roadcheck
