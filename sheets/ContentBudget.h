// How much a file may come to: what takes more than is in proportion to its size is not read.
#pragma once

#include <cstddef>
#include <stdexcept>

namespace designspec {

struct TooMuchContent : std::runtime_error {
    TooMuchContent() : std::runtime_error("too much content") {}
};

class ContentBudget {
public:
    ContentBudget(std::size_t cells, std::size_t characters)
        : m_cells(cells), m_characters(characters)
    {
    }
    // One more cell with a text of that length; throws when that is too much.
    void Take(std::size_t characters)
    {
        if (m_cells == 0 || m_characters < characters) throw TooMuchContent();
        --m_cells;
        m_characters -= characters;
    }

private:
    std::size_t m_cells, m_characters;
};

} // namespace designspec
