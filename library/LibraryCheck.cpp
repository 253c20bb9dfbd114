#include "library/LibraryCheck.h"

#include <algorithm>
#include <set>

#include "base/File.h"
#include "base/Format.h"
#include "base/Number.h"
#include "base/Text.h"
#include "library/SpecificationReading.h"
#include "model/Criteria.h"
#include "model/Findings.h"
#include "model/ValuePath.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

namespace designspec {

namespace {

bool HasKeys(const CXTPPropExchange& row, const ValuePath::Step& step)
{
    const auto fields = KeysOf(*step.field);
    for (size_t i = 0; i < fields.size(); ++i) {
        Value value;
        if (!ParseValue(*fields[i], row.Attribute(fields[i]->key), {}, value).empty() ||
            !IsSameValue(value, step.keys[i]))
            return false;
    }
    return true;
}

// The section of a step below that of the one before. Of two rows with one key the last one, which
// is the one too many.
CXTPPropExchange SectionOf(const CXTPPropExchange& section, const ValuePath::Step& step)
{
    const Field& field = *step.field;
    if (!field.HasRows()) return section.FindSection(field.key);
    CXTPPropExchange inner = *field.element ? section.FindSection(field.element) : section;
    if (step.keys.empty()) return inner;
    CXTPPropExchange found;
    CXTPPropExchangeEnumerator rows = inner.GetEnumerator(field.rowElement);
    while (rows.HasNext())
        if (const CXTPPropExchange row = rows.GetNext(); HasKeys(row, step)) found = row;
    return found.IsSectionExists() ? found : inner;
}

// Where the value stands, or else what is nearest around it.
int LineOf(const CXTPPropExchange& style, const std::wstring& path)
{
    const ValuePath parsed = ParseValuePath(path).path;
    if (!parsed.criterion) return style.Line();
    CXTPPropExchange section = style.FindSection(parsed.criterion->name);
    if (!section.IsSectionExists()) return style.Line();
    for (const ValuePath::Step& step : parsed.steps) {
        const CXTPPropExchange inner = SectionOf(section, step);
        if (!inner.IsSectionExists()) break;
        section = inner;
    }
    return section.Line();
}

// The keys of the rows never rise from row to row, or never fall.
bool IsInOrder(const CXTPPropExchange& section, const Field& field)
{
    CXTPPropExchangeEnumerator rows = section.GetEnumerator(field.rowElement);
    std::vector<double> keys;
    while (rows.HasNext())
        keys.push_back(Wtof(rows.GetNext().Attribute(field.RowFields()[0].key)));
    return field.order == RowOrder::Ascending ? std::is_sorted(keys.begin(), keys.end())
                                              : std::is_sorted(keys.rbegin(), keys.rend());
}

class LibraryCheck {
public:
    explicit LibraryCheck(const SpecificationFolder& folder) : m_folder(folder) {}

    std::vector<LibraryFinding> Run()
    {
        Problems unread; // told when the folder was loaded
        for (const CString& file : m_folder.Files().Files(unread))
            CheckFile(file);
        for (int i = 0; i < m_folder.Count(); ++i)
            if (!m_checked.contains(m_folder.Item(i))) Check(*m_folder.Item(i), {});
        for (const CString& file : FindFiles(m_folder.Files().Path(), L".tmp", unread))
            if (IsTemporaryFile(file))
                Add(Severity::Note, file, 0, {}, L"中断的保存留下的临时文件,可以删除");
        return std::move(m_found);
    }

private:
    void Add(Severity severity, const CString& file, int line, const std::wstring& path,
             const std::wstring& text)
    {
        Problems one;
        AddProblem(one, severity, file.empty() ? file : m_folder.Files().PathOf(file), line, text);
        m_found.push_back({one.front(), path});
    }

    void CheckFile(const CString& file)
    {
        CXTPPropExchangeXMLNode root(true, kStyleLibraryRoot);
        if (!root.LoadFromFile(m_folder.Files().PathOf(file).c_str())) return;
        CXTPPropExchangeEnumerator styles =
            root.GetEnumerator((StylesPath(kLibraryName) + L"/Style").c_str());
        while (styles.HasNext()) {
            const CXTPPropExchange style = styles.GetNext();
            GUID id;
            if (!VMRDPub::ParseGUID(style.Attribute(L"ID"), id)) continue;
            CheckName(style, id, file);
            for (const CriterionInfo& criterion : Criteria())
                CheckOrder(style.FindSection(criterion.name), criterion.fields, file);
            const CDesignSpecification* const loaded = m_folder.Find(id);
            if (loaded && m_folder.FileOf(*loaded) == file && m_checked.insert(loaded).second)
                Check(*loaded, style);
        }
    }

    void CheckName(const CXTPPropExchange& style, const GUID& id, const CString& file)
    {
        const CString expected = style.Attribute(L"Name") + VMRDPub::GUIDToStr(id) + L".hds";
        if (file != expected)
            Add(Severity::Note, file, style.Line(), {},
                Format(L"文件名与名称和标识不符,应为 %s", expected));
    }

    // What reading puts in order: nothing but the file tells that it was not.
    void CheckOrder(const CXTPPropExchange& object, std::span<const Field> fields,
                    const CString& file)
    {
        for (const Field& field : fields) {
            if (!field.IsTable() && field.order != RowOrder::Ascending) continue;
            const CXTPPropExchange section = object.FindSection(field.element);
            if (!IsInOrder(section, field))
                Add(Severity::Note, file, section.Line(), {},
                    Format(L"%s 的各项未按 %s 排序", section.Name(),
                           CString(field.RowFields()[0].key)));
            if (field.IsTable()) continue;
            CXTPPropExchangeEnumerator rows = section.GetEnumerator(field.rowElement);
            while (rows.HasNext())
                CheckOrder(rows.GetNext(), field.RowFields(), file);
        }
    }

    void Check(const CDesignSpecification& specification, const CXTPPropExchange& style)
    {
        const CString file = m_folder.FileOf(specification);
        for (const Finding& finding : Findings(specification))
            Add(finding.severity, file, LineOf(style, finding.path), finding.path, finding.Line());
    }

    const SpecificationFolder& m_folder;
    std::set<const CDesignSpecification*> m_checked;
    std::vector<LibraryFinding> m_found;
};

} // namespace

std::vector<LibraryFinding> CheckLibrary(const SpecificationFolder& folder)
{
    return LibraryCheck(folder).Run();
}

} // namespace designspec
