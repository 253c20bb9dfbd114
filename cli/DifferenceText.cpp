#include "cli/DifferenceText.h"

#include <cstdlib>

#include "base/Text.h"
#include "cli/Console.h"
#include "cli/TextTable.h"

using namespace designspec;

namespace {

bool HasColours()
{
    const char* const unwanted = std::getenv("NO_COLOR");
    return (!unwanted || !*unwanted) && Console::IsOutputShown();
}

CString TextOf(const std::optional<CString>& value)
{
    return value.value_or(kNoValue);
}

// A table that is broken up by the names of the criteria.
class DifferenceTable {
public:
    // The columns of what goes and of what comes.
    DifferenceTable(size_t red, size_t green) : m_hasColours(HasColours())
    {
        if (!m_hasColours) return;
        m_table.Paint(red, kRed);
        m_table.Paint(green, kGreen);
    }

    void Add(const DifferingValue& value, CStringArray cells)
    {
        m_criteria.push_back(value.place.criterion);
        cells.insert(cells.begin(), {value.label, value.key});
        m_table.AddRow(std::move(cells));
    }

    void Print() const
    {
        const CStringArray lines = m_table.Lines(2);
        for (size_t i = 0; i < lines.size(); ++i) {
            if (i == 0 || m_criteria[i] != m_criteria[i - 1]) PrintHeading(m_criteria[i]);
            PrintLine(lines[i]);
        }
    }

private:
    void PrintHeading(const CriterionInfo* criterion) const
    {
        const CString heading = criterion ? criterion->label : L"设计规范";
        PrintLine(m_hasColours ? InColour(heading, kBold) : heading);
    }

    bool m_hasColours;
    TextTable m_table{false};
    std::vector<const CriterionInfo*> m_criteria; // of each row; null for what belongs to none
};

Json JsonOf(const std::optional<CString>& value)
{
    return value ? ToJson(*value) : Json();
}

Json PlaceJson(const DifferingValue& value)
{
    const CriterionInfo* const criterion = value.place.criterion;
    return {{"criterion", criterion ? ToJson(CString(criterion->name)) : Json()},
            {"path", ToJson(value.path)},
            {"label", ToJson(value.label)},
            {"key", ToJson(value.key)}};
}

const char* NameOf(ChangedBy by)
{
    switch (by) {
    case ChangedBy::Me:
        return "mine";
    case ChangedBy::Them:
        return "theirs";
    case ChangedBy::Both:
        return "both";
    default:
        return "conflict";
    }
}

} // namespace

void PrintDifferences(const std::vector<Difference>& differences)
{
    DifferenceTable table(2, 4);
    for (const Difference& one : differences)
        table.Add(one, {TextOf(one.left), L"→", TextOf(one.right)});
    table.Print();
}

void PrintConflicts(const std::vector<Change>& changes)
{
    DifferenceTable table(7, 5);
    for (const Change& one : changes)
        if (one.by == ChangedBy::Conflict)
            table.Add(one, {L"原值", TextOf(one.base), L"我方", TextOf(one.mine), L"对方",
                            TextOf(one.theirs)});
    table.Print();
}

Json ToJson(const Difference& difference)
{
    Json json = PlaceJson(difference);
    json["left"] = JsonOf(difference.left);
    json["right"] = JsonOf(difference.right);
    return json;
}

Json ToJson(const Change& change)
{
    Json json = PlaceJson(change);
    json["base"] = JsonOf(change.base);
    json["mine"] = JsonOf(change.mine);
    json["theirs"] = JsonOf(change.theirs);
    json["by"] = NameOf(change.by);
    return json;
}
