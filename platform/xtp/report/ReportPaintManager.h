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

enum XTPReportGridStyle {
    xtpReportGridNoLines,
    xtpReportGridSolid,
    xtpReportGridDotted,
};

// Heights are in pixels at 100 % scale. Colours follow the grid's palette, light or dark.
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
    void SetCaptionFont(const QFont& font);
    QColor GetHeaderTextColor() const;

    XTPReportGridStyle GetGridStyle(bool vertical) const;
    void SetGridStyle(bool vertical, XTPReportGridStyle style);
    // The lines right of a cell and below it, on the outermost pixels of `rect`.
    void DrawGrid(QPainter& painter, const QRect& rect) const;

    // The grid sets itself when it takes the paint manager.
    void SetControl(const CXTPReportControl* control) { m_control = control; }

protected:
    const CXTPReportControl* GetControl() const { return m_control; }
    void DrawHeaderBackground(QPainter& painter, const QRect& rect) const;

private:
    const CXTPReportControl* m_control = nullptr;
    int m_headerHeight = 0;
    QFont m_captionFont;
    bool m_hasCaptionFont = false;
    XTPReportGridStyle m_vertical = xtpReportGridSolid;
    XTPReportGridStyle m_horizontal = xtpReportGridSolid;
};
