// Reports of specifications for paper and files, as the style manager offers them.
#pragma once

#include <vector>

#include "platform/mfc/String.h"
#include "report/ReportContents.h"

class QWidget;

namespace designspec {

// Each asks the user what is to be asked, and gives what is to be told of it; empty when nothing
// was done.
CString PrintReport(const std::vector<CDesignSpecification>& specifications,
                    const ReportOptions& options, QWidget* owner);
CString ExportReport(const std::vector<CDesignSpecification>& specifications,
                     const ReportOptions& options, QWidget* owner);
CString PreviewReport(const std::vector<CDesignSpecification>& specifications, QWidget* owner);

} // namespace designspec
