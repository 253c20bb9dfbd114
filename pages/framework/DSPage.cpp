#include "pages/framework/DSPage.h"

#include <QAbstractButton>
#include <QBoxLayout>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QSettings>

#include "app/input/InputTextDialog.h"
#include "app/input/NumberText.h"
#include "base/Text.h"
#include "pages/framework/CellToolTip.h"
#include "pages/framework/CurveView.h"
#include "pages/framework/FamilyIcon.h"
#include "pages/framework/FilledIcon.h"
#include "pages/framework/GridCurves.h"
#include "pages/framework/ReadOnlyLook.h"
#include "pages/framework/WheelGuard.h"
#include "platform/mfc/QtText.h"

using namespace designspec;

namespace {

constexpr wchar_t kSource[] = L"数据来源";
constexpr wchar_t kNone[] = L"未填";
constexpr QSize kSmallestGrid(260, 110); // a header and three rows
const QString kCurvesText = QStringLiteral("图(&G)");
constexpr char kCurvesShown[] = "DSMainDialog/curves"; // in the settings, for all pages

// The layout that holds a widget, in `layout` or below it; null when none does.
QBoxLayout* BoxOf(QWidget* widget, QLayout* layout)
{
    if (!layout) return nullptr;
    if (layout->indexOf(widget) >= 0) return qobject_cast<QBoxLayout*>(layout);
    for (int i = 0; i < layout->count(); ++i)
        if (QBoxLayout* const found = BoxOf(widget, layout->itemAt(i)->layout())) return found;
    return nullptr;
}

// What Tab comes to last in that part of a layout; null when there is nothing.
QWidget* LastToFocus(const QLayoutItem* item)
{
    if (auto* const curves = qobject_cast<GridCurves*>(item->widget())) return &curves->View();
    if (QWidget* const widget = item->widget())
        return widget->focusPolicy() == Qt::NoFocus ? nullptr : widget;
    const QLayout* const layout = const_cast<QLayoutItem*>(item)->layout();
    for (int i = layout ? layout->count() : 0; i > 0; --i)
        if (QWidget* const last = LastToFocus(layout->itemAt(i - 1))) return last;
    return nullptr;
}

CString SourceLine(const CString& source)
{
    return CString(kSource) + L": " + (source.empty() ? kNone : Printable(source));
}

} // namespace

CDSPage::CDSPage(UINT nIDTemplate) : CDialog(nIDTemplate) {}

std::shared_ptr<const CDSPage::Books> CDSPage::SharedBooks()
{
    static std::weak_ptr<const Books> shared;
    std::shared_ptr<const Books> books = shared.lock();
    if (books) return books;
    const QIcon empty = FamilyIcon(L"IDI_ICON_BOOK");
    books = std::make_shared<const Books>(Books{empty, FilledIcon(empty)});
    shared = books;
    return books;
}

bool CDSPage::OnInitDialog()
{
    for (const Source& source : m_sources) {
        auto* const button = GetDlgItem<QPushButton>(source.id);
        if (!button) continue;
        button->setText(QString());
        button->setIconSize({kFamilyIconSize, kFamilyIconSize});
        button->setIcon(m_books->empty); // its size counts
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
        button->setIcon(source.text->empty() ? m_books->empty : m_books->filled);
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
    if (!cell->GetMark().empty()) text += L'\n' + cell->GetMark();
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
    AddCurves(*grid);
    return grid;
}

void CDSPage::AddCurves(CXTPReportControl& grid)
{
    const CriterionInfo* const criterion = Callback().Info();
    if (!criterion) return;
    m_curves.push_back(new GridCurves(grid, *criterion, [this] { return TableHeading(); }));
    connect(&m_curves.back()->View(), &CurveView::CompareWanted, this,
            [this](bool wanted) { Callback().AskCompared(wanted); });
    if (!m_curvesButton) AddCurvesButton();
    if (m_curvesButton)
        connect(m_curvesButton, &QPushButton::toggled, m_curves.back(), &GridCurves::SetWanted);
}

void CDSPage::CompareCurves(const CDesignSpecification* other, const CString& name)
{
    for (GridCurves* curves : m_curves)
        curves->Compare(other, name);
}

// Behind the hint, in its row.
void CDSPage::AddCurvesButton()
{
    QWidget* const hint = GetDlgItem(kHint);
    QBoxLayout* box = hint ? BoxOf(hint, hint->parentWidget()->layout()) : nullptr;
    if (!box) return;
    QWidget* before = hint; // in the order of Tab
    int place = box->indexOf(hint);
    if (box->direction() == QBoxLayout::TopToBottom) {
        auto* const row = new QHBoxLayout;
        delete box->takeAt(place);
        box->insertLayout(place, row);
        row->addWidget(hint);
        row->addStretch();
        // Forms make what stands in no row first.
        if (QWidget* const above = place > 0 ? LastToFocus(box->itemAt(place - 1)) : nullptr)
            before = above;
        box = row;
        place = 0;
    }
    m_curvesButton = new QPushButton(kCurvesText, hint->parentWidget());
    m_curvesButton->setProperty(kControlIdProperty, kCurves);
    m_curvesButton->setCheckable(true);
    m_curvesButton->setAutoDefault(false);
    m_curvesButton->setFixedWidth(m_curvesButton->fontMetrics().horizontalAdvance(kCurvesText) +
                                  m_curvesButton->sizeHint().height());
    m_curvesButton->setToolTip(QStringLiteral("在表格旁画出它的曲线; 窗口放不下时不显示"));
    box->insertWidget(place + 1, m_curvesButton);
    const Qt::FocusPolicy policy = before->focusPolicy();
    before->setFocusPolicy(Qt::TabFocus); // what takes no focus has no place in the order
    setTabOrder(before, m_curvesButton);
    before->setFocusPolicy(policy);
    connect(m_curvesButton, &QPushButton::clicked, this, [this](bool checked) {
        QSettings().setValue(kCurvesShown, checked);
        MakeRoomForCurves();
    });
}

// The window gets higher where the screen has room for that.
void CDSPage::MakeRoomForCurves()
{
    int missing = 0;
    for (const GridCurves* curves : m_curves)
        missing += curves->MissingHeight();
    QWidget* const all = window();
    const QRect free = all->screen()->availableGeometry();
    const QRect outer = all->frameGeometry();
    if (missing == 0 || !isVisible() || all->isMaximized() ||
        outer.height() + missing > free.height())
        return;
    all->resize(all->width(), all->height() + missing);
    const int beyond = outer.bottom() + missing - free.bottom();
    if (beyond > 0) all->move(all->x(), all->y() - beyond);
}

// As it was left on whatever page.
void CDSPage::showEvent(QShowEvent* event)
{
    CDialog::showEvent(event);
    if (!m_curvesButton) return;
    m_curvesButton->setChecked(QSettings().value(kCurvesShown).toBool());
    // Not before the page has its size.
    QMetaObject::invokeMethod(
        this, [this] { MakeRoomForCurves(); }, Qt::QueuedConnection);
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
