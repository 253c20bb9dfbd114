#include "app/HistoryDialog.h"

#include <algorithm>

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "app/SpecificationChange.h"
#include "base/Format.h"
#include "base/Text.h"
#include "compare/DifferenceView.h"
#include "library/DesignSpecifications.h"
#include "model/DifferenceLine.h"
#include "platform/arx/Documents.h"
#include "platform/mfc/GuideSection.h"
#include "platform/mfc/MessageBox.h"
#include "platform/mfc/QtText.h"
#include "platform/vmrd/VmHFCBaseU/Trace.h"

using namespace designspec;

namespace {

constexpr UINT kDialogResource = 140;

SpecificationFolder& Folder()
{
    return CDesignSpecifications::GetInstance()->Folder();
}

bool IsLess(const std::pair<CString, GUID>& a, const std::pair<CString, GUID>& b)
{
    return QString::localeAwareCompare(ToQString(a.first), ToQString(b.first)) < 0;
}

// Those of the library, by name.
std::vector<std::pair<CString, GUID>> Present()
{
    std::vector<std::pair<CString, GUID>> all;
    for (int i = 0; i < Folder().Count(); ++i)
        all.emplace_back(Folder().Item(i)->Name(), Folder().Item(i)->ID());
    std::sort(all.begin(), all.end(), IsLess);
    return all;
}

// Those that are not there any more: their files may have gone from the deleted ones, too.
std::vector<std::pair<CString, GUID>> Deleted()
{
    std::vector<std::pair<CString, GUID>> all;
    const auto has = [&](const GUID& id) {
        return Folder().Find(id) || std::any_of(all.begin(), all.end(),
                                                [&](const auto& one) { return one.second == id; });
    };
    Problems unheard;
    for (const DeletedStyle& one : Folder().Files().Deleted(unheard))
        if (!has(one.id)) all.emplace_back(one.name, one.id);
    for (const GUID& id : IdentitiesWithHistory(Folder(), unheard)) {
        if (has(id)) continue;
        const auto versions = VersionsOf(Folder(), id, unheard);
        const auto last =
            versions.empty() ? std::nullopt : ReadVersion(versions.front(), id, unheard);
        if (last) all.emplace_back(last->Name(), id);
    }
    std::sort(all.begin(), all.end(), IsLess);
    return all;
}

QString NumberText(const SpecificationState& state, bool isThere)
{
    if (state.number > 0) return QString::number(state.number);
    return isThere ? QStringLiteral("现在") : QStringLiteral("删除前");
}

// Of one of which nobody knows when it came, when it went.
QString TimeText(const SpecificationState& state)
{
    if (state.saved) return ToQString(LocalTime(*state.saved));
    return state.replaced ? QStringLiteral("%1 以前").arg(ToQString(LocalTime(*state.replaced)))
                          : QString();
}

QTreeWidget* MakeList()
{
    auto* const list = new QTreeWidget;
    list->setProperty(kControlIdProperty, CHistoryDialog::kVersions);
    list->setHeaderLabels({QStringLiteral("版本"), QStringLiteral("保存时间"),
                           QStringLiteral("保存人"), QStringLiteral("改动")});
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(true);
    list->setAllColumnsShowFocus(true);
    return list;
}

} // namespace

CHistoryDialog::CHistoryDialog(QWidget* parent)
    : CDialog(kDialogResource, parent), m_specifications(new QComboBox), m_versions(MakeList()),
      m_view(new DifferenceView)
{
    setWindowTitle(QStringLiteral("历史"));
    SetGuideSection(this, L"历史");
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    MakeControls();
    ShowWindow(IDOK, false);
    SetDlgItemText(IDCANCEL, L"关闭(&C)");
    const int line = fontMetrics().height();
    resize(line * 64, line * 42);
    FillSpecifications();
}

void CHistoryDialog::MakeControls()
{
    auto* const parts = new QSplitter(Qt::Vertical);
    parts->addWidget(m_versions);
    parts->addWidget(m_view);
    parts->setStretchFactor(0, 2);
    parts->setStretchFactor(1, 3);
    parts->setChildrenCollapsible(false);
    auto* const layout = new QVBoxLayout(GetDlgItem(kPlace));
    layout->setContentsMargins({});
    layout->addWidget(MakeChoice());
    layout->addWidget(parts, 1);
    layout->addWidget(MakeButtons());
}

QWidget* CHistoryDialog::MakeChoice()
{
    auto* const row = new QWidget;
    auto* const label = new QLabel(QStringLiteral("规范(&S):"));
    label->setBuddy(m_specifications);
    m_specifications->setProperty(kControlIdProperty, kSpecifications);
    m_specifications->setMaxVisibleItems(20);
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins({});
    layout->addWidget(label);
    layout->addWidget(m_specifications, 1);
    return row;
}

QWidget* CHistoryDialog::MakeButtons()
{
    auto* const row = new QWidget;
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins({});
    auto* const notice = new QLabel;
    notice->setTextFormat(Qt::PlainText);
    notice->setWordWrap(true);
    notice->setProperty(kControlIdProperty, kNotice);
    layout->addWidget(notice, 1);
    const auto add = [&](int id, const QString& caption, void (CHistoryDialog::*act)()) {
        auto* const button = new QPushButton(caption);
        button->setProperty(kControlIdProperty, id);
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, [this, act] { (this->*act)(); });
        layout->addWidget(button);
    };
    add(kBringBack, QStringLiteral("恢复成此版本(&R)"), &CHistoryDialog::BringBack);
    add(kAsNew, QStringLiteral("恢复为新规范(&N)"), &CHistoryDialog::BringBackAsNew);
    return row;
}

