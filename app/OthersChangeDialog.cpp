#include "app/OthersChangeDialog.h"

#include <QPushButton>
#include <QVBoxLayout>

#include "compare/DifferenceView.h"
#include "platform/mfc/GuideSection.h"
#include "platform/mfc/MessageBox.h"

using namespace designspec;

namespace {

constexpr UINT kDialogResource = 132;
constexpr int kChoices[] = {COthersChangeDialog::kAsChosen, COthersChangeDialog::kKeepMine,
                            COthersChangeDialog::kTakeTheirs, COthersChangeDialog::kOtherProject};

} // namespace

COthersChangeDialog::COthersChangeDialog(const CString& notice, QWidget* parent)
    : CDialog(kDialogResource, parent), m_notice(notice), m_view(new DifferenceView)
{
    SetGuideSection(this, L"别人同时改了同一个规范");
    auto* const layout = new QVBoxLayout(GetDlgItem(kPlace));
    layout->setContentsMargins({});
    layout->addWidget(m_view);
    ShowWindow(kPlace, false);
    for (const int choice : kChoices)
        ShowWindow(choice, false);
    // Enter does what loses nothing: it goes back, unless what was chosen can be stored.
    if (auto* const back = GetDlgItem<QPushButton>(IDCANCEL)) back->setDefault(true);
}

void COthersChangeDialog::Compare(const CDesignSpecification& base,
                                  const CDesignSpecification& mine,
                                  const CDesignSpecification& theirs,
                                  std::function<CString(const CDesignSpecification& made)> refused)
{
    m_refused = std::move(refused);
    m_view->ShowThree(base, mine, theirs);
    ShowWindow(kPlace, true);
    const int line = fontMetrics().height();
    resize(line * 60, line * 34);
    Offer(kAsChosen, L"按选择保存(&A)");
    connect(m_view, &DifferenceView::Chosen, this, [this] { EnableChosen(); });
    EnableChosen();
}

void COthersChangeDialog::EnableChosen()
{
    const int unsettled = Choices().Unsettled();
    EnableWindow(kAsChosen, unsettled == 0);
    auto* const chosen = GetDlgItem<QPushButton>(kAsChosen);
    auto* const back = GetDlgItem<QPushButton>(IDCANCEL);
    if (!chosen || !back) return;
    (unsettled == 0 ? chosen : back)->setDefault(true);
    chosen->setToolTip(unsettled == 0 ? QString()
                                      : QStringLiteral("还有 %1 个冲突没有选择").arg(unsettled));
}

void COthersChangeDialog::Offer(int choice, const CString& text)
{
    SetDlgItemText(choice, text);
    ShowWindow(choice, true);
    if (auto* const button = GetDlgItem<QPushButton>(choice))
        connect(button, &QPushButton::clicked, this, [this, choice] { Choose(choice); });
}

void COthersChangeDialog::Choose(int choice)
{
    const CString refused =
        choice == kAsChosen && m_refused ? m_refused(Choices().Made()) : CString();
    if (refused.empty()) return EndDialog(choice);
    MessageBox(this, refused, L"提示", MB_ICONINFORMATION);
}

const DifferenceChoices& COthersChangeDialog::Choices() const
{
    return m_view->Choices();
}

bool COthersChangeDialog::OnInitDialog()
{
    SetDlgItemText(kNotice, m_notice);
    m_view->setFocus();
    return CDialog::OnInitDialog();
}
