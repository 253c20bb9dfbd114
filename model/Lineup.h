// Puts several sequences into one line, in which each stands in its own order.
#pragma once

#include <vector>

namespace designspec {

template <class T> class Lineup {
public:
    // Where two items stand in no sequence together, `before(a, b)` may say which one comes first.
    // Items of sequences that are ordered so stand in that order.
    template <class Before> void Add(const std::vector<T>& sequence, Before before)
    {
        std::size_t at = 0;
        for (const T& item : sequence) {
            const std::size_t found = Find(at, item, before);
            if (found == m_items.size() || !(m_items[found] == item)) {
                while (at < m_items.size() && before(m_items[at], item))
                    ++at;
                m_items.insert(m_items.begin() + static_cast<std::ptrdiff_t>(at), item);
            } else {
                at = found;
            }
            ++at;
        }
    }
    void Add(const std::vector<T>& sequence)
    {
        Add(sequence, [](const T&, const T&) { return false; });
    }

    const std::vector<T>& Items() const { return m_items; }

    // The places of a sequence that was added.
    std::vector<std::size_t> Places(const std::vector<T>& sequence) const
    {
        std::vector<std::size_t> places;
        std::size_t at = 0;
        for (const T& item : sequence) {
            while (!(m_items[at] == item))
                ++at;
            places.push_back(at++);
        }
        return places;
    }

private:
    // The next one like it; where one comes first that is to stand behind it, that one.
    template <class Before> std::size_t Find(std::size_t at, const T& item, Before before) const
    {
        while (at < m_items.size() && !(m_items[at] == item) && !before(item, m_items[at]))
            ++at;
        return at;
    }

    std::vector<T> m_items;
};

} // namespace designspec
