#include "host/HostApplication.h"

#include <new>

#include "tests/host/HostTest.h"
#include "tests/support/TraceCapture.h"

namespace {

class HostApplicationTest : public HostTest {};

TEST_F(HostApplicationTest, LivesOnWhenMemoryEnds)
{
    const TraceCapture trace;
    EXPECT_FALSE(HostApplication::Survive([]() -> bool { throw std::bad_alloc(); }));
    ASSERT_EQ(trace.Lines().size(), 1U);
    EXPECT_EQ(trace.Lines()[0].severity, TraceLevel::Error);
    EXPECT_EQ(trace.Lines()[0].text, L"内存不足,操作没有完成");
    EXPECT_TRUE(HostApplication::Survive([] { return true; }));
    EXPECT_FALSE(HostApplication::Survive([] { return false; }));
    EXPECT_EQ(trace.Lines().size(), 1U);
}

} // namespace
