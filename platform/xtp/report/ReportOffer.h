// What a pasted block may add to a report grid: columns of one kind, or rows.
#pragma once

#include <functional>

#include "platform/mfc/String.h"

namespace designspec {

struct ReportOffer {
    // How the user is asked: `what`, the names with 、 between them, `unit`.
    CString what = {};
    CString unit = {};
    // What a pasted caption is to be called; empty when it is none that could be added.
    std::function<CString(const CString& caption)> name = nullptr;
    // Adds what has these names, each of them once and none that is there already. Populate comes
    // after it.
    std::function<void(const CStringArray& names)> add = nullptr;
    CStringArray usual = {}; // captions that such grids often have

    bool CanAdd(const CString& caption) const { return name && !name(caption).empty(); }
};

} // namespace designspec
