// The page for lengths of transition curves, and when a curve may do without one.
#pragma once

#include "pages/framework/PageCallback.h"
#include "pages/framework/SpeedTableGrid.h"

class CTransitionCurveDialogCallback
    : public CDSPageCallback<&CDesignSpecification::TransitionCurveMinLen> {
    using CDSPageCallback::CDSPageCallback;
};

class CTransitionCurveDialog : public CCriterionPage<CTransitionCurveMinLen> {
public:
    CTransitionCurveDialog();
    CDSCallback& Callback() override { return m_callback; }

    void LoadStep(const CTransitionCurveMinLen& criterion) override;
    bool StoreStep(CTransitionCurveMinLen& criterion, CString& message) override;

protected:
    void InitPage() override;

private:
    bool StoreCondition(CTransitionCurveMinLen& criterion, CString& message);

    CTransitionCurveDialogCallback m_callback{this};
    CSpeedTableGrid<CTransitionCurveMinLen> m_lengths;
    CSpeedTableGrid<CTransitionCurveMinLen> m_radii; // from which on none is needed
    CString m_source;
};
