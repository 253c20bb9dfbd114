#include "app/input/InputGradientDialog.h"

#include <algorithm>

#include "app/input/NumberText.h"
#include "platform/mfc/MessageBox.h"

CInputGradientDialog::CInputGradientDialog(const CString& title, const CString& prompt,
                                           const CArray<double>& gradients, QWidget* parent)
    : CInputDialog(parent), m_title(title), m_prompt(prompt), m_gradients(gradients)
{
}

CString CInputGradientDialog::Title() const
{
    return m_title;
}

CString CInputGradientDialog::Prompt() const
{
    return m_prompt;
}

bool CInputGradientDialog::CheckValue(CString& value)
{
    value = EnteredText(value);
    const CString fault = Fault(value);
    if (fault.empty()) return true;
    MessageBox(GetDialogWindow(), fault, L"提示", MB_ICONINFORMATION);
    return false;
}

CString CInputGradientDialog::Fault(const CString& text) const
{
    if (text.empty()) return L"坡度不能为空!";
    double gradient = 0;
    // Zero passes, and so does a point at the very end.
    if (!ReadOneDecimal(text, gradient)) return L"坡度必须是正数,并且最多只能有一位小数!";
    if (std::find(m_gradients.begin(), m_gradients.end(), gradient) != m_gradients.end())
        return L"输入的坡度已经存在!";
    return {};
}
