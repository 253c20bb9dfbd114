// What many wrote into one place and when, as far as they know themselves: no two of them share a
// clock with the place, so each only knows when it began and when it was told that it was done.
#pragma once

#include <algorithm>
#include <chrono>
#include <vector>

struct Span {
    using Clock = std::chrono::steady_clock;
    Clock::time_point begin = Clock::now();
    Clock::time_point end{};

    bool IsBefore(const Span& other) const { return end < other.begin; }
};

template <class Value> class WriteHistory {
public:
    void Add(const Span& span, Value value) { m_writes.push_back({span, std::move(value)}); }
    bool IsEmpty() const { return m_writes.empty(); }

    // Whether somebody who read in that time may have found it: it was written by then, and not
    // written over for certain.
    bool MayBe(const Value& value, const Span& read) const
    {
        return std::any_of(m_writes.begin(), m_writes.end(), [&](const Write& write) {
            return write.value == value && !read.IsBefore(write.span) && !IsOver(write, read);
        });
    }

private:
    struct Write {
        Span span;
        Value value;
    };
    bool IsOver(const Write& write, const Span& read) const
    {
        return std::any_of(m_writes.begin(), m_writes.end(), [&](const Write& other) {
            return write.span.IsBefore(other.span) && other.span.IsBefore(read);
        });
    }

    std::vector<Write> m_writes;
};
