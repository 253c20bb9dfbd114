// A report laid out on sheets of paper, to be drawn on whatever takes them: a file, a printer, a
// preview.
#pragma once

#include <QRectF>
#include <QSizeF>

#include "print/PaperSheets.h"

class QPainter;

namespace designspec {

// What leads to a place: in the contents, and in the list beside the sheets that viewers show.
struct PaperLink {
    int sheet; // counted from 0
    QRectF place;
};
struct PaperTarget {
    QString title;
    int level; // 0 a specification, 1 one of its pages
    int sheet;
    double top;
    std::vector<PaperLink> links; // to it
};

class PaperReport {
public:
    // For paper of that size in points.
    PaperReport(const ReportContents& report, const QSizeF& paper);
    PaperReport(const PaperReport&) = delete;
    PaperReport& operator=(const PaperReport&) = delete;

    QSizeF Paper() const { return m_paper; }
    int CountSheets() const { return static_cast<int>(m_sheets.size()); }
    // With the origin of the painter in the paper's corner, and kUnitsPerInch units for an inch.
    void Draw(QPainter& painter, int sheet) const;
    // In the order of their places, which are in these units from the paper's corner.
    std::vector<PaperTarget> Targets() const;

    // Each that is drawn somewhere, once.
    QString Characters() const;

private:
    void DrawRow(QPainter& painter, const PaperRow& row, double top) const;
    void DrawCell(QPainter& painter, const PaperRow& row, const PaperCell& cell,
                  const QRectF& box) const;
    static void DrawFrame(QPainter& painter, const PaperRow& row, const PaperCell& cell,
                          const QRectF& box);
    void DrawEntry(QPainter& painter, const PaperRow& row, double top) const;
    void DrawRim(QPainter& painter, int sheet) const;
    QString TitleAtTop(int sheet, int level) const;

    const QSizeF m_paper;
    const PaperFonts m_fonts;
    const QRectF m_text; // what rows may take of the paper
    std::vector<PaperRow> m_rows;
    std::vector<PaperSheet> m_sheets;
    std::vector<int> m_sheetOf; // of each row; of captions that stand again the last one
    std::vector<double> m_topOf;
};

} // namespace designspec
