#include "cli/Listing.h"

void Listing::Print(bool asJson) const
{
    if (asJson) return PrintJson(json);
    for (const CString& line : table.Lines(0))
        PrintLine(line);
}
