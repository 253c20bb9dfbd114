#include "sheets/XlsxReading.h"

#include <algorithm>

#include "base/Number.h"
#include "base/Text.h"
#include "sheets/CellText.h"
#include "sheets/WorkbookXml.h"

namespace designspec {

namespace {

constexpr char kWorkbook[] = "xl/workbook.xml";
constexpr char kRelations[] = "xl/_rels/workbook.xml.rels";
constexpr char kStrings[] = "xl/sharedStrings.xml";
constexpr char kStyles[] = "xl/styles.xml";
constexpr char kSheets[] = "xl/worksheets/";

// "C5", "$C$5" of a row and a column counted from 0; -1 for what is not written.
struct Address {
    int row = -1;
    int column = -1;
};

Address AddressOf(std::string_view text)
{
    std::int64_t column = 0;
    std::int64_t row = 0;
    for (const char c : text) {
        if (c >= 'A' && c <= 'Z' && row == 0)
            column = std::min<std::int64_t>(column * 26 + (c - 'A' + 1), kMostColumns + 1);
        else if (c >= '0' && c <= '9')
            row = std::min<std::int64_t>(row * 10 + (c - '0'), kMostRows + 1);
        else if (c != '$')
            return {};
    }
    return {static_cast<int>(row) - 1, static_cast<int>(column) - 1};
}

class XlsxReader {
public:
    XlsxReader(std::vector<ArchivePart>& parts, ContentBudget& budget)
        : m_parts(parts), m_budget(budget)
    {
        ReadStrings();
        ReadStyles();
    }

    std::vector<SheetGrid> Sheets()
    {
        std::vector<SheetGrid> sheets;
        pugi::xml_document workbook;
        pugi::xml_document relations;
        Load(kWorkbook, workbook);
        Load(kRelations, relations);
        for (const pugi::xml_node& sheet : Child(workbook.document_element(), "sheets")) {
            const std::string path = PathOf(relations.document_element(), Attribute(sheet, "id"));
            SheetFilling filling(ToWide(Attribute(sheet, "name")), m_budget);
            pugi::xml_document document;
            if (Load(path, document)) ReadSheet(document.document_element(), filling);
            sheets.push_back(filling.TakeGrid());
        }
        return sheets;
    }

private:
    // False when there is no such part, or it is none. Each part is read once.
    bool Load(std::string_view name, pugi::xml_document& document)
    {
        for (ArchivePart& part : m_parts)
            if (part.name == name)
                return document.load_buffer(part.bytes.data(), part.bytes.size(),
                                            pugi::parse_default, pugi::encoding_utf8);
        return false;
    }

    static std::string PathOf(const pugi::xml_node& relations, std::string_view id)
    {
        for (const pugi::xml_node& one : relations) {
            if (Attribute(one, "Id") != id) continue;
            const std::string target(Attribute(one, "Target"));
            return target.starts_with('/') ? target.substr(1) : "xl/" + target;
        }
        return {};
    }

    // All runs of a text; how it is to be read aloud is none.
    static CString TextOf(const pugi::xml_node& node)
    {
        std::string text;
        for (const pugi::xml_node& one : node) {
            if (Is(one, "t")) text += one.text().get();
            if (Is(one, "r")) text += Child(one, "t").text().get();
        }
        return FromCell(Trim(ToWide(text)));
    }

    void ReadStrings()
    {
        pugi::xml_document document;
        Load(kStrings, document);
        for (const pugi::xml_node& one : document.document_element()) {
            m_strings.push_back(TextOf(one));
            m_budget.Take(m_strings.back().size());
        }
    }

    // Which formats show a number as per cent.
    void ReadStyles()
    {
        pugi::xml_document document;
        Load(kStyles, document);
        const pugi::xml_node styles = document.document_element();
        std::vector<std::string_view> percents = {"9", "10"}; // built in
        for (const pugi::xml_node& one : Child(styles, "numFmts"))
            if (Attribute(one, "formatCode").find('%') != std::string_view::npos)
                percents.push_back(Attribute(one, "numFmtId"));
        for (const pugi::xml_node& one : Child(styles, "cellXfs")) {
            const auto format = Attribute(one, "numFmtId");
            m_isPercent.push_back(std::find(percents.begin(), percents.end(), format) !=
                                  percents.end());
        }
    }

    CString CellOf(const pugi::xml_node& cell) const
    {
        const std::string_view type = Attribute(cell, "t");
        const std::string_view value = Child(cell, "v").text().get();
        if (type == "inlineStr") return TextOf(Child(cell, "is"));
        if (value.empty()) return Child(cell, "f") ? kNoResult : L"";
        if (type == "b") return BoolText(value != "0");
        if (type == "s") {
            int index = -1;
            ParseInt(value, index);
            const bool isThere = index >= 0 && index < std::ssize(m_strings);
            return isThere ? m_strings[static_cast<std::size_t>(index)] : CString();
        }
        if (type.empty() || type == "n") return NumberText(value, IsPercent(cell));
        return FromCell(Trim(ToWide(value))); // text or error of a formula, date
    }

    bool IsPercent(const pugi::xml_node& cell) const
    {
        const int style = Number(cell, "s", -1, kMostRows);
        return style >= 0 && style < std::ssize(m_isPercent) &&
               m_isPercent[static_cast<std::size_t>(style)];
    }

    void ReadSheet(const pugi::xml_node& sheet, SheetFilling& filling)
    {
        int row = -1;
        for (const pugi::xml_node& line : Child(sheet, "sheetData")) {
            row = Number(line, "r", row + 2, kMostRows + 1) - 1;
            int column = -1;
            for (const pugi::xml_node& cell : line) {
                const Address address = AddressOf(Attribute(cell, "r"));
                column = address.column < 0 ? column + 1 : address.column;
                filling.Set(address.row < 0 ? row : address.row, column, CellOf(cell));
            }
        }
        for (const pugi::xml_node& merged : Child(sheet, "mergeCells")) {
            const std::string_view range = Attribute(merged, "ref");
            const std::size_t colon = range.find(':');
            if (colon == std::string_view::npos) continue;
            const Address first = AddressOf(range.substr(0, colon));
            const Address last = AddressOf(range.substr(colon + 1));
            filling.Merge(first.row, first.column, last.row, last.column);
        }
    }

    std::vector<ArchivePart>& m_parts;
    ContentBudget& m_budget;
    std::vector<CString> m_strings;
    std::vector<bool> m_isPercent; // by style
};

} // namespace

bool IsXlsxPart(std::string_view name)
{
    return name == kWorkbook || name == kRelations || name == kStrings || name == kStyles ||
           (name.starts_with(kSheets) && name.ends_with(".xml"));
}

std::vector<SheetGrid> ReadXlsx(std::vector<ArchivePart>& parts, ContentBudget& budget)
{
    return XlsxReader(parts, budget).Sheets();
}

} // namespace designspec
