// The specifications that a document of styles holds.
#pragma once

#include <functional>
#include <memory>

#include "base/Problem.h"
#include "model/DesignSpecification.h"

namespace designspec {

// The name of the library in files and in the style manager.
inline constexpr wchar_t kLibraryName[] = L"设计规范";

struct ReadSpecification {
    std::unique_ptr<CDesignSpecification> specification;
    int line = 0; // where it stands in its file
};

// Reads them in the document's order. One whose name is not `wanted` is passed over with a note.
// One of which a value cannot be read is left out: a limit that is silently another one is worse
// than none. What is wrong or odd is added to the problems of the file at `path`.
std::vector<ReadSpecification> ReadSpecifications(const CXTPPropExchange& root, const CString& path,
                                                  const std::function<bool(const CString&)>& wanted,
                                                  Problems& problems);

} // namespace designspec
