#include "app/DSMainDialog.h"

#include <algorithm>

#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QTreeWidget>

#include "app/BuiltInMarks.h"
#include "app/CompareCurvesDialog.h"
#include "app/PagePlace.h"
#include "app/SearchPane.h"
#include "app/ShownPages.h"
#include "app/TakeFromDialog.h"
#include "base/Format.h"
#include "base/NoCase.h"
#include "base/Text.h"
#include "library/StyleName.h"
#include "model/Differences.h"
#include "pages/framework/FamilyIcon.h"
#include "pages/framework/ReadOnlyLook.h"
#include "platform/arx/Documents.h"
#include "platform/arx/Frame.h"
#include "platform/mfc/GuideSection.h"
#include "platform/mfc/MessageBox.h"
#include "platform/mfc/QtText.h"
#include "platform/vmrd/VmHFCBaseU/Trace.h"

using namespace designspec;

namespace {

constexpr UINT kDialogResource = 102;
constexpr int kTree = 100;
constexpr int kName = 108;
constexpr int kTakeFrom = 301;
constexpr int kSearch = 302;
constexpr int kFound = 303;
constexpr int kFoundNote = 304;
constexpr int kPageLine = 305;
constexpr int kUndoTake = 309;

// What a tree item carries: 0 for a group, the page's place plus one for a page.
constexpr int kPageRole = Qt::UserRole;
constexpr int kImageRole = Qt::UserRole + 1;

int PageOf(const QTreeWidgetItem* item)
{
    return item->data(0, kPageRole).toInt();
}

// The last widget inside `area` that can have the focus; `area` itself when there is none.
QWidget* LastToFocus(QWidget* area)
{
    QWidget* last = area;
    QWidget* const window = area->window();
    for (QWidget* one = window->nextInFocusChain(); one != window; one = one->nextInFocusChain())
        if (area->isAncestorOf(one) && one->focusPolicy() != Qt::NoFocus && !one->focusProxy())
            last = one;
    return last;
}

} // namespace

CDSMainDialog::CDSMainDialog(const CString& name, bool isNew, const wchar_t* source,
                             QWidget* parent, std::span<const PageEntry> pages)
    : CDialog(kDialogResource, parent), m_name(name), m_isNew(isNew),
      m_source(source ? source : L"")
{
    RegisterPages(pages);
}

CDSMainDialog::~CDSMainDialog()
{
    if (m_tree) m_tree->disconnect(this);
}

void CDSMainDialog::SetViewMode(const wchar_t* page)
{
    m_viewPage = page ? page : L"";
    m_viewMode = true;
}

void CDSMainDialog::RegisterPages(std::span<const PageEntry> entries)
{
    const AcAxDocLock lock;
    QWidget* const frame = acedGetAcadFrame();
    CDSPage* before = nullptr;
    for (const PageEntry& entry : entries) {
        Page page{entry.group ? entry.group : L"", entry.label, entry.make(before)};
        before = nullptr;
        if (!page.window->Create(frame ? frame : this)) {
            Trace(Format(L"页面“%s”无法创建", CString(page.label)));
            continue;
        }
        before = page.window.get();
        page.Callback().SetMainDialog(this);
        page.window->hide();
        m_pages.push_back(std::move(page));
    }
}

// Opening

