// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "archive/TransferLog.h"

#include "archive/ArchiveLayout.h"
#include "archive/FileTree.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdio>

namespace marvo {

std::string lineOfPath(std::string_view path)
{
    const std::string line = sumsLine(path, {});
    const std::size_t start = line.find("  ") + 2;
    return line.substr(start, line.size() - start - 1);
}

std::string problemText(const CardCopyProblem& problem)
{
    const auto withError = [&](std::string text) {
        return problem.error ? text + ": " + problem.error.message() : text;
    };
    switch (problem.kind) {
    case CardCopyProblem::Kind::NotAFile:
        return "not a file, left out";
    case CardCopyProblem::Kind::NotListed:
        return withError("folder cannot be listed");
    case CardCopyProblem::Kind::NotReadable:
        return withError("cannot be read");
    case CardCopyProblem::Kind::ReadInPart:
        return withError("read in part, " + std::to_string(problem.bytesKept) + " bytes kept");
    case CardCopyProblem::Kind::Changing:
        return "changes while it is read, not copied";
    case CardCopyProblem::Kind::DiffersAgain:
        return "a second reading gave other bytes, the card is failing";
    case CardCopyProblem::Kind::Refused:
        return withError("cannot be kept in " + lineOfPath(problem.archive));
    case CardCopyProblem::Kind::WrittenWrong:
        return "reads back other than written, the disk of " + lineOfPath(problem.archive) + " is failing";
    }
    return {};
}

void TransferLog::open(const Archive& archive, std::string_view card, std::string_view cardIdentifier,
                       std::string_view car)
{
    m_begin = std::chrono::steady_clock::now();
    if (::mkdirat(archive.ownFolder(), "transfers", 0777) != 0 && errno != EEXIST)
        return;
    const Descriptor folder = openFolderWithin(archive.ownFolder(), "transfers");
    std::string name = utcTimeText();
    for (char& c : name)
        c = c == ':' ? '-' : c;
    name += unpredictableName().substr(6) + ".log";
    if (folder)
        m_file = Descriptor(::openat(*folder, name.c_str(),
                                     O_WRONLY | O_CREAT | O_EXCL | O_APPEND | O_CLOEXEC | O_NOFOLLOW, 0666));
    line("begun " + utcTimeText() + " by MARVO " MARVO_VERSION);
    line("card " + lineOfPath(card) +
         (cardIdentifier.empty() ? "" : ", volume " + std::string(cardIdentifier)));
    line("car " + std::string(car));
}

void TransferLog::there(std::string_view cardPath, const Sha256Sum& sum, std::uint64_t size)
{
    line("there " + hexText(sum) + " " + std::to_string(size) + " " + lineOfPath(cardPath));
}

void TransferLog::placed(const PlacedFile& file)
{
    const bool isThere = file.result == PlacedFile::Result::There;
    if (!isThere && file.result != PlacedFile::Result::Placed)
        return;
    line(std::string(isThere          ? "there "
                     : file.isPartial ? "partial "
                                      : "copied ") +
         hexText(file.sum) + " " + std::to_string(file.size) + " " + lineOfPath(file.path) +
         (file.isReadPastCache ? "" : " (compared, medium not read again)"));
}

void TransferLog::note(const CardCopyProblem& problem)
{
    line("problem " + lineOfPath(problem.path) + ": " + problemText(problem));
}

void TransferLog::close(const CardCopyResult& result, const CardCopyResult::ArchiveOutcome& outcome)
{
    constexpr const char* ends[] = {"done", "cancelled", "the card is gone", "not begun",
                                    "no archive is left"};
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - m_begin).count();
    char numbers[200];
    std::snprintf(numbers, sizeof numbers,
                  "%zu files copied (%llu bytes), %zu there; card read %llu bytes in %.1f s; %.1f s in all",
                  outcome.copied, static_cast<unsigned long long>(outcome.copiedBytes), outcome.there,
                  static_cast<unsigned long long>(result.bytesRead), result.secondsReading, seconds);
    line(numbers);
    if (outcome.notReadAgain > 0)
        line(std::to_string(outcome.notReadAgain) + " files compared, medium not read again");
    if (outcome.error)
        line("archive: " + outcome.error.message());
    line(std::string("ended ") + utcTimeText() + ": " + ends[static_cast<int>(result.end)]);
    if (m_file && !m_text.empty())
        writeFully(*m_file, m_text);
    m_text.clear();
    m_file.reset();
}

/// Written some lines at a time; the last ones of a killed copy are missing.
void TransferLog::line(std::string_view text)
{
    constexpr std::size_t pieceSize = 8192;
    m_text.append(text).append("\n");
    if (m_text.size() < pieceSize)
        return;
    if (m_file)
        writeFully(*m_file, m_text);
    m_text.clear();
}

} // namespace marvo
