#include "host/Snapshot.h"

#include <algorithm>
#include <cstdio>

#include <QApplication>
#include <QDir>
#include <QPainter>
#include <QProgressBar>

#include "host/DeletedStylesDialog.h"
#include "host/EditorTour.h"
#include "host/HostWindow.h"
#include "host/ImportDialog.h"
#include "host/StyleByName.h"
#include "host/StyleGroupTree.h"
#include "host/StyleManagerView.h"
#include "platform/mfc/QtText.h"

using namespace designspec;

namespace {

void Complain(const QString& text)
{
    std::fprintf(stderr, "%s\n", qUtf8Printable(text));
}

// A file name of a window's name: what file systems dislike becomes "-".
QString FileName(const QString& name)
{
    QString file = name;
    static const QString kForbidden = QStringLiteral("/\\:*?\"<>|");
    for (QChar& c : file)
        if (kForbidden.contains(c) || c < u' ') c = u'-';
    return file + QStringLiteral(".png");
}

// Without a window system nobody draws a window's frame, and its title would be missing.
QPixmap WithFrame(const QWidget& window, const QPixmap& content)
{
    if (window.windowType() == Qt::Popup || window.windowTitle().isEmpty()) return content;
    const int bar = window.fontMetrics().height() * 7 / 4;
    const QRect inside(QPoint(1, 1 + bar), content.deviceIndependentSize().toSize());
    const QRect outside = inside.adjusted(-1, -1 - bar, 1, 1);
    QPixmap framed(outside.size() * content.devicePixelRatio());
    framed.setDevicePixelRatio(content.devicePixelRatio());
    framed.fill(window.palette().color(QPalette::Mid));
    QPainter painter(&framed);
    painter.setFont(window.font());
    painter.setPen(window.palette().color(QPalette::WindowText));
    painter.drawText(QRect(0, 0, outside.width(), inside.top()), Qt::AlignCenter,
                     window.windowTitle());
    painter.drawPixmap(inside.topLeft(), content);
    return framed;
}

class Album {
public:
    explicit Album(const QDir& folder) : m_folder(folder) {}

    void Take(QWidget* window, const QString& name)
    {
        window->show();
        QApplication::processEvents();
        const QString path = m_folder.absoluteFilePath(
            QStringLiteral("%1-%2").arg(++m_number, 2, 10, QLatin1Char('0')).arg(FileName(name)));
        if (WithFrame(*window, window->grab()).save(path))
            std::printf("%s\n", qUtf8Printable(path));
        else {
            Complain(QObject::tr("无法写入: %1").arg(path));
            m_whole = false;
        }
    }
    bool IsWhole() const { return m_whole; }

private:
    QDir m_folder;
    int m_number = 0;
    bool m_whole = true;
};

// The menu of the selected style, and the question before it would be deleted; the answer is no.
void TakeQuestions(StyleManagerView& view, Album& album)
{
    VisitModals([&view] { view.ShowContextMenu({}); },
                {[&album](QWidget* menu) { album.Take(menu, QObject::tr("样式菜单")); }});
    VisitModals([&view] { view.Commands().Run(kCommandDeleteStyle, view.Selected()); },
                {[&album](QWidget* box) { album.Take(box, QObject::tr("删除")); }});
}

// With `theirs` the import tells what that file would change.
void TakeDialogs(CStyleEditor& editor, const QString& theirs, Album& album)
{
    const CStyles& styles = *editor.GetStyles();
    CStringArray names;
    CArray<GUID> ids;
    for (int i = 0; i < styles.Count(); ++i) {
        names.push_back(styles.Item(i)->Name());
        ids.push_back(styles.Item(i)->ID());
    }
    const auto changes = editor.ChangesFrom(FromQString(theirs), ids);
    ImportDialog importing(styles, {{{}, names, ids, changes}});
    album.Take(&importing, QObject::tr("导入"));
    DeletedStylesDialog deleted(editor);
    album.Take(&deleted, QObject::tr("已删除的样式"));
}

// A window that works in the background has a progress bar for as long.
bool IsWorking(const QWidget& window)
{
    const auto bars = window.findChildren<QProgressBar*>();
    return std::any_of(bars.begin(), bars.end(),
                       [](const QProgressBar* bar) { return bar->isVisible(); });
}

// The windows beside the host's that modules have opened.
void TakeOthers(const QWidget& host, Album& album)
{
    QWidgetList windows = QApplication::topLevelWidgets();
    std::sort(windows.begin(), windows.end(), [](const QWidget* a, const QWidget* b) {
        return a->windowTitle() < b->windowTitle();
    });
    for (QWidget* const window : windows) {
        if (!window->isVisible() || window == &host || window->windowTitle().isEmpty()) continue;
        QApplication::processEvents();
        while (IsWorking(*window))
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        album.Take(window, window->windowTitle());
    }
}

} // namespace

int WriteSnapshots(HostWindow& window, const SnapshotOptions& options)
{
    const QDir folder(options.folder);
    if (!folder.mkpath(QStringLiteral("."))) {
        Complain(QObject::tr("文件夹无法创建: %1").arg(options.folder));
        return 3;
    }
    if (!options.theirs.isEmpty() && !QFileInfo(options.theirs).isFile()) {
        Complain(QObject::tr("文件不存在: %1").arg(options.theirs));
        return 3;
    }
    QApplication::setCursorFlashTime(0); // a picture is the same each time
    Album album(folder);
    StyleManagerView& view = window.Styles();
    bool found = options.spec.isEmpty();
    CStyleEditor* shown = nullptr;
    CStyle* shownStyle = nullptr;
    const auto take = [&album](QWidget* one, const QString& name) { album.Take(one, name); };
    const auto takeAsking = [&album](QWidget* one) { album.Take(one, one->windowTitle()); };
    VisitModals(
        [&] {
            window.OpenFiles(options.open);
            QApplication::processEvents();
        },
        {takeAsking});
    for (CStyleEditor* editor : view.Groups().Editors()) {
        const CStyles* const styles = editor->GetStyles();
        CStyle* const style = styles ? FindStyle(*styles, options.spec) : nullptr;
        if (!style) continue;
        found = true;
        shown = editor;
        shownStyle = style;
        view.Groups().Select(editor);
        view.Select({style->ID()});
        album.Take(&window, QObject::tr("样式管理器"));
        TakeQuestions(view, album);
        TakeDialogs(*editor, options.theirs, album);
        EditorTour(*editor, take).Run(style);
    }
    if (!shown) album.Take(&window, QObject::tr("样式管理器"));
    window.ShowTrace();
    album.Take(&window, QObject::tr("跟踪"));
    window.ShowModules();
    album.Take(&window, QObject::tr("模块"));
    window.Help().Show(QObject::tr("样式管理器"));
    TakeOthers(window, album);
    // Last: the host's window tells of it.
    if (shown && !options.theirs.isEmpty())
        EditorTour(*shown, take).ShowOthersChange(shownStyle, options.theirs);
    if (!found) Complain(QObject::tr("没有样式: %1").arg(options.spec));
    if (!album.IsWhole()) return 3;
    return found ? 0 : 2;
}
