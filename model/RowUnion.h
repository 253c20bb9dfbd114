// The rows that a table has on any of three sides, each once: what a comparison of the table goes
// over.
#pragma once

#include <array>
#include <vector>

#include "model/FieldValue.h"

namespace designspec {

// What is compared: what was there, and what two people made of it.
enum Party : std::size_t { kBase, kMine, kTheirs };
inline constexpr std::size_t kParties = 3;
// What a field is a member of on each side; null where there is none.
using Objects = std::array<const void*, kParties>;

class AFX_EXT_CLASS RowUnion {
public:
    // Rows of equal keys are told apart by their number: the second one of a side is the same row
    // as the second one of the others.
    struct Row {
        std::vector<Value> keys;
        int number = 0; // of the rows with these keys before it
        Objects of{};   // the row itself
    };

    RowUnion(const Field& rows, const Objects& objects);

    const Row& operator[](std::size_t row) const { return m_rows[row]; }

    // All rows, as `first` has them; what else `second`, and then the base, has stands behind the
    // one that it follows there, and in the order of the table where that is kept in one.
    std::vector<std::size_t> Sequence(Party first, Party second) const;
    // Whether the rows that both have stand in different orders.
    bool IsMoved(Party a, Party b) const;
    // The rows of one side, as it has them.
    const std::vector<std::size_t>& Order(Party party) const { return m_orders[party]; }

private:
    AFX_EXT_PRIVATE std::vector<std::size_t> Common(Party party, Party other) const;
    AFX_EXT_PRIVATE bool StandsBefore(std::size_t a, std::size_t b) const;

    RowOrder m_order;
    std::vector<Row> m_rows;
    std::array<std::vector<std::size_t>, kParties> m_orders;
};

} // namespace designspec
