#include "platform/windows/gui/ResourceLibrary.h"

#include <map>

#include <QFile>
#include <QPainter>
#include <QResource>
#include <QSvgRenderer>

#include "base/File.h"
#include "platform/mfc/QtText.h"
#include "platform/vmrd/VmHFCBaseU/Trace.h"

using namespace designspec;

namespace {

// Scales at which the pictures are drawn beforehand.
constexpr double kScales[] = {1, 1.25, 1.5, 1.75, 2, 3, 4};

// Files of the libraries that are loaded now. Windows are made on one thread only.
std::map<HRESLIB, QString>& LoadedLibraries()
{
    static std::map<HRESLIB, QString> libraries;
    return libraries;
}

QString RootOf(HRESLIB library)
{
    return QStringLiteral("/resource-library/%1").arg(library);
}

QPixmap Draw(QSvgRenderer& picture, const QSize& size)
{
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    picture.render(&painter);
    return pixmap;
}

} // namespace

HRESLIB LoadResourceLibrary(const CString& path)
{
    static HRESLIB last = 0;
    const HRESLIB library = ++last;
    const QString file = QString::fromStdString(NativePath(path));
    if (!QResource::registerResource(file, RootOf(library))) {
        TraceFile(TraceLevel::Error, path, 0, L"资源库不存在或无法读取");
        return 0;
    }
    LoadedLibraries()[library] = file;
    return library;
}

QIcon LoadIcon(HRESLIB library, const CString& name, int cx, int cy)
{
    QIcon icon;
    QSvgRenderer picture;
    QFile file(QStringLiteral(":%1/%2.svg").arg(RootOf(library), ToQString(name)));
    if (library == 0 || !file.open(QIODevice::ReadOnly) || !picture.load(file.readAll()))
        return icon;
    for (double scale : kScales) {
        const QPixmap drawn = Draw(picture, QSizeF(cx * scale, cy * scale).toSize());
        icon.addPixmap(drawn);
        icon.addPixmap(drawn, QIcon::Selected); // else a selected row would tint it
    }
    return icon;
}

void FreeResourceLibrary(HRESLIB library)
{
    const auto found = LoadedLibraries().find(library);
    if (found == LoadedLibraries().end()) return;
    QResource::unregisterResource(found->second, RootOf(library));
    LoadedLibraries().erase(found);
}
