#include "compare/DifferencePlace.h"

namespace designspec {

namespace {

using Step = ValuePath::Step;

bool StandsIn(const Step& step, GridPlace place)
{
    for (const Field& field : step.field->RowFields())
        if (field.isKey && field.place == place) return true;
    return false;
}

bool IsColumn(const Step& step)
{
    return step.field->IsTable() || StandsIn(step, GridPlace::Column);
}

bool IsHeading(const Step& step)
{
    return StandsIn(step, GridPlace::Heading);
}

// 80 km/h of 车速 80 km/h.
CString WithoutLabel(const CString& row)
{
    return row.substr(row.find(L' ') + 1);
}

std::optional<double> NumberOf(const Value& value)
{
    if (const auto* whole = std::get_if<std::int32_t>(&value)) return *whole;
    if (const auto* decimal = std::get_if<double>(&value)) return *decimal;
    return std::nullopt;
}

void Add(CString& text, const CString& more)
{
    if (!text.empty() && !more.empty()) text += L", ";
    text += more;
}

} // namespace

CString TableOf(const DifferingValue& value)
{
    if (value.place.steps.empty()) return {};
    const Step& first = value.place.steps.front();
    if (!first.field->HasRows()) return {};
    return !first.keys.empty() && IsHeading(first) ? value.rows.front()
                                                   : CString(first.field->label);
}

GridCell CellOf(const DifferingValue& value)
{
    GridCell cell;
    if (value.rows.empty()) return cell;
    const auto& steps = value.place.steps;
    const CriterionInfo& criterion = *value.place.criterion;
    // Tables by speed are the rows of one grid, as on their page.
    const bool isSpeedTable = steps.front().field->IsTable();
    cell.grid = isSpeedTable ? criterion.name : criterion.name + TableOf(value);
    std::size_t row = 0;
    for (const Step& step : steps) {
        if (step.keys.empty()) continue;
        const CString& text = value.rows[row++];
        if (IsColumn(step)) {
            cell.column = WithoutLabel(text);
            cell.number = NumberOf(step.keys.front());
        } else if (!IsHeading(step)) {
            Add(cell.row, text);
        }
    }
    // A row with more than one value has a line for each.
    if (isSpeedTable || steps.back().keys.empty()) Add(cell.row, value.label);
    if (cell.column.empty()) cell.column = value.label;
    return cell;
}

CString TitleOf(const DifferingValue& value)
{
    return value.place.criterion ? value.place.criterion->label + (L" · " + value.label)
                                 : value.label;
}

} // namespace designspec
