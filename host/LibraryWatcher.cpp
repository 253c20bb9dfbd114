#include "host/LibraryWatcher.h"

#include <QDir>
#include <QSet>

#include <sys/stat.h>

#include "base/File.h"
#include "platform/mfc/QtText.h"
#include "platform/vmrd/VMRDEnv/StyleFile.h"

using namespace designspec;

namespace {

constexpr int kSettleTime = 200; // milliseconds
constexpr int kLookTime = 1000;
constexpr wchar_t kSettings[] = L"setting.ini";

} // namespace

LibraryWatcher::LibraryWatcher(IsOwn isOwn, QObject* parent)
    : QObject(parent), m_isOwn(std::move(isOwn))
{
    m_settle.setSingleShot(true);
    m_settle.setInterval(kSettleTime);
    const auto settle = [this] { m_settle.start(); };
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, settle);
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, settle);
    connect(&m_settle, &QTimer::timeout, this, &LibraryWatcher::Check);
    connect(&m_look, &QTimer::timeout, this, &LibraryWatcher::Look);
}

void LibraryWatcher::Watch(const CString& folder)
{
    m_folder = folder;
    Acknowledge();
    if (folder.empty())
        m_look.stop();
    else
        m_look.start(kLookTime);
}

void LibraryWatcher::Acknowledge()
{
    m_settle.stop();
    const auto before = m_folderStamp;
    m_folderStamp = FolderStamp();
    m_gone = !m_folder.empty() && !m_folderStamp;
    m_known = Scan();
    m_differing.clear();
    RenewPaths(before && m_folderStamp && before->inode == m_folderStamp->inode);
}

QStringList LibraryWatcher::Differing() const
{
    QStringList names;
    for (const auto& [name, stamp] : m_differing)
        names << ToQString(name);
    return names;
}

std::optional<LibraryWatcher::Stamp> LibraryWatcher::StampOf(const CString& path, mode_t kind)
{
    struct stat status = {};
    if (stat(NativePath(path).c_str(), &status) != 0 || (status.st_mode & S_IFMT) != kind)
        return {};
    return Stamp{status.st_mtim.tv_sec, status.st_mtim.tv_nsec, status.st_size, status.st_ino};
}

std::optional<LibraryWatcher::Stamp> LibraryWatcher::FolderStamp() const
{
    return m_folder.empty() ? std::nullopt : StampOf(m_folder, S_IFDIR);
}

LibraryWatcher::Files LibraryWatcher::Scan() const
{
    Files files;
    if (m_folder.empty()) return files;
    Problems unread; // the library tells when it loads
    std::vector<CString> names = FindFiles(m_folder, kStyleFileEnding, unread);
    names.push_back(kSettings);
    for (const CString& name : names)
        if (const auto stamp = StampOf(m_folder + L"\\" + name, S_IFREG)) files[name] = stamp;
    return files;
}

void LibraryWatcher::Look()
{
    if (FolderStamp() != m_folderStamp) m_settle.start();
}

void LibraryWatcher::Check()
{
    const auto before = m_folderStamp;
    m_folderStamp = FolderStamp();
    const bool gone = !m_folder.empty() && !m_folderStamp;
    Files differing = gone ? m_differing : Compare(Scan());
    const bool changed = gone != m_gone || differing != m_differing;
    m_gone = gone;
    m_differing = std::move(differing);
    RenewPaths(before && m_folderStamp && before->inode == m_folderStamp->inode);
    if (changed) emit Changed();
}

// What differs from what is known. A file that this process has left as it is becomes known.
LibraryWatcher::Files LibraryWatcher::Compare(Files now)
{
    for (const auto& [name, stamp] : m_known)
        now.try_emplace(name);
    Files differing;
    for (const auto& [name, stamp] : now) {
        const auto known = m_known.find(name);
        if (known != m_known.end() && known->second == stamp) continue;
        if (!m_isOwn(name))
            differing[name] = stamp;
        else if (stamp)
            m_known[name] = stamp;
        else
            m_known.erase(name);
    }
    return differing;
}

// The watcher lets go of a file that was deleted or replaced, and looks on at a folder that was
// moved. What changed before it was watched again is found by one more check.
void LibraryWatcher::RenewPaths(bool sameFolder)
{
    const QStringList watched = m_watcher.files() + m_watcher.directories();
    QSet<QString> before(watched.begin(), watched.end());
    if (!sameFolder && !before.isEmpty()) {
        m_watcher.removePaths(watched);
        before.clear();
    }
    QSet<QString> after;
    if (m_folderStamp) {
        const QDir folder(QString::fromStdString(NativePath(m_folder)));
        after << folder.path();
        for (const auto& [name, stamp] : Scan())
            after << folder.filePath(ToQString(name));
    }
    const QStringList gone = (before - after).values();
    const QStringList come = (after - before).values();
    if (!gone.isEmpty()) m_watcher.removePaths(gone);
    if (!come.isEmpty() && m_watcher.addPaths(come).size() < come.size()) m_settle.start();
}
