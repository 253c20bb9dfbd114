#include "platform/drawing/DrawingColours.h"

namespace designspec {

DrawingColours::DrawingColours(const QPalette& palette)
    : ground(palette.color(QPalette::Base)), text(palette.color(QPalette::Text)),
      hint(Mixed(text, ground, 0.7)), grid(Mixed(text, ground, 0.13)),
      zero(Mixed(text, ground, 0.45)), highlight(palette.color(QPalette::Highlight)),
      highlightedText(palette.color(QPalette::HighlightedText))
{
}

QColor Mixed(const QColor& over, const QColor& under, double part)
{
    const auto mixed = [part](int a, int b) { return static_cast<int>(part * a + (1 - part) * b); };
    return {mixed(over.red(), under.red()), mixed(over.green(), under.green()),
            mixed(over.blue(), under.blue())};
}

QPalette PaperPalette()
{
    QPalette paper(Qt::white, Qt::white);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text})
        paper.setColor(role, Qt::black);
    paper.setColor(QPalette::Base, Qt::white);
    return paper;
}

} // namespace designspec
