#include "search/SpecificationIndexes.h"

namespace designspec {

const SpecificationIndex& SpecificationIndexes::Of(const CDesignSpecification& specification)
{
    // Another one that has come to the same place is noticed as a change is.
    auto found = m_entries.find(&specification);
    if (found != m_entries.end() && !(found->second.made == specification)) {
        m_entries.erase(found);
        found = m_entries.end();
    }
    if (found == m_entries.end())
        found = m_entries.try_emplace(&specification, specification).first;
    return found->second.index;
}

} // namespace designspec
