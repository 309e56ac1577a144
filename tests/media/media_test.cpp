// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "media/MediaScan.h"
#include "media/MRVMedia.h"
#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace marvo {

namespace {

struct NameCase
{
    const char* title;
    std::string fileName;
    int mediaDivision;
    const char* time;
    bool listed;
};

constexpr const char* unknown = "00000000000000";

class MediaNames : public testing::TestWithParam<NameCase>
{};

TEST_P(MediaNames, tellKindAndTime)
{
    const NameCase& expected = GetParam();
    const std::string path = "/card/AlwaysMovie/" + expected.fileName;
    const MRVMedia media(path);
    EXPECT_EQ(media.path(), path);
    EXPECT_EQ(media.dir(), "/card/AlwaysMovie");
    EXPECT_EQ(media.fileName(), expected.fileName);
    EXPECT_EQ(media.mediaDivision(), expected.mediaDivision);
    EXPECT_EQ(media.isAlwaysMedia(), expected.mediaDivision == 0);
    EXPECT_EQ(media.isMotionMedia(), expected.mediaDivision == 1);
    EXPECT_EQ(media.isEventMedia(), expected.mediaDivision == 2);
    EXPECT_EQ(media.yyyymmddhhmiss(), expected.time);
    EXPECT_EQ(createMediaByPath(path).has_value(), expected.listed);
}

const NameCase nameCases[] = {
    {"front", "alwa_20130526_134502_F.avi", 0, "20130526134502", true},
    {"noChannel", "alwa_20130526_134502.avi", 0, "20130526134502", true},
    {"motion", "motion_20130526_134502.avi", 1, "20130526134502", true},
    {"event", "event_20130526_134502.avi", 2, "20130526134502", true},
    {"motionWithChannelIsTooLong", "motion_20130526_134502_F.avi", 0, unknown, false},
    {"eventWithChannelIsTooLong", "event_20130526_134502_F.avi", 0, unknown, false},
    {"motionTooShortForItsTime", "motion_20130526_1345.avi", 1, unknown, false},
    {"eventTooShortForItsTime", "event_20130526_13450.avi", 2, unknown, false},
    {"eventWithOneCharacterMore", "event_20130526_134502x.avi", 2, "20130526134502", true},
    {"alwaysOneTooShort", "alwa_20130526_13450.avi", 0, unknown, false},
    {"alwaysOneTooLong", "alwa_20130526_134502_FR.avi", 0, unknown, false},
    {"foreignPrefix", "abcd_20130526_134502.avi", 0, unknown, true},
    {"prefixInCapitals", "ALWA_20130526_134502.AVI", 0, unknown, true},
    {"year1969", "alwa_19691231_235959.avi", 0, unknown, true},
    {"year1970", "alwa_19700101_000000.avi", 0, "19700101000000", true},
    {"year2700", "alwa_27001231_235959.avi", 0, "27001231235959", true},
    {"year2701", "alwa_27010101_000000.avi", 0, unknown, true},
    {"month0", "alwa_20130026_134502.avi", 0, unknown, true},
    {"month13", "event_20131326_134502.avi", 2, unknown, true},
    {"day0", "alwa_20130500_134502.avi", 0, unknown, true},
    {"day31OfFebruary", "alwa_20130231_134502.avi", 0, "20130231134502", true},
    {"day32", "alwa_20130532_134502.avi", 0, unknown, true},
    {"hour24", "alwa_20130526_240000.avi", 0, "20130526240000", true},
    {"hour25", "alwa_20130526_250000.avi", 0, unknown, true},
    {"minute60Second60", "alwa_20130526_136060.avi", 0, "20130526136060", true},
    {"minute61", "alwa_20130526_136100.avi", 0, unknown, true},
    {"second61", "alwa_20130526_130061.avi", 0, unknown, true},
    {"lettersInYear", "alwa_2o130526_134502.avi", 0, unknown, true},
    {"letterBehindMonthDigit", "alwa_20135x26_134502.avi", 0, "20130526134502", true},
    {"lettersInHourAreZero", "alwa_20130526_xx4502.avi", 0, "20130526004502", true},
    {"signIsNoNumber", "alwa_20130526_+14502.avi", 0, "20130526004502", true},
    {"spaceIsNoNumber", "alwa_20130526_ 14502.avi", 0, "20130526004502", true},
    {"separatorIsNotLookedAt", "alwa_20130526x134502.avi", 0, "20130526134502", true},
    {"longCharactersCountOnce",
     "alwa_20130526\xED\x95\x9C"
     "134502\xED\x95\x9C.avi",
     0, "20130526134502", true},
    {"longCharacterWithinTheTime",
     "alwa_20130\xC3\xA9"
     "06_134502.avi",
     0, unknown, true},
    {"longCharacterBehindMonthDigit",
     "alwa_20137\xC3\xA9"
     "06_134502.avi",
     0, "20130706134502", true},
    {"malformedBytesCountOneEach",
     "alwa_20130526\xFF"
     "134502\xC3\x28.avi",
     0, "20130526134502", true},
    {"twoDots", "alwa_20130526_134502.x.avi", 0, "20130526134502", true},
};

INSTANTIATE_TEST_SUITE_P(All, MediaNames, testing::ValuesIn(nameCases),
                         [](const auto& row) { return std::string(row.param.title); });

TEST(Media, readsEveryPartOfThePath)
{
    const MRVMedia media("/card/AlwaysMovie/alwa_20130526_134502_F.avi");
    EXPECT_EQ(media.mediaName(), "alwa_20130526_134502_F");
    EXPECT_EQ(media.mediaGroupName(), "alwa_20130526_134502");
    EXPECT_EQ(media.extension(), "avi");
    EXPECT_EQ(media.year(), 2013);
    EXPECT_EQ(media.month(), 5);
    EXPECT_EQ(media.day(), 26);
    EXPECT_EQ(media.hour(), 13);
    EXPECT_EQ(media.minute(), 45);
    EXPECT_EQ(media.second(), 2);
}

TEST(Media, groupNameDropsTwoCharactersNotBytes)
{
    EXPECT_EQ(MRVMedia("/a/x\xED\x95\x9C\xC3\xA9.avi").mediaGroupName(), "x");
    EXPECT_EQ(MRVMedia("/a/xy.avi").mediaGroupName(), "");
    EXPECT_EQ(MRVMedia("/a/x.avi").mediaGroupName(), "");
}

struct PathCase
{
    const char* title;
    std::string given; ///< "CWD" stands for the current directory
    std::string path;
    std::string dir;
    std::string mediaName;
    std::string extension;
};

class MediaPaths : public testing::TestWithParam<PathCase>
{};

TEST_P(MediaPaths, areMadeAbsoluteAndSplit)
{
    const auto withCurrent = [](std::string text) {
        if (const auto at = text.find("CWD"); at != std::string::npos)
            text.replace(at, 3, std::filesystem::current_path().string());
        return text;
    };
    const PathCase& expected = GetParam();
    const MRVMedia media(expected.given);
    EXPECT_EQ(media.path(), withCurrent(expected.path));
    EXPECT_EQ(media.dir(), withCurrent(expected.dir));
    EXPECT_EQ(media.mediaName(), expected.mediaName);
    EXPECT_EQ(media.extension(), expected.extension);
}

const PathCase pathCases[] = {
    {"absolute", "/a/b.avi", "/a/b.avi", "/a", "b", "avi"},
    {"inTheRoot", "/b.AVI", "/b.AVI", "/", "b", "AVI"},
    {"relative", "a/b.avi", "CWD/a/b.avi", "CWD/a", "b", "avi"},
    {"relativeWithDot", "./b.avi", "CWD/b.avi", "CWD", "b", "avi"},
    {"slashesAndDots", "//a/././/b.avi/", "/a/b.avi", "/a", "b", "avi"},
    {"parentsStay", "/a/link/../b.avi", "/a/link/../b.avi", "/a/link/..", "b", "avi"},
    {"hiddenWithoutExtension", "/a/.avi", "/a/.avi", "/a", ".avi", ""},
    {"hiddenWithExtension", "/a/.b.avi", "/a/.b.avi", "/a", ".b", "avi"},
    {"dotInFolderOnly", "/a.avi/b", "/a.avi/b", "/a.avi", "b", ""},
    {"dotAtTheEnd", "/a/b.", "/a/b.", "/a", "b", ""},
    {"root", "/", "/", "/", "", ""},
};

INSTANTIATE_TEST_SUITE_P(All, MediaPaths, testing::ValuesIn(pathCases),
                         [](const auto& row) { return std::string(row.param.title); });

TEST(Media, staysUsableWithoutACurrentDirectory)
{
    const std::filesystem::path before = std::filesystem::current_path();
    {
        const test::TemporaryFolder folder;
        std::filesystem::current_path(folder.path());
    }
    EXPECT_EQ(MRVMedia("a//b.avi").path(), "a/b.avi");
    EXPECT_EQ(MRVMedia("b.avi").mediaName(), "b");
    std::filesystem::current_path(before);
}

TEST(Media, survivesANameOfTenThousandCharacters)
{
    const std::string name(10000, 'x');
    const MRVMedia media("/card/" + name + ".avi");
    EXPECT_EQ(media.mediaName(), name);
    EXPECT_EQ(media.yyyymmddhhmiss(), unknown);
}

TEST(Media, comparesByTimeThenByKindHighestFirst)
{
    const MRVMedia always("/c/alwa_20130526_134502.avi");
    const MRVMedia motion("/c/motion_20130526_134502.avi");
    const MRVMedia event("/c/event_20130526_134502.avi");
    const MRVMedia later("/c/alwa_20130526_134503.avi");
    const MRVMedia lateYear("/c/event_20140101_000000.avi");
    const MRVMedia none("/c/abcd_20130526_134502.avi");
    EXPECT_LT(event.compareDate(motion), 0);
    EXPECT_LT(motion.compareDate(always), 0);
    EXPECT_GT(always.compareDate(event), 0);
    EXPECT_LT(always.compareDate(later), 0);
    EXPECT_LT(later.compareDate(lateYear), 0);
    EXPECT_LT(none.compareDate(event), 0);
    EXPECT_EQ(always.compareDate(MRVMedia("/c/alwa_20130526_134502_R.avi")), 0);
}

TEST(MediaDirection, isReadFromTheLastSixCharacters)
{
    const std::pair<std::string_view, int> rows[] = {
        {"/c/alwa_20130526_134502_F.avi", FrontMedia},
        {"/c/alwa_20130526_134502_R.avi", RearMedia},
        {"/c/x_r.AVI", RearMedia},
        {"/c/x_f.aVi", FrontMedia},
        {"_F.avi", FrontMedia},
        {"F.avi", UnknownMedia},
        {"", UnknownMedia},
        {"/c/x.avi", UnknownMedia},
        {"/c/x_F.avi.part", UnknownMedia},
        {"/c/x-F.avi", UnknownMedia},
        {"/c/x_\xC6.avi", UnknownMedia},
    };
    for (const auto& [path, direction] : rows) {
        EXPECT_EQ(mediaDirection(path), direction) << path;
        EXPECT_EQ(isFrontMedia(path), direction == FrontMedia) << path;
        EXPECT_EQ(isRearMedia(path), direction == RearMedia) << path;
    }
}

} // namespace

} // namespace marvo
