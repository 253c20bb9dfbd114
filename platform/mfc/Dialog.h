// A dialog that knows its controls by their ids.
#pragma once

#include <QDialog>

#include "base/Export.h"
#include "platform/mfc/String.h"

using UINT = unsigned int;

constexpr int IDOK = 1;
constexpr int IDCANCEL = 2;
constexpr int IDYES = 6;
constexpr int IDNO = 7;

namespace designspec {

// The dynamic property of a control that holds its id.
inline constexpr const char* kControlIdProperty = "controlId";

} // namespace designspec

// The dialog resource of number N is the Qt Designer form ":/dialogs/N.ui". Its controls carry
// their ids as the int property "controlId"; OK is 1 and Cancel is 2. OK is the default
// button, Esc and the close button stand for Cancel, Ctrl+Enter for OK from wherever the focus is,
// Alt+O and Alt+C for the two. It opens where and as large as it was left (WindowPlace).
class AFX_EXT_CLASS CDialog : public QDialog {
public:
    // A dialog without a resource when there is none of that number; a trace line says so.
    explicit CDialog(UINT nIDTemplate, QWidget* pParent = nullptr);
    ~CDialog() override;

    // Shows the dialog and waits; IDOK, IDCANCEL or what EndDialog was given.
    int DoModal();
    // Makes the dialog a child of `pParent`, without a title and still hidden: a page. False
    // when its initialisation failed, which it does without a parent or a resource.
    bool Create(QWidget* pParent);
    // Closes the dialog; DoModal returns `nResult`. A child dialog stays as it is.
    void EndDialog(int nResult);

    // The control of that id; null when there is none. Controls of child dialogs are their own.
    QWidget* GetDlgItem(int nID) const;
    template <class Control> Control* GetDlgItem(int nID) const
    {
        return dynamic_cast<Control*>(GetDlgItem(nID));
    }

    // Text of a control: what an edit, a label, a button, a group or a list box shows. Setting
    // does nothing, and getting gives empty text, when there is no such control.
    CString GetDlgItemText(int nID) const;
    void SetDlgItemText(int nID, const CString& text);
    void SetWindowText(const CString& text);
    CString GetWindowText() const;

    // Check and radio buttons. Nothing is checked, and nothing happens, without such a button.
    void CheckDlgButton(int nID, bool check);
    bool IsDlgButtonChecked(int nID) const;

    // A control that does not exist is skipped.
    void EnableWindow(int nID, bool enable);
    void ShowWindow(int nID, bool show);

    void accept() override; // Qt's way to OnOK
    void reject() override; // Qt's way to OnCancel
    void setVisible(bool visible) override;

protected:
    // Called once, before the dialog is shown; the controls exist.
    virtual bool OnInitDialog();
    virtual void OnOK();     // closes with IDOK
    virtual void OnCancel(); // closes with IDCANCEL

    void keyPressEvent(QKeyEvent* event) override;

private:
    bool LoadTemplate(UINT nIDTemplate);
    void WireButtons();
    bool InitOnce();

    bool m_bLoaded = false;
    bool m_bInitialised = false;
    bool m_bChild = false;
};
