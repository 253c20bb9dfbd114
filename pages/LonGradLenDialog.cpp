#include "pages/LonGradLenDialog.h"

#include <algorithm>

#include "app/input/InputGradientDialog.h"
#include "app/input/NumberText.h"
#include "base/Number.h"
#include "base/Text.h"
#include "model/Rules.h"
#include "pages/framework/MyRecordItemPositiveInt.h"

using namespace designspec;

namespace {

constexpr UINT kDialogResource = 110;
constexpr double kStandardGradients[] = {3, 4, 4.5, 5, 5.5, 6, 6.5, 7, 8, 9, 10}; // %
constexpr wchar_t kRowCaption[] = L"坡度";
constexpr size_t kRowCaptionLength = 2;

CString GradientText(double gradient)
{
    return DecimalText(gradient, 1, true) + L"%";
}

// The gradient that a pasted caption means: "3", "3%", "坡度 3%", "i=3%"; empty when it is none.
CString GradientName(const CString& caption)
{
    constexpr wchar_t kWords[] = L"纵坡坡度";
    const auto number = CaptionParts(caption).OnlyNumber(kWords);
    if (!number || *number > kSteepestGradient) return {};
    double gradient = 0;
    const bool isGradient = ReadOneDecimal(ToWide(DoubleToText(*number)), gradient);
    return isGradient ? GradientText(gradient) : CString();
}

} // namespace

std::vector<GradientChoice> GradientChoices(const CArray<double>& present)
{
    std::vector<GradientChoice> choices;
    for (double gradient : kStandardGradients)
        choices.push_back({gradient, false});
    for (double gradient : present) {
        const auto same =
            std::find_if(choices.begin(), choices.end(), [gradient](const GradientChoice& one) {
                return !one.present && one.gradient == gradient;
            });
        if (same != choices.end()) {
            same->present = true;
            continue;
        }
        // Present ones count as lower than any.
        const auto lower =
            std::find_if(choices.rbegin(), choices.rend(), [gradient](const GradientChoice& one) {
                return one.present || one.gradient < gradient;
            });
        choices.insert(lower.base(), {gradient, true});
    }
    return choices;
}

CLonGradLenDialog::CLonGradLenDialog() : CCriterionPage(kDialogResource)
{
    AddSourceButton(kSourceButton, m_source);
}

void CLonGradLenDialog::InitPage()
{
    m_grid.Create(*this, [](int) { return MakeCell<CMyRecordItemPositiveInt>(); });
    m_grid.ExtendMenu({[this](CMenu& menu, UINT firstId) { AppendGradients(menu, firstId); },
                       [this](int index) { Choose(index); }});
    m_grid.Control().SetRowOffer({L"坡度", L"", GradientName, [this](const CStringArray& names) {
                                      for (const CString& name : names)
                                          AddGradient(Wtof(name));
                                  }});
}

void CLonGradLenDialog::LoadStep(const CDSLonGradMaxLen& criterion)
{
    CArray<int> speeds;
    for (const GradientRow& entry : criterion.rows)
        MergeSpeeds(speeds, entry.lengths);
    m_grid.RemoveRows();
    m_grid.SetSpeeds(speeds);
    for (const GradientRow& entry : criterion.rows) {
        const int row = m_grid.GetRowCount();
        InsertGradient(row, entry.Grad);
        m_grid.SetRow(row, entry.lengths);
    }
    m_grid.ShowLoaded();
    m_source = criterion.Criterion;
}

bool CLonGradLenDialog::StoreStep(CDSLonGradMaxLen& criterion, CString&)
{
    criterion.rows.RemoveAll();
    for (int row = 0; row < m_grid.GetRowCount(); ++row) {
        GradientRow entry;
        entry.Grad = GradientOf(row);
        m_grid.AppendRowTo(row, entry.lengths);
        if (entry.lengths.count > 0) criterion.rows.Add(entry);
    }
    criterion.Criterion = m_source;
    return true;
}

// Rows

void CLonGradLenDialog::InsertGradient(int at, double gradient)
{
    m_grid.InsertRow(at, kRowCaption + GradientText(gradient),
                     static_cast<unsigned>(GradientTenths(gradient)));
}

void CLonGradLenDialog::AddGradient(double gradient)
{
    int at = m_grid.GetRowCount();
    while (at > 0 && ShownGradientOf(at - 1) >= gradient)
        --at;
    InsertGradient(at, gradient);
}

void CLonGradLenDialog::RemoveGradient(double gradient)
{
    for (int row = 0; row < m_grid.GetRowCount(); ++row)
        if (ShownGradientOf(row) == gradient) {
            m_grid.RemoveRow(row);
            return;
        }
}

double CLonGradLenDialog::GradientOf(int row) const
{
    return m_grid.RowHeader(row)->GetItemData() / 10.0;
}

double CLonGradLenDialog::ShownGradientOf(int row) const
{
    return Wtof(m_grid.RowHeader(row)->GetCaption().substr(kRowCaptionLength));
}

CArray<double> CLonGradLenDialog::Gradients() const
{
    CArray<double> gradients;
    for (int row = 0; row < m_grid.GetRowCount(); ++row)
        gradients.push_back(GradientOf(row));
    return gradients;
}

// Menu

void CLonGradLenDialog::AppendGradients(CMenu& menu, UINT firstId) const
{
    CMenu gradients;
    for (const GradientChoice& choice : GradientChoices(Gradients()))
        gradients.AppendMenu(MF_STRING | (choice.present ? MF_CHECKED : 0), firstId++,
                             GradientText(choice.gradient));
    gradients.AppendMenu(MF_STRING, firstId, L"输入坡度...");
    menu.AppendMenu(MF_POPUP, std::move(gradients), L"纵坡坡度(%)");
}

void CLonGradLenDialog::Choose(int index)
{
    const std::vector<GradientChoice> choices = GradientChoices(Gradients());
    if (index == static_cast<int>(choices.size())) {
        AskForGradient();
        return;
    }
    const GradientChoice& choice = choices[static_cast<size_t>(index)];
    if (choice.present)
        RemoveGradient(choice.gradient);
    else
        AddGradient(choice.gradient);
}

void CLonGradLenDialog::AskForGradient()
{
    CInputGradientDialog dialog(L"输入坡度", L"纵坡坡度(%):", Gradients(), this);
    CString text;
    if (dialog.Input(text)) AddGradient(Wtof(text));
}
