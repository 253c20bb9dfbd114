// The page for radii and lengths of vertical curves.
#pragma once

#include "pages/framework/SpeedTablePage.h"

class CVerticalCurveMinRadDialogCallback
    : public CDSPageCallback<&CDesignSpecification::VerticalCurveMinRadAndLen> {
    using CDSPageCallback::CDSPageCallback;
};

class CVerticalCurveMinRadDialog : public CSpeedTablePage<CDSVerticalCurveMinRadAndLen> {
public:
    CVerticalCurveMinRadDialog();
    CDSCallback& Callback() override { return m_callback; }

private:
    CVerticalCurveMinRadDialogCallback m_callback{this};
};
