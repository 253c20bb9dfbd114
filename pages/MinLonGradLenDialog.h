// The page for minimum lengths of grades.
#pragma once

#include "pages/framework/SpeedTablePage.h"

class CMinLonGradLenDialogCallback : public CDSPageCallback<&CDesignSpecification::LonGradMinLen> {
    using CDSPageCallback::CDSPageCallback;
};

class CMinLonGradLenDialog : public CSpeedTablePage<CDSLonGradMinLen> {
public:
    CMinLonGradLenDialog();
    CDSCallback& Callback() override { return m_callback; }

private:
    CMinLonGradLenDialogCallback m_callback{this};
};
