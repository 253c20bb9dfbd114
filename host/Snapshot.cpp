#include "host/Snapshot.h"

#include <cstdio>

#include <QApplication>
#include <QDir>

#include "host/DeletedStylesDialog.h"
#include "host/HostWindow.h"
#include "host/ImportDialog.h"
#include "host/StyleGroupTree.h"
#include "host/StyleManagerView.h"
#include "platform/mfc/QtText.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

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

class Album {
public:
    explicit Album(const QDir& folder) : m_folder(folder) {}

    void Take(QWidget* window, const QString& name)
    {
        window->show();
        QApplication::processEvents();
        const QString path = m_folder.absoluteFilePath(
            QStringLiteral("%1-%2").arg(++m_number, 2, 10, QLatin1Char('0')).arg(FileName(name)));
        if (window->grab().save(path))
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

CStyle* Find(const CStyles& styles, const QString& spec)
{
    if (spec.isEmpty()) {
        CStyle* const standard = styles.DefaultItem();
        return standard ? standard : styles.Item(0);
    }
    GUID id;
    if (VMRDPub::ParseGUID(FromQString(spec), id)) return styles.Item(id);
    for (int i = 0; i < styles.Count(); ++i)
        if (EqualNoCase(styles.Item(i)->Name(), FromQString(spec))) return styles.Item(i);
    return nullptr;
}

void TakeDialogs(CStyleEditor& editor, Album& album)
{
    const CStyles& styles = *editor.GetStyles();
    CStringArray names;
    CArray<GUID> ids;
    for (int i = 0; i < styles.Count(); ++i) {
        names.push_back(styles.Item(i)->Name());
        ids.push_back(styles.Item(i)->ID());
    }
    ImportDialog importing(styles, names, ids);
    album.Take(&importing, QObject::tr("导入"));
    DeletedStylesDialog deleted(editor);
    album.Take(&deleted, QObject::tr("已删除的样式"));
}

} // namespace

int WriteSnapshots(HostWindow& window, const SnapshotOptions& options)
{
    const QDir folder(options.folder);
    if (!folder.mkpath(QStringLiteral("."))) {
        Complain(QObject::tr("文件夹无法创建: %1").arg(options.folder));
        return 3;
    }
    Album album(folder);
    StyleManagerView& view = window.Styles();
    bool found = options.spec.isEmpty();
    bool shown = false;
    for (CStyleEditor* editor : view.Groups().Editors()) {
        const CStyles* const styles = editor->GetStyles();
        CStyle* const style = styles ? Find(*styles, options.spec) : nullptr;
        if (!style) continue;
        found = shown = true;
        view.Groups().Select(editor);
        view.Select(style->ID());
        album.Take(&window, QObject::tr("样式管理器"));
        TakeDialogs(*editor, album);
        editor->Snapshot(style, [&album](QWidget* one, const CString& name) {
            album.Take(one, ToQString(name));
        });
    }
    if (!shown) album.Take(&window, QObject::tr("样式管理器"));
    window.ShowTrace();
    album.Take(&window, QObject::tr("跟踪"));
    window.ShowModules();
    album.Take(&window, QObject::tr("模块"));
    if (!found) Complain(QObject::tr("没有样式: %1").arg(options.spec));
    if (!album.IsWhole()) return 3;
    return found ? 0 : 2;
}
