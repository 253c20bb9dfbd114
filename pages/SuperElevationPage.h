// The page for superelevation tables, one for each maximum superelevation in use.
#pragma once

#include <map>

#include "pages/MaxSuperElevPage.h"
#include "pages/framework/PageCallback.h"
#include "pages/framework/SpeedGrid.h"

class CSuperElevationPage;
class QListWidget;

class CSuperElevationPageCallback : public CDSPageCallback<&CDesignSpecification::SuperElevation> {
public:
    explicit CSuperElevationPageCallback(CSuperElevationPage* page);

    bool Validate(CString& message) override;
    void OnShow() override;
    bool IsBuiltIn() override;

private:
    CSuperElevationPage* m_page;
};

class CSuperElevationPage : public CCriterionPage<CDSSuperElevation> {
public:
    // `maxPage` tells which maximum superelevations there are; without it there are none.
    explicit CSuperElevationPage(const CMaxSuperElevPage* maxPage);
    CDSCallback& Callback() override { return m_callback; }

    void LoadStep(const CDSSuperElevation& criterion) override;
    // Stores the tables of the maximum superelevations in use; the grid's as it was when Check
    // was called last.
    bool StoreStep(CDSSuperElevation& criterion, CString& message) override;

    // That of a maximum superelevation, %.
    void ShowTable(int maximum) override { SelectMaximum(maximum); }

    // Takes the grid's table over and tells whether all tables in use are there and whole.
    bool Check(CString& message);
    // Takes the grid's table over; a cell that is being edited counts as it was before.
    void TakeTable();
    // Brings the list in line with the maximum superelevations in use. Tables that are filled
    // stay in the list.
    void RebuildList();

protected:
    void InitPage() override;
    CString TableHeading() const override;

private:
    using Rows = GrowArray<SuperElevSpeedRow>;
    static constexpr int kNone = -1;

    CArray<int> MaximaInUse() const;
    bool CheckTable(int maximum, CString& message);
    bool CheckSpeed(int maximum, const SuperElevSpeedRow& row, CString& message);

    void FillList(CArray<int> maxima);
    int SelectedMaximum() const;
    void SelectMaximum(int maximum);
    void OnSelected();

    void ShowCurrent();
    void SayWhatToDo();
    void CommitTable();
    GrowArray<SuperElevRange> RangesOf(int speed) const;

    void ExtendMenu();
    void AppendSuperElevations(CMenu& menu, UINT firstId) const;
    void ToggleSuperElevation(int superElev);
    int RowOf(int superElev) const { return m_grid.FindRow(static_cast<unsigned>(superElev)); }
    void AddSuperElevation(int superElev);
    CString SuperElevationName(const CString& caption) const;

    CSuperElevationPageCallback m_callback{this};
    const CMaxSuperElevPage* m_maxPage;
    CSpeedGrid m_grid;
    QListWidget* m_list = nullptr;
    std::map<int, Rows> m_tables; // by maximum superelevation, %
    int m_current = kNone;        // the maximum superelevation whose table the grid shows
    CString m_source;
};
