// The core of the Python package: specifications, libraries, differences and road checks as plain
// objects and values. What is comfortable about them is made of these in Python (designspec/).
#include <cmath>
#include <filesystem>
#include <limits>

#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include "base/File.h"
#include "base/Format.h"
#include "base/Text.h"
#include "library/SpecificationSource.h"
#include "library/StyleName.h"
#include "model/Arrangement.h"
#include "model/Differences.h"
#include "model/Findings.h"
#include "model/PageLayout.h"
#include "model/SpecificationValue.h"
#include "model/SpeedArrays.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"
#include "roads/RoadJson.h"

namespace py = pybind11;
using namespace designspec;

namespace {

// Exceptions of the package, which Python makes.
py::object ErrorClass(const char* name)
{
    return py::module_::import("designspec._errors").attr(name);
}

[[noreturn]] void Raise(const char* name, const py::object& error)
{
    PyErr_SetObject(ErrorClass(name).ptr(), error.ptr());
    throw py::error_already_set();
}

[[noreturn]] void Refuse(const CString& cause)
{
    Raise("RefusedError", py::str(ToUtf8(cause)));
}

py::list ToList(const Problems& problems)
{
    py::list list;
    for (const Problem& one : problems)
        list.append(py::make_tuple(one.severity == Severity::Error, ToUtf8(one.file), one.line,
                                   ToUtf8(one.text)));
    return list;
}

// Raises what went wrong with a file; warns of nothing.
void Check(bool done, const Problems& problems)
{
    if (done) return;
    const py::object made = ErrorClass("FileError")(ToList(problems));
    Raise("FileError", made);
}

CString Wide(const std::string& text)
{
    return ToWide(text);
}

using Specification = std::shared_ptr<CDesignSpecification>;

// Takes the criteria of a changed copy over, unless the editor would refuse it.
void ChangeTo(CDesignSpecification& specification, CDesignSpecification& changed)
{
    Arrange(changed);
    const std::wstring fault = NewFault(specification, changed);
    if (!fault.empty()) Refuse(fault);
    specification.CopyCriteria(changed);
}

ValuePath PathOf(const std::string& text)
{
    ParsedPath parsed = ParseValuePath(Wide(text));
    if (!parsed.problem.empty()) Refuse(parsed.problem);
    if (parsed.path.steps.empty()) Refuse(L"路径没有指定字段");
    return std::move(parsed.path);
}

// Values, tables and rows, to and from Python

py::object ToPython(const Field& field, const void* object);

py::dict RowToPython(const Field& rows, const void* row)
{
    py::dict made;
    for (const Field& field : rows.RowFields())
        made[py::str(ToUtf8(field.key))] = ToPython(field, row);
    return made;
}

template <class T> py::dict TableToPython(const GrowArray<SpeedEntry<T>>& table)
{
    py::dict made;
    for (const auto& entry : table)
        if (!made.contains(py::int_(entry.speed))) made[py::int_(entry.speed)] = entry.value;
    return made;
}

py::object ToPython(const Field& field, const void* object)
{
    switch (field.kind) {
    case FieldKind::Int:
        return py::int_(field.Of<std::int32_t>(object));
    case FieldKind::Bool:
        return py::bool_(field.Of<BOOL>(object) != 0);
    case FieldKind::Double:
        return py::float_(field.Of<double>(object));
    case FieldKind::Text:
        return py::str(ToUtf8(field.Of<CString>(object)));
    case FieldKind::IntTable:
        return TableToPython(field.Of<SpeedToIntValues>(object));
    case FieldKind::DoubleTable:
        return TableToPython(field.Of<SpeedToDoubleValues>(object));
    case FieldKind::Rows:
        break;
    }
    py::list rows;
    for (std::int32_t i = 0; i < field.RowCount(object); ++i)
        rows.append(RowToPython(field, field.Row(object, i)));
    return rows;
}

// A number that may also be one of NumPy's.
double NumberOf(const Field& field, const py::handle& value)
{
    const double number = PyFloat_AsDouble(value.ptr());
    if (number == -1 && PyErr_Occurred()) throw py::error_already_set();
    if (!std::isfinite(number)) Refuse(Format(L"%s: 值不是数", CString(field.label)));
    return number;
}

std::int32_t WholeOf(const CString& what, double number)
{
    if (std::trunc(number) != number || std::abs(number) > std::numeric_limits<std::int32_t>::max())
        Refuse(Format(L"%s: “%g”不是整数", what, number));
    return static_cast<std::int32_t>(number);
}

void TextFromPython(const Field& field, void* object, const std::string& text)
{
    Value value;
    const CString problem = ParseValue(field, Wide(text), field.label, value);
    if (!problem.empty()) Refuse(problem);
    SetValue(field, object, value);
}

void TableFromPython(const ValuePlace& table, const py::dict& given)
{
    std::vector<std::int32_t> speeds;
    std::vector<double> values;
    for (const auto& [key, value] : given) {
        speeds.push_back(WholeOf(L"车速", NumberOf(*table.field, key)));
        values.push_back(NumberOf(*table.field, value));
    }
    const CString problem = WriteTable(table, speeds, values);
    if (!problem.empty()) Refuse(problem);
}

void FromPython(const Field& field, void* object, const py::handle& value);

void RowFromPython(const Field& rows, void* row, const py::dict& values)
{
    for (const auto& [key, value] : values) {
        const CString name = Wide(py::str(key));
        const Field* const field = FindField(rows.RowFields(), name);
        if (!field) Refuse(Format(L"%s 的行没有 %s", CString(rows.key), name));
        FromPython(*field, row, value);
    }
}

void FromPython(const Field& field, void* object, const py::handle& value)
{
    switch (field.kind) {
    case FieldKind::Int:
        field.Of<std::int32_t>(object) = WholeOf(field.label, NumberOf(field, value));
        return;
    case FieldKind::Bool:
        field.Of<BOOL>(object) = py::cast<bool>(value);
        return;
    case FieldKind::Double:
        field.Of<double>(object) = NumberOf(field, value);
        return;
    case FieldKind::Text:
        return TextFromPython(field, object, py::cast<std::string>(value));
    case FieldKind::IntTable:
    case FieldKind::DoubleTable:
        return TableFromPython({&field, object}, py::cast<py::dict>(value));
    case FieldKind::Rows:
        break;
    }
    while (field.RowCount(object) > 0)
        field.RemoveRow(object, field.RowCount(object) - 1);
    for (const py::handle& row : py::cast<py::sequence>(value))
        RowFromPython(field, field.InsertRow(object, field.RowCount(object)),
                      py::cast<py::dict>(row));
}

// A field of a criterion by "Criterion.Field".
ValuePlace FieldPlace(CDesignSpecification& specification, const std::string& text)
{
    const ValuePath path = PathOf(text);
    if (path.steps.size() != 1 || !path.steps[0].keys.empty())
        Refuse(path.Text() + L" 不是条目的字段");
    return {path.steps[0].field, path.criterion->get(specification)};
}

py::object GetField(CDesignSpecification& specification, const std::string& path)
{
    const ValuePlace place = FieldPlace(specification, path);
    return ToPython(*place.field, place.object);
}

// All of the fields or none of them. The fields are the keys.
void SetFields(CDesignSpecification& specification, const py::dict& values)
try {
    CDesignSpecification made = specification;
    std::vector<ValuePlace> places;
    for (const auto& [path, value] : values) {
        const ValuePlace place = places.emplace_back(FieldPlace(made, py::cast<std::string>(path)));
        FromPython(*place.field, place.object, value);
    }
    for (const auto& [field, object] : places)
        if (field->isUsed && !field->isUsed(object) && field->RowCount(object) > 0)
            Refuse(Format(L"%s 在当前条件下不用,也不会保存", CString(field->key)));
    ChangeTo(specification, made);
} catch (const py::cast_error&) {
    throw py::type_error("a value is not of its field's type");
}

// A single value of any depth.
py::object GetValueAt(CDesignSpecification& specification, const std::string& text)
{
    const ValuePath path = PathOf(text);
    if (path.steps.size() == 1 && path.steps[0].keys.empty()) return GetField(specification, text);
    ValuePlace place;
    const CString problem = FindValue(specification, path, place);
    if (!problem.empty()) Refuse(problem);
    return place.field ? ToPython(*place.field, place.object) : py::none();
}

void SetValueAt(CDesignSpecification& specification, const std::string& text,
                const std::string& value)
{
    CDesignSpecification made = specification;
    const CString problem = WriteValue(made, PathOf(text), Wide(value));
    if (!problem.empty()) Refuse(problem);
    ChangeTo(specification, made);
}

// Queries

QueryValue::QueryMode ModeOf(int mode)
{
    if (mode < QueryValue::Nearest || mode > QueryValue::Exact) Refuse(L"没有这种取值方式");
    return static_cast<QueryValue::QueryMode>(mode);
}

ValuePlace TablePlace(CDesignSpecification& specification, const std::string& text)
{
    ValuePlace place;
    const ValuePath path = PathOf(text);
    const CString problem = FindValue(specification, path, place);
    if (!problem.empty()) Refuse(problem);
    if (!path.steps.back().keys.empty() || !path.LastField()->IsTable())
        Refuse(path.Text() + L" 不是按车速的表");
    if (!place.field) Refuse(L"没有这一行: " + path.Text());
    return place;
}

py::object QueryTable(CDesignSpecification& specification, const std::string& path, int speed,
                      int mode)
{
    const ValuePlace table = TablePlace(specification, path);
    const QueryValue::QueryMode wanted = ModeOf(mode);
    int whole = 0;
    double decimal = 0;
    if (table.field->kind == FieldKind::IntTable) {
        if (QueryValue::QueryIntValBySpeed(&table.field->Of<SpeedToIntValues>(table.object), speed,
                                           wanted, whole))
            return py::int_(whole);
    } else if (QueryValue::QueryDoubleValBySpeed(
                   &table.field->Of<SpeedToDoubleValues>(table.object), speed, wanted, decimal)) {
        return py::float_(decimal);
    }
    return py::none();
}

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

// NaN where there is no answer. The table is copied, so that other threads may go on meanwhile.
py::array_t<double>
QueryArray(CDesignSpecification& specification, const std::string& path,
           const py::array_t<std::int32_t, py::array::c_style | py::array::forcecast>& speeds,
           int mode)
{
    const ValuePlace table = TablePlace(specification, path);
    const QueryValue::QueryMode wanted = ModeOf(mode);
    py::array_t<double> values(
        std::vector<py::ssize_t>(speeds.shape(), speeds.shape() + speeds.ndim()));
    const std::span all(speeds.data(), static_cast<std::size_t>(speeds.size()));
    double* const to = values.mutable_data();
    if (table.field->kind == FieldKind::IntTable) {
        const SpeedToIntValues own = table.field->Of<SpeedToIntValues>(table.object);
        const py::gil_scoped_release others;
        designspec::QueryMany(own, all, wanted, kNone, to, nullptr);
    } else {
        const SpeedToDoubleValues own = table.field->Of<SpeedToDoubleValues>(table.object);
        const py::gil_scoped_release others;
        designspec::QueryMany(own, all, wanted, kNone, to, nullptr);
    }
    return values;
}

py::object QueryGradeLength(const CDesignSpecification& specification, double gradient, int speed,
                            int mode)
{
    if (!std::isfinite(gradient)) Refuse(L"坡度不是数");
    int value = 0;
    const bool found = specification.LonGradMaxLen.QueryVal(gradient, speed, ModeOf(mode), value);
    return found ? py::object(py::int_(value)) : py::none();
}

py::object QuerySuperElevation(const CDesignSpecification& specification, int maximum, int speed,
                               int radius, int mode, int tolerance)
{
    const auto found = designspec::AskSuperElevation(specification.SuperElevation, maximum, speed,
                                                     ModeOf(mode), tolerance, radius);
    return found.superElev ? py::object(py::int_(*found.superElev)) : py::none();
}

py::object QueryWidening(const CDesignSpecification& specification, const std::string& vehicle,
                         int radius)
{
    double value = 0;
    const bool found =
        specification.CurveWidening.QueryWidening(Wide(vehicle).c_str(), radius, value) == 0;
    return found ? py::object(py::float_(value)) : py::none();
}

// What a specification has, and how it lies on its pages

const char* KindName(FieldKind kind)
{
    constexpr const char* kNames[] = {"int",       "float",       "bool", "str",
                                      "int_table", "float_table", "rows"};
    return kNames[static_cast<std::size_t>(kind)];
}

py::list AllFields()
{
    py::list all;
    for (const CriterionInfo& criterion : Criteria())
        for (const Field& field : criterion.fields)
            all.append(py::make_tuple(ToUtf8(criterion.name), ToUtf8(criterion.label),
                                      ToUtf8(field.key), ToUtf8(field.label), ToUtf8(field.unit),
                                      KindName(field.kind)));
    return all;
}

py::list LimitTexts(const std::vector<PageLayout::Limit>& limits)
{
    py::list texts;
    for (const PageLayout::Limit& one : limits)
        texts.append(
            py::make_tuple(ToUtf8(one.caption), ToUtf8(ReadableText(*one.field, one.value))));
    return texts;
}

py::tuple TableTexts(const TableLayout& table)
{
    py::list columns;
    for (const Value& one : table.columns)
        columns.append(ToUtf8(ValueText(one)));
    py::list lines;
    for (const TableLayout::Line& line : table.lines) {
        py::list cells;
        for (const auto& cell : line.cells)
            cells.append(cell ? ToUtf8(ValueText(*cell)) : std::string());
        lines.append(py::make_tuple(ToUtf8(line.caption), cells));
    }
    return py::make_tuple(ToUtf8(table.heading), ToUtf8(table.corner), columns, lines);
}

py::list Pages(const CDesignSpecification& specification)
{
    py::list pages;
    for (const PageLayout& page : LayOut(specification)) {
        py::list tables;
        for (const TableLayout& table : page.tables)
            tables.append(TableTexts(table));
        pages.append(py::make_tuple(ToUtf8(page.criterion->name), ToUtf8(page.criterion->label),
                                    LimitTexts(page.limits), tables, LimitTexts(page.sources)));
    }
    return pages;
}

py::list FindingsOf(const CDesignSpecification& specification)
{
    py::list found;
    for (const Finding& one : Findings(specification))
        found.append(
            py::make_tuple(one.severity == Severity::Error, ToUtf8(one.path), ToUtf8(one.Line())));
    return found;
}

void CheckName(const CString& problem)
{
    if (!problem.empty()) Refuse(problem);
}

Specification NewSpecification(const std::string& name)
{
    const CString wanted(Trim(Wide(name)));
    CheckName(StyleNameProblem(wanted));
    auto made = std::make_shared<CDesignSpecification>();
    made->SetName(wanted.c_str());
    return made;
}

// Copies of those of a text or a file.
std::vector<Specification> CopiesOf(const std::unique_ptr<SpecificationFolder>& folder,
                                    const Problems& problems)
{
    Check(folder && !HasError(problems), problems);
    std::vector<Specification> copies;
    for (int i = 0; i < folder->Count(); ++i)
        copies.push_back(std::make_shared<CDesignSpecification>(*folder->Item(i)));
    return copies;
}

std::vector<Specification> FromText(const std::string& text, const std::string& name)
{
    Problems problems;
    return CopiesOf(ReadSpecificationsIn(text, Wide(name), problems), problems);
}

std::vector<Specification> FromFile(const std::string& path)
{
    Problems problems;
    return CopiesOf(ReadSpecificationsAt(Wide(path), problems), problems);
}

// Libraries: specifications are handed out as copies and put back by saving, as the folder's own
// ones go with what other programs do to it.
class Library {
public:
    explicit Library(const std::string& folder) : m_path(Wide(folder)) { Reload(); }

