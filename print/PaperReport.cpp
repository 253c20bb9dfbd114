#include "print/PaperReport.h"

#include <algorithm>

#include <QPainter>
#include <QSet>

namespace designspec {

namespace {

constexpr double kSide = 15 * kUnitsPerMillimetre;
constexpr double kEnd = 18 * kUnitsPerMillimetre; // top and bottom

const QString kSheetText = QStringLiteral("第 %1 页 共 %2 页");
constexpr QColor kLine(0x99, 0x99, 0x99);

QBrush Ground(PaperCell::Ground ground)
{
    switch (ground) {
    case PaperCell::Ground::Caption:
        return QColor(0xee, 0xee, 0xee);
    case PaperCell::Ground::Marked:
        return QColor(0xfd, 0xe6, 0x8a);
    default:
        return Qt::NoBrush;
    }
}

QRectF TextOn(const QSizeF& paper)
{
    const QRectF whole(QPointF(), paper * kUnitsPerPoint);
    return whole.adjusted(kSide, kEnd, -kSide, -kEnd);
}

} // namespace

PaperReport::PaperReport(const ReportContents& report, const QSizeF& paper)
    : m_paper(paper), m_text(TextOn(paper)),
      m_rows(MakeRows(report, m_fonts, m_text.width(), m_text.height())),
      m_sheets(PlaceRows(m_rows, m_text.height())), m_sheetOf(m_rows.size(), -1),
      m_topOf(m_rows.size(), 0)
{
    for (std::size_t sheet = 0; sheet < m_sheets.size(); ++sheet)
        for (const PlacedRow& placed : m_sheets[sheet]) {
            m_sheetOf[placed.row] = static_cast<int>(sheet);
            m_topOf[placed.row] = placed.top;
        }
}

void PaperReport::Draw(QPainter& painter, int sheet) const
{
    painter.save();
    painter.setPen(Qt::black);
    DrawRim(painter, sheet);
    painter.translate(m_text.topLeft());
    for (const PlacedRow& placed : m_sheets[static_cast<std::size_t>(sheet)])
        DrawRow(painter, m_rows[placed.row], placed.top);
    painter.restore();
}

void PaperReport::DrawRow(QPainter& painter, const PaperRow& row, double top) const
{
    painter.setFont(row.font->Font());
    for (const PaperCell& cell : row.cells)
        DrawCell(painter, row, cell, {cell.left, top, cell.width, row.height});
    if (row.target >= 0) DrawEntry(painter, row, top);
}

void PaperReport::DrawCell(QPainter& painter, const PaperRow& row, const PaperCell& cell,
                           const QRectF& box) const
{
    QRectF inside = box;
    if (row.isTable) {
        DrawFrame(painter, row, cell, box);
        inside.adjust(kCellRim, row.continues ? 0 : kLineRim, -kCellRim, 0);
    }
    painter.setPen(Qt::black);
    double baseline = inside.top() + row.font->Baseline();
    for (const QString& line : cell.lines) {
        const double free = inside.width() - row.font->WidthOf(line);
        const double left = inside.left() + (cell.alignment & Qt::AlignRight ? free : 0);
        painter.drawText(QPointF(left, baseline), line);
        baseline += row.font->LineHeight();
    }
}

void PaperReport::DrawFrame(QPainter& painter, const PaperRow& row, const PaperCell& cell,
                            const QRectF& box)
{
    painter.fillRect(box, Ground(cell.ground));
    painter.setPen(QPen(kLine, 0.5 * kUnitsPerPoint));
    painter.drawLine(box.topLeft(), box.bottomLeft());
    painter.drawLine(box.topRight(), box.bottomRight());
    if (!row.continues) painter.drawLine(box.topLeft(), box.topRight());
    if (!row.goesOn) painter.drawLine(box.bottomLeft(), box.bottomRight());
}

// Behind the last line: dots and the number of the sheet.
void PaperReport::DrawEntry(QPainter& painter, const PaperRow& row, double top) const
{
    const PaperCell& text = row.cells.front();
    const auto target = static_cast<std::size_t>(row.target);
    const QString number = QString::number(m_sheetOf[target] + 1);
    const double baseline = top + row.height - row.font->LineHeight() + row.font->Baseline();
    const double numberLeft = m_text.width() - row.font->WidthOf(number);
    const double rim = 2 * kCellRim;
    const double textEnd = text.left + row.font->WidthOf(text.lines.back());
    painter.drawText(QPointF(numberLeft, baseline), number);
    painter.setPen(QPen(kLine, 0.6 * kUnitsPerPoint, Qt::DotLine));
    painter.drawLine(QPointF(textEnd + rim, baseline), QPointF(numberLeft - rim, baseline));
    painter.setPen(Qt::black);
}

// The specification and the page that a sheet begins in; none on those of the contents.
QString PaperReport::TitleAtTop(int sheet, int level) const
{
    const PaperSheet& rows = m_sheets[static_cast<std::size_t>(sheet)];
    for (std::size_t row = rows.empty() ? 0 : rows.front().row + 1; row-- > 0;)
        if (m_rows[row].level >= 0 && m_rows[row].level <= level)
            return m_rows[row].level == level ? m_rows[row].title : QString();
    return {};
}

// Above and below the text.
void PaperReport::DrawRim(QPainter& painter, int sheet) const
{
    painter.setFont(m_fonts.rim.Font());
    const double line = m_fonts.rim.LineHeight();
    const QRectF above(m_text.left(), m_text.top() - 2 * line, m_text.width(), line);
    const QRectF below(m_text.left(), m_text.bottom() + line, m_text.width(), line);
    painter.drawText(above, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     m_fonts.rim.Elided(TitleAtTop(sheet, 0), m_text.width() * 0.6));
    painter.drawText(above, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine,
                     TitleAtTop(sheet, 1));
    painter.drawText(below, Qt::AlignCenter, kSheetText.arg(sheet + 1).arg(CountSheets()));
}

QString PaperReport::Characters() const
{
    QSet<QChar> characters;
    const auto add = [&](const QString& text) {
        for (const QChar c : text)
            characters.insert(c);
    };
    add(kSheetText + QStringLiteral("0123456789…"));
    for (const PaperRow& row : m_rows)
        for (const PaperCell& cell : row.cells)
            for (const QString& line : cell.lines)
                add(line);
    QString text;
    for (const QChar c : characters)
        text += c;
    std::sort(text.begin(), text.end());
    return text;
}

std::vector<PaperTarget> PaperReport::Targets() const
{
    std::vector<PaperTarget> targets;
    std::vector<std::size_t> targetOf(m_rows.size());
    const auto topOf = [&](std::size_t row) { return m_text.top() + m_topOf[row]; };
    for (std::size_t row = 0; row < m_rows.size(); ++row) {
        if (m_rows[row].level < 0) continue;
        targetOf[row] = targets.size();
        targets.push_back({m_rows[row].title, m_rows[row].level, m_sheetOf[row], topOf(row), {}});
    }
    for (std::size_t row = 0; row < m_rows.size(); ++row) {
        if (m_rows[row].target < 0) continue;
        const double left = m_rows[row].cells.front().left;
        const QRectF place(m_text.left() + left, topOf(row), m_text.width() - left,
                           m_rows[row].height);
        targets[targetOf[static_cast<std::size_t>(m_rows[row].target)]].links.push_back(
            {m_sheetOf[row], place});
    }
    return targets;
}

} // namespace designspec
