#include "app/BuiltInMarks.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>
#include <QTreeWidget>

#include "pages/framework/DSPage.h"

namespace {

constexpr int kMarkColumn = 1;
const QString kMark = QStringLiteral("○");
const QString kBuiltIn = QStringLiteral("本页的值还都是内置限值");

} // namespace

CBuiltInMarks::CBuiltInMarks(std::vector<Page> pages, QLabel* line, QWidget* parent)
    : QObject(parent), m_pages(std::move(pages)), m_line(line), m_soon(new QTimer(this))
{
    m_soon->setSingleShot(true);
    m_soon->setInterval(0);
    connect(m_soon, &QTimer::timeout, this, &CBuiltInMarks::Update);
    for (const Page& page : m_pages)
        Watch(*page.window);
    Update();
}

// Whatever a value can be entered in.
void CBuiltInMarks::Watch(const CDSPage& page)
{
    const auto soon = [this] { m_soon->start(); };
    for (const CXTPReportControl* const grid : page.Grids()) {
        connect(grid->model(), &QAbstractItemModel::dataChanged, this, soon);
        connect(grid->model(), &QAbstractItemModel::modelReset, this, soon);
        connect(grid, &CXTPReportControl::UndoDone, this, soon);
    }
    for (const auto* const edit : page.findChildren<QLineEdit*>())
        connect(edit, &QLineEdit::textChanged, this, soon);
    for (const auto* const button : page.findChildren<QAbstractButton*>())
        connect(button, &QAbstractButton::toggled, this, soon);
    for (const auto* const combo : page.findChildren<QComboBox*>())
        connect(combo, &QComboBox::currentIndexChanged, this, soon);
}

void CBuiltInMarks::Show(const CDSPage* page)
{
    m_shown = page;
    WriteLine();
}

void CBuiltInMarks::Update()
{
    for (const Page& page : m_pages) {
        const bool isBuiltIn = page.window->Callback().IsBuiltIn();
        page.item->setText(kMarkColumn, isBuiltIn ? kMark : QString());
        for (const int column : {0, kMarkColumn})
            page.item->setToolTip(column, isBuiltIn ? kBuiltIn : QString());
    }
    WriteLine();
}

void CBuiltInMarks::WriteLine()
{
    QString text;
    for (const Page& page : m_pages)
        if (page.window == m_shown && !page.item->text(kMarkColumn).isEmpty())
            text = kMark + u' ' + kBuiltIn;
    m_line->setText(text);
}
