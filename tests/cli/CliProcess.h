// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <sys/wait.h>

namespace marvo::test {

struct CliResult
{
    int exitCode = -1;
    std::string output;
    std::string errors;
};

/// Runs marvo-cli through the shell with these arguments, quoted and redirected as the caller writes them;
/// `folder` takes what it says on stderr.
inline CliResult runCli(const std::string& folder, const std::string& arguments,
                        const std::string& before = {})
{
    const std::string errorFile = folder + "/stderr";
    const std::string command = before + " '" MARVO_CLI "' " + arguments + " 2>'" + errorFile + "'";
    CliResult result;
    std::FILE* const pipe = ::popen(command.c_str(), "r");
    if (!pipe)
        return result;
    char block[4096];
    for (std::size_t count; (count = std::fread(block, 1, sizeof block, pipe)) > 0;)
        result.output.append(block, count);
    const int status = ::pclose(pipe);
    result.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    std::ifstream errors(errorFile, std::ios::binary);
    result.errors.assign(std::istreambuf_iterator<char>(errors), {});
    return result;
}

} // namespace marvo::test
