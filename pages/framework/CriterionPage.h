// A page for one criterion: what all of them do with it.
#pragma once

#include "pages/framework/DSPage.h"

template <class Criterion> class CCriterionPage : public CDSPage {
public:
    // Criterion into page.
    virtual void LoadStep(const Criterion& criterion) = 0;
    // Page into criterion, with its checks; `return Refuse(message, …)` ends it. What was written
    // before that stays written: only a valid page is stored into a specification.
    virtual bool StoreStep(Criterion& criterion, CString& message) = 0;

protected:
    using CDSPage::CDSPage;

    // Makes the grids and wires the controls.
    virtual void InitPage() = 0;

    bool OnInitDialog() override
    {
        InitPage();
        LoadStep(Criterion()); // until something is loaded the page shows the built-in limits
        return CDSPage::OnInitDialog();
    }
};
