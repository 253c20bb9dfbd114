#include "platform/vmrd/VmHFCBaseU/FileChange.h"

#include <utility>

namespace {

FileChangeListener& Listener()
{
    static FileChangeListener listener;
    return listener;
}

} // namespace

FileChangeListener SetFileChangeListener(FileChangeListener listener)
{
    return std::exchange(Listener(), std::move(listener));
}

void TellFileChange(const CString& path)
{
    if (Listener()) Listener()(path);
}
