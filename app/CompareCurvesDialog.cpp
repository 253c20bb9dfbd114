#include "app/CompareCurvesDialog.h"

#include <QVBoxLayout>

#include "compare/SourceChoice.h"
#include "library/DesignSpecifications.h"
#include "platform/mfc/QtText.h"

using namespace designspec;

namespace {

constexpr UINT kDialogResource = 145;

} // namespace

CCompareCurvesDialog::CCompareCurvesDialog(const CDesignSpecification& edited, QWidget* parent)
    : CDialog(kDialogResource, parent),
      m_source(new SourceChoice(QStringLiteral("与之比较(&S):"), kSource))
{
    setWindowTitle(QStringLiteral("与其他规范比较"));
    auto* const layout = new QVBoxLayout(GetDlgItem(kPlace));
    layout->setContentsMargins({});
    layout->addWidget(m_source);
    layout->addStretch();
    const GUID own = edited.ID();
    m_source->Fill(CDesignSpecifications::GetInstance()->Folder(), &own);
    m_source->SetLike([&edited] { return &edited; });
    resize(sizeHint());
}

const CDesignSpecification* CCompareCurvesDialog::Chosen() const
{
    return m_source->Chosen();
}

CString CCompareCurvesDialog::Title() const
{
    return FromQString(m_source->Title());
}
