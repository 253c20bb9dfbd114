#include "c/Handles.h"

namespace designspec {

namespace {

// A handle is the place of its slot, from 1, below the turn in which that was given away.
constexpr int kPlaceBits = 32;
static_assert(sizeof(void*) == 8);

std::uint64_t NumberOf(const void* handle)
{
    return reinterpret_cast<std::uint64_t>(handle);
}

} // namespace

Handles& Handles::All()
{
    static Handles* const all = new Handles; // callers may end after this library's statics
    return *all;
}

void* Handles::Add(HandleKind kind, std::shared_ptr<void> object)
{
    const std::lock_guard lock(m_lock);
    if (m_free.empty()) {
        m_free.reserve(m_slots.size() + 1); // so that giving back cannot fail
        m_slots.emplace_back();
        m_free.push_back(static_cast<std::uint32_t>(m_slots.size() - 1));
    }
    const std::uint32_t place = m_free.back();
    m_free.pop_back();
    Slot& slot = m_slots[place];
    ++slot.turn;
    slot.kind = kind;
    slot.object = std::move(object);
    const std::uint64_t number = (std::uint64_t{slot.turn} << kPlaceBits) | (place + 1U);
    return reinterpret_cast<void*>(number); // NOLINT(performance-no-int-to-ptr): never followed
}

const Handles::Slot* Handles::SlotOf(const void* handle, HandleKind kind) const
{
    const std::uint64_t number = NumberOf(handle);
    const std::uint64_t place = number & 0xFFFFFFFFU;
    if (place == 0 || place > m_slots.size()) return nullptr;
    const Slot& slot = m_slots[place - 1];
    return slot.object && slot.kind == kind && slot.turn == number >> kPlaceBits ? &slot : nullptr;
}

std::shared_ptr<void> Handles::Find(const void* handle, HandleKind kind) const
{
    const std::lock_guard lock(m_lock);
    const Slot* const slot = SlotOf(handle, kind);
    return slot ? slot->object : nullptr;
}

std::shared_ptr<void> Handles::Take(const void* handle, HandleKind kind)
{
    const std::lock_guard lock(m_lock);
    if (!SlotOf(handle, kind)) return nullptr;
    const auto place = static_cast<std::uint32_t>((NumberOf(handle) & 0xFFFFFFFFU) - 1);
    m_free.push_back(place);
    return std::move(m_slots[place].object); // ends when the lock is open again
}

} // namespace designspec
