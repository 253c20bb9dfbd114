// Draws the grid's cells and edits them.
#pragma once

#include <QLineEdit>
#include <QPointer>
#include <QStyledItemDelegate>

class CXTPReportControl;

namespace designspec {

class ReportKeys;

class ReportDelegate : public QStyledItemDelegate {
public:
    ReportDelegate(CXTPReportControl* control, ReportKeys& keys);

    // The open editor, or null.
    QLineEdit* Editor() const { return m_editor; }
    // Closes the open editor with or without giving the cell its text.
    void EndEdit(bool commit);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void destroyEditor(QWidget* editor, const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool HandleKey(const QKeyEvent* event);
    bool IsForGrid(const QKeyEvent* event) const;

    CXTPReportControl* m_control;
    ReportKeys& m_keys;
    mutable QPointer<QLineEdit> m_editor;
    mutable bool m_leftOpen = false; // while another window is in front
};

} // namespace designspec
