// Where specifications differ, value by value, and one that is made of several.
//
// Two are compared as left and right; three as what was there (base) and what two people made of
// it (mine, theirs). Everything runs over the criteria's tables of fields, rows within rows too.
//
// The order is that of the editor's pages: criterion by criterion, in each the limits, the tables
// by speed from high to low, then the data sources. The name comes first, what this program does
// not know of the files comes last, each as one value. The identity is no value: what is made of
// several keeps that of the left or of mine.
//
// Rows are the same when their keys are, letter for letter. Of rows that have the same keys on one
// side the first is compared with the first of the other side, the second with the second. A row
// is there as long as one of its values is; one that never had any is a value by itself, and so is
// the order of a table's rows where it is not the same.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "model/ValuePath.h"

namespace designspec {

// A value that is not the same everywhere.
struct DifferingValue {
    CString path;  // as a value path is written; "Name" for the name; empty: what is not known
    CString label; // of the value: 设超高最小半径
    CString key;   // where in its table: 坡度 5%, 车速 80 km/h; empty when it is in none
    ValuePath place = {};   // of `path`; without a criterion for the name and what is not known
    CStringArray rows = {}; // what `key` is made of, for each step of `place` that has keys

    bool operator==(const DifferingValue& other) const
    {
        return path == other.path && label == other.label && key == other.key;
    }
};

// What each has, as people read it, with unit: 250 m; nothing where it has no such value.
struct Difference : DifferingValue {
    std::optional<CString> left, right;
    bool operator==(const Difference&) const = default;
};

// Empty when they are the same, whatever their identities.
AFX_EXT_API std::vector<Difference> Differences(const CDesignSpecification& left,
                                                const CDesignSpecification& right);
// The left one with those values of the right one that are taken; `taken` has an entry for each of
// Differences(left, right), in their order; what it is too short for is not taken. All of them
// give the right one, none the left one.
AFX_EXT_API CDesignSpecification WithTaken(const CDesignSpecification& left,
                                           const CDesignSpecification& right,
                                           const std::vector<bool>& taken);

// Who has changed a value since it was as in the base.
enum class ChangedBy {
    Me,
    Them,
    Both,     // to the same
    Conflict, // both, to something else
    Nobody,   // only among all values
};
enum class Side { Mine, Theirs };

struct Change : DifferingValue {
    std::optional<CString> base, mine, theirs;
    ChangedBy by = ChangedBy::Conflict;
    bool operator==(const Change&) const = default;
};

AFX_EXT_API std::vector<Change> Changes(const CDesignSpecification& base,
                                        const CDesignSpecification& mine,
                                        const CDesignSpecification& theirs);
// The same with the values that are the same everywhere, in their places: without those of Nobody
// it is Changes(base, mine, theirs).
AFX_EXT_API std::vector<Change> AllValues(const CDesignSpecification& base,
                                          const CDesignSpecification& mine,
                                          const CDesignSpecification& theirs);
AFX_EXT_API bool HasConflict(const std::vector<Change>& changes);
// Mine with their changes. `sides` has an entry for each of Changes(base, mine, theirs), in their
// order, and says whose value counts; where it is too short that is theirs when they alone have
// changed it, else mine. All of theirs give theirs, all of mine give mine.
AFX_EXT_API CDesignSpecification Merged(const CDesignSpecification& base,
                                        const CDesignSpecification& mine,
                                        const CDesignSpecification& theirs,
                                        std::span<const Side> sides = {});

} // namespace designspec
