// Links within a PDF file, which the painter of such files does not know.
#pragma once

#include <qpdf/QPDF.hh>

#include "print/PaperReport.h"

namespace designspec {

// Adds links to the targets, and an outline of them: specifications, their pages below them. Throws
// std::exception when the file has not that many pages.
void AddLinks(QPDF& pdf, const std::vector<PaperTarget>& targets);

} // namespace designspec
