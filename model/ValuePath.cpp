#include "model/ValuePath.h"

#include <optional>

#include "base/Format.h"
#include "base/NoCase.h"

namespace designspec {

namespace {

constexpr wchar_t kJoint[] = L"~"; // between the keys of a row

CString Joined(const CStringArray& texts)
{
    CString joined;
    for (const CString& text : texts)
        joined += (joined.empty() ? L"" : kJoint) + text;
    return joined;
}

// Takes one key off `rest`: all of it, or what stands before the joint.
CString TakeKey(std::wstring_view& rest, bool isLast)
{
    const size_t end = isLast ? rest.size() : std::min(rest.find(kJoint), rest.size());
    CString key(rest.substr(0, end));
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return key;
}

// One step of a path as it is written.
struct StepText {
    CString name;
    std::optional<CString> key;
};

// Takes a step and the point behind it off `rest`; nothing when it is not whole. A key ends at the
// first "]" that ends the path or stands before a point.
std::optional<StepText> TakeStep(std::wstring_view& rest)
{
    StepText step;
    step.name = rest.substr(0, rest.find_first_of(L".["));
    rest.remove_prefix(step.name.size());
    if (rest.starts_with(L'[')) {
        const size_t end = std::min(rest.find(L"]."), rest.size() - 1);
        if (rest[end] != L']') return std::nullopt;
        step.key = rest.substr(1, end - 1);
        rest.remove_prefix(end + 1);
    }
    if (rest == L".") return std::nullopt;
    if (!rest.empty()) rest.remove_prefix(1);
    return step;
}

// Those of that label among criteria or fields.
template <class Range> auto Labelled(const Range& all, const CString& label)
{
    std::vector<decltype(all.data())> found;
    for (const auto& one : all)
        if (EqualNoCase(one.label, label)) found.push_back(&one);
    return found;
}

// By its name, or else by its label, if no other has that.
const Field* FieldCalled(std::span<const Field> fields, const CString& name)
{
    if (const Field* const field = FindField(fields, name)) return field;
    const auto labelled = Labelled(fields, name);
    return labelled.size() == 1 ? labelled.front() : nullptr;
}

const CriterionInfo* CriterionCalled(const CString& name)
{
    if (const CriterionInfo* const criterion = FindCriterion(name)) return criterion;
    const auto labelled = Labelled(Criteria(), name);
    return labelled.size() == 1 ? labelled.front() : nullptr;
}

// The paths of the criteria's fields of that label.
std::vector<ValuePath> FieldsLabelled(const CString& label)
{
    std::vector<ValuePath> paths;
    for (const CriterionInfo& criterion : Criteria())
        for (const Field* const field : Labelled(criterion.fields, label))
            paths.push_back({&criterion, {{field}}});
    return paths;
}

// Goes one step on; what is wrong with it, or an empty text.
CString AddStep(ValuePath& path, const StepText& step, bool& isWrongName)
{
    const ValuePath::Step* before = path.steps.empty() ? nullptr : &path.steps.back();
    if (before && before->field->HasRows() && before->keys.empty())
        return Format(L"%s 有多行,请用 [%s] 指定", path.Text(), KeyLabel(*before->field));
    std::span<const Field> fields = path.criterion->fields;
    if (before) fields = before->field->HasRows() ? before->field->RowFields() : fields.first(0);
    const Field* field = FieldCalled(fields, step.name);
    isWrongName = !field;
    if (!field) return Format(L"%s 没有字段“%s”", path.Text(), step.name);
    path.steps.push_back({field});
    return step.key ? path.AddKey(*step.key) : CString();
}

// The first step: a criterion, or a field whose label no other criterion has.
void BeginPath(ParsedPath& parsed, std::wstring_view text, const StepText& step)
{
    const CriterionInfo* const criterion = CriterionCalled(step.name);
    if (!step.key) parsed.path.criterion = criterion;
    if (parsed.path.criterion) return;
    std::vector<ValuePath> paths;
    if (!criterion) paths = FieldsLabelled(step.name);
    if (paths.size() == 1) {
        parsed.path = paths.front();
        if (step.key) parsed.problem = parsed.path.AddKey(*step.key);
        return;
    }
    parsed.isWrongName = paths.empty();
    const CString head(text.substr(0, text.find(L'.')));
    parsed.problem = paths.empty() ? Format(L"没有条目“%s”", head)
                                   : Format(L"“%s”不止一个,请写作其中之一:", head);
    for (const ValuePath& path : paths)
        parsed.problem += L"\n  " + path.Text();
}

void AddPaths(std::vector<PathLabel>& paths, const CString& before, std::span<const Field> fields)
{
    for (const Field& field : fields) {
        const CString path = before + L"." + field.key;
        if (field.kind == FieldKind::Rows)
            AddPaths(paths, path + L"[" + KeyLabel(field) + L"]", field.RowFields());
        else if (!field.isKey)
            paths.push_back({path, field.label, &field});
    }
}

} // namespace

CString ValuePath::Step::KeyText() const
{
    CStringArray texts;
    for (const Value& key : keys)
        texts.push_back(ValueText(key));
    return Joined(texts);
}

CString ValuePath::AddKey(std::wstring_view key)
{
    Step& step = steps.back();
    const CString text = Text();
    if (!step.field->HasRows() || !step.keys.empty()) return text + L" 没有行";
    std::wstring_view rest = key;
    const std::vector<const Field*> fields = KeysOf(*step.field);
    for (const Field* field : fields) {
        const CString one = TakeKey(rest, field == fields.back());
        CString problem = ParseValue(*field, one, field->label, step.keys.emplace_back());
        if (!problem.empty()) return problem;
    }
    return {};
}

CString ValuePath::Text() const
{
    CString text = criterion->name;
    for (const Step& step : steps) {
        text += L"." + CString(step.field->key);
        if (!step.keys.empty()) text += L"[" + step.KeyText() + L"]";
    }
    return text;
}

ParsedPath ParseValuePath(std::wstring_view text)
{
    ParsedPath parsed;
    std::wstring_view rest = text;
    std::optional<StepText> step = TakeStep(rest);
    if (step) BeginPath(parsed, text, *step);
    while (step && !rest.empty() && parsed.problem.empty()) {
        step = TakeStep(rest);
        if (step) parsed.problem = AddStep(parsed.path, *step, parsed.isWrongName);
    }
    if (!step) parsed.problem = Format(L"路径“%s”没有写完", CString(text));
    return parsed;
}

std::vector<PathLabel> PathsOf(const CriterionInfo& criterion)
{
    std::vector<PathLabel> paths;
    AddPaths(paths, criterion.name, criterion.fields);
    return paths;
}

std::vector<const Field*> KeysOf(const Field& rows)
{
    std::vector<const Field*> keys;
    for (const Field& field : rows.RowFields())
        if (field.isKey) keys.push_back(&field);
    return keys;
}

CString KeyLabel(const Field& rows)
{
    CStringArray labels;
    for (const Field* key : KeysOf(rows))
        labels.emplace_back(key->label);
    return Joined(labels);
}

const Field* OnlyValue(const Field& rows)
{
    const Field* only = nullptr;
    for (const Field& field : rows.RowFields()) {
        if (field.isKey) continue;
        if (only || field.HasRows()) return nullptr;
        only = &field;
    }
    return only;
}

} // namespace designspec
