#include "app/TakeFromDialog.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>

#include "compare/DifferenceView.h"
#include "compare/SourceChoice.h"
#include "library/DesignSpecifications.h"
#include "platform/mfc/GuideSection.h"
#include "platform/mfc/QtText.h"

using namespace designspec;

namespace {

constexpr UINT kDialogResource = 142;
enum Range { kThisPage, kItsGroup, kEverything };

// Copies the member of each criterion that is wanted.
template <class Wanted>
void CopySome(CDesignSpecification& to, const CDesignSpecification& from, Wanted wanted)
{
    std::size_t place = 0;
    ForEachCriterion([&](const auto& one) {
        if (wanted(Criteria()[place++])) to.*one.member = from.*one.member;
    });
}

} // namespace

CTakeFromDialog::CTakeFromDialog(const CDesignSpecification& entered, const CString& page,
                                 QWidget* parent)
    : CDialog(kDialogResource, parent), m_entered(entered),
      m_source(new SourceChoice(QStringLiteral("来源(&S):"), kSource)), m_range(new QComboBox),
      m_view(new DifferenceView)
{
    setWindowTitle(QStringLiteral("从其他规范取值"));
    SetGuideSection(this, L"从其他规范取");
    for (const CriterionInfo& one : Criteria())
        if (one.label == page) m_page = &one;
    m_range->setProperty(kControlIdProperty, kRange);
    if (m_page) {
        m_range->addItem(ToQString(L"本页: " + page));
        m_range->addItem(ToQString(m_page->group + CString(L"各页")));
    }
    m_range->addItem(QStringLiteral("全部"));
    auto* const label = new QLabel(QStringLiteral("范围(&G):"));
    label->setBuddy(m_range);
    auto* const row = new QHBoxLayout;
    row->addWidget(m_source, 1);
    row->addSpacing(fontMetrics().height());
    row->addWidget(label);
    row->addWidget(m_range);
    auto* const layout = new QVBoxLayout(GetDlgItem(kPlace));
    layout->setContentsMargins({});
    layout->addLayout(row);
    layout->addWidget(m_view, 1);
    const int line = fontMetrics().height();
    resize(line * 60, line * 34);
    const GUID own = entered.ID();
    m_source->Fill(CDesignSpecifications::GetInstance()->Folder(), &own);
    m_source->SetLike([this] { return &m_entered; });
}

bool CTakeFromDialog::OnInitDialog()
{
    Show();
    connect(m_source, &SourceChoice::Changed, this, [this] { Show(); });
    connect(m_range, &QComboBox::currentIndexChanged, this, [this] { Show(); });
    connect(m_view, &DifferenceView::Chosen, this, [this] { EnableOk(); });
    return CDialog::OnInitDialog();
}

bool CTakeFromDialog::IsInRange(const CriterionInfo& criterion) const
{
    const int range = m_page ? m_range->currentIndex() : kEverything;
    return range == kEverything || &criterion == m_page ||
           (range == kItsGroup && CString(criterion.group) == m_page->group);
}

CDesignSpecification CTakeFromDialog::InRange(const CDesignSpecification& source) const
{
    CDesignSpecification made = m_entered;
    CopySome(made, source, [this](const CriterionInfo& one) { return IsInRange(one); });
    made.MaxSuperElev.Criterion = m_entered.MaxSuperElev.Criterion; // no page shows it
    return made;
}

// All is taken at first.
void CTakeFromDialog::Show()
{
    const CDesignSpecification* const source = m_source->Chosen();
    m_view->ShowTwo(m_entered, source ? InRange(*source) : m_entered,
                    {.left = QStringLiteral("编辑中"),
                     .right = m_source->Title(),
                     .changeable = {.left = true, .right = false}});
    m_view->TakeAll(Choice::Right);
    EnableOk();
}

void CTakeFromDialog::EnableOk()
{
    EnableWindow(IDOK, m_view->Choices().IsLeftChanged());
}

CDesignSpecification CTakeFromDialog::Made() const
{
    return m_view->Choices().MadeLeft();
}
