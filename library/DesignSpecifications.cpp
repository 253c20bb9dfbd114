#include "library/DesignSpecifications.h"

#include <new>
#include <utility>

#include "library/SpecificationReading.h"
#include "library/StyleName.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"
#include "platform/vmrd/VmHFCBaseU/Trace.h"

using namespace designspec;

IMPLEMENT_DYNAMIC(CDesignSpecifications, CStyles)

CDesignSpecifications* CDesignSpecifications::s_pInstance = nullptr;

namespace {

int g_shares = 0; // of the modules that use the library

Signal<>& Changed()
{
    static Signal<> changed;
    return changed;
}

// Does the work and traces its problems; whether it was done. Nothing is thrown to other modules.
template <class Work> bool Traced(const Work& work)
{
    try {
        const Outcome outcome = work();
        TraceProblems(outcome.problems);
        return outcome.done;
    } catch (const std::bad_alloc&) {
        TraceFile(TraceLevel::Error, {}, 0, L"内存不足");
        return false;
    }
}

} // namespace

CDesignSpecifications* CDesignSpecifications::GetInstance()
{
    if (!s_pInstance) s_pInstance = new CDesignSpecifications;
    return s_pInstance;
}

void CDesignSpecifications::TakeShare()
{
    ++g_shares;
}

void CDesignSpecifications::Destroy()
{
    if (g_shares > 0 && --g_shares > 0) return;
    delete std::exchange(s_pInstance, nullptr);
}

CDesignSpecifications::CDesignSpecifications() : m_folder(CurrentStylesFolder()) {}

CDesignSpecifications::~CDesignSpecifications() = default;

SpecificationFolder& CDesignSpecifications::Folder()
{
    m_folder.Files().MoveTo(CurrentStylesFolder());
    return m_folder;
}

StyleFolder& CDesignSpecifications::Files()
{
    return Folder().Files();
}

CString CDesignSpecifications::Name() const
{
    return kLibraryName;
}

int CDesignSpecifications::Count() const
{
    return m_folder.Count();
}

CDesignSpecification* CDesignSpecifications::Item(const GUID& id) const
{
    return m_folder.Find(id);
}

CDesignSpecification* CDesignSpecifications::Item(int index) const
{
    return m_folder.Item(index);
}

CDesignSpecification* CDesignSpecifications::Item(const wchar_t* name) const
{
    return m_folder.Find(name);
}

CDesignSpecification* CDesignSpecifications::DefaultItem() const
{
    return Item(GetDefaultItem());
}

int CDesignSpecifications::Add(CDesignSpecification* specification)
{
    m_folder.Add(std::unique_ptr<CDesignSpecification>(specification));
    return Count() - 1;
}

void CDesignSpecifications::Remove(int index, bool deleteObject)
{
    const CDesignSpecification* const item = Item(index);
    if (!item) return;
    const CString name = item->Name();
    if (FileNameProblem(name).empty())
        Traced([&] {
            return Folder().SetFileAside(
                name + L'{' + VMRDPub::GUIDToStr(item->ID()) + L'}' + kStyleFileEnding, item->ID());
        });
    auto taken = m_folder.TakeOut(index);
    if (!deleteObject) static_cast<void>(taken.release());
}

void CDesignSpecifications::SetDefaultItem(int index)
{
    CStyles::SetDefaultItem(index);
    if (const CDesignSpecification* const item = Item(index))
        Traced([&] { return Folder().SetDefault(*item); });
    Changed().Tell();
}

void CDesignSpecifications::SetDefaultItem(const CDesignSpecification* specification)
{
    const int index = specification ? m_folder.IndexOf(*specification) : -1;
    if (index >= 0) SetDefaultItem(index);
}

bool CDesignSpecifications::Save(const CDesignSpecification* specification)
{
    const bool saved = Traced([&] { return Folder().Save(*specification); });
    Changed().Tell();
    return saved;
}

bool CDesignSpecifications::Rename(const wchar_t* name, const wchar_t*)
{
    const CDesignSpecification* const specification = Item(name);
    return specification && FileNameProblem(name).empty() && SaveRenamed(specification, name);
}

bool CDesignSpecifications::SaveRenamed(const CDesignSpecification* specification,
                                        const CString& oldName)
{
    const bool saved = Traced([&] { return Folder().SaveRenamed(*specification, oldName); });
    Changed().Tell();
    return saved;
}

bool CDesignSpecifications::Export(const wchar_t* path, const CStringArray& names, const wchar_t*)
{
    return Traced([&] { return m_folder.Export(path, names); });
}

bool CDesignSpecifications::Import(const wchar_t* path, const CStringArray& names, const wchar_t*,
                                   bool overwrite)
{
    return Traced([&] { return m_folder.TakeIn(path, names, overwrite); });
}

StyleImport CDesignSpecifications::ImportAndSave(const CString& path, const CStringArray& names,
                                                 bool overwrite)
{
    ImportOutcome outcome;
    Traced([&] { return outcome = Folder().Import(path, names, overwrite); });
    StyleImport result;
    result.read = outcome.read;
    for (const TakenSpecification& taken : outcome.specifications) {
        if (taken.how == Taken::Added) ++result.added;
        if (taken.how == Taken::Overwritten) ++result.overwritten;
        if (!taken.saved) ++result.failed;
        if (taken.how != Taken::Left) result.ids.push_back(taken.id);
    }
    return result;
}

bool CDesignSpecifications::StyleNames(const wchar_t* path, CStringArray& names,
                                       CArray<GUID>& ids) const
{
    return Traced([&] {
        CXTPPropExchangeXMLNode root(true, kStyleLibraryRoot);
        Outcome outcome;
        outcome.done = root.LoadFromFile(path);
        outcome.problems = root.TakeProblems();
        for (const StyleEntry& entry : StyleEntries(root, kLibraryName)) {
            names.push_back(entry.name);
            ids.push_back(entry.id);
        }
        return outcome;
    });
}

bool CDesignSpecifications::SaveAsTemplate(const wchar_t* folder)
{
    return Traced([&] { return Folder().SaveAsTemplate(folder); });
}

void CDesignSpecifications::Update()
{
    Traced([&] { return Folder().Load(); });
    Traced([&] {
        Outcome outcome;
        const auto standard = m_folder.Default(outcome.problems);
        if (standard) CStyles::SetDefaultItem(*standard);
        return outcome;
    });
    Changed().Tell();
}

Connection CDesignSpecifications::ConnectChanges(Signal<>::Function listener)
{
    return Changed().Connect(std::move(listener));
}
