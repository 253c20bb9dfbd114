#include "app/NameWaitDialog.h"

#include <QPushButton>

#include "base/Format.h"
#include "library/DesignSpecifications.h"
#include "platform/mfc/GuideSection.h"

using namespace designspec;

namespace {

constexpr UINT kDialogResource = 131;
constexpr int kNotice = 119;
constexpr int kInterval = 100; // milliseconds

} // namespace

CNameWaitDialog::CNameWaitDialog(const CString& name, QWidget* parent)
    : CDialog(kDialogResource, parent), m_name(name)
{
    SetGuideSection(this, L"新建与复制");
    connect(&m_timer, &QTimer::timeout, this, [this] {
        if (!IsTaken(m_name)) EndDialog(IDOK);
    });
    if (auto* const goTo = GetDlgItem<QPushButton>(kGoTo)) {
        goTo->setDefault(true);
        connect(goTo, &QPushButton::clicked, this, [this] { EndDialog(kGoTo); });
    }
}

bool CNameWaitDialog::IsTaken(const CString& name)
{
    return CDesignSpecifications::GetInstance()->Item(name.c_str()) != nullptr;
}

bool CNameWaitDialog::OnInitDialog()
{
    SetDlgItemText(kNotice, Format(L"新规范将命名为“%s”, 但库中已有同名的规范。\n"
                                   L"请先给那个规范改名或删除它, 再新建。",
                                   m_name));
    m_timer.start(kInterval);
    return CDialog::OnInitDialog();
}
