#include "model/LimitCurves.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>

#include "base/CaptionIndex.h"
#include "base/Format.h"
#include "base/Number.h"
#include "base/Text.h"
#include "model/Outliers.h"

namespace designspec {

namespace {

using Numbers = std::vector<double>;

// Where in a table the numbers stand.
enum class Part { Line, Column, Cell };

// How the tables of a criterion are drawn.
struct Form {
    Part curve = Part::Line; // a curve for each
    Part across = Part::Column;
    Part up = Part::Cell;
    bool isSteps = false;         // two numbers across, from and to
    CurveAxis axis;               // across
    const Field* key = nullptr;   // of the curves, where they have a unit or a form
    const Field* value = nullptr; // upwards; null: each line has a quantity of its own
};

// What limits are of; of two words in a label the first one here is meant.
constexpr const wchar_t* kQuantities[] = {L"半径", L"渐变率", L"长度", L"坡长",
                                          L"加宽", L"超高",   L"坡度", L"纵坡"};

CString QuantityIn(const CString& label)
{
    for (const wchar_t* const one : kQuantities)
        if (label.find(one) != CString::npos) return one;
    return {};
}

CurveAxis AxisOf(const Field& field)
{
    return {QuantityIn(field.label), field.unit};
}

const Field* FirstRows(std::span<const Field> fields)
{
    const auto found =
        std::find_if(fields.begin(), fields.end(), [](const Field& one) { return one.HasRows(); });
    return found == fields.end() ? nullptr : &*found;
}

const Field& FirstKey(const Field& rows)
{
    const auto fields = rows.RowFields();
    return *std::find_if(fields.begin(), fields.end(), [](const Field& one) { return one.isKey; });
}

bool HaveRanges(const Field& rows)
{
    const auto fields = rows.RowFields();
    return std::count_if(fields.begin(), fields.end(), [](auto& one) { return one.isKey; }) == 2;
}

// The field of a record that is neither a key nor rows.
const Field& ValueOf(const Field& rows)
{
    const auto fields = rows.RowFields();
    return *std::find_if(fields.begin(), fields.end(),
                         [](const Field& one) { return !one.isKey && !one.HasRows(); });
}

// Rows that have rows: those within say the rest.
Form FormOfRows(const Field& rows)
{
    const Field& within = *FirstRows(rows.RowFields());
    Form form;
    form.key = &FirstKey(within);
    if (within.IsTable()) { // by speed, at each gradient
        form.curve = Part::Column;
        form.across = Part::Line;
        form.axis = AxisOf(FirstKey(rows));
        form.value = &within;
        return form;
    }
    form.isSteps = true;
    if (HaveRanges(rows)) { // of radii, with values in each
        form.axis = AxisOf(rows);
        form.value = &ValueOf(within);
        return form;
    }
    const Field& ranges = *FirstRows(within.RowFields()); // at each speed
    form.curve = Part::Column;
    form.across = Part::Cell;
    form.up = Part::Line;
    form.axis = AxisOf(ranges);
    form.value = &ValueOf(ranges);
    return form;
}

Form FormOf(const CriterionInfo& criterion)
{
    Form form;
    for (const Field& field : criterion.fields) {
        if (field.kind == FieldKind::Rows) return FormOfRows(field);
        if (field.IsTable())
            form.axis = {CString(L"设计") + FirstKey(field).label, FirstKey(field).unit};
    }
    return form;
}

// The numbers of a value, or of the text that a caption or a range is.
Numbers NumbersOf(const Value& value)
{
    if (const auto* const whole = std::get_if<std::int32_t>(&value))
        return {static_cast<double>(*whole)};
    if (const auto* const decimal = std::get_if<double>(&value)) return {*decimal};
    Numbers numbers;
    const CString texts = CaptionParts(std::get<CString>(value)).numbers;
    for (std::size_t from = 0, to; (to = texts.find(L';', from)) != CString::npos; from = to + 1)
        numbers.push_back(Wtof(texts.substr(from, to - from)));
    return numbers;
}

// What is beyond is no limit, and no axis could show it beside others.
bool IsDrawable(double number)
{
    return std::abs(number) < 1e15;
}

// Makes the curves of one table.
class CurveMaking {
public:
    CurveMaking(const CriterionInfo& criterion, const TableLayout& table)
        : m_criterion(criterion), m_table(table), m_form(FormOf(criterion))
    {
        for (const Value& column : table.columns)
            m_columns.push_back(NumbersOf(column));
        for (const TableLayout::Line& line : table.lines)
            m_lines.push_back(NumbersOf(line.caption));
        FindFields();
    }

