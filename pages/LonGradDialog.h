// The page for longitudinal gradients.
#pragma once

#include "pages/framework/PageCallback.h"
#include "pages/framework/SpeedTableGrid.h"

class CLonGradDialogCallback : public CDSPageCallback<&CDesignSpecification::LonGrad> {
    using CDSPageCallback::CDSPageCallback;
};

class CLonGradDialog : public CCriterionPage<CDSLonGrad> {
public:
    CLonGradDialog();
    CDSCallback& Callback() override { return m_callback; }

    void LoadStep(const CDSLonGrad& criterion) override;
    bool StoreStep(CDSLonGrad& criterion, CString& message) override;

protected:
    void InitPage() override;

private:
    CLonGradDialogCallback m_callback{this};
    CSpeedTableGrid<CDSLonGrad, double> m_grid;
    CString m_source;
};
