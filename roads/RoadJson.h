// The report of a road check as JSON and as a table for spreadsheets.
#pragma once

#include "roads/RoadVerification.h"

namespace roadcheck {

// UTF-8, as docs/roadcheck.schema.json describes it; a line break at the end.
AFX_EXT_API std::string JsonReport(const std::vector<CheckedFile>& files);
// Comma-separated values, a finding or an unchecked stretch a line, with a heading: UTF-8 with a
// byte-order mark, by which spreadsheets know Chinese text; lines end in CR LF. A text that a
// spreadsheet would take for a formula has an apostrophe before it.
AFX_EXT_API std::string CsvReport(const std::vector<CheckedFile>& files);

} // namespace roadcheck
