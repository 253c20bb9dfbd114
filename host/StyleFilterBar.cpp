#include "host/StyleFilterBar.h"

#include <algorithm>

#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>

#include "host/ControlIds.h"
#include "host/StyleListModel.h"
#include "platform/mfc/QtText.h"
#include "platform/vmrd/VMRDPrj/StyleEditor.h"

using namespace designspec;

StyleFilterBar::StyleFilterBar(QWidget* parent)
    : QWidget(parent), m_text(new QLineEdit), m_group(new QComboBox), m_count(new QLabel)
{
    SetControlId(m_text, ControlId::Filter);
    m_text->setPlaceholderText(tr("筛选: 名称、数据来源、值 (Ctrl+F)"));
    m_text->setAccessibleName(tr("筛选"));
    m_text->setClearButtonEnabled(true);
    m_text->installEventFilter(this);
    SetControlId(m_group, ControlId::FilterGroup);
    m_group->setAccessibleName(tr("只看"));
    m_group->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    m_group->addItem(tr("全部"));
    m_group->hide();
    SetControlId(m_count, ControlId::FilterCount);
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(m_text, 1);
    layout->addWidget(m_group);
    layout->addWidget(m_count);
    connect(m_text, &QLineEdit::textChanged, this, &StyleFilterBar::Changed);
    connect(m_group, &QComboBox::currentIndexChanged, this, &StyleFilterBar::Changed);
}

void StyleFilterBar::Begin()
{
    m_text->setFocus(Qt::ShortcutFocusReason);
    m_text->selectAll();
}

void StyleFilterBar::Clear()
{
    m_group->setCurrentIndex(0);
    m_text->clear();
}

bool StyleFilterBar::IsEmpty() const
{
    return m_text->text().isEmpty() && m_group->currentIndex() <= 0;
}

QString StyleFilterBar::Text() const
{
    return m_text->text();
}

// Those that there are, with the number of styles of each; the chosen one stays chosen.
void StyleFilterBar::ListGroups(const StyleListModel& list)
{
    QStringList names;
    QList<int> counts;
    for (int row = 0; row < list.rowCount(); ++row) {
        for (const QString& name : list.GroupsOf(row)) {
            if (!names.contains(name)) {
                names << name;
                counts << 0;
            }
            ++counts[names.indexOf(name)];
        }
    }
    const QString chosen = m_group->currentData().toString();
    const QSignalBlocker noChanges(m_group);
    m_group->clear();
    m_group->addItem(tr("全部"));
    for (qsizetype i = 0; i < names.size(); ++i)
        m_group->addItem(tr("%1 (%2)").arg(names[i]).arg(counts[i]), names[i]);
    m_group->setCurrentIndex(chosen.isEmpty() ? 0 : std::max(0, m_group->findData(chosen)));
    m_group->setVisible(!names.isEmpty());
}

bool StyleFilterBar::IsOfGroup(const StyleListModel& list, int row) const
{
    return m_group->currentIndex() <= 0 ||
           list.GroupsOf(row).contains(m_group->currentData().toString());
}

std::vector<bool> StyleFilterBar::Accept(StyleListModel& list, CStyleEditor* editor)
{
    ListGroups(list);
    const QString text = m_text->text();
    const CStyles* const styles = editor ? editor->GetStyles() : nullptr;
    std::vector<bool> accepted;
    for (int row = 0; row < list.rowCount(); ++row) {
        bool isShown = IsOfGroup(list, row);
        std::optional<CString> where;
        if (isShown && !text.isEmpty() && !list.Tells(row, text)) {
            const CStyle* const style = styles ? styles->Item(list.IdAt(row)) : nullptr;
            if (style) where = editor->Find(*style, list.Told(row), FromQString(text));
            isShown = where.has_value();
        }
        list.SetFound(row, where ? ToQString(*where) : QString());
        accepted.push_back(isShown);
    }
    const auto shown = std::count(accepted.begin(), accepted.end(), true);
    m_count->setText(IsEmpty() ? tr("%1 个").arg(shown)
                               : tr("%1 / %2 个").arg(shown).arg(accepted.size()));
    return accepted;
}

void StyleFilterBar::Prepare(const StyleListModel& list, CStyleEditor* editor)
{
    const CStyles* const styles = editor ? editor->GetStyles() : nullptr;
    for (int row = 0; styles && row < list.rowCount(); ++row)
        if (const CStyle* const style = styles->Item(list.IdAt(row)))
            editor->Find(*style, {}, L"a");
}

bool StyleFilterBar::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_text && event->type() == QEvent::FocusIn) emit Entered();
    if (watched != m_text || event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Escape) Clear();
    const bool toList = key == Qt::Key_Down || key == Qt::Key_Escape || key == Qt::Key_Return ||
                        key == Qt::Key_Enter;
    if (toList) emit Left();
    return toList;
}
