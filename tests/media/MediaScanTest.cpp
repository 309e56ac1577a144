// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "media/MediaScan.h"
#include "TemporaryFolder.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <thread>

namespace marvo {

namespace {

using test::TemporaryFolder;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

/// The paths of a scan in list order, relative to its folder.
std::vector<std::string> listed(const TemporaryFolder& folder)
{
    std::vector<std::string> names;
    for (const MRVMedia& media : scanFolder(folder.path()).medias)
        names.push_back(media.path().substr(folder.path().size() + 1));
    return names;
}

std::string recordingName(int number)
{
    std::array<char, 40> name;
    std::snprintf(name.data(), name.size(), "alwa_2013%02d%02d_%02d%02d%02d.avi",
                  number / 86400 / 28 % 12 + 1, number / 86400 % 28 + 1, number / 3600 % 24, number / 60 % 60,
                  number % 60);
    return name.data();
}

TEST(MediaScan, listsAllFoldersSortedTogether)
{
    const TemporaryFolder folder;
    for (const char* name :
         {"EventMovie/event_20130526_134502.avi", "AlwaysMovie/alwa_20130526_134502_F.avi",
          "AlwaysMovie/alwa_20130526_134402_R.avi", "MotionMovie/deep/.hidden/motion_20130526_134502.avi",
          "MotionMovie/motion_20130526_134502_F.avi" /* too long a name */, "ALWA_20130526_134502.AVI",
          "AlwaysMovie/alwa_20130526_134503_F.mp4", "\377\376/alwa_20140526_13\303502.avi", "notes.txt"})
        folder.write(name);
    folder.makeFolder("alwa_20200101_000000.avi/empty");
    EXPECT_THAT(listed(folder),
                ElementsAre("ALWA_20130526_134502.AVI", "AlwaysMovie/alwa_20130526_134402_R.avi",
                            "EventMovie/event_20130526_134502.avi",
                            "MotionMovie/deep/.hidden/motion_20130526_134502.avi",
                            "AlwaysMovie/alwa_20130526_134502_F.avi",
                            "\377\376/alwa_20140526_13\303502.avi"));
}

TEST(MediaScan, ordersEqualRecordsByCameraAndPath)
{
    const TemporaryFolder folder;
    for (const char* name : {"b/alwa_20130526_134502", "a/alwa_20130526_134502", "c/alwa_20130526_134502"})
        for (const char* camera : {"_R", "", "_F"})
            folder.write(name + std::string(camera) + ".avi");
    std::vector<std::string> expected;
    for (const char* camera : {"_F", "_R", ""})
        for (const char* name : {"a", "b", "c"})
            expected.push_back(name + std::string("/alwa_20130526_134502") + camera + ".avi");
    EXPECT_EQ(listed(folder), expected);
}

TEST(MediaScan, namesDecideWhatIsARecordingNotTheFilesBehindThem)
{
    const TemporaryFolder folder;
    ASSERT_EQ(::mkfifo(folder.path("alwa_20130526_000001.avi").c_str(), 0600), 0);
    ASSERT_EQ(::symlink("nowhere", folder.path("alwa_20130526_000002.avi").c_str()), 0);
    ASSERT_EQ(::symlink("alwa_20130526_000003.avi", folder.path("alwa_20130526_000003.avi").c_str()), 0);
    folder.makeFolder("other");
    ASSERT_EQ(::symlink("other", folder.path("alwa_20130526_000004.avi").c_str()), 0);
    EXPECT_THAT(listed(folder), ElementsAre("alwa_20130526_000001.avi", "alwa_20130526_000002.avi",
                                            "alwa_20130526_000003.avi"));
}

TEST(MediaScan, walksAFolderOnceHoweverManyLinksLeadToIt)
{
    const TemporaryFolder folder;
    folder.write("a/b/alwa_20130526_134502.avi");
    const std::pair<const char*, const char*> links[] = {{".", "self"},         {"..", "a/up"},
                                                         {"../..", "a/b/root"}, {"a", "twice"},
                                                         {"a/b", "diamond"},    {"nowhere", "broken"}};
    for (const auto& [target, link] : links)
        ASSERT_EQ(::symlink(target, folder.path(link).c_str()), 0);
    EXPECT_EQ(scanFolder(folder.path()).medias.size(), 1U);
    EXPECT_EQ(scanFolder(folder.path("self/self/a")).medias.size(), 1U);
}

TEST(MediaScan, deepNestingCostsNeitherStackNorDescriptors)
{
    const TemporaryFolder folder;
    // Folders far below the longest path that can be opened; what lies there cannot be played, nor listed.
    int at = ::open(folder.path().c_str(), O_RDONLY | O_DIRECTORY);
    for (int depth = 0; depth < 3000; ++depth) {
        if (depth == 1000) {
            ::close(::openat(at, "alwa_20130526_134502.avi", O_CREAT | O_WRONLY, 0600));
        }
        ASSERT_EQ(::mkdirat(at, "d", 0700), 0);
        const int below = ::openat(at, "d", O_RDONLY | O_DIRECTORY);
        ::close(at);
        at = below;
    }
    ::close(at);

    rlimit before{};
    ::getrlimit(RLIMIT_NOFILE, &before);
    const rlimit few{.rlim_cur = 24, .rlim_max = before.rlim_max};
    ::setrlimit(RLIMIT_NOFILE, &few);
    const MediaScan scan = scanFolder(folder.path());
    ::setrlimit(RLIMIT_NOFILE, &before);

    EXPECT_FALSE(scan.folderError);
    ASSERT_EQ(scan.medias.size(), 1U);
    EXPECT_EQ(scan.medias[0].path().size(), folder.path().size() + 2 * 1000 + 25);
}

TEST(MediaScan, tellsWhyAFolderCannotBeListed)
{
    const TemporaryFolder folder;
    folder.write("file.avi");
    ASSERT_EQ(::mkfifo(folder.path("pipe").c_str(), 0600), 0);
    ASSERT_EQ(::symlink("loop", folder.path("loop").c_str()), 0);
    const std::pair<std::string, std::errc> rows[] = {
        {"", std::errc::no_such_file_or_directory},
        {folder.path("missing"), std::errc::no_such_file_or_directory},
        {folder.path("file.avi"), std::errc::not_a_directory},
        {folder.path("pipe"), std::errc::not_a_directory},
        {folder.path("loop"), std::errc::too_many_symbolic_link_levels},
        {"/" + std::string(10000, 'x'), std::errc::filename_too_long},
    };
    for (const auto& [path, error] : rows) {
        const MediaScan scan = scanFolder(path);
        EXPECT_EQ(scan.folderError, error) << path.substr(0, 100);
        EXPECT_THAT(scan.medias, IsEmpty());
    }
    EXPECT_FALSE(scanFolder(folder.path()).folderError);
}

TEST(MediaScan, passesOverFoldersThatItMayNotRead)
{
    const TemporaryFolder folder;
    folder.write("locked/alwa_20130526_134502.avi");
    folder.write("open/alwa_20130526_134503.avi");
    ::chmod(folder.path().c_str(), 0755);
    ::chmod(folder.path("locked").c_str(), 0);
    const bool wasRoot = ::geteuid() == 0;
    ASSERT_EQ(wasRoot ? ::seteuid(65534) : 0, 0);
    const auto names = listed(folder);
    const std::error_code error = scanFolder(folder.path("locked")).folderError;
    ASSERT_EQ(wasRoot ? ::seteuid(0) : 0, 0);
    ::chmod(folder.path("locked").c_str(), 0700);
    EXPECT_THAT(names, ElementsAre("open/alwa_20130526_134503.avi"));
    EXPECT_EQ(error, std::errc::permission_denied);
}

TEST(MediaScan, endsWithAFolderThatIsRemovedMeanwhile)
{
    TemporaryFolder folder;
    for (int i = 0; i < 200; ++i)
        folder.write(std::to_string(i) + "/below/" + recordingName(i));
    std::size_t last = 0;
    const MediaScan scan = scanFolder(folder.path(), {}, [&](std::size_t found) {
        last = found;
        if (found == 20)
            std::filesystem::remove_all(folder.path());
    });
    EXPECT_EQ(scan.medias.size(), 20U);
    EXPECT_EQ(last, 20U);
}

TEST(MediaScan, stopsAtTheNextEntryWhenAsked)
{
    const TemporaryFolder folder;
    for (int i = 0; i < 50; ++i)
        folder.write(recordingName(i));
    std::stop_source stop;
    std::size_t last = 0;
    scanFolder(folder.path(), stop.get_token(), [&](std::size_t found) {
        last = found;
        if (found == 7)
            stop.request_stop();
    });
    EXPECT_EQ(last, 7U);
}

/// A file more for each folder around the one in which the list became full; none for the folders that come
/// behind, except their own first one.
TEST(MediaScan, theLimitEndsEachFolderAfterItsNextFile)
{
    const TemporaryFolder folder;
    for (int i = 0; i < 15010; ++i)
        folder.write("full/" + recordingName(i));
    EXPECT_EQ(scanFolder(folder.path()).medias.size(), 15000U);

    for (const char* sibling : {"p", "q", "r"}) {
        for (int i = 0; i < 3; ++i)
            folder.write(sibling + std::string("/") + recordingName(20000 + i));
    }
    // Where "full" stands among its siblings is the file system's choice: siblings before it count within the
    // 15000, siblings behind it add one each.
    std::size_t behind = 0;
    bool passed = false;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
        behind += passed ? 1 : 0;
        passed = passed || entry.path().filename() == "full";
    }
    EXPECT_EQ(scanFolder(folder.path()).medias.size(), 15000U + behind);
}

} // namespace

} // namespace marvo
