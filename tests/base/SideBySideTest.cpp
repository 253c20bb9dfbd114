#include "base/SideBySide.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <mutex>
#include <set>
#include <stdexcept>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

using namespace designspec;

namespace {

TEST(SideBySide, DoesEachPieceOnce)
{
    for (const size_t count : {0U, 1U, 2U, 3U, 1000U}) {
        for (const size_t threads : {0U, 1U, 2U, 4U, 7U}) {
            std::vector<std::atomic<int>> done(count);
            SideBySide(count, threads, [&](size_t i) { ++done[i]; });
            for (const auto& times : done)
                EXPECT_EQ(times, 1);
        }
    }
}

TEST(SideBySide, OneThreadIsTheCallersAndKeepsTheOrder)
{
    const std::thread::id caller = std::this_thread::get_id();
    std::vector<size_t> order;
    SideBySide(100, 1, [&](size_t i) {
        EXPECT_EQ(std::this_thread::get_id(), caller);
        order.push_back(i);
    });
    ASSERT_EQ(order.size(), 100U);
    EXPECT_TRUE(std::is_sorted(order.begin(), order.end()));
}

// Each piece waits until all others have begun: on fewer threads none would end.
TEST(SideBySide, RunsAsManyAtATimeAsThereAreThreads)
{
    constexpr size_t kThreads = 3;
    std::mutex mutex;
    std::condition_variable all;
    std::set<std::thread::id> threads;
    SideBySide(kThreads, kThreads, [&](size_t) {
        std::unique_lock lock(mutex);
        threads.insert(std::this_thread::get_id());
        all.notify_all();
        all.wait(lock, [&] { return threads.size() == kThreads; });
    });
    EXPECT_TRUE(threads.contains(std::this_thread::get_id()));
}

TEST(SideBySide, WhatAPieceThrowsEndsTheWorkAndIsThrown)
{
    for (const size_t threads : {1U, 4U}) {
        std::atomic<size_t> done = 0;
        EXPECT_THROW(SideBySide(100000, threads,
                                [&](size_t i) {
                                    if (i == 10) throw std::runtime_error("no");
                                    ++done;
                                }),
                     std::runtime_error);
        EXPECT_GE(done, threads == 1 ? 10U : 0U);
        EXPECT_LT(done, 99999U);
    }
}

TEST(SideBySide, ThreadsAreForManyPieces)
{
    const size_t cores = std::max(1U, std::thread::hardware_concurrency());
    EXPECT_EQ(ThreadsFor(0, 16), 1U);
    EXPECT_EQ(ThreadsFor(31, 16), 1U);
    EXPECT_EQ(ThreadsFor(32, 16), std::min<size_t>(cores, 2));
    EXPECT_EQ(ThreadsFor(1000000, 16), std::min<size_t>(cores, 8));
}

} // namespace
