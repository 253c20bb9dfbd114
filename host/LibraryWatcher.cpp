#include "host/LibraryWatcher.h"

#include <QSocketNotifier>

#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

#include "base/File.h"
#include "platform/mfc/QtText.h"
#include "platform/vmrd/VMRDEnv/StyleFile.h"

using namespace designspec;

namespace {

constexpr int kSettleTime = 200; // milliseconds
constexpr int kLookTime = 1000;
constexpr wchar_t kSettings[] = L"setting.ini";
constexpr std::uint32_t kEvents = IN_CREATE | IN_CLOSE_WRITE | IN_DELETE | IN_MOVED_FROM |
                                  IN_MOVED_TO | IN_DELETE_SELF | IN_MOVE_SELF;

} // namespace

LibraryWatcher::LibraryWatcher(IsOwn isOwn, QObject* parent)
    : QObject(parent), m_isOwn(std::move(isOwn)), m_events(inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
{
    m_settle.setSingleShot(true);
    m_settle.setInterval(kSettleTime);
    connect(&m_settle, &QTimer::timeout, this, &LibraryWatcher::Check);
    connect(&m_look, &QTimer::timeout, this, &LibraryWatcher::Look);
    if (m_events < 0) return;
    auto* const events = new QSocketNotifier(m_events, QSocketNotifier::Read, this);
    connect(events, &QSocketNotifier::activated, this, &LibraryWatcher::Hear);
}

LibraryWatcher::~LibraryWatcher()
{
    if (m_events >= 0) close(m_events);
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
    FindFolder();
    m_gone = !m_folder.empty() && !m_folderStamp;
    m_known = Scan();
    m_differing.clear();
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
    // Not the time of the content, which whoever writes can set.
    return Stamp{status.st_ctim.tv_sec, status.st_ctim.tv_nsec, status.st_size, status.st_ino};
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

// Which file it was does not matter: all are looked at, once others are done.
void LibraryWatcher::Hear()
{
    alignas(inotify_event) char events[4096];
    while (read(m_events, events, sizeof events) > 0)
        continue;
    m_settle.start();
}

void LibraryWatcher::Look()
{
    if (FolderStamp() != m_folderStamp) m_settle.start();
}

void LibraryWatcher::Check()
{
    FindFolder();
    const bool gone = !m_folder.empty() && !m_folderStamp;
    Files differing = gone ? m_differing : Compare(Scan());
    const bool changed = gone != m_gone || differing != m_differing;
    m_gone = gone;
    m_differing = std::move(differing);
    if (changed) emit Changed();
}

// Before the files are looked at, so that no change is missed between. What is watched is the
// folder itself, wherever it is moved, and not its place; a new one there can have the number of
// the one before.
void LibraryWatcher::FindFolder()
{
    m_folderStamp = FolderStamp();
    const int watch =
        m_folderStamp ? inotify_add_watch(m_events, NativePath(m_folder).c_str(), kEvents) : -1;
    if (m_watch >= 0 && m_watch != watch) inotify_rm_watch(m_events, m_watch);
    m_watch = watch;
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
