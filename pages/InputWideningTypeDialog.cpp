#include "pages/InputWideningTypeDialog.h"

#include "platform/mfc/MessageBox.h"

CString CInputWideningTypeDialog::Title() const
{
    return L"输入加宽类别";
}

CString CInputWideningTypeDialog::Prompt() const
{
    return L"输入加宽类别:";
}

bool CInputWideningTypeDialog::CheckValue(CString& value)
{
    value = Trim(value);
    if (!value.empty()) return true;
    MessageBox(GetDialogWindow(), L"加宽类别不能为空!", L"提示", MB_ICONINFORMATION);
    return false;
}
