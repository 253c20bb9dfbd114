#include "pages/framework/DSPage.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

#include "app/input/InputTextDialog.h"
#include "app/input/NumberText.h"
#include "base/Text.h"
#include "pages/framework/CellToolTip.h"
#include "pages/framework/FamilyIcon.h"
#include "pages/framework/FilledIcon.h"
#include "pages/framework/ReadOnlyLook.h"
#include "pages/framework/WheelGuard.h"
#include "platform/mfc/QtText.h"

using namespace designspec;

namespace {

constexpr wchar_t kSource[] = L"数据来源";
constexpr wchar_t kNone[] = L"未填";
constexpr QSize kSmallestGrid(260, 110); // a header and three rows

CString SourceLine(const CString& source)
{
    return CString(kSource) + L": " + (source.empty() ? kNone : Printable(source));
}

} // namespace

CDSPage::CDSPage(UINT nIDTemplate)
    : CDialog(nIDTemplate), m_bookIcon(FamilyIcon(L"IDI_ICON_BOOK")),
      m_filledBook(FilledIcon(m_bookIcon))
{
}

bool CDSPage::OnInitDialog()
{
    for (const Source& source : m_sources) {
        auto* const button = GetDlgItem<QPushButton>(source.id);
        if (!button) continue;
        button->setText(QString());
        button->setIconSize({kFamilyIconSize, kFamilyIconSize});
        button->setIcon(m_bookIcon); // its size counts
        button->setFixedWidth(button->sizeHint().height());
        button->setAccessibleName(ToQString(kSource));
        connect(button, &QAbstractButton::clicked, this,
                [this, text = source.text] { OpenSource(*text); });
    }
    ShowSources();
    for (QComboBox* combo : findChildren<QComboBox*>())
        new CWheelGuard(combo);
    return CDialog::OnInitDialog();
}

void CDSPage::AddSourceButton(int button, CString& text)
{
    m_sources.push_back({button, &text});
}

void CDSPage::OpenSource(CString& text)
{
    const bool readOnly = IsViewMode();
    CInputTextDialog dialog(kSource, readOnly ? L"数据来源:" : L"输入数据来源:", this);
    dialog.SetText(text);
    dialog.SetReadOnly(readOnly);
    dialog.DoModal();
    // After Cancel the dialog has the old text; only blanks around it can go then.
    if (!readOnly) text = Trim(dialog.GetText());
    ShowSources();
}

void CDSPage::ShowSources()
{
    for (const Source& source : m_sources) {
        auto* const button = GetDlgItem<QPushButton>(source.id);
        if (!button) continue;
        const CString told = SourceLine(*source.text);
        button->setIcon(source.text->empty() ? m_bookIcon : m_filledBook);
        button->setToolTip(ToToolTip(ToQString(told)));
        button->setAccessibleDescription(ToQString(told));
    }
}

CString CDSPage::Explain(const CXTPReportControl& grid, const QModelIndex& index) const
{
    const auto* const cell = dynamic_cast<const CMyRecordItemValue*>(grid.ItemAt(index));
    if (!cell) return {};
    CString text = cell->IsEmpty() ? CString(kNone) : cell->GetReadableText();
    if (!m_sources.empty()) text += L'\n' + SourceLine(*m_sources.back().text);
    if (grid.IsAllowEdit()) text += L'\n' + RuleOf(*cell, index);
    return text;
}

CString CDSPage::RuleOf(const CMyRecordItemValue& cell, const QModelIndex&) const
{
    return cell.GetRule();
}

const CString& CDSPage::SourceText(int source) const
{
    return *m_sources.at(static_cast<size_t>(source)).text;
}

QWidget* CDSPage::SourceButton(int source) const
{
    return GetDlgItem(m_sources.at(static_cast<size_t>(source)).id);
}

QWidget* CDSPage::LimitControl(const CString& label) const
{
    for (const Limit& limit : m_limits)
        if (label == limit.label) return GetDlgItem(limit.control);
    return nullptr;
}

QWidget* CDSPage::CheckOf(const QWidget* control) const
{
    for (const Check& check : m_checks)
        for (const int id : check.controls)
            if (GetDlgItem(id) == control) return GetDlgItem(check.id);
    return nullptr;
}

void CDSPage::InOneStep(const std::function<void()>& change)
{
    std::function<void()> all = change;
    for (CXTPReportControl* const grid : m_grids)
        all = [grid, inner = std::move(all)] { grid->GetUndo().Step(inner); };
    all();
}

void CDSPage::DisableInViewMode(std::initializer_list<int> controls)
{
    m_locked.insert(m_locked.end(), controls);
}

void CDSPage::MakeReadOnly()
{
    for (CXTPReportControl* grid : m_grids)
        grid->AllowEdit(false);
    for (int control : m_locked)
        DisableReadably(GetDlgItem(control));
    for (int hint : m_hints)
        ShowWindow(hint, false);
}

void CDSPage::CommitGrids()
{
    for (CXTPReportControl* grid : m_grids)
        grid->CommitEdit();
}

bool CDSPage::CommitGrids(CString& message)
{
    for (CXTPReportControl* grid : m_grids)
        if (const CString told = grid->CommitEditQuietly(); !told.empty()) {
            grid->SetRemark(told); // not everybody who asks shows the message
            return Refuse(message, told, grid->property(kControlIdProperty).toInt());
        }
    return true;
}

CXTPReportControl* CDSPage::CreateGrid(int placeholder, int gridId, const CString& corner,
                                       int headerWidth)
{
    auto* const grid = new CXTPReportControl(this);
    if (QWidget* const frame = GetDlgItem(placeholder)) grid->CreateOver(frame, gridId);
    grid->setMinimumSize(grid->minimumSize().expandedTo(kSmallestGrid));
    grid->AllowEdit(true);
    grid->GetColumns().Add(new CXTPReportColumn(0, corner, headerWidth));
    m_grids.push_back(grid);
    new CCellToolTip(grid, [this, grid](const QModelIndex& cell) { return Explain(*grid, cell); });
    return grid;
}

void CDSPage::EnableByCheck(int checkBox, std::initializer_list<int> controls)
{
    auto* const button = GetDlgItem<QAbstractButton>(checkBox);
    if (!button) return;
    const auto enable = [this, controls = std::vector<int>(controls)](bool checked) {
        for (int control : controls)
            EnableWindow(control, checked);
    };
    m_checks.push_back({checkBox, controls});
    connect(button, &QAbstractButton::toggled, this, enable);
    enable(button->isChecked());
}

CString CDSPage::EnteredTextOf(int edit) const
{
    return EnteredText(GetDlgItemText(edit));
}

bool CDSPage::Refuse(CString& message, const CString& text, int control,
                     std::function<void()> goThere)
{
    message = text;
    m_refused = control;
    m_goToRefused = std::move(goThere);
    return false;
}

void CDSPage::FocusRefused()
{
    QWidget* const control = GetDlgItem(m_refused);
    if (!control) return;
    control->setFocus();
    if (auto* const edit = qobject_cast<QLineEdit*>(control)) edit->selectAll();
    if (m_goToRefused) m_goToRefused();
}
