// Shows the curves of a table, and lets a person go from their points to the cells.
#pragma once

#include <QWidget>

#include "pages/framework/CurvePicture.h"
#include "platform/drawing/PictureFile.h"

namespace designspec {

// The arrow keys go from point to point, Enter to its cell, as a click does.
class CurveView : public QWidget {
    Q_OBJECT

public:
    explicit CurveView(QWidget* parent = nullptr);

    void Show(CurveContent content);
    const CurveContent& Content() const { return m_content; }

    // What is told of the place below the cursor, or of the current point while keys move it.
    QString Readout() const;
    // The middle of a cell's point; null when it has none.
    QPoint PlaceOf(const CurveCell& cell) const;

    QSize sizeHint() const override { return minimumSizeHint(); }
    QSize minimumSizeHint() const override;

    // What is shown, on white, as .png or .svg by the ending of the name. False when it could not
    // be written.
    bool SavePicture(const QString& file) const;
    // The same onto the clipboard, in both forms.
    void CopyPicture() const;
    // A name for its file; that of the page.
    void SetFileName(const QString& name) { m_fileName = name; }

signals:
    // The person wants to compare with another specification, or no more.
    void CompareWanted(bool wanted);
    // Keys have gone to the point of that cell.
    void Moved(CurveCell cell);
    // The person wants to see the cell.
    void Chosen(CurveCell cell);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    CurvePicture Picture() const;
    std::optional<double> ReadAt(const CurvePicture& picture) const;
    bool ShowToolTipAt(const QPoint& place, const QPoint& global);
    bool Move(int key);
    PictureFile File() const;
    void AskAndSave();

    CurveContent m_content;
    std::optional<QPointF> m_cursor; // of the mouse
    QString m_fileName;
};

} // namespace designspec
