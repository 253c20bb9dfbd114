// The page for lengths of horizontal curves and their circular parts.
#pragma once

#include "pages/framework/SpeedTablePage.h"

class CCurveLenDialogCallback : public CDSPageCallback<&CDesignSpecification::CurveMinLen> {
    using CDSPageCallback::CDSPageCallback;
};

class CCurveLenDialog : public CSpeedTablePage<CDSCurveMinLen> {
public:
    CCurveLenDialog();
    CDSCallback& Callback() override { return m_callback; }

private:
    CCurveLenDialogCallback m_callback{this};
};
