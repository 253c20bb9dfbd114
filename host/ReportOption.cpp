#include "host/ReportOption.h"

#include <cstdio>

#include <QFileInfo>

#include "host/HostWindow.h"
#include "host/StyleByName.h"
#include "host/StyleGroupTree.h"
#include "host/StyleManagerView.h"
#include "platform/mfc/QtText.h"

using namespace designspec;

namespace {

int Complain(int status, const QString& text)
{
    std::fprintf(stderr, "%s\n", qUtf8Printable(text));
    return status;
}

CStyleEditor* EditorOf(HostWindow& window, const QString& spec)
{
    for (CStyleEditor* const editor : window.Styles().Groups().Editors())
        if (const CStyles* const styles = editor->GetStyles(); styles && FindStyle(*styles, spec))
            return editor;
    return nullptr;
}

} // namespace

int WriteReport(HostWindow& window, const ReportRequest& request)
{
    const QStringList specs = request.specs.isEmpty() ? QStringList(QString()) : request.specs;
    CStyleEditor* const editor = EditorOf(window, specs.front());
    CArray<GUID> styles;
    for (const QString& spec : specs) {
        const CStyle* const style = editor ? FindStyle(*editor->GetStyles(), spec) : nullptr;
        if (!style) return Complain(2, QObject::tr("没有样式: %1").arg(spec));
        styles.push_back(style->ID());
    }
    const CStyle* other = nullptr;
    if (!request.compare.isEmpty()) {
        other = FindStyle(*editor->GetStyles(), request.compare);
        if (!other) return Complain(2, QObject::tr("没有样式: %1").arg(request.compare));
    }
    const std::optional<GUID> compared = other ? std::optional(other->ID()) : std::nullopt;
    Problems problems;
    const CString file = FromQString(QFileInfo(request.file).absoluteFilePath());
    const bool written =
        editor->WriteReport(file, styles, compared ? &*compared : nullptr, problems);
    for (const Problem& problem : problems)
        Complain(3, ToQString(problem.Text()));
    return written ? 0 : 3;
}
