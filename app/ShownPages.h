// The pages of the main dialog as they lie before the user: also what cannot be saved as it is.
#pragma once

#include "model/PageLayout.h"
#include "pages/framework/DSPage.h"

// `layout` is that of what the page could store; what is entered on the page takes its place.
designspec::PageLayout AsShown(const CDSPage& page, designspec::PageLayout layout);
