// Arrays of records within records, each record an element of its own.
#pragma once

#include "model/GrowArray.h"
#include "platform/xtp/PropExchange.h"

namespace designspec {

// Stores each entry into a new child element `name`, or appends one entry for each such child;
// `exchange(pPX, entry)` does the one entry, in compact mode.
template <class T, class Exchange>
void ExchangeEach(CXTPPropExchange* pPX, const wchar_t* name, GrowArray<T>& entries,
                  Exchange exchange)
{
    const auto exchangeOne = [&exchange](CXTPPropExchange& section, T& entry) {
        section.EnableCompactMode(true);
        exchange(&section, entry);
    };
    if (pPX->IsStoring()) {
        for (T& entry : entries) {
            CXTPPropExchange section = pPX->AppendSection(name);
            exchangeOne(section, entry);
        }
        return;
    }
    for (CXTPPropExchange section = pPX->FindSection(name); section.IsSectionExists();
         section.MoveToNext())
        exchangeOne(section, entries.Add({}));
}

// The same within a child element `key`, which storing makes anew. Loading empties the array
// first; it stays empty when there is no such element.
template <class T, class Exchange>
void ExchangeArray(CXTPPropExchange* pPX, const wchar_t* key, const wchar_t* name,
                   GrowArray<T>& entries, Exchange exchange)
{
    if (pPX->IsLoading()) entries.RemoveAll();
    CXTPPropExchange section = pPX->IsStoring() ? pPX->ReplaceSection(key) : pPX->FindSection(key);
    if (section.IsSectionExists()) ExchangeEach(&section, name, entries, exchange);
}

} // namespace designspec
