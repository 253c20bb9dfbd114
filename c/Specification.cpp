// Specifications and their fields.
#include <deque>

#include "base/Format.h"
#include "base/Number.h"
#include "base/Text.h"
#include "c/Objects.h"
#include "library/SpecificationSource.h"
#include "library/StyleName.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

using namespace designspec;

namespace {

void HandOutOwn(designspec_specification** to, const CDesignSpecification& copied)
{
    auto object = std::make_shared<SpecificationObject>();
    object->own = std::make_unique<CDesignSpecification>(copied);
    HandOut(to, std::move(object));
}

// A single value; ends the call when there is no such row.
Value ValueAt(const designspec_specification* specification, const char* path)
{
    const ValuePath parsed = PathOf(path);
    ValuePlace place;
    const auto object = ObjectOf<SpecificationObject>(specification);
    const CString problem = FindValue(object->Get(), parsed, place);
    if (!problem.empty()) RefuseCall(problem);
    const bool isTable = parsed.steps.back().keys.empty() && parsed.LastField()->HasRows();
    if (isTable) RefuseCall(Format(L"%s 是表, 不是值", parsed.Text()));
    if (!place.field) throw CallFailure{DESIGNSPEC_NO_ANSWER, L"没有这一行: " + parsed.Text()};
    return GetValue(*place.field, place.object);
}

// Changes a copy, and takes that over when nothing is wrong with it.
template <class Change>
void ChangeBy(const designspec_specification* specification, const char* path, Change change)
{
    const ValuePath parsed = PathOf(path);
    CDesignSpecification& now = ObjectOf<SpecificationObject>(specification)->Get();
    CDesignSpecification made = now;
    if (const CString problem = change(made, parsed); !problem.empty()) RefuseCall(problem);
    ChangeTo(now, made);
}

// The texts of a field, for ever.
struct FieldTexts {
    std::string path, criterion, page, label, unit;
    designspec_kind kind;
};

designspec_kind KindOf(const Field& field)
{
    switch (field.kind) {
    case FieldKind::Int:
        return DESIGNSPEC_INTEGER;
    case FieldKind::Double:
        return DESIGNSPEC_DECIMAL;
    case FieldKind::Bool:
        return DESIGNSPEC_FLAG;
    case FieldKind::IntTable:
        return DESIGNSPEC_INTEGER_TABLE;
    case FieldKind::DoubleTable:
        return DESIGNSPEC_DECIMAL_TABLE;
    default:
        return DESIGNSPEC_TEXT;
    }
}

const std::deque<FieldTexts>& AllFields()
{
    static const std::deque<FieldTexts> all = [] {
        std::deque<FieldTexts> texts;
        for (const CriterionInfo& criterion : Criteria())
            for (const PathLabel& one : PathsOf(criterion))
                texts.push_back({ToUtf8(one.path), ToUtf8(criterion.name), ToUtf8(criterion.label),
                                 ToUtf8(one.label), ToUtf8(one.field->unit), KindOf(*one.field)});
        return texts;
    }();
    return all;
}

} // namespace

designspec_status designspec_specification_new(const char* name,
                                               designspec_specification** specification)
{
    return Call([&] {
        NeedAll(specification);
        const CString wanted(Trim(TextOf(name)));
        if (const CString problem = StyleNameProblem(wanted); !problem.empty()) RefuseCall(problem);
        CDesignSpecification made;
        made.SetName(wanted.c_str());
        HandOutOwn(specification, made);
    });
}

designspec_status designspec_specification_copy(const designspec_specification* specification,
                                                designspec_specification** copy)
{
    return Call([&] {
        NeedAll(copy);
        HandOutOwn(copy, ObjectOf<SpecificationObject>(specification)->Get());
    });
}

designspec_status designspec_specification_free(designspec_specification* specification)
{
    return EndHandle<SpecificationObject>(specification);
}

designspec_status designspec_specification_name(const designspec_specification* specification,
                                                char** name)
{
    return Call([&] {
        NeedAll(name);
        HandOutText(name, ObjectOf<SpecificationObject>(specification)->Get().Name());
    });
}

designspec_status designspec_specification_id(const designspec_specification* specification,
                                              char** id)
{
    return Call([&] {
        NeedAll(id);
        const auto object = ObjectOf<SpecificationObject>(specification);
        HandOutText(id, VMRDPub::GUIDToStr(object->Get().ID()));
    });
}

designspec_status designspec_specification_text(const designspec_specification* specification,
                                                char** text)
{
    return Call([&] {
        NeedAll(text);
        HandOutText(text, FileTextOf(ObjectOf<SpecificationObject>(specification)->Get()));
    });
}

designspec_status designspec_get_text(const designspec_specification* specification,
                                      const char* path, char** value)
{
    return Call([&] {
        NeedAll(value);
        HandOutText(value, ValueText(ValueAt(specification, path)));
    });
}

designspec_status designspec_get_number(const designspec_specification* specification,
                                        const char* path, double* value)
{
    return Call([&] {
        NeedAll(value);
        const Value found = ValueAt(specification, path);
        if (const auto* whole = std::get_if<std::int32_t>(&found))
            *value = *whole;
        else if (const auto* decimal = std::get_if<double>(&found))
            *value = *decimal;
        else
            RefuseCall(L"值是文字, 不是数");
    });
}

designspec_status designspec_set_text(designspec_specification* specification, const char* path,
                                      const char* value)
{
    return Call([&] {
        const CString text = TextOf(value);
        ChangeBy(specification, path, [&](CDesignSpecification& made, const ValuePath& parsed) {
            return WriteValue(made, parsed, text);
        });
    });
}

designspec_status designspec_set_number(designspec_specification* specification, const char* path,
                                        double value)
{
    return Call([&] {
        const CString text = ToWide(DoubleToText(value));
        ChangeBy(specification, path, [&](CDesignSpecification& made, const ValuePath& parsed) {
            return WriteValue(made, parsed, text);
        });
    });
}

designspec_status designspec_remove_row(designspec_specification* specification, const char* path)
{
    return Call([&] {
        ChangeBy(specification, path, [](CDesignSpecification& made, const ValuePath& parsed) {
            return RemoveRow(made, parsed);
        });
    });
}

size_t designspec_field_count(void)
{
    return AllFields().size();
}

int designspec_field_at(size_t index, designspec_field* field)
{
    if (!field || index >= AllFields().size()) return 0;
    const FieldTexts& texts = AllFields()[index];
    *field = {texts.path.c_str(),  texts.criterion.c_str(), texts.page.c_str(),
              texts.label.c_str(), texts.unit.c_str(),      texts.kind};
    return 1;
}
