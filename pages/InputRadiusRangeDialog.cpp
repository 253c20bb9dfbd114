#include "pages/InputRadiusRangeDialog.h"

#include "app/input/NumberText.h"
#include "platform/mfc/MessageBox.h"

CString CInputRadiusRangeDialog::Title() const
{
    return L"输入圆曲线半径";
}

CString CInputRadiusRangeDialog::Prompt() const
{
    return L"圆曲线半径范围(m, 以~分隔):";
}

bool CInputRadiusRangeDialog::CheckValue(CString& value)
{
    value = EnteredText(value);
    const CString fault =
        value.empty() ? L"圆曲线半径范围不能为空!" : ReadRadiusRange(value, m_range);
    if (fault.empty()) return true;
    MessageBox(GetDialogWindow(), fault, L"提示", MB_ICONINFORMATION);
    return false;
}
