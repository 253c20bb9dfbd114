// The lists of the report grid: they own what is added to them, and a place of the list is a
// place of the grid.
#pragma once

#include <algorithm>
#include <memory>
#include <vector>

namespace designspec {

// What is removed lives on while the grid still shows it or could bring it back by undo.
template <class T> class ReportList {
public:
    using Elements = std::vector<std::shared_ptr<T>>;

    // Both take ownership and return what was added. A place beyond the end is the end.
    template <class Derived> Derived* Add(Derived* element)
    {
        return InsertAt(GetCount(), element);
    }
    template <class Derived> Derived* InsertAt(int index, Derived* element)
    {
        const auto place = std::clamp(index, 0, GetCount());
        m_elements.insert(m_elements.begin() + place, std::shared_ptr<T>(element));
        return element;
    }

    // False when it is not in the list or there is no such place.
    bool Remove(const T* element) { return RemoveAt(IndexOf(element)); }
    bool RemoveAt(int index)
    {
        if (index < 0 || index >= GetCount()) return false;
        m_elements.erase(m_elements.begin() + index);
        return true;
    }
    void RemoveAll() { m_elements.clear(); }

    int GetCount() const { return static_cast<int>(m_elements.size()); }
    // Null when there is no such place.
    T* GetAt(int index) const
    {
        if (index < 0 || index >= GetCount()) return nullptr;
        return m_elements[static_cast<size_t>(index)].get();
    }
    // -1 when it is not in the list.
    int IndexOf(const T* element) const
    {
        for (int i = 0; i < GetCount(); ++i)
            if (GetAt(i) == element) return i;
        return -1;
    }

    const Elements& All() const { return m_elements; }
    void Assign(Elements elements) { m_elements = std::move(elements); }

private:
    Elements m_elements;
};

} // namespace designspec
