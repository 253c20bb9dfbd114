#include "compare/SourceChoice.h"

#include <algorithm>

#include <QComboBox>
#include <QDir>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>

#include "base/Format.h"
#include "base/Moment.h"
#include "compare/ControlIds.h"
#include "library/SpecificationHistory.h"
#include "library/SpecificationSource.h"
#include "platform/mfc/FileChoice.h"
#include "platform/mfc/MessageBox.h"
#include "platform/mfc/QtText.h"

namespace designspec {

namespace {

constexpr int kLetters = 16; // of a name are always to be seen

using Folder = std::shared_ptr<SpecificationFolder>;

// When it came, and by whom, as far as that is told.
QString VersionText(const SpecificationVersion& version)
{
    if (!version.saved) return QObject::tr("早于 %1").arg(ToQString(LocalTime(version.replaced)));
    return ToShown(LocalTime(*version.saved) + L"  " + version.savedBy);
}

} // namespace

struct SourceChoice::Entry {
    GUID id = {};
    Folder folder = {};                                  // that holds it; null: the library
    const CDesignSpecification* specification = nullptr; // of the folder
};

SourceChoice::SourceChoice(const QString& caption, int id, QWidget* parent)
    : QWidget(parent), m_list(new QComboBox), m_more(new QPushButton(tr("其他来源")))
{
    auto* const label = new QLabel(caption);
    label->setBuddy(m_list);
    CompareId::SetControlId(m_list, id);
    CompareId::SetControlId(m_more, id + 1);
    m_list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_list->setMinimumContentsLength(kLetters);
    m_list->setMaxVisibleItems(20);
    m_more->setAutoDefault(false);
    auto* const menu = new QMenu(m_more);
    menu->addAction(tr("文件…"), this, &SourceChoice::AskFile);
    menu->addAction(tr("其他项目…"), this, &SourceChoice::AskProject);
    QMenu* const history = menu->addMenu(tr("历史"));
    connect(menu, &QMenu::aboutToShow, this, [this, history] { ShowVersions(*history); });
    m_more->setMenu(menu);
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(label);
    layout->addWidget(m_list, 1);
    layout->addWidget(m_more);
    connect(m_list, &QComboBox::currentIndexChanged, this, &SourceChoice::Changed);
}

SourceChoice::~SourceChoice() = default;

void SourceChoice::Add(const QString& title, std::shared_ptr<const Entry> entry)
{
    m_entries.push_back(std::move(entry)); // first: the list tells of its first item at once
    m_list->addItem(title);
}

void SourceChoice::Fill(const SpecificationFolder& library, const GUID* without)
{
    const QSignalBlocker noChanges(m_list);
    m_library = &library;
    std::vector<const CDesignSpecification*> all;
    for (int i = 0; i < library.Count(); ++i)
        if (!without || !library.Item(i)->HasID(*without)) all.push_back(library.Item(i));
    std::sort(all.begin(), all.end(), [](const auto* a, const auto* b) {
        return QString::localeAwareCompare(ToQString(a->Name()), ToQString(b->Name())) < 0;
    });
    for (const CDesignSpecification* const one : all)
        Add(ToShown(one->Name()), std::make_shared<Entry>(Entry{one->ID()}));
    const auto builtIn = std::make_shared<SpecificationFolder>(L"");
    const CDesignSpecification& limits = builtIn->Add(std::make_unique<CDesignSpecification>());
    Add(tr("内置限值"), std::make_shared<Entry>(Entry{limits.ID(), builtIn, &limits}));
}

bool SourceChoice::Select(const GUID& id)
{
    const auto found = std::find_if(m_entries.begin(), m_entries.end(),
                                    [&](const auto& one) { return !one->folder && one->id == id; });
    if (found == m_entries.end()) return false;
    m_list->setCurrentIndex(static_cast<int>(found - m_entries.begin()));
    return true;
}

void SourceChoice::SelectBuiltIn()
{
    m_list->setCurrentIndex(m_list->findText(tr("内置限值")));
}

bool SourceChoice::AddFrom(const CString& path, const CDesignSpecification* like)
{
    Problems problems;
    const Folder read = ReadSpecificationsAt(path, problems);
    CString text = Format(L"无法从这里读取规范:\n%s", path);
    for (const Problem& problem : problems)
        if (problem.severity == Severity::Error) text += L"\n" + problem.Text();
    if (!read || read->Count() == 0) {
        MessageBox(this, text, L"提示", MB_ICONINFORMATION);
        return false;
    }
    const QString place = QDir(ToQString(path)).dirName();
    int wanted = static_cast<int>(m_entries.size());
    bool isSame = false;
    for (int i = 0; i < read->Count(); ++i) {
        const CDesignSpecification& one = *read->Item(i);
        const bool isLike = like && (like->HasID(one.ID()) || like->Name() == one.Name());
        if (isLike && !isSame) wanted = static_cast<int>(m_entries.size());
        isSame = isSame || (isLike && like->HasID(one.ID()));
        Add(tr("%1 (%2)").arg(ToShown(one.Name()), place),
            std::make_shared<Entry>(Entry{one.ID(), read, &one}));
    }
    m_list->setCurrentIndex(wanted);
    return true;
}

// Of what stands on the other side when that is of the library, else of what is chosen here.
void SourceChoice::ShowVersions(QMenu& menu)
{
    menu.clear();
    const CDesignSpecification* of = m_like ? m_like() : nullptr;
    if (!of || !m_library->Find(of->ID())) of = Chosen();
    Problems unread; // there is less to choose from
    if (of)
        for (const SpecificationVersion& version : VersionsOf(*m_library, of->ID(), unread))
            menu.addAction(VersionText(version), this,
                           [this, version, id = of->ID()] { AddVersion(version, id); });
    menu.setTitle(of ? tr("“%1”的历史").arg(ToShown(of->Name())) : tr("历史"));
    menu.setEnabled(!menu.isEmpty());
}

void SourceChoice::AddVersion(const SpecificationVersion& version, const GUID& id)
{
    Problems problems;
    const auto read = ReadVersion(version, id, problems);
    if (!read) {
        const CString cause = problems.empty() ? CString() : problems.front().Text();
        MessageBox(this, L"无法读取这个版本:\n" + cause, L"提示", MB_ICONINFORMATION);
        return;
    }
    const auto folder = std::make_shared<SpecificationFolder>(L"");
    const auto& added = folder->Add(std::make_unique<CDesignSpecification>(*read));
    Add(tr("%1 (%2)").arg(ToShown(added.Name()), VersionText(version)),
        std::make_shared<Entry>(Entry{id, folder, &added}));
    m_list->setCurrentIndex(m_list->count() - 1);
}

void SourceChoice::AskFile()
{
    AddChosen(AskFileToOpen(this, tr("规范文件"), tr("设计规范文件 (*.hds);;所有文件 (*)")));
}

void SourceChoice::AskProject()
{
    AddChosen(AskFolder(this, tr("项目文件夹")));
}

void SourceChoice::AddChosen(const QString& path)
{
    if (!path.isEmpty()) AddFrom(FromQString(path), m_like ? m_like() : nullptr);
}

const SourceChoice::Entry* SourceChoice::Current() const
{
    const int index = m_list->currentIndex();
    return index < 0 ? nullptr : m_entries[static_cast<std::size_t>(index)].get();
}

const CDesignSpecification* SourceChoice::Chosen() const
{
    const Entry* const entry = Current();
    if (!entry) return nullptr;
    return entry->folder ? entry->specification : m_library->Find(entry->id);
}

bool SourceChoice::IsOfLibrary() const
{
    return Current() && !Current()->folder;
}

int SourceChoice::Place() const
{
    return m_list->currentIndex();
}

void SourceChoice::SetPlace(int place)
{
    const QSignalBlocker noChanges(m_list);
    m_list->setCurrentIndex(place);
}

QString SourceChoice::Title() const
{
    return m_list->currentText();
}

} // namespace designspec
