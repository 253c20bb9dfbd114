#include "platform/vmrd/VmHFCBaseU/Trace.h"

#include <gtest/gtest.h>

#include "tests/support/TraceCapture.h"

TEST(Trace, ALineShowsItsFileAndLineAsFarAsThereAreAny)
{
    EXPECT_EQ((TraceLine{TraceLevel::Error, L"a.hds", 12, L"坏"}.Text()), L"a.hds:12: 坏");
    EXPECT_EQ((TraceLine{TraceLevel::Error, L"a.hds", 0, L"坏"}.Text()), L"a.hds: 坏");
    EXPECT_EQ((TraceLine{TraceLevel::Note, L"", 12, L"好"}.Text()), L"好");
}

TEST(Trace, GoesToTheSinkThatWasSetLast)
{
    TraceCapture outer;
    {
        const TraceCapture inner;
        Trace(L"规范 共 3 条");
        TraceFile(TraceLevel::Error, L"a.hds", 2, L"坏");
        ASSERT_EQ(inner.Lines().size(), 2U);
        EXPECT_EQ(inner.Lines()[0].level, TraceLevel::Note);
        EXPECT_EQ(inner.Lines()[0].file, L"");
        EXPECT_EQ(inner.Text(), L"规范 共 3 条\na.hds:2: 坏");
    }
    EXPECT_TRUE(outer.Lines().empty());
    Trace(L"again");
    EXPECT_EQ(outer.Text(), L"again");
}

TEST(Trace, GoesToStandardErrorWithoutASink)
{
    const TraceSink before = SetTraceSink({});
    testing::internal::CaptureStderr();
    TraceFile(TraceLevel::Error, L"规范.hds", 2, L"坏");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "规范.hds:2: 坏\n");
    SetTraceSink(before);
}

TEST(Trace, ASinkMaySetAnother)
{
    int first = 0;
    int second = 0;
    const TraceSink before = SetTraceSink([&](const TraceLine&) {
        ++first;
        SetTraceSink([&](const TraceLine&) { ++second; });
    });
    Trace(L"one");
    Trace(L"two");
    SetTraceSink(before);
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 1);
}
