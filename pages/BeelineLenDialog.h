// The page for lengths of straight lines.
#pragma once

#include "pages/framework/PageCallback.h"

class CBeelineLenDialogCallback : public CDSPageCallback<&CDesignSpecification::BeelineLen> {
    using CDSPageCallback::CDSPageCallback;
};

struct BeelineLenRow;

class CBeelineLenDialog : public CCriterionPage<CDSBeelineLen> {
public:
    CBeelineLenDialog();
    CDSCallback& Callback() override { return m_callback; }

    void LoadStep(const CDSBeelineLen& criterion) override;
    bool StoreStep(CDSBeelineLen& criterion, CString& message) override;

protected:
    void InitPage() override;

private:
    bool StoreRow(const BeelineLenRow& row, const CString& source, CDSBeelineLen& criterion,
                  CString& message);

    CBeelineLenDialogCallback m_callback{this};
    CString m_sources[3]; // by row
};
