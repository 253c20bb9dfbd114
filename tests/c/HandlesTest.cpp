#include "c/Handles.h"

#include <atomic>
#include <set>
#include <thread>

#include <gtest/gtest.h>

namespace designspec {

namespace {

constexpr HandleKind kKind = HandleKind::Table, kOther = HandleKind::Library;

TEST(Handles, StandForTheirObjectsUntilTheyAreTaken)
{
    Handles handles;
    const auto object = std::make_shared<int>(7);
    void* const handle = handles.Add(kKind, object);
    EXPECT_NE(handle, nullptr);
    EXPECT_EQ(handles.Find(handle, kKind), object);
    EXPECT_EQ(handles.Find(handle, kOther), nullptr);
    EXPECT_EQ(handles.Take(handle, kOther), nullptr);
    EXPECT_EQ(handles.Take(handle, kKind), object);
    EXPECT_EQ(handles.Find(handle, kKind), nullptr);
    EXPECT_EQ(handles.Take(handle, kKind), nullptr);
}

TEST(Handles, AreNeverTheSameTwice)
{
    Handles handles;
    std::set<void*> all;
    for (int i = 0; i < 1000; ++i) {
        void* const handle = handles.Add(kKind, std::make_shared<int>(i));
        EXPECT_TRUE(all.insert(handle).second);
        if (i % 3) handles.Take(handle, kKind);
    }
    int there = 0;
    for (void* const handle : all)
        there += handles.Find(handle, kKind) != nullptr;
    EXPECT_EQ(there, 334);
}

TEST(Handles, AreNothingElse)
{
    Handles handles;
    handles.Add(kKind, std::make_shared<int>(1));
    int own = 0;
    EXPECT_EQ(handles.Find(nullptr, kKind), nullptr);
    EXPECT_EQ(handles.Find(&own, kKind), nullptr);
    EXPECT_EQ(handles.Find(reinterpret_cast<void*>(~std::uintptr_t{0}), kKind), nullptr);
    EXPECT_EQ(handles.Find(reinterpret_cast<void*>(std::uintptr_t{1}), kKind), nullptr);
}

// Adds, finds and takes, as long as it is told to; false when it meets another one's object.
bool FindsItsOwn(Handles& handles, int mark, int times)
{
    for (int i = 0; i < times; ++i) {
        void* const handle = handles.Add(kKind, std::make_shared<int>(mark));
        const auto found = std::static_pointer_cast<int>(handles.Find(handle, kKind));
        if (!found || *found != mark || handles.Take(handle, kKind) != found) return false;
    }
    return true;
}

TEST(Handles, ServeManyThreads)
{
    Handles handles;
    std::vector<std::jthread> threads;
    for (int mark = 0; mark < 4; ++mark)
        threads.emplace_back([&handles, mark] { EXPECT_TRUE(FindsItsOwn(handles, mark, 2000)); });
}

// A lock may set itself up when it is taken first.
TEST(Handles, ServeThreadsThatComeFirstTogether)
{
    constexpr int kThreads = 4;
    for (int round = 0; round < 100; ++round) {
        Handles handles;
        std::atomic<int> waiting = kThreads;
        std::vector<std::jthread> threads;
        for (int mark = 0; mark < kThreads; ++mark)
            threads.emplace_back([&handles, &waiting, mark] {
                for (--waiting; waiting > 0;)
                    std::this_thread::yield();
                EXPECT_TRUE(FindsItsOwn(handles, mark, 20));
            });
    }
}

} // namespace

} // namespace designspec
