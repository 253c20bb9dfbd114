#include "c/Told.h"

#include <new>

#include "base/windows/Windows.h"

namespace designspec {

namespace {

// MinGW takes a thread's memory back before it ends what is thread_local there. The system's own
// place for each thread's data tells in time.
class Place {
public:
    Place() : m_index(FlsAlloc([](void* told) { delete static_cast<Told*>(told); })) {}
    ~Place() { FlsFree(m_index); }
    Place(const Place&) = delete;
    Place& operator=(const Place&) = delete;

    Told* Get() const
    {
        if (auto* const told = static_cast<Told*>(FlsGetValue(m_index))) return told;
        auto* const made = new (std::nothrow) Told;
        if (made && FlsSetValue(m_index, made)) return made;
        delete made;
        return nullptr;
    }

private:
    DWORD m_index;
};

} // namespace

Told& ToldHere() noexcept
{
    static Told noPlace; // where not even memory for one is left
    static const Place place;
    Told* const told = place.Get();
    return told ? *told : noPlace;
}

} // namespace designspec
