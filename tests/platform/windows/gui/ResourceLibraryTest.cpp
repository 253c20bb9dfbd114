#include "platform/windows/gui/ResourceLibrary.h"

#include <QImage>

#include <gtest/gtest.h>

#include "TreePaths.h"
#include "base/Text.h"
#include "platform/vmrd/VmHFCBaseU/Trace.h"

using namespace designspec;

namespace {

const CString kLibrary = ToWide(BINARY_DIR "/bin/VMRDRes.dll");

QIcon LoadOnce(const CString& name)
{
    const HRESLIB library = LoadResourceLibrary(kLibrary);
    const QIcon icon = LoadIcon(library, name, 16, 16);
    FreeResourceLibrary(library);
    return icon;
}

int PaintedPixels(const QIcon& icon, int size)
{
    const QImage image = icon.pixmap(size).toImage();
    int painted = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            painted += qAlpha(image.pixel(x, y)) > 0 ? 1 : 0;
    return painted;
}

} // namespace

TEST(ResourceLibrary, IconsOutliveTheLibrary)
{
    for (const wchar_t* name : {L"IDI_ICON_BOOK", L"IDI_ICON_FOLDER", L"IDI_ICON_RIGHT"}) {
        const QIcon icon = LoadOnce(name);
        EXPECT_GT(PaintedPixels(icon, 16), 40) << ToUtf8(name);
    }
}

TEST(ResourceLibrary, AnIconKeepsItsColoursOnASelectedRow)
{
    const QIcon icon = LoadOnce(L"IDI_ICON_RIGHT");
    ASSERT_GT(PaintedPixels(icon, 16), 40);
    EXPECT_EQ(icon.pixmap(16, QIcon::Selected).toImage(), icon.pixmap(16).toImage());
}

TEST(ResourceLibrary, ItsPathMayHaveBackslashes)
{
    const HRESLIB library = LoadResourceLibrary(ToWide(BINARY_DIR) + L"\\bin\\VMRDRes.dll");
    EXPECT_NE(library, 0U);
    FreeResourceLibrary(library);
}

TEST(ResourceLibrary, TheSpaceIconIsAnEmptyPicture)
{
    const QIcon icon = LoadOnce(L"IDI_ICON_SPACE");
    EXPECT_FALSE(icon.isNull());
    EXPECT_EQ(PaintedPixels(icon, 16), 0);
}

// At 200 % the picture has pixels of its own: it is not the small one with each pixel doubled.
TEST(ResourceLibrary, IconsAreSharpAtTwiceTheSize)
{
    const QIcon icon = LoadOnce(L"IDI_ICON_BOOK");
    const QPixmap twice = icon.pixmap(QSize(16, 16), 2.0);
    EXPECT_EQ(twice.size(), QSize(32, 32));
    const QImage large = twice.toImage().convertToFormat(QImage::Format_ARGB32);
    const QImage small = icon.pixmap(16).toImage().convertToFormat(QImage::Format_ARGB32);
    EXPECT_EQ(small.size(), QSize(16, 16));
    int different = 0;
    for (int y = 0; y < 32; ++y)
        for (int x = 0; x < 32; ++x)
            different += large.pixel(x, y) != small.pixel(x / 2, y / 2) ? 1 : 0;
    EXPECT_GT(different, 100);
}

TEST(ResourceLibrary, AMissingLibraryGivesAnEmptyIconAndATraceLine)
{
    CString traced;
    const designspec::Connection trace =
        ConnectTrace([&](const TraceLine& line) { traced = line.Text(); });
    const HRESLIB library = LoadResourceLibrary(L"/no/such/VMRDRes.dll");
    EXPECT_EQ(library, 0U);
    EXPECT_NE(traced.find(L"/no/such/VMRDRes.dll"), CString::npos);
    EXPECT_TRUE(LoadIcon(library, L"IDI_ICON_BOOK", 16, 16).isNull());
    FreeResourceLibrary(library);
}

TEST(ResourceLibrary, AFileThatIsNoLibraryIsRefused)
{
    const designspec::Connection trace = ConnectTrace([](const TraceLine&) {});
    EXPECT_EQ(LoadResourceLibrary(ToWide(SOURCE_DIR "/CMakeLists.txt")), 0U);
}

TEST(ResourceLibrary, AnUnknownNameGivesAnEmptyIcon)
{
    EXPECT_TRUE(LoadOnce(L"IDI_ICON_NONE").isNull());
}

TEST(ResourceLibrary, AFreedLibraryGivesNothing)
{
    const HRESLIB library = LoadResourceLibrary(kLibrary);
    ASSERT_NE(library, 0U);
    FreeResourceLibrary(library);
    EXPECT_TRUE(LoadIcon(library, L"IDI_ICON_BOOK", 16, 16).isNull());
}
