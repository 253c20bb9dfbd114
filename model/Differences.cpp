#include "model/Differences.h"

#include <algorithm>
#include <functional>

#include "base/Format.h"
#include "base/Text.h"
#include "model/RowUnion.h"

namespace designspec {

namespace {

using Texts = std::array<std::optional<CString>, kParties>;
using Values = std::array<std::optional<Value>, kParties>;

// Nothing when all is the same.
std::optional<ChangedBy> WhoChanged(const Values& values)
{
    const auto& [base, mine, theirs] = values;
    if (mine == theirs) return base == mine ? std::nullopt : std::optional(ChangedBy::Both);
    if (mine == base) return ChangedBy::Them;
    return theirs == base ? ChangedBy::Me : ChangedBy::Conflict;
}

Party PartyOf(Side side)
{
    return side == Side::Mine ? kMine : kTheirs;
}

// The values of an object are compared in this order.
int Rank(const Field& field)
{
    if (field.HasRows()) return 1;
    return field.kind == FieldKind::Text ? 2 : 0;
}
constexpr int kRanks = 3;

// True for a row that has nothing to be compared.
bool IsBare(const Field& rows, const void* row)
{
    const auto fields = rows.RowFields();
    return std::all_of(fields.begin(), fields.end(), [&](const Field& field) {
        return field.HasRows() ? field.RowCount(row) == 0 : field.isKey;
    });
}

// What labels have in common at their beginning: 半径 of 半径下限 and 半径上限.
CString CommonLabel(const std::vector<const Field*>& fields)
{
    std::wstring_view common = fields.front()->label;
    for (const Field* field : fields) {
        const std::wstring_view label = field->label;
        const auto end =
            std::mismatch(common.begin(), common.end(), label.begin(), label.end()).first;
        common = common.substr(0, static_cast<std::size_t>(end - common.begin()));
    }
    return CString(common);
}

// 坡度 5%, 半径 200~300 m.
CString KeyText(const Field& rows, const std::vector<Value>& keys)
{
    const auto fields = KeysOf(rows);
    CString text;
    for (std::size_t i = 0; i + 1 < keys.size(); ++i)
        text += ReadableText(*fields[i], keys[i]) + L"~";
    text += ReadableText(*fields.back(), keys.back(), fields.back()->unit);
    return CommonLabel(fields) + L" " + text;
}

// Goes over three specifications at once, lists the values that differ and makes the one that has
// the chosen ones.
class Comparison {
public:
    Comparison(const CDesignSpecification& base, const CDesignSpecification& mine,
               const CDesignSpecification& theirs, std::span<const Side> sides,
               bool listsAll = false)
        : m_sides(sides), m_listsAll(listsAll), m_result(mine)
    {
        const std::array all{&base, &mine, &theirs};
        CompareText(L"Name", L"名称", all, &CDesignSpecification::Name,
                    [&](const CString& name) { m_result.SetName(name.c_str()); });
        for (const CriterionInfo& criterion : Criteria()) {
            m_path.criterion = &criterion;
            Objects objects;
            for (std::size_t i = 0; i < kParties; ++i) // the table of fields takes no const object
                objects[i] = criterion.get(const_cast<CDesignSpecification&>(*all[i]));
            CompareFields(criterion.fields, objects, criterion.get(m_result), nullptr);
        }
        m_path.criterion = nullptr;
        const auto unknown = [](const CDesignSpecification& one) { return ToWide(one.Unknown()); };
        CompareText(L"", L"本程序不认识的内容", all, unknown,
                    [&](const CString& text) { m_result.SetUnknown(ToUtf8(text)); });
    }

    std::vector<Change> TakeChanges() { return std::move(m_changes); }
    CDesignSpecification& Result() { return m_result; }

private:
    template <class Get, class Set>
    void CompareText(const wchar_t* path, const wchar_t* label,
                     const std::array<const CDesignSpecification*, kParties>& all, Get get, Set set)
    {
        Values values;
        for (std::size_t i = 0; i < kParties; ++i)
            values[i] = std::invoke(get, *all[i]);
        const auto by = WhoChanged(values);
        if (!by && !m_listsAll) return;
        const Texts texts = Read(values, [](const Value& value) { return ValueText(value); });
        set(std::get<CString>(*values[Choose(by, path, label, texts)]));
    }

