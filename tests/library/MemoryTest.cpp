// What the library says when memory ends, wherever that is: no call of another module throws.
#include <atomic>
#include <cstdlib>
#include <new>

#include "tests/support/LibraryTest.h"

namespace {

std::atomic<int> g_left = -1; // allocations until one fails; below 0: none does

} // namespace

// These replace the system's own everywhere in the program.
void* operator new(size_t size, const std::nothrow_t&) noexcept
{
    if (g_left >= 0 && g_left-- == 0) return nullptr;
    return std::malloc(size ? size : 1);
}

void* operator new(size_t size)
{
    if (void* memory = operator new(size, std::nothrow)) return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, size_t) noexcept
{
    std::free(memory);
}

namespace {

class Memory : public LibraryTest {
protected:
    // Runs `work` in a library of two with its 1st, 2nd … allocation failing, until none fails any
    // more; `work` says whether it was done.
    template <class Work> void FailEachInTurn(const Work& work)
    {
        int failed = 0;
        for (int at = 0;; at += 1 + at / 16) {
            ASSERT_LT(at, 1000000);
            CDesignSpecifications::Destroy();
            Library().Update();
            m_trace.Clear();
            g_left = at;
            const bool done = work();
            const bool allWorked = g_left >= 0;
            g_left = -1;
            if (!done) {
                ++failed;
                EXPECT_NE(m_trace.Text().find(L"内存不足"), CString::npos) << at;
            }
            Reload();
            ASSERT_EQ(MarkOf(L"b"), 2) << at;
            if (allWorked) break;
        }
        EXPECT_GT(failed, 10);
    }

    Memory()
    {
        AddSaved(Make(L"a", 1, kIdA));
        AddSaved(Make(L"b", 2, kIdB));
    }
};

} // namespace

TEST_F(Memory, LoadingTellsThatItEnded)
{
    FailEachInTurn([] {
        Library().Update();
        return Library().Count() == 2;
    });
}

TEST_F(Memory, SavingTellsThatItEnded)
{
    FailEachInTurn([] { return Library().Save(&At(0)); });
}

TEST_F(Memory, ExportTellsThatItEnded)
{
    const CString path = m_project.Path(L"out.hds");
    FailEachInTurn([&] { return Library().Export(path.c_str(), {}, nullptr); });
}

TEST_F(Memory, ImportTellsThatItEnded)
{
    const CString path = m_project.Write("in.hds", Envelope(Style("c", kIdC, 3)));
    FailEachInTurn([&] {
        const StyleImport result = Library().ImportAndSave(path, {}, true);
        return result.read && result.failed == 0;
    });
}
