#include "cli/JsonReading.h"

#include <algorithm>
#include <set>

#include "base/Format.h"
#include "base/Text.h"
#include "model/Arrangement.h"
#include "model/FieldValue.h"

using namespace designspec;

namespace {

using Json = nlohmann::ordered_json;

constexpr char kNameKey[] = "name";
constexpr char kIdentityKey[] = "id";
constexpr char kCriteriaKey[] = "criteria";

// Of two values under one key the parser would keep one without a word.
struct TwiceNamed {
    std::string key;
};

// Looks at the names in each object as they come.
class NamesOnce {
public:
    bool operator()(int /*depth*/, Json::parse_event_t event, const Json& parsed)
    {
        if (event == Json::parse_event_t::object_start)
            m_open.emplace_back();
        else if (event == Json::parse_event_t::object_end)
            m_open.pop_back();
        else if (event == Json::parse_event_t::key)
            if (!m_open.back().insert(parsed.get_ref<const std::string&>()).second)
                throw TwiceNamed{parsed.get<std::string>()};
        return true;
    }

private:
    std::vector<std::set<std::string>> m_open;
};

// A value of one kind that the document has for another.
CString WrongKind(const Field& field)
{
    switch (field.kind) {
    case FieldKind::Bool:
        return L"应为 true 或 false";
    case FieldKind::Text:
        return L"应为文字,写在引号中";
    default:
        return L"应为数,不加引号";
    }
}

bool IsOfKind(const Json& json, const Field& field)
{
    switch (field.kind) {
    case FieldKind::Bool:
        return json.is_boolean();
    case FieldKind::Text:
        return json.is_string();
    default:
        return json.is_number();
    }
}

// As files and people write it.
CString TextOf(const Json& json)
{
    if (json.is_boolean()) return json.get<bool>() ? L"1" : L"0";
    return ToWide(json.is_string() ? json.get<std::string>() : json.dump());
}

} // namespace

JsonReading::JsonReading(std::string_view bytes, CString file) : m_file(std::move(file))
{
    Parse(bytes);
    if (m_problems.empty()) ReadHead();
}

void JsonReading::Parse(std::string_view bytes)
{
    try {
        m_document = Json::parse(bytes, Json::parser_callback_t(NamesOnce()));
    } catch (const Json::parse_error& error) {
        const auto before = bytes.substr(0, std::min(error.byte, bytes.size()));
        const auto line = 1 + std::count(before.begin(), before.end(), '\n');
        Wrong({}, L"不是完整的 JSON", static_cast<int>(line));
    } catch (const Json::out_of_range&) {
        Wrong({}, L"其中有超出范围的数");
    } catch (const TwiceNamed& twice) {
        Wrong({}, Format(L"同一处“%s”写了两次", ToWide(twice.key)));
    }
}

void JsonReading::ReadHead()
{
    const Part document{m_document, {}};
    if (!IsObject(document)) return;
    TellUnknown(document, {ToWide(kNameKey), ToWide(kIdentityKey), ToWide(kCriteriaKey)});
    for (const auto& [key, text] :
         {std::pair(kNameKey, &m_name), std::pair(kIdentityKey, &m_identity)}) {
        if (!m_document.contains(key)) continue;
        const Part part = document.At(key);
        if (part.json.is_string())
            *text = TextOf(part.json);
        else
            Wrong(part.pointer, L"应为文字,写在引号中");
    }
}

void JsonReading::Wrong(const std::string& pointer, const CString& text, int line)
{
    AddProblem(m_problems, Severity::Error, m_file, line,
               pointer.empty() ? text : ToWide(pointer) + L": " + text);
}

bool JsonReading::IsObject(const Part& part)
{
    if (part.json.is_object()) return true;
    Wrong(part.pointer, L"应为 { } 中的名称和值");
    return false;
}

void JsonReading::TellUnknown(const Part& part, const std::vector<CString>& known)
{
    for (const auto& [key, value] : part.json.items())
        if (std::find(known.begin(), known.end(), ToWide(key)) == known.end())
            Wrong(part.pointer + "/" + key, L"没有这个名称");
}

void JsonReading::ApplyTo(CDesignSpecification& specification)
{
    if (!m_problems.empty() || !m_document.contains(kCriteriaKey)) return;
    const Part criteria = Part{m_document, {}}.At(kCriteriaKey);
    if (!IsObject(criteria)) return;
    std::vector<CString> known;
    for (const CriterionInfo& criterion : Criteria()) {
        const std::string name = ToUtf8(known.emplace_back(criterion.name));
        if (criteria.json.contains(name))
            ReadFields(criteria.At(name), criterion.fields, criterion.get(specification), false);
    }
    TellUnknown(criteria, known);
    Arrange(specification);
}

// `all`: none of the fields may be missing.
void JsonReading::ReadFields(const Part& part, Fields fields, void* object, bool all)
{
    if (!IsObject(part)) return;
    std::vector<CString> known;
    for (const Field& field : fields) {
        const std::string key = ToUtf8(known.emplace_back(field.key));
        if (part.json.contains(key))
            ReadField(part.At(key), field, object);
        else if (all)
            Wrong(part.pointer, Format(L"缺少 %s", CString(field.key)));
    }
    TellUnknown(part, known);
    for (const Field& field : fields)
        if (field.isUsed && !field.isUsed(object) && part.json.contains(ToUtf8(field.key)) &&
            field.RowCount(object) > 0)
            Wrong(part.pointer + "/" + ToUtf8(field.key), L"在当前条件下不用,也不会保存");
}

void JsonReading::ReadField(const Part& part, const Field& field, void* object)
{
    if (field.HasRows())
        ReadRows(part, field, object);
    else
        ReadValue(part, field, object);
}

void JsonReading::ReadRows(const Part& part, const Field& rows, void* object)
{
    if (!part.json.is_array()) return Wrong(part.pointer, L"应为 [ ] 中的各行");
    while (rows.RowCount(object) > 0)
        rows.RemoveRow(object, rows.RowCount(object) - 1);
    for (std::size_t i = 0; i < part.json.size(); ++i)
        ReadFields(part.At(i), rows.RowFields(), rows.InsertRow(object, rows.RowCount(object)),
                   true);
}

void JsonReading::ReadValue(const Part& part, const Field& field, void* object)
{
    if (!IsOfKind(part.json, field)) return Wrong(part.pointer, WrongKind(field));
    Value value;
    const CString problem = ParseValue(field, TextOf(part.json), field.label, value);
    if (!problem.empty()) return Wrong(part.pointer, problem);
    SetValue(field, object, value);
}
