#include "library/DesignSpecifications.h"

#include <algorithm>
#include <utility>

#include "base/File.h"
#include "base/Format.h"
#include "base/NoCase.h"
#include "base/Text.h"
#include "library/StyleName.h"
#include "model/Criteria.h"
#include "platform/vmrd/VMRDEnv/DeletedStyles.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"
#include "platform/vmrd/VmHFCBaseU/Files.h"
#include "platform/vmrd/VmHFCBaseU/Trace.h"
#include "platform/windows/Profile.h"

using namespace designspec;

IMPLEMENT_DYNAMIC(CDesignSpecifications, CStyles)

CDesignSpecifications* CDesignSpecifications::s_pInstance = nullptr;

namespace {

int g_shares = 0; // of the modules that use the library

constexpr wchar_t kLibraryName[] = L"设计规范";
constexpr wchar_t kFolder[] = L"\\规范";
constexpr wchar_t kFileEnding[] = L".hds";
constexpr wchar_t kSettingSection[] = L"设置";
constexpr wchar_t kSettingKey[] = L"默认样式";
constexpr size_t kSettingLength = 255; // characters of a setting that are read

CString FolderPath()
{
    return VMRDPub::GetCurPrjPath() + kFolder;
}

CString FilePath(const CString& name, const GUID& id)
{
    return Format(L"%s\\规范\\%s%s.hds", VMRDPub::GetCurPrjPath(), name, VMRDPub::GUIDToStr(id));
}

// The file that Remove deletes: with braces, unlike the one that Save writes.
CString BracedFilePath(const CString& name, const GUID& id)
{
    return Format(L"%s\\规范\\%s{%s}.hds", VMRDPub::GetCurPrjPath(), name, VMRDPub::GUIDToStr(id));
}

CString SettingPath()
{
    return Format(L"%s\\规范\\setting.ini", VMRDPub::GetCurPrjPath());
}

CString FileNameOf(const CString& path)
{
    return path.substr(path.find_last_of(L"/\\") + 1);
}

bool Contains(const CStringArray& names, const CString& name)
{
    return std::any_of(names.begin(), names.end(),
                       [&](const CString& one) { return EqualNoCase(one, name); });
}

// Takes out every table: loading empties them or resets their criterion, and to make the built-in
// ones for each of a thousand files takes half as long as to parse them.
CDesignSpecification WithoutTables(CDesignSpecification specification)
{
    for (const CriterionInfo& criterion : Criteria()) {
        void* const object = criterion.get(specification);
        for (const Field& field : criterion.fields) {
            if (field.kind == FieldKind::IntTable) field.Of<SpeedToIntValues>(object) = {};
            if (field.kind == FieldKind::DoubleTable) field.Of<SpeedToDoubleValues>(object) = {};
        }
    }
    specification.LonGradMaxLen.rows = {};
    specification.SuperElevation.definitions = {};
    specification.CurveWidening.ranges = {};
    return specification;
}

std::unique_ptr<CDesignSpecification> Load(CXTPPropExchange style)
{
    static const CDesignSpecification blank = WithoutTables({});
    auto loaded = std::make_unique<CDesignSpecification>(blank);
    loaded->DoPropExchange(&style);
    return loaded;
}

// Says what is wrong with the name or the identity that a file gives; it is loaded all the same.
void TraceOddities(const CXTPPropExchange& style, const CString& path, const CString& name)
{
    const auto trace = [&](const CString& text) {
        TraceFile(TraceLevel::Error, path, style.Line(), text);
    };
    GUID id;
    const CString idText = style.Attribute(L"ID");
    if (idText.empty())
        trace(Format(L"样式“%s”没有 ID,已给予新的标识", name));
    else if (!VMRDPub::ParseGUID(idText, id))
        trace(Format(L"样式“%s”的 ID“%s”无效,已给予新的标识", name, idText));
    if (name.empty()) trace(L"样式没有名称");
    if (const CString problem = FileNameProblem(name); !problem.empty())
        trace(Format(L"样式“%s”的%s", name, problem));
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

CDesignSpecifications::~CDesignSpecifications() = default;

CString CDesignSpecifications::Name() const
{
    return kLibraryName;
}

int CDesignSpecifications::Count() const
{
    return static_cast<int>(m_items.size());
}

CDesignSpecification* CDesignSpecifications::Find(const GUID& id) const
{
    for (const auto& item : m_items)
        if (item->HasID(id)) return item.get();
    return nullptr;
}

CStyle* CDesignSpecifications::Item(const GUID& id) const
{
    return Find(id);
}

CStyle* CDesignSpecifications::Item(int index) const
{
    return index >= 0 && index < Count() ? m_items[static_cast<size_t>(index)].get() : nullptr;
}

CDesignSpecification* CDesignSpecifications::Item(const wchar_t* name) const
{
    const NoCaseKey key(name);
    for (const auto& item : m_items)
        if (item->IsNamed(key)) return item.get();
    return nullptr;
}

int CDesignSpecifications::Add(CDesignSpecification* specification)
{
    const CString base = specification->Name();
    CString candidate = base;
    for (int k = 1; Item(candidate.c_str()); ++k)
        candidate = Format(L"%s(%d)", base, k);
    if (candidate != base) specification->SetName(candidate.c_str());
    m_items.emplace_back(specification);
    return Count() - 1;
}

void CDesignSpecifications::Remove(int index, bool deleteObject)
{
    if (!Item(index)) return;
    const auto at = m_items.begin() + index;
    const CString name = (*at)->Name();
    if (FileNameProblem(name).empty()) DeleteFile(BracedFilePath(name, (*at)->ID()));
    if (!deleteObject) static_cast<void>(at->release());
    m_items.erase(at);
}

void CDesignSpecifications::SetDefaultItem(int index)
{
    CStyles::SetDefaultItem(index);
    if (const CStyle* item = Item(index))
        WritePrivateProfileString(kSettingSection, kSettingKey,
                                  VMRDPub::GUIDToStr(item->ID()).c_str(), SettingPath());
}

void CDesignSpecifications::SetDefaultItem(const CDesignSpecification* specification)
{
    for (int i = 0; i < Count(); ++i)
        if (Item(i) == specification) return SetDefaultItem(i);
}

bool CDesignSpecifications::Save(const CDesignSpecification* specification)
{
    const CString name = specification->Name();
    const CString path = FilePath(name, specification->ID());
    if (const CString problem = FileNameProblem(name); !problem.empty()) {
        TraceFile(TraceLevel::Error, FolderPath(), 0, Format(L"“%s”无法保存: %s", name, problem));
        return false;
    }
    if (!CreateFolder(FolderPath()) || !MoveOthersOut(FileNameOf(path), specification->ID()))
        return false;
    return Write({path, specification, true}) &&
           SetOtherFilesAside(specification->ID(), FileNameOf(path));
}

bool CDesignSpecifications::Write(const Saving& saving)
{
    m_pSaving = &saving;
    const bool done = Export(saving.path.c_str(), {saving.specification->Name()}, nullptr);
    m_pSaving = nullptr;
    return done;
}

// A file that goes or gets a single content may be the only one that holds another specification
// as well: that gets its own file first.
bool CDesignSpecifications::MoveOthersOut(const CString& file, const GUID& id)
{
    for (Origin& origin : m_origins) {
        const CDesignSpecification* other = Find(origin.id);
        if (origin.file != file || origin.id == id || !other) continue;
        const auto elsewhere = [&](const Origin& one) {
            return one.id == origin.id && one.file != file;
        };
        if (std::any_of(m_origins.begin(), m_origins.end(), elsewhere)) continue;
        const CString path = FilePath(other->Name(), origin.id);
        if (!FileNameProblem(other->Name()).empty() || !Write({path, other, false})) return false;
        origin.file = FileNameOf(path);
    }
    return true;
}

bool CDesignSpecifications::SaveItem(int index)
{
    const auto* const item = static_cast<const CDesignSpecification*>(Item(index));
    return item && Save(item);
}

bool CDesignSpecifications::Rename(const wchar_t* name, const wchar_t*)
{
    const CDesignSpecification* specification = Item(name);
    if (!specification || !FileNameProblem(name).empty()) return false;
    return SaveRenamed(specification, name);
}

// The new file is there before the old one goes: at no moment is there none.
bool CDesignSpecifications::SaveRenamed(const CDesignSpecification* specification,
                                        const CString& oldName)
{
    if (!FileNameProblem(oldName).empty()) return Save(specification);
    const CString oldPath = FilePath(oldName, specification->ID());
    const CString newPath = FilePath(specification->Name(), specification->ID());
    const Origin old{specification->ID(), FileNameOf(oldPath)};
    if (!MoveOthersOut(old.file, old.id)) return false;
    // It is deleted below, not set aside.
    std::erase_if(m_origins, [&](const Origin& origin) { return origin == old; });
    const bool done = Save(specification) && (!PathFileExists(oldPath) ||
                                              IsSameFile(oldPath, newPath) || DeleteFile(oldPath));
    if (!done) m_origins.push_back(old);
    return done;
}

// Whatever else held the specification would be read as well the next time, and could win over
// the file just written.
bool CDesignSpecifications::SetOtherFilesAside(const GUID& id, const CString& file)
{
    bool done = true;
    for (const Origin& origin : m_origins) {
        if (!(origin.id == id) || origin.file == file) continue;
        const CString path = FolderPath() + L"\\" + origin.file;
        if (!PathFileExists(path) || IsSameFile(path, FolderPath() + L"\\" + file)) continue;
        CStringArray names;
        CArray<GUID> ids;
        if (!StyleNames(path.c_str(), names, ids))
            done = false;
        else if (ids.size() == 1 || std::find(ids.begin(), ids.end(), id) != ids.end())
            done = SetStyleAside(*this, origin.file, id) && done;
    }
    // The file holds this specification alone now.
    std::erase_if(m_origins, [&](const Origin& origin) {
        return origin.file == file || (done && origin.id == id);
    });
    m_origins.push_back({id, file});
    return done;
}

CString CDesignSpecifications::FileOf(const CDesignSpecification& specification) const
{
    const auto found =
        std::find_if(m_origins.rbegin(), m_origins.rend(),
                     [&](const Origin& origin) { return origin.id == specification.ID(); });
    return found == m_origins.rend() ? CString() : found->file;
}

const CDesignSpecification* CDesignSpecifications::FindForExport(const CString& name) const
{
    if (m_pSaving) return m_pSaving->specification;
    const CDesignSpecification* found = Item(name.c_str());
    if (!found) TraceFile(TraceLevel::Note, {}, 0, Format(L"没有名为“%s”的样式,未导出", name));
    return found;
}

void CDesignSpecifications::ExportStyle(const CXTPPropExchange& styles,
                                        const CDesignSpecification& specification)
{
    CXTPPropExchange section;
    CXTPPropExchangeEnumerator all = styles.GetEnumerator(L"Style");
    while (all.HasNext() && !section.IsSectionExists()) {
        CXTPPropExchange style = all.GetNext();
        if (HasID(style, specification.ID())) section = style;
    }
    if (!section.IsSectionExists()) section = styles.AppendSection(L"Style");
    // The exchange goes both ways and so takes no const object; storing changes none.
    const_cast<CDesignSpecification&>(specification).DoPropExchange(&section);
}

bool CDesignSpecifications::Export(const wchar_t* path, const CStringArray& names, const wchar_t*)
{
    const bool anew = m_pSaving && m_pSaving->anew;
    CXTPPropExchangeXMLNode root;
    CXTPPropExchange styles;
    if (!CreateStylesNode(anew ? L"" : path, kLibraryName, root, styles)) return false;
    if (names.empty()) {
        for (const auto& item : m_items)
            ExportStyle(styles, *item);
    }
    for (const CString& name : names)
        if (const CDesignSpecification* found = FindForExport(name)) ExportStyle(styles, *found);
    return root.SaveToFile(path);
}

bool CDesignSpecifications::Import(const wchar_t* path, const CStringArray& names, const wchar_t*,
                                   bool overwrite)
{
    CXTPPropExchangeXMLNode root(true, kStyleLibraryRoot);
    if (!root.LoadFromFile(path)) return false;
    const CXTPPropExchange styles = root.FindSection(StylesPath().c_str());
    if (!styles.IsSectionExists())
        TraceFile(TraceLevel::Error, path, root.Line(),
                  Format(L"文件中没有“%s”的样式", CString(kLibraryName)));
    CXTPPropExchangeEnumerator all = styles.GetEnumerator(L"Style");
    while (all.HasNext())
        ImportStyle(all.GetNext(), path, names, overwrite);
    return true;
}

// A specification of which one value cannot be read is not taken: a limit that is silently
// another one is worse than none.
void CDesignSpecifications::ImportStyle(const CXTPPropExchange& style, const CString& path,
                                        const CStringArray& filter, bool overwrite)
{
    std::unique_ptr<CDesignSpecification> loaded = Load(style);
    const std::vector<ExchangeProblem> problems = style.TakeProblems();

    const CString name = loaded->Name();
    if (!filter.empty() && !Contains(filter, name)) {
        TraceFile(TraceLevel::Note, path, style.Line(), Format(L"样式“%s”不在所选之列", name));
        return;
    }
    for (const ExchangeProblem& problem : problems)
        TraceFile(TraceLevel::Error, path, problem.line,
                  Format(L"样式“%s”未载入: %s", name, problem.text));
    if (!problems.empty()) return;
    TraceOddities(style, path, name);
    TakeIn(std::move(loaded), path, style.Line(), overwrite);
}

void CDesignSpecifications::TakeIn(std::unique_ptr<CDesignSpecification> loaded,
                                   const CString& path, int line, bool overwrite)
{
    const GUID id = loaded->ID();
    const CString name = loaded->Name();
    if (m_bUpdating) m_origins.push_back({id, FileNameOf(path)});
    if (CDesignSpecification* present = Find(id)) {
        // Two files of one library should not hold the same specification; an import may.
        TraceFile(m_bUpdating ? TraceLevel::Error : TraceLevel::Note, path, line,
                  Format(L"样式“%s”与已有的“%s”标识相同(%s),%s", name, present->Name(),
                         VMRDPub::GUIDToStr(id), CString(overwrite ? L"已用它覆盖" : L"未导入")));
        if (overwrite) *present = *loaded;
        return;
    }
    const CStyle* added = Item(Add(loaded.release()));
    if (added->Name() != name)
        TraceFile(TraceLevel::Note, path, line,
                  Format(L"样式“%s”重名,改称“%s”", name, added->Name()));
}

bool CDesignSpecifications::StyleNames(const wchar_t* path, CStringArray& names,
                                       CArray<GUID>& ids) const
{
    CXTPPropExchangeXMLNode root(true, kStyleLibraryRoot);
    if (!root.LoadFromFile(path)) return false;
    CXTPPropExchangeEnumerator all = root.GetEnumerator((StylesPath() + L"/Style").c_str());
    while (all.HasNext()) {
        const CXTPPropExchange style = all.GetNext();
        names.push_back(style.Attribute(L"Name"));
        ids.push_back(VMRDPub::StrToGUID(style.Attribute(L"ID")));
    }
    return true;
}

bool CDesignSpecifications::SaveAsTemplate(const wchar_t* folder)
{
    const CString target = CString(folder) + kFolder;
    if (!CreateFolder(target)) return false;
    bool done = true;
    for (const CString& file : FindFiles(FolderPath(), kFileEnding))
        done = CopyFile(FolderPath() + L"\\" + file, target + L"\\" + file) && done;
    if (PathFileExists(SettingPath())) CopyFile(SettingPath(), target + L"\\setting.ini");
    return done;
}

void CDesignSpecifications::Update()
{
    m_items.clear();
    m_origins.clear();
    m_bUpdating = true;
    for (const CString& file : FindFiles(FolderPath(), kFileEnding))
        Import((FolderPath() + L"\\" + file).c_str(), {}, nullptr, true);
    m_bUpdating = false;
    RestoreDefault();
}

void CDesignSpecifications::RestoreDefault()
{
    const CString text =
        Trim(GetPrivateProfileString(kSettingSection, kSettingKey, L"", SettingPath())
                 .substr(0, kSettingLength));
    if (text.empty()) return;
    GUID id;
    if (!VMRDPub::ParseGUID(text, id) || !CStyles::SetDefaultItem(id))
        TraceFile(TraceLevel::Note, SettingPath(), 0, Format(L"默认样式“%s”不在库中", text));
}
