#include "base/SideBySide.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <mutex>
#include <system_error>
#include <thread>
#include <vector>

namespace designspec {

namespace {

constexpr size_t kMostThreads = 8; // a machine of many cores has more to do than this

class Pieces {
public:
    Pieces(size_t count, const std::function<void(size_t)>& work) : m_count(count), m_work(work) {}

    // On each of the threads.
    void Work()
    {
        try {
            for (size_t i = m_next++; i < m_count; i = m_next++)
                m_work(i);
        } catch (...) {
            const std::lock_guard lock(m_failing);
            if (!m_failure) m_failure = std::current_exception();
            m_next = m_count;
        }
    }
    // When all threads have ended.
    void TellFailure() const
    {
        if (m_failure) std::rethrow_exception(m_failure);
    }

private:
    const size_t m_count;
    const std::function<void(size_t)>& m_work;
    std::atomic<size_t> m_next = 0;
    std::mutex m_failing;
    std::exception_ptr m_failure;
};

} // namespace

void SideBySide(size_t count, size_t threads, const std::function<void(size_t)>& work)
{
    Pieces pieces(count, work);
    {
        std::vector<std::jthread> others;
        try {
            for (size_t i = 1; i < std::min(count, threads); ++i)
                others.emplace_back([&pieces] { pieces.Work(); });
        } catch (const std::system_error&) { // there are no more to be had
        }
        pieces.Work();
    }
    pieces.TellFailure();
}

size_t ThreadsFor(size_t count, size_t least)
{
    const size_t wanted = std::min(count / least, kMostThreads);
    return wanted < 2 ? 1 : std::clamp<size_t>(std::thread::hardware_concurrency(), 1, wanted);
}

} // namespace designspec