bool CDSMainDialog::OnInitDialog()
{
    m_images[kGroupImage] = FamilyIcon(L"IDI_ICON_FOLDER");
    m_images[kShownImage] = FamilyIcon(L"IDI_ICON_RIGHT");
    m_images[kOtherImage] = FamilyIcon(L"IDI_ICON_SPACE");
    m_tree = GetDlgItem<QTreeWidget>(kTree);
    if (!m_tree) return false;
    m_tree->setIconSize({kFamilyIconSize, kFamilyIconSize});
    connect(m_tree, &QTreeWidget::currentItemChanged, this,
            [this](QTreeWidgetItem* selected) { OnSelChanged(selected); });

    SetDlgItemText(kName, m_name);
    PlacePages();
    LoadPages();
    BuildTree();
    MarkBuiltIn();
    if (QTreeWidgetItem* const first = m_tree->topLevelItem(0)) {
        first->setExpanded(true);
        m_tree->setCurrentItem(first);
    }
    if (auto* const takeFrom = GetDlgItem<QPushButton>(kTakeFrom))
        connect(takeFrom, &QPushButton::clicked, this, [this] { TakeFrom(); });
    if (auto* const undo = GetDlgItem<QPushButton>(kUndoTake))
        connect(undo, &QPushButton::clicked, this, [this] { UndoTake(); });
    MakeSearch();
    if (m_viewMode) EnterViewMode();
    return CDialog::OnInitDialog();
}

void CDSMainDialog::PlacePages()
{
    m_scroll = findChild<QScrollArea*>(QStringLiteral("pageScroll"));
    QWidget* const area = m_scroll ? m_scroll->widget() : nullptr;
    if (!area) return;
    // All in one cell: there is room enough for each, whichever is shown.
    auto* const layout = new QGridLayout(area);
    layout->setContentsMargins(0, 0, 0, 0);
    for (const Page& page : m_pages) {
        QSizePolicy policy = page.window->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        page.window->setSizePolicy(policy);
        layout->addWidget(page.window.get(), 0, 0);
        page.window->hide();
    }
    // Nothing is scrolled where the screen has room for it.
    const QSize around = this->layout()->totalMinimumSize() - m_scroll->minimumSizeHint();
    resize(size().expandedTo(around + area->minimumSizeHint()));
    // Where it has not, a page is scrolled as far as itself needs.
    for (const Page& page : m_pages) {
        QSizePolicy policy = page.window->sizePolicy();
        policy.setRetainSizeWhenHidden(false);
        page.window->setSizePolicy(policy);
    }
    // The pages came last; Tab is to pass through them on its way to the buttons.
    setTabOrder(LastToFocus(area), GetDlgItem(kTakeFrom));
    setTabOrder(GetDlgItem(kTakeFrom), GetDlgItem(kUndoTake));
    setTabOrder(GetDlgItem(kUndoTake), GetDlgItem(IDOK));
    setTabOrder(GetDlgItem(IDOK), GetDlgItem(IDCANCEL));
    // Behind them what Ctrl+F is for: from the name on Tab goes to the tree.
    setTabOrder(GetDlgItem(IDCANCEL), GetDlgItem(kSearch));
    setTabOrder(GetDlgItem(kSearch), GetDlgItem(kFound));
}

void CDSMainDialog::LoadPages()
{
    const CString& source = m_isNew ? m_source : m_name;
    for (const Page& page : m_pages)
        if (!source.empty()) page.Callback().Load(source.c_str());
    const CDesignSpecification* const opened =
        m_isNew ? nullptr : CDesignSpecifications::GetInstance()->Item(m_name.c_str());
    if (opened) m_opened = *opened;
    m_filled = Entered(opened ? opened->Name() : m_name);
}

void CDSMainDialog::BuildTree()
{
    int place = 0;
    for (Page& page : m_pages) {
        page.item = new QTreeWidgetItem({ToQString(page.label)});
        page.item->setData(0, kPageRole, ++place);
        SetImage(page.item, kOtherImage);
        if (page.group.empty())
            m_tree->addTopLevelItem(page.item);
        else
            GroupItem(page.group)->addChild(page.item);
    }
}

void CDSMainDialog::MarkBuiltIn()
{
    auto* const line = GetDlgItem<QLabel>(kPageLine);
    if (!line) return;
    m_tree->setColumnCount(2); // the mark stands in the second one
    m_tree->header()->setStretchLastSection(false);
    m_tree->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_tree->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    std::vector<CBuiltInMarks::Page> pages;
    for (const Page& page : m_pages)
        pages.push_back({page.window.get(), page.item});
    m_marks = new CBuiltInMarks(std::move(pages), line, this);
}

