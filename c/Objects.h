// What handles stand for.
#pragma once

#include <optional>

#include "c/Calls.h"
#include "library/SpecificationFolder.h"
#include "model/SpecificationValue.h"

namespace designspec {

struct LibraryObject {
    static constexpr HandleKind kKind = HandleKind::Library;
    static constexpr wchar_t kNoHandle[] = L"不是库的句柄,或已关闭";

    std::unique_ptr<SpecificationFolder> folder;
};

// One of a library, which is looked up by its identity each time, or one of its own.
struct SpecificationObject {
    static constexpr HandleKind kKind = HandleKind::Specification;
    static constexpr wchar_t kNoHandle[] = L"不是设计规范的句柄,或已释放";

    // Ends the call when the library has it no more.
    CDesignSpecification& Get() const;

    std::shared_ptr<LibraryObject> library;
    GUID id = {};
    std::unique_ptr<CDesignSpecification> own;
};

// A table by design speed, which is looked up by its path each time.
struct TableObject {
    static constexpr HandleKind kKind = HandleKind::Table;
    static constexpr wchar_t kNoHandle[] = L"不是表的句柄,或已释放";

    // Ends the call when the specification has it no more.
    ValuePlace Get() const;

    std::shared_ptr<SpecificationObject> specification;
    ValuePath path;
};

// The path of a value or a table; refuses any other text.
ValuePath PathOf(const char* text);
// Makes the criteria of `specification` those of `changed`; refuses what the editor would.
void ChangeTo(CDesignSpecification& specification, const CDesignSpecification& changed);

} // namespace designspec
