// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "TemporaryFolder.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

namespace marvo::test {

/// What a run of marvo-cli left behind.
struct CliRun
{
    int exitCode = -1; ///< 128 and the number of the signal that ended it
    std::string output;
    std::string errors;
};

/// Runs marvo-cli with the words as they are, no shell in between. An output path replaces the collecting of
/// stdout; a file size limit (bytes) makes its writes fail beyond it. Standard input is the input path, or a
/// pipe that the text (short enough for a pipe's buffer) has been put into.
struct CliOptions
{
    std::string inputPath = "/dev/null";
    std::optional<std::string> pipedInput = std::nullopt;
    std::optional<std::string> outputPath = std::nullopt;
    std::optional<rlim_t> fileSizeLimit = std::nullopt;
    bool nobodyReads = false; ///< stdout is a pipe whose reader has gone
    std::string preload = {}; ///< a library whose functions stand in for the system's
};

inline CliRun runCli(const std::vector<std::string>& words, const CliOptions& options = {})
{
    const TemporaryFolder folder;
    std::vector<std::string> all{MARVO_CLI};
    all.insert(all.end(), words.begin(), words.end());
    std::vector<char*> argv;
    for (std::string& word : all)
        argv.push_back(word.data());
    argv.push_back(nullptr);
    const std::string output = options.outputPath.value_or(folder.path("output"));
    const std::string errors = folder.path("errors");

    std::array<int, 2> pipe{-1, -1};
    if (options.pipedInput) {
        if (::pipe(pipe.data()) != 0 ||
            ::write(pipe[1], options.pipedInput->data(), options.pipedInput->size()) < 0)
            return {};
        ::close(pipe[1]);
    }
    const pid_t child = ::fork();
    if (child == 0) {
        ::dup2(options.pipedInput ? pipe[0] : ::open(options.inputPath.c_str(), O_RDONLY), 0);
        ::dup2(::open(output.c_str(), O_WRONLY | O_CREAT, 0600), 1);
        std::array<int, 2> closed{-1, -1};
        if (options.nobodyReads && ::pipe(closed.data()) == 0) {
            ::close(closed[0]);
            ::dup2(closed[1], 1);
        }
        if (!options.preload.empty()) {
            ::setenv("LD_PRELOAD", options.preload.c_str(), 1);
            ::setenv("ASAN_OPTIONS", "verify_asan_link_order=0", 1);
        }
        ::dup2(::open(errors.c_str(), O_WRONLY | O_CREAT, 0600), 2);
        if (options.fileSizeLimit) {
            const rlimit limit{.rlim_cur = *options.fileSizeLimit, .rlim_max = *options.fileSizeLimit};
            ::setrlimit(RLIMIT_FSIZE, &limit);
            std::signal(SIGXFSZ, SIG_IGN);
        }
        ::execv(MARVO_CLI, argv.data());
        ::_exit(127);
    }
    ::close(pipe[0]);
    int status = 0;
    ::waitpid(child, &status, 0);
    return {.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status),
            .output = options.outputPath ? std::string() : folder.read("output"),
            .errors = folder.read("errors")};
}

} // namespace marvo::test
