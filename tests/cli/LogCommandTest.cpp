// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "cli/RunCli.h"
#include "logs/LogBytes.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace marvo::test {
namespace {

constexpr const char* expected =
    "No.,Seq.,Date,Time,Day,Latitude,Longitude,Distance,Speed,Max. speed,GPS,X,Y,Z,Voltage\n"
    "1,0,2024/03/07,09:05:00,THU,3733.0000,12658.0040,1234.5,60,95,A,+1.00,-0.50,+0.00,12.5\n";

TEST(LogCommand, writesTheTextOfTheExport)
{
    const TemporaryFolder folder;
    const std::string log = folder.write("marvo_000.drv", drivingLog(1, 1));
    const CliRun toStdout = runCli({"log", log, "--csv", "-"});
    EXPECT_EQ(toStdout.exitCode, 0);
    EXPECT_EQ(toStdout.output, expected);
    EXPECT_EQ(toStdout.errors, "");

    folder.write("out.csv", std::string(5000, 'x'));
    const CliRun toFile = runCli({"log", "--csv", folder.path("out.csv"), "--", log});
    EXPECT_EQ(toFile.exitCode, 0);
    EXPECT_EQ(toFile.output, "");
    EXPECT_EQ(folder.read("out.csv"), toStdout.output);

    const CliRun obd = runCli({"log", folder.write("A.OBD", logHeader(0)), "--csv", "-"});
    EXPECT_EQ(obd.exitCode, 0);
    EXPECT_EQ(std::ranges::count(obd.output, ','), 25);

    const std::string cut = folder.write("cut.drv", drivingLog(0xFFFFFFFF, 1) + "half");
    const CliRun ofCut = runCli({"log", cut, "--csv", "-"});
    EXPECT_EQ(ofCut.exitCode, 0);
    EXPECT_EQ(ofCut.output, toStdout.output);
    EXPECT_NE(ofCut.errors.find("1 of 4294967295 records; the file ends early"), std::string::npos);
}

TEST(LogCommand, refuses)
{
    const TemporaryFolder folder;
    const std::string log = folder.write("a.drv", drivingLog(9000, 9000));
    const std::string cut = folder.write("cut.obd", "elevenbytes");
    const std::string old = folder.write("out.csv", "old");
    const struct
    {
        std::vector<std::string> words;
        int exitCode;
        CliOptions options = {};
    } cases[] = {
        {{"log", cut, "--csv", "-"}, 1},
        {{"log", folder.path("none.drv"), "--csv", "-"}, 1},
        {{"log", old, "--csv", "-"}, 1},
        {{"log", folder.path(), "--csv", "-"}, 1},
        {{"log", log, "--csv", log}, 1},
        {{"log", log, "--csv", folder.path("none/out.csv")}, 1},
        {{"log", log, "--csv", "-"}, 1, {.outputPath = "/dev/full"}},
        {{"log", log, "--csv", old}, 1, {.fileSizeLimit = 10'000}},
        {{"log", log}, 2},
        {{"log", "--csv", "-"}, 2},
        {{"log", log, "--csv"}, 2},
        {{"log", log, log, "--csv", "-"}, 2},
        {{"log", log, "--csv", "-", "--csv", "-"}, 2},
        {{"log", log, "--json"}, 2},
    };
    for (const auto& [words, exitCode, options] : cases) {
        const CliRun run = runCli(words, options);
        EXPECT_EQ(run.exitCode, exitCode) << ::testing::PrintToString(words);
        EXPECT_NE(run.errors, "") << ::testing::PrintToString(words);
    }
    EXPECT_EQ(folder.read("out.csv"), "old");
    EXPECT_EQ(folder.read("a.drv"), drivingLog(9000, 9000));
}

} // namespace
} // namespace marvo::test
