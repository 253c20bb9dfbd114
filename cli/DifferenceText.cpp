#include "cli/DifferenceText.h"

#include "cli/TextTable.h"

using namespace designspec;

namespace {

Json ToJson(const std::optional<CString>& text)
{
    return text ? ::ToJson(*text) : Json();
}

CString TextOf(const std::optional<CString>& value)
{
    return value.value_or(L"(无)");
}

} // namespace

Json ToJson(const Difference& one)
{
    return {{"path", ::ToJson(one.path)},
            {"label", ::ToJson(one.label)},
            {"key", ::ToJson(one.key)},
            {"left", ToJson(one.left)},
            {"right", ToJson(one.right)}};
}

void PrintDifferences(const std::vector<Difference>& differences, bool asJson)
{
    TextTable table(false);
    Json json = Json::array();
    for (const Difference& one : differences) {
        json.push_back(ToJson(one));
        const CriterionInfo* criterion = one.place.criterion;
        table.AddRow({criterion ? criterion->label : L"", one.label, one.key,
                      TextOf(one.left) + L" → " + TextOf(one.right)});
    }
    if (asJson) return PrintJson(json);
    for (const CString& line : table.Lines(0))
        PrintLine(line);
}
