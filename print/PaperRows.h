// A report as one column of rows from top to bottom, before it is cut into sheets.
#pragma once

#include <vector>

#include "print/PaperFonts.h"
#include "report/ReportContents.h"

namespace designspec {

struct PaperCell {
    enum class Ground { None, Caption, Marked };

    double left = 0, width = 0; // from the left rim of the text
    QStringList lines;
    Qt::Alignment alignment = Qt::AlignLeft;
    Ground ground = Ground::None;
};

struct PaperRow {
    const PaperFont* font;
    double height;
    double before = 0;                      // white above it, but not at the top of a sheet
    bool isTable = false;                   // its cells have frames
    bool continues = false, goesOn = false; // of one too high for a sheet: a part of it
    bool keepsNext = false;                 // stands on the sheet of the next one
    bool startsSheet = false;
    std::ptrdiff_t head =
        -1; // the row with the captions, which stands again above it on a new sheet
    std::ptrdiff_t target = -1; // of an entry of the contents: the row that it leads to
    int level = -1;             // of what the contents list: 0 a specification, 1 one of its pages
    QString title = {};         // of these: on one line
    std::vector<PaperCell> cells = {};
};

// Left and right of a text in a table, above and below it.
inline constexpr double kCellRim = 3 * kUnitsPerPoint;
inline constexpr double kLineRim = 1.5 * kUnitsPerPoint;

// For sheets whose text is so wide and high, in units. The rows refer to the fonts.
std::vector<PaperRow> MakeRows(const ReportContents& report, const PaperFonts& fonts, double width,
                               double height);

} // namespace designspec
