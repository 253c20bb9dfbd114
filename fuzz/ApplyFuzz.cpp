// A JSON document of any bytes for the command apply.
#include "cli/JsonReading.h"
#include "fuzz/StoredAndLoaded.h"

using namespace designspec;

FUZZ(bytes)
{
    CDesignSpecification specification;
    JsonReading reading(bytes, L"fuzz.json");
    reading.ApplyTo(specification);
    if (!reading.Problems().empty()) return 0;

    // What was taken is what files keep, and taking it again changes nothing.
    Require(StoredAndLoaded(specification) == specification);
    const CDesignSpecification once = specification;
    reading.ApplyTo(specification);
    Require(reading.Problems().empty() && specification == once);
    return 0;
}
