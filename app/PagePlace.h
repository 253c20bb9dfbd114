// Leads the user to a place on a page that a search has found.
#pragma once

#include "pages/framework/DSPage.h"
#include "search/SpecificationIndex.h"

// Makes the place the current one of the page, which is shown; with `enter` it gets the focus. The
// widget that is to be seen; null when the place is there no more.
QWidget* GoToPlace(CDSPage& page, const designspec::SearchHit& hit, bool enter);
