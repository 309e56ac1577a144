// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "media/MRVMediaList.h"
#include "TemporaryFolder.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QThread>

#include <gtest/gtest.h>

#include <functional>

namespace marvo {

namespace {

using test::TemporaryFolder;

class MediaList : public testing::Test
{
protected:
    static bool waitFor(const std::function<bool()>& condition)
    {
        const QDeadlineTimer deadline(20000);
        while (!condition() && !deadline.hasExpired())
            QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 20);
        return condition();
    }

    static void settle()
    {
        for (int i = 0; i < 20; ++i) {
            QCoreApplication::processEvents();
            QThread::msleep(5);
        }
    }

    int m_argc = 1;
    char m_name[5] = "test";
    char* m_argv[2] = {m_name, nullptr};
    QCoreApplication m_application{m_argc, m_argv};
};

TEST_F(MediaList, publishesASortedListOnceOnTheMainThread)
{
    const TemporaryFolder folder;
    folder.write("alwa_20130526_134502_F.avi");
    folder.write("alwa_20130526_134402_F.avi");

    MRVMediaList list;
    int changed = 0;
    QObject::connect(&list, &MRVMediaList::mediaListChanged, [&] {
        ++changed;
        EXPECT_EQ(QThread::currentThread(), list.thread());
        EXPECT_FALSE(list.isScanning());
        EXPECT_EQ(list.count(), 2);
    });
    std::vector<qint64> progress;
    QObject::connect(&list, &MRVMediaList::scanProgress, [&](qint64 found) {
        EXPECT_TRUE(list.isScanning());
        progress.push_back(found);
    });
    list.setProgressInterval({});
    list.setDirectoryPath(folder.path());
    EXPECT_TRUE(list.isScanning());
    EXPECT_EQ(list.count(), 0);
    ASSERT_TRUE(waitFor([&] { return changed > 0; }));
    settle();
    EXPECT_EQ(changed, 1);
    EXPECT_EQ(progress, (std::vector<qint64>{1, 2}));
    ASSERT_NE(list.mediaAtIndex(0), nullptr);
    EXPECT_EQ(list.mediaAtIndex(0)->yyyymmddhhmiss(), "20130526134402");
    EXPECT_EQ(list.mediaAtIndex(2), nullptr);
    EXPECT_EQ(list.mediaAtIndex(-1), nullptr);
}

TEST_F(MediaList, keepsTheOldListUntilTheNewOneAndTellsOfEmptyAndMissingFolders)
{
    const TemporaryFolder folder;
    folder.write("card/alwa_20130526_134502_F.avi");
    folder.makeFolder("empty");

    MRVMediaList list;
    int changed = 0;
    QObject::connect(&list, &MRVMediaList::mediaListChanged, [&] { ++changed; });
    list.setDirectoryPath(folder.path("card"));
    ASSERT_TRUE(waitFor([&] { return changed == 1; }));
    list.setDirectoryPath({});
    EXPECT_FALSE(list.isScanning());
    EXPECT_EQ(list.directoryPath(), "");
    EXPECT_EQ(list.count(), 1);

    list.setDirectoryPath(folder.path("empty"));
    EXPECT_EQ(list.count(), 1);
    ASSERT_TRUE(waitFor([&] { return changed == 2; }));
    EXPECT_EQ(list.count(), 0);
    EXPECT_FALSE(list.folderError());

    list.setDirectoryPath(folder.path("missing"));
    ASSERT_TRUE(waitFor([&] { return changed == 3; }));
    EXPECT_EQ(list.folderError(), std::errc::no_such_file_or_directory);
}

TEST_F(MediaList, aSecondScanSupersedesTheFirst)
{
    const TemporaryFolder large;
    for (int i = 0; i < 3000; ++i)
        large.write(std::to_string(i / 100) + "/alwa_20130526_13" + std::to_string(1000 + i % 100) +
                    "_F.avi");
    const TemporaryFolder small;
    small.write("event_20130526_134502.avi");

    MRVMediaList list;
    int changed = 0;
    QObject::connect(&list, &MRVMediaList::mediaListChanged, [&] {
        ++changed;
        EXPECT_EQ(list.count(), 1);
    });
    // The last round lets the first scan end, so that its result waits in the event queue to be dropped.
    for (const unsigned long pauseMs : {0, 1, 2, 5, 300}) {
        list.setDirectoryPath(large.path());
        QThread::msleep(pauseMs);
        list.setDirectoryPath(small.path());
        changed = 0;
        ASSERT_TRUE(waitFor([&] { return changed > 0; }));
        settle();
        EXPECT_EQ(changed, 1);
        EXPECT_EQ(list.count(), 1);
    }
}

TEST_F(MediaList, aHandlerMayOpenTheNextFolder)
{
    const TemporaryFolder folder;
    folder.write("a/alwa_20130526_134502_F.avi");
    folder.write("b/event_20130526_134502.avi");
    MRVMediaList list;
    int changed = 0;
    QObject::connect(&list, &MRVMediaList::mediaListChanged, [&] {
        if (++changed == 1)
            list.setDirectoryPath(folder.path("b"));
    });
    list.setDirectoryPath(folder.path("a"));
    ASSERT_TRUE(waitFor([&] { return changed == 2; }));
    ASSERT_EQ(list.count(), 1);
    EXPECT_TRUE(list.mediaAtIndex(0)->isEventMedia());
}

} // namespace

} // namespace marvo
