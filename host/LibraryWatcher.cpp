#include "host/LibraryWatcher.h"

#include <QDir>
#include <QSet>

#include <sys/stat.h>

#include "base/File.h"
#include "platform/mfc/QtText.h"

using namespace designspec;

namespace {
constexpr int kSettleTime = 200; // milliseconds
}

LibraryWatcher::LibraryWatcher(IsOwn isOwn, QObject* parent)
    : QObject(parent), m_isOwn(std::move(isOwn))
{
    m_settle.setSingleShot(true);
    m_settle.setInterval(kSettleTime);
    const auto settle = [this] { m_settle.start(); };
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, settle);
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, settle);
    connect(&m_settle, &QTimer::timeout, this, &LibraryWatcher::Check);
}

void LibraryWatcher::Watch(const CString& folder)
{
    m_folder = folder;
    Acknowledge();
    RenewPaths();
}

void LibraryWatcher::Acknowledge()
{
    m_settle.stop();
    m_known = Scan();
}

std::optional<LibraryWatcher::Stamp> LibraryWatcher::StampOf(const CString& path)
{
    struct stat status = {};
    if (stat(NativePath(path).c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return {};
    return Stamp{status.st_mtim.tv_sec, status.st_mtim.tv_nsec, status.st_size, status.st_ino};
}

LibraryWatcher::Files LibraryWatcher::Scan() const
{
    Files files;
    if (m_folder.empty()) return files;
    Problems unread; // the library tells when it loads
    for (const CString& name : FindFiles(m_folder, L"", unread)) {
        if (IsTemporaryFile(name)) continue;
        if (const auto stamp = StampOf(m_folder + L"\\" + name)) files.emplace(name, *stamp);
    }
    return files;
}

void LibraryWatcher::Check()
{
    Files now = Scan();
    QStringList names;
    const auto add = [&](const CString& name) {
        if (!m_isOwn(name)) names << ToQString(name);
    };
    for (const auto& [name, stamp] : now) {
        const auto known = m_known.find(name);
        if (known == m_known.end() || known->second != stamp) add(name);
    }
    for (const auto& [name, stamp] : m_known)
        if (!now.contains(name)) add(name);
    m_known = std::move(now);
    RenewPaths();
    if (!names.isEmpty()) emit ChangedOutside(names);
}

// The watcher lets go of a file that was deleted or replaced. What changed before it was watched
// again is found by one more check.
void LibraryWatcher::RenewPaths()
{
    const QDir folder(QString::fromStdString(NativePath(m_folder)));
    QStringList wanted;
    if (!m_folder.empty() && folder.exists()) wanted << folder.path();
    for (const auto& [name, stamp] : m_known)
        wanted << folder.filePath(ToQString(name));

    const QStringList watched = m_watcher.files() + m_watcher.directories();
    const QSet<QString> before(watched.begin(), watched.end());
    const QSet<QString> after(wanted.begin(), wanted.end());
    const QStringList gone = (before - after).values();
    const QStringList come = (after - before).values();
    if (!gone.isEmpty()) m_watcher.removePaths(gone);
    if (!come.isEmpty() && m_watcher.addPaths(come).size() < come.size()) m_settle.start();
}
