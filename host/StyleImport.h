// Takes styles from a file into a library and into the library's own files.
#pragma once

#include "platform/vmrd/VMRDEnv/Styles.h"

struct ImportResult {
    bool read = false;   // the file could be read
    int added = 0;       // styles that the library did not have
    int overwritten = 0; // styles that it had, and that are now as in the file
    int failed = 0;      // among both, those that could not be saved
};

// `names` as in CStyles::Import. A style that comes under another name than it had leaves its
// file of the old name among the deleted ones.
ImportResult ImportStyles(CStyles& styles, const CString& path, const CStringArray& names,
                          bool overwrite);
