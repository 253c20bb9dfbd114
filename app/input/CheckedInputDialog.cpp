#include "app/input/CheckedInputDialog.h"

#include "platform/mfc/MessageBox.h"

CCheckedInputDialog::CCheckedInputDialog(const CString& title, const CString& prompt,
                                         QWidget* parent)
    : CInputDialog(parent), m_title(title), m_prompt(prompt)
{
}

bool CCheckedInputDialog::CheckValue(CString& value)
{
    value = Trim(value);
    const CString fault = Fault(value);
    if (fault.empty()) return true;
    MessageBox(GetDialogWindow(), fault, L"提示", MB_ICONINFORMATION);
    return false;
}
