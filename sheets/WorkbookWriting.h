// Specifications as workbooks (.xlsx): a sheet for each page of the editor, captions and order as
// there, behind a first one that says what it is of.
#pragma once

#include "base/Problem.h"
#include "model/DesignSpecification.h"

namespace designspec {

struct WorkbookStamp {
    CString date;    // 2026-11-22
    CString program; // name and version
};

// Writes a workbook of the specifications, which are at least one: of several the values stand
// beside each other, each with the name, and those that differ are marked. The file is written
// whole or not at all. False with a problem when it cannot be written, or when a specification has
// more than a sheet can hold.
bool WriteWorkbook(const CString& path,
                   const std::vector<const CDesignSpecification*>& specifications,
                   const WorkbookStamp& stamp, Problems& problems);
// Where the workbook of a specification goes in a folder; empty when its name cannot be a file's.
CString WorkbookIn(const CString& folder, const CDesignSpecification& specification);
// Writes one for each specification there, into a folder that is made when it is not there. False
// with a problem when one could not be written; those before it are.
bool WriteWorkbooks(const CString& folder,
                    const std::vector<const CDesignSpecification*>& specifications,
                    const WorkbookStamp& stamp, Problems& problems);
// Today.
WorkbookStamp StampOf(const CString& program);

inline constexpr wchar_t kWorkbookEnding[] = L".xlsx";
// What the first sheet and its captions are called.
inline constexpr wchar_t kFirstSheet[] = L"设计规范";
inline constexpr wchar_t kTogetherTitle[] = L"设计规范对照";
inline constexpr wchar_t kNameCaption[] = L"名称";
inline constexpr wchar_t kIdentityCaption[] = L"GUID";

} // namespace designspec
