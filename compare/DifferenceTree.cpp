#include "compare/DifferenceTree.h"

#include <QHeaderView>

#include "compare/ControlIds.h"
#include "compare/DifferencePlace.h"
#include "platform/mfc/QtText.h"

namespace designspec {

namespace {

constexpr int kPlaceRole = Qt::UserRole; // of its values
constexpr int kPageDepth = 2;            // 全部, group, page

int DepthOf(const QTreeWidgetItem* item)
{
    int depth = 0;
    while ((item = item->parent()))
        ++depth;
    return depth;
}

} // namespace

DifferenceTree::DifferenceTree(QWidget* parent) : QTreeWidget(parent)
{
    CompareId::SetControlId(this, CompareId::Tree);
    setAccessibleName(tr("页面"));
    setColumnCount(2);
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setTabKeyNavigation(false);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(kText, QHeaderView::Stretch);
    header()->setSectionResizeMode(kCount, QHeaderView::ResizeToContents);
    connect(this, &QTreeWidget::currentItemChanged, this, [this] { emit Moved(); });
}

void DifferenceTree::Show(const DifferenceChoices& choices)
{
    const QSignalBlocker noMoves(this);
    clear();
    m_values.clear();
    m_choices = &choices;
    QTreeWidgetItem* const all = Child(invisibleRootItem(), tr("全部"));
    for (std::size_t i = 0; i < choices.Values().size(); ++i) {
        const Change& one = choices.Values()[i];
        QTreeWidgetItem* item = all;
        Add(item, i);
        if (!one.place.criterion) continue;
        Add(item = Child(item, ToQString(one.place.criterion->group)), i);
        Add(item = Child(item, ToQString(one.place.criterion->label)), i);
        const CString table = TableOf(one);
        if (!table.empty()) Add(Child(item, ToQString(table)), i);
    }
    expandToDepth(1);
    setCurrentItem(all);
}

// The last one of that text: values come in the order of the pages.
QTreeWidgetItem* DifferenceTree::Child(QTreeWidgetItem* parent, const QString& text)
{
    for (int i = parent->childCount() - 1; i >= 0; --i)
        if (parent->child(i)->text(kText) == text) return parent->child(i);
    auto* const item = new QTreeWidgetItem(parent, {text});
    item->setData(kText, kPlaceRole, static_cast<int>(m_values.size()));
    item->setTextAlignment(kCount, Qt::AlignRight | Qt::AlignVCenter);
    m_values.emplace_back();
    return item;
}

const std::vector<std::size_t>& DifferenceTree::ValuesOf(const QTreeWidgetItem* item) const
{
    return m_values[static_cast<std::size_t>(item->data(kText, kPlaceRole).toInt())];
}

void DifferenceTree::Add(QTreeWidgetItem* item, std::size_t value)
{
    m_values[static_cast<std::size_t>(item->data(kText, kPlaceRole).toInt())].push_back(value);
}

void DifferenceTree::Filter(const std::vector<bool>& isShown)
{
    for (int i = 0; i < topLevelItemCount(); ++i)
        FilterItem(topLevelItem(i), isShown);
    if (topLevelItemCount() > 0) topLevelItem(0)->setHidden(false); // 全部, with nothing at all
    QTreeWidgetItem* item = currentItem();
    while (item && item->isHidden())
        item = item->parent();
    if (item != currentItem()) setCurrentItem(item);
}

void DifferenceTree::FilterItem(QTreeWidgetItem* item, const std::vector<bool>& isShown) const
{
    bool any = false;
    int differing = 0;
    int taken = 0;
    for (const std::size_t value : ValuesOf(item)) {
        if (!isShown[value]) continue;
        any = true;
        differing += m_choices->IsDifferent(value) ? 1 : 0;
        taken += !m_choices->IsOfThree() && m_choices->Of(value) != Choice::None ? 1 : 0;
    }
    item->setHidden(!any);
    item->setText(kCount, taken > 0       ? QStringLiteral("%1/%2").arg(taken).arg(differing)
                          : differing > 0 ? QString::number(differing)
                                          : QString());
    item->setToolTip(kCount, taken > 0 ? tr("%1 处不同, 已取 %2 处").arg(differing).arg(taken)
                                       : tr("%1 处不同").arg(differing));
    for (int i = 0; i < item->childCount(); ++i)
        FilterItem(item->child(i), isShown);
}

std::vector<std::size_t> DifferenceTree::Current() const
{
    return currentItem() ? ValuesOf(currentItem()) : std::vector<std::size_t>();
}

bool DifferenceTree::IsWithinPage() const
{
    return currentItem() && DepthOf(currentItem()) >= kPageDepth;
}

QString DifferenceTree::CurrentText() const
{
    return currentItem() ? currentItem()->text(kText) : QString();
}

} // namespace designspec
