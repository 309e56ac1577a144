// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "archive/ArchiveCheck.h"
#include "archive/ArchiveLayout.h"
#include "archive/CardCopy.h"
#include "archive/CarOfCard.h"
#include "archive/Gate.h"
#include "archive/TransferLog.h"
#include "archive/WorkControl.h"
#include "card/CardContents.h"
#include "cli/Commands.h"
#include "cli/LongWork.h"
#include "support/PrintableText.h"

#include <cstdio>
#include <optional>
#include <string>
#include <vector>

namespace marvo::cli {

namespace {

ExitCode run(const Arguments& words);

} // namespace

const Command archiveCommand{
    "archive", "copies a card into an archive, and checks one",
    "Usage: marvo-cli archive copy CARD ARCHIVE [--car NAME] [--also FOLDER]...\n"
    "       marvo-cli archive compare CARD ARCHIVE [--car NAME] [--also FOLDER]...\n"
    "       marvo-cli archive verify ARCHIVE\n"
    "\n"
    "copy copies every file of CARD, whatever its name, to ARCHIVE/NAME/YYYY/YYYY-MM-DD/ by the day that "
    "its\n"
    "name tells, or to ARCHIVE/NAME/undated/. Each file is read back before it gets its name; its SHA-256 "
    "sum\n"
    "goes to the SHA256SUMS of its day, which 'sha256sum -c' reads. What the archive has already is not "
    "written\n"
    "again. A copy that was stopped at any moment goes on with the next one.\n"
    "\n"
    "compare tells whether each byte of CARD is in ARCHIVE, so that the card may be formatted: it reads the "
    "card\n"
    "and the archive's files anew, whatever the sums say.\n"
    "\n"
    "verify compares each file of ARCHIVE with its sum and tells what is changed, missing or added.\n"
    "\n"
    "  --car NAME     the folder of the car; else the one that this card was copied to before, else the "
    "vehicle\n"
    "                 number of the card's settings\n"
    "  --also FOLDER  a second archive that is filled, or compared, in the same reading\n"
    "\n"
    "Exit code: 0 when every file is in every archive, or the archive is as it was copied; 1 when not; 2 "
    "wrong\n"
    "usage.\n",
    run};

namespace {

struct ArchiveArguments
{
    std::vector<std::string> folders; ///< CARD ARCHIVE, or ARCHIVE
    std::vector<std::string> also;
    std::optional<std::string> car;
};

std::optional<ArchiveArguments> parse(const Arguments& words, std::size_t folders, bool takesOptions)
{
    const auto refused = [](const std::string& message) {
        wrongUsage(archiveCommand, message);
        return std::nullopt;
    };
    ArchiveArguments result;
    bool optionsEnded = false;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string_view word = words[i];
        const bool isOption = !optionsEnded && word.size() > 1 && word.front() == '-';
        const bool takesValue = word == "--car" || word == "--also";
        if (isOption && word == "--") {
            optionsEnded = true;
        } else if (isOption && takesOptions && takesValue) {
            if (++i == words.size() || words[i].empty())
                return refused(std::string(word) + " takes a value");
            if (word == "--also")
                result.also.emplace_back(words[i]);
            else
                result.car = words[i];
        } else if (isOption) {
            return refused("no option '" + printableText(word) + "'");
        } else if (word.empty() || result.folders.size() == folders) {
            return refused("no use for '" + printableText(word) + "'");
        } else {
            result.folders.emplace_back(word);
        }
    }
    if (result.folders.size() < folders)
        return refused(folders == 2 ? "CARD and ARCHIVE are needed" : "ARCHIVE is missing");
    if (result.car && !isCarName(*result.car))
        return refused("'" + printableText(*result.car) + "' cannot be the name of a car's folder");
    return result;
}

std::string row(std::string_view name, const std::string& value)
{
    std::string text(name);
    text.append(name.size() < 12 ? 12 - name.size() : 1, ' ');
    return text + value + "\n";
}

std::string countText(std::size_t count, const char* one, const char* many)
{
    return std::to_string(count) + " " + (count == 1 ? one : many);
}

std::string filesText(std::size_t count) { return countText(count, "file", "files"); }

std::string errorText(const std::error_code& error)
{
    if (error == std::errc::not_supported)
        return "the library libcrypto cannot be loaded";
    return error.message();
}

/// The words for an archive or card that the work did not even begin with.
std::string refusalText(const std::error_code& error)
{
    return error == std::errc::invalid_argument
               ? "card and archives must be different folders, none within another"
               : errorText(error);
}

double fractionOf(std::uint64_t part, std::uint64_t whole)
{
    return whole > 0 ? static_cast<double>(part) / static_cast<double>(whole) : 0;
}

std::vector<std::string> archivesOf(const ArchiveArguments& arguments)
{
    std::vector<std::string> archives{arguments.folders[1]};
    archives.insert(archives.end(), arguments.also.begin(), arguments.also.end());
    return archives;
}

std::optional<std::string> carOf(const ArchiveArguments& arguments)
{
    if (arguments.car)
        return arguments.car;
    const std::string car = proposedCar(arguments.folders[0], arguments.folders[1]);
    if (car.empty()) {
        wrongUsage(archiveCommand, "--car NAME is needed: the card's settings tell no vehicle number");
        return std::nullopt;
    }
    return car;
}

ExitCode copy(const ArchiveArguments& arguments)
{
    const auto car = carOf(arguments);
    if (!car)
        return WrongUsage;
    const std::string& card = arguments.folders[0];
    const StopOnInterrupt interrupt;
    WorkControl control(interrupt.token());
    ProgressLine line("Copying the card");
    const CardCopyResult result = copyCard({.card = card,
                                            .car = *car,
                                            .archives = archivesOf(arguments),
                                            .cardIdentifier = cardIdentifierOf(card)},
                                           control, [&](const CardCopyProgress& progress) {
                                               line.show(fractionOf(progress.bytes, progress.totalBytes));
                                           });
    line.clear();
    if (result.end == CardCopyResult::End::NotBegun)
        return failed(archiveCommand,
                      printableText(card) + " cannot be copied: " + refusalText(result.error));

    std::string text = row("Card", printableText(card) + ": " + filesText(result.files) + ", " +
                                       decimalSizeString(result.bytes)) +
                       row("Car", printableText(*car));
    for (const CardCopyResult::ArchiveOutcome& archive : result.archives) {
        text += row("Archive", printableText(archive.path) + ": " + filesText(archive.copied) + " copied, " +
                                   decimalSizeString(archive.copiedBytes) + "; " + filesText(archive.there) +
                                   " there already");
        if (archive.notReadAgain > 0)
            text += row("", filesText(archive.notReadAgain) + " compared, medium not read again");
        if (archive.error)
            text += row("", "stopped: " + archive.error.message());
    }
    for (const CardCopyProblem& problem : result.problems)
        text += row("Problem",
                    printableText(lineOfPath(problem.path)) + ": " + printableText(problemText(problem)));
    if (!writeOut(text))
        return failed(archiveCommand, "the result could not be written");
    if (result.end == CardCopyResult::End::Cancelled)
        return failed(archiveCommand, "stopped; the next copy goes on");
    if (result.end == CardCopyResult::End::CardGone)
        return failed(archiveCommand, "the card does not answer any more; the next copy goes on");
    return result.isComplete() ? Done : Failed;
}

std::string findingText(const GateFinding& finding)
{
    const auto withError = [&](std::string text) {
        return finding.error ? text + ": " + finding.error.message() : text;
    };
    switch (finding.why) {
    case GateFinding::Why::NotInArchive:
        return "not in " + printableText(finding.archive);
    case GateFinding::Why::CannotBeRead:
        return withError("cannot be read");
    case GateFinding::Why::FromCache:
        return "cannot be read past the system's cache";
    case GateFinding::Why::NotAFile:
        return "not a file, in no archive";
    case GateFinding::Why::NotListed:
        return withError("folder cannot be listed");
    case GateFinding::Why::ChangedSince:
        return "changed meanwhile";
    case GateFinding::Why::CardExchanged:
        return "another card answers now";
    }
    return {};
}

ExitCode compare(const ArchiveArguments& arguments)
{
    const auto car = carOf(arguments);
    if (!car)
        return WrongUsage;
    const std::string& card = arguments.folders[0];
    const StopOnInterrupt interrupt;
    WorkControl control(interrupt.token());
    ProgressLine line("Comparing the card");
    const GateResult result =
        compareWithArchives(card, *car, archivesOf(arguments), control, [&](const GateProgress& progress) {
            line.show(fractionOf(progress.bytes, progress.totalBytes));
        });
    line.clear();
    if (result.error)
        return failed(archiveCommand,
                      printableText(card) + " cannot be compared: " + refusalText(result.error));
    std::string text = row("Card", printableText(card) + ": " + filesText(result.files) + ", " +
                                       decimalSizeString(result.bytes)) +
                       row("Car", printableText(*car));
    for (const GateFinding& finding : result.findings)
        text += row("Problem", printableText(lineOfPath(finding.path)) + ": " + findingText(finding));
    if (result.archiveFromCache > 0)
        text +=
            row("", filesText(result.archiveFromCache) + " of the archive compared, medium not read again");
    text += row("Result", result.isOpen()      ? "each byte of the card is in the archive"
                          : result.isCancelled ? "stopped"
                                               : "not all of the card is in the archive");
    if (!writeOut(text))
        return failed(archiveCommand, "the result could not be written");
    return result.isOpen() ? Done : Failed;
}

std::string findingText(const ArchiveFinding& finding)
{
    const auto withError = [&](std::string text) {
        return finding.error ? text + ": " + finding.error.message() : text;
    };
    const std::string path = printableText(lineOfPath(finding.path));
    switch (finding.what) {
    case ArchiveFinding::What::Changed:
        return row("Changed", path);
    case ArchiveFinding::What::Missing:
        return row("Missing", path);
    case ArchiveFinding::What::Added:
        return row("Added", path);
    case ArchiveFinding::What::CannotBeRead:
        return row("Unreadable", withError(path));
    case ArchiveFinding::What::ListMissing:
        return row("Missing", path + ", the list of a day's sums");
    case ArchiveFinding::What::ListDamaged:
        return row("Changed", path + ": lines that are no sums");
    case ArchiveFinding::What::KeptInPart:
        return row("In part", path + ", as far as the card gave it");
    case ArchiveFinding::What::Deleted:
        return row("Deleted", path + ", by MARVO at " + printableText(finding.time));
    }
    return {};
}

ExitCode verify(const ArchiveArguments& arguments)
{
    const std::string& archive = arguments.folders[0];
    const StopOnInterrupt interrupt;
    WorkControl control(interrupt.token());
    ProgressLine line("Checking the archive");
    const ArchiveCheckResult result =
        checkArchive(archive, control, [&](const ArchiveCheckProgress& progress) {
            line.show(fractionOf(progress.bytes, progress.totalBytes));
        });
    line.clear();
    if (result.error)
        return failed(archiveCommand,
                      "cannot check " + printableText(archive) + ": " + errorText(result.error));
    std::string text;
    for (const ArchiveFinding& finding : result.findings)
        text += findingText(finding);
    text += row("As copied", filesText(result.asCopied) + ", " + decimalSizeString(result.bytes));
    if (result.unfinished > 0)
        text += row("Unfinished", countText(result.unfinished, "temporary file", "temporary files") +
                                      " of a copy; the next copy removes what no copy is writing");
    if (result.notReadAgain > 0)
        text += row("", filesText(result.notReadAgain) + " compared, medium not read again");
    if (!writeOut(text))
        return failed(archiveCommand, "the result could not be written");
    if (result.isCancelled)
        return failed(archiveCommand, "stopped");
    return result.holds() ? Done : Failed;
}

ExitCode run(const Arguments& words)
{
    if (words.empty())
        return wrongUsage(archiveCommand, "copy, compare or verify?");
    const bool isCopy = words[0] == "copy";
    const bool isCompare = words[0] == "compare";
    if (!isCopy && !isCompare && words[0] != "verify")
        return wrongUsage(archiveCommand, "no '" + printableText(words[0]) + "': copy, compare or verify");
    const bool hasCard = isCopy || isCompare;
    const auto arguments = parse(Arguments(words.begin() + 1, words.end()), hasCard ? 2 : 1, hasCard);
    if (!arguments)
        return WrongUsage;
    return isCopy ? copy(*arguments) : isCompare ? compare(*arguments) : verify(*arguments);
}

} // namespace

} // namespace marvo::cli
