// Values by text, ignoring case. Made to be found in: a look into a table of hashes, which nearly
// always leads to the right place at once, where text and value stand side by side.
#pragma once

#include <cstddef>
#include <cstring>
#include <memory>
#include <memory_resource>
#include <string_view>
#include <vector>

#include "base/NoCase.h"

namespace designspec {

template <class T> class NoCaseMap {
public:
    // A text and its value; stays where it is until it is erased.
    class Node {
    public:
        std::wstring_view Folded() const { return m_folded; }
        T value{};

    private:
        friend NoCaseMap;
        size_t m_hash = 0;
        std::wstring_view m_folded; // behind the node
    };

    NoCaseMap() = default;
    ~NoCaseMap() { Clear(); }
    NoCaseMap(const NoCaseMap&) = delete;
    NoCaseMap& operator=(const NoCaseMap&) = delete;

    size_t Size() const { return m_size; }

    // Null when there is none of that text.
    Node* Find(const NoCaseText& text) const { return Find(text.Folded(), text.HashCode()); }

    // The one of that text, which is folded already; with an empty value when it is new.
    Node& Enter(std::wstring_view folded)
    {
        const size_t hash = HashOfFolded(folded);
        if (Node* const known = Find(folded, hash)) return *known;
        if ((m_size + 1) * 2 > m_slots.size()) Grow();
        Node* const made = Make(folded, hash);
        Put({hash, made});
        ++m_size;
        return *made;
    }

    // Those behind it that are not at their own place move up: a search ends at an empty slot.
    void Erase(Node& node)
    {
        size_t hole = Home(node.m_hash);
        while (m_slots[hole].node != &node)
            hole = Next(hole);
        for (size_t at = Next(hole); m_slots[at].node; at = Next(at)) {
            if (((at - Home(m_slots[at].hash)) & Mask()) < ((at - hole) & Mask())) continue;
            m_slots[hole] = m_slots[at];
            hole = at;
        }
        m_slots[hole] = {};
        --m_size;
        Drop(&node);
    }

    void Clear()
    {
        for (const Slot& slot : m_slots)
            if (slot.node) Drop(slot.node);
        m_slots.clear();
        m_size = 0;
    }

private:
    struct Slot {
        size_t hash = 0;
        Node* node = nullptr; // owned
    };

    Node* Find(std::wstring_view folded, size_t hash) const
    {
        if (m_slots.empty()) return nullptr;
        for (size_t at = Home(hash);; at = Next(at)) {
            const Slot& slot = m_slots[at];
            if (!slot.node || (slot.hash == hash && slot.node->m_folded == folded))
                return slot.node;
        }
    }

    // There are 2^n slots, at most half of them in use.
    size_t Mask() const { return m_slots.size() - 1; }
    size_t Home(size_t hash) const { return hash & Mask(); }
    size_t Next(size_t at) const { return (at + 1) & Mask(); }

    void Put(const Slot& slot)
    {
        size_t at = Home(slot.hash);
        while (m_slots[at].node)
            at = Next(at);
        m_slots[at] = slot;
    }

    void Grow()
    {
        std::vector<Slot> old(m_slots.empty() ? 16 : m_slots.size() * 2);
        old.swap(m_slots);
        for (const Slot& slot : old)
            if (slot.node) Put(slot);
    }

    static size_t SizeOf(std::wstring_view folded)
    {
        return sizeof(Node) + folded.size() * sizeof(wchar_t);
    }

    Node* Make(std::wstring_view folded, size_t hash)
    {
        void* const place = m_pool.allocate(SizeOf(folded), alignof(Node));
        Node* const made = new (place) Node;
        auto* const text = reinterpret_cast<wchar_t*>(made + 1);
        std::uninitialized_copy(folded.begin(), folded.end(), text);
        made->m_folded = {text, folded.size()};
        made->m_hash = hash;
        return made;
    }

    void Drop(Node* node)
    {
        const size_t size = SizeOf(node->m_folded);
        std::destroy_at(node);
        m_pool.deallocate(node, size, alignof(Node));
    }

    // All that is searched stands close together, on few pages. Larger pieces of memory would
    // leave more of it unused.
    std::pmr::unsynchronized_pool_resource m_pool{{.max_blocks_per_chunk = 64}};
    std::vector<Slot> m_slots;
    size_t m_size = 0;
};

} // namespace designspec
