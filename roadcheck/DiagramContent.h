// What a view of diagrams shows.
#pragma once

#include <QString>

#include "roads/Diagram.h"

namespace roadcheck {

// A finding, on the diagrams that it belongs to.
struct DiagramMark {
    double from = 0, to = 0; // m along
    RuleSeverity severity = RuleSeverity::Error;
    QString message;
    bool isShown = true;
};

struct ShownDiagram {
    Diagram diagram;
    ValueSpan span;
};

struct DiagramContent {
    double length = 0; // of the road, m
    Stationing stations;
    std::vector<ShownDiagram> diagrams;
    std::vector<DiagramMark> marks; // in the order of the findings
    int selected = -1;              // of them; -1: none

    bool IsEmpty() const { return diagrams.empty() || length <= 0; }
};

} // namespace roadcheck
