// Watches the files of a library folder for what others do to them.
#pragma once

#include <functional>
#include <map>
#include <optional>

#include <QFileSystemWatcher>
#include <QTimer>

#include "platform/mfc/String.h"

class LibraryWatcher : public QObject {
    Q_OBJECT

public:
    // Whether the file of that name in the folder is as this process left it.
    using IsOwn = std::function<bool(const CString& file)>;
    explicit LibraryWatcher(IsOwn isOwn, QObject* parent = nullptr);

    // Watches the files that stand in that folder, from what they are now; none when it is empty.
    void Watch(const CString& folder);
    // What the files are now is known to the user.
    void Acknowledge();

signals:
    // Files that were made, changed or deleted by somebody else since they were last known.
    void ChangedOutside(const QStringList& names);

private:
    // What tells two states of a file apart.
    struct Stamp {
        std::int64_t seconds, nanoseconds, size;
        std::uint64_t inode;
        bool operator==(const Stamp&) const = default;
    };
    using Files = std::map<CString, Stamp>;

    static std::optional<Stamp> StampOf(const CString& path);
    Files Scan() const;
    void Check();
    void RenewPaths();

    IsOwn m_isOwn;
    CString m_folder;
    Files m_known;
    QFileSystemWatcher m_watcher;
    QTimer m_settle; // others write in several steps
};
