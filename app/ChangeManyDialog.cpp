#include "app/ChangeManyDialog.h"

#include <algorithm>

#include <QComboBox>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>

#include "base/Format.h"
#include "base/Text.h"
#include "library/DesignSpecifications.h"
#include "platform/arx/Documents.h"
#include "platform/mfc/GuideSection.h"
#include "platform/mfc/QtText.h"

using namespace designspec;

namespace {

constexpr UINT kDialogResource = 141;
constexpr int kAllSpeeds = 0; // the first of the list

bool IsAtASpeed(const Change& value)
{
    const auto& steps = value.place.steps;
    return !steps.empty() && steps.back().field->IsTable() && !steps.back().keys.empty();
}

// 设超高最小半径; 最大坡长, 坡度 6%
CString LimitTitle(const Change& value)
{
    CString title = value.label;
    const std::size_t rows = value.rows.size() - (IsAtASpeed(value) ? 1 : 0);
    for (std::size_t i = 0; i < rows; ++i)
        title += L", " + value.rows[i];
    return title;
}

template <class Control> Control* WithId(Control* control, int id)
{
    control->setProperty(kControlIdProperty, id);
    return control;
}

} // namespace

CChangeManyDialog::CChangeManyDialog(const CArray<GUID>& selected, QWidget* parent)
    : CDialog(kDialogResource, parent), m_page(WithId(new QComboBox, kPage)),
      m_limit(WithId(new QComboBox, kLimit)), m_speed(WithId(new QComboBox, kSpeed)),
      m_kind(WithId(new QComboBox, kKind)), m_operand(WithId(new QLineEdit, kOperand)),
      m_preview(WithId(new QTreeWidget, kPreview)), m_notice(WithId(new QLabel, kNotice))
{
    setWindowTitle(QStringLiteral("批量修改"));
    SetGuideSection(this, L"批量修改");
    for (const GUID& id : selected)
        if (const auto* one = CDesignSpecifications::GetInstance()->Item(id))
            m_opened.push_back(*one);
    FindLimits();
    auto* const layout = new QVBoxLayout(GetDlgItem(kPlace));
    layout->setContentsMargins({});
    layout->addWidget(MakeChoices());
    m_preview->setHeaderLabels(
        {QStringLiteral("规范、值"), QStringLiteral("原值"), QStringLiteral("新值")});
    m_preview->setUniformRowHeights(true);
    m_preview->setAccessibleName(QStringLiteral("预览"));
    layout->addWidget(m_preview, 1);
    m_notice->setTextFormat(Qt::PlainText);
    m_notice->setWordWrap(true);
    layout->addWidget(m_notice);
    const int line = fontMetrics().height();
    m_preview->setColumnWidth(0, line * 20);
    resize(line * 42, line * 32);
}

// What any of them has, in the order of the pages.
void CChangeManyDialog::FindLimits()
{
    for (const CDesignSpecification& one : m_opened)
        for (const Change& value : AllValues(one, one, one))
            if (value.place.criterion && !value.label.ends_with(L"的顺序")) AddLimit(value);
    const auto place = [](const Limit& one) { return one.path.criterion - Criteria().data(); };
    std::stable_sort(m_limits.begin(), m_limits.end(),
                     [&](const Limit& a, const Limit& b) { return place(a) < place(b); });
}

void CChangeManyDialog::AddLimit(const Change& value)
{
    ValuePath path = value.place;
    CString speed;
    if (IsAtASpeed(value)) {
        speed = path.steps.back().KeyText();
        path.steps.back().keys.clear();
    }
    const CString text = path.Text();
    auto found = std::find_if(m_limits.rbegin(), m_limits.rend(),
                              [&](const Limit& one) { return one.path.Text() == text; });
    if (found == m_limits.rend()) {
        m_limits.push_back({path, LimitTitle(value), path.steps.back().field->unit});
        found = m_limits.rbegin();
    }
    CStringArray& speeds = found->speeds;
    if (speed.empty() || std::find(speeds.begin(), speeds.end(), speed) != speeds.end()) return;
    const auto isLower = [&](const CString& one) { return std::stol(one) < std::stol(speed); };
    speeds.insert(std::find_if(speeds.begin(), speeds.end(), isLower), speed);
}

QWidget* CChangeManyDialog::MakeChoices()
{
    auto* const choices = new QWidget;
    auto* const form = new QFormLayout(choices);
    form->setContentsMargins({});
    form->addRow(QStringLiteral("页(&P):"), m_page);
    form->addRow(QStringLiteral("限值(&L):"), m_limit);
    form->addRow(QStringLiteral("车速(&V):"), m_speed);
    form->addRow(QStringLiteral("修改(&K):"), m_kind);
    form->addRow(QStringLiteral("数值(&N):"), m_operand);
    m_speed->setEditable(true);
    m_speed->setInsertPolicy(QComboBox::NoInsert);
    m_kind->addItems(
        {QStringLiteral("设为"), QStringLiteral("加上 (负数为减)"), QStringLiteral("乘以")});
    for (QComboBox* const one : {m_limit, m_page, m_speed})
        one->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    for (const Limit& limit : m_limits) {
        const QString page = ToQString(limit.path.criterion->label);
        if (m_page->findText(page) < 0) m_page->addItem(page);
    }
    connect(m_page, &QComboBox::currentIndexChanged, this, [this] { ShowLimits(); });
    connect(m_limit, &QComboBox::currentIndexChanged, this, [this] { ShowSpeeds(); });
    connect(m_speed, &QComboBox::editTextChanged, this, [this] { Preview(); });
    connect(m_kind, &QComboBox::currentIndexChanged, this, [this] { Preview(); });
    connect(m_operand, &QLineEdit::textChanged, this, [this] { Preview(); });
    return choices;
}

