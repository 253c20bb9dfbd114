#include "platform/xtp/report/ReportColumn.h"

CXTPReportColumn::CXTPReportColumn(int itemIndex, const CString& caption, int width, bool autoSize,
                                   bool sortable, bool visible)
    : m_itemIndex(itemIndex), m_caption(caption), m_width(width), m_autoSize(autoSize),
      m_sortable(sortable), m_visible(visible)
{
}
