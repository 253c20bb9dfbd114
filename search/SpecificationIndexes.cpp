#include "search/SpecificationIndexes.h"

namespace designspec {

const SpecificationIndex& SpecificationIndexes::Of(const CDesignSpecification& specification)
{
    const GUID id = specification.ID();
    auto found = m_entries.find(id);
    if (found != m_entries.end() && !(found->second.made == specification)) {
        m_entries.erase(found);
        found = m_entries.end();
    }
    if (found == m_entries.end()) found = m_entries.try_emplace(id, specification).first;
    return found->second.index;
}

} // namespace designspec
