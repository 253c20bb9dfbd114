
#include "base/Format.h"
#include "base/NoCase.h"
#include "base/Number.h"
#include "base/Text.h"
#include "cli/JsonText.h"
#include "cli/Mode.h"
#include "model/SpecificationValue.h"

using namespace designspec;

namespace {

QueryValue::QueryMode ModeOf(const Arguments& arguments)
{
    return arguments.mode ? ParseMode(*arguments.mode) : QueryValue::Nearest;
}

// Options that a query takes, so that none that it does not take goes unnoticed.
struct OptionUse {
    const wchar_t* name;
    const std::optional<std::string> Arguments::*option;
    bool required;
};

using Uses = std::initializer_list<OptionUse>;

void CheckOptions(const Arguments& arguments, const std::wstring& query, const Uses& uses)
{
    static constexpr std::pair<const wchar_t*, std::optional<std::string> Arguments::*> kAll[] = {
        {L"--speed", &Arguments::speed},   {L"--mode", &Arguments::mode},
        {L"--grad", &Arguments::grad},     {L"--max-super", &Arguments::maxSuper},
        {L"--radius", &Arguments::radius}, {L"--tolerance", &Arguments::tolerance},
        {L"--car", &Arguments::car},
    };
    for (const auto& [name, option] : kAll) {
        const OptionUse* use = nullptr;
        for (const OptionUse& one : uses)
            if (EqualNoCase(one.name, name)) use = &one;
        if (!use && arguments.*option) Refuse(Format(L"查询 %s 不用 %s", query, CString(name)));
        if (use && use->required && !(arguments.*option))
            Refuse(Format(L"查询 %s 需要 %s", query, CString(name)));
    }
}

constexpr OptionUse kNeedSpeed = {L"--speed", &Arguments::speed, true};
constexpr OptionUse kNeedRadius = {L"--radius", &Arguments::radius, true};
constexpr OptionUse kTakeMode = {L"--mode", &Arguments::mode, false};

// What a query gave: a value, or none and the code that tells why.
struct Answer {
    Json value; // null: no answer
    int code = 0;
    const wchar_t* cause = L""; // what the code means
};

// What the codes -1, -2 … of the two queries that give one mean.
constexpr const wchar_t* kSuperElevationCauses[] = {
    L"超高查询不支持 interpolate",
    L"没有这个最大超高的表,或表是空的",
    L"车速高出表中车速,或该取值方式在表的一端没有值",
    L"车速低于表中最低车速",
    L"半径不在该车速的任何范围内",
};
constexpr const wchar_t* kWideningCauses[] = {
    L"该半径范围没有这种车型",
    L"半径大于各范围的上限,或与之相等",
    L"半径小于各范围的下限,或与之相等",
    L"半径不在任何范围内",
};

template <size_t Count> const wchar_t* CauseOf(const wchar_t* const (&causes)[Count], int code)
{
    const auto index = static_cast<size_t>(-1 - code);
    return code < 0 && index < Count ? causes[index] : L"";
}

int SpeedOf(const Arguments& arguments)
{
    return IntArgument(*arguments.speed, L"车速");
}

Answer QueryTable(const Arguments& arguments, const ValuePlace& table)
{
    const int speed = SpeedOf(arguments);
    const QueryValue::QueryMode mode = ModeOf(arguments);
    Answer answer;
    if (!table.field) return answer;
    int whole = 0;
    double decimal = 0;
    if (table.field->kind == FieldKind::IntTable) {
        if (QueryValue::QueryIntValBySpeed(&table.field->Of<SpeedToIntValues>(table.object), speed,
                                           mode, whole))
            answer.value = whole;
    } else if (QueryValue::QueryDoubleValBySpeed(
                   &table.field->Of<SpeedToDoubleValues>(table.object), speed, mode, decimal)) {
        answer.value = decimal;
    }
    return answer;
}

Answer QueryPath(const Arguments& arguments, CDesignSpecification& specification,
                 const ValuePath& path)
{
    ValuePlace place;
    if (const CString problem = FindValue(specification, path, place); !problem.empty())
        Refuse(problem);
    if (path.steps.back().keys.empty() && path.LastField()->IsTable()) {
        CheckOptions(arguments, path.Text(), {kNeedSpeed, kTakeMode});
        return QueryTable(arguments, place);
    }
    CheckOptions(arguments, path.Text(), {});
    return {place.field ? ToJson(*place.field, place.object) : Json()};
}

Answer QueryGradeLength(const Arguments& arguments, const CDesignSpecification& specification)
{
    CheckOptions(arguments, L"LonGradMaxLen",
                 {kNeedSpeed, {L"--grad", &Arguments::grad, true}, kTakeMode});
    int value = 0;
    Answer answer;
    if (specification.LonGradMaxLen.QueryVal(DoubleArgument(*arguments.grad, L"坡度"),
                                             SpeedOf(arguments), ModeOf(arguments), value))
        answer.value = value;
    return answer;
}

Answer QuerySuperElevation(const Arguments& arguments, const CDesignSpecification& specification)
{
    CheckOptions(arguments, L"SuperElevation",
                 {{L"--max-super", &Arguments::maxSuper, true},
                  kNeedSpeed,
                  kNeedRadius,
                  {L"--tolerance", &Arguments::tolerance, false},
                  kTakeMode});
    const SuperElevationAnswer found = AskSuperElevation(
        specification.SuperElevation, IntArgument(*arguments.maxSuper, L"最大超高"),
        SpeedOf(arguments), ModeOf(arguments),
        IntArgument(arguments.tolerance.value_or("0"), L"车速容差"),
        IntArgument(*arguments.radius, L"半径"));
    Answer answer;
    answer.code = found.code;
    if (found.superElev) answer.value = *found.superElev;
    answer.cause = CauseOf(kSuperElevationCauses, answer.code);
    return answer;
}

Answer QueryWidening(const Arguments& arguments, const CDesignSpecification& specification)
{
    CheckOptions(arguments, L"CurveWidening", {{L"--car", &Arguments::car, true}, kNeedRadius});
    double value = 0;
    Answer answer;
    answer.code = specification.CurveWidening.QueryWidening(
        ToWide(*arguments.car).c_str(), IntArgument(*arguments.radius, L"半径"), value);
    if (answer.code == 0) answer.value = value;
    answer.cause = CauseOf(kWideningCauses, answer.code);
    return answer;
}

// Criteria with a query of their own.
constexpr struct {
    const wchar_t* criterion;
    Answer (*ask)(const Arguments& arguments, const CDesignSpecification& specification);
} kQueries[] = {
    {L"LonGradMaxLen", QueryGradeLength},
    {L"SuperElevation", QuerySuperElevation},
    {L"CurveWidening", QueryWidening},
};

Answer Ask(const Arguments& arguments, CDesignSpecification& specification)
{
    const ValuePath path = ParsePath(arguments.path);
    if (!path.steps.empty()) return QueryPath(arguments, specification, path);
    for (const auto& query : kQueries)
        if (query.criterion == path.Text()) return query.ask(arguments, specification);
    Refuse(Format(L"请指定 %s 的字段:", path.Text()) + FieldList(*path.criterion));
}

void PrintAnswer(const Json& value)
{
    if (value.is_string())
        PrintLine(ToWide(value.get<std::string>()));
    else if (value.is_boolean())
        PrintLine(value.get<bool>() ? L"1" : L"0");
    else if (value.is_number_float())
        PrintLine(ToWide(DoubleToText(value.get<double>())));
    else
        PrintLine(ToWide(value.dump()));
}

} // namespace

Status RunQuery(const Arguments& arguments, Teller& teller)
{
    ParsePath(arguments.path); // a wrong path is told before any file is read
    Project project(arguments, teller);
    CDesignSpecification& specification = project.Chosen(arguments);
    const Answer answer = Ask(arguments, specification);
    if (arguments.json) {
        Json json = {{"specification", ToJson(specification)}, {"query", arguments.path}};
        json["value"] = answer.value;
        json["code"] = answer.code;
        PrintJson(json);
    } else if (!answer.value.is_null()) {
        PrintAnswer(answer.value);
    }
    if (!answer.value.is_null()) return kDone;
    Complain(answer.code != 0 ? Format(L"结果代码 %d: %s", answer.code, CString(answer.cause))
                              : CString(L"没有符合条件的值"));
    return kNoAnswer;
}
