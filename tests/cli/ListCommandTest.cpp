// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "cli/RunCli.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace marvo::test {

namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

TEST(ListCommand, writesOneJsonArrayInListOrder)
{
    const TemporaryFolder folder;
    folder.write("EventMovie/event_20130526_134502.avi");
    folder.write("AlwaysMovie/alwa_20130526_134502_F.avi");
    folder.write("AlwaysMovie/alwa_20130526_134402_R.avi");
    const CliRun run = runCli({"list", folder.path(), "--json"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.errors, "");
    const auto member = [&](const std::string& name, int division, const char* time, int direction) {
        return "{\"path\":\"" + folder.path(name) + "\",\"fileName\":\"" + name.substr(name.find('/') + 1) +
               "\",\"mediaDivision\":" + std::to_string(division) + ",\"yyyymmddhhmiss\":\"" + time +
               "\",\"mediaDirection\":" + std::to_string(direction) + "}";
    };
    EXPECT_EQ(run.output, "[" + member("AlwaysMovie/alwa_20130526_134402_R.avi", 0, "20130526134402", 1) +
                              "," + member("EventMovie/event_20130526_134502.avi", 2, "20130526134502", 2) +
                              "," + member("AlwaysMovie/alwa_20130526_134502_F.avi", 0, "20130526134502", 0) +
                              "]\n");
    EXPECT_EQ(runCli({"list", folder.makeFolder("none"), "--json"}).output, "[]\n");
}

TEST(ListCommand, staysValidJsonAndHarmlessToATerminalWithHostileNames)
{
    const TemporaryFolder folder;
    folder.write("a\"\\\x1B[2J\n/alwa_20130526_13\xFF"
                 "502.avi");
    const CliRun json = runCli({"list", "--json", "--", folder.path()});
    const QJsonDocument document = QJsonDocument::fromJson(QByteArray::fromStdString(json.output));
    ASSERT_EQ(document.array().size(), 1);
    EXPECT_THAT(json.output, Not(HasSubstr("\x1B")));
    EXPECT_EQ(std::count(json.output.begin(), json.output.end(), '\n'), 1);
    EXPECT_EQ(document.array()[0].toObject()[QStringLiteral("fileName")].toString(),
              QStringLiteral("alwa_20130526_13\uFFFD502.avi"));

    const CliRun table = runCli({"list", folder.path()});
    EXPECT_EQ(table.exitCode, 0);
    EXPECT_THAT(table.output, Not(HasSubstr("\x1B")));
    EXPECT_EQ(std::count(table.output.begin(), table.output.end(), '\n'), 2);
}

TEST(ListCommand, tableShowsDateKindAndChannel)
{
    const TemporaryFolder folder;
    folder.write("alwa_20130526_134502_F.avi");
    folder.write("abcd_20130526_134502.avi");
    EXPECT_EQ(runCli({"list", folder.path()}).output, "Date        Time      Kind    Channel  File\n"
                                                      "-           -         always  -        " +
                                                          folder.path("abcd_20130526_134502.avi") +
                                                          "\n"
                                                          "2013-05-26  13:45:02  always  front    " +
                                                          folder.path("alwa_20130526_134502_F.avi") + "\n");
}

TEST(ListCommand, tellsWhatIsWrong)
{
    const TemporaryFolder folder;
    folder.write("file");
    const std::tuple<std::vector<std::string>, int, const char*> rows[] = {
        {{folder.path("missing")}, 1, "No such file or directory"},
        {{folder.path("file"), "--json"}, 1, "Not a directory"},
        {{"--", "--json"}, 1, "No such file or directory"},
        {{}, 2, "--help"},
        {{folder.path(), "--jsn"}, 2, "--jsn"},
        {{folder.path(), folder.path()}, 2, "--help"},
    };
    for (auto [words, exitCode, error] : rows) {
        words.insert(words.begin(), "list");
        const CliRun run = runCli(words);
        EXPECT_EQ(run.exitCode, exitCode) << run.errors;
        EXPECT_THAT(run.errors, HasSubstr(error));
        EXPECT_EQ(run.output, "");
    }
    EXPECT_EQ(runCli({"list", folder.path()}, {.outputPath = "/dev/full"}).exitCode, 1);
}

TEST(ListCommand, writesLongListsWholeAndEndsWithItsReader)
{
    const TemporaryFolder folder;
    constexpr int count = 600;
    for (int i = 0; i < count; ++i)
        folder.write("alwa_20130526_13" + std::to_string(1000 + i) + "_F.avi");
    const auto document =
        QJsonDocument::fromJson(QByteArray::fromStdString(runCli({"list", folder.path(), "--json"}).output));
    EXPECT_EQ(document.array().size(), count);
    const std::string table = runCli({"list", folder.path()}).output;
    EXPECT_EQ(std::count(table.begin(), table.end(), '\n'), count + 1);

    const CliRun headless = runCli({"list", folder.path()}, {.nobodyReads = true});
    EXPECT_EQ(headless.exitCode, 128 + SIGPIPE);
    EXPECT_EQ(headless.errors, "");

    const CliRun cut = runCli({"list", folder.path()}, {.preload = FAILING_FOLDER});
    EXPECT_EQ(cut.exitCode, 1);
    EXPECT_THAT(cut.errors, HasSubstr("Input/output error"));
    EXPECT_GE(std::count(cut.output.begin(), cut.output.end(), '\n'), 1 + 8);
}

} // namespace

} // namespace marvo::test