    // What could not be read; raised when nothing could.
    py::list Reload()
    {
        Problems problems;
        auto read = ReadSpecificationsAt(m_path, problems);
        Check(read != nullptr, problems);
        m_folder = std::move(read);
        m_problems = std::move(problems);
        return ToList(m_problems);
    }
    py::list ReadProblems() const { return ToList(m_problems); }
    std::vector<std::string> Names() const
    {
        std::vector<std::string> names;
        for (int i = 0; i < m_folder->Count(); ++i)
            names.push_back(ToUtf8(m_folder->Item(i)->Name()));
        return names;
    }
    Specification Find(const std::string& nameOrId) const
    {
        return nameOrId.empty() ? nullptr : CopyOf(FindSpecification(*m_folder, Wide(nameOrId)));
    }
    Specification Default() const
    {
        Problems problems;
        const auto id = m_folder->Default(problems);
        return id ? CopyOf(m_folder->Find(*id)) : nullptr;
    }
    void SetDefault(const std::string& nameOrId) { Do(m_folder->SetDefault(Own(nameOrId))); }
    void Save(const CDesignSpecification& specification)
    {
        CDesignSpecification* const own = m_folder->Find(specification.ID());
        if (!own) Raise("NotFoundError", py::str(ToUtf8(specification.Name())));
        own->CopyCriteria(specification);
        Do(m_folder->Save(*own));
    }
    Specification Add(const CDesignSpecification& specification)
    {
        auto made = std::make_unique<CDesignSpecification>();
        made->CopyCriteria(specification);
        made->SetName(specification.Name().c_str());
        CheckName(StyleNameProblem(made->Name()));
        const CDesignSpecification& added = m_folder->Add(std::move(made));
        const Outcome outcome = m_folder->Save(added);
        if (!outcome.done) m_folder->TakeOut(m_folder->IndexOf(added));
        Check(outcome.done, outcome.problems);
        return CopyOf(&added);
    }
    void Rename(const std::string& nameOrId, const std::string& name)
    {
        CDesignSpecification& own = Own(nameOrId);
        const CString wanted(Trim(Wide(name)));
        CheckName(StyleNameProblem(*m_folder, wanted, own.Name()));
        if (wanted != own.Name()) Do(m_folder->Rename(own, wanted));
    }
    void Remove(const std::string& nameOrId) { Do(m_folder->Remove(Own(nameOrId))); }
    std::vector<std::string> Import(const std::string& file, const std::vector<std::string>& names,
                                    bool overwrite)
    {
        const ImportOutcome outcome = m_folder->Import(Wide(file), WideNames(names), overwrite);
        Check(outcome.done, outcome.problems);
        std::vector<std::string> taken;
        for (const TakenSpecification& one : outcome.specifications)
            if (one.how != Taken::Left) taken.push_back(ToUtf8(m_folder->Find(one.id)->Name()));
        return taken;
    }
    void Export(const std::string& file, const std::vector<std::string>& names) const
    {
        for (const std::string& name : names)
            Own(name);
        Do(m_folder->Export(Wide(file), WideNames(names)));
    }
    std::string Path() const { return ToUtf8(m_path); }

private:
    static void Do(const Outcome& outcome) { Check(outcome.done, outcome.problems); }
    static Specification CopyOf(const CDesignSpecification* found)
    {
        return found ? std::make_shared<CDesignSpecification>(*found) : nullptr;
    }
    static CStringArray WideNames(const std::vector<std::string>& names)
    {
        CStringArray wide;
        for (const std::string& name : names)
            wide.push_back(Wide(name));
        return wide;
    }
    CDesignSpecification& Own(const std::string& nameOrId) const
    {
        CDesignSpecification* const found =
            nameOrId.empty() ? nullptr : FindSpecification(*m_folder, Wide(nameOrId));
        if (!found) Raise("NotFoundError", py::str(nameOrId));
        return *found;
    }