QTreeWidgetItem* CDSMainDialog::GroupItem(const CString& label)
{
    for (int i = 0; i < m_tree->topLevelItemCount(); ++i) {
        QTreeWidgetItem* const item = m_tree->topLevelItem(i);
        if (item->childCount() > 0 && EqualNoCase(FromQString(item->text(0)), label)) return item;
    }
    auto* const group = new QTreeWidgetItem(m_tree, {ToQString(label)});
    group->setData(0, kPageRole, 0);
    SetImage(group, kGroupImage);
    return group;
}

void CDSMainDialog::SetImage(QTreeWidgetItem* item, Image image) const
{
    item->setIcon(0, m_images[image]);
    item->setData(0, kImageRole, image);
}

void CDSMainDialog::EnterViewMode()
{
    DisableReadably(GetDlgItem(kName));
    ShowWindow(kTakeFrom, false);
    SetWindowText(GetWindowText() + L" - " + m_name + L" -- 查看模式");
    for (int i = 0; i < PageCount(); ++i) {
        if (m_viewPage.find(L'\\') == CString::npos || !EqualNoCase(PagePath(i), m_viewPage))
            continue;
        SelectPage(i);
        return;
    }
}

// Pages

CString CDSMainDialog::PagePath(int index) const
{
    const Page& page = m_pages.at(static_cast<size_t>(index));
    return page.group + L"\\" + page.label;
}

void CDSMainDialog::SelectPage(int index)
{
    QTreeWidgetItem* const item = m_pages.at(static_cast<size_t>(index)).item;
    if (!item) return;
    if (item->parent()) item->parent()->setExpanded(true);
    m_tree->setCurrentItem(item);
}

void CDSMainDialog::SelectPage(const CDSCallback* callback)
{
    for (int i = 0; i < PageCount(); ++i)
        if (&m_pages[static_cast<size_t>(i)].Callback() == callback) SelectPage(i);
}

void CDSMainDialog::OnSelChanged(const QTreeWidgetItem* selected)
{
    while (selected && PageOf(selected) == 0)
        selected = selected->child(0);
    if (!selected) return;
    for (const Page& page : m_pages) {
        const bool shown = page.item == selected;
        SetImage(page.item, shown ? kShownImage : kOtherImage);
        if (!shown) page.window->hide();
    }
    const Page& page = m_pages.at(static_cast<size_t>(PageOf(selected)) - 1);
    SetGuideSection(this, page.label.c_str());
    if (m_marks) m_marks->Show(page.window.get());
    if (!page.window->isHidden()) return;
    page.window->show();
    if (m_scroll) m_scroll->ensureVisible(0, 0); // a page opens at its beginning
    page.Callback().OnShow();
}

const CDSMainDialog::Page* CDSMainDialog::Shown() const
{
    for (const Page& page : m_pages)
        if (!page.window->isHidden()) return &page;
    return nullptr;
}

// Nothing is stored: it is as if the user had entered it.
void CDSMainDialog::TakeFrom()
{
    for (const Page& page : m_pages)
        page.window->CommitGrids();
    const Page* const shown = Shown();
    const CDesignSpecification before = Entered(Trim(GetDlgItemText(kName)));
    CTakeFromDialog dialog(before, shown ? shown->label : L"", this);
    if (dialog.DoModal() != IDOK) return;
    Fill(dialog.Made());
    m_taken.emplace_back(before, dialog.Made());
    ShowWindow(kUndoTake, true);
}

void CDSMainDialog::Fill(const CDesignSpecification& values)
{
    for (const Page& page : m_pages)
        page.Callback().TakeFrom(values);
    // It may show what another page holds.
    if (const Page* const shown = Shown()) shown->Callback().OnShow();
}

