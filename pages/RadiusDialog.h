// The page for radii of circular curves.
#pragma once

#include "pages/framework/PageCallback.h"
#include "pages/framework/SpeedTableGrid.h"

class CRadiusDialogCallback : public CDSPageCallback<&CDesignSpecification::CircularCurveRad> {
    using CDSPageCallback::CDSPageCallback;
};

class CRadiusDialog : public CCriterionPage<CDSCircularCurveRad> {
public:
    CRadiusDialog();
    CDSCallback& Callback() override { return m_callback; }

    void LoadStep(const CDSCircularCurveRad& criterion) override;
    bool StoreStep(CDSCircularCurveRad& criterion, CString& message) override;

protected:
    void InitPage() override;

private:
    bool StoreMaxRad(CDSCircularCurveRad& criterion, CString& message);

    CRadiusDialogCallback m_callback{this};
    CSpeedTableGrid<CDSCircularCurveRad> m_grid;
    CString m_maxRadSource;
    CString m_minRadSource;
};
