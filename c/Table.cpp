// Tables by design speed, and queries.
#include <cmath>

#include "c/Objects.h"
#include "model/SpeedArrays.h"

using namespace designspec;

namespace {

constexpr wchar_t kNoAnswerText[] = L"没有答案";

[[noreturn]] void NoAnswer()
{
    throw CallFailure{DESIGNSPEC_NO_ANSWER, kNoAnswerText};
}

const SpeedToIntValues* IntTable(const ValuePlace& place)
{
    return place.field->kind == FieldKind::IntTable
               ? &place.field->Of<SpeedToIntValues>(place.object)
               : nullptr;
}

const SpeedToDoubleValues* DoubleTable(const ValuePlace& place)
{
    return place.field->kind == FieldKind::DoubleTable
               ? &place.field->Of<SpeedToDoubleValues>(place.object)
               : nullptr;
}

void HandOutTable(designspec_specification* specification, ValuePath path, designspec_table** table)
{
    if (!path.steps.back().keys.empty() || !path.LastField()->IsTable())
        RefuseCall(path.Text() + L" 不是按车速的表");
    auto object = std::make_shared<TableObject>(
        TableObject{ObjectOf<SpecificationObject>(specification), std::move(path)});
    object->Get();
    HandOut(table, std::move(object));
}

} // namespace

designspec_status designspec_table_of(designspec_specification* specification, const char* path,
                                      designspec_table** table)
{
    return Call([&] {
        NeedAll(table);
        HandOutTable(specification, PathOf(path), table);
    });
}

designspec_status designspec_resultant_gradients(designspec_specification* specification,
                                                 int road_type, designspec_table** table)
{
    return Call([&] {
        NeedAll(table);
        if (road_type < 0 || road_type >= CDSMaxResultantGrad::kRoadTypes)
            RefuseCall(L"没有这种道路类型");
        // The tables are the criterion's fields of that kind, in the order of the types.
        const CriterionInfo& criterion = *FindCriterion(L"MaxResultantGrad");
        int type = 0;
        for (const Field& field : criterion.fields)
            if (field.IsTable() && type++ == road_type)
                return HandOutTable(specification, {&criterion, {{&field, {}}}}, table);
    });
}

designspec_status designspec_table_free(designspec_table* table)
{
    return EndHandle<TableObject>(table);
}

designspec_status designspec_table_count(const designspec_table* table, size_t* count)
{
    return Call([&] {
        NeedAll(count);
        const ValuePlace place = ObjectOf<TableObject>(table)->Get();
        *count = static_cast<size_t>(place.field->RowCount(place.object));
    });
}

designspec_status designspec_table_at(const designspec_table* table, size_t index, int32_t* speed,
                                      double* value)
{
    return Call([&] {
        NeedAll(speed, value);
        const ValuePlace place = ObjectOf<TableObject>(table)->Get();
        if (index >= static_cast<size_t>(place.field->RowCount(place.object))) NoAnswer();
        const auto at = static_cast<int>(index);
        if (const SpeedToIntValues* const whole = IntTable(place)) {
            *speed = (*whole)[at].speed;
            *value = (*whole)[at].value;
        } else if (const SpeedToDoubleValues* const decimal = DoubleTable(place)) {
            *speed = (*decimal)[at].speed;
            *value = (*decimal)[at].value;
        }
    });
}

designspec_status designspec_table_set(designspec_table* table, const int32_t* speeds,
                                       const double* values, size_t count)
{
    return Call([&] {
        if (count > 0) NeedAll(speeds, values);
        const auto object = ObjectOf<TableObject>(table);
        CDesignSpecification& now = object->specification->Get();
        object->Get();
        CDesignSpecification made = now;
        ValuePlace place;
        FindValue(made, object->path, place);
        const CString problem = WriteTable(place, {speeds, count}, {values, count});
        if (!problem.empty()) RefuseCall(problem);
        ChangeTo(now, made);
    });
}

designspec_status designspec_query_integer(const designspec_table* table, int32_t speed,
                                           designspec_mode mode, int32_t* value)
{
    return Call([&] {
        NeedAll(value);
        const SpeedToIntValues* const whole = IntTable(ObjectOf<TableObject>(table)->Get());
        if (!whole) RefuseCall(L"表中的值是小数");
        if (!QueryValue::QueryIntValBySpeed(whole, speed, ModeOf(mode), *value)) NoAnswer();
    });
}

designspec_status designspec_query_decimal(const designspec_table* table, int32_t speed,
                                           designspec_mode mode, double* value)
{
    return Call([&] {
        NeedAll(value);
        const SpeedToDoubleValues* const decimal = DoubleTable(ObjectOf<TableObject>(table)->Get());
        if (!decimal) RefuseCall(L"表中的值是整数");
        if (!QueryValue::QueryDoubleValBySpeed(decimal, speed, ModeOf(mode), *value)) NoAnswer();
    });
}

designspec_status designspec_query_many(const designspec_table* table, const int32_t* speeds,
                                        size_t count, designspec_mode mode, double* values,
                                        uint8_t* found)
{
    return Call([&] {
        if (count > 0) NeedAll(speeds, values);
        const ValuePlace place = ObjectOf<TableObject>(table)->Get();
        const QueryValue::QueryMode wanted = ModeOf(mode);
        const std::span all(speeds, count);
        if (const SpeedToIntValues* const whole = IntTable(place))
            QueryMany(*whole, all, wanted, 0, values, found);
        else
            QueryMany(*DoubleTable(place), all, wanted, 0, values, found);
    });
}

designspec_status designspec_query_grade_length(const designspec_specification* specification,
                                                double gradient, int32_t speed,
                                                designspec_mode mode, int32_t* length)
{
    return Call([&] {
        NeedAll(length);
        const auto object = ObjectOf<SpecificationObject>(specification);
        if (!std::isfinite(gradient)) RefuseCall(L"坡度不是数");
        if (!object->Get().LonGradMaxLen.QueryVal(gradient, speed, ModeOf(mode), *length))
            NoAnswer();
    });
}

designspec_status designspec_query_superelevation(const designspec_specification* specification,
                                                  int32_t maximum, int32_t speed,
                                                  designspec_mode mode, int32_t tolerance,
                                                  int32_t radius, int32_t* superelevation,
                                                  int* code)
{
    return Call([&] {
        NeedAll(superelevation);
        const auto object = ObjectOf<SpecificationObject>(specification);
        const auto found = AskSuperElevation(object->Get().SuperElevation, maximum, speed,
                                             ModeOf(mode), tolerance, radius);
        if (code) *code = found.code;
        if (!found.superElev) NoAnswer();
        *superelevation = *found.superElev;
    });
}

designspec_status designspec_query_widening(const designspec_specification* specification,
                                            const char* vehicle, int32_t radius, double* widening,
                                            int* code)
{
    return Call([&] {
        NeedAll(widening);
        const auto object = ObjectOf<SpecificationObject>(specification);
        double value = 0;
        const int result =
            object->Get().CurveWidening.QueryWidening(TextOf(vehicle).c_str(), radius, value);
        if (code) *code = result;
        if (result != 0) NoAnswer();
        *widening = value;
    });
}
