// A project's folder with files of any bytes, and what users do to it in any order: load, every
// query, set, save, reload, rename, remove, bring back, import, export, template, check. It must
// end, an operation that says it was done must be found done by the next one who reads the folder,
// and no other specification may change.
//
// An input is a line of operations, a letter each, then the files, divided by form feeds, which no
// XML holds: those of the library, the last one to import. One that begins with "[" is setting.ini.
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <vector>

#include "base/Format.h"
#include "base/NoCase.h"
#include "base/Text.h"
#include "fuzz/Fuzz.h"
#include "library/LibraryCheck.h"
#include "library/SpecificationFolder.h"
#include "library/StyleName.h"
#include "model/Criteria.h"
#include "model/SpecificationValue.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

using namespace designspec;
namespace fs = std::filesystem;

namespace {

// A folder for the whole run, emptied for each input; it goes with the process.
class Place {
public:
    Place()
    {
        if (!mkdtemp(m_path.data())) std::abort();
    }
    ~Place() { Clear(true); }
    void Clear(bool whole = false) const
    {
        std::error_code ignored;
        if (whole) {
            fs::remove_all(m_path, ignored);
            return;
        }
        for (const auto& entry : fs::directory_iterator(m_path))
            fs::remove_all(entry, ignored);
    }
    fs::path Native() const { return m_path; }
    CString Project() const { return ToWide(m_path); }

private:
    std::string m_path = (fs::temp_directory_path() / "designspec-fuzz-XXXXXX").string();
};

std::vector<std::string_view> Parts(std::string_view bytes)
{
    std::vector<std::string_view> parts;
    while (true) {
        const size_t end = bytes.find('\f');
        parts.push_back(bytes.substr(0, end));
        if (end == std::string_view::npos) return parts;
        bytes.remove_prefix(end + 1);
    }
}

void Write(const fs::path& path, std::string_view bytes)
{
    std::ofstream(path, std::ios::binary)
        .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

struct ById {
    bool operator()(const GUID& a, const GUID& b) const
    {
        return VMRDPub::GUIDToStr(a) < VMRDPub::GUIDToStr(b);
    }
};
using Contents = std::map<GUID, CDesignSpecification, ById>;

// What somebody else reads in the folder.
Contents Read(const CString& project)
{
    SpecificationFolder folder(StylesFolderOf(project));
    folder.Load();
    Contents contents;
    for (int i = 0; i < folder.Count(); ++i) {
        Require(contents.emplace(folder.Item(i)->ID(), *folder.Item(i)).second);
        for (int j = 0; j < i; ++j)
            Require(!EqualNoCase(folder.Item(i)->Name(), folder.Item(j)->Name()));
    }
    return contents;
}

// Names may depend on the others; unknown content changes its order when it is stored.
bool SameLimits(const CDesignSpecification& a, const CDesignSpecification& b)
{
    bool same = true;
    ForEachCriterion([&](const auto& one) { same = same && a.*one.member == b.*one.member; });
    return same;
}

bool IsThere(const Contents& contents, const CDesignSpecification& specification)
{
    const auto found = contents.find(specification.ID());
    return found != contents.end() && SameLimits(found->second, specification);
}

void AskTables(const CriterionInfo& criterion, CDesignSpecification& one)
{
    void* const object = criterion.get(one);
    for (const Field& field : criterion.fields) {
        for (int mode = QueryValue::Nearest; mode <= QueryValue::Exact; ++mode) {
            const auto how = static_cast<QueryValue::QueryMode>(mode);
            int whole = 0;
            double real = 0;
            for (const int speed : {-1, 0, 55, 80, 2147483647}) {
                if (field.kind == FieldKind::IntTable)
                    QueryValue::QueryIntValBySpeed(&field.Of<SpeedToIntValues>(object), speed, how,
                                                   whole);
                if (field.kind == FieldKind::DoubleTable)
                    QueryValue::QueryDoubleValBySpeed(&field.Of<SpeedToDoubleValues>(object), speed,
                                                      how, real);
            }
        }
    }
}

void Ask(CDesignSpecification& one)
{
    for (const CriterionInfo& criterion : Criteria())
        AskTables(criterion, one);
    for (int mode = QueryValue::Nearest; mode <= QueryValue::Exact; ++mode) {
        const auto how = static_cast<QueryValue::QueryMode>(mode);
        int whole = 0;
        double real = 0;
        for (const int speed : {-5, 30, 79, 80, 2147483647}) {
            for (const double grad : {-1.0, 0.0, 5.2, 1e300})
                one.LonGradMaxLen.QueryVal(grad, speed, how, whole);
            for (const int radius : {-1, 0, 250, 2147483647}) {
                one.SuperElevation.QuerySuperElevation(6, speed, how, 10, radius, whole);
                one.CurveWidening.QueryWidening(L"小型汽车", radius, real);
            }
        }
    }
}

class Session {
public:
    Session(const Place& place, const CString& imported)
        : m_project(place.Project()), m_imported(imported),
          m_folder(StylesFolderOf(place.Project())), m_stable(Read(place.Project()))
    {
        // Only identities that files give are the same for two readers.
        const Contents again = Read(m_project);
        std::erase_if(m_stable, [&](const auto& one) { return !again.contains(one.first); });
        m_folder.Load();
    }

    // The next operation, on the specification whose turn it is.
    void Do(char operation)
    {
        ++m_turn;
        switch (operation) {
        case 'l':
            m_folder.Load();
            break;
        case 'i':
        case 'I':
            Import(operation == 'I');
            break;
        case 'e':
            Export();
            break;
        case 't':
            Template();
            break;
        case 'b':
            BringBack();
            break;
        case 'c':
            CheckLibrary(m_folder);
            break;
        default:
            if (m_folder.Count() > 0)
                Change(operation, *m_folder.Item(static_cast<int>(m_turn) % m_folder.Count()));
        }
    }

private:
    // Who had no part in it is as it was.
    void RequireOthers(const Contents& after, const std::vector<GUID>& changed)
    {
        for (auto& [id, content] : m_stable)
            if (std::find(changed.begin(), changed.end(), id) == changed.end())
                Require(IsThere(after, content));
        for (const GUID& id : changed) {
            m_stable.erase(id);
            if (const auto now = after.find(id); now != after.end()) m_stable.insert(*now);
        }
    }

    void Change(char operation, CDesignSpecification& one)
    {
        switch (operation) {
        case 'q':
            Ask(one);
            break;
        case 's':
            Saved(one, m_folder.Save(one));
            break;
        case 'w':
            Set(one);
            break;
        case 'r':
            Rename(one);
            break;
        case 'd':
            Remove(one);
            break;
        case 'D':
            m_folder.SetDefault(one);
            break;
        default:
            break;
        }
    }

    void Saved(const CDesignSpecification& one, const Outcome& outcome)
    {
        const Contents after = Read(m_project);
        if (outcome.done) {
            Require(IsThere(after, one));
            // One without an identity stands there once, too.
            Require(after.size() <= static_cast<size_t>(m_folder.Count()));
        }
        RequireOthers(after, {one.ID()});
    }

    void Set(CDesignSpecification& one)
    {
        const ParsedPath path = ParseValuePath(L"CircularCurveRad.SuperelevationMinRad[70]");
        Require(WriteValue(one, path.path, std::to_wstring(m_turn)).empty());
        Saved(one, m_folder.Save(one));
    }

    void Rename(CDesignSpecification& one)
    {
        const CString name = Format(L"名 %d", static_cast<int>(m_turn));
        if (!StyleNameProblem(m_folder, name, one.Name()).empty()) return;
        Saved(one, m_folder.Rename(one, name));
    }

    void Remove(const CDesignSpecification& one)
    {
        const GUID id = one.ID();
        const bool done = m_folder.Remove(one).done;
        const Contents after = Read(m_project);
        if (done) Require(!after.contains(id));
        RequireOthers(after, {id});
    }

    void Import(bool overwrite)
    {
        const ImportOutcome outcome = m_folder.Import(m_imported, {}, overwrite);
        const Contents after = Read(m_project);
        std::vector<GUID> touched;
        for (const TakenSpecification& taken : outcome.specifications) {
            if (taken.how != Taken::Left && taken.saved)
                Require(IsThere(after, *m_folder.Find(taken.id)));
            if (taken.how != Taken::Left) touched.push_back(taken.id);
        }
        RequireOthers(after, touched);
    }

    void Export() const
    {
        const CString file = m_project + L"\\out.hds";
        if (!m_folder.Export(file, {}).done) return;
        SpecificationFolder taken(L"");
        taken.TakeIn(file, {}, true);
        for (int i = 0; i < m_folder.Count(); ++i)
            Require(taken.Find(m_folder.Item(i)->ID()) != nullptr);
    }

    void Template()
    {
        const CString target = m_project + L"\\tmpl";
        if (!m_folder.SaveAsTemplate(target).done) return;
        const Contents copied = Read(target);
        for (const auto& [id, content] : m_stable)
            Require(IsThere(copied, content));
    }

    void BringBack()
    {
        Problems problems;
        const auto deleted = m_folder.Files().Deleted(problems);
        if (deleted.empty() || m_folder.Find(deleted.front().id)) return;
        const auto [file, name, id] = deleted.front();
        const bool hasId = m_folder.Files().Deleted(problems).front().id == id;
        if (!m_folder.Files().BringBack(file, problems)) return;
        m_folder.Load();
        const Contents after = Read(m_project);
        if (hasId) Require(after.contains(id) || !m_folder.Find(id));
        RequireOthers(after, {id});
    }

    CString m_project;
    CString m_imported;
    SpecificationFolder m_folder;
    Contents m_stable; // what stands in files, by identities that these give
    unsigned m_turn = 0;
};

} // namespace

FUZZ(bytes)
{
    constexpr size_t kMostOperations = 8;
    static const Place place;
    place.Clear();
    const size_t line = bytes.find('\n');
    const std::string_view operations = bytes.substr(0, std::min(line, kMostOperations));
    const auto files = Parts(line == std::string_view::npos ? "" : bytes.substr(line + 1));
    fs::create_directory(place.Native() / "规范");
    for (size_t i = 0; i + 1 < files.size(); ++i)
        Write(place.Native() / "规范" /
                  (files[i].starts_with('[') ? "setting.ini" : std::to_string(i) + ".hds"),
              files[i]);
    Write(place.Native() / "import.hds", files.back());
    Session session(place, place.Project() + L"\\import.hds");
    for (const char operation : operations)
        session.Do(operation);
    return 0;
}
