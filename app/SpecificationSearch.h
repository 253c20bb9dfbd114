// Looks for words in the specifications of the library, as somebody types them.
#pragma once

#include <optional>

#include "search/SpecificationIndexes.h"

namespace designspec {

class SpecificationSearch {
public:
    // Where those of the words are that `told` has not, its name and what else is told of it; empty
    // when it has all. Nothing when one is nowhere.
    std::optional<CString> Find(const CDesignSpecification& specification, const CString& told,
                                const CString& words);

private:
    SpecificationIndexes m_indexes;
};

} // namespace designspec
