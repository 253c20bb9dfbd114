// How the values of a specification lie on its pages, for those who show them elsewhere: in
// spreadsheets and on paper.
#pragma once

#include <optional>

#include "model/Criteria.h"
#include "model/FieldValue.h"

namespace designspec {

// One table of a page, with captions on top and at the left.
struct TableLayout {
    struct Line {
        CString caption;
        std::vector<std::optional<Value>> cells; // one for each column
        const Field* field = nullptr; // what they are values of; null for texts of two values
    };

    CString heading; // 最大超高 6%; mostly empty
    CString corner;  // where the captions meet: 设计车速(km/h)
    std::vector<Value> columns;
    std::vector<Line> lines;

    // Says in its heading that there are none, where a page has a table for each of something.
    bool IsNone() const { return columns.empty() && lines.empty() && corner.empty(); }
};

struct PageLayout {
    struct Limit {
        const Field* field;
        CString caption;
        Value value;
    };

    const CriterionInfo* criterion;
    std::vector<Limit> limits; // the values that stand alone
    std::vector<TableLayout> tables;
    std::vector<Limit> sources; // the texts
};

// All pages. Every value has its place: keys that stand twice have a line or a column each.
AFX_EXT_API std::vector<PageLayout> LayOut(const CDesignSpecification& specification);
// The page of one criterion.
AFX_EXT_API PageLayout LayOut(const CriterionInfo& criterion,
                              const CDesignSpecification& specification);

// What a value or a table is called on its page: 设超高最小半径(m).
AFX_EXT_API CString PageCaption(const Field& field);
// Stands over the captions of a table by design speed, of curve widening, and for no table.
inline constexpr wchar_t kSpeedCorner[] = L"设计车速(km/h)";
inline constexpr wchar_t kWideningCorner[] = L"圆曲线半径\\加宽类别";
inline constexpr wchar_t kNoSuperElevTables[] = L"没有超高表";

// A key in the caption that the field's form makes of it, and the key of such a caption; nothing
// when the caption has not that form.
AFX_EXT_API CString InForm(const Field& field, const CString& text);
AFX_EXT_API std::optional<CString> OutOfForm(const Field& field, const CString& caption);

} // namespace designspec
