// Writes pictures of every window, without a user.
#pragma once

#include <QStringList>

class HostWindow;

struct SnapshotOptions {
    QString folder; // made if it is missing
    QString spec;   // name or GUID of the style to show; empty: the default one, or the first
    QString theirs; // a file that others put into the library meanwhile; empty: they do nothing
    QStringList open = {}; // files that are opened; what asks about them is pictured
};

// Prints each file's path to standard output. 0; 2 when there is no such style; 3 when a picture
// could not be written, or there is no file `theirs`.
int WriteSnapshots(HostWindow& window, const SnapshotOptions& options);
