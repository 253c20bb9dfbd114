// Lists the styles that were set aside when they were deleted, and brings them back.
#pragma once

#include <QDialog>

#include "platform/vmrd/VMRDEnv/StyleFolder.h"

class CStyleEditor;
class QLabel;
class QPushButton;
class QTreeWidget;

class DeletedStylesDialog : public QDialog {
    Q_OBJECT

public:
    explicit DeletedStylesDialog(CStyleEditor& editor, QWidget* parent = nullptr);

    // The identities of those that are back.
    const std::vector<GUID>& BroughtBack() const { return m_broughtBack; }

private:
    void Fill();
    void EnableButton();
    void BringBack();
    void View();

    CStyleEditor& m_editor;
    std::vector<designspec::DeletedStyle> m_deleted; // as listed
    std::vector<GUID> m_broughtBack;
    QTreeWidget* m_list;
    QLabel* m_message;
    QPushButton* m_bringBack;
    QPushButton* m_view = nullptr; // only where the editor can show one
};
