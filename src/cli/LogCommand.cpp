// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "cli/Commands.h"
#include "logs/DrivingLog.h"
#include "logs/LogExport.h"
#include "support/PrintableText.h"
#include "texts/EnglishText.h"

#include <cstdio>
#include <optional>
#include <string>
#include <vector>

namespace marvo::cli {

namespace {

ExitCode run(const Arguments& arguments);

} // namespace

const Command logCommand{
    "log", "write a driving log (.drv, .obd) as comma-separated text",
    "Usage: marvo-cli log FILE --csv OUT|-\n"
    "\n"
    "Writes the driving log in FILE as comma-separated text to the file OUT, or to stdout\n"
    "for \"-\": a line of titles, then a line for each record, as the application exports\n"
    "it. OUT is replaced whole or not at all. FILE is the driving log of a camera (.drv)\n"
    "or of one with an OBD adapter (.obd).\n"
    "\n"
    "  --         ends the options; FILE may then begin with a dash\n"
    "\n"
    "If FILE is no such log, the exit code is 1. If it ends early, its complete records\n"
    "are written, with a warning on stderr and exit code 0.\n",
    run};

namespace {

struct Request
{
    std::optional<std::string_view> file;
    std::optional<std::string_view> output;
};

/// Fills the request from the command line; returns what is wrong with it, or nothing.
std::optional<std::string> parse(const Arguments& arguments, Request& request)
{
    bool optionsEnded = false;
    bool outputFollows = false;
    for (const std::string_view word : arguments) {
        const bool isOption = !optionsEnded && word.size() > 1 && word.front() == '-';
        if (outputFollows) {
            request.output = word;
            outputFollows = false;
        } else if (isOption && word == "--") {
            optionsEnded = true;
        } else if (isOption && word == "--csv" && !request.output) {
            outputFollows = true;
        } else if (isOption) {
            return (word == "--csv" ? "only one " : "no option ") + printableText(word);
        } else if (request.file) {
            return "one FILE only, not also '" + printableText(word) + "'";
        } else {
            request.file = word;
        }
    }
    if (outputFollows || (request.output && request.output->empty()))
        return "--csv takes a file, or - for stdout";
    if (!request.file)
        return "FILE is missing";
    if (!request.output)
        return "--csv OUT is missing; --csv - writes to stdout";
    return std::nullopt;
}

std::string faultText(const DrivingLog::Reading& reading)
{
    switch (reading.fault) {
    case DrivingLog::Fault::NoLog:
        return "no driving log: shorter than its header";
    case DrivingLog::Fault::NoMemory:
        return "too large for this computer's memory";
    default:
        return reading.detail;
    }
}

std::vector<std::string> titlesOf(const LogDescription& description)
{
    std::vector<std::string> titles;
    for (const LogColumn& column : description.columns)
        titles.emplace_back(column.titleIs == LogColumn::Title::Key ? englishText(column.title)
                                                                    : column.title);
    return titles;
}

ExitCode run(const Arguments& arguments)
{
    Request request;
    if (const auto mistake = parse(arguments, request))
        return wrongUsage(logCommand, *mistake);
    const std::string path(*request.file);
    const std::string output(*request.output);
    const LogDescription* description = logOfFile(path);
    if (!description)
        return failed(logCommand,
                      printableText(path) + ": no driving log: its name ends neither in .drv nor .obd");
    const DrivingLog::Reading reading = DrivingLog::read(path, *description);
    if (!reading.log)
        return failed(logCommand, printableText(path) + ": " + faultText(reading));

    const DrivingLog& log = *reading.log;
    if (log.endsEarly()) {
        const std::string warning = "marvo-cli log: " + printableText(path) + ": " +
                                    std::to_string(log.recordCount()) + " of " +
                                    std::to_string(log.promisedCount()) + " records; the file ends early\n";
        std::fwrite(warning.data(), 1, warning.size(), stderr);
    }
    const std::vector<std::string> titles = titlesOf(*description);
    if (output == "-") {
        const auto sink = [](std::string_view piece) {
            return writeOut(piece) ? std::error_code() : std::make_error_code(std::errc::io_error);
        };
        return writeLogAsCsv(log, titles, sink) ? failed(logCommand, "the log could not be written out")
                                                : Done;
    }
    if (const std::error_code error = exportLog(log, titles, output)) {
        const bool isItself = error == std::errc::file_exists;
        return failed(logCommand,
                      printableText(output) + ": " + (isItself ? "the log itself" : error.message()));
    }
    return Done;
}

} // namespace

} // namespace marvo::cli
