// Deleted styles are set aside, not lost: their files go to the folder 已删除 inside the library
// folder, from where they can be brought back. The library does not read files there.
#pragma once

#include "platform/mfc/Export.h"
#include "platform/mfc/String.h"
#include "platform/vmrd/VMRDEnv/Styles.h"

struct DeletedStyle {
    CString file; // name, in DeletedStylesFolder
    CString name; // of the first style in it
    GUID id;
};

// The folder of a project that holds the files of its styles.
inline constexpr wchar_t kStylesFolder[] = L"规范";
// That of the current project: PRJ\规范.
AFX_EXT_API CString StylesFolder();
// PRJ\规范\已删除.
AFX_EXT_API CString DeletedStylesFolder();

// Sets the style of a file of the library folder aside. A file that holds other styles too keeps
// them: a copy of it goes to the deleted ones, and the style is taken out of it. A file that
// holds but one style is taken to hold that one. A file of that name set aside earlier stays: the
// new one gets "(1)", "(2)" … behind its name. False, with a trace line, when that failed or the
// file does not hold the style; then the file is where it was.
AFX_EXT_API bool SetStyleAside(const CStyles& styles, const CString& file, const GUID& id);

// Does so for each file of the library folder that holds the style. True when none is left.
AFX_EXT_API bool SetStyleAside(const CStyles& styles, const GUID& id);

// What has been set aside, by file name.
AFX_EXT_API std::vector<DeletedStyle> DeletedStyles(const CStyles& styles);

// Moves a file back into the library folder. False, with a trace line, when a file of that name
// is there, or the move failed. The caller updates the library.
AFX_EXT_API bool BringStyleBack(const CString& file);
