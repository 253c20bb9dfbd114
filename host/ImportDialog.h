// Asks which styles of a file are to be imported.
#pragma once

#include <QDialog>

#include "platform/vmrd/VMRDEnv/Styles.h"

class QCheckBox;
class QDialogButtonBox;
class QListWidget;

class ImportDialog : public QDialog {
    Q_OBJECT

public:
    // Lists the styles that the file holds; those that `styles` has are marked so.
    ImportDialog(const CStyles& styles, const CStringArray& names, const CArray<GUID>& ids,
                 QWidget* parent = nullptr);

    // The checked names; none when all are checked, which stands for all.
    CStringArray Names() const;
    bool Overwrite() const;

private:
    void Fill(const CStyles& styles, const CStringArray& names, const CArray<GUID>& ids);
    void EnableOK();

    QListWidget* m_list;
    QCheckBox* m_overwrite;
    QDialogButtonBox* m_buttons;
};
