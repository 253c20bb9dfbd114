#include "pages/InputWideningTypeDialog.h"

#include "model/Rules.h"

using namespace designspec;

CInputWideningTypeDialog::CInputWideningTypeDialog(QWidget* parent)
    : CCheckedInputDialog(L"输入加宽类别", L"输入加宽类别:", parent)
{
}

CString CInputWideningTypeDialog::Fault(CString& value)
{
    return value.empty() ? kNoCategoryText : L"";
}