void CHistoryDialog::Begin(const GUID& id)
{
    const auto found = std::find(m_ids.begin(), m_ids.end(), id);
    if (found != m_ids.end())
        m_specifications->setCurrentIndex(static_cast<int>(found - m_ids.begin()));
}

bool CHistoryDialog::OnInitDialog()
{
    FillVersions();
    connect(m_specifications, &QComboBox::currentIndexChanged, this, [this] { FillVersions(); });
    connect(m_versions, &QTreeWidget::currentItemChanged, this, [this] { ShowVersion(); });
    m_versions->setFocus();
    return CDialog::OnInitDialog();
}

void CHistoryDialog::FillSpecifications()
{
    const QSignalBlocker noChanges(m_specifications);
    m_specifications->clear();
    m_ids.clear();
    const auto add = [this](const auto& one, const QString& form) {
        m_ids.push_back(one.second); // first: the list tells of its first item at once
        m_specifications->addItem(form.arg(ToShown(one.first)));
    };
    for (const auto& one : Present())
        add(one, QStringLiteral("%1"));
    for (const auto& one : Deleted())
        add(one, QStringLiteral("%1 (已删除)"));
}

bool CHistoryDialog::IsThere() const
{
    const int chosen = m_specifications->currentIndex();
    return chosen >= 0 && Folder().Find(m_ids[static_cast<size_t>(chosen)]);
}

void CHistoryDialog::FillVersions()
{
    const QSignalBlocker noChanges(m_versions);
    m_versions->clear();
    m_states.clear();
    Problems problems;
    const int chosen = m_specifications->currentIndex();
    if (chosen >= 0) m_states = StatesOf(Folder(), m_ids[static_cast<size_t>(chosen)], problems);
    TraceProblems(problems);
    for (const SpecificationState& state : m_states) {
        auto* const item = new QTreeWidgetItem(m_versions, {NumberText(state, IsThere()),
                                                            TimeText(state), ToShown(state.savedBy),
                                                            ToQString(InOneLine(state.changes))});
        item->setToolTip(3, ToToolTip(ToQString(InOneLine(state.changes, 20))));
    }
    for (int column = 0; column < 3; ++column)
        m_versions->resizeColumnToContents(column);
    // The one before that of now is what is looked for most.
    const int first = m_states.size() > 1 && IsThere() ? 1 : 0;
    m_versions->setCurrentItem(m_versions->topLevelItem(first));
    ShowVersion();
}

const SpecificationState* CHistoryDialog::Selected() const
{
    const int row = m_versions->indexOfTopLevelItem(m_versions->currentItem());
    return row < 0 ? nullptr : &m_states[static_cast<size_t>(row)];
}

void CHistoryDialog::ShowVersion()
{
    const SpecificationState* const selected = Selected();
    const bool isNow = selected && selected->number == 0 && IsThere();
    EnableWindow(kBringBack, selected && !isNow);
    EnableWindow(kAsNew, selected);
    m_view->setEnabled(selected);
    if (!selected) return;
    // What there is now beside itself would tell nothing.
    static const CDesignSpecification builtIn;
    const bool isLast = selected == &m_states.front();
    const SpecificationState& last = m_states.front();
    const QString number = NumberText(*selected, IsThere());
    m_view->ShowTwo(selected->specification, isLast ? builtIn : last.specification,
                    {.left = selected->number > 0 ? QStringLiteral("版本 %1").arg(number) : number,
                     .right = isLast ? QStringLiteral("内置限值") : NumberText(last, IsThere()),
                     .changeable = {.left = false, .right = false}});
}

void CHistoryDialog::BringBack()
{
    const SpecificationState* const selected = Selected();
    if (!selected) return;
    CDesignSpecification version = selected->specification;
    const CDesignSpecification* const now = Folder().Find(version.ID());
    const CDesignSpecification* const namesake = Folder().Find(version.Name().c_str());
    if (now && namesake && namesake != now) version.SetName(now->Name().c_str());
    if (now) {
        const CDesignSpecification opened = *now;
        if (!StoreChanged(opened, version, this)) return;
    } else if (!PutBack(version, this)) {
        return;
    }
    const CDesignSpecification* const back = Folder().Find(version.ID());
    Done(Format(L"已恢复: “%s” (%s)", back ? back->Name() : version.Name(),
                FromQString(NumberText(*selected, now != nullptr))));
}

void CHistoryDialog::BringBackAsNew()
{
    const SpecificationState* const selected = Selected();
    if (!selected) return;
    CDesignSpecification made;
    made.CopyCriteria(selected->specification);
    made.SetName(Folder().ProposedCopyName(selected->specification.Name()).c_str());
    if (PutBack(made, this)) Done(Format(L"已恢复为新规范: “%s”", made.Name()));
}

void CHistoryDialog::Done(const CString& text)
{
    m_told = text;
    const int chosen = m_specifications->currentIndex();
    const GUID id = m_ids[static_cast<size_t>(chosen)];
    FillSpecifications();
    {
        const QSignalBlocker noChanges(m_specifications);
        Begin(id);
    }
    FillVersions();
    SetDlgItemText(kNotice, text);
}

namespace designspec {

CString ShowHistory(const CArray<GUID>& selected, QWidget* owner)
{
    const AcAxDocLock lock;
    CHistoryDialog dialog(owner);
    if (!selected.empty()) dialog.Begin(selected.front());
    dialog.DoModal();
    return dialog.Told();
}

} // namespace designspec
