#include "print/PaperSheets.h"

namespace designspec {

namespace {

class RowPlacer {
public:
    RowPlacer(const std::vector<PaperRow>& rows, double height) : m_rows(rows), m_height(height) {}

    std::vector<PaperSheet> Place()
    {
        for (std::size_t first = 0; first < m_rows.size();) {
            const std::size_t end = EndOfGroup(first);
            if (m_rows[first].startsSheet || !Fits(first, end)) StartSheet(first);
            for (; first < end; ++first)
                Place(first);
        }
        return std::move(m_sheets);
    }

private:
    // Behind the rows that stand together.
    std::size_t EndOfGroup(std::size_t first) const
    {
        while (first + 1 < m_rows.size() && m_rows[first].keepsNext &&
               !m_rows[first + 1].startsSheet)
            ++first;
        return first + 1;
    }
    bool Fits(std::size_t first, std::size_t end) const
    {
        double needed = 0;
        for (std::size_t i = first; i < end; ++i)
            needed += m_rows[i].before + m_rows[i].height;
        return m_used + needed <= m_height;
    }
    void StartSheet(std::size_t next)
    {
        if (m_sheets.back().empty()) return;
        m_sheets.emplace_back();
        m_used = 0;
        if (m_rows[next].head < 0) return;
        const auto head = static_cast<std::size_t>(m_rows[next].head);
        if (m_rows[head].height + m_rows[next].height <= m_height) Put(head);
    }
    void Place(std::size_t row)
    {
        if (!Fits(row, row + 1)) StartSheet(row); // the group is higher than a sheet
        Put(row);
    }
    void Put(std::size_t row)
    {
        if (!m_sheets.back().empty()) m_used += m_rows[row].before;
        m_sheets.back().push_back({row, m_used});
        m_used += m_rows[row].height;
    }

    const std::vector<PaperRow>& m_rows;
    const double m_height;
    std::vector<PaperSheet> m_sheets = std::vector<PaperSheet>(1);
    double m_used = 0;
};

} // namespace

std::vector<PaperSheet> PlaceRows(const std::vector<PaperRow>& rows, double height)
{
    return RowPlacer(rows, height).Place();
}

} // namespace designspec
