#include "app/CompareDialog.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/SpecificationChange.h"
#include "base/Format.h"
#include "compare/DifferenceView.h"
#include "compare/SourceChoice.h"
#include "library/DesignSpecifications.h"
#include "platform/arx/Documents.h"
#include "platform/mfc/GuideSection.h"
#include "platform/mfc/MessageBox.h"

using namespace designspec;

namespace {

constexpr UINT kDialogResource = 140;

CString Joined(const CStringArray& names)
{
    CString text;
    for (const CString& name : names)
        text += (text.empty() ? L"“" : L", “") + name + L"”";
    return text;
}

} // namespace

CCompareDialog::CCompareDialog(QWidget* parent)
    : CDialog(kDialogResource, parent),
      m_left(new SourceChoice(QStringLiteral("左边(&1):"), kLeft)),
      m_right(new SourceChoice(QStringLiteral("右边(&2):"), kRight)), m_view(new DifferenceView)
{
    setWindowTitle(QStringLiteral("比较规范"));
    SetGuideSection(this, L"比较规范");
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    auto* const layout = new QVBoxLayout(GetDlgItem(kPlace));
    layout->setContentsMargins({});
    auto* const sides = new QHBoxLayout;
    sides->addWidget(m_left);
    sides->addSpacing(fontMetrics().height());
    sides->addWidget(m_right);
    layout->addLayout(sides);
    layout->addWidget(m_view, 1);
    auto* const notice = new QLabel;
    notice->setTextFormat(Qt::PlainText);
    notice->setProperty(kControlIdProperty, kNotice);
    layout->addWidget(notice);
    // Enter in a list or a filter does not end the work.
    if (auto* const ok = GetDlgItem<QPushButton>(IDOK)) ok->setDefault(false);
    setTabOrder(m_left, m_right);
    setTabOrder(m_right, m_view);
    const int line = fontMetrics().height();
    resize(line * 64, line * 38);
    const SpecificationFolder& library = CDesignSpecifications::GetInstance()->Folder();
    for (SourceChoice* const side : {m_left, m_right})
        side->Fill(library);
    m_left->SetLike([this] { return m_right->Chosen(); });
    m_right->SetLike([this] { return m_left->Chosen(); });
}

void CCompareDialog::Begin(const CArray<GUID>& selected)
{
    const CStyle* const standard = CDesignSpecifications::GetInstance()->DefaultItem();
    if (!selected.empty())
        m_left->Select(selected[0]);
    else if (standard)
        m_left->Select(standard->ID());
    const CDesignSpecification* const left = m_left->Chosen();
    m_right->SelectBuiltIn();
    if (selected.size() > 1)
        m_right->Select(selected[1]);
    else if (standard && left && !left->HasID(standard->ID()))
        m_right->Select(standard->ID());
}

bool CCompareDialog::OnInitDialog()
{
    Show();
    for (SourceChoice* const side : {m_left, m_right})
        connect(side, &SourceChoice::Changed, this, [this] { Change(); });
    connect(m_view, &DifferenceView::Chosen, this, [this] { ShowOk(); });
    m_view->setFocus();
    return CDialog::OnInitDialog();
}

void CCompareDialog::Show()
{
    const CDesignSpecification* const left = m_left->Chosen();
    const CDesignSpecification* const right = m_right->Chosen();
    if (!left || !right) return;
    m_leftOpened = *left;
    m_rightOpened = *right;
    m_places = {m_left->Place(), m_right->Place()};
    m_view->ShowTwo(m_leftOpened, m_rightOpened,
                    {.left = m_left->Title(),
                     .right = m_right->Title(),
                     .changeable = {m_left->IsOfLibrary(), m_right->IsOfLibrary()}});
    ShowOk();
}

// What was taken over is not lost unasked.
void CCompareDialog::Change()
{
    if (MayLose()) return Show();
    m_left->SetPlace(m_places.first);
    m_right->SetPlace(m_places.second);
}

bool CCompareDialog::IsChanged() const
{
    return m_view->Choices().IsLeftChanged() || m_view->Choices().IsRightChanged();
}

bool CCompareDialog::MayLose()
{
    return !IsChanged() || MessageBox(this, L"取过来的值还没有保存。要放弃吗?", L"提示",
                                      MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2) == IDYES;
}

// What 确定 will write.
void CCompareDialog::ShowOk()
{
    const DifferenceChoices& choices = m_view->Choices();
    CStringArray changed;
    if (choices.IsLeftChanged()) changed.push_back(m_leftOpened.Name());
    if (choices.IsRightChanged()) changed.push_back(m_rightOpened.Name());
    ShowWindow(kNotice, !changed.empty());
    SetDlgItemText(kNotice, changed.empty() ? CString() : L"按确定保存: " + Joined(changed));
}

void CCompareDialog::reject()
{
    if (MayLose()) CDialog::reject();
}

void CCompareDialog::OnOK()
{
    // What is saved needs no second saving when the other one is refused.
    const DifferenceChoices choices = m_view->Choices();
    bool isDone = true;
    if (choices.IsLeftChanged()) isDone = Store(m_leftOpened, choices.MadeLeft());
    if (isDone && choices.IsRightChanged()) isDone = Store(m_rightOpened, choices.MadeRight());
    if (isDone) return CDialog::OnOK();
    if (!m_saved.empty()) Show();
}

bool CCompareDialog::Store(const CDesignSpecification& opened, const CDesignSpecification& made)
{
    if (!StoreChanged(opened, made, this)) return false;
    m_saved.push_back(made.Name());
    return true;
}

namespace designspec {

CString CompareSpecifications(const CArray<GUID>& selected, QWidget* owner)
{
    const AcAxDocLock lock;
    CCompareDialog dialog(owner);
    dialog.Begin(selected);
    dialog.DoModal();
    return dialog.Saved().empty() ? CString() : L"已保存: " + Joined(dialog.Saved());
}

} // namespace designspec
