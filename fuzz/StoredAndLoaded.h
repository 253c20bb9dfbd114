// A specification as it comes back from a file.
#pragma once

#include "fuzz/Fuzz.h"
#include "model/DesignSpecification.h"
#include "platform/xtp/PropExchangeXMLNode.h"

inline CDesignSpecification StoredAndLoaded(CDesignSpecification specification)
{
    CXTPPropExchangeXMLNode stored(false, L"Root");
    specification.DoPropExchange(&stored);
    CXTPPropExchangeXMLNode loaded(true, L"Root");
    Require(loaded.LoadFromBytes(stored.SaveToBytes(), L"fuzz.hds"));
    specification.DoPropExchange(&loaded);
    Require(loaded.TakeProblems().empty());
    return specification;
}
