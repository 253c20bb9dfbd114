// The page for widenings on curves, by range of radii and category of vehicles.
#pragma once

#include "pages/WideningGrid.h"
#include "pages/framework/PageCallback.h"

class QComboBox;

class CCurveWideningPageCallback : public CDSPageCallback<&CDesignSpecification::CurveWidening> {
    using CDSPageCallback::CDSPageCallback;
};

class CCurveWideningPage : public CCriterionPage<CDSCurveWidening> {
public:
    CCurveWideningPage();
    CDSCallback& Callback() override { return m_callback; }

    void LoadStep(const CDSCurveWidening& criterion) override;
    bool StoreStep(CDSCurveWidening& criterion, CString& message) override;

protected:
    void InitPage() override;

private:
    void LoadRanges(const CDSCurveWidening& criterion);
    void LoadWidenings(const CDSCurveWidening& criterion);

    bool CheckContinuity(CString& message);
    void GoToRange(const CMyRadiusRangeColumn* range);
    void GoToGap(int row, const std::vector<size_t>& gaps);
    bool StoreRow(int row, CDSCurveWidening& criterion, CString& message);

    CCurveWideningPageCallback m_callback{this};
    CWideningGrid m_grid;
    QComboBox* m_mode = nullptr; // which end of its range a radius may equal
    CString m_source;
};
