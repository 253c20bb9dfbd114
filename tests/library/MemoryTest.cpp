// What the library says when memory ends, wherever that is: no call of another module throws.
#include "tests/support/Allocations.h"
#include "tests/support/LibraryTest.h"

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
            FailAllocationAfter(at);
            const bool done = work();
            const bool allWorked = IsFailureDue();
            FailAllocationAfter(-1);
            if (!done) {
                ++failed;
                EXPECT_NE(m_trace.Text().find(L"内存不足"), CString::npos)
                    << at << ": " << ToUtf8(m_trace.Text());
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
