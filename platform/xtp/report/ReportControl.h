// The report grid: records are rows, columns point at the records' cells.
//
// Columns and records are changed through their lists; Populate shows what they hold. The user
// moves with the arrow keys, edits by a click, by typing or by F2 (Tab and Enter go on to the
// next cell, Esc takes the edit back), selects blocks, copies, cuts and pastes tab-separated
// text, empties cells with Delete, and undoes and redoes.
#pragma once

#include <memory>

#include <QTableView>

#include "base/Export.h"
#include "platform/mfc/String.h"
#include "platform/xtp/report/ReportColumn.h"
#include "platform/xtp/report/ReportHeader.h"
#include "platform/xtp/report/ReportPaintManager.h"
#include "platform/xtp/report/ReportRecord.h"

class CXTPReportDelegate;
class CXTPReportModel;
class QUndoStack;
struct CXTPReportSnapshot;

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
    // Take ownership, return what was added.
    template <class Column> Column* AddColumn(Column* column) { return m_columns.Add(column); }
    template <class Record> Record* AddRecord(Record* record) { return m_records.Add(record); }
    CXTPReportRecord* AddRecord() { return AddRecord(new CXTPReportRecord); }

    // Shows the columns and records as they are now. The current cell keeps its place; an edit
    // that is open is dropped.
    void Populate();

    CXTPReportHeader* GetReportHeader() const { return m_header; }
    CXTPReportPaintManager* GetPaintManager() const { return m_paintManager.get(); }
    // Takes ownership; null brings the default one back.
    void SetPaintManager(CXTPReportPaintManager* paintManager);
    void SetGridStyle(bool vertical, XTPReportGridStyle style);

    // Without editing nothing that the user does changes a cell; copying still works.
    void AllowEdit(bool allow); // off at first
    bool IsAllowEdit() const { return m_allowEdit; }
    void EditOnClick(bool editOnClick)
    {
        m_editOnClick = editOnClick;
    } // a single click; on at first
    bool IsEditOnClick() const { return m_editOnClick; }
    // Ends an open edit as Tab does: the cell gets the text.
    void CommitEdit();

    // The user's changes from Begin to End are one step of undo: cells, columns and records.
    // Calls may be nested; the outermost counts. A step that changed nothing is none.
    void BeginUserChange(const CString& text);
    void EndUserChange();
    // Shows a message box about what the user entered. Within a user change it waits for the end:
    // one box then tells all that is wrong, each thing once, however many cells were pasted.
    void Tell(const CString& message);
    // Forgets all steps, as after loading.
    void ClearUndo();
    bool CanUndo() const;
    bool CanRedo() const;
    // Nothing happens in a grid that may not be edited.
    void Undo();
    void Redo();

    void Copy() const;
    void Cut();
    void Paste();
    void DeleteSelection();

    // What the grid shows at an index of its model; null when there is nothing.
    CXTPReportRecord* RecordAt(const QModelIndex& index) const;
    CXTPReportColumn* ColumnAt(const QModelIndex& index) const;
    CXTPReportRecordItem* ItemAt(const QModelIndex& index) const;
    // The cell's index; invalid when the grid shows no such place.
    QModelIndex IndexOf(int row, int column) const;

    // Null when the grid shows no such column.
    CXTPReportColumn* ShownColumn(int column) const;

    // For the grid's own parts.
    void EnterText(const QModelIndex& index, const CString& text);
    void SortByColumn(int column);
    static bool IsUndoKey(const QKeyEvent* event);
    static bool IsRedoKey(const QKeyEvent* event);
    // Keys that end an edit and go to another cell: Tab, Enter (with Shift: back), up and down.
    static bool IsMoveOnKey(const QKeyEvent* event);
    // Goes to where such a key leads from the current cell; Tab and Enter go on editing there.
    void MoveOn(const QKeyEvent* event);

signals:
    // Right button (or menu key) on a row; null where there is no row or no column.
    void RowRightClick(CXTPReportRecord* record, CXTPReportColumn* column, QPoint globalPos);
    // Right button on the header; null right of the last column.
    void HeaderRightClick(CXTPReportColumn* column, QPoint globalPos);
    // A cell got a text from the user.
    void ValueChanged(CXTPReportRecord* record, CXTPReportColumn* column);
    // A step was undone or redone; the grid is populated.
    void UndoDone();

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void commitData(QWidget* editor) override;

private:
    bool HandleKey(QKeyEvent* event);
    bool IsEditable(const QModelIndex& index) const;
    std::vector<int> VisibleColumns() const;
    QModelIndexList SelectedCells() const;
    QModelIndex NextEditable(const QModelIndex& from, bool down, bool forward) const;
    void OnRightClick(const QPoint& viewportPos, const QPoint& globalPos);
    void ApplyHeights();
    void PasteBlock(const std::vector<CStringArray>& rows, const QModelIndex& topLeft);
    void Restore(const CXTPReportSnapshot& snapshot);
    void ShowMessages();
    friend class CXTPReportUndoCommand;

    CXTPReportColumns m_columns;
    CXTPReportRecords m_records;
    CXTPReportModel* m_model;
    CXTPReportHeader* m_header;
    CXTPReportDelegate* m_delegate;
    std::unique_ptr<CXTPReportPaintManager> m_paintManager;
    QUndoStack* m_undo;
    std::shared_ptr<const CXTPReportSnapshot> m_before; // while a user change is open
    CString m_changeText;
    CStringArray m_messages; // to be shown
    int m_changeDepth = 0;
    bool m_allowEdit = false;
    bool m_editOnClick = true;
    bool m_committing = false;
    QPersistentModelIndex m_pressed;
};

// A user change for as long as it lives.
class CXTPReportUserChange {
public:
    CXTPReportUserChange(CXTPReportControl& control, const CString& text) : m_control(control)
    {
        m_control.BeginUserChange(text);
    }
    ~CXTPReportUserChange() { m_control.EndUserChange(); }
    CXTPReportUserChange(const CXTPReportUserChange&) = delete;
    CXTPReportUserChange& operator=(const CXTPReportUserChange&) = delete;

private:
    CXTPReportControl& m_control;
};
