// Work on a thread of its own, one after the other, for a window that stays alive meanwhile.
#pragma once

#include <atomic>
#include <functional>
#include <string>
#include <thread>

#include <QObject>

namespace roadcheck {

class BackgroundJob : public QObject {
    Q_OBJECT

public:
    // Runs on the thread. It should end early once `cancel` is true.
    using Work = std::function<void(const std::atomic<bool>& cancel)>;
    // Runs afterwards where the job was started. `failure` is what the work threw; empty: nothing.
    using Done = std::function<void(const std::wstring& failure)>;

    BackgroundJob();
    // Cancels, and waits for the thread.
    ~BackgroundJob() override;

    // Work that is under way is cancelled, and what follows it is left out.
    void Start(Work work, Done done);
    // What follows the work is left out as well.
    void Cancel();
    bool IsRunning() const { return m_thread.joinable(); }

signals:
    void RunningChanged(bool isRunning);
    // By the thread, for itself alone.
    void WorkEnded(QPrivateSignal);

private:
    void Run();
    void Finish();

    std::atomic<bool> m_cancel = false;
    Work m_work; // that runs, or is to run once the thread is free
    Done m_done;
    std::wstring m_failure; // the thread's until it has ended
    std::jthread m_thread;
};

} // namespace roadcheck
