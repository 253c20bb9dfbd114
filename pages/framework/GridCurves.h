// A grid with its curves, beside it or below, whichever leaves them more room: never less for the
// grid than it needs for all its cells.
#pragma once

#include <functional>

#include <QPersistentModelIndex>
#include <QWidget>

#include "model/LimitCurves.h"

class CXTPReportControl;

namespace designspec {

class CurveView;

// Follows each change of the grid, also of the text that is being typed. Cells whose value may be a
// slip are marked in the grid, whether the curves are shown or not.
class GridCurves : public QWidget {
    Q_OBJECT

public:
    // Takes the grid's place in the layout that holds it, and the grid.
    // `heading` tells which of several tables the grid shows, as they are laid out.
    GridCurves(CXTPReportControl& grid, const CriterionInfo& criterion,
               std::function<CString()> heading);

    // Draws the same table of that specification dashed behind; null: none.
    void Compare(const CDesignSpecification* other, const CString& name);
    // Whether curves are to be shown, where there is room for them.
    void SetWanted(bool wanted);
    // How much higher this has to be to show the curves that are wanted; 0 when they are shown.
    int MissingHeight() const;
    CurveView& View() const { return *m_view; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void Follow();
    void Arrange();
    QSize WantedByGrid() const;
    void OnTyping(const QModelIndex& cell, const QString& text);
    void OnChanged();
    void Show(const std::vector<CurveChart>& charts);
    void ShowCurrent();
    void Mark(const std::vector<CurveChart>& charts);
    TableLayout Table() const;
    std::optional<Value> ValueAt(const QModelIndex& cell) const;
    void GoTo(std::size_t line, std::size_t column);

    CXTPReportControl& m_grid;
    const CriterionInfo& m_criterion;
    const std::function<CString()> m_heading;
    CurveView* m_view;
    std::vector<CurveChart> m_compared; // of all tables of the page
    CString m_comparedName;
    bool m_isWanted = false;
    QPersistentModelIndex m_typedCell; // whose text is being typed
    CString m_typed;
    QObject m_following; // ends before the grid, which goes with its parent, tells of its own end
};

} // namespace designspec
