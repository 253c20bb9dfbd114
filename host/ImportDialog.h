// Asks which styles of some files are to be imported.
#pragma once

#include <optional>

#include <QDialog>

#include "platform/vmrd/VMRDEnv/Styles.h"

class QCheckBox;
class QDialogButtonBox;
class QListWidget;

struct ImportFile {
    QString path;
    CStringArray names; // of the styles that it holds
    CArray<GUID> ids;
};

class ImportDialog : public QDialog {
    Q_OBJECT

public:
    // Lists the styles that the files hold, those of several with the file's name; those that
    // `styles` has are marked so.
    ImportDialog(const CStyles& styles, const std::vector<ImportFile>& files,
                 QWidget* parent = nullptr);

    // The checked names of that file; nothing when none is checked, an empty list when all are,
    // which stands for all.
    std::optional<CStringArray> Names(int file) const;
    bool Overwrite() const;

private:
    void Fill(const CStyles& styles, const std::vector<ImportFile>& files);
    void EnableOK();

    QListWidget* m_list;
    QCheckBox* m_overwrite;
    QDialogButtonBox* m_buttons;
};
