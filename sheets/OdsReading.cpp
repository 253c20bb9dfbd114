#include "sheets/OdsReading.h"

#include <algorithm>

#include "base/Text.h"
#include "sheets/CellText.h"
#include "sheets/WorkbookXml.h"

namespace designspec {

namespace {

constexpr char kContent[] = "content.xml";
constexpr int kMostBlanks = 100; // that a text holds in a row

// Runs, blanks and breaks of a paragraph.
void AddParagraph(const pugi::xml_node& node, std::string& text)
{
    for (const pugi::xml_node& one : node) {
        if (one.type() == pugi::node_pcdata || one.type() == pugi::node_cdata)
            text += one.value();
        else if (Is(one, "s"))
            text.append(static_cast<std::size_t>(Number(one, "c", 1, kMostBlanks)), ' ');
        else if (Is(one, "tab"))
            text += '\t';
        else if (Is(one, "line-break"))
            text += '\n';
        else
            AddParagraph(one, text);
    }
}

// Its paragraphs, without a remark that hangs on the cell.
CString TextOf(const pugi::xml_node& cell)
{
    std::string text;
    for (const pugi::xml_node& one : cell) {
        if (!Is(one, "p")) continue;
        if (!text.empty()) text += '\n';
        AddParagraph(one, text);
    }
    return FromCell(Trim(ToWide(text)));
}

CString CellOf(const pugi::xml_node& cell)
{
    const std::string_view type = Attribute(cell, "value-type");
    if (type == "float" || type == "currency") return NumberText(Attribute(cell, "value"), false);
    if (type == "percentage") return NumberText(Attribute(cell, "value"), true);
    if (type == "boolean") return BoolText(Attribute(cell, "boolean-value") == "true");
    if (type == "date") return ToWide(Attribute(cell, "date-value"));
    const CString text = TextOf(cell);
    return text.empty() && type.empty() && !Attribute(cell, "formula").empty() ? kNoResult : text;
}

class OdsSheet {
public:
    OdsSheet(const pugi::xml_node& table, ContentBudget& budget)
        : m_filling(ToWide(Attribute(table, "name")), budget)
    {
        ReadRows(table);
    }
    SheetGrid TakeGrid() { return m_filling.TakeGrid(); }

private:
    // Rows may stand in groups.
    void ReadRows(const pugi::xml_node& node)
    {
        for (const pugi::xml_node& one : node) {
            if (Is(one, "table-row"))
                ReadRow(one);
            else if (Is(one, "table-rows") || Is(one, "table-header-rows") ||
                     Is(one, "table-row-group"))
                ReadRows(one);
        }
    }

    void ReadRow(const pugi::xml_node& row)
    {
        const int repeated = Number(row, "number-rows-repeated", 1, kMostRows);
        int column = 0;
        for (const pugi::xml_node& cell : row) {
            if (!Is(cell, "table-cell") && !Is(cell, "covered-table-cell")) continue;
            const int columns = Number(cell, "number-columns-repeated", 1, kMostColumns);
            ReadCell(cell, repeated, column, columns);
            column = std::min(column + columns, kMostColumns);
        }
        m_row = std::min(m_row + repeated, kMostRows);
    }

    void ReadCell(const pugi::xml_node& cell, int rows, int column, int columns)
    {
        const CString text = CellOf(cell);
        if (text.empty()) return;
        for (int row = 0; row < rows; ++row)
            for (int i = 0; i < columns; ++i)
                m_filling.Set(m_row + row, column + i, text);
        const int width = Number(cell, "number-columns-spanned", 1, kMostColumns);
        const int height = Number(cell, "number-rows-spanned", 1, kMostRows);
        if (width > 1 || height > 1)
            m_filling.Merge(m_row, column, m_row + height - 1, column + width - 1);
    }

    SheetFilling m_filling;
    int m_row = 0;
};

} // namespace

bool IsOdsPart(std::string_view name)
{
    return name == kContent;
}

std::vector<SheetGrid> ReadOds(const std::vector<ArchivePart>& parts, ContentBudget& budget)
{
    std::vector<SheetGrid> sheets;
    for (const ArchivePart& part : parts) {
        pugi::xml_document document;
        if (part.name != kContent ||
            !document.load_buffer(part.bytes.data(), part.bytes.size(), pugi::parse_default,
                                  pugi::encoding_utf8))
            continue;
        const pugi::xml_node body = Child(document.document_element(), "body");
        for (const pugi::xml_node& table : Child(body, "spreadsheet"))
            if (Is(table, "table")) sheets.push_back(OdsSheet(table, budget).TakeGrid());
    }
    return sheets;
}

} // namespace designspec
