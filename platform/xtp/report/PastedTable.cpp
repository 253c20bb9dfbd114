#include "platform/xtp/report/PastedTable.h"

#include <algorithm>
#include <set>

#include "base/Number.h"
#include "base/Text.h"

using namespace designspec;

namespace {

// Fewer speeds above values are no evidence that they are speeds.
constexpr size_t kFewestColumns = 2;
constexpr size_t kFewestTransposed = 3;

} // namespace

// Tells captions from values, for one grid.
class PastedTable::Recogniser {
public:
    explicit Recogniser(const TableCaptions& captions)
        : m_captions(captions), m_rows(captions.rows), m_columns(captions.columns),
          m_usual(captions.usual),
          m_corner(CaptionParts(captions.corner).word + L' ' + CaptionParts(captions.rowKind).word)
    {
    }

    bool IsRow(const CString& text) const { return m_rows.Find(text) >= 0; }
    bool AnyRow(const CStringArray& line) const
    {
        return std::any_of(line.begin(), line.end(),
                           [this](const CString& text) { return IsRow(text); });
    }
    // Captions of rows, the grid's or others; some may be missing. Bare numbers are some only when
    // the grid has each of them and none stands twice; one that it has or could have is enough
    // where the columns are certain (`besideColumns`).
    bool AreRows(const CStringArray& line, bool besideColumns = false) const
    {
        bool any = false;
        bool meant = false;
        std::set<CString> numbers;
        for (const CString& text : line) {
            if (PlainText(text).empty()) continue;
            any = true;
            const bool isRow = IsRow(text) || (besideColumns && Can(m_captions.canAddRow, text));
            meant = meant || isRow;
            if (!CaptionParts(text).word.empty()) continue;
            if (!numbers.insert(PlainText(text)).second || !(isRow || besideColumns)) return false;
        }
        return any && (meant || numbers.empty());
    }
    // Captions of columns: most of them the grid has or could have, and none stands twice.
    bool AreColumns(const CStringArray& line) const
    {
        std::ptrdiff_t captions = 0;
        std::ptrdiff_t known = 0;
        std::set<CString> met;
        for (const CString& text : line) {
            const CString caption = PlainText(text);
            if (caption.empty()) continue;
            if (!met.insert(caption).second) return false;
            ++captions;
            if (m_columns.Find(caption) >= 0 || Can(m_captions.canAddColumn, caption)) ++known;
        }
        return known > 0 && 2 * known >= captions;
    }
    // The same where nothing else tells that they are no values: in order, and all usual ones.
    bool AreUsualColumns(const CStringArray& line, size_t fewest) const
    {
        return line.size() >= fewest && InOrder(line) && AreColumns(line) &&
               std::all_of(line.begin(), line.end(), [this](const CString& text) {
                   return m_columns.Find(text) >= 0 || m_usual.Find(text) >= 0;
               });
    }
    static bool AreEmpty(const CStringArray& line)
    {
        return std::all_of(line.begin(), line.end(),
                           [](const CString& text) { return PlainText(text).empty(); });
    }
    static bool IsWordOrEmpty(const CString& text)
    {
        return PlainText(text).empty() || !CaptionParts(text).word.empty();
    }
    // What may stand where captions of rows and columns meet: nothing, what the grid has there,
    // what its rows are, or another word.
    bool IsCorner(const CString& text) const
    {
        const CaptionParts parts(text);
        return PlainText(text).empty() ||
               (!parts.word.empty() && m_corner.find(parts.word) != CString::npos);
    }
    bool IsOtherCorner(const CString& text) const { return IsWordOrEmpty(text) && !IsRow(text); }

private:
    static bool Can(const std::function<bool(const CString&)>& add, const CString& caption)
    {
        return add && add(caption);
    }
    static bool InOrder(const CStringArray& line)
    {
        std::vector<double> numbers;
        for (const CString& text : line)
            numbers.push_back(Wtof(CaptionParts(text).numbers));
        return std::is_sorted(numbers.begin(), numbers.end()) ||
               std::is_sorted(numbers.rbegin(), numbers.rend());
    }

    const TableCaptions& m_captions;
    CaptionIndex m_rows;
    CaptionIndex m_columns;
    CaptionIndex m_usual;
    CString m_corner;
};

PastedTable::PastedTable(Texts texts) : m_texts(std::move(texts))
{
    for (const CStringArray& row : m_texts)
        m_width = std::max(m_width, static_cast<int>(row.size()));
}

PastedTable::PastedTable(Texts texts, const TableCaptions& captions) : PastedTable(std::move(texts))
{
    Recognise(captions);
}

PastedTable PastedTable::WithCaptions(Texts texts)
{
    PastedTable table(std::move(texts));
    table.m_top = table.m_left = 1;
    return table;
}

PastedTable PastedTable::OfValues(Texts texts)
{
    return PastedTable(std::move(texts));
}

