// Shows the diagrams of a road, to look at closely.
#pragma once

#include <QPixmap>
#include <QWidget>

#include "roadcheck/DiagramContent.h"
#include "roadcheck/StationRange.h"

namespace roadcheck {

class DiagramPicture;

// The wheel and + and - zoom, dragging and the arrow keys move along the road, Home and a double
// click show all of it.
class DiagramView : public QWidget {
    Q_OBJECT

public:
    explicit DiagramView(QWidget* parent = nullptr);

    // Shows the diagrams of a road; keeps zoom and place while the road's length stays the same.
    // All findings are shown, none is selected.
    void Show(const roadcheck::Alignment& road, std::vector<roadcheck::Diagram> diagrams,
              const std::vector<roadcheck::Finding>& findings);
    void Clear();
    // An index into the findings; -1: none. Moves so that it can be seen.
    void SelectFinding(int finding);
    // Those that the filter leaves, one for each finding.
    void SetShownFindings(const std::vector<bool>& shown);
    // What is shown, on white, as .png or .svg by the ending of the name. False when it could not
    // be written; a file that was there is as it was then.
    bool SavePicture(const QString& file);

    // The part of the road that is shown, m along.
    const StationRange& Range() const { return m_range; }
    int SelectedFinding() const { return m_content.selected; }
    // Where the mark of a finding is, on the first of its diagrams; null when none is in sight.
    QRect MarkRect(int finding) const;
    // What is told of the place below the cursor: its station, and for each diagram a line with
    // value and limits. Empty when the cursor is elsewhere.
    QString Readout() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    void FindingClicked(int finding);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    // Of what is shown, as large as the view.
    DiagramPicture Picture() const;
    // After a change of what is shown.
    void Redraw();
    void ClickMark(const std::vector<int>& marks);
    void SetCursorPlace(std::optional<QPointF> point);
    bool ShowMarkToolTip(const QPoint& point, const QPoint& global);
    std::optional<double> CursorPlace(const DiagramPicture& picture) const;

    DiagramContent m_content;
    StationRange m_range;
    QPixmap m_drawn;                 // all but the cursor; null: is to be drawn
    std::optional<QPointF> m_cursor; // of the mouse, over the view
    QPointF m_pressed;
    double m_fromWhenPressed = 0; // m along
    bool m_isDragging = false;
};

} // namespace roadcheck
