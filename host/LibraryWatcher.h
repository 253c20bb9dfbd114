// Watches the files of a library folder for what others do to them.
#pragma once

#include <functional>
#include <map>
#include <optional>

#include <QTimer>

#include "platform/mfc/String.h"

class LibraryWatcher : public QObject {
    Q_OBJECT

public:
    // Whether the file of that name in the folder is as this process left it.
    using IsOwn = std::function<bool(const CString& file)>;
    explicit LibraryWatcher(IsOwn isOwn, QObject* parent = nullptr);
    ~LibraryWatcher() override;

    // Watches the files that stand in that folder, from what they are now; none when it is empty.
    void Watch(const CString& folder);
    // What the files are now is known to the user.
    void Acknowledge();

    // As last seen: whether there is no folder any more, and the files in it that somebody else has
    // made, changed or deleted since they were known. Files that the library does not read, such as
    // those that editors leave beside them, do not count.
    bool IsGone() const { return m_gone; }
    QStringList Differing() const;

signals:
    // What is said above is not what it was before; or a file that differs has changed once more.
    void Changed();

private:
    // What tells two states of a file apart.
    struct Stamp {
        std::int64_t seconds, nanoseconds, size;
        std::uint64_t inode;
        bool operator==(const Stamp&) const = default;
    };
    using Files = std::map<CString, std::optional<Stamp>>; // nothing: deleted

    static std::optional<Stamp> StampOf(const CString& path, mode_t kind);
    std::optional<Stamp> FolderStamp() const;
    Files Scan() const;
    Files Compare(Files now);
    void Hear();
    void Look();
    void Check();
    void FindFolder();

    IsOwn m_isOwn;
    CString m_folder;
    std::optional<Stamp> m_folderStamp; // when it was last looked through
    bool m_gone = false;
    Files m_known;
    Files m_differing;
    int m_events; // descriptor of what the system tells of the folder; -1: it tells nothing
    int m_watch = -1;
    QTimer m_settle; // others write in several steps
    QTimer m_look;   // for what the system does not tell: a folder that was moved, shared folders
};
