// The colours of diagrams, made of those of the window.
#pragma once

#include <QColor>
#include <QPalette>

namespace roadcheck {

struct DiagramColours {
    explicit DiagramColours(const QPalette& palette);

    QColor ground, text, hint;
    QColor grid, zero;     // lines at round numbers, and that at 0
    QColor band, bandEdge; // what the limits leave
    QColor highlight, highlightedText;
};

// Those of paper, for pictures that are put into documents.
QPalette PaperPalette();

} // namespace roadcheck
