#include "pages/ResultantGradientDialog.h"

#include "app/input/NumberText.h"
#include "model/Rules.h"
#include "pages/framework/MyRecordItemPositiveDouble.h"

using namespace designspec;

namespace {

constexpr UINT kDialogResource = 108;
constexpr int kSnowEdit = 108;
constexpr wchar_t kSnow[] = L"积雪冰冻地区最大合成坡度"; // the field's label; also in messages

using C = CDSMaxResultantGrad;

// The road class that a pasted caption means, -1 when it is none.
int RoadTypeOf(const CString& caption)
{
    CStringArray labels;
    for (int type = 0; type < C::kRoadTypes; ++type)
        labels.push_back(RoadTypeLabel(type));
    return CaptionIndex(labels).Find(caption);
}

CString RoadTypeName(const CString& caption)
{
    return RoadTypeLabel(RoadTypeOf(caption));
}

} // namespace

CResultantGradientDialog::CResultantGradientDialog() : CCriterionPage(kDialogResource)
{
    AddSourceButton(kSourceButton, m_source);
    AddLimit(kSnowEdit, kSnow);
    DisableInViewMode({kSnowEdit});
}

void CResultantGradientDialog::InitPage()
{
    m_grid.Create(*this, [](int) { return InPercent<MakeDecimalCell<1, true>>(); },
                  {.headerWidth = 140, .addedWidth = 35});
    m_grid.ExtendMenu({[this](CMenu& menu, UINT firstId) { AppendRoadTypes(menu, firstId); },
                       [this](int index) { ToggleRoadType(index); }});
    m_grid.Control().SetRowOffer({L"道路等级", L"", RoadTypeName, [this](const auto& names) {
                                      for (const CString& name : names)
                                          AddRoadType(::RoadTypeOf(name));
                                  }});
}

void CResultantGradientDialog::LoadStep(const C& criterion)
{
    CArray<int> speeds;
    for (const SpeedToDoubleValues& table : criterion.tables)
        MergeSpeeds(speeds, table);
    m_grid.RemoveRows();
    m_grid.SetSpeeds(speeds);
    for (int type = 0; type < C::kRoadTypes; ++type) {
        const SpeedToDoubleValues& table = criterion.tables[type];
        if (table.count == 0) continue;
        AddRoadType(type);
        m_grid.SetRow(m_grid.GetRowCount() - 1, table);
    }
    m_grid.ShowLoaded();
    SetDlgItemText(kSnowEdit, DecimalText(criterion.MaxResultantGradOnSnowFrozenRegion, 1, false));
    m_source = criterion.Criterion;
}

bool CResultantGradientDialog::StoreStep(C& criterion, CString& message)
{
    const CString text = EnteredTextOf(kSnowEdit);
    if (text.empty()) return Refuse(message, CString(kSnow) + L"不能是空!", kSnowEdit);
    if (!ReadOneDecimal(text, criterion.MaxResultantGradOnSnowFrozenRegion))
        return Refuse(message, GradientText(kSnow), kSnowEdit);
    for (SpeedToDoubleValues& table : criterion.tables)
        table.RemoveAll();
    for (int row = 0; row < m_grid.GetRowCount(); ++row)
        m_grid.AppendRowTo(row, criterion.Item(RoadTypeOf(row)));
    criterion.Criterion = m_source;
    return true;
}

// Rows

void CResultantGradientDialog::AddRoadType(int type)
{
    m_grid.AddRow(RoadTypeLabel(type), static_cast<unsigned>(type));
}

C::RoadType CResultantGradientDialog::RoadTypeOf(int row) const
{
    return static_cast<C::RoadType>(m_grid.RowHeader(row)->GetItemData());
}

// Menu

void CResultantGradientDialog::AppendRoadTypes(CMenu& menu, UINT firstId) const
{
    for (int type = 0; type < C::kRoadTypes; ++type)
        menu.AppendMenu(MF_STRING | (RowOf(type) >= 0 ? MF_CHECKED : 0),
                        firstId + static_cast<UINT>(type), RoadTypeLabel(type));
}

void CResultantGradientDialog::ToggleRoadType(int type)
{
    const int row = RowOf(type);
    if (row >= 0)
        m_grid.RemoveRow(row);
    else
        AddRoadType(type);
}
