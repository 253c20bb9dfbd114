#include "print/PaperFonts.h"

#include <cmath>

#include <QGuiApplication>
#include <QTextLayout>

namespace designspec {

namespace {

QFont MakeFont(double points, bool bold)
{
    QFont font = QGuiApplication::font();
    font.setPixelSize(static_cast<int>(std::lround(points * kUnitsPerPoint)));
    font.setBold(bold);
    font.setHintingPreference(QFont::PreferNoHinting); // it would be one for some other printer
    // The shapes that some fonts have for figures beside capitals cannot be read as text any more.
    font.setStyleStrategy(QFont::PreferNoShaping);
    return font;
}

} // namespace

PaperFont::PaperFont(double points, bool bold)
    : m_font(MakeFont(points, bold)), m_metrics(m_font),
      m_lineHeight(std::ceil(points * kUnitsPerPoint * 1.4))
{
}

double PaperFont::Baseline() const
{
    return (m_lineHeight - m_metrics.height()) / 2 + m_metrics.ascent();
}

double PaperFont::WidthOf(const QString& text) const
{
    const auto found = m_widths.constFind(text);
    return found != m_widths.cend() ? *found
                                    : *m_widths.insert(text, m_metrics.horizontalAdvance(text));
}

QStringList PaperFont::Wrap(const QString& text, double width) const
{
    if (WidthOf(text) <= width) return {text};
    QTextLayout layout(text, m_font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    QStringList lines;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        lines << text.mid(line.textStart(), line.textLength());
    }
    layout.endLayout();
    return lines;
}

QString PaperFont::Elided(const QString& text, double width) const
{
    return WidthOf(text) <= width ? text : m_metrics.elidedText(text, Qt::ElideRight, width);
}

} // namespace designspec
