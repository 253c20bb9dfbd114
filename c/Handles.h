// What callers in C hold: handles that stand for objects. A handle that has ended, or is of another
// kind, is known as that and never followed: it is a number that is looked up, and no number comes
// twice.
#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <vector>

namespace designspec {

enum class HandleKind : std::uint8_t { Library, Specification, Table, Differences, RoadCheck };

// Any number of threads may use it at once.
class Handles {
public:
    // Those of the process.
    static Handles& All();

    // Never null.
    void* Add(HandleKind kind, std::shared_ptr<void> object);
    // Null when it stands for nothing of that kind.
    std::shared_ptr<void> Find(const void* handle, HandleKind kind) const;
    // The same, and it stands for nothing from here on.
    std::shared_ptr<void> Take(const void* handle, HandleKind kind);

private:
    struct Slot {
        std::uint32_t turn = 0; // how often it has been given away
        HandleKind kind = {};
        std::shared_ptr<void> object;
    };
    // Null, or the slot that the handle stands for.
    const Slot* SlotOf(const void* handle, HandleKind kind) const;

    mutable std::mutex m_lock;
    std::vector<Slot> m_slots;
    std::vector<std::uint32_t> m_free;
};

} // namespace designspec
