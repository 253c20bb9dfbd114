// Single values of a specification by their paths. Nothing here prints or throws: what is wrong
// comes back as a text for people, empty when all is well.
#pragma once

#include <span>

#include "model/ValuePath.h"

namespace designspec {

// Where a value or a table by design speed stands in one specification.
struct ValuePlace {
    const Field* field = nullptr; // null: there is no such row
    void* object = nullptr;       // what the field is a member of
};

// A row with one value besides its keys stands for that value. What is wrong: the path ends with
// something that holds more.
AFX_EXT_API CString FindValue(CDesignSpecification& specification, const ValuePath& path,
                              ValuePlace& place);

// Sets the value from a text as files and people write it. Rows that are missing on the way are
// added, in their order; others that have the last key as well go. Nothing is changed when
// something is wrong.
AFX_EXT_API CString WriteValue(CDesignSpecification& specification, const ValuePath& path,
                               const CString& text);

// Puts speeds (km/h) and as many values in place of all that a table by design speed holds; they
// stand highest speed first. Nothing is changed when one is not of the table's kind or a speed
// stands twice. Whether the editor would take them is another question (NewFault).
AFX_EXT_API CString WriteTable(const ValuePlace& table, std::span<const std::int32_t> speeds,
                               std::span<const double> values);

// Takes out the rows of the key that the path ends with.
AFX_EXT_API CString RemoveRow(CDesignSpecification& specification, const ValuePath& path);

} // namespace designspec
