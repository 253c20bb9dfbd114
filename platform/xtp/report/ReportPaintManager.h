// How the report grid looks: heights, header, lines.
#pragma once

#include <QColor>
#include <QFont>
#include <QRect>

#include "base/Export.h"

class CXTPReportColumn;
class CXTPReportControl;
class CXTPReportRecord;
class QPainter;

// Heights are in pixels at 100 % scale. Colours and font follow the grid's, light or dark. Nothing
// here may be asked before a grid has taken the paint manager.
class AFX_EXT_CLASS CXTPReportPaintManager {
public:
    virtual ~CXTPReportPaintManager() = default;

    // Of one row; here the default height, which follows the font.
    virtual int GetRowHeight(const CXTPReportRecord* record) const;
    // Draws one column's header; here the background, then the caption in the middle, with its
    // line breaks.
    virtual void DrawColumnHeader(QPainter& painter, const QRect& rect,
                                  const CXTPReportColumn* column) const;

    int GetHeaderHeight() const;
    void SetHeaderHeight(int height) { m_headerHeight = height; } // 0: follows the font

    QFont GetCaptionFont() const; // of the header
    QColor GetHeaderTextColor() const;

    // The lines right of a cell and below it, on the outermost pixels of `rect`.
    void DrawGrid(QPainter& painter, const QRect& rect) const;

    // The grid sets itself when it takes the paint manager.
    void SetControl(const CXTPReportControl* control) { m_control = control; }

protected:
    void DrawHeaderBackground(QPainter& painter, const QRect& rect) const;

private:
    const CXTPReportControl* m_control = nullptr;
    int m_headerHeight = 0;
};
