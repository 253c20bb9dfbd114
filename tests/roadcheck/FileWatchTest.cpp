#include "roadcheck/FileWatch.h"

#include <filesystem>

#include <QTest>

#include <gtest/gtest.h>

#include "platform/mfc/QtText.h"
#include "tests/support/TemporaryFolder.h"

using namespace roadcheck;

namespace {

class FileWatchTest : public ::testing::Test {
protected:
    FileWatchTest()
    {
        m_folder.Write("a", "1");
        m_watch.Watch(ToQString(m_folder.Path(L"a")));
        QObject::connect(&m_watch, &FileWatch::Changed, [this] { ++m_changes; });
    }
    // Whether that many were told by now, and no more come.
    bool Told(int changes)
    {
        const bool came = QTest::qWaitFor([&] { return m_changes >= changes; });
        QTest::qWait(400);
        return came && m_changes == changes;
    }

    TemporaryFolder m_folder;
    FileWatch m_watch;
    int m_changes = 0;
};

TEST_F(FileWatchTest, TellsOfAChangeInPlace)
{
    m_folder.Write("a", "22");
    EXPECT_TRUE(Told(1));
    m_folder.Write("a", "333");
    EXPECT_TRUE(Told(2));
}

TEST_F(FileWatchTest, TellsOfEachFileThatTakesThePlace)
{
    for (int i = 1; i <= 2; ++i) {
        m_folder.Write("b", "new");
        std::filesystem::rename(m_folder.Native("b"), m_folder.Native("a"));
        EXPECT_TRUE(Told(i));
    }
}

TEST_F(FileWatchTest, TellsThatTheFileIsGoneAndThatItIsBack)
{
    std::filesystem::remove(m_folder.Native("a"));
    EXPECT_TRUE(Told(1));
    m_folder.Write("a", "1");
    EXPECT_TRUE(Told(2));
}

TEST_F(FileWatchTest, OthersInTheFolderAreNoMatter)
{
    m_folder.Write("b", "1");
    EXPECT_TRUE(Told(0));
}

} // namespace
