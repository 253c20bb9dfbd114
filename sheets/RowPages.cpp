#include "sheets/RowPages.h"

#include "base/Format.h"
#include "base/Number.h"
#include "base/Text.h"
#include "model/PageLayout.h"

namespace designspec {

namespace {

const Field& FieldIn(const Field& rows, const wchar_t* key)
{
    return *designspec::FindField(rows.RowFields(), key);
}

const Field& RowsOf(const CriterionInfo& criterion)
{
    for (const Field& field : criterion.fields)
        if (field.kind == FieldKind::Rows) return field;
    std::abort(); // not made for others
}

// The number of a caption: of its own form, or the only one beside such words.
std::optional<double> NumberIn(const Field& field, const CString& caption, std::wstring_view words)
{
    double number = 0;
    const auto inside = OutOfForm(field, caption);
    if (inside && ParseDouble(ToUtf8(*inside), number)) return number;
    return CaptionParts(caption).OnlyNumber(words);
}

// The same, where it is a whole one.
std::optional<std::int32_t> WholeNumberIn(const Field& field, const CString& caption,
                                          std::wstring_view words)
{
    const auto number = NumberIn(field, caption, words);
    int whole = 0;
    if (!number || !ParseInt(DoubleToText(*number), whole)) return {};
    return whole;
}

// A line for each gradient.
class GradeLengthPage : public PageReading {
public:
    explicit GradeLengthPage(const CriterionInfo& criterion)
        : PageReading(criterion), m_rows(RowsOf(criterion)), m_gradient(FieldIn(m_rows, L"Grad")),
          m_lengths(FieldIn(m_rows, L"lengths"))
    {
    }

private:
    static constexpr std::wstring_view kWords = L"纵坡坡度最大坡长";

    CDSLonGradMaxLen& Page() const { return *static_cast<CDSLonGradMaxLen*>(Object()); }
    bool TakesCaption(const CString& caption) const override
    {
        return OutOfForm(m_gradient, caption) ||
               (!CaptionParts(caption).word.empty() && NumberIn(m_gradient, caption, kWords));
    }
    void SpeedsChanged() override { Begin(); }
    bool TakeLine(int row, const CString& caption) override
    {
        const auto gradient = NumberIn(m_gradient, caption, kWords);
        if (!gradient || caption.empty()) return false;
        Begin();
        GradientRow& line = Page().rows.Add({});
        line.Grad = *gradient + 0.0; // no negative zero
        ReadTable(row, m_lengths, &line);
        return true;
    }
    void Begin()
    {
        if (!m_begun) Page().rows.RemoveAll();
        m_begun = true;
    }

    const Field& m_rows;
    const Field& m_gradient;
    const Field& m_lengths;
    bool m_begun = false;
};

// A table for each maximum; in it a line for each superelevation and ranges of radii in the cells.
class SuperElevationPage : public PageReading {
public:
    explicit SuperElevationPage(const CriterionInfo& criterion)
        : PageReading(criterion), m_definitions(RowsOf(criterion)),
          m_maximum(FieldIn(m_definitions, L"maxSuperElev")),
          m_superElev(FieldIn(FieldIn(FieldIn(m_definitions, L"rows"), L"ranges"), L"superElev"))
    {
    }

private:
    static constexpr std::wstring_view kMaximumWords = L"最大超高";
    static constexpr std::wstring_view kLineWords = L"超高时圆曲线半径范围";

    CDSSuperElevation& Page() const { return *static_cast<CDSSuperElevation*>(Object()); }
    std::optional<std::int32_t> Maximum(const CString& caption) const
    {
        const bool isMaximum = caption.find(L"最大") != CString::npos;
        return isMaximum ? WholeNumberIn(m_maximum, caption, kMaximumWords) : std::nullopt;
    }
    bool TakesCaption(const CString& caption) const override
    {
        return Maximum(caption) || OutOfForm(m_superElev, caption) || caption == kNoSuperElevTables;
    }

