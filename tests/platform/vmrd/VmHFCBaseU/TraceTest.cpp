#include "platform/vmrd/VmHFCBaseU/Trace.h"

#include <gtest/gtest.h>

#include "tests/support/TraceCapture.h"

using namespace designspec;

TEST(Trace, GoesToAllWhoAreConnected)
{
    const TraceCapture outer;
    {
        const TraceCapture inner;
        Trace(L"规范 共 3 条");
        TraceFile(TraceLevel::Error, L"a.hds", 2, L"坏");
        ASSERT_EQ(inner.Lines().size(), 2U);
        EXPECT_EQ(inner.Lines()[0].severity, TraceLevel::Note);
        EXPECT_EQ(inner.Lines()[0].file, L"");
        EXPECT_EQ(inner.Text(), L"规范 共 3 条\na.hds:2: 坏");
    }
    Trace(L"again");
    EXPECT_EQ(outer.Text(), L"规范 共 3 条\na.hds:2: 坏\nagain");
}

TEST(Trace, TellsProblemsInTheirOrder)
{
    const TraceCapture capture;
    TraceProblems({{TraceLevel::Error, L"a.hds", 1, L"坏"}, {TraceLevel::Note, L"", 0, L"好"}});
    EXPECT_EQ(capture.Text(), L"a.hds:1: 坏\n好");
}

TEST(Trace, GoesToStandardErrorWhileNobodyIsConnected)
{
    testing::internal::CaptureStderr();
    TraceFile(TraceLevel::Error, L"规范.hds", 2, L"坏");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "规范.hds:2: 坏\n");
}
