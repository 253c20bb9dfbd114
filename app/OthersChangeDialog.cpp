#include "app/OthersChangeDialog.h"

#include <QHeaderView>
#include <QLayout>
#include <QPushButton>
#include <QScrollBar>
#include <QTreeWidget>

#include "platform/mfc/QtText.h"

using namespace designspec;

namespace {

constexpr UINT kDialogResource = 132;
constexpr int kChoices[] = {COthersChangeDialog::kKeepBoth, COthersChangeDialog::kKeepMine,
                            COthersChangeDialog::kTakeTheirs, COthersChangeDialog::kOtherProject};
enum Column { kValue, kMine, kTheirs, kWas, kBy };

QString WhoText(ChangedBy by)
{
    switch (by) {
    case ChangedBy::Me:
        return QStringLiteral("我");
    case ChangedBy::Them:
        return QStringLiteral("对方");
    case ChangedBy::Both:
        return QStringLiteral("双方相同");
    default:
        return QStringLiteral("冲突");
    }
}

QString PlaceText(const Change& change)
{
    CString text;
    if (change.place.criterion) text = change.place.criterion->label + CString(L" · ");
    text += change.label;
    if (!change.key.empty()) text += L" · " + change.key;
    return ToQString(text);
}

QString TextOf(const std::optional<CString>& value)
{
    return value ? ToQString(*value) : QStringLiteral("—");
}

QTreeWidgetItem* MakeItem(const Change& change)
{
    auto* const item =
        new QTreeWidgetItem({PlaceText(change), TextOf(change.mine), TextOf(change.theirs),
                             TextOf(change.base), WhoText(change.by)});
    QFont font = item->font(kValue);
    font.setBold(change.by == ChangedBy::Conflict);
    for (int column = kValue; column <= kBy; ++column) {
        item->setFont(column, font);
        // Never read as markup; a long source can be read whole.
        item->setToolTip(column, QStringLiteral("<p style='white-space:pre-wrap'>%1</p>")
                                     .arg(item->text(column).toHtmlEscaped()));
    }
    return item;
}

} // namespace

COthersChangeDialog::COthersChangeDialog(const CString& notice, const std::vector<Change>& changes,
                                         QWidget* parent)
    : CDialog(kDialogResource, parent), m_notice(notice), m_changes(changes)
{
    for (const int choice : kChoices)
        ShowWindow(choice, false);
    // Enter does what loses nothing: it goes back, unless both can be kept.
    if (auto* const back = GetDlgItem<QPushButton>(IDCANCEL)) back->setDefault(true);
}

void COthersChangeDialog::Offer(int choice, const CString& text)
{
    SetDlgItemText(choice, text);
    ShowWindow(choice, true);
    auto* const button = GetDlgItem<QPushButton>(choice);
    if (!button) return;
    connect(button, &QPushButton::clicked, this, [this, choice] { EndDialog(choice); });
    if (choice == kKeepBoth) button->setDefault(true);
}

bool COthersChangeDialog::OnInitDialog()
{
    SetDlgItemText(kNotice, m_notice);
    FillList();
    return CDialog::OnInitDialog();
}

void COthersChangeDialog::FillList()
{
    auto* const list = GetDlgItem<QTreeWidget>(kList);
    if (!list) return;
    for (const Change& change : m_changes)
        list->addTopLevelItem(MakeItem(change));
    list->setHidden(m_changes.empty());
    if (m_changes.empty()) return adjustSize();
    int width = list->verticalScrollBar()->sizeHint().width() + 2 * list->frameWidth();
    for (int column = kValue; column <= kBy; ++column) {
        list->resizeColumnToContents(column);
        const int most = fontMetrics().averageCharWidth() * (column == kValue ? 60 : 24);
        list->setColumnWidth(column, std::min(list->columnWidth(column), most));
        width += list->columnWidth(column);
    }
    // Who has changed what is to be seen at once.
    const QMargins margins = layout()->contentsMargins();
    const QSize usual = sizeHint();
    resize(std::max(usual.width(), width + margins.left() + margins.right()), usual.height());
}
