// A grid column for a range of circular curve radii.
#pragma once

#include "platform/xtp/report/ReportColumn.h"

class CMyRadiusRangeColumn : public CXTPReportColumn {
public:
    // For `itemIndex` and `width` see the base class.
    CMyRadiusRangeColumn(int itemIndex, int width);

    // Radii in metres. The caption, of three lines, says whether the range excludes its lower end
    // (min < R <= max) or its upper one (min <= R < max).
    void SetRange(int min, int max, bool excludesMin);
    int GetMin() const { return m_min; }
    int GetMax() const { return m_max; }

private:
    int m_min = 0;
    int m_max = 0;
};