    template <class Text> static Texts Read(const Values& values, Text text)
    {
        Texts texts;
        for (std::size_t i = 0; i < kParties; ++i)
            if (values[i]) texts[i] = text(*values[i]);
        return texts;
    }

    // True when the result has any of the values. `rows` is the table whose row this is.
    bool CompareFields(std::span<const Field> fields, const Objects& objects, void* result,
                       const Field* rows)
    {
        bool any = false;
        for (int rank = 0; rank < kRanks; ++rank)
            for (const Field& field : fields)
                if (Rank(field) == rank && !field.isKey)
                    any = (field.HasRows() ? CompareRows(field, objects, result)
                                           : CompareValue(field, objects, result, rows)) ||
                          any;
        return any;
    }

    bool CompareValue(const Field& field, const Objects& objects, void* result, const Field* rows)
    {
        Values values;
        for (std::size_t i = 0; i < kParties; ++i)
            if (objects[i]) values[i] = GetValue(field, objects[i]);
        // The values of a table by speed are called as the table is.
        const Field& named = rows && rows->IsTable() ? *rows : field;
        Party chosen = kMine;
        if (const auto by = WhoChanged(values); by || m_listsAll) {
            const bool isRow = rows && OnlyValue(*rows) == &field;
            if (!isRow) m_path.steps.push_back({&field});
            const CString unit = named.unit;
            chosen = Choose(by, m_path.Text(), named.label, Read(values, [&](const Value& value) {
                                return ReadableText(field, value, unit);
                            }));
            if (!isRow) m_path.steps.pop_back();
        }
        if (values[chosen]) SetValue(field, result, *values[chosen]);
        return values[chosen].has_value();
    }

    // True when rows are left.
    bool CompareRows(const Field& field, const Objects& objects, void* result)
    {
        const RowUnion rows(field, objects);
        m_path.steps.push_back({&field});
        const Party first = CompareOrder(field, rows);
        while (field.RowCount(result) > 0)
            field.RemoveRow(result, field.RowCount(result) - 1);
        std::vector<std::size_t> kept;
        for (const std::size_t row : rows.Sequence(kMine, kTheirs)) {
            m_path.steps.back().keys = rows[row].keys;
            m_rows.emplace_back(&field, &rows[row]);
            if (CompareRow(field, rows[row], result)) kept.push_back(row);
            m_rows.pop_back();
        }
        m_path.steps.pop_back();
        if (first == kTheirs) Arrange(field, result, kept, rows.Sequence(kTheirs, kMine));
        return !kept.empty();
    }

    // Whose order counts.
    Party CompareOrder(const Field& field, const RowUnion& rows)
    {
        if (!rows.IsMoved(kMine, kTheirs)) return kMine;
        const bool byMe = rows.IsMoved(kMine, kBase);
        const bool byThem = rows.IsMoved(kTheirs, kBase);
        const ChangedBy by = byMe == byThem ? ChangedBy::Conflict
                             : byMe         ? ChangedBy::Me
                                            : ChangedBy::Them;
        Texts texts;
        for (const Party party : {kBase, kMine, kTheirs}) {
            if (rows.Order(party).empty()) continue;
            CString& text = texts[party].emplace();
            for (const std::size_t row : rows.Order(party))
                text += (text.empty() ? L"" : L", ") +
                        ValuePath::Step{&field, rows[row].keys}.KeyText();
        }
        return Choose(by, m_path.Text(), field.label + CString(L"的顺序"), texts);
    }

    // True when the result has the row.
    bool CompareRow(const Field& field, const RowUnion::Row& row, void* result)
    {
        const auto& [base, mine, theirs] = row.of;
        const void* const given = mine ? mine : theirs ? theirs : base;
        const std::int32_t at = field.RowCount(result);
        void* const made = field.InsertRow(result, at);
        for (const Field* key : KeysOf(field))
            SetValue(*key, made, GetValue(*key, given));
        bool keep = CompareFields(field.RowFields(), row.of, made, &field);
        if (mine && theirs)
            keep = true;
        else if ((mine || theirs) && IsBare(field, given))
            keep = row.of[CompareBareRow(field, row)] != nullptr;
        if (!keep) field.RemoveRow(result, at);
        return keep;
    }

