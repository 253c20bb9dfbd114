// Finds page titles, captions, values and data sources of a specification, wherever they stand on
// its pages.
#pragma once

#include <optional>

#include "model/PageLayout.h"
#include "search/SearchWords.h"

namespace designspec {

// A place on a page.
struct SearchHit {
    enum class Kind {
        Page,    // its title
        Limit,   // a value that stands alone, or its caption
        Heading, // of one of several tables: 最大超高 6%
        Row,     // its caption
        Cell,
        Source, // a text that says where limits come from
    };

    Kind kind = Kind::Page;
    const CriterionInfo* page = nullptr;
    const Field* field = nullptr; // of a limit or a source
    // As LayOut has them; empty where there is none.
    CString heading = {};
    CString row = {};     // also the caption of a limit or a source
    CString column = {};  // without a unit: 60
    bool isSpeed = false; // the column
    CString text = {};    // the value with its unit, or the source; of captions empty

    // Below the page's title: 最大超高 6% · 设超高最小半径(m) · 60 km/h. Empty for a page.
    CString Place() const;
};

// As the specification was when this was made; for one thread at a time. Some words are in a place
// when one of them is in its own text and the others are there or in what stands over it: page
// title, heading, caption, speed. So 半径 60 finds what rows of radii have at 60 km/h.
class SpecificationIndex {
public:
    explicit SpecificationIndex(const CDesignSpecification& specification);
    explicit SpecificationIndex(const std::vector<PageLayout>& pages);
    SpecificationIndex(SpecificationIndex&& other) noexcept;
    SpecificationIndex& operator=(SpecificationIndex&& other) noexcept;
    ~SpecificationIndex();

    // At most so many, in the order of the pages and, on each, of what stands there; nothing for no
    // words.
    std::vector<SearchHit> Find(const SearchWords& words, std::size_t most = kAll) const;
    // The first of them, sooner.
    std::optional<SearchHit> First(const SearchWords& words) const;

private:
    static constexpr std::size_t kAll = static_cast<std::size_t>(-1);
    struct Page;
    class Search;

    std::vector<Page> m_pages;
};

} // namespace designspec
