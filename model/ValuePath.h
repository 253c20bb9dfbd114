// Paths to single values of a specification, in the names of files, ignoring case:
//   CircularCurveRad.MaxRad
//   CircularCurveRad.SuperelevationMinRad[80]
//   SuperElevation.definitions[6].rows[80].ranges[200~300].superElev
// A key is the value that tells a row from the others, two of them joined by "~". Criteria and
// fields may be called by their labels as well, a field without its criterion when no other has
// that label: 设超高最小半径[80], 圆曲线半径.圆曲线最大半径.
#pragma once

#include "model/Criteria.h"
#include "model/FieldValue.h"

namespace designspec {

struct ValuePath {
    struct Step {
        const Field* field = nullptr;
        std::vector<Value> keys = {}; // of one row of the field; none: the field itself

        AFX_EXT_API CString KeyText() const;
    };

    const CriterionInfo* criterion = nullptr;
    std::vector<Step> steps; // none for the criterion itself

    const Field* LastField() const { return steps.empty() ? nullptr : steps.back().field; }
    // Goes on to the row of that key in the table or the rows that the path ends with. Returns
    // what is wrong with the key, for people, or an empty text.
    AFX_EXT_API CString AddKey(std::wstring_view key);
    // As it is written, with the names' own case.
    AFX_EXT_API CString Text() const;
};

// A path read from a text, or what is wrong with that.
struct ParsedPath {
    ValuePath path; // as far as it could be read
    CString problem;
    bool isWrongName = false; // `problem` names no criterion or field: the right names would help
};
AFX_EXT_API ParsedPath ParseValuePath(std::wstring_view text);

// The path of a value, with what its keys are called in their places, and its label. A table by
// design speed stands for its values.
struct PathLabel {
    CString path;
    CString label;
    const Field* field;
};
AFX_EXT_API std::vector<PathLabel> PathsOf(const CriterionInfo& criterion);

// The fields that tell a row from the others, and what they are called, joined by "~".
std::vector<const Field*> KeysOf(const Field& rows);
AFX_EXT_API CString KeyLabel(const Field& rows);
// The one value of a row besides its keys; null when it holds more.
const Field* OnlyValue(const Field& rows);

} // namespace designspec
