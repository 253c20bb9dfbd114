// Searches many specifications as somebody types.
#pragma once

#include <unordered_map>

#include "platform/windows/GuidHash.h"
#include "search/SpecificationIndex.h"

namespace designspec {

// Keeps what it has made of each specification, by its identity, for the next search, as long as
// that has not changed; also when it was read anew. An empty one lets go of all. For one thread at
// a time.
class SpecificationIndexes {
public:
    // Good until the next call.
    const SpecificationIndex& Of(const CDesignSpecification& specification);

    // Whether the words are in the specification, and where first; its name is not looked at.
    std::optional<SearchHit> First(const CDesignSpecification& specification,
                                   const SearchWords& words)
    {
        return Of(specification).First(words);
    }

private:
    struct Entry {
        explicit Entry(const CDesignSpecification& specification)
            : made(specification), index(specification)
        {
        }

        CDesignSpecification made; // what the index was made of
        SpecificationIndex index;
    };

    std::unordered_map<GUID, Entry, GuidHash> m_entries;
};

} // namespace designspec
