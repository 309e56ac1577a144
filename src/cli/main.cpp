// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "cli/Commands.h"
#include "support/PrintableText.h"
#include "support/Termination.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <new>
#include <string>

namespace marvo::cli {

namespace {

constexpr const Command* commands[] = {&inspectCommand, &nmeaCommand,   &listCommand,   &settingsCommand,
                                       &logCommand,     &drivesCommand, &eventsCommand, &archiveCommand,
                                       &trackCommand,   &clipCommand,   &repairCommand, &verifyCommand,
                                       &reportCommand,  &demoCommand};

void say(const Command& command, std::string_view message, std::string_view hint)
{
    std::string line = "marvo-cli ";
    line.append(command.name).append(": ").append(printableText(message)).append("\n").append(hint);
    std::fwrite(line.data(), 1, line.size(), stderr);
}

std::string overview()
{
    std::string text = "Usage: marvo-cli COMMAND [ARGUMENT...]\n\nCommands:\n";
    for (const Command* command : commands) {
        text.append("  ").append(command->name);
        text.append(command->name.size() < 10 ? 10 - command->name.size() : 1, ' ')
            .append(command->summary)
            .append("\n");
    }
    return text +
           "\n'marvo-cli COMMAND --help' shows its arguments. Exit code: 0 done, 1 failed, 2 wrong usage.\n";
}

ExitCode run(const Arguments& words)
{
    if (words.empty()) {
        const std::string text = overview();
        std::fwrite(text.data(), 1, text.size(), stderr);
        return WrongUsage;
    }
    if (words[0] == "--help" || words[0] == "-h")
        return writeOut(overview()) ? Done : Failed;
    if (words[0] == "--version")
        return writeOut("marvo-cli " MARVO_VERSION "\n") ? Done : Failed;

    for (const Command* command : commands) {
        if (command->name != words[0])
            continue;
        const Arguments arguments(words.begin() + 1, words.end());
        for (const std::string_view argument : arguments) {
            if (argument == "--")
                break;
            if (argument == "--help" || argument == "-h")
                return writeOut(command->usage) ? Done : Failed;
        }
        return command->run(arguments);
    }
    const std::string message =
        "marvo-cli: no command '" + printableText(words[0]) + "'; try 'marvo-cli --help'\n";
    std::fwrite(message.data(), 1, message.size(), stderr);
    return WrongUsage;
}

} // namespace

ExitCode wrongUsage(const Command& command, std::string_view message)
{
    say(command, message, "'marvo-cli " + std::string(command.name) + " --help' shows its arguments\n");
    return WrongUsage;
}

ExitCode failed(const Command& command, std::string_view message)
{
    say(command, message, {});
    return Failed;
}

bool writeOut(std::string_view text)
{
    if (std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0)
        return true;
    if (errno == EPIPE) {
        // A reader that has seen enough, such as head, is no failure: end as other tools do.
        std::signal(SIGPIPE, SIG_DFL);
        std::raise(SIGPIPE);
    }
    return false;
}

} // namespace marvo::cli

int main(int argc, char** argv)
{
    // Only stdout's reader may end the process, see writeOut(); any other closed pipe is a failed write.
    std::signal(SIGPIPE, SIG_IGN);
    marvo::cleanUpOnTermination();
    try {
        return marvo::cli::run(marvo::cli::Arguments(argv + (argc > 0 ? 1 : 0), argv + argc));
    } catch (const std::bad_alloc&) {
        std::fputs("marvo-cli: there is not enough memory\n", stderr);
        return marvo::cli::Failed;
    }
}
