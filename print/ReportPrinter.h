// Reports on printers.
#pragma once

#include <vector>

#include <QPrinter>

#include "print/PaperReport.h"

namespace designspec {

// The size of its paper in points, as it lies.
QSizeF PaperOf(const QPrinter& printer);

// Which of the sheets are asked for, counted from 0: all, those from one to another one, or some.
std::vector<int> SheetsAskedFor(const QPrinter& printer, int count);

// Draws these sheets. False when the printer does not take them.
bool PrintSheets(QPrinter& printer, const PaperReport& report, const std::vector<int>& sheets);

} // namespace designspec
