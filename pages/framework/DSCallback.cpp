#include "pages/framework/DSCallback.h"

using namespace designspec;

CDSCallback::~CDSCallback() = default;

void CDSCallback::Activate()
{
    if (m_pMainDialog) m_pMainDialog->SelectPage(this);
}

void CDSCallback::OnShow() {}

bool CDSCallback::IsBuiltIn()
{
    return false;
}

void CDSCallback::StoreInto(CDesignSpecification&) {}

bool CDSCallback::IsViewMode() const
{
    return m_pMainDialog && m_pMainDialog->IsViewMode();
}

CDesignSpecification* CDSCallback::Specification() const
{
    return CDesignSpecifications::GetInstance()->Item(m_strName.c_str());
}

void CDSCallback::TakeFrom(const CDesignSpecification&) {}

const CriterionInfo* CDSCallback::Info() const
{
    return nullptr;
}

void CDSCallback::AskCompared(bool wanted)
{
    if (m_pMainDialog) m_pMainDialog->AskCompared(wanted);
}
