#include "roadcheck/FileWatch.h"

#include <QDateTime>
#include <QFileInfo>

namespace roadcheck {

namespace {

constexpr int kSettleTime = 200; // milliseconds

} // namespace

FileWatch::FileWatch(QObject* parent) : QObject(parent)
{
    m_settle.setSingleShot(true);
    m_settle.setInterval(kSettleTime);
    connect(&m_settle, &QTimer::timeout, this, &FileWatch::Check);
    for (const auto signal :
         {&QFileSystemWatcher::fileChanged, &QFileSystemWatcher::directoryChanged})
        connect(&m_watcher, signal, this, [this] { m_settle.start(); });
}

void FileWatch::Watch(const QString& file)
{
    for (const QStringList& paths : {m_watcher.files(), m_watcher.directories()})
        if (!paths.isEmpty()) m_watcher.removePaths(paths);
    m_file = file;
    WatchAgain();
    m_stamp = StampNow();
    m_settle.stop();
}

// A file that is renamed over another is not the one that was watched; its folder tells.
void FileWatch::WatchAgain()
{
    if (QFileInfo::exists(m_file)) m_watcher.addPath(m_file);
    m_watcher.addPath(QFileInfo(m_file).absolutePath());
}

FileWatch::Stamp FileWatch::StampNow() const
{
    const QFileInfo info(m_file);
    if (!info.exists()) return {};
    return std::pair(info.metadataChangeTime().toMSecsSinceEpoch(), info.size());
}

void FileWatch::Check()
{
    WatchAgain();
    const Stamp now = StampNow();
    if (now == m_stamp) return;
    m_stamp = now;
    emit Changed();
}

} // namespace roadcheck
