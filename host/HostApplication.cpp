#include "host/HostApplication.h"

#include <new>

#include "platform/vmrd/VmHFCBaseU/Trace.h"

using namespace designspec;

bool HostApplication::notify(QObject* receiver, QEvent* event)
{
    return Survive([&] { return QApplication::notify(receiver, event); });
}

bool HostApplication::Survive(const std::function<bool()>& work)
{
    try {
        return work();
    } catch (const std::bad_alloc&) {
        TraceFile(TraceLevel::Error, {}, 0, L"内存不足,操作没有完成");
        return false;
    }
}
