#include "pages/MyRadiusRangeColumn.h"

#include "base/Format.h"

using namespace designspec;

CMyRadiusRangeColumn::CMyRadiusRangeColumn(int itemIndex, int width)
    : CXTPReportColumn(itemIndex, {}, width)
{
}

void CMyRadiusRangeColumn::SetRange(int min, int max, bool excludesMin)
{
    m_min = min;
    m_max = max;
    SetCaption(Format(excludesMin ? L"%d<\nR≤\n%d" : L"%d≤\nR<\n%d", min, max));
}
