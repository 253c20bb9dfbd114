#include "library/LibraryCheck.h"

#include "base/File.h"
#include "base/Format.h"
#include "base/Text.h"
#include "library/SpecificationReading.h"
#include "model/Criteria.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

namespace designspec {

namespace {

// Collects what is odd in one file.
class FileCheck {
public:
    FileCheck(CString path, Problems& findings) : m_path(std::move(path)), m_findings(findings) {}

    void CheckFile(const CString& file)
    {
        CXTPPropExchangeXMLNode root(true, kStyleLibraryRoot);
        // That it cannot be read has been told when the folder was loaded.
        if (!root.LoadFromFile(m_path.c_str())) return;
        const CString path = StylesPath(kLibraryName) + L"/Style";
        CXTPPropExchangeEnumerator styles = root.GetEnumerator(path.c_str());
        while (styles.HasNext()) {
            const CXTPPropExchange style = styles.GetNext();
            CheckName(style, file);
            for (const CriterionInfo& criterion : Criteria())
                CheckRows(style.FindSection(criterion.name), criterion.fields);
        }
    }

private:
    void Find(const CXTPPropExchange& section, const CString& text)
    {
        AddProblem(m_findings, Severity::Note, m_path, section.Line(), text);
    }

    void CheckName(const CXTPPropExchange& style, const CString& file)
    {
        GUID id;
        if (!VMRDPub::ParseGUID(style.Attribute(L"ID"), id)) return;
        const CString expected = style.Attribute(L"Name") + VMRDPub::GUIDToStr(id) + L".hds";
        if (file != expected) Find(style, Format(L"文件名与名称和标识不符,应为 %s", expected));
    }

    void CheckRows(const CXTPPropExchange& object, std::span<const Field> fields)
    {
        for (const Field& field : fields) {
            if (!field.HasRows()) continue;
            const CXTPPropExchange section = object.FindSection(field.element);
            if (field.order != RowOrder::AsGiven) CheckOrder(section, field);
            CXTPPropExchangeEnumerator rows = section.GetEnumerator(field.rowElement);
            while (rows.HasNext())
                CheckRows(rows.GetNext(), field.RowFields());
        }
    }

    // The keys of the rows must fall from row to row, or rise.
    void CheckOrder(const CXTPPropExchange& section, const Field& field)
    {
        const CString key = field.RowFields()[0].key;
        const bool falling = field.order == RowOrder::Descending;
        CXTPPropExchangeEnumerator rows = section.GetEnumerator(field.rowElement);
        std::vector<double> keys;
        bool ordered = true;
        while (rows.HasNext()) {
            CXTPPropExchange row = rows.GetNext();
            row.EnableCompactMode(true);
            double value = 0;
            PX_Double(&row, key, value, 0);
            if (std::find(keys.begin(), keys.end(), value) != keys.end())
                Find(row, Format(L"%s 中 %s=%g 出现两次", section.Name(), key, value));
            else if (!keys.empty() && (falling ? value > keys.back() : value < keys.back()))
                ordered = false;
            keys.push_back(value);
        }
        if (!ordered) Find(section, Format(L"%s 的各项未按 %s 排序", section.Name(), key));
    }

    CString m_path;
    Problems& m_findings;
};

} // namespace

Problems CheckFiles(const StyleFolder& folder)
{
    Problems findings;
    Problems unread; // told when the folder was loaded
    for (const CString& file : folder.Files(unread))
        FileCheck(folder.PathOf(file), findings).CheckFile(file);
    for (const CString& file : FindFiles(folder.Path(), L".tmp", unread))
        if (IsTemporaryFile(file))
            AddProblem(findings, Severity::Note, folder.PathOf(file), 0,
                       L"中断的保存留下的临时文件,可以删除");
    return findings;
}

} // namespace designspec
