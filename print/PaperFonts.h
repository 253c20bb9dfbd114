// The fonts of what is printed, and the unit in which sheets are measured.
#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QHash>
#include <QStringList>

namespace designspec {

// Sheets are measured in twentieths of a point: what is laid out is the same for each printer.
inline constexpr int kUnitsPerPoint = 20;
inline constexpr int kUnitsPerInch = 72 * kUnitsPerPoint;
inline constexpr double kUnitsPerMillimetre = kUnitsPerInch / 25.4;

class PaperFont {
public:
    PaperFont(double points, bool bold);

    const QFont& Font() const { return m_font; }
    double LineHeight() const { return m_lineHeight; }
    double Baseline() const; // from the top of a line
    // In units.
    double WidthOf(const QString& text) const;
    // The lines of a text that is not to be wider; one at least.
    QStringList Wrap(const QString& text, double width) const;
    // The text with an ellipsis at its end where it is wider.
    QString Elided(const QString& text, double width) const;

private:
    QFont m_font;
    QFontMetricsF m_metrics;
    double m_lineHeight;
    mutable QHash<QString, double> m_widths; // that were measured; tables repeat their texts
};

struct PaperFonts {
    PaperFont title{18, true}, chapter{15, true}, section{12, true}, heading{10, true};
    PaperFont text{9.5, false}, rim{8, false};
};

} // namespace designspec
