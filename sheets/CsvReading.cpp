#include "sheets/CsvReading.h"

#include <algorithm>

#include <orcus/csv_parser.hpp>

#include "base/Encoding.h"
#include "base/Text.h"
#include "sheets/CellText.h"

namespace designspec {

namespace {

constexpr std::size_t kFirstBytes = 4096; // that the separator is found in

class Handler : public orcus::csv_handler {
public:
    Handler(SheetGrid& grid, ContentBudget& budget) : m_grid(grid), m_budget(budget) {}
    void begin_row() { m_column = 0; }
    void end_row() { ++m_row; }
    void cell(const char* text, std::size_t size, bool /*transient*/)
    {
        const CString cell = text ? FromCell(Trim(ToWide({text, size}))) : CString();
        if (!cell.empty()) m_budget.Take(cell.size());
        m_grid.Set(m_row, m_column++, cell);
    }

private:
    SheetGrid& m_grid;
    ContentBudget& m_budget;
    int m_row = 0;
    int m_column = 0;
};

// UTF-8 where it is that, else GB18030; with "\n" at the ends of lines.
std::optional<std::string> TextOf(std::string_view bytes)
{
    std::size_t mark = 0;
    TextEncoding encoding = EncodingByMark(bytes, mark);
    bytes.remove_prefix(mark);
    std::size_t offset = 0;
    if (mark == 0 && !IsUtf8(bytes, offset)) encoding = TextEncoding::Gb18030;
    std::string text;
    if (!DecodeText(bytes, encoding, text) || text.find('\0') != std::string::npos) return {};
    std::erase(text, '\r');
    return text;
}

char SeparatorOf(std::string_view text)
{
    const std::string_view first = text.substr(0, kFirstBytes);
    char most = ',';
    for (const char one : {';', '\t'})
        if (std::count(first.begin(), first.end(), one) >
            std::count(first.begin(), first.end(), most))
            most = one;
    return most;
}

} // namespace

std::optional<SheetGrid> ReadCsv(std::string_view bytes, ContentBudget& budget)
{
    const auto text = TextOf(bytes);
    if (!text) return {};
    SheetGrid grid{{}};
    orcus::csv::parser_config config;
    config.delimiters = SeparatorOf(*text);
    config.text_qualifier = '"';
    Handler handler(grid, budget);
    try {
        orcus::csv_parser<Handler>(text->data(), text->size(), handler, config).parse();
    } catch (const orcus::csv::parse_error&) {
        return {};
    }
    return grid;
}

} // namespace designspec
