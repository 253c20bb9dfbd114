// Writes a report of styles without a user.
#pragma once

#include <QStringList>

class HostWindow;

struct ReportRequest {
    QString file;      // .pdf or .html
    QStringList specs; // names or GUIDs; none: the default one, or the first
    QString compare;   // whose values stand where they differ; empty: nobody's
};

// Complains on standard error. 0; 2 when there is no such style; 3 when the file could not be
// written.
int WriteReport(HostWindow& window, const ReportRequest& request);
