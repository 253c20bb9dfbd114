// Project folders: a project is a folder that holds the folder 规范.
#pragma once

#include <QStringList>

bool IsProject(const QString& folder);

// Makes the folder, as far as it is missing, and 规范 in it. False, with a trace line, when that
// failed.
bool CreateProject(const QString& folder);

// The projects opened last, the latest first, kept in the settings.
class RecentProjects {
public:
    static constexpr int kMost = 10;

    QStringList List() const;
    void Add(const QString& folder);
    void Remove(const QString& folder);
};
