// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "archive/WorkControl.h"
#include "card/CardContents.h"
#include "cli/Commands.h"
#include "cli/LongWork.h"
#include "evidence/BagCheck.h"
#include "support/PrintableText.h"

#include <optional>
#include <string>

namespace marvo::cli {

namespace {

ExitCode run(const Arguments& words);

} // namespace

const Command verifyCommand{
    "verify", "checks a package of evidence",
    "Usage: marvo-cli verify FOLDER [--fingerprint HEX]\n"
    "\n"
    "Compares each file of a BagIt folder (RFC 8493) with its SHA-256 sum in manifest-sha256.txt and\n"
    "tagmanifest-sha256.txt, and tells what is changed, missing or added. It prints the package's "
    "fingerprint,\n"
    "the SHA-256 sum of tagmanifest-sha256.txt.\n"
    "\n"
    "  --fingerprint HEX  the package must be the one that had this fingerprint, and not have been packed "
    "anew\n"
    "\n"
    "Exit code: 0 when all is as packed; 1 when not; 2 wrong usage.\n",
    run};

namespace {

struct VerifyArguments
{
    std::string folder;
    std::optional<Sha256Sum> fingerprint;
};

std::optional<VerifyArguments> parse(const Arguments& words)
{
    const auto refused = [](const std::string& message) {
        wrongUsage(verifyCommand, message);
        return std::nullopt;
    };
    VerifyArguments result;
    bool optionsEnded = false;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const bool isOption = !optionsEnded && words[i].size() > 1 && words[i].front() == '-';
        if (isOption && words[i] == "--") {
            optionsEnded = true;
        } else if (isOption && words[i] == "--fingerprint") {
            result.fingerprint = ++i < words.size() ? readSha256(words[i]) : std::nullopt;
            if (!result.fingerprint)
                return refused("--fingerprint takes 64 hexadecimal digits");
        } else if (isOption) {
            return refused("no option '" + printableText(words[i]) + "'");
        } else if (words[i].empty() || !result.folder.empty()) {
            return refused("takes one FOLDER");
        } else {
            result.folder = words[i];
        }
    }
    return result.folder.empty() ? refused("FOLDER is missing") : std::optional(result);
}

std::string row(std::string_view name, const std::string& value)
{
    std::string text(name);
    text.append(name.size() < 14 ? 14 - name.size() : 1, ' ');
    return text + value + "\n";
}

std::string findingText(const BagFinding& finding)
{
    const std::string path = printableText(finding.path);
    switch (finding.what) {
    case BagFinding::What::Changed:
        return row("Changed", path);
    case BagFinding::What::Missing:
        return row("Missing", path);
    case BagFinding::What::Added:
        return row("Added", path);
    case BagFinding::What::CannotBeRead:
        return row("Unreadable", finding.error ? path + ": " + finding.error.message() : path);
    case BagFinding::What::Malformed:
        return row("Malformed", path);
    case BagFinding::What::OtherFingerprint:
        return row("Packed anew", "the fingerprint is another one");
    }
    return {};
}

ExitCode run(const Arguments& words)
{
    const auto arguments = parse(words);
    if (!arguments)
        return WrongUsage;
    const StopOnInterrupt interrupt;
    WorkControl control(interrupt.token());
    ProgressLine line("Checking the package");
    const BagCheckResult result =
        checkBag(arguments->folder, arguments->fingerprint, control, [&](const BagCheckProgress& progress) {
            if (progress.totalBytes > 0)
                line.show(static_cast<double>(progress.bytes) / static_cast<double>(progress.totalBytes));
        });
    line.clear();
    if (result.error)
        return failed(verifyCommand, "cannot check " + printableText(arguments->folder) + ": " +
                                         (result.error == std::errc::not_supported
                                              ? std::string("the library libcrypto cannot be loaded")
                                              : result.error.message()));
    std::string text;
    for (const BagFinding& finding : result.findings)
        text += findingText(finding);
    text +=
        row("As packed", std::to_string(result.asPacked) + (result.asPacked == 1 ? " file, " : " files, ") +
                             decimalSizeString(result.bytes));
    text += row("Fingerprint", result.fingerprint ? hexText(*result.fingerprint) : "none");
    text += row("Result", result.isCancelled ? "stopped"
                          : result.holds()   ? "complete and as packed"
                                             : "not as packed");
    if (!writeOut(text))
        return failed(verifyCommand, "the result could not be written");
    return result.holds() ? Done : Failed;
}

} // namespace

} // namespace marvo::cli