// What was entered since is as good as what others have entered: it stays.
void CDSMainDialog::UndoTake()
{
    if (m_taken.empty()) return;
    for (const Page& page : m_pages)
        page.window->CommitGrids();
    const auto [before, made] = m_taken.back();
    m_taken.pop_back();
    Fill(Merged(made, Entered(before.Name()), before));
    ShowWindow(kUndoTake, !m_taken.empty());
    if (m_taken.empty()) GetDlgItem(kTakeFrom)->setFocus();
}

// Search

void CDSMainDialog::MakeSearch()
{
    const CSearchPane::Controls controls{GetDlgItem<QLineEdit>(kSearch),
                                         GetDlgItem<QTreeWidget>(kFound),
                                         GetDlgItem<QLabel>(kFoundNote), m_tree};
    new CSearchPane(
        controls, [this] { return ShownIndex(); },
        [this](const SearchHit& hit, bool enter) { GoTo(hit, enter); }, this);
}

// Edits that are not saved yet are as good as others.
SpecificationIndex CDSMainDialog::ShownIndex() const
{
    CString unused;
    for (const Page& page : m_pages)
        page.Callback().Validate(unused); // takes in what is entered
    std::vector<PageLayout> layouts = LayOut(Entered(m_name));
    for (PageLayout& layout : layouts)
        for (const Page& page : m_pages)
            if (page.label == layout.criterion->label)
                layout = AsShown(*page.window, std::move(layout));
    return SpecificationIndex(layouts);
}

void CDSMainDialog::GoTo(const SearchHit& hit, bool enter)
{
    for (int i = 0; i < PageCount(); ++i) {
        const Page& page = m_pages[static_cast<size_t>(i)];
        if (page.label != hit.page->label) continue;
        SelectPage(i);
        QWidget* const place = GoToPlace(*page.window, hit, enter);
        if (place && m_scroll) m_scroll->ensureWidgetVisible(place);
    }
}

void CDSMainDialog::AskCompared(bool wanted)
{
    const CDesignSpecification edited = Entered(Trim(GetDlgItemText(kName)));
    CCompareCurvesDialog dialog(edited, this);
    if (wanted && dialog.DoModal() != IDOK) return;
    for (const Page& page : m_pages)
        page.window->CompareCurves(wanted ? dialog.Chosen() : nullptr, dialog.Title());
}

// Also what Tab reaches from outside of the page.
bool CDSMainDialog::focusNextPrevChild(bool next)
{
    const bool found = CDialog::focusNextPrevChild(next);
    if (found && m_scroll) m_scroll->ensureWidgetVisible(focusWidget());
    return found;
}

// Closing

void CDSMainDialog::OnOK()
{
    if (m_viewMode) {
        CDialog::OnOK();
        return;
    }
    const CString name = Trim(GetDlgItemText(kName));
    if (!CheckName(name) || !ValidatePages()) return;
    const CEditStore::Result settled = Settle(name);
    if (settled == CEditStore::Result::Back) return;
    // One that was saved elsewhere is none of the library's.
    if (m_isNew && settled == CEditStore::Result::Done) return CDialog::OnCancel();
    if (settled == CEditStore::Result::Done || Store(name)) CDialog::OnOK();
}

// What the pages hold.
CDesignSpecification CDSMainDialog::Entered(const CString& name) const
{
    CDesignSpecification entered = m_opened ? *m_opened : CDesignSpecification();
    entered.SetName(name.c_str());
    for (const Page& page : m_pages)
        page.Callback().StoreInto(entered);
    return entered;
}

CEditStore::Result CDSMainDialog::Settle(const CString& name)
{
    if (m_opened) return CEditStore(*m_opened, *m_filled, Entered(name), this).Settle();
    if (m_isNew && !CDesignSpecifications::GetInstance()->Files().HasPlace())
        return CEditStore::SaveElsewhere(Entered(name), this);
    return CEditStore::Result::AsUsual;
}

