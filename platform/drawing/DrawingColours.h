// The colours of drawings of numbers, made of those of the window.
#pragma once

#include <QColor>
#include <QPalette>

#include "base/Export.h"

namespace designspec {

struct AFX_EXT_CLASS DrawingColours {
    explicit DrawingColours(const QPalette& palette);

    QColor ground, text, hint;
    QColor grid, zero; // lines at round numbers, and that at 0
    QColor highlight, highlightedText;
};

// `part` (0 to 1) of the one over the other.
AFX_EXT_API QColor Mixed(const QColor& over, const QColor& under, double part);

// The palette of paper, for pictures that are put into documents.
AFX_EXT_API QPalette PaperPalette();

} // namespace designspec