    std::vector<CurveChart> Charts() const
    {
        std::vector<CurveChart> charts;
        const bool byLine = m_form.curve == Part::Line;
        const std::size_t count = byLine ? m_lines.size() : m_columns.size();
        for (std::size_t i = 0; i < count; ++i)
            ChartOf(charts, AxisUp(i)).curves.push_back({NameOf(i), PointsOf(i)});
        return charts;
    }

private:
    // The field whose table each line is; null when nobody knows the caption.
    void FindFields()
    {
        std::vector<const Field*> tables;
        std::vector<CString> captions;
        for (const Field& field : m_criterion.fields)
            if (field.IsTable()) {
                tables.push_back(&field);
                captions.push_back(PageCaption(field));
            }
        const CaptionIndex index(captions);
        for (const TableLayout::Line& line : m_table.lines) {
            const int found = index.Find(line.caption);
            m_fields.push_back(found >= 0 ? tables[static_cast<std::size_t>(found)]
                                          : FieldOfPart(tables, line.caption));
        }
    }

    // The one of a page whose frame says the rest of the caption.
    static const Field* FieldOfPart(const std::vector<const Field*>& tables, const CString& caption)
    {
        const CString part = caption.substr(0, caption.find(L'('));
        for (const Field* const field : tables)
            if (CString(field->label).ends_with(part)) return field;
        return nullptr;
    }

    CurveAxis AxisUp(std::size_t curve) const
    {
        const Field* const field = m_form.value ? m_form.value : m_fields[curve];
        if (!field) return {QuantityIn(m_criterion.label), {}};
        CurveAxis axis = AxisOf(*field);
        if (axis.quantity.empty()) axis.quantity = QuantityIn(m_criterion.label);
        return axis;
    }

    CString NameOf(std::size_t curve) const
    {
        if (m_form.curve == Part::Column) {
            const CString text = ValueText(m_table.columns[curve]);
            return text + L" " + m_form.key->unit;
        }
        const CString& caption = m_table.lines[curve].caption;
        if (m_form.key) return OutOfForm(*m_form.key, caption).value_or(caption);
        const Field* const field = m_fields[curve];
        return field ? CString(field->label) : caption;
    }

    CurveChart& ChartOf(std::vector<CurveChart>& charts, const CurveAxis& up) const
    {
        for (CurveChart& chart : charts)
            if (chart.up == up) return chart;
        return charts.emplace_back(
            CurveChart{m_table.heading, m_form.axis, up, m_form.isSteps, {}});
    }

    Numbers At(Part part, std::size_t line, std::size_t column) const
    {
        if (part == Part::Line) return m_lines[line];
        if (part == Part::Column) return m_columns[column];
        return NumbersOf(*m_table.lines[line].cells[column]);
    }

    void AddPoint(std::vector<CurvePoint>& points, std::size_t line, std::size_t column) const
    {
        const auto& cells = m_table.lines[line].cells;
        if (column >= cells.size() || !cells[column]) return;
        const Numbers across = At(m_form.across, line, column);
        const Numbers up = At(m_form.up, line, column);
        if (across.size() != (m_form.isSteps ? 2U : 1U) || up.size() != 1) return;
        const auto [from, to] = std::minmax(across.front(), across.back());
        if (IsDrawable(from) && IsDrawable(to) && IsDrawable(up.front()))
            points.push_back({from, to, up.front(), line, column});
    }

