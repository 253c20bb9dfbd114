// The colours of diagrams.
#pragma once

#include "platform/drawing/DrawingColours.h"

namespace roadcheck {

struct DiagramColours : designspec::DrawingColours {
    explicit DiagramColours(const QPalette& palette);

    QColor band, bandEdge; // what the limits leave
};

} // namespace roadcheck
