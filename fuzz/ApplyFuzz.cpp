// A JSON document of any bytes for the command apply.
#include "cli/JsonReading.h"
#include "fuzz/Fuzz.h"
#include "platform/xtp/PropExchangeXMLNode.h"

using namespace designspec;

static CDesignSpecification StoredAndLoaded(CDesignSpecification specification)
{
    CXTPPropExchangeXMLNode stored(false, L"Root");
    specification.DoPropExchange(&stored);
    CXTPPropExchangeXMLNode loaded(true, L"Root");
    Require(loaded.LoadFromBytes(stored.SaveToBytes(), L"fuzz.hds"));
    specification.DoPropExchange(&loaded);
    Require(loaded.TakeProblems().empty());
    return specification;
}

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
