// The pages of the main dialog.
#pragma once

#include <memory>
#include <span>

#include "pages/framework/DSPage.h"

struct PageEntry {
    const wchar_t* group; // of the tree
    const wchar_t* label;
    // `before` is the page of the entry before, which a page may know; null for the first, and
    // when that page could not be created.
    std::unique_ptr<CDSPage> (*make)(CDSPage* before);
};

// In the order of the tree, which is also the order in which they are checked and saved.
std::span<const PageEntry> PageTable();
