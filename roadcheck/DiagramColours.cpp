#include "roadcheck/DiagramColours.h"

using namespace designspec;

namespace roadcheck {

DiagramColours::DiagramColours(const QPalette& palette)
    : DrawingColours(palette), band(Mixed(QColor(42, 157, 75), ground, 0.18)),
      bandEdge(Mixed(QColor(42, 157, 75), ground, 0.75))
{
}

} // namespace roadcheck
