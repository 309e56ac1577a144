// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "TemporaryFolder.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <optional>
#include <string>
#include <vector>

namespace marvo::test {

/// What a run of marvo-cli left behind.
struct CliRun
{
    int exitCode = -1; ///< -1 when it did not end by itself
    std::string output;
    std::string errors;
};

/// Runs marvo-cli with the words as they are, no shell in between. An output path replaces the collecting of
/// stdout; a file size limit (bytes) makes its writes fail beyond it.
struct CliOptions
{
    std::optional<std::string> outputPath;
    std::optional<rlim_t> fileSizeLimit;
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

    const pid_t child = ::fork();
    if (child == 0) {
        ::dup2(::open("/dev/null", O_RDONLY), 0);
        ::dup2(::open(output.c_str(), O_WRONLY | O_CREAT, 0600), 1);
        ::dup2(::open(errors.c_str(), O_WRONLY | O_CREAT, 0600), 2);
        if (options.fileSizeLimit) {
            const rlimit limit{.rlim_cur = *options.fileSizeLimit, .rlim_max = *options.fileSizeLimit};
            ::setrlimit(RLIMIT_FSIZE, &limit);
            std::signal(SIGXFSZ, SIG_IGN);
        }
        ::execv(MARVO_CLI, argv.data());
        ::_exit(127);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return {.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1,
            .output = options.outputPath ? std::string() : folder.read("output"),
            .errors = folder.read("errors")};
}

} // namespace marvo::test