    std::vector<CurvePoint> PointsOf(std::size_t curve) const
    {
        std::vector<CurvePoint> points;
        if (m_form.curve == Part::Line)
            for (std::size_t column = 0; column < m_columns.size(); ++column)
                AddPoint(points, curve, column);
        else
            for (std::size_t line = 0; line < m_lines.size(); ++line)
                AddPoint(points, line, curve);
        std::stable_sort(points.begin(), points.end(),
                         [](const auto& a, const auto& b) { return a.at < b.at; });
        return points;
    }

    const CriterionInfo& m_criterion;
    const TableLayout& m_table;
    const Form m_form;
    std::vector<const Field*> m_fields; // of each line
    std::vector<Numbers> m_columns, m_lines;
};

std::vector<CurveChart> Make(const CriterionInfo& criterion, const TableLayout& table)
{
    return CurveMaking(criterion, table).Charts();
}

std::vector<CurveChart> Make(const CriterionInfo& criterion,
                             const CDesignSpecification& specification)
{
    std::vector<CurveChart> charts;
    for (const TableLayout& table : LayOut(criterion, specification).tables)
        for (CurveChart& chart : Make(criterion, table))
            charts.push_back(std::move(chart));
    return charts;
}

// By chart, curve and place.
using PlaceKey = std::tuple<CString, CString, CString, double>;
using Limits = std::multimap<PlaceKey, double>;

PlaceKey KeyOf(const CurveChart& chart, const Curve& curve, const CurvePoint& point)
{
    return {chart.heading, chart.up.quantity, curve.name, point.at};
}

// The limits that the program has built in, some of which are out of order by right.
const Limits& BuiltInLimits(const CriterionInfo& criterion)
{
    static const auto kAll = [] {
        std::map<CString, Limits> all;
        const CDesignSpecification builtIn;
        for (const CriterionInfo& one : Criteria())
            for (const CurveChart& chart : Make(one, builtIn))
                for (const Curve& curve : chart.curves)
                    for (const CurvePoint& point : curve.points)
                        all[one.name].emplace(KeyOf(chart, curve, point), point.value);
        return all;
    }();
    static const Limits kNone;
    const auto found = kAll.find(criterion.name);
    return found == kAll.end() ? kNone : found->second;
}

void MarkOdd(const CurveChart& chart, Curve& curve, const Limits& builtIn)
{
    std::vector<RowValue> row;
    for (const CurvePoint& point : curve.points)
        row.push_back({point.at, point.value});
    for (const std::size_t place : Outliers(row)) {
        CurvePoint& point = curve.points[place];
        const auto [from, to] = builtIn.equal_range(KeyOf(chart, curve, point));
        point.isOdd = std::none_of(
            from, to, [&point](const auto& limit) { return limit.second == point.value; });
    }
}

std::vector<CurveChart> Marked(const CriterionInfo& criterion, std::vector<CurveChart> charts)
{
    for (CurveChart& chart : charts)
        for (Curve& curve : chart.curves)
            MarkOdd(chart, curve, BuiltInLimits(criterion));
    return charts;
}

} // namespace

CString CurveAxis::Title() const
{
    return unit.empty() ? quantity : Format(L"%s(%s)", quantity, unit);
}

CString CurveAxis::Text(double value) const
{
    return WithUnit(ToWide(DoubleToText(value)), unit);
}

std::vector<CurveChart> ChartsOf(const CriterionInfo& criterion, const TableLayout& table)
{
    return Marked(criterion, Make(criterion, table));
}

std::vector<CurveChart> ChartsOf(const CriterionInfo& criterion,
                                 const CDesignSpecification& specification)
{
    return Marked(criterion, Make(criterion, specification));
}

} // namespace designspec
