// A page that is one grid of speed tables with one data source, and has nothing to refuse.
#pragma once

#include "pages/framework/PageCallback.h"
#include "pages/framework/SpeedTableGrid.h"

template <class Criterion> class CSpeedTablePage : public CCriterionPage<Criterion> {
public:
    void LoadStep(const Criterion& criterion) override
    {
        m_grid.Load(criterion);
        m_source = criterion.Criterion;
    }

    bool StoreStep(Criterion& criterion, CString&) override
    {
        m_grid.Store(criterion);
        criterion.Criterion = m_source;
        return true;
    }

protected:
    // `rows` are a table that stays.
    CSpeedTablePage(UINT nIDTemplate, std::span<const SpeedTableRow<Criterion>> rows,
                    const SpeedGridLayout& layout = {})
        : CCriterionPage<Criterion>(nIDTemplate), m_rows(rows), m_layout(layout)
    {
        this->AddSourceButton(CDSPage::kSourceButton, m_source);
    }

    void InitPage() override { m_grid.Create(*this, m_rows, m_layout); }

private:
    std::span<const SpeedTableRow<Criterion>> m_rows;
    SpeedGridLayout m_layout;
    CSpeedTableGrid<Criterion> m_grid;
    CString m_source;
};
