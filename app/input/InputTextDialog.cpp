#include "app/input/InputTextDialog.h"

#include "platform/mfc/GuideSection.h"

#include <limits>

#include <QLineEdit>

namespace {

constexpr UINT kDialogResource = 114;
constexpr int kEdit = 108;
constexpr int kLabel = 119;

} // namespace

CInputTextDialog::CInputTextDialog(const CString& title, const CString& label, QWidget* parent)
    : CDialog(kDialogResource, parent), m_title(title), m_label(label)
{
    designspec::SetGuideSection(this, L"数据来源");
}

bool CInputTextDialog::OnInitDialog()
{
    auto* const edit = GetDlgItem<QLineEdit>(kEdit);
    if (edit)
        edit->setMaxLength(std::numeric_limits<int>::max()); // a note may quote a whole chapter
    SetDlgItemText(kEdit, m_text);
    SetWindowText(m_title);
    SetDlgItemText(kLabel, m_label);
    if (edit) edit->setReadOnly(m_readOnly);
    return CDialog::OnInitDialog();
}

void CInputTextDialog::OnOK()
{
    if (!m_readOnly) {
        if (!GetDlgItem(kEdit)) return;
        m_text = GetDlgItemText(kEdit);
    }
    CDialog::OnOK();
}
