// Tells when a file has changed, also when it was replaced by another or comes back.
#pragma once

#include <optional>

#include <QFileSystemWatcher>
#include <QTimer>

namespace roadcheck {

class FileWatch : public QObject {
    Q_OBJECT

public:
    explicit FileWatch(QObject* parent = nullptr);

    // Watches that file from what it is now.
    void Watch(const QString& file);

signals:
    // Once whoever writes has paused.
    void Changed();

private:
    // What tells two states of a file apart; nothing: it is not there.
    using Stamp = std::optional<std::pair<qint64, qint64>>;

    Stamp StampNow() const;
    void WatchAgain();
    void Check();

    QString m_file;
    Stamp m_stamp;
    QFileSystemWatcher m_watcher;
    QTimer m_settle;
};

} // namespace roadcheck
