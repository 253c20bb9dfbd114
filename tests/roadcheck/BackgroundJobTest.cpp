#include "roadcheck/BackgroundJob.h"

#include <stdexcept>

#include <QTest>

#include <gtest/gtest.h>

using namespace roadcheck;

namespace {

bool WaitUntilDone(const BackgroundJob& job)
{
    return QTest::qWaitFor([&job] { return !job.IsRunning(); });
}

void UntilCancelled(const std::atomic<bool>& cancel)
{
    while (!cancel)
        std::this_thread::yield();
}

TEST(BackgroundJob, WhatFollowsTheWorkRunsWhereItWasStarted)
{
    BackgroundJob job;
    std::thread::id worked, followed;
    job.Start([&](const auto&) { worked = std::this_thread::get_id(); },
              [&](const std::wstring&) { followed = std::this_thread::get_id(); });
    EXPECT_TRUE(job.IsRunning());
    ASSERT_TRUE(WaitUntilDone(job));
    EXPECT_NE(worked, std::this_thread::get_id());
    EXPECT_EQ(followed, std::this_thread::get_id());
}

TEST(BackgroundJob, TellsWhatTheWorkHasThrown)
{
    BackgroundJob job;
    std::wstring failures;
    const auto follow = [&](const std::wstring& failure) { failures += failure + L";"; };
    job.Start([](const auto&) { throw std::runtime_error("坏了"); }, follow);
    ASSERT_TRUE(WaitUntilDone(job));
    job.Start([](const auto&) { throw std::bad_alloc(); }, follow);
    ASSERT_TRUE(WaitUntilDone(job));
    job.Start([](const auto&) { throw 1; }, follow);
    ASSERT_TRUE(WaitUntilDone(job));
    job.Start([](const auto&) {}, follow);
    ASSERT_TRUE(WaitUntilDone(job));
    EXPECT_EQ(failures, L"坏了;内存不足;原因不明;;");
}

TEST(BackgroundJob, NewWorkCancelsTheOldAndWhatFollowsIt)
{
    BackgroundJob job;
    std::string log;
    job.Start(UntilCancelled, [&](const auto&) { log += "old "; });
    job.Start(UntilCancelled, [&](const auto&) { log += "between "; });
    job.Start([](const auto&) {}, [&](const auto&) { log += "new"; });
    ASSERT_TRUE(WaitUntilDone(job));
    EXPECT_EQ(log, "new");
}

TEST(BackgroundJob, CancelledWorkIsNotFollowed)
{
    BackgroundJob job;
    std::string log;
    std::vector<bool> running;
    QObject::connect(&job, &BackgroundJob::RunningChanged,
                     [&](bool isRunning) { running.push_back(isRunning); });
    job.Start(UntilCancelled, [&](const auto&) { log += "followed"; });
    job.Cancel();
    ASSERT_TRUE(WaitUntilDone(job));
    EXPECT_EQ(log, "");
    EXPECT_EQ(running, (std::vector<bool>{true, false}));
}

TEST(BackgroundJob, GoesWithoutWaitingForTheEndOfItsWork)
{
    std::string log;
    {
        BackgroundJob job;
        job.Start(UntilCancelled, [&](const auto&) { log += "followed"; });
    }
    QTest::qWait(1);
    EXPECT_EQ(log, "");
}

} // namespace
