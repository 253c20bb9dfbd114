// Paths of sections within an XML document: steps joined by "/", each NAME or
// NAME[@ATTRIBUTE="VALUE"].
#pragma once

#include <string_view>

namespace designspec {

// One step of a section path.
struct PathStep {
    std::wstring_view name;
    std::wstring_view attribute; // empty: any element of that name
    std::wstring_view value;
};

// Takes the first step off `path`. What cannot be read as steps is dropped.
PathStep TakeStep(std::wstring_view& path);

} // namespace designspec
