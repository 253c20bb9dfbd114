#include "compare/SourceChoice.h"

#include <algorithm>

#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>

#include "base/Format.h"
#include "compare/ControlIds.h"
#include "platform/mfc/MessageBox.h"
#include "platform/mfc/QtText.h"

namespace designspec {

namespace {

constexpr int kLetters = 16; // of a name are always to be seen

using Folder = std::shared_ptr<SpecificationFolder>;

bool IsFolder(const CString& path)
{
    return QFileInfo(ToQString(path)).isDir();
}

// The specifications of the project, or the folder that holds them: it is chosen as easily.
CString LibraryOf(const CString& path)
{
    const QDir folder(ToQString(path));
    const QString name = ToQString(kStylesFolder);
    const bool isLibrary = folder.dirName() == name && !folder.exists(name);
    return isLibrary ? path : StylesFolderOf(path);
}

Folder ReadAll(const CString& path, Problems& problems)
{
    const auto folder =
        std::make_shared<SpecificationFolder>(IsFolder(path) ? LibraryOf(path) : L"");
    problems = IsFolder(path) ? folder->Load().problems : folder->TakeIn(path, {}, false).problems;
    return folder;
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
    const Folder read = ReadAll(path, problems);
    CString text = Format(L"无法从这里读取规范:\n%s", path);
    for (const Problem& problem : problems)
        if (problem.severity == Severity::Error) text += L"\n" + problem.Text();
    if (read->Count() == 0) return MessageBox(this, text, L"提示", MB_ICONINFORMATION), false;
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

void SourceChoice::AskFile()
{
    QFileDialog asking(this, tr("规范文件"), {}, tr("设计规范文件 (*.hds);;所有文件 (*)"));
    asking.setFileMode(QFileDialog::ExistingFile);
    if (asking.exec() == QDialog::Accepted)
        AddFrom(FromQString(asking.selectedFiles().value(0)), m_like ? m_like() : nullptr);
}

void SourceChoice::AskProject()
{
    QFileDialog asking(this, tr("项目文件夹"));
    asking.setFileMode(QFileDialog::Directory);
    asking.setOption(QFileDialog::ShowDirsOnly);
    if (asking.exec() == QDialog::Accepted)
        AddFrom(FromQString(asking.selectedFiles().value(0)), m_like ? m_like() : nullptr);
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
