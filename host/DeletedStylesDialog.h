// Lists the styles that were set aside when they were deleted, and brings them back.
#pragma once

#include <QDialog>

class CStyleEditor;
class QLabel;
class QPushButton;
class QTreeWidget;

class DeletedStylesDialog : public QDialog {
    Q_OBJECT

public:
    explicit DeletedStylesDialog(CStyleEditor& editor, QWidget* parent = nullptr);

private:
    void Fill();
    void EnableButton();
    void BringBack();

    CStyleEditor& m_editor;
    QTreeWidget* m_list;
    QLabel* m_message;
    QPushButton* m_bringBack;
};