PastedTable PastedTable::WithoutCaptions() const
{
    PastedTable table = *this;
    table.m_topCounts = table.m_leftCounts = false;
    return table;
}

CStringArray PastedTable::Line(bool across, int from) const
{
    CStringArray line;
    for (int i = from; i < (across ? Width() : Height()); ++i)
        line.push_back(across ? At(0, i) : At(i, 0));
    return line;
}

// Captions on two sides are certain; on one side they must be words, or usual columns.
void PastedTable::Recognise(const TableCaptions& captions)
{
    if (Height() * Width() < 2) return;
    const Recogniser is(captions);
    const CString& corner = At(0, 0);
    const CStringArray top = Line(true, 1);
    const CStringArray left = Line(false, 1);
    const auto areColumns = [&](const CStringArray& line) {
        return is.IsCorner(corner)
                   ? is.AreColumns(line)
                   : is.IsOtherCorner(corner) && is.AreUsualColumns(line, kFewestColumns);
    };
    const bool columnsOnTop =
        !left.empty() && areColumns(top) && (is.AreRows(left, true) || is.AreEmpty(left));
    const bool columnsAtLeft = !columnsOnTop && areColumns(left) && is.AreRows(top, true);
    if (columnsOnTop || columnsAtLeft) {
        m_top = m_left = 1;
        m_transposed = columnsAtLeft;
        m_leftCounts = !is.AreEmpty(left);
    } else if (is.AreRows(Line(false, 0)) || (is.AreRows(left) && is.IsWordOrEmpty(corner))) {
        RecogniseRows(is, top, left);
    } else {
        RecogniseWithoutCorner(is);
    }
}

// Words stand at the left. Words on top as well are captions of the one or the other.
void PastedTable::RecogniseRows(const Recogniser& is, const CStringArray& top,
                                const CStringArray& left)
{
    m_left = 1;
    if (Height() < 2 || !is.AreRows(top)) return;
    m_top = 1;
    m_transposed = is.AnyRow(top) && !is.AnyRow(left);
    (m_transposed ? m_leftCounts : m_topCounts) = false;
}

void PastedTable::RecogniseWithoutCorner(const Recogniser& is)
{
    const CStringArray top = Line(true, 0);
    const auto isUsual = [&is](const CStringArray& line) {
        return is.AreUsualColumns(line, kFewestColumns);
    };
    if (Height() > 1 && std::count_if(m_texts.begin(), m_texts.end(), isUsual) == 1 &&
        isUsual(m_texts.front())) {
        m_top = 1;
    } else if (Width() > 1 && is.AreUsualColumns(Line(false, 0), kFewestTransposed)) {
        m_left = 1;
        m_transposed = true;
    } else if (Height() > 1 && is.AreRows(top) && is.IsWordOrEmpty(top.front())) {
        m_top = 1;
        m_transposed = m_topCounts = is.AnyRow(top);
    }
}

const CString& PastedTable::At(int row, int column) const
{
    static const CString kNone;
    const CStringArray& texts = m_texts[static_cast<size_t>(row)];
    return column < std::ssize(texts) ? texts[static_cast<size_t>(column)] : kNone;
}

int PastedTable::GetRowCount() const
{
    return m_transposed ? Width() - m_left : Height() - m_top;
}

int PastedTable::GetColumnCount() const
{
    return m_transposed ? Height() - m_top : Width() - m_left;
}

const CString* PastedTable::Value(int row, int column) const
{
    if (m_transposed) std::swap(row, column);
    const int line = row + m_top;
    const CStringArray& texts = m_texts[static_cast<size_t>(line)];
    const int place = column + m_left;
    return place < std::ssize(texts) ? &texts[static_cast<size_t>(place)] : nullptr;
}

const CString* PastedTable::TopCaption(int column) const
{
    return m_top > 0 && m_topCounts ? &At(0, column + m_left) : nullptr;
}

const CString* PastedTable::LeftCaption(int row) const
{
    return m_left > 0 && m_leftCounts ? &At(row + m_top, 0) : nullptr;
}

const CString* PastedTable::RowCaption(int row) const
{
    return m_transposed ? TopCaption(row) : LeftCaption(row);
}

const CString* PastedTable::ColumnCaption(int column) const
{
    return m_transposed ? LeftCaption(column) : TopCaption(column);
}

CStringArray PastedTable::Headline() const
{
    return m_top > 0 && m_left == 0 && !m_topCounts ? m_texts.front() : CStringArray();
}

bool PastedTable::IsWords() const
{
    bool words = IsEmpty();
    for (int row = 0; row < GetRowCount(); ++row)
        for (int column = 0; column < GetColumnCount(); ++column)
            if (const CString* const text = Value(row, column)) {
                const CaptionParts parts(*text);
                if (!parts.numbers.empty()) return false;
                words = words || !parts.word.empty();
            }
    return words;
}
