// Draws the grid's cells and edits them.
#pragma once

#include <QLineEdit>
#include <QPointer>
#include <QStyledItemDelegate>

class CXTPReportControl;

class CXTPReportDelegate : public QStyledItemDelegate {
public:
    explicit CXTPReportDelegate(CXTPReportControl* control);

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
    bool HandleKey(QKeyEvent* event);

    CXTPReportControl* m_control;
    mutable QPointer<QLineEdit> m_editor;
};