    CString m_path;
    std::unique_ptr<SpecificationFolder> m_folder;
    Problems m_problems;
};

// Differences

py::object SideText(const std::optional<CString>& side)
{
    return side ? py::object(py::str(ToUtf8(*side))) : py::none();
}

py::list DifferencesOf(const CDesignSpecification& left, const CDesignSpecification& right)
{
    py::list list;
    for (const Difference& one : Differences(left, right))
        list.append(py::make_tuple(ToUtf8(one.path), ToUtf8(one.label), ToUtf8(one.key),
                                   SideText(one.left), SideText(one.right)));
    return list;
}

// The left one becomes what it is with those of the right one that are taken.
void Take(CDesignSpecification& left, const CDesignSpecification& right,
          const std::vector<bool>& taken)
{
    CDesignSpecification made = WithTaken(left, right, taken);
    ChangeTo(left, made);
}

// Road checks

roadcheck::CheckOptions OptionsOf(const py::kwargs& given)
{
    roadcheck::CheckOptions options;
    options.mode = ModeOf(py::cast<int>(given["mode"]));
    options.roadType =
        static_cast<CDSMaxResultantGrad::RoadType>(py::cast<int>(given["road_type"]));
    options.plateau = py::cast<bool>(given["plateau"]);
    options.snow = py::cast<bool>(given["snow"]);
    if (!given["max_super"].is_none()) options.maxSuper = py::cast<int>(given["max_super"]);
    if (py::cast<bool>(given["edge"])) options.axis = roadcheck::RunoffAxis::Edge;
    options.car = Wide(py::cast<std::string>(given["vehicle"]));
    for (const py::handle& one : py::cast<py::sequence>(given["speeds"])) {
        const auto part = py::cast<py::tuple>(one); // from, to, speed; the first two may be None
        roadcheck::SpeedChoice choice;
        if (!part[0].is_none())
            choice.stretch = {py::cast<double>(part[0]), py::cast<double>(part[1])};
        choice.speed = py::cast<int>(part[2]);
        options.speeds.push_back(choice);
    }
    return options;
}

// The report as JSON, and the problems of reading. Others may go on meanwhile.
py::tuple Verify(const std::string& path, const CDesignSpecification& specification,
                 const py::kwargs& given)
{
    const roadcheck::CheckOptions options = OptionsOf(given);
    if (const CString problem = OptionsProblem(options, specification); !problem.empty())
        Refuse(problem);
    const CDesignSpecification own = CDesignSpecification(specification);
    std::vector<roadcheck::CheckedFile> files;
    {
        const py::gil_scoped_release others;
        files.push_back(roadcheck::CheckRoadFile(Wide(path), {}, own, options));
    }
    const roadcheck::CheckedFile& file = files.front();
    Check(!file.roads.empty(), file.problems);
    const Problems unchecked = RoadsWithoutSpeed(file);
    if (unchecked.size() == file.roads.size()) Refuse(L"文件没有给出设计车速, 请给出 speed");
    Problems problems = file.problems;
    problems.insert(problems.end(), unchecked.begin(), unchecked.end());
    return py::make_tuple(roadcheck::JsonReport(files), ToList(problems));
}

} // namespace

