// Takes styles from a file into a library and into the library's own files.
#pragma once

#include "platform/vmrd/VMRDEnv/Styles.h"

struct ImportResult {
    bool read = false;   // the file could be read
    int added = 0;       // styles that the library did not have
    int overwritten = 0; // styles that it had, and that are now as in the file
    int failed = 0;      // among both, those that could not be saved
};

// `names` as in CStyles::Import. What is overwritten is not lost: its files, whatever they are
// called, go to the deleted ones before the style is saved.
ImportResult ImportStyles(CStyles& styles, const CString& path, const CStringArray& names,
                          bool overwrite);
