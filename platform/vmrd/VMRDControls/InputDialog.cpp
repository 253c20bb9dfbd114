#include "platform/vmrd/VMRDControls/InputDialog.h"

#include <QLineEdit>

#include "platform/mfc/Dialog.h"

namespace {

constexpr UINT kDialogResource = 30001;
constexpr int kEdit = 108;
constexpr int kPrompt = 119;

class CInputDialogWindow : public CDialog {
public:
    CInputDialogWindow(CInputDialog* input, QWidget* parent)
        : CDialog(kDialogResource, parent), m_input(input)
    {
    }

    const CString& Value() const { return m_value; }

protected:
    bool OnInitDialog() override
    {
        SetWindowText(m_input->Title());
        SetDlgItemText(kPrompt, m_input->Prompt());
        SetDlgItemText(kEdit, m_input->DefaultValue());
        m_input->OnInitDialog();
        return true;
    }

    void OnOK() override
    {
        m_value = GetDlgItemText(kEdit);
        if (m_input->CheckValue(m_value)) {
            CDialog::OnOK();
        } else if (auto* const edit = GetDlgItem<QLineEdit>(kEdit)) {
            edit->setFocus();
            edit->selectAll();
        }
    }

    void OnCancel() override
    {
        m_input->OnCancel();
        CDialog::OnCancel();
    }

private:
    CInputDialog* m_input;
    CString m_value;
};

} // namespace

CString CInputDialog::Title() const
{
    return {};
}

CString CInputDialog::Prompt() const
{
    return {};
}

CString CInputDialog::DefaultValue() const
{
    return {};
}

void CInputDialog::OnInitDialog() {}

bool CInputDialog::CheckValue(CString&)
{
    return true;
}

void CInputDialog::OnCancel() {}

bool CInputDialog::Input(CString& value)
{
    CInputDialogWindow window(this, m_parent);
    m_window = &window;
    const bool accepted = window.DoModal() == IDOK;
    m_window = nullptr;
    if (accepted) value = window.Value();
    return accepted;
}
