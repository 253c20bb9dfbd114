#include "host/GuideWindow.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "host/ControlIds.h"
#include "host/GuideBrowser.h"
#include "platform/mfc/WindowPlace.h"

using namespace designspec;

namespace {
constexpr int kChapter = 2; // the level of the headings that stand on top of the contents
const QString kContents = QStringLiteral("目录"); // the list beside it is the same
} // namespace

GuideWindow::GuideWindow(QWidget* owner)
    : QWidget(owner, Qt::Window), m_browser(new GuideBrowser), m_contents(new QTreeWidget),
      m_search(new QLineEdit), m_found(new QLabel)
{
    setWindowTitle(tr("使用指南"));
    SetControlId(m_browser, ControlId::GuideText);
    SetControlId(m_contents, ControlId::GuideContents);
    m_contents->setHeaderHidden(true);
    m_contents->setAccessibleName(tr("目录"));
    auto* const parts = new QSplitter;
    parts->addWidget(m_contents);
    parts->addWidget(m_browser);
    parts->setStretchFactor(1, 1);
    parts->setChildrenCollapsible(false);
    const int line = fontMetrics().height();
    parts->setSizes({line * 15, line * 45});
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(MakeSearch());
    layout->addWidget(parts, 1);
    connect(m_contents, &QTreeWidget::itemClicked, this,
            [this](QTreeWidgetItem* item) { m_browser->GoTo(item->text(0)); });
    connect(m_contents, &QTreeWidget::itemActivated, this,
            [this](QTreeWidgetItem* item) { m_browser->GoTo(item->text(0)); });
    connect(m_browser, &GuideBrowser::Moved, this, &GuideWindow::ShowPlace);
    resize(line * 60, line * 46);
    new WindowPlace(this, QStringLiteral("windows/guide"));
}

QWidget* GuideWindow::MakeSearch()
{
    SetControlId(m_search, ControlId::GuideSearch);
    SetControlId(m_found, ControlId::GuideFound);
    m_search->setPlaceholderText(tr("在指南中查找 (Ctrl+F)"));
    m_search->setAccessibleName(tr("在指南中查找"));
    m_search->setClearButtonEnabled(true);
    m_search->installEventFilter(this);
    auto* const bar = new QWidget;
    auto* const layout = new QHBoxLayout(bar);
    layout->setContentsMargins({});
    layout->addWidget(m_search, 1);
    layout->addWidget(m_found);
    const auto add = [&](int id, const QString& caption, bool backwards) {
        auto* const button = new QPushButton(caption);
        SetControlId(button, id);
        connect(button, &QPushButton::clicked, this, [this, backwards] { Find(backwards); });
        layout->addWidget(button);
    };
    add(ControlId::GuideBefore, tr("上一个(&P)"), true);
    add(ControlId::GuideNext, tr("下一个(&N)"), false);
    connect(m_search, &QLineEdit::textChanged, this, [this] { Find(false); });
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this, [this] {
        m_search->setFocus(Qt::ShortcutFocusReason);
        m_search->selectAll();
    });
    return bar;
}

bool GuideWindow::Load(const QString& file)
{
    if (!m_browser->Load(file)) return false;
    ListContents();
    return true;
}

void GuideWindow::ListContents()
{
    m_contents->clear();
    m_items.clear();
    QTreeWidgetItem* chapter = nullptr;
    for (const GuideBrowser::Heading& one : m_browser->Headings()) {
        const bool isChapter = one.level == kChapter;
        const bool isListed = isChapter ? one.text != kContents : one.level > kChapter && chapter;
        m_items << nullptr;
        if (!isListed) continue;
        m_items.back() = new QTreeWidgetItem({one.text});
        if (isChapter) {
            chapter = m_items.back();
            m_contents->addTopLevelItem(chapter);
        } else {
            chapter->addChild(m_items.back());
        }
    }
    m_contents->expandAll();
}

void GuideWindow::GoTo(const QString& heading)
{
    if (!m_browser->GoTo(heading)) m_browser->moveCursor(QTextCursor::Start);
    ShowPlace();
    m_browser->setFocus();
}

QString GuideWindow::Section() const
{
    const int shown = m_browser->Shown();
    return shown < 0 ? QString() : m_browser->Headings()[static_cast<size_t>(shown)].text;
}

// The contents tell where one is.
void GuideWindow::ShowPlace()
{
    const int shown = m_browser->Shown();
    QTreeWidgetItem* const item = shown < 0 ? nullptr : m_items[shown];
    m_contents->setCurrentItem(item);
    if (item) m_contents->scrollToItem(item);
}

void GuideWindow::Find(bool backwards)
{
    const QString text = m_search->text();
    const int count = m_browser->Find(text, backwards);
    m_found->setText(text.isEmpty() ? QString()
                     : count == 0   ? tr("没有找到")
                                    : tr("%1 / %2").arg(m_browser->Found()).arg(count));
}

bool GuideWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_search || event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const auto* const key = static_cast<QKeyEvent*>(event);
    if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
        Find(key->modifiers().testFlag(Qt::ShiftModifier));
        return true;
    }
    if (key->key() != Qt::Key_Escape || m_search->text().isEmpty()) return false;
    m_search->clear();
    return true;
}

void GuideWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape) close();
    QWidget::keyPressEvent(event);
}
