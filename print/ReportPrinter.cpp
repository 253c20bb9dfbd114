#include "print/ReportPrinter.h"

#include <QPainter>

namespace designspec {

QSizeF PaperOf(const QPrinter& printer)
{
    return printer.pageLayout().fullRect(QPageLayout::Point).size();
}

std::vector<int> SheetsAskedFor(const QPrinter& printer, int count)
{
    const QPageRanges ranges = printer.pageRanges();
    std::vector<int> sheets;
    for (int sheet = 0; sheet < count; ++sheet)
        if (ranges.isEmpty() || ranges.contains(sheet + 1)) sheets.push_back(sheet);
    return sheets;
}

bool PrintSheets(QPrinter& printer, const PaperReport& report, const std::vector<int>& sheets)
{
    printer.setFullPage(true);
    QPainter painter;
    if (!painter.begin(&printer)) return false;
    const double scale = static_cast<double>(printer.resolution()) / kUnitsPerInch;
    bool isFirst = true;
    for (const int sheet : sheets) {
        if (!isFirst && !printer.newPage()) return false;
        isFirst = false;
        painter.save();
        painter.scale(scale, scale);
        report.Draw(painter, sheet);
        painter.restore();
    }
    return painter.end();
}

} // namespace designspec
