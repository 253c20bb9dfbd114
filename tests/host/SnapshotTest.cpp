#include "host/Snapshot.h"

#include <QDir>
#include <QImage>

#include "tests/host/HostTest.h"

namespace {

class SnapshotTest : public HostTest {
protected:
    QString Folder() const { return ToQString(ToWide((settings.Native() / "pictures").string())); }
    QStringList Pictures() const { return QDir(Folder()).entryList(QDir::Files, QDir::Name); }
};

TEST_F(SnapshotTest, EveryWindowOfHostAndEditorGetsItsPicture)
{
    Have({L"甲", L"乙"});
    Start();
    EXPECT_EQ(WriteSnapshots(*host, {Folder(), {}}), 0);
    EXPECT_EQ(Pictures(),
              (QStringList{QStringLiteral("01-样式管理器.png"), QStringLiteral("02-导入.png"),
                           QStringLiteral("03-已删除的样式.png"), QStringLiteral("04-编辑 乙.png"),
                           QStringLiteral("05-跟踪.png"), QStringLiteral("06-模块.png")}));
    for (const QString& file : Pictures()) {
        const QImage picture(QDir(Folder()).filePath(file));
        EXPECT_GT(picture.width(), 50) << file.toStdString();
        EXPECT_GT(picture.height(), 50) << file.toStdString();
    }
}

TEST_F(SnapshotTest, AStyleIsChosenByNameOrIdentity)
{
    Have({L"甲", L"Ab"});
    Start();
    EXPECT_EQ(WriteSnapshots(*host, {Folder(), QStringLiteral("aB")}), 0);
    EXPECT_TRUE(Pictures().contains(QStringLiteral("04-编辑 Ab.png")));
    const QString id = ToQString(VMRDPub::GUIDToStr(files.Item(L"甲")->id));
    EXPECT_EQ(WriteSnapshots(*host, {Folder(), id}), 0);
    EXPECT_TRUE(Pictures().contains(QStringLiteral("04-编辑 甲.png")));
}

TEST_F(SnapshotTest, AnUnknownStyleIsStatus2)
{
    Have({L"甲"});
    Start();
    EXPECT_EQ(WriteSnapshots(*host, {Folder(), QStringLiteral("丙")}), 2);
}

TEST_F(SnapshotTest, AFolderThatCannotBeMadeIsStatus3)
{
    Start();
    settings.Write("pictures", "a file");
    EXPECT_EQ(WriteSnapshots(*host, {Folder(), {}}), 3);
}

} // namespace