    bool TakeHeading(int /*row*/, const CString& caption) override
    {
        const auto maximum = Maximum(caption);
        if (!maximum && caption != kNoSuperElevTables) return false;
        if (!m_begun) Page().definitions.RemoveAll();
        m_begun = true;
        ForgetSpeeds();
        m_columns.clear();
        if (maximum) Page().definitions.Add({}).maxSuperElev = *maximum;
        return true;
    }
    void SpeedsChanged() override
    {
        if (!m_begun) return;
        auto& rows = Page().definitions[Page().definitions.count - 1].rows;
        m_columns.clear();
        for (const auto& [column, speed] : Speeds()) {
            m_columns[column] = rows.count;
            rows.Add({}).speed = speed;
        }
    }
    bool TakeLine(int row, const CString& caption) override
    {
        const auto superElev = WholeNumberIn(m_superElev, caption, kLineWords);
        if (!superElev || caption.empty()) return false;
        if (!m_begun || Page().definitions.IsEmpty()) {
            Wrong(row, CaptionColumn(), L"前面没有“最大超高 …%”一行");
            return true;
        }
        auto& rows = Page().definitions[Page().definitions.count - 1].rows;
        ReadLine(row, m_columns, [&](int column, std::int32_t place, const CString& text) {
            if (const auto range = ReadRange(text))
                rows[place].ranges.Add({range->min, range->max, *superElev});
            else
                Wrong(row, column, Format(L"“%s”不是半径范围,应如 200~300", text));
        });
        return true;
    }

    const Field& m_definitions;
    const Field& m_maximum;
    const Field& m_superElev;
    bool m_begun = false;
    std::map<int, std::int32_t> m_columns; // the row of each in the table that is read
};

// A column for each range of radii, a line for each category of vehicles.
class WideningPage : public PageReading {
public:
    explicit WideningPage(const CriterionInfo& criterion)
        : PageReading(criterion), m_widenings(FieldIn(RowsOf(criterion), L"widenings")),
          m_category(FieldIn(m_widenings, L"carType")),
          m_widening(FieldIn(m_widenings, L"widening"))
    {
    }

private:
    CDSCurveWidening& Page() const { return *static_cast<CDSCurveWidening*>(Object()); }
    bool TakesCaption(const CString& caption) const override
    {
        return caption == kWideningCorner || caption.find(L"加宽类别") != CString::npos ||
               caption.find(L"设计车型") != CString::npos;
    }
    bool LiesAcross(const SheetGrid& sheet) const override
    {
        return CountRanges(sheet) < CountRanges(sheet.Transposed());
    }
    // The most of a row.
    static std::size_t CountRanges(const SheetGrid& sheet)
    {
        std::size_t most = 0;
        for (const auto& [row, cells] : sheet.Rows()) {
            std::size_t count = 0;
            for (const auto& [column, text] : cells)
                count += ReadRange(text).has_value();
            most = std::max(most, count);
        }
        return most;
    }

    bool TakeHeading(int row, const CString& caption) override
    {
        const auto values = Values(row);
        const bool isRanges = !values.empty() && ReadRange(values.begin()->second).has_value();
        if (!isRanges && caption != kWideningCorner) return false;
        if (m_columns.empty()) Page().ranges.RemoveAll();
        m_columns.clear();
        for (const auto& [column, text] : values) {
            const auto range = ReadRange(text);
            if (!range) {
                Wrong(row, column, Format(L"“%s”不是半径范围,应如 200~300", text));
                continue;
            }
            m_columns[column] = Page().ranges.count;
            Page().ranges.Add({range->min, range->max, {}});
        }
        return true;
    }
    // The name of the category as it stands, without the unit behind it.
    CString Category(const CString& caption) const
    {
        if (const auto inside = OutOfForm(m_category, caption)) return *inside;
        const CString unit = L"（m）";
        return caption.ends_with(unit) ? caption.substr(0, caption.size() - unit.size()) : caption;
    }
    bool TakeLine(int row, const CString& caption) override
    {
        if (m_columns.empty() || Values(row).empty() || caption.empty()) return false;
        const CString category = Category(caption);
        ReadLine(row, m_columns, [&](int column, std::int32_t place, const CString& text) {
            Value value;
            const CString problem = ReadCell(m_widening, m_widening.unit, text, value);
            if (problem.empty())
                Page().ranges[place].widenings.Add({category, std::get<double>(value)});
            else
                Wrong(row, column, problem);
        });
        return true;
    }

    const Field& m_widenings;
    const Field& m_category;
    const Field& m_widening;
    std::map<int, std::int32_t> m_columns; // the range of each
};

} // namespace

std::unique_ptr<PageReading> MakeRowPage(const CriterionInfo& criterion)
{
    const std::wstring_view name = criterion.name;
    if (name == L"LonGradMaxLen") return std::make_unique<GradeLengthPage>(criterion);
    if (name == L"SuperElevation") return std::make_unique<SuperElevationPage>(criterion);
    if (name == L"CurveWidening") return std::make_unique<WideningPage>(criterion);
    return nullptr;
}

} // namespace designspec
