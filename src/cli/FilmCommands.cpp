// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "cli/Commands.h"
#include "cli/LongWork.h"
#include "film/cut/FilmCutting.h"
#include "support/PrintableText.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <optional>
#include <string>
#include <vector>

namespace marvo::cli {

namespace {

ExitCode runClip(const Arguments& words);
ExitCode runRepair(const Arguments& words);

} // namespace

const Command clipCommand{"clip", "copies a part of a recording into a film of its own",
                          "Usage: marvo-cli clip FILE --from S --to S [--no-sound] OUT.avi\n"
                          "\n"
                          "Copies the pictures of FILE from one time to another, their sound, and the "
                          "camera's data of that time, so\n"
                          "that the clip has its readings and places. Nothing is encoded. H.264 can only be "
                          "cut at a key picture: the\n"
                          "clip begins at the one before, and the result says by how much.\n"
                          "\n"
                          "  --from S    seconds from the beginning of the film, such as 12.5\n"
                          "  --to S      seconds from the beginning; beyond the end means the end\n"
                          "  --no-sound  leaves the sound out\n"
                          "\n"
                          "A file that is there already is never replaced.\n"
                          "\n"
                          "Exit code: 0 done, 1 nothing was written, 2 wrong usage.\n",
                          runClip};

const Command repairCommand{"repair", "writes a damaged recording as a new film that plays",
                            "Usage: marvo-cli repair FILE OUT.avi\n"
                            "\n"
                            "Writes a recording that has no index, was cut short or has wrong counts in its "
                            "header as a new film. Pictures,\n"
                            "sound and the camera's data are copied as they are. FILE is never changed, and "
                            "a file that is there already\n"
                            "never replaced.\n"
                            "\n"
                            "Exit code: 0 done, 1 nothing was written, 2 wrong usage.\n",
                            runRepair};

namespace {

std::optional<std::int64_t> millisecondsOf(std::string_view text)
{
    double seconds = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), seconds);
    if (error != std::errc() || end != text.data() + text.size() || !(seconds >= 0) || seconds > 1e9)
        return std::nullopt;
    return std::llround(seconds * 1000);
}

std::string secondsText(std::int64_t ms)
{
    char text[32];
    std::snprintf(text, sizeof text, "%lld.%03lld s", static_cast<long long>(ms / 1000),
                  static_cast<long long>(ms % 1000));
    return text;
}

ExitCode explain(const Command& command, const CutResult& result, const std::string& file,
                 const std::string& out)
{
    switch (result.fault) {
    case CutFault::None:
        return Done;
    case CutFault::CannotRead:
        return failed(command, "cannot read " + file + ": " +
                                   (result.error ? result.error.message() : "it is not a regular file"));
    case CutFault::NoFilm:
        return failed(command, file + " holds no film");
    case CutFault::NoRate:
        return failed(command, file + " does not tell how many pictures it has a second");
    case CutFault::NothingThere:
        return failed(command, "there is no picture between these times");
    case CutFault::CannotWrite:
        return failed(command, "cannot write " + out + ": " + result.error.message());
    case CutFault::Stopped:
        return failed(command, "stopped; nothing was written");
    }
    return Failed;
}

struct ClipArguments
{
    std::string file;
    std::string out;
    std::optional<std::int64_t> fromMs;
    std::optional<std::int64_t> toMs;
    bool withSound = true;
};

/// An error text, or none.
std::optional<std::string> read(const Arguments& words, ClipArguments& arguments)
{
    std::vector<std::string> paths;
    bool optionsEnded = false;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string_view word = words[i];
        if (optionsEnded || word.size() < 2 || word.front() != '-') {
            paths.emplace_back(word);
        } else if (word == "--") {
            optionsEnded = true;
        } else if (word == "--no-sound") {
            arguments.withSound = false;
        } else if (word == "--from" || word == "--to") {
            auto& time = word == "--from" ? arguments.fromMs : arguments.toMs;
            time = ++i < words.size() ? millisecondsOf(words[i]) : std::nullopt;
            if (!time)
                return std::string(word) + " takes seconds, such as 12.5";
        } else {
            return "no option '" + std::string(word) + "'";
        }
    }
    if (paths.size() != 2 || paths[0].empty() || paths[1].empty())
        return "takes FILE and OUT.avi";
    if (!arguments.fromMs || !arguments.toMs)
        return "--from and --to are needed";
    if (*arguments.fromMs >= *arguments.toMs)
        return "--from must be before --to";
    arguments.file = paths[0];
    arguments.out = paths[1];
    if (!arguments.out.ends_with(".avi") && !arguments.out.ends_with(".AVI"))
        return "OUT must end in .avi";
    return std::nullopt;
}

CutOptions optionsFor(const StopOnInterrupt& interrupt, ProgressLine& progress)
{
    CutOptions options;
    options.stop = interrupt.token();
    options.progress = [&progress](double fraction) { progress.show(fraction); };
    return options;
}

ExitCode runClip(const Arguments& words)
{
    ClipArguments arguments;
    if (const auto error = read(words, arguments))
        return wrongUsage(clipCommand, *error);
    const StopOnInterrupt interrupt;
    ProgressLine progress("Copying the clip");
    CutOptions options = optionsFor(interrupt, progress);
    options.withSound = arguments.withSound;
    const CutResult result =
        cutClip(arguments.file, *arguments.fromMs, *arguments.toMs, arguments.out, options);
    progress.clear();
    if (result.fault != CutFault::None)
        return explain(clipCommand, result, arguments.file, arguments.out);
    std::string text = std::to_string(result.pictures) + " pictures, " + secondsText(result.lengthMs) + ", " +
                       std::to_string(result.readings) + " readings";
    if (result.earlierMs > 0)
        text += "; begins " + secondsText(result.earlierMs) + " earlier, at a key picture";
    return writeOut(text + "\n") ? Done : Failed;
}

ExitCode runRepair(const Arguments& words)
{
    const std::size_t first = !words.empty() && words[0] == "--" ? 1 : 0;
    if (words.size() != first + 2 || words[first].empty() || words[first + 1].empty() ||
        (first == 0 && (words[0].front() == '-' || words[1].front() == '-')))
        return wrongUsage(repairCommand, "takes FILE and OUT.avi");
    const std::string file(words[first]);
    const std::string out(words[first + 1]);
    const StopOnInterrupt interrupt;
    ProgressLine progress("Copying the recording");
    const CutResult result = repairRecording(file, out, optionsFor(interrupt, progress));
    progress.clear();
    if (result.fault != CutFault::None)
        return explain(repairCommand, result, file, out);
    return writeOut(std::to_string(result.pictures) + " pictures, " + secondsText(result.lengthMs) + "\n")
               ? Done
               : Failed;
}

} // namespace

} // namespace marvo::cli
