// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "cli/RunCli.h"
#include "demo/CardReader.h"
#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <thread>

namespace marvo::demo {
namespace {

namespace fs = std::filesystem;
using namespace marvo::test;

TEST(DemoCommand, refusesWrongUsageAndTellsOfFailures)
{
    const TemporaryFolder folder;
    folder.write("file");
    for (const auto& words : std::vector<std::vector<std::string>>{
             {"demo"}, {"demo", ""}, {"demo", "--fast"}, {"demo", folder.path("a"), folder.path("b")}}) {
        const CliRun run = runCli(words);
        EXPECT_EQ(run.exitCode, 2);
        EXPECT_NE(run.errors.find("marvo-cli demo"), std::string::npos);
    }
    EXPECT_FALSE(fs::exists(folder.path("a")));

    const CliRun help = runCli({"demo", "--help"});
    EXPECT_EQ(help.exitCode, 0);
    EXPECT_NE(help.output.find("FOLDER"), std::string::npos);

    const CliRun onFile = runCli({"demo", folder.path("file")});
    EXPECT_EQ(onFile.exitCode, 1);
    EXPECT_NE(onFile.errors.find("cannot make the folder '" + folder.path("file")), std::string::npos)
        << onFile.errors;

    const CliRun onFull =
        runCli({"demo", folder.path("full")}, {.outputPath = {}, .fileSizeLimit = 3'000'000});
    EXPECT_EQ(onFull.exitCode, 1);
    EXPECT_NE(onFull.errors.find(".avi': File too large"), std::string::npos) << onFull.errors;
    for (const auto& entry : fs::recursive_directory_iterator(folder.path("full")))
        EXPECT_TRUE(entry.is_directory()) << entry.path();
}

TEST(DemoCommand, anInterruptLeavesNothingHalfWritten)
{
    const TemporaryFolder folder;
    const std::string card = folder.path("card");
    const pid_t child = ::fork();
    if (child == 0) {
        ::dup2(::open("/dev/null", O_RDWR), 1);
        ::dup2(1, 2);
        ::execl(MARVO_CLI, MARVO_CLI, "demo", card.c_str(), nullptr);
        ::_exit(127);
    }
    const auto isAtWork = [&] {
        std::error_code ignored;
        return !fs::is_empty(card + "/AlwaysMovie", ignored) && !ignored;
    };
    for (int i = 0; i < 500 && !isAtWork(); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    EXPECT_TRUE(isAtWork());
    ::kill(child, SIGINT);
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 1);
    for (const auto& entry : fs::recursive_directory_iterator(card)) {
        if (entry.is_directory())
            continue;
        const std::string name = entry.path().string();
        ASSERT_TRUE(name.ends_with(".avi")) << name;
        EXPECT_EQ(numberAt<std::uint32_t>(contents(name), 4) + 8, fs::file_size(entry.path())) << name;
    }
}

} // namespace
} // namespace marvo::demo