    Party CompareBareRow(const Field& field, const RowUnion::Row& row)
    {
        Values values;
        for (std::size_t i = 0; i < kParties; ++i)
            if (row.of[i]) values[i] = CString(L"(空)");
        return Choose(WhoChanged(values), m_path.Text(), field.label,
                      Read(values, [](const Value& value) { return ValueText(value); }));
    }

    // Puts the rows `at`, as the result has them, in the order of `wanted`, where others stand too.
    static void Arrange(const Field& field, void* result, std::vector<std::size_t> at,
                        const std::vector<std::size_t>& wanted)
    {
        std::vector<std::size_t> places(wanted.size(), at.size());
        for (std::size_t i = 0; i < at.size(); ++i)
            places[at[i]] = i;
        std::size_t next = 0;
        for (const std::size_t row : wanted) {
            const std::size_t place = places[row];
            if (place == at.size()) continue;
            field.SwapRows(result, static_cast<std::int32_t>(next),
                           static_cast<std::int32_t>(place));
            std::swap(at[next], at[place]);
            places[at[place]] = place;
            places[at[next]] = next;
            ++next;
        }
    }

    CStringArray RowTexts() const
    {
        CStringArray texts;
        for (const auto& [rows, row] : m_rows) {
            texts.push_back(KeyText(*rows, row->keys));
            if (row->number > 0) texts.back() += Format(L" (第 %d 个)", row->number + 1);
        }
        return texts;
    }

    // Lists a value and says whose counts.
    Party Choose(std::optional<ChangedBy> by, const CString& path, const CString& label,
                 const Texts& texts)
    {
        Change change;
        change.path = path;
        change.label = label;
        change.rows = RowTexts();
        for (const CString& row : change.rows)
            change.key += (change.key.empty() ? L"" : L", ") + row;
        change.place = m_path;
        change.base = texts[kBase];
        change.mine = texts[kMine];
        change.theirs = texts[kTheirs];
        change.by = by.value_or(ChangedBy::Nobody);
        m_changes.push_back(std::move(change));
        if (!by) return kMine;
        if (m_changes.size() <= m_sides.size()) return PartyOf(m_sides[m_changes.size() - 1]);
        return by == ChangedBy::Them ? kTheirs : kMine;
    }

    std::span<const Side> m_sides;
    bool m_listsAll; // also what is the same; then there are no sides
    CDesignSpecification m_result;
    std::vector<Change> m_changes;
    ValuePath m_path;                                                  // where it is
    std::vector<std::pair<const Field*, const RowUnion::Row*>> m_rows; // the rows there
};

} // namespace

std::vector<Change> Changes(const CDesignSpecification& base, const CDesignSpecification& mine,
                            const CDesignSpecification& theirs)
{
    return Comparison(base, mine, theirs, {}).TakeChanges();
}

std::vector<Change> AllValues(const CDesignSpecification& base, const CDesignSpecification& mine,
                              const CDesignSpecification& theirs)
{
    return Comparison(base, mine, theirs, {}, true).TakeChanges();
}

bool HasConflict(const std::vector<Change>& changes)
{
    return std::any_of(changes.begin(), changes.end(),
                       [](const Change& one) { return one.by == ChangedBy::Conflict; });
}

CDesignSpecification Merged(const CDesignSpecification& base, const CDesignSpecification& mine,
                            const CDesignSpecification& theirs, std::span<const Side> sides)
{
    return Comparison(base, mine, theirs, sides).Result();
}

// Two are three of which nobody has changed the left one.

std::vector<Difference> Differences(const CDesignSpecification& left,
                                    const CDesignSpecification& right)
{
    std::vector<Difference> differences;
    for (Change& change : Changes(left, left, right)) {
        DifferingValue& value = change;
        differences.push_back({std::move(value), std::move(change.mine), std::move(change.theirs)});
    }
    return differences;
}

CDesignSpecification WithTaken(const CDesignSpecification& left, const CDesignSpecification& right,
                               const std::vector<bool>& taken)
{
    std::vector<Side> sides;
    for (const bool one : taken)
        sides.push_back(one ? Side::Theirs : Side::Mine);
    sides.resize(std::max(sides.size(), Changes(left, left, right).size()), Side::Mine);
    return Merged(left, left, right, sides);
}

} // namespace designspec
