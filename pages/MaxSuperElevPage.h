// The page for maximum superelevations and their runoffs.
#pragma once

#include "pages/framework/PageCallback.h"
#include "pages/framework/SpeedTableGrid.h"

class CMaxSuperElevPageCallback : public CDSPageCallback<&CDesignSpecification::MaxSuperElev> {
    using CDSPageCallback::CDSPageCallback;
};

class CMaxSuperElevPage : public CCriterionPage<CDSMaxSuperElevation> {
public:
    CMaxSuperElevPage();
    CDSCallback& Callback() override { return m_callback; }

    // The maximum superelevations (%) that stand on the page now, each once: the one for snow and
    // ice first, then those of the speeds from left to right. What could not be stored is left
    // out.
    CArray<int> GetMaxSuperElevations() const;

    void LoadStep(const CDSMaxSuperElevation& criterion) override;
    bool StoreStep(CDSMaxSuperElevation& criterion, CString& message) override;

protected:
    CString RuleOf(const CMyRecordItemValue& cell, const QModelIndex& index) const override;
    void InitPage() override;

private:
    bool StoreSpeed(int speed, CDSMaxSuperElevation& criterion, CString& message);
    bool StoreSnow(CDSMaxSuperElevation& criterion, CString& message);
    bool ReadSnow(int& value) const;

    CMaxSuperElevPageCallback m_callback{this};
    CSpeedTableGrid<CDSMaxSuperElevation> m_grid;
    CString m_source; // lives with the page; the criterion's own source stays as it is
};