bool CChangeManyDialog::OnInitDialog()
{
    ShowLimits();
    m_page->setFocus();
    return CDialog::OnInitDialog();
}

void CChangeManyDialog::ShowLimits()
{
    {
        const QSignalBlocker later(m_limit);
        m_limit->clear();
        m_shown.clear();
        for (std::size_t i = 0; i < m_limits.size(); ++i) {
            if (ToQString(m_limits[i].path.criterion->label) != m_page->currentText()) continue;
            m_shown.push_back(i);
            m_limit->addItem(ToShown(m_limits[i].title));
        }
    }
    ShowSpeeds();
}

const CChangeManyDialog::Limit* CChangeManyDialog::Chosen() const
{
    const int index = m_limit->currentIndex();
    return index < 0 ? nullptr : &m_limits[m_shown[static_cast<std::size_t>(index)]];
}

void CChangeManyDialog::ShowSpeeds()
{
    const Limit* const limit = Chosen();
    if (!limit) return;
    {
        const QSignalBlocker later(m_speed);
        m_speed->clear();
        const bool isTable = limit->path.steps.back().field->IsTable();
        m_speed->setEnabled(isTable);
        if (isTable) m_speed->addItem(QStringLiteral("所有车速"));
        for (const CString& speed : limit->speeds)
            m_speed->addItem(ToQString(speed));
    }
    m_operand->setPlaceholderText(ToQString(limit->unit));
    Preview();
}

std::optional<ManyChange> CChangeManyDialog::Wanted(CString& problem) const
{
    const Limit* const limit = Chosen();
    if (!limit) return std::nullopt;
    ManyChange change{limit->path, static_cast<ManyChange::Kind>(m_kind->currentIndex()),
                      Trim(FromQString(m_operand->text()))};
    const bool isAll = m_speed->currentText() == m_speed->itemText(kAllSpeeds);
    if (m_speed->isEnabled() && !isAll)
        problem = change.path.AddKey(Trim(FromQString(m_speed->currentText())));
    if (change.operand.empty()) problem = L"请输入数值。";
    return change;
}

void CChangeManyDialog::Preview()
{
    m_preview->clear();
    m_changes.clear();
    CString problem;
    const auto wanted = Wanted(problem);
    m_isWhole = wanted && problem.empty();
    if (m_isWhole)
        for (const CDesignSpecification& one : m_opened)
            ShowChanged(one, MadeChange(one, *wanted));
    m_preview->expandAll();
    const QString count = QStringLiteral("选中 %1 个规范, 修改其中 %2 个。")
                              .arg(m_opened.size())
                              .arg(m_changes.size());
    m_notice->setText(!problem.empty() ? ToQString(problem)
                      : m_isWhole      ? count
                                  : QStringLiteral("有规范不能这样修改, 一个也不会修改。"));
    EnableWindow(IDOK, m_isWhole && !m_changes.empty());
}

void CChangeManyDialog::ShowChanged(const CDesignSpecification& opened, const Changed& changed)
{
    auto* const item = new QTreeWidgetItem(m_preview, {ToShown(opened.Name())});
    item->setFirstColumnSpanned(changed.differences.empty());
    if (!changed.problem.empty()) {
        m_isWhole = false;
        item->setText(0, ToShown(opened.Name() + L": " + changed.problem));
        QFont bold = item->font(0);
        bold.setBold(true);
        item->setFont(0, bold);
    } else if (changed.differences.empty()) {
        item->setText(0, ToShown(opened.Name()) + QStringLiteral(": 不变"));
        return;
    } else {
        m_changes.push_back({opened, changed.made});
    }
    for (const Difference& one : changed.differences)
        new QTreeWidgetItem(item,
                            {ToShown(one.key.empty() ? one.label : one.key),
                             ToShown(one.left.value_or(L"—")), ToShown(one.right.value_or(L"—"))});
}

void CChangeManyDialog::OnOK()
{
    if (!m_isWhole || m_changes.empty() || !StoreAllChanged(m_changes, this)) return;
    m_note = Format(L"已修改 %d 个规范。", m_changes.size());
    CDialog::OnOK();
}

namespace designspec {

CString ChangeManySpecifications(const CArray<GUID>& selected, QWidget* owner)
{
    const AcAxDocLock lock;
    CChangeManyDialog dialog(selected, owner);
    dialog.DoModal();
    return dialog.Note();
}

} // namespace designspec
