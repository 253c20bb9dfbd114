#include "cli/JsonText.h"

#include "base/Text.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

using namespace designspec;

namespace {

void AddFields(Json& json, std::span<const Field> fields, const void* object, bool keys)
{
    for (const Field& field : fields)
        if (field.isKey == keys) json[ToUtf8(field.key)] = ToJson(field, object);
}

// The keys of a row first, whatever their order in files.
Json ObjectJson(std::span<const Field> fields, const void* object)
{
    Json json = Json::object();
    AddFields(json, fields, object, true);
    AddFields(json, fields, object, false);
    return json;
}

Json RowsJson(const Field& field, const void* object)
{
    Json rows = Json::array();
    for (std::int32_t i = 0; i < field.RowCount(object); ++i)
        rows.push_back(ObjectJson(field.RowFields(), field.Row(object, i)));
    return rows;
}

} // namespace

Json ToJson(const CString& text)
{
    return ToUtf8(text);
}

Json ToJson(const Field& field, const void* object)
{
    switch (field.kind) {
    case FieldKind::Int:
        return field.Of<std::int32_t>(object);
    case FieldKind::Double:
        return field.Of<double>(object);
    case FieldKind::Bool:
        return field.Of<BOOL>(object) != 0;
    case FieldKind::Text:
        return ToJson(field.Of<CString>(object));
    default:
        return RowsJson(field, object);
    }
}

Json ToJson(const CriterionInfo& criterion, CDesignSpecification& specification)
{
    return ObjectJson(criterion.fields, criterion.get(specification));
}

Json ToJson(const CStyle& style)
{
    return {{"name", ToJson(style.Name())}, {"id", ToJson(VMRDPub::GUIDToStr(style.ID()))}};
}

Json ToJson(const SpecificationFolder& folder, const CDesignSpecification& one)
{
    Json json = ToJson(one);
    json["file"] = ToJson(folder.FileOf(one));
    return json;
}

void PrintJson(const Json& json)
{
    PrintLine(ToWide(json.dump(2, ' ', false, Json::error_handler_t::replace)));
}
