// The specifications that a document of styles holds.
#pragma once

#include <functional>
#include <memory>

#include "base/Problem.h"
#include "model/DesignSpecification.h"
#include "platform/vmrd/VMRDEnv/StyleFile.h"

namespace designspec {

// The name of the library in files and in the style manager.
inline constexpr wchar_t kLibraryName[] = L"设计规范";

struct ReadSpecification {
    std::unique_ptr<CDesignSpecification> specification;
    int line = 0;               // where it stands in its file
    bool hasID = true;          // false: the file gives no identity, it has a new one each time
    CXTPPropExchange section{}; // its own
};

struct ReadDocument {
    std::vector<ReadSpecification> specifications; // in the document's order
    bool isAll = true; // false: the document holds something else besides, or one was left out
};

// Reads them. One whose name is not `wanted` is passed over with a note. One is left out of which a
// value cannot be read, as a limit that is silently another one is worse than none, or whose name
// is longer than any file's. All are when they would take memory out of proportion to the document.
// What is wrong or odd is added to the problems of the file at `path`.
ReadDocument ReadSpecifications(const CXTPPropExchangeXMLNode& root, const CString& path,
                                const std::function<bool(const CString&)>& wanted,
                                Problems& problems);

} // namespace designspec
