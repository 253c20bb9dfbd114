#include "cli/JsonText.h"

#include "base/Text.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

using namespace designspec;

namespace {

template <class T> Json TableJson(const GrowArray<SpeedEntry<T>>& table)
{
    Json entries = Json::array();
    for (const SpeedEntry<T>& entry : table)
        entries.push_back({{"speed", entry.speed}, {"value", entry.value}});
    return entries;
}

Json RowsJson(const CDSLonGradMaxLen& criterion)
{
    Json rows = Json::array();
    for (const GradientRow& row : criterion.rows)
        rows.push_back({{"Grad", row.Grad}, {"lengths", TableJson(row.lengths)}});
    return rows;
}

Json RowJson(const SuperElevSpeedRow& row)
{
    Json ranges = Json::array();
    for (const SuperElevRange& range : row.ranges)
        ranges.push_back({{"minRadius", range.minRadius},
                          {"maxRadius", range.maxRadius},
                          {"superElev", range.superElev}});
    return {{"speed", row.speed}, {"ranges", ranges}};
}

Json DefinitionsJson(const CDSSuperElevation& criterion)
{
    Json definitions = Json::array();
    for (const SuperElevDefinition& definition : criterion.definitions) {
        Json rows = Json::array();
        for (const SuperElevSpeedRow& row : definition.rows)
            rows.push_back(RowJson(row));
        definitions.push_back({{"maxSuperElev", definition.maxSuperElev}, {"rows", rows}});
    }
    return definitions;
}

Json RangesJson(const CDSCurveWidening& criterion)
{
    Json ranges = Json::array();
    for (const WideningRange& range : criterion.ranges) {
        Json widenings = Json::array();
        for (const Widening& one : range.widenings)
            widenings.push_back({{"carType", ToJson(one.carType)}, {"widening", one.widening}});
        ranges.push_back({{"min", range.min}, {"max", range.max}, {"widenings", widenings}});
    }
    return ranges;
}

} // namespace

Json ToJson(const CString& text)
{
    return ToUtf8(text);
}

Json ToJson(const Field& field, const void* criterion)
{
    switch (field.kind) {
    case FieldKind::Int:
        return field.Of<std::int32_t>(criterion);
    case FieldKind::Double:
        return field.Of<double>(criterion);
    case FieldKind::Bool:
        return field.Of<BOOL>(criterion) != 0;
    case FieldKind::Text:
        return ToJson(field.Of<CString>(criterion));
    case FieldKind::IntTable:
        return TableJson(field.Of<SpeedToIntValues>(criterion));
    case FieldKind::DoubleTable:
        return TableJson(field.Of<SpeedToDoubleValues>(criterion));
    }
    return {};
}

Json ToJson(const CriterionInfo& criterion, CDesignSpecification& specification)
{
    const void* object = criterion.get(specification);
    Json json = Json::object();
    for (const Field& field : criterion.fields)
        json[ToUtf8(field.key)] = ToJson(field, object);
    if (object == &specification.LonGradMaxLen)
        json["rows"] = RowsJson(specification.LonGradMaxLen);
    if (object == &specification.SuperElevation)
        json["definitions"] = DefinitionsJson(specification.SuperElevation);
    if (object == &specification.CurveWidening)
        json["ranges"] = RangesJson(specification.CurveWidening);
    return json;
}

Json ToJson(const CStyle& style)
{
    return {{"name", ToJson(style.Name())}, {"id", ToJson(VMRDPub::GUIDToStr(style.ID()))}};
}

void PrintJson(const Json& json)
{
    PrintLine(ToWide(json.dump(2, ' ', false, Json::error_handler_t::replace)));
}
