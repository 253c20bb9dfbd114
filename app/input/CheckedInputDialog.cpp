#include "app/input/CheckedInputDialog.h"

#include "base/Text.h"
#include "platform/mfc/MessageBox.h"

using namespace designspec;

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
