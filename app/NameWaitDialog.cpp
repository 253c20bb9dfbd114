#include "app/NameWaitDialog.h"

#include "base/Format.h"
#include "library/DesignSpecifications.h"

using namespace designspec;

namespace {

constexpr UINT kDialogResource = 131;
constexpr int kNotice = 119;
constexpr int kInterval = 100; // milliseconds

} // namespace

CNameWaitDialog::CNameWaitDialog(const CString& name, QWidget* parent)
    : CDialog(kDialogResource, parent), m_name(name)
{
    connect(&m_timer, &QTimer::timeout, this, [this] {
        if (!IsTaken(m_name)) EndDialog(IDOK);
    });
}

bool CNameWaitDialog::IsTaken(const CString& name)
{
    return CDesignSpecifications::GetInstance()->Item(name.c_str()) != nullptr;
}

bool CNameWaitDialog::OnInitDialog()
{
    SetDlgItemText(kNotice, Format(L"新规范将命名为“%s”, 但库中已有同名的规范。\n"
                                   L"那个规范改名或移除后自动继续; 也可以取消, 不新建规范。",
                                   m_name));
    m_timer.start(kInterval);
    return CDialog::OnInitDialog();
}
