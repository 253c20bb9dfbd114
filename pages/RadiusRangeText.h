// Ranges of radii as users enter them: "150~250".
#pragma once

#include "platform/mfc/String.h"

struct RadiusRange {
    int min = 0; // m
    int max = 0; // m
};

// Reads `text`, with either end first and fractions cut off. Returns why it is refused; empty
// when `range` was written.
CString ReadRadiusRange(const CString& text, RadiusRange& range);
