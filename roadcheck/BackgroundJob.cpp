#include "roadcheck/BackgroundJob.h"

#include <new>
#include <utility>

#include "base/Text.h"

using namespace designspec;

namespace roadcheck {

namespace {

std::wstring FailureOf(const BackgroundJob::Work& work, const std::atomic<bool>& cancel)
try {
    work(cancel);
    return {};
} catch (const std::bad_alloc&) {
    return L"内存不足";
} catch (const std::exception& error) {
    return ToWide(error.what());
} catch (...) {
    return L"原因不明";
}

} // namespace

BackgroundJob::BackgroundJob()
{
    connect(this, &BackgroundJob::WorkEnded, this, &BackgroundJob::Finish, Qt::QueuedConnection);
}

BackgroundJob::~BackgroundJob()
{
    m_cancel = true;
}

void BackgroundJob::Start(Work work, Done done)
{
    m_work = std::move(work);
    m_done = std::move(done);
    if (IsRunning())
        m_cancel = true;
    else
        Run();
}

void BackgroundJob::Cancel()
{
    m_cancel = true;
    m_work = nullptr;
    m_done = nullptr;
}

void BackgroundJob::Run()
{
    m_cancel = false;
    m_thread = std::jthread([this, work = std::exchange(m_work, nullptr)] {
        m_failure = FailureOf(work, m_cancel);
        emit WorkEnded({});
    });
    emit RunningChanged(true);
}

void BackgroundJob::Finish()
{
    m_thread.join();
    m_thread = {};
    if (m_work) return Run();
    emit RunningChanged(false);
    if (const Done done = std::exchange(m_done, nullptr)) done(m_failure);
}

} // namespace roadcheck