// A page that could not be saved counts as one that was changed.
bool CDSMainDialog::IsChanged() const
{
    bool isValid = true;
    CDesignSpecification now = *m_filled;
    for (const Page& page : m_pages) {
        CString unused;
        isValid = page.Callback().Validate(unused) && isValid; // takes the cells that are edited in
        page.Callback().StoreInto(now);
    }
    return !isValid || Trim(GetDlgItemText(kName)) != m_name || !(now == *m_filled);
}

void CDSMainDialog::reject()
{
    if (!m_viewMode && IsChanged() &&
        MessageBox(this, Format(L"“%s”的修改还没有保存。要放弃吗?", m_name), L"提示",
                   MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2) != IDYES)
        return;
    CDialog::reject();
}

bool CDSMainDialog::CheckName(const CString& name)
{
    const SpecificationFolder& folder = CDesignSpecifications::GetInstance()->Folder();
    CString problem = StyleNameProblem(folder, name, m_isNew ? CString() : m_name);
    // Others may have taken the name since the library was read.
    if (const auto now = ReadIfChanged(folder); now && problem.empty()) {
        const CDesignSpecification* const own = m_opened ? now->Find(m_opened->ID()) : nullptr;
        problem = StyleNameProblem(*now, name, own ? own->Name() : CString());
    }
    if (problem.empty()) return true;
    if (QWidget* const field = GetDlgItem(kName)) field->setFocus();
    Show(problem);
    return false;
}

bool CDSMainDialog::ValidatePages()
{
    for (const Page& page : m_pages) {
        CString message;
        if (page.Callback().Validate(message)) continue;
        page.Callback().Activate();
        Show(message);
        page.window->FocusRefused();
        if (m_scroll && focusWidget()) m_scroll->ensureWidgetVisible(focusWidget());
        return false;
    }
    return true;
}

// When a file resists, the user is told why and goes on with what was entered.
bool CDSMainDialog::Store(const CString& name)
{
    CString cause;
    const Connection trace = ConnectTrace([&cause](const TraceLine& line) {
        if (line.severity == TraceLevel::Error && cause.empty()) cause = line.Text();
    });
    if (m_isNew ? StoreNew(name) : StoreEdited(name)) return true;
    Show(Format(L"“%s”没有保存, 输入的内容还在。\n\n%s", name, cause));
    return false;
}

bool CDSMainDialog::StoreNew(const CString& name)
{
    CDesignSpecifications& library = *CDesignSpecifications::GetInstance();
    auto added = std::make_unique<CDesignSpecification>();
    added->SetName(name.c_str());
    const int index = library.Add(added.release());
    for (const Page& page : m_pages)
        page.Callback().RenameAndSave(name.c_str());
    if (library.Save(library.Item(index))) return true;
    library.Folder().TakeOut(index);
    return false;
}

bool CDSMainDialog::StoreEdited(const CString& name)
{
    CDesignSpecifications& library = *CDesignSpecifications::GetInstance();
    CDesignSpecification* const edited = library.Item(m_name.c_str());
    if (!edited) return true; // somebody has removed it meanwhile
    const CDesignSpecification before = *edited;
    const bool renamed = name != m_name;
    if (renamed) {
        library.Rename(m_name.c_str(), name.c_str());
        edited->SetName(name.c_str()); // from here on the pages look for it
    }
    for (const Page& page : m_pages) {
        if (renamed) page.Callback().Rename(name.c_str());
        page.Callback().Save();
    }
    if (renamed ? library.SaveRenamed(edited, m_name) : library.Save(edited)) return true;
    *edited = before;
    for (const Page& page : m_pages)
        if (renamed) page.Callback().Rename(m_name.c_str());
    return false;
}

void CDSMainDialog::Show(const CString& message)
{
    MessageBox(this, message, L"提示", MB_ICONINFORMATION);
}
