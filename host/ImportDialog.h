// Asks which styles of some files are to be imported.
#pragma once

#include <optional>

#include <QDialog>

#include "platform/vmrd/VMRDPrj/StyleEditor.h"

class QCheckBox;
class QDialogButtonBox;
class QListWidget;
class QPlainTextEdit;

struct ImportFile {
    QString path;
    CStringArray names; // of the styles that it holds
    CArray<GUID> ids;
    // For each of them what it would change in the library's one; may be shorter.
    std::vector<std::optional<designspec::StyleChanges>> changes = {};
};

class ImportDialog : public QDialog {
    Q_OBJECT

public:
    // Lists the styles that the files hold, those of several with the file's name unless it is the
    // style's; with those that `styles` has, what they would change, in a line, and below the list
    // each value of the one that is selected.
    ImportDialog(const CStyles& styles, const std::vector<ImportFile>& files,
                 QWidget* parent = nullptr);

    // The checked names of that file; nothing when none is checked, an empty list when all are,
    // which stands for all.
    std::optional<CStringArray> Names(int file) const;
    bool Overwrite() const;

private:
    void Fill(const CStyles& styles, const std::vector<ImportFile>& files);
    void ShowChanges();
    void EnableOK();

    std::vector<std::optional<designspec::StyleChanges>> m_changes; // as they are listed
    QListWidget* m_list;
    QPlainTextEdit* m_shown;
    QCheckBox* m_overwrite;
    QDialogButtonBox* m_buttons;
};
