// The page for resultant gradients: a row for each road class that has any.
#pragma once

#include "pages/framework/PageCallback.h"
#include "pages/framework/SpeedGrid.h"

class CResultantGradientDialogCallback
    : public CDSPageCallback<&CDesignSpecification::MaxResultantGrad> {
    using CDSPageCallback::CDSPageCallback;
};

class CResultantGradientDialog : public CCriterionPage<CDSMaxResultantGrad> {
public:
    CResultantGradientDialog();
    CDSCallback& Callback() override { return m_callback; }

    void LoadStep(const CDSMaxResultantGrad& criterion) override;
    bool StoreStep(CDSMaxResultantGrad& criterion, CString& message) override;

protected:
    void InitPage() override;

private:
    void AddRoadType(int type);
    CDSMaxResultantGrad::RoadType RoadTypeOf(int row) const;
    int RowOf(int type) const { return m_grid.FindRow(static_cast<unsigned>(type)); }
    void AppendRoadTypes(CMenu& menu, UINT firstId) const;
    void ToggleRoadType(int type);

    CResultantGradientDialogCallback m_callback{this};
    CSpeedGrid m_grid;
    CString m_source;
};
