#include "app/SearchPane.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QShortcut>
#include <QTreeWidget>

#include "platform/mfc/QtText.h"

using namespace designspec;

namespace {

// More than anybody looks through; the list is there at once.
constexpr std::size_t kMostHits = 300;
constexpr int kHitRole = Qt::UserRole; // the place among the hits

// Over two lines where there is a value: the list is as narrow as the tree.
QString LinesOf(const SearchHit& hit)
{
    QStringList lines;
    for (const CString& line : {hit.Place(), hit.text})
        if (!line.empty()) lines << ToShown(line);
    return lines.join(u'\n');
}

bool IsEnter(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

} // namespace

CSearchPane::CSearchPane(const Controls& controls, Index index, GoTo goTo, QWidget* parent)
    : QObject(parent), m_controls(controls), m_makeIndex(std::move(index)), m_goTo(std::move(goTo))
{
    m_controls.field->installEventFilter(this);
    m_controls.found->installEventFilter(this);
    connect(m_controls.field, &QLineEdit::textChanged, this, [this] { Search(); });
    connect(m_controls.found, &QTreeWidget::currentItemChanged, this,
            [this](const QTreeWidgetItem* item) {
                if (m_controls.found->hasFocus()) Go(item, false);
            });
    connect(m_controls.found, &QTreeWidget::itemClicked, this,
            [this](const QTreeWidgetItem* item) { Go(item, true); });
    connect(qApp, &QApplication::focusChanged, this, &CSearchPane::OnFocusChanged);
    const auto* const shortcut = new QShortcut(QKeySequence::Find, parent);
    connect(shortcut, &QShortcut::activated, this, [this] { Begin(); });
}

void CSearchPane::Begin()
{
    m_controls.field->setFocus(Qt::ShortcutFocusReason);
    m_controls.field->selectAll();
}

bool CSearchPane::IsOwn(const QWidget* widget) const
{
    return widget == m_controls.field || widget == m_controls.found;
}

// What was entered meanwhile is searched as well.
void CSearchPane::OnFocusChanged(QWidget* from, QWidget* to)
{
    if (!IsOwn(to) || IsOwn(from)) return;
    const QWidget* const window = m_controls.field->window();
    if (from && window->isAncestorOf(from)) m_back = from;
    m_index.reset();
    if (to == m_controls.field) Search();
}

void CSearchPane::Search()
{
    const SearchWords words(FromQString(m_controls.field->text()));
    m_hits.clear();
    if (!words.IsEmpty()) {
        if (!m_index) m_index = m_makeIndex();
        m_hits = m_index->Find(words, kMostHits + 1);
    }
    m_isMore = m_hits.size() > kMostHits;
    if (m_isMore) m_hits.pop_back();
    Fill();
    SayHowMany();
    m_controls.found->setVisible(!words.IsEmpty());
    m_controls.note->setVisible(!words.IsEmpty());
    m_controls.tree->setVisible(words.IsEmpty());
}

void CSearchPane::Fill()
{
    QTreeWidget& found = *m_controls.found;
    found.clear();
    int number = 0;
    for (const SearchHit& hit : m_hits)
        AddHit(hit, number++);
    found.expandAll();
    QTreeWidgetItem* const first = found.topLevelItem(0);
    if (first) found.setCurrentItem(HitOf(first) ? first : first->child(0));
}

void CSearchPane::AddHit(const SearchHit& hit, int number)
{
    QTreeWidget& found = *m_controls.found;
    QTreeWidgetItem* item = found.topLevelItem(found.topLevelItemCount() - 1);
    const bool isTitle = hit.kind == SearchHit::Kind::Page;
    if (number == 0 || m_hits[static_cast<std::size_t>(number) - 1].page != hit.page) {
        item = new QTreeWidgetItem(&found, {ToShown(hit.page->label)});
        QFont font = found.font();
        font.setBold(true);
        item->setFont(0, font);
        if (!isTitle) item->setFlags(Qt::ItemIsEnabled);
    }
    if (!isTitle) item = new QTreeWidgetItem(item, {LinesOf(hit)});
    item->setData(0, kHitRole, number);
    item->setToolTip(0, ToToolTip(item->text(0)));
}

void CSearchPane::SayHowMany()
{
    if (m_hits.empty())
        m_controls.note->setText(
            QStringLiteral("没有找到“%1”。\n\n可以查页名、行名、数值和数据来源。数从开头写起, "
                           "几个词用空格隔开, 汉字也可以只打拼音首字母。\n\nEsc 清空。")
                .arg(ToShown(FromQString(m_controls.field->text().trimmed()))));
    else if (m_isMore)
        m_controls.note->setText(
            QStringLiteral("不止 %1 处, 再写一个词会少一些").arg(m_hits.size()));
    else
        m_controls.note->setText(QStringLiteral("%1 处; Enter 转到, Esc 清空").arg(m_hits.size()));
}

// Null for a page that only stands over its hits.
const SearchHit* CSearchPane::HitOf(const QTreeWidgetItem* item) const
{
    const QVariant number = item ? item->data(0, kHitRole) : QVariant();
    return number.isValid() ? &m_hits.at(number.toUInt()) : nullptr;
}

void CSearchPane::Go(const QTreeWidgetItem* item, bool enter)
{
    if (const SearchHit* const hit = HitOf(item)) m_goTo(*hit, enter);
}

void CSearchPane::Clear()
{
    m_controls.field->clear();
    if (m_back && m_back->isVisible() && m_back->isEnabled())
        m_back->setFocus();
    else
        m_controls.tree->setFocus();
}

bool CSearchPane::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress) return QObject::eventFilter(watched, event);
    const auto& press = static_cast<const QKeyEvent&>(*event);
    if (press.modifiers() & ~Qt::KeypadModifier) return false;
    return watched == m_controls.field ? OnKeyInField(press.key()) : OnKeyInFound(press.key());
}

bool CSearchPane::OnKeyInField(int key)
{
    if (IsEnter(key)) {
        Go(m_controls.found->currentItem(), true);
        return true; // nobody who searches means 确定
    }
    if (key == Qt::Key_Down && !m_hits.empty()) {
        m_controls.found->setFocus();
        Go(m_controls.found->currentItem(), false);
        return true;
    }
    if (key != Qt::Key_Escape || m_controls.field->text().isEmpty()) return false;
    Clear();
    return true;
}

bool CSearchPane::OnKeyInFound(int key)
{
    if (IsEnter(key)) {
        Go(m_controls.found->currentItem(), true);
        return true;
    }
    if (key == Qt::Key_Escape) {
        Clear();
        return true;
    }
    if (key != Qt::Key_Up || HitOf(m_controls.found->currentItem()) != &m_hits.front())
        return false;
    Begin();
    return true;
}