PYBIND11_MODULE(_designspec, module)
{
    module.attr("version") = DESIGNSPEC_VERSION;
    py::class_<CDesignSpecification, Specification>(module, "Specification")
        .def(py::init(&NewSpecification))
        .def("name", [](const CDesignSpecification& one) { return ToUtf8(one.Name()); })
        .def("set_name",
             [](CDesignSpecification& one, const std::string& name) {
                 one.SetName(NewSpecification(name)->Name().c_str());
             })
        .def("id",
             [](const CDesignSpecification& one) { return ToUtf8(VMRDPub::GUIDToStr(one.ID())); })
        .def("text", [](const CDesignSpecification& one) { return py::bytes(FileTextOf(one)); })
        .def("copy",
             [](const CDesignSpecification& one) {
                 return std::make_shared<CDesignSpecification>(one);
             })
        .def("same",
             [](const CDesignSpecification& a, const CDesignSpecification& b) { return a == b; })
        .def("get_field", &GetField)
        .def("set_fields", &SetFields)
        .def("get", &GetValueAt)
        .def("set", &SetValueAt)
        .def("query", &QueryTable)
        .def("query_many", &QueryArray)
        .def("query_grade_length", &QueryGradeLength)
        .def("query_superelevation", &QuerySuperElevation)
        .def("query_widening", &QueryWidening)
        .def("pages", &Pages)
        .def("findings", &FindingsOf)
        .def(py::pickle([](const CDesignSpecification& one) { return py::bytes(FileTextOf(one)); },
                        [](const py::bytes& text) { return FromText(text, "text").at(0); }));
    module.def("from_text", &FromText);
    module.def("from_file", &FromFile);
    module.def("fields", &AllFields);
    module.def("differences", &DifferencesOf);
    module.def("take", &Take);
    module.def("verify", &Verify);
    py::class_<Library>(module, "Library")
        .def(py::init<const std::string&>())
        .def("path", &Library::Path)
        .def("reload", &Library::Reload)
        .def("problems", &Library::ReadProblems)
        .def("names", &Library::Names)
        .def("find", &Library::Find)
        .def("default", &Library::Default)
        .def("set_default", &Library::SetDefault)
        .def("save", &Library::Save)
        .def("add", &Library::Add)
        .def("rename", &Library::Rename)
        .def("remove", &Library::Remove)
        .def("import_file", &Library::Import)
        .def("export_file", &Library::Export);
}
