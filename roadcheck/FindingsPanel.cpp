#include "roadcheck/FindingsPanel.h"

#include <algorithm>

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <QVBoxLayout>

#include "platform/mfc/QtText.h"
#include "platform/xtp/report/TabText.h"
#include "roadcheck/ControlIds.h"

using namespace designspec;

namespace roadcheck {

namespace {

constexpr RuleSeverity kSeverities[] = {RuleSeverity::Error, RuleSeverity::Warning,
                                        RuleSeverity::Note};

// Widths of the columns in letters; the last one takes the rest.
constexpr int kWidths[] = {4, 7, 7, 10, 6, 7, 4, 8, 24};

} // namespace

FindingsPanel::FindingsPanel(QWidget* parent)
    : QWidget(parent), m_filter(m_model, this), m_table(new QTableView), m_rules(new QComboBox),
      m_text(new QLineEdit), m_detail(new QLabel)
{
    MakeTable();
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(MakeFilterRow());
    layout->addWidget(m_table, 1);
    SetControlId(m_detail, ControlId::Detail);
    m_detail->setTextFormat(Qt::PlainText);
    m_detail->setWordWrap(true);
    m_detail->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_detail->setMinimumHeight(m_detail->fontMetrics().lineSpacing() * 2);
    layout->addWidget(m_detail);
    FillRules();
    CountSeverities();
}

void FindingsPanel::MakeTable()
{
    SetControlId(m_table, ControlId::Findings);
    m_table->setModel(&m_filter);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setWordWrap(false);
    m_table->setTabKeyNavigation(false);
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setDefaultSectionSize(m_table->fontMetrics().height() * 3 / 2);
    m_table->setSortingEnabled(true);
    m_table->sortByColumn(FindingsModel::Station, Qt::AscendingOrder);
    m_table->horizontalHeader()->setStretchLastSection(true);
    const int letter = m_table->fontMetrics().horizontalAdvance(u'程');
    for (int column = 0; column < FindingsModel::kColumns; ++column)
        m_table->setColumnWidth(column, letter * kWidths[column] + letter);
    m_table->installEventFilter(this);
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &FindingsPanel::TellSelection);
    connect(m_table, &QTableView::doubleClicked, this, [this] { emit Activated(Selected()); });
}

QWidget* FindingsPanel::MakeFilterRow()
{
    auto* const row = new QWidget;
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    for (const RuleSeverity severity : kSeverities) {
        auto* const toggle = new QCheckBox;
        m_severities[static_cast<size_t>(severity)] = toggle;
        SetControlId(toggle, ControlId::ShowErrors + static_cast<int>(severity));
        toggle->setChecked(true);
        layout->addWidget(toggle);
        connect(toggle, &QCheckBox::toggled, this, [this, severity](bool isShown) {
            m_filter.SetShown(severity, isShown);
            emit ShownChanged();
        });
    }
    SetControlId(m_rules, ControlId::RuleFilter);
    m_rules->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_rules->setMinimumContentsLength(8);
    m_rules->setToolTip(tr("只显示这条规则的结果"));
    layout->addWidget(m_rules, 1);
    SetControlId(m_text, ControlId::TextFilter);
    m_text->setPlaceholderText(tr("筛选 (Ctrl+F)"));
    m_text->setClearButtonEnabled(true);
    layout->addWidget(m_text, 1);
    connect(m_rules, &QComboBox::currentIndexChanged, this, [this] {
        m_filter.SetRule(FindRule(FromQString(m_rules->currentData().toString())));
        emit ShownChanged();
    });
    connect(m_text, &QLineEdit::textChanged, this, [this](const QString& text) {
        m_filter.SetText(text);
        emit ShownChanged();
    });
    auto* const find = new QAction(this);
    find->setShortcut(QKeySequence::Find);
    connect(find, &QAction::triggered, m_text, [this] { m_text->setFocus(); });
    addAction(find);
    return row;
}

// All that there are: what was found does not move the items under the mouse.
void FindingsPanel::FillRules()
{
    m_rules->addItem(tr("全部规则"), QString());
    for (const Rule& rule : Rules())
        m_rules->addItem(ToQString(rule.title), ToQString(rule.id));
}

void FindingsPanel::CountSeverities()
{
    const FindingCounts counts = CountFindings(Findings());
    const int each[] = {counts.errors, counts.warnings, counts.notes};
    for (const RuleSeverity severity : kSeverities)
        m_severities[static_cast<size_t>(severity)]->setText(
            QStringLiteral("%1 %2")
                .arg(ToQString(SeverityLabel(severity)))
                .arg(each[static_cast<size_t>(severity)]));
}

FindingsPanel::Identity FindingsPanel::IdentityOf(const Finding& finding)
{
    return {finding.rule, finding.element.kind, finding.element.index};
}

void FindingsPanel::Show(const std::shared_ptr<const CheckedRoad>& road)
{
    m_isShowing = true;
    m_model.Show(road);
    CountSeverities();
    m_isShowing = false;
    emit ShownChanged();
    TellSelection();
    const auto& findings = Findings();
    const auto again = std::find_if(findings.begin(), findings.end(), [this](const Finding& one) {
        return m_selected && IdentityOf(one) == *m_selected;
    });
    if (again != findings.end()) Select(static_cast<int>(again - findings.begin()));
}

int FindingsPanel::Selected() const
{
    const QModelIndex current = m_table->currentIndex();
    if (!current.isValid() || !m_table->selectionModel()->isSelected(current)) return -1;
    return m_filter.mapToSource(current).row();
}

void FindingsPanel::Select(int finding)
{
    if (finding == Selected()) return;
    const QModelIndex row = m_filter.mapFromSource(m_model.index(finding, 0));
    if (!row.isValid()) return m_table->clearSelection();
    m_table->setCurrentIndex(row);
    m_table->scrollTo(row);
}

void FindingsPanel::TellSelection()
{
    if (m_isShowing) return;
    const int finding = Selected();
    if (finding >= 0) m_selected = IdentityOf(Findings()[static_cast<size_t>(finding)]);
    ShowDetail(finding);
    emit SelectionChanged(finding);
}

// What the table has no room for.
void FindingsPanel::ShowDetail(int finding)
{
    const auto text = [&](int column) { return m_model.index(finding, column).data().toString(); };
    QString detail = finding < 0 ? QString() : text(FindingsModel::Message);
    if (finding >= 0 && !text(FindingsModel::Source).isEmpty())
        detail += tr("\n数据来源: %1").arg(text(FindingsModel::Source));
    m_detail->setText(detail);
}

// With the headings, for a spreadsheet.
void FindingsPanel::Copy() const
{
    const auto cells = [this](const auto& text) {
        CStringArray row;
        for (int column = 0; column < FindingsModel::kColumns; ++column)
            row.push_back(FromQString(text(column).toString()));
        return row;
    };
    std::vector<CStringArray> rows;
    rows.push_back(cells([this](int column) {
        return m_filter.headerData(column, Qt::Horizontal, Qt::DisplayRole);
    }));
    QModelIndexList selected = m_table->selectionModel()->selectedRows();
    std::sort(selected.begin(), selected.end());
    for (const QModelIndex& row : selected)
        rows.push_back(cells([&row](int column) { return row.siblingAtColumn(column).data(); }));
    QApplication::clipboard()->setText(ToQString(FormatTabText(rows)));
}

bool FindingsPanel::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
    const auto* const key = static_cast<QKeyEvent*>(event);
    if (key->matches(QKeySequence::Copy)) {
        Copy();
        return true;
    }
    if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
        emit Activated(Selected());
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace roadcheck
