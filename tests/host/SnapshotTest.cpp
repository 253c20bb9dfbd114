#include "host/Snapshot.h"

#include <QDir>
#include <QImage>

#include "base/Text.h"
#include "tests/host/HostTest.h"

using namespace designspec;

namespace {

class SnapshotTest : public HostTest {
protected:
    QString Folder() const { return ToQString(ToWide((settings.Native() / "pictures").string())); }
    void Write(int status, const QString& spec = {}, const QString& theirs = {})
    {
        EXPECT_EQ(WriteSnapshots(*host, {Folder(), spec, theirs}), status);
    }
    QStringList Pictures() const { return QDir(Folder()).entryList(QDir::Files, QDir::Name); }
};

TEST_F(SnapshotTest, EveryWindowOfHostAndEditorGetsItsPicture)
{
    Have({L"甲", L"乙"});
    Start();
    Write(0);
    EXPECT_EQ(Pictures(),
              (QStringList{QStringLiteral("01-样式管理器.png"), QStringLiteral("02-样式菜单.png"),
                           QStringLiteral("03-删除.png"), QStringLiteral("04-导入.png"),
                           QStringLiteral("05-已删除的样式.png"), QStringLiteral("06-编辑.png"),
                           QStringLiteral("07-提示.png"), QStringLiteral("08-查看模式.png"),
                           QStringLiteral("09-新建.png"), QStringLiteral("10-跟踪.png"),
                           QStringLiteral("11-模块.png"), QStringLiteral("12-使用指南.png")}));
    for (const QString& file : Pictures()) {
        const QImage picture(QDir(Folder()).filePath(file));
        EXPECT_GT(picture.width(), 50) << file.toStdString();
        EXPECT_GT(picture.height(), 50) << file.toStdString();
    }
}

TEST_F(SnapshotTest, WhatAsksAboutFilesThatAreOpenedComesFirst)
{
    Have({L"甲"});
    Start();
    const CString file = StyleFile(L"乙");
    EXPECT_EQ(WriteSnapshots(*host, {Folder(), {}, {}, {ToQString(file)}}), 0);
    EXPECT_EQ(Pictures().value(0), QStringLiteral("01-导入.png"));
    EXPECT_EQ(Pictures().value(1), QStringLiteral("02-样式管理器.png"));
    EXPECT_EQ(Listed(), CStringArray{L"甲"}) << "the answer is no";
}

TEST_F(SnapshotTest, AWindowIsPicturedWithItsTitleAMenuHasNone)
{
    Have({L"甲"});
    Start();
    Write(0);
    const QImage window(QDir(Folder()).filePath(QStringLiteral("01-样式管理器.png")));
    EXPECT_EQ(window.width(), host->width() + 2);
    EXPECT_GT(window.height(), host->height() + host->fontMetrics().height());
    // The title is written into a bar of one colour.
    const QRgb bar = window.pixel(0, 0);
    bool written = false;
    for (int x = 0; x < window.width(); ++x)
        written = written || window.pixel(x, host->fontMetrics().height()) != bar;
    EXPECT_TRUE(written);
    const QImage menu(QDir(Folder()).filePath(QStringLiteral("02-样式菜单.png")));
    EXPECT_NE(menu.pixel(0, 0), bar);
}

TEST_F(SnapshotTest, PicturesChangeNothing)
{
    Have({L"甲", L"乙"});
    Start();
    Write(0);
    EXPECT_EQ(Listed(), (CStringArray{L"甲", L"乙"}));
    EXPECT_EQ(HdsFiles("规范"), 2U);
    EXPECT_EQ(HdsFiles("规范/已删除"), 0U);
}

TEST_F(SnapshotTest, AStyleIsChosenByNameOrIdentity)
{
    Have({L"甲", L"Ab"});
    Start();
    Write(0, QStringLiteral("aB"));
    EXPECT_EQ(Selected(), CStringArray{L"Ab"});
    const QString id = ToQString(VMRDPub::GUIDToStr(files.Item(L"甲")->id));
    Write(0, id);
    EXPECT_EQ(Selected(), CStringArray{L"甲"});
}

TEST_F(SnapshotTest, AnUnknownStyleIsStatus2)
{
    Have({L"甲"});
    Start();
    Write(2, QStringLiteral("丙"));
}

TEST_F(SnapshotTest, AFolderThatCannotBeMadeIsStatus3)
{
    Start();
    settings.Write("pictures", "a file");
    Write(3);
}

TEST_F(SnapshotTest, AFileOfOthersThatIsNotThereIsStatus3)
{
    Have({L"甲"});
    Start();
    Write(3, {}, QStringLiteral("没有.hds"));
    EXPECT_TRUE(Pictures().isEmpty());
}

} // namespace
