#include "pages/InputWideningTypeDialog.h"

CInputWideningTypeDialog::CInputWideningTypeDialog(QWidget* parent)
    : CCheckedInputDialog(L"输入加宽类别", L"输入加宽类别:", parent)
{
}

CString CInputWideningTypeDialog::Fault(CString& value)
{
    return value.empty() ? L"加宽类别不能为空!" : L"";
}
