// The page for lengths of horizontal curves with a small deflection angle.
#pragma once

#include "pages/framework/SpeedTablePage.h"

class CMinACurveLenDialogCallback
    : public CDSPageCallback<&CDesignSpecification::SmallAngleCurveMinLen> {
    using CDSPageCallback::CDSPageCallback;
};

class CMinACurveLenDialog : public CSpeedTablePage<CSmallAngleCurveMinLen> {
public:
    CMinACurveLenDialog();
    CDSCallback& Callback() override { return m_callback; }

private:
    CMinACurveLenDialogCallback m_callback{this};
};
