// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "card/ClockFile.h"
#include "TemporaryFolder.h"

#include <gtest/gtest.h>

namespace marvo {
namespace {

constexpr ClockMoment moment{2013, 5, 26, 13, 45, 2};

TEST(ClockFile, HoldsNineteenBytesWhateverStoodThere)
{
    for (const std::string& before :
         {std::string(), std::string("2013"), std::string(19, 'x'), std::string(40'000, '\n')}) {
        const test::TemporaryFolder card;
        const std::string path = card.write(clockFileName, before);
        EXPECT_FALSE(writeClockFile(path, moment, ClockFilePlace::Existing));
        EXPECT_EQ(card.read(clockFileName), "2013/05/26 13:45:02") << before.size();
    }
    EXPECT_EQ(clockFileBytes({1, 2, 3, 0, 0, 9}), "0001/02/03 00:00:09");
    EXPECT_EQ(clockFileBytes({9999, 12, 31, 23, 59, 59}).size(), 19U);
}

TEST(ClockFile, IsMadeWhereTheUserWantsItButNotWhereACardWas)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.path(clockFileName);
    EXPECT_EQ(writeClockFile(path, moment, ClockFilePlace::Existing), std::errc::no_such_file_or_directory);
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
    EXPECT_FALSE(writeClockFile(path, moment, ClockFilePlace::Any));
    EXPECT_EQ(folder.read(clockFileName).size(), 19U);
    EXPECT_TRUE(writeClockFile(folder.path("gone/timeset.cfg"), moment, ClockFilePlace::Any));

    const std::string victim = folder.write("victim", "precious");
    const std::string link = folder.makeFolder("card") + "/timeset.cfg";
    std::filesystem::create_symlink(victim, link);
    EXPECT_TRUE(writeClockFile(link, moment, ClockFilePlace::Existing));
    EXPECT_EQ(folder.read("victim"), "precious");
}

} // namespace
} // namespace marvo
