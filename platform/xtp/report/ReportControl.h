// The report grid: records are rows, columns point at the records' cells.
//
// Columns and records are changed through their lists; Populate shows what they hold. The user
// moves with the arrow keys, edits by a click, by typing or by F2 (Tab and Enter go on to the
// next cell, Esc takes the edit back), selects blocks, copies, cuts and pastes tab-separated
// text, empties cells with Delete, undoes and redoes, and resizes columns.
#pragma once

#include <functional>
#include <memory>

#include <QTableView>

#include "base/Export.h"
#include "platform/mfc/String.h"
#include "platform/xtp/report/ReportClipboard.h"
#include "platform/xtp/report/ReportColumn.h"
#include "platform/xtp/report/ReportKeys.h"
#include "platform/xtp/report/ReportNotices.h"
#include "platform/xtp/report/ReportOffer.h"
#include "platform/xtp/report/ReportPaintManager.h"
#include "platform/xtp/report/ReportRecord.h"
#include "platform/xtp/report/ReportUndo.h"

class QLabel;
class QLayout;

namespace designspec {

class ReportDelegate;
class ReportHeader;
class ReportModel;

} // namespace designspec

class AFX_EXT_CLASS CXTPReportControl : public QTableView {
    Q_OBJECT

public:
    explicit CXTPReportControl(QWidget* parent = nullptr);
    ~CXTPReportControl() override;

    // Gives the grid a placeholder's place in its layout (or its rectangle, without a layout),
    // its place in the tab order, its label, its accessible name and the control id, and hides
    // the placeholder.
    void CreateOver(QWidget* placeholder, int controlId);

    CXTPReportColumns& GetColumns() { return m_columns; }
    const CXTPReportColumns& GetColumns() const { return m_columns; }
    CXTPReportRecords& GetRecords() { return m_records; }
    const CXTPReportRecords& GetRecords() const { return m_records; }

    // Shows the columns and records as they are now. The current cell and the scroll bars keep
    // their places; an edit that is open is dropped.
    void Populate();

    CXTPReportPaintManager* GetPaintManager() const { return m_paintManager.get(); }
    // Takes ownership.
    void SetPaintManager(CXTPReportPaintManager* paintManager);

    // Without editing nothing that the user does changes a cell; copying still works.
    void AllowEdit(bool allow); // off at first
    bool IsAllowEdit() const { return m_allowEdit; }
    // Ends an open edit as Tab does: the cell gets the text. What there is to tell is told.
    void CommitEdit();
    // The same, but gives back what there is to tell; empty when there is nothing.
    CString CommitEditQuietly();
    // The user has entered `text` into a cell.
    void EnterText(const QModelIndex& index, const CString& text);
    // The same for one of several cells, which is to be named when there is something to tell, and
    // whose new content ShowEntered shows for all of them.
    void EnterPasted(const QModelIndex& index, const CString& text, bool named);
    void ShowEntered();

    // Shows a message box about what the user entered, soon: one box tells all that is wrong, each
    // thing once, however many cells were pasted.
    void Tell(const CString& notice);

    // The line below the grid, about what the user did last: the next change empties it. Grids that
    // CreateOver has placed in a layout show it.
    void SetRemark(const CString& remark);
    const CString& GetRemark() const { return m_remark; }

    // Columns and rows that the grid could have more of.
    void SetColumnOffer(const designspec::ReportOffer& offer) { m_columnOffer = offer; }
    const designspec::ReportOffer& GetColumnOffer() const { return m_columnOffer; }
    void SetRowOffer(const designspec::ReportOffer& offer) { m_rowOffer = offer; }
    const designspec::ReportOffer& GetRowOffer() const { return m_rowOffer; }

    designspec::ReportUndo& GetUndo() { return m_undo; }

    // What the grid shows: of the last Populate. Null, and false, where there is nothing.
    CXTPReportColumn* ShownColumn(int column) const;
    CXTPReportRecordItem* ItemAt(const QModelIndex& index) const;
    bool IsEditable(const QModelIndex& index) const;
    // Whether the first column holds the rows' captions, which nobody can edit.
    bool HasCaptions() const;
    // "设超高最小半径(m) 80": the captions of a cell's row and column.
    CString CellName(const QModelIndex& index) const;
    // The cell's index; invalid when the grid shows no such place.
    QModelIndex IndexOf(int row, int column) const;

signals:
    // Right button (or menu key) on a row; null where there is no row or no column.
    void RowRightClick(CXTPReportRecord* record, CXTPReportColumn* column, QPoint globalPos);
    // Right button on the header; null right of the last column.
    void HeaderRightClick(CXTPReportColumn* column, QPoint globalPos);
    // The text in a cell's editor is another one; the cell does not have it yet.
    void Typing(const QModelIndex& cell, const QString& text);
    // A step was undone or redone; the grid is populated.
    void UndoDone();

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void PlaceIn(QLayout* layout, int item);
    void OnRightClick(const QPoint& viewportPos, const QPoint& globalPos);
    void ApplyHeights();

    CXTPReportColumns m_columns;
    CXTPReportRecords m_records;
    designspec::ReportUndo m_undo{*this};
    designspec::ReportClipboard m_clipboard{*this};
    designspec::ReportKeys m_keys{*this, m_clipboard, m_undo};
    std::unique_ptr<CXTPReportPaintManager> m_paintManager;
    designspec::ReportNotices m_notices{this};
    designspec::ReportModel* m_model;
    designspec::ReportHeader* m_header;
    designspec::ReportDelegate* m_delegate;
    designspec::ReportOffer m_columnOffer;
    designspec::ReportOffer m_rowOffer;
    CString m_remark;
    QLabel* m_remarkLine = nullptr; // of CreateOver
    bool m_allowEdit = false;
    QPersistentModelIndex m_pressed;
};
