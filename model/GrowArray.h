// The growable array that speed tables and their nested rows are held in. Other modules read its
// fields directly, so their order and types stay as they are.
#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <new>
#include <utility>

template <class T> struct GrowArray {
    T* entries = nullptr;      // owned; null while nothing was allocated
    std::int32_t capacity = 0; // entries allocated
    std::int32_t count = 0;    // entries in use
    std::int32_t growBy = 8;   // the least step by which the buffer grows

    GrowArray() = default;
    // This and the copy begin as an empty array, which frees what it holds when an entry throws.
    GrowArray(std::initializer_list<T> list) : GrowArray()
    {
        for (const T& entry : list)
            Add(entry);
    }
    // A copy has the source's capacity, too.
    GrowArray(const GrowArray& other) : GrowArray()
    {
        growBy = other.growBy;
        Reallocate(other.capacity);
        CopyEntries(other);
    }
    GrowArray(GrowArray&& other) noexcept { Swap(other); }
    ~GrowArray() { Reset(); }

    // Replaces the content; the buffer is kept when it is large enough.
    GrowArray& operator=(const GrowArray& other)
    {
        if (this == &other) return *this;
        RemoveAll();
        if (other.count > capacity) Reallocate(other.capacity);
        CopyEntries(other);
        return *this;
    }
    GrowArray& operator=(GrowArray&& other) noexcept
    {
        Swap(other);
        return *this;
    }

    T& Add(T entry)
    {
        if (count == capacity) Reallocate(count + std::max(GrowStep(), growBy));
        return *std::construct_at(entries + count++, std::move(entry));
    }

    // Puts `entry` before position `at` (0 to count).
    T& Insert(std::int32_t at, T entry)
    {
        Add(std::move(entry));
        std::rotate(entries + at, entries + count - 1, entries + count);
        return entries[at];
    }

    void RemoveAt(std::int32_t at)
    {
        std::move(entries + at + 1, entries + count, entries + at);
        std::destroy_at(entries + --count);
    }

    // Removes those that `is` is true of; the others keep their order.
    template <class Is> void RemoveIf(Is is)
    {
        T* const left = std::remove_if(begin(), end(), is);
        std::destroy(left, end());
        count = static_cast<std::int32_t>(left - entries);
    }

    // Makes room for that many entries in all, and for no more, when there is room for fewer.
    void Reserve(std::int32_t entriesInAll)
    {
        if (entriesInAll > capacity) Reallocate(entriesInAll);
    }

    // Empties the array and keeps the buffer.
    void RemoveAll()
    {
        std::destroy_n(entries, count);
        count = 0;
    }

    bool IsEmpty() const { return count == 0; }
    T& operator[](std::int32_t i) { return entries[i]; }
    const T& operator[](std::int32_t i) const { return entries[i]; }
    T* begin() { return entries; }
    T* end() { return entries + count; }
    const T* begin() const { return entries; }
    const T* end() const { return entries + count; }

    // The same entries in the same order; capacity and growBy do not count.
    friend bool operator==(const GrowArray& a, const GrowArray& b)
    {
        return std::equal(a.begin(), a.end(), b.begin(), b.end());
    }

private:
    // A buffer doubles until it holds 64 KiB, and grows by that much from there on.
    static constexpr std::int32_t kMaxStep = static_cast<std::int32_t>(65536 / sizeof(T));

    std::int32_t GrowStep() const { return count < kMaxStep ? count : kMaxStep; }

    void Reallocate(std::int32_t newCapacity)
    {
        T* grown = newCapacity > 0 ? std::allocator<T>().allocate(static_cast<size_t>(newCapacity))
                                   : nullptr;
        std::uninitialized_move_n(entries, count, grown);
        std::destroy_n(entries, count);
        Free();
        entries = grown;
        capacity = newCapacity;
    }

    void CopyEntries(const GrowArray& other)
    {
        std::uninitialized_copy_n(other.entries, other.count, entries);
        count = other.count;
    }

    void Free()
    {
        if (entries) std::allocator<T>().deallocate(entries, static_cast<size_t>(capacity));
    }

    void Reset()
    {
        RemoveAll();
        Free();
    }

    void Swap(GrowArray& other) noexcept
    {
        std::swap(entries, other.entries);
        std::swap(capacity, other.capacity);
        std::swap(count, other.count);
        std::swap(growBy, other.growBy);
    }
};
