// How a severity looks: a colour and a shape, so that it is told apart without colours as well.
#pragma once

#include <QColor>
#include <QRectF>

#include "roads/Rules.h"

class QPainter;

namespace roadcheck {

// One that can be read on that ground.
QColor SeverityColour(RuleSeverity severity, const QColor& ground);
// A diamond for an error, a triangle for a warning, a disc for a note, with a rim of the ground's
// colour.
void DrawSeverityMark(QPainter& painter, RuleSeverity severity, const QRectF& place,
                      const QColor& ground);

} // namespace roadcheck
